#include <gtest/gtest.h>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/FnIntegral.h"
#include "V7Doc/functions/FnInterpolated.h"
#include "V7Doc/functions/Func2D.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

using fntest::Make;

constexpr double kNo = qvi::kNoValue;

Func2D Drawn(const wchar_t* name, const wchar_t* kind, std::vector<FnPoint> pts) {
  Func2D f(name, L"", Make(kind));
  f.Points() = std::move(pts);
  f.UpdateFn();
  return f;
}

TEST(Func2D, MissingAndNewFunctions) {
  Func2D empty;
  EXPECT_TRUE(IsMissing(empty));
  EXPECT_FALSE(IsMissing(Func2D(L"k")));
  EXPECT_FALSE(IsMissing(Func2D(L"", L"", Make(L"Linear()"))));
  Func2D f = Func2D::NewFunction(Make(L"Spline()"));
  f.SetDescription(L"drawn");
  SetMissing(f);
  EXPECT_TRUE(IsMissing(f));
  EXPECT_EQ(f.Description(), L"");
}

// Points with the no-value marker in any coordinate (an unfinished last
// row among them) are no data: the curve through the others is the same as
// if they had never been there; the user's rows are kept until
// ClearMissingPoints drops them.
TEST(Func2D, UpdateIgnoresPointsWithNoValueAnywhere) {
  const std::vector<FnPoint> clean = {{0, 0, 0}, {2, 4, 0}, {3, 9, 0}};
  const std::vector<std::vector<FnPoint>> dirty = {
      {{0, 0, 0}, {1, kNo, 0}, {2, 4, 0}, {3, 9, 0}},
      {{0, 0, 0}, {kNo, 1, 0}, {2, 4, 0}, {3, 9, 0}},
      {{kNo, kNo, 0}, {0, 0, 0}, {2, 4, 0}, {3, 9, 0}},
      {{0, 0, 0}, {1, 1, kNo}, {2, 4, 0}, {3, 9, 0}},
      {{0, 0, 0}, {2, 4, 0}, {3, 9, 0}, {4, kNo, 0}},
  };
  for (const wchar_t* kind : {L"Linear()", L"Step()", L"Spline()", L"SplineGEZero()"}) {
    Func2D reference(L"r", L"", Make(kind));
    reference.Points() = clean;
    ASSERT_TRUE(reference.UpdateFn().succeeded());
    for (const auto& pts : dirty) {
      Func2D f(L"k", L"", Make(kind));
      f.Points() = pts;
      f.UpdateFn();
      for (double x : {0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.5})
        EXPECT_EQ(f(x), reference(x)) << str::to_utf8(kind) << " at " << x;
      EXPECT_EQ(f.Fn()->InputRangeNumPoints(), 3) << str::to_utf8(kind);
      EXPECT_EQ(f.Points(), pts);
      f.ClearMissingPoints();
      EXPECT_EQ(f.Points().size(), 3u);
    }
  }
}

TEST(Func2DTable, UpdatesEveryLiveFunctionAndKnowsItsPairs) {
  Func2DTable t(eFunc2DListType::eHydB);
  for (const wchar_t* name : {L"x", L"y", L"a"}) t.Add(Func2D(name, L"", Make(L"Linear()")));
  t.Delete({1, 2});  // two leading missing slots
  t.At(3).Points() = {{0, 1, 0}, {kNo, 5, 0}, {2, 3, 0}, {3, kNo, 0}};
  t.OnUpdateCalculatedValues();
  EXPECT_TRUE(t.IsMissingSlot(1));
  EXPECT_TRUE(t.IsMissingSlot(2));
  EXPECT_EQ(t.At(3).Points().size(), 2u);
  EXPECT_DOUBLE_EQ(t.At(3)(1), 2);

  std::vector<eFunc2D_XYTypes> pairs;
  t.GetAllXYTypes(pairs);
  EXPECT_EQ(pairs.size(), 4u);
  EXPECT_EQ(pairs.front(), eXY_Time_TotalHead);
  Func2DTable none;
  none.GetAllXYTypes(pairs);
  EXPECT_TRUE(pairs.empty());
}

