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

// Every kind, as a default object with its parameter types set and with
// any one attribute emptied: the text reads back to the same attributes
// (an attribute whose unset state differs from its default would otherwise
// come back as the default after a save), or the emptying fails.
TEST(FnTextRoundTrip, EveryKindWithEachAttributeEmptied) {
  for (const std::wstring& kind : RegisteredFnKinds()) {
    IFn base;
    ASSERT_TRUE(GetFnImplFromName(kind, base).succeeded()) << str::to_utf8(kind);
    std::vector<std::wstring> names = {L"", L"InputParam", L"OutputParam"};  // "": none emptied
    for (const FnAttr& a : AttributesOf(base))
      if (a.Name != L"Type" && a.Name != L"Description") names.push_back(a.Name);
    for (const std::wstring& name : names) {
      IFn fn = base;
      if (name.empty()) {
        ASSERT_TRUE(fn.SetAttributes({FnAttrInputParam(DataParamType::MatricSuction),
                                      FnAttrOutputParam(DataParamType::XConductivity)})
                        .succeeded());
      } else if (fn.SetAttribute(FnAttr(name, L"")).failed()) {
        continue;
      }
      const std::wstring text = fn.as_wstring();
      IFn again;
      ASSERT_TRUE(FnCreate(text, again).succeeded()) << str::to_utf8(text);
      EXPECT_EQ(again.as_wstring(), text);
      EXPECT_EQ(AttributesOf(again), AttributesOf(fn))
          << str::to_utf8(kind) << " with " << str::to_utf8(name) << "= written as "
          << str::to_utf8(text) << " reads back as " << str::to_utf8(again.as_wstring());
    }
  }
}

// Texts away from the defaults (names of enumerations, unset values, sub
// functions) read back to the same attributes; the first twelve are written
// back as given (an estimator writes every attribute, enumerations by number).
TEST(FnTextRoundTrip, TextsAwayFromTheDefaults) {
  const wchar_t* texts[] = {
      L"Spline(Smooth=3,Tension=20,SlopeBefore=-0.5,SlopeAfter=0,LogInput=1,LogOutput=0)",
      L"SplineGEZero(InputParam=21,Smooth=0,Tension=1,SlopeAfter=2,LogInput=0,LogOutput=1)",
      L"HydKFn(Smooth=0,Tension=0,LogInput=0,LogOutput=1)", L"Linear(SlopeBefore=1.25)",
      L"Step(SlopeAfter=0)", L"Range(Mean=10,Delta=2)", L"Range(Mean=0.1,Steps=3)",
      L"FnIntegral(Function=Linear,Function.SlopeBefore=0,Steps=6)",
      L"FnIntegral(Function=2.5,Steps=4)", L"HydBoundFnTable(HydBoundFnNum=3,HydModFnNum=1)",
      L"StressBoundFnTable(StressBoundFnNum=2)", L"12.75",
      L"FnEstGmax(InputParam=21,SampleMatlGmax=LooseGravel,GmaxEstMethod=Hardin,PI=12.5)",
      L"FnEstEMod(SampleMatlEMod=Gravel,NExponent=0.4)", L"FnEstEMod(NExponent=)",
      L"FnEstThermalKvsTemp(TCFrozen=2.25,SampleMatlThermalKvsTemp=ClayDensity125)",
      L"FnEstThermalKvsVolWC(VolWCFnNum=3,Max=0.35,Min=0.01,NumPoints=9)",
      L"FnEstLAI(SampleMatlLAI=Poor,NumPoints=7,FirstDaySeason=90,LastDaySeason=300,NumYears=3)",
      L"FnEstShearNormal(IntactRockParam=7.5,GeologicalStrength=35,DisturbanceFactor=0.3,"
      L"SigmaC=1.5e5)",
      L"FnEstDampingRatio(OutputParam=2,PI=1e-3,ConfiningStress=7,OCR=1.25)"};
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    const wchar_t* text = texts[i];
    IFn fn, again;
    ASSERT_TRUE(FnCreate(text, fn).succeeded()) << str::to_utf8(text);
    if (i < 12) {
      EXPECT_EQ(fn.as_wstring(), text);
    }
    ASSERT_TRUE(FnCreate(fn.as_wstring(), again).succeeded()) << str::to_utf8(fn.as_wstring());
    EXPECT_EQ(again.as_wstring(), fn.as_wstring());
    EXPECT_EQ(AttributesOf(again), AttributesOf(fn)) << str::to_utf8(text);
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
