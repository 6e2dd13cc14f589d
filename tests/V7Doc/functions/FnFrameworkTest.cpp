#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

#include "QVI/str/Messages.h"
#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/FnInterpolated.h"
#include "V7Doc/functions/FnRange.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {
namespace {

constexpr double kNo = qvi::kNoValue;

TEST(FnParse, SplitsNameAndAttributes) {
  struct { const wchar_t* text; bool ok; const wchar_t* name; std::vector<FnAttr> attrs; } cases[] = {
      {L"Spline(a=1,b)", true, L"Spline", {{L"a", L"1"}, {L"Value", L"b"}}},
      {L"Step(5)", true, L"Step", {{L"Value", L"5"}}},
      {L"Step(Value=5)", true, L"Step", {{L"Value", L"5"}}},
      {L"X(a=1,2,a=3)", true, L"X", {{L"a", L"1"}, {L"Value", L"2"}, {L"a", L"3"}}},  // duplicates kept
      {L"X(a=b=c,,)", true, L"X", {{L"a", L"b=c"}, {}, {}}},  // first "=" splits; empty pieces
      {L" Sp (x=1)", true, L" Sp ", {{L"x", L"1"}}},             // the name as it stands
      {L"Spline", false, L"", {}},
      {L"Spline)(", false, L"", {}},
      {L"Spline(a=1", false, L"", {}},
  };
  for (const auto& c : cases) {
    std::wstring name = L"junk";
    std::vector<FnAttr> attrs{{L"junk", L"junk"}};
    const gtl::status s = FnParse(c.text, name, attrs);
    EXPECT_EQ(s.succeeded(), c.ok) << str::to_utf8(c.text);
    EXPECT_EQ(name, c.name) << str::to_utf8(c.text);
    EXPECT_EQ(attrs, c.attrs) << str::to_utf8(c.text);
  }
}

TEST(FnCreate, SpecialTextsAndFailures) {
  IFn fn = IFn(new FnConst(3));
  ASSERT_TRUE(FnCreate(L"", fn).succeeded());
  EXPECT_TRUE(fn.IsUndefined());
  EXPECT_EQ(fn(1.0), kNo);

  ASSERT_TRUE(FnCreate(L"0", fn).succeeded());
  EXPECT_EQ(fn.get(), IFn::FnZero().get());
  ASSERT_TRUE(FnCreate(L"0.0", fn).succeeded());
  EXPECT_NE(fn.get(), IFn::FnZero().get());
  EXPECT_EQ(fn(5.0), 0.0);
  ASSERT_TRUE(FnCreate(L" -2.5e3 ", fn).succeeded());
  EXPECT_EQ(fn(1.0), -2500.0);
  EXPECT_EQ(fn->InputParam(), DataParamType::Undefined);

  struct Bad {
    const wchar_t* text;
    unsigned id;
  } bad[] = {{L"Spline", 33000}, {L"NoSuchKind(a=1)", 20547}, {L"inf", 33000}, {L"(x)", 20547}};
  for (const auto& b : bad) {
    fn = IFn(new FnConst(3));
    const gtl::status s = FnCreate(b.text, fn);
    EXPECT_TRUE(s.failed()) << str::to_utf8(b.text);
    EXPECT_EQ(s.id(), b.id) << str::to_utf8(b.text);
    EXPECT_TRUE(fn.IsUndefined()) << str::to_utf8(b.text);
    if (b.text[0] == L'N') { EXPECT_NE(s.message().find(L"NoSuchKind"), std::wstring::npos); }
  }

  // A value a kind cannot read is reported with the kind and the attribute.
  const gtl::status v = FnCreate(L"Spline(Smooth=lots)", fn);
  EXPECT_EQ(v.id(), 33001u);
  EXPECT_NE(v.message().find(L"Smooth"), std::wstring::npos);
}

TEST(FnAttributes, DescriptionTypeAndMerge) {
  IFn fn;
  ASSERT_TRUE(FnCreate(L"Range(Mean=10,Delta=2,Steps=)", fn).succeeded());
  std::vector<FnAttr> attrs;
  fn->GetAttributes(attrs);
  // Data attributes first; the calculated "Steps" replaced the data entry in
  // place; "Type", "Min", "Max" appended; then the description (its own text,
  // as the parameter types are unset).
  const std::vector<FnAttr> expect = {{L"Mean", L"10"},   {L"Delta", L"2"},  {L"Steps", L"5"},
                                      {L"Type", L"Range"}, {L"Min", L"0"},    {L"Max", L"20"},
                                      {L"Description", L"Range(Mean=10,Delta=2)"}};
  EXPECT_EQ(attrs, expect);

  ASSERT_TRUE(fn.SetAttributes({FnAttrInputParam(DataParamType::MatricSuction),
                                FnAttrOutputParam(DataParamType::VolWaterContent)})
                  .succeeded());
  FnAttr d(L"Description");
  ASSERT_TRUE(fn->LookupAttribute(d));
  EXPECT_EQ(d.Value, str::format(str::load_wstring(22845), L"VolWaterContent", L"MatricSuction"));

  FnAttr calc(L"Calculated.Max");
  ASSERT_TRUE(fn->LookupAttributeAt(calc, 0, calc.Name));
  EXPECT_EQ(calc.Value, L"20");
  FnAttr second;
  EXPECT_FALSE(fn->LookupAttributeAt(second, 1, L"Mean"));

  // The shared undefined function describes itself with no "Description".
  std::vector<FnAttr> undefined;
  IFn::FnUndefined()->GetAttributes(undefined);
  EXPECT_EQ(undefined, (std::vector<FnAttr>{{L"Value", str::to_wstring(kNo)}}));
}

TEST(FnAttributes, FactoryNamesAndComposites) {
  EXPECT_EQ(FnAttrSampleBySplice(true), FnAttr(L"SampleBySlice", L"1"));
  EXPECT_EQ(FnAttrTailAfter(math::fn::TailType::None()), FnAttr(L"SlopeAfter", L""));
  EXPECT_EQ(FnAttrMean(kNo), FnAttr(L"Mean", L""));
  EXPECT_EQ(FnAttrCalc(FnAttrMin(0.5)), FnAttr(L"Calculated.Min", L"0.5"));
  EXPECT_EQ(FnAttrCalc(FnAttr()), FnAttr(L"Calculated", L""));
  EXPECT_EQ(FnAttrSub(FnAttr(L"Function"), FnAttrSmooth(2)), FnAttr(L"Function.Smooth", L"2"));
  EXPECT_EQ(FnAttr(L"A", L"1").as_wstring(), L"A=1");
  EXPECT_EQ(FnAttr(L"", L"1").as_wstring(), L"1");
  EXPECT_EQ(JoinAttributes({{L"A", L"1"}, {L"B", L""}, {L"C", L"x"}}, true), L"A=1,C=x");
}

TEST(IFn, SharedFunctionsAndConstantFactory) {
  EXPECT_EQ(IFn::FnUndefined().as_wstring(), L"");
  EXPECT_TRUE(dynamic_cast<const FnUndefinedType*>(IFn::Constant(kNo).get()));
  EXPECT_FALSE(IFn::Constant(kNo).IsUndefined());  // a new object, not the shared one
  EXPECT_EQ(IFn::Constant(1.0 / 3).as_wstring(), L"0.3333333333333333");
  EXPECT_EQ(IFn::Constant(2).as_wstring(), L"2");
  // Seventeen digits where sixteen would read back as another double.
  for (double v : {0.1 + 0.2, 3.3333333333333335e+53, 5e-324, -1.7976931348623157e308}) {
    IFn back;
    ASSERT_TRUE(FnCreate(IFn::Constant(v).as_wstring(), back).succeeded()) << v;
    EXPECT_EQ(back(0.0), v);
  }
}

TEST(IFn, CopyOnWriteKeepsOtherHoldersUnchanged) {
  IFn spline;
  ASSERT_TRUE(FnCreate(L"Linear(SlopeBefore=,SlopeAfter=)", spline).succeeded());
  Func2D a(L"a", L"", spline), b(L"b", L"", spline);
  spline.reset();
  EXPECT_EQ(a.Fn().get(), b.Fn().get());

  IFn edited = b.Fn();
  ASSERT_TRUE(edited.SetAttribute(FnAttrTailAfter(math::fn::TailType::Slope(3))).succeeded());
  b.SetFn(edited);
  EXPECT_NE(a.Fn().get(), b.Fn().get());
  EXPECT_EQ(a.Fn().as_wstring(), L"Linear()");
  // A clone of a Linear without tails gets flat tails; the edit set one.
  EXPECT_EQ(b.Fn().as_wstring(), L"Linear(SlopeBefore=0,SlopeAfter=3)");

  // An unshared object is edited in place.
  IFn own;
  ASSERT_TRUE(FnCreate(L"Step()", own).succeeded());
  const FnImpl* p = own.get();
  ASSERT_TRUE(own.SetAttribute(FnAttrTailBefore(math::fn::TailType::Slope(1))).succeeded());
  EXPECT_EQ(own.get(), p);

  // The shared constants are never changed in place.
  IFn zero = IFn::FnZero();
  ASSERT_TRUE(zero.SetAttribute(FnAttrValue(5)).succeeded());
  EXPECT_EQ(zero(0.0), 5.0);
  EXPECT_EQ(IFn::FnZero()(0.0), 0.0);
  IFn undefined;
  ASSERT_TRUE(undefined.SetAttribute(FnAttrValue(5)).succeeded());
  EXPECT_EQ(undefined(0.0), kNo);
}

TEST(FnRange, MinMaxAndTrialValues) {
  struct { const wchar_t* text; double min, max; int points; } cases[] = {{L"Range(Mean=10,Delta=2)", 0, 20, 11},
               {L"Range(Mean=10,Delta=2,Steps=1)", 8, 12, 3},
               {L"Range(Mean=10)", kNo, kNo, 0},
               {L"Range(Delta=1,Steps=2)", kNo, kNo, 0}};
  for (const auto& c : cases) {
    IFn fn;
    ASSERT_TRUE(FnCreate(c.text, fn).succeeded());
    const auto& r = dynamic_cast<const FnRange&>(*fn);
    EXPECT_EQ(r.Min(), c.min) << str::to_utf8(c.text);
    EXPECT_EQ(r.Max(), c.max) << str::to_utf8(c.text);
    std::vector<double> trials(fn->begin(), fn->end());
    ASSERT_EQ(static_cast<int>(trials.size()), c.points);
    if (!trials.empty()) {
      EXPECT_EQ(trials.front(), c.min);
      EXPECT_EQ(trials.back(), c.max);
    }
  }
}

// Evaluating an array gives, bit for bit, what evaluating point by point
// gives, for every kind with a loop of its own and on every path of it:
// inside and outside the points, on the points, tails, log axes, NaN, and
// parameters left unset.
TEST(IFn, ArrayEvaluationEqualsPointByPoint) {
  const std::vector<FnPoint> points = {{-3, 2, 0}, {-1, 0.5, 0}, {0, 0.25, 0}, {2, -1, 0}, {5, 4, 0}, {6, 4.5, 0}};
  const wchar_t* kinds[] = {
      L"Linear()", L"Linear(SlopeBefore=1,SlopeAfter=-2)", L"Step()", L"Spline()", L"Spline(Tension=5)",
      L"SplineGEZero()", L"HydKFn()", L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45)",
      L"Fredlund_Xing(N=2,M=1,SatWC=0.45)", L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)", L"Constant(Y=3)",
      L"FnEstDynPWP()", L"FnEstGReduction(PI=20)", L"FnEstVolWC(SatWC=0.4)", L"FnEstThermalKvsTemp()",
  };
  std::vector<double> in = {std::nan(""), -1e7, -2e6, -3.5, -3, -2.2, -1, -0.3, 0, 1e-9, 1.7, 2, 4.99, 6, 6.5, 1e3};
  for (const double x : {-1e4, -250.0, -17.0, -0.01}) in.push_back(x);
  for (const wchar_t* text : kinds) {
    SCOPED_TRACE(str::to_utf8(text));
    IFn fn;
    ASSERT_FALSE(FnCreate(text, fn).failed());
    if (auto* data = dynamic_cast<IFnDataPoints*>(fn.Unshared())) data->Assign(points.data(), points.data() + points.size());
    (void)fn.Unshared()->UpdateCalculatedValues();
    std::vector<double> out(in.size() + 1, -42.0);
    fn.Evaluate(in, std::span<double>(out).first(in.size()));
    for (std::size_t i = 0; i < in.size(); ++i)
      EXPECT_EQ(std::bit_cast<std::uint64_t>(out[i]), std::bit_cast<std::uint64_t>(fn(in[i]))) << "x = " << in[i];
    EXPECT_EQ(out.back(), -42.0);  // nothing written past the output
    std::fill(out.begin(), out.end(), -42.0);
    fn.Evaluate(in, std::span<double>(out).first(3));  // a shorter output bounds the count
    EXPECT_EQ(std::bit_cast<std::uint64_t>(out[2]), std::bit_cast<std::uint64_t>(fn(in[2])));
    EXPECT_EQ(out[3], -42.0);
  }
}

}  // namespace
}  // namespace v7
