#include "V7Doc/materials/RecordMembers.h"

#include "V7Doc/functions/FnConst.h"

namespace v7 {

std::wstring FnMemberText(const IFn& fn) { return fn.as_wstring(); }

void SetFnMemberText(IFn& fn, const std::wstring& text) {
  if (FnCreate(text, fn).succeeded()) return;
  fn = IFn(new FnUndefinedType(text));
}

}  // namespace v7
