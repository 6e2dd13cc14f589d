#include <gtest/gtest.h>

#include <cmath>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnEstHydK.h"
#include "V7Doc/functions/FnEstVolWC.h"
#include "V7Doc/functions/FnVanG.h"
#include "V7Doc/functions/Func2D.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

using fntest::Estimate;
using fntest::Make;

constexpr double kNo = qvi::kNoValue;

TEST(FnEstHydK, VanGenuchtenMethodMatchesIndependentValues) {
  // Closed forms for a van Genuchten curve (mpmath): h_p = A (2^(1/m) - 1)^(1/n),
  // S_p = m n X 2^(-1-1/m) ln 10 with X = 2^(1/m) - 1.
  fntest::CurrentDocument d({L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)"});
  const IFn k = Estimate(L"FnEstHydK(VolWCFnNum=1,HydKSat=1e-5,ResWC=0.05,Min=0.01,Max=1000,NumPoints=6)");
  const VanGenuchtenFit& fit = dynamic_cast<const FnEstHydK&>(*k).Fit();
  EXPECT_NEAR(fit.hp, 36.593057100229715, 1e-9 * 36.6);
  EXPECT_NEAR(fit.Sp, 0.50369048909244749, 1e-8);
  // Conductivities (mpmath from the exact h_p and S_p), 1e-6 relative.
  const struct {
    double suction, k;
  } cases[] = {{0.01, 9.3578441850974049e-6}, {0.1, 8.0575361020626312e-6}, {1, 4.634903364978702e-6},
               {10, 3.6739346726753247e-7},  {100, 5.8181175073007647e-10}, {1000, 3.496695135543308e-13}};
  for (const auto& c : cases) EXPECT_NEAR(k(-c.suction), c.k, 1e-6 * c.k) << c.suction;
  // Flat beyond the generated suctions; saturated pressures take the first.
  EXPECT_EQ(k(5.0), k(-0.01));
  EXPECT_EQ(k(-1e5), k(-1000.0));
  // Between points the interpolation is a power law (log-log).
  const double mid = std::sqrt(10.0);
  EXPECT_NEAR(std::log10(k(-mid)), 0.5 * (std::log10(k(-1.0)) + std::log10(k(-10.0))), 1e-12);
}

TEST(FnEstHydK, FredlundXingMethodMatchesTheIntegral) {
  // mpmath: the Fredlund et al. (1994) rule on the same 50-point table (1e-9),
  // and the continuous integral (1 %).
  fntest::CurrentDocument d({L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45,SuctionLimit=1e6)"});
  const IFn k = Estimate(L"FnEstHydK(VolWCFnNum=1,HydKSat=1e-5,HydKEstMethod=FredlundXing,NumPoints=6)");
  const struct {
    double suction, rule, integral;
  } cases[] = {{0.01, 1.0e-5, 1.0e-5},
               {0.1, 9.999706915023639e-6, 9.9997069181463236e-6},
               {1, 9.9951338355872281e-6, 9.9951340687160749e-6},
               {10, 9.7948515882817487e-6, 9.7949509150799105e-6},
               {100, 3.3241448456907438e-6, 3.3345447140767952e-6},
               {1000, 1.7145080045375353e-8, 1.7211642833893085e-8}};
  for (const auto& c : cases) {
    EXPECT_NEAR(k(-c.suction), c.rule, 1e-9 * c.rule) << c.suction;
    EXPECT_NEAR(k(-c.suction), c.integral, 1e-2 * c.integral) << c.suction;
  }
}

TEST(FnEstHydK, FailuresAreReportedAndLeaveNoTable) {
  fntest::CurrentDocument d({L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)", L"0.3"});
  for (const wchar_t* text : {
           L"FnEstHydK(VolWCFnNum=1)",                            // HydKSat 0
           L"FnEstHydK(VolWCFnNum=9,HydKSat=1)",                  // beyond the list
           L"FnEstHydK(VolWCFnNum=2,HydKSat=1)",                  // constant: never falls halfway
           L"FnEstHydK(VolWCFnNum=1,HydKSat=1,ResWC=0.5)",        // residual above saturated
           L"FnEstHydK(VolWCFnNum=1,HydKSat=1,Min=100,Max=10)",   // Min above Max
           L"FnEstHydK(VolWCFnNum=1,HydKSat=1,Min=2e6,Max=3e6)",  // Min beyond the suction limit
       }) {
    IFn fn = Make(text);
    const gtl::status s = fn.Unshared()->UpdateCalculatedValues();
    EXPECT_TRUE(s.failed()) << str::to_utf8(text);
    EXPECT_EQ(fn->LastError(), s);
    EXPECT_EQ(fn(-1.0), kNo) << str::to_utf8(text);
  }
  IFn fn;
  EXPECT_EQ(FnCreate(L"FnEstHydK(NumPoints=1)", fn).args().front(), L"NumPoints");
}

TEST(FnEstVolWC, GrainSizeFollowsTheModifiedKovacsModel) {
  // mpmath evaluation of Aubertin et al. (2003), 1 cm of water = 0.0980665 kPa.
  const struct {
    const wchar_t* text;
    double suction, theta;
  } cases[] = {
      {L"FnEstVolWC(VolWCEstMethod=GrainSize,SatWC=0.4,D10=0.1,D60=0.3,NumPoints=6)", 0.01, 0.4},
      {nullptr, 10, 0.046357246041979801},
      {nullptr, 100, 0.020357940714105315},
      {nullptr, 1000, 0.010526011163820133},
      {L"FnEstVolWC(VolWCEstMethod=0,SatWC=0.5,LiqLimit=50,D10=0.1,D60=0.3,NumPoints=6)", 10, 0.5},
      {nullptr, 100, 0.3406849260333276},
      {nullptr, 1000, 0.18020365175628814},
  };
  IFn fn;
  for (const auto& c : cases) {
    if (c.text) fn = Estimate(c.text);
    EXPECT_NEAR(fn(-c.suction), c.theta, 1e-12) << c.suction;
  }
}

TEST(FnEstVolWC, SampleMaterialsUseTheirStoredCurves) {
  const struct {
    const wchar_t* name;
    double a_kPa, n, thetaS, thetaR;  // Carsel and Parrish (1988); A = 1/alpha
  } cases[] = {{L"Clay", 0.0980665 / 0.008, 1.09, 0.38, 0.068}, {L"SiltyClay", 0.0980665 / 0.005, 1.09, 0.36, 0.070},
               {L"Silt", 0.0980665 / 0.016, 1.37, 0.46, 0.034}, {L"SiltySand", 0.0980665 / 0.075, 1.89, 0.41, 0.065},
               {L"Sand", 0.0980665 / 0.145, 2.68, 0.43, 0.045}};
  for (const auto& c : cases) {
    const FnVanG ref(c.a_kPa, c.n, c.thetaS, c.thetaR);
    const IFn est = Estimate(std::wstring(L"FnEstVolWC(SampleMatlVolWC=") + c.name + L",NumPoints=51)");
    const IFn scaled = Estimate(std::wstring(L"FnEstVolWC(SampleMatlVolWC=") + c.name + L",SatWC=0.3,NumPoints=51)");
    for (double s : {0.01, 1.0, 1000.0}) {  // generated points
      EXPECT_NEAR(est(-s), ref(-s), 1e-12) << str::to_utf8(c.name) << " " << s;
      EXPECT_NEAR(scaled(-s), ref(-s) * 0.3 / c.thetaS, 1e-12) << str::to_utf8(c.name) << " " << s;
    }
  }
  IFn rock = Make(L"FnEstVolWC(SampleMatlVolWC=Rock)");
  EXPECT_NE(rock.Unshared()->UpdateCalculatedValues().message().find(L"Rock"), std::wstring::npos);
  // A document can supply its own curves.
  SetSampleVolWCCurveSource([](FnEstVolWCType::eSampleMatl) { return IFn::Constant(0.25); });
  EXPECT_EQ(Estimate(L"FnEstVolWC(SampleMatlVolWC=Rock)")(-3.0), 0.25);
  SetSampleVolWCCurveSource(nullptr);
}

TEST(FnEstVolWC, BadSoilDataIsReported) {
  for (const wchar_t* text : {
           L"FnEstVolWC(VolWCEstMethod=GrainSize)",                            // SatWC 0
           L"FnEstVolWC(VolWCEstMethod=GrainSize,SatWC=1,D10=0.1,D60=1)",      // porosity 1: no solids
           L"FnEstVolWC(VolWCEstMethod=GrainSize,SatWC=0.4)",                  // no D10, no liquid limit
           L"FnEstVolWC(VolWCEstMethod=GrainSize,SatWC=0.4,D10=0.3,D60=0.1)",  // D60 below D10
       }) {
    IFn fn = Make(text);
    EXPECT_TRUE(fn.Unshared()->UpdateCalculatedValues().failed()) << str::to_utf8(text);
    EXPECT_EQ(fn(-1.0), kNo);
  }
  const struct {
    const wchar_t* text;
    const wchar_t* attr;
  } parse[] = {{L"FnEstVolWC(VolWCEstMethod=Kovacs)", L"VolWCEstMethod"},
               {L"FnEstVolWC(SatWC=1.2)", L"SatWC"},
               {L"FnEstVolWC(NumPoints=20000)", L"NumPoints"}};
  for (const auto& c : parse) {
    IFn fn;
    const gtl::status s = FnCreate(c.text, fn);
    ASSERT_TRUE(s.failed()) << str::to_utf8(c.text);
    EXPECT_EQ(s.args().front(), c.attr);
  }
}

}  // namespace
}  // namespace v7
