#include "V7Doc/materials/RecordMembers.h"

#include "V7Doc/functions/FnConst.h"

namespace v7 {

std::wstring FnMemberText(const IFn& fn) { return fn.as_wstring(); }

namespace {
constexpr unsigned kMsgFnTextKept = 31043;
}  // namespace

gtl::status FnTextKeptWarning(const std::wstring& text, const gtl::status& error) {
  return gtl::status::warning(kMsgFnTextKept, text, error.message());
}

gtl::status SetFnMemberText(IFn& fn, const std::wstring& text) {
  const gtl::status s = FnCreate(text, fn);
  if (s.succeeded()) return {};
  fn = IFn(new FnUndefinedType(text));
  return FnTextKeptWarning(text, s);
}

}  // namespace v7