TEST(PointKinds, EvaluateThroughTheirTables) {
  const std::vector<FnPoint> hat = {{0, 0, 0}, {1, 1, 0}, {2, 0, 0}};
  EXPECT_NEAR(Drawn(L"s", L"Spline()", hat)(0.5), 0.6875, 1e-12);  // natural cubic by hand
  EXPECT_DOUBLE_EQ(Drawn(L"l", L"Linear()", hat)(0.5), 0.5);
  EXPECT_DOUBLE_EQ(Drawn(L"st", L"Step()", hat)(0.5), 0);
  // The cubic dips below zero past a steep drop; the GE-zero kinds do not.
  const std::vector<FnPoint> drop = {{0, 1, 0}, {1, 1, 0}, {2, 0, 0}, {3, 0, 0}};
  const Func2D plain = Drawn(L"p", L"Spline()", drop);
  const Func2D clamped = Drawn(L"c", L"SplineGEZero()", drop);
  const Func2D volwc = Drawn(L"v", L"VolWCSpline()", drop);
  ASSERT_LT(plain(2.5), 0);
  EXPECT_EQ(clamped(2.5), 0);
  EXPECT_EQ(volwc(2.5), 0);
  EXPECT_EQ(clamped(4), kNo);
  // HydKFn interpolates log10 K: halfway between 1e-5 and 1e-7 is 1e-6.
  const Func2D k = Drawn(L"k", L"HydKFn(Tension=100000)", {{-100, 1e-7, 0}, {-10, 1e-5, 0}});
  EXPECT_NEAR(k(-55), 1e-6, 1e-18);
  // A step function's natural input range is its points' x.
  const Func2D st = Drawn(L"st", L"Step()", hat);
  std::vector<double> xs(st.Fn()->begin(), st.Fn()->end());
  EXPECT_EQ(xs, (std::vector<double>{0, 1, 2}));
  // An empty table has no value anywhere.
  EXPECT_EQ(Drawn(L"e", L"Spline()", {})(0), kNo);
}

TEST(FnIntegral, SimpsonRunningIntegral) {
  // Integral of the line y = x drawn through (0,0), (2,2) is x^2 / 2; of
  // the constant 3 over the grid 0..4 it is 3 x (Simpson is exact for both).
  const Func2D line = Drawn(L"l", L"Linear()", {{0, 0, 0}, {2, 2, 0}});
  FnIntegral integral(line.Fn(), 4, DataParamType::Time, DataParamType::CumulativeWaterFlux);
  for (double x : {0.0, 0.5, 1.0, 1.7, 2.0}) EXPECT_NEAR(integral(x), x * x / 2, 1e-14) << x;
  EXPECT_EQ(integral(2.1), kNo);
  EXPECT_EQ(integral(-0.1), kNo);

  FnIntegral constant(IFn::Constant(3), 2, DataParamType::Time, DataParamType::Undefined);
  EXPECT_EQ(constant(1), kNo);  // a constant has no natural grid until points are given
  const std::vector<FnPoint> grid = {{0, 0, 0}, {4, 0, 0}, {1, 0, 0}};
  constant.Assign(grid.data(), grid.data() + grid.size());
  for (double x : {0.0, 0.5, 1.0, 3.0, 4.0}) EXPECT_NEAR(constant(x), 3 * x, 1e-13) << x;
}

TEST(FnFunc2DTable, EvaluatesByNumberWithModifier) {
  fntest::CurrentDocument d;
  const QVDocumentHandle& doc = d.doc;
  doc->FunctionList(18)->Add(Drawn(L"head", L"Linear()", {{0, 10, 0}, {10, 20, 0}}));
  doc->FunctionList(19)->Add(Drawn(L"mod", L"Linear()", {{0, 1, 0}, {10, 0.5, 0}}));
  doc->FunctionList(31)->Add(Drawn(L"load", L"Step()", {{0, 100, 0}, {5, 200, 0}}));

  FnHydBoundTable hyd(1, 0);
  EXPECT_DOUBLE_EQ(hyd(5), 15);
  FnHydBoundTable modified(1, 1);
  EXPECT_DOUBLE_EQ(modified(5), 15 * 0.75);  // value times the modifier at the same input
  EXPECT_EQ(FnHydBoundTable(0, 0).Fn(), nullptr);
  EXPECT_EQ(FnHydBoundTable(2, 0)(5), kNo);  // beyond the list
  EXPECT_EQ(FnHydBoundTable(1, 7)(5), kNo);  // a named modifier that does not exist
  EXPECT_DOUBLE_EQ(FnStressBoundTable(1, 9)(3), 100);

  // InitializeInstance rebinds an IFn of a table kind (unsharing it first).
  IFn fn = Make(L"HydBoundFnTable(HydBoundFnNum=0,HydModFnNum=0)");
  IFn other = fn;
  ASSERT_TRUE(fn.InitializeInstance(1, 1).succeeded());
  EXPECT_DOUBLE_EQ(fn(5), 11.25);
  EXPECT_EQ(other(5), kNo);
  EXPECT_EQ(fn.as_wstring(), L"HydBoundFnTable(HydBoundFnNum=1,HydModFnNum=1)");
  IFn plain = IFn::Constant(2);
  EXPECT_TRUE(plain.InitializeInstance(1, 1).succeeded());  // not a table kind: nothing to do

  doc->FunctionList(18)->Delete({1});
  EXPECT_EQ(fn(5), kNo);
}

}  // namespace
}  // namespace v7
