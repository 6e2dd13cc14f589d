// Round trips of function text over every registered kind: whatever a kind
// accepts, it writes back so that reading the text gives the same function.
#include <gtest/gtest.h>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

std::vector<FnAttr> AttributesOf(const IFn& fn) {
  std::vector<FnAttr> attrs;
  fn->GetAttributes(attrs);
  return attrs;
}

// Emptying any one attribute of a default object either fails, or leaves a
// function whose text reads back to the same attributes. An attribute whose
// unset state differs from its default would otherwise come back as the
// default after a save.
TEST(FnTextRoundTrip, EveryKindWithEachAttributeEmptied) {
  for (const std::wstring& kind : RegisteredFnKinds()) {
    IFn base;
    ASSERT_TRUE(GetFnImplFromName(kind, base).succeeded()) << str::to_utf8(kind);
    std::vector<std::wstring> names = {L"InputParam", L"OutputParam"};
    for (const FnAttr& a : AttributesOf(base))
      if (a.Name != L"Type" && a.Name != L"Description") names.push_back(a.Name);
    for (const std::wstring& name : names) {
      IFn fn = base;
      if (fn.SetAttribute(FnAttr(name, L"")).failed()) continue;
      const std::wstring text = fn.as_wstring();
      IFn again;
      ASSERT_TRUE(FnCreate(text, again).succeeded()) << str::to_utf8(text);
      EXPECT_EQ(AttributesOf(again), AttributesOf(fn))
          << str::to_utf8(kind) << " with " << str::to_utf8(name) << "= written as "
          << str::to_utf8(text) << " reads back as " << str::to_utf8(again.as_wstring());
    }
  }
}

// Every blank (characters 9 to 13 and 32) is a blank in function text: a
// parameter type made only of blanks is unset, and blanks around a value are
// ignored, whichever blank it is.
TEST(FnText, EveryBlankCharacterIsBlank) {
  for (wchar_t c : {L'\t', L'\n', L'\v', L'\f', L'\r', L' '}) {
    const std::wstring b(1, c);
    IFn fn;
    const std::wstring text = L"Linear(InputParam=" + b + L",OutputParam=" + b + b + L",SlopeBefore=" +
                              b + L"2" + b + L")";
    ASSERT_TRUE(FnCreate(text, fn).succeeded()) << static_cast<int>(c);
    EXPECT_EQ(fn.as_wstring(), L"Linear(SlopeBefore=2)") << static_cast<int>(c);
    ASSERT_TRUE(FnCreate(L"Range(Mean=" + b + L"10,Delta=2" + b + L")", fn).succeeded());
    EXPECT_EQ(fn.as_wstring(), L"Range(Mean=10,Delta=2)") << static_cast<int>(c);
  }
}

}  // namespace
}  // namespace v7
