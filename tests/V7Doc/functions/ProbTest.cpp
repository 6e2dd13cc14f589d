#include <gtest/gtest.h>

#include <cmath>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnInterpolated.h"
#include "V7Doc/functions/FnMultiTrial.h"
#include "V7Doc/functions/FnProb.h"
#include "V7Doc/functions/FnProbFN.h"
#include "V7Doc/functions/Func2D.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

using fntest::Make;
using fntest::Estimate;

constexpr double kNo = qvi::kNoValue;

const FnProb& AsProb(const IFn& fn) { return dynamic_cast<const FnProb&>(*fn); }

TEST(FnProb, QuantilesMatchIndependentValues) {
  // mpmath references; the truncated inverse is Q(F(a) + p (F(b) - F(a))),
  // untruncated tails cut at 1e-6. Tolerance 2e-5 of the span.
  const struct {
    const wchar_t* text;  // null: same distribution as the row before
    double p, x, span;
  } cases[] = {
      {L"Normal(Mean=10,SD=2,Min=7,Max=15)", 0.001, 7.0142382241464585, 8},
      {nullptr, 0.25, 8.9428663219964303, 8},
      {nullptr, 0.5, 10.152041816236291, 8},
      {nullptr, 0.999, 14.900621516580644, 8},
      {nullptr, 0.0, 7.0, 8},   // the bounds themselves
      {nullptr, 1.0, 15.0, 8},
      {L"Normal(Mean=10,SD=2)", 0.5, 10.0, 19},
      {nullptr, 0.0, 0.4931513823542021, 19},  // the tail cut, 4.75 SD
      {nullptr, 0.975, 13.919895460440088, 19},
      {L"Log Normal(Loc=1,Mean=5,SD=2,Max=9)", 0.01, 2.1827275503485138, 7.7},
      {nullptr, 0.5, 4.4851866720563733, 7.7},
      {nullptr, 0.9, 6.9622486181281432, 7.7},
      {nullptr, 1.0, 9.0, 7.7},
      {L"Uniform(Min=2,Max=4)", 0.25, 2.5, 2},
      // Triangular 1, 2, 5: x = 1 + sqrt(4p) for p <= 1/4, else 5 - sqrt(12(1-p)).
      {L"Triangular(Min=1,Mode=2,Max=5)", 0.04, 1.4, 4},
      {nullptr, 0.25, 2.0, 4},
      {nullptr, 0.7, 5 - std::sqrt(3.6), 4},
  };
  IFn fn;
  for (const auto& c : cases) {
    if (c.text) fn = Estimate(c.text);
    EXPECT_NEAR(fn(c.p), c.x, 2e-5 * c.span) << str::to_utf8(fn.as_wstring()) << " p=" << c.p;
  }
}

TEST(FnProb, MeanAndMedian) {
  const struct {
    const wchar_t* text;
    double mean, median, tol;
  } cases[] = {
      // mpmath: closed form for the normal, quadrature for the log-normal.
      {L"Normal(Mean=10,SD=2,Min=7,Max=15)", 10.241620998563198, 10.152041816236291, 1e-10},
      {L"Normal(Mean=10,SD=2)", 10.0, 10.0, 1e-10},  // symmetric cut: mean and median agree
      {L"Log Normal(Loc=1,Mean=5,SD=2,Max=9)", 4.72839648775926, 4.4851866720563733, 1e-9},
      {L"Uniform(Min=2,Max=4)", 3.0, 3.0, 1e-15},
      {L"Triangular(Min=1,Mode=2,Max=5)", 8.0 / 3.0, 5 - std::sqrt(6.0), 1e-6},
  };
  for (const auto& c : cases) {
    const IFn fn = Estimate(c.text);
    EXPECT_NEAR(AsProb(fn).Mean(), c.mean, c.tol * std::abs(c.mean)) << str::to_utf8(c.text);
    EXPECT_NEAR(AsProb(fn).Median(), c.median, 2e-5 * std::abs(c.median)) << str::to_utf8(c.text);
    double integral = 0;  // a second method: the integral of the inverse over p
    const int steps = 20000;
    for (int i = 0; i < steps; ++i) integral += 0.5 * (fn(double(i) / steps) + fn(double(i + 1) / steps)) / steps;
    EXPECT_NEAR(integral, c.mean, 1e-4 * (fn(1.0) - fn(0.0))) << str::to_utf8(c.text);
  }
}

TEST(FnProb, BoundsInForce) {
  IFn fn = Estimate(L"Normal(Mean=10,SD=2)");
  EXPECT_EQ(fn.as_wstring(), L"Normal(Mean=10,SD=2)");  // calculated bounds are not written
  FnAttr min(L"Min");
  ASSERT_TRUE(fn->LookupAttribute(min));
  EXPECT_EQ(min.Value.substr(0, 15), L"0.4931513823542");  // the tail cut
  FnAttr loc(L"Loc");
  ASSERT_TRUE(Estimate(L"Log Normal(Mean=5,SD=2)")->LookupAttribute(loc));
  EXPECT_EQ(loc.Value, L"0");
}

TEST(FnProb, InvalidDistributionsKeepNoTable) {
  const wchar_t* cases[] = {
      L"Normal(Mean=10)",                      // no SD
      L"Normal(Mean=10,SD=0)",                 // SD zero
      L"Normal(Mean=10,SD=1,Min=5,Max=5)",     // empty window
      L"Normal(Mean=10,SD=1,Min=100,Max=200)", // no probability there (beyond the cut)
      L"Log Normal(Loc=6,Mean=5,SD=2)",        // mean below the location
      L"Uniform(Min=4,Max=2)",
      L"Triangular(Min=1,Mode=6,Max=5)",       // mode outside
      L"Generalized Spline(ProbFnNum=0,Min=0,Max=1)",
      L"Generalized Spline(ProbFnNum=3,Min=0,Max=1)",  // no such function (no document)
  };
  for (const wchar_t* text : cases) {
    IFn fn = Make(text);
    EXPECT_TRUE(fn.Unshared()->UpdateCalculatedValues().failed()) << str::to_utf8(text);
    EXPECT_FALSE(AsProb(fn).HasTable());
    EXPECT_EQ(fn(0.5), kNo);
  }
  IFn fn = Estimate(L"Uniform(Min=2,Max=4)");  // a failed update keeps the table built before
  ASSERT_TRUE(fn.SetAttribute(FnAttr(L"Max", L"1")).succeeded());
  EXPECT_TRUE(fn.Unshared()->UpdateCalculatedValues().failed());
  EXPECT_EQ(fn(0.25), 2.5);
  for (double p : {-0.1, 1.1, std::nan("")}) EXPECT_EQ(fn(p), kNo);
}

TEST(FnProbFN, InvertsTheDrawnDensity) {
  fntest::CurrentDocument d;
  Func2D density(L"density", L"", Make(L"Linear()"));
  density.Points() = {{0, 0, 0}, {1, 3, 0}, {2, 0, 0}};
  ASSERT_TRUE(density.UpdateFn().succeeded());
  d.doc->FunctionList(40)->Add(density);

  // A triangle density on 0..2 peaking at 1, unnormalised: the inverse is
  // sqrt(2p) for p <= 1/2 and 2 - sqrt(2(1-p)) above.
  const IFn fn = Estimate(L"Generalized Spline(ProbFnNum=1,Min=-1,Max=3)");
  for (double p : {0.02, 0.125, 0.5, 0.8, 0.98})
    EXPECT_NEAR(fn(p), p <= 0.5 ? std::sqrt(2 * p) : 2 - std::sqrt(2 * (1 - p)), 1e-3) << p;
  EXPECT_NEAR(AsProb(fn).Mean(), 1.0, 1e-9);
  EXPECT_NEAR(AsProb(fn).Median(), 1.0, 1e-6);

  // Truncated at 1: the right half alone, F(x) = 1 - (2-x)^2.
  const IFn right = Estimate(L"Generalized Spline(ProbFnNum=1,Min=1,Max=2)");
  for (double p : {0.0, 0.36, 0.75}) EXPECT_NEAR(right(p), 2 - std::sqrt(1 - p), 1e-4) << p;
  EXPECT_NEAR(AsProb(right).Mean(), 4.0 / 3.0, 1e-6);

  IFn empty = Make(L"Generalized Spline(ProbFnNum=1,Min=5,Max=6)");  // no density there
  EXPECT_TRUE(empty.Unshared()->UpdateCalculatedValues().failed());
}

TEST(FnMultiTrial, TextFormAndParts) {
  const std::wstring text =
      L"Trials(Single.Value=30,Range.Mean=30,Range.Delta=2,Probabilistic.Type=Normal,"
      L"Probabilistic.Mean=30,Probabilistic.SD=3,Probabilistic.Min=24)";
  IFn fn = Make(text);
  EXPECT_EQ(fn.as_wstring(), text);  // reads back as written
  EXPECT_EQ(fn(0.0), 30.0);          // the single value
  auto& trials = dynamic_cast<FnMultiTrial&>(*fn.Unshared());
  EXPECT_EQ(trials.fnRange().Min(), 20.0);  // 30 - 5 x 2
  ASSERT_TRUE(fn.Unshared()->UpdateCalculatedValues().succeeded());
  EXPECT_NEAR(trials.fnProb()(1.0), 30 + 3 * 4.753424308822899, 1e-9);  // upper tail cut

  // Changing the type replaces the distribution before its attributes apply.
  ASSERT_TRUE(fn.SetAttributes({{L"Probabilistic.Min", L"2"},
                                {L"Probabilistic.Type", L"Uniform"},
                                {L"Probabilistic.Max", L"4"}})
                  .succeeded());
  ASSERT_TRUE(fn.Unshared()->UpdateCalculatedValues().succeeded());
  EXPECT_EQ(dynamic_cast<const FnMultiTrial&>(*fn).fnProb()(0.25), 2.5);

  const IFn before = fn;
  EXPECT_EQ(fn.SetAttribute({L"Probabilistic.Type", L"Cauchy"}).args().front(), L"Probabilistic.Type");
  EXPECT_TRUE(fn.SetAttribute({L"Range.Delta", L"x"}).failed());
  EXPECT_EQ(before.as_wstring().find(L"Cauchy"), std::wstring::npos);

  IFn empty = Make(L"Trials()");
  EXPECT_TRUE(empty.Unshared()->UpdateCalculatedValues().succeeded());
  EXPECT_EQ(empty.as_wstring(), L"Trials(Probabilistic.Type=Normal)");
  IFn broken;
  EXPECT_TRUE(FnCreate(L"Trials(Single.Value=abc)", broken).failed());
}

}  // namespace
}  // namespace v7
