// The property estimators: each formula against values computed apart from
// this code (mpmath at 40 digits from the cited equations, by the author of
// these tests, unless a comment says otherwise), shape rules (bounds and
// monotonicity), malformed attributes and the cycle of an estimator.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnEstAirK.h"
#include "V7Doc/functions/FnEstCyclic.h"
#include "V7Doc/functions/FnEstDarendeli.h"
#include "V7Doc/functions/FnEstLAI.h"
#include "V7Doc/functions/FnEstStiffness.h"
#include "V7Doc/functions/FnEstShearNormal.h"
#include "V7Doc/functions/FnEstThermal.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/FnTimeHistory.h"
#include "V7Doc/functions/Func2D.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

using fntest::Estimate;

constexpr double kNo = qvi::kNoValue;

struct Document : fntest::CurrentDocument {
  Document() : CurrentDocument({L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0)"}) {}
};

TEST(PropertyEstimators, FormulasMatchIndependentValues) {
  Document d;
  // Inputs are points of the tables, or lie where the interpolation is exact
  // (power laws on log-log tables); tolerance 1e-9 relative unless stated.
  const struct {
    const wchar_t* text;
    double x, expected, relTol;
  } cases[] = {
      // Seed and Idriss (1970), K2max 52 at Dr 60 %; s'm = 100 (1 + 2 x 0.5) / 3,
      // psf per kPa 20.8854.
      {L"FnEstGmax()", 100, 92904.40696167655, 1e-9},
      // Hardin (1978), e 0.6, OCR 2, PI 30 (k = 0.24).
      {L"FnEstGmax(GmaxEstMethod=Hardin,VoidRatio=0.6,OCR=2,PI=30)", 100, 109900.79024772241, 1e-9},
      {L"FnEstGmax(KModifier=2)", 100, 2 * 92904.40696167655, 1e-9},
      // Janbu (1963): cohesive n = 1 gives E = m s'm (hand: 100 x 66.667).
      {L"FnEstEMod(SampleMatlEMod=Cohesive)", 100, 6666.666666666667, 1e-9},
      {L"FnEstEMod()", 100, 8164.9658092772603, 1e-9},
      {L"FnEstRecModulus()", 100, 70462.223921758246, 1e-9},
      {L"FnEstRecModulus(SampleMatlRecModulus=Cohesive)", 100, 40636.839740082946, 1e-9},
      // Darendeli (2001), PI 15 at 100 kPa, strains 0.01 % and 0.1 %.
      {L"FnEstGReduction(PI=15,ConfiningStress=100)", 1e-4, 0.8143502616382412, 1e-9},
      {L"FnEstGReduction(PI=15,ConfiningStress=100)", 1e-3, 0.34580127598228872, 1e-9},
      {L"FnEstDampingRatio(PI=15,ConfiningStress=100)", 1e-4, 0.033385075601746445, 1e-9},
      {L"FnEstDampingRatio(PI=15,ConfiningStress=100)", 1e-2, 0.20472169379583509, 1e-9},
      {L"FnEstDampingRatio(PI=40,ConfiningStress=400,OCR=4)", 1e-3, 0.066711793202065299, 1e-9},
      // Idriss and Boulanger (2008): Dr 60 %, (N1)60cs 16.56; 1 and 15 cycles.
      {L"FnEstCyclicNumber()", 15, 0.16980959246383528, 1e-9},
      {L"FnEstCyclicNumber()", 1, 0.42641576025893622, 1e-9},
      {L"FnEstCyclicNumber(SampleMatlCyclicNumber=Cohesive)", 100, 0.14134260561823403, 1e-9},
      // Seed, Martin and Lysmer (1976), theta 0.7 at N/NL = 0.5.
      {L"FnEstDynPWP()", 0.5, 0.41726502100733174, 1e-12},
      // K_alpha: loose sand falls below 1, dense sand rises above it.
      {L"FnEstKalpha(SampleMatlKalpha=LooseSand)", 0.35, 0.64620167243660996, 1e-9},
      {L"FnEstKalpha(SampleMatlKalpha=DenseSand)", 0.2, 2.360085990025322, 1e-9},
      {L"FnEstKalpha()", 0, 1.0000382668154247, 1e-12},
      {L"FnEstKsigma()", 1000, 0.73138417562863842, 1e-9},
      {L"FnEstKsigma()", 10, 1.1, 1e-12},  // the cap
      // Byrne (1991), Dr 45 %: C1 = 7600 x 45^-2.5; exact on the log-output table.
      {L"FnEstMFSPWP()", 0, 0.55947709066661405, 1e-12},
      {L"FnEstMFSPWP()", 2, 0.13390036158627933, 1e-9},
      // Kersten (1949), silt at 120 lb/ft^3, saturated.
      {L"FnEstThermalKvsTemp()", 1, 1.918884875699509, 1e-9},
      {L"FnEstThermalKvsTemp()", -5, 2.1989641281042053, 1e-9},
      {L"FnEstThermalKvsTemp(TCUnfrozen=1.5,TCFrozen=2)", 0.5, 1.5, 1e-12},
      // Anderson and Tice (1972).
      {L"FnEstUnfrozenWC()", -5, 0.02499907869348303, 1e-9},
      {L"FnEstUnfrozenWC(SampleMatlUnfrozenWC=HighPlastic)", -10, 0.33670334869933957, 1e-9},
      // Johansen (1975), n 0.4 (the function's saturated value), ks 2.5.
      {L"FnEstThermalKvsVolWC(VolWCFnNum=1,NumPoints=5)", 0.1, 0.90312857065310662, 1e-9},
      {L"FnEstThermalKvsVolWC(VolWCFnNum=1,NumPoints=5)", 0.2, 1.1435290043759448, 1e-9},
      {L"FnEstThermalKvsVolWC(VolWCFnNum=1,NumPoints=5)", 0.4, 1.3839294380987829, 1e-9},
      // de Vries (1963), hand: 0.6 x 2650 x 800 + 0.2 x 4.18e6.
      {L"FnEstVolSpecHeat(VolWCFnNum=1,NumPoints=5)", 0.2, 2108000.0, 1e-12},
      // Brooks and Corey (1964) on the van Genuchten curve A 10, n 1.5.
      {L"FnEstAirK(VolWCFnNum=1,AirKDry=1)", -10, 0.029837773635818003, 1e-3},
      {L"FnEstAirK(VolWCFnNum=1,AirKDry=1)", -100, 0.47093057663136852, 1e-3},
      // Allen et al. (1998): LAI = 24 h, reference grass 2.88; quarter-season rise.
      {L"FnEstLAI()", 197, 2.88, 1e-12},
      {L"FnEstLAI()", 140, 2.88 * 19 / 38.0, 1e-12},
      {L"FnEstLAI(SampleMatlLAI=Excellent,NumYears=2)", 365 + 197, 3.6, 1e-12},
      {L"FnEstLAI(SampleMatlLAI=Poor,NumYears=2)", 365 + 50, 0, 0},
  };
  for (const auto& c : cases) {
    const IFn fn = Estimate(c.text);
    EXPECT_NEAR(fn(c.x), c.expected, c.relTol * std::abs(c.expected))
        << str::to_utf8(c.text) << " at " << c.x;
  }
  // The points handed to the point kind, which passes through them.
  const IFn mfs = Estimate(L"FnEstMFSPWP(SampleMatlMFSPWP=LooseSand)");
  const IFn points = dynamic_cast<const FnEstMFSPWP&>(*mfs).ToPointFunction();
  EXPECT_NEAR(points(0.0), mfs(0.0), 1e-12);
  EXPECT_TRUE(FnEstMFSPWP().ToPointFunction().IsUndefined());
  // The Brooks-Corey index found on that curve (Se 1/2 and 1/4 in closed form).
  const IFn airK = Estimate(L"FnEstAirK(VolWCFnNum=1)");
  EXPECT_NEAR(dynamic_cast<const FnEstAirK&>(*airK).Lambda(), 0.47319731517859308, 1e-9);
}

TEST(PropertyEstimators, StressesFollowTheDocumentUnits) {
  // Seed and Idriss's own form in psf: Gmax = 1000 K2max sqrt(s'm), K2max 52
  // and s'm = s'v = 2000 psf with K0 = 1 (hand: 1000 x 52 x 44.721).
  fntest::CurrentDocument d({}, EngUnitSystem::Imperial);
  const IFn g = Estimate(L"FnEstGmax(K0=1)");
  EXPECT_NEAR(g(2000.0), 2325510.6965997813, 1e-9 * 2.3e6);
}

TEST(PropertyEstimators, HoekBrownEnvelope) {
  // GSI 50, mi 10, D 0 (mpmath; the rounded mb 1.677, s 0.0039, a 0.506).
  const HoekBrown hb(10, 50, 0, 50000);
  EXPECT_NEAR(hb.mb, 1.6767724875179709, 1e-12);
  EXPECT_NEAR(hb.s, 0.0038659201394728067, 1e-15);
  EXPECT_NEAR(hb.a, 0.50573355992431876, 1e-14);
  // The last point of the table is Balmer's (sn, tau) at s3 = "Sigma3".
  const IFn fn = Estimate(L"FnEstShearNormal()");
  const auto& pts = dynamic_cast<const FnDataPoints&>(*fn).DataPoints();
  ASSERT_EQ(pts.size(), 20u);
  EXPECT_NEAR(pts.back().x, 10090.994121203456, 1e-9 * 1e4);
  EXPECT_NEAR(pts.back().y, 8857.2176475434042, 1e-9 * 1e4);
  EXPECT_NEAR(fn(10090.994121203456), 8857.2176475434042, 1e-6);
  // The first point is the tensile strength, where tau = 0.
  EXPECT_NEAR(pts.front().x, hb.TensileStrength(), 1e-9);
  EXPECT_EQ(pts.front().y, 0.0);
  for (std::size_t i = 1; i < pts.size(); ++i) EXPECT_GT(pts[i].y, pts[i - 1].y);
}

TEST(PropertyEstimators, ShapesBoundsAndTrends) {
  Document d;
  // Each curve's direction over its input (sampled through and beyond its
  // table, on a log scale from `from` to `to` where marked) and the bounds
  // it stays within: G/Gmax in (0, 1] falling and damping rising over a grid
  // that crosses every point of the tables; ru in [0, 1]; Johansen's
  // conductivity between the dry and saturated values; unfrozen water up
  // to the porosity; Kersten's conductivity between his frozen and unfrozen
  // values; air conductivity from 0 (saturated) towards the dry value.
  double ku = 0, kf = 0;
  KerstenConductivity(FnEstSample::SandDensity140, ku, kf);
  const double inf = HUGE_VAL, tiny = std::numeric_limits<double>::min();
  const double porosity = SamplePorosity(FnEstSample::ClayDensity125);
  const struct {
    const wchar_t* text;
    double from, to;
    bool log;
    int direction;  // +1 never falls, -1 never rises, 0 either
    double lo = -HUGE_VAL, hi = HUGE_VAL;
  } cases[] = {
      {L"FnEstGmax()", 0.5, 2000, false, +1},
      {L"FnEstGmax(GmaxEstMethod=Hardin,PI=60,OCR=3)", 0.5, 2000, false, +1},
      {L"FnEstEMod(SampleMatlEMod=Cohesive)", 0.5, 2000, false, +1},
      {L"FnEstRecModulus()", 1, 2000, false, +1},
      {L"FnEstRecModulus(SampleMatlRecModulus=Cohesive)", 1, 2000, false, -1},
      {L"FnEstCyclicNumber(SampleMatlCyclicNumber=VeryLooseSand)", 0.5, 200, false, -1},
      {L"FnEstKalpha(SampleMatlKalpha=DenseSand)", 0, 0.4, false, +1},
      {L"FnEstKalpha(SampleMatlKalpha=VeryLooseSand)", 0, 0.4, false, -1},
      {L"FnEstKsigma(SampleMatlKsigma=LooseSand)", 1, 3000, false, -1},
      {L"FnEstMFSPWP(SampleMatlMFSPWP=DenseSand)", -1, 1e4, false, -1},
      {L"FnEstVolSpecHeat(VolWCFnNum=1)", -0.1, 0.5, false, +1},
      {L"FnEstThermalKvsVolWC(VolWCFnNum=1)", -0.1, 0.5, false, +1},
      {L"FnEstGReduction(PI=30,ConfiningStress=50)", 1e-7, std::pow(10.0, -0.5), true, -1, tiny, 1},
      {L"FnEstDampingRatio(PI=30,ConfiningStress=50,OCR=2)", 1e-7, std::pow(10.0, -0.5), true, +1},
      {L"FnEstDynPWP(NExponent=0.3)", -0.1, 1.1, false, +1, 0, 1},
      {L"FnEstDynPWP()", -0.1, 1.1, false, +1, 0, 1},
      {L"FnEstDynPWP(NExponent=3)", -0.1, 1.1, false, +1, 0, 1},
      {L"FnEstThermalKvsVolWC(VolWCFnNum=1,MineralThermalK=3,NumPoints=40)", 0, 0.4, false, 0,
       0.24308235980306383, std::pow(3.0, 0.6) * std::pow(0.57, 0.4)},
      {L"FnEstUnfrozenWC(SampleMatlUnfrozenWC=ClayDensity125)", -25, 5, false, +1, -inf, porosity},
      {L"FnEstThermalKvsTemp(SampleMatlThermalKvsTemp=SandDensity140)", -25, 5, false, 0,
       std::min(ku, kf), std::max(ku, kf)},
      {L"FnEstAirK(VolWCFnNum=1,AirKDry=2)", -1e-2, -1e6, true, +1, 0, 2},
  };
  for (const auto& c : cases) {
    const IFn fn = Estimate(c.text);
    double prev = fn(c.from);
    for (int i = 0; i <= 400; ++i) {
      const double x =
          c.log ? c.from * std::pow(c.to / c.from, i / 400.0) : c.from + (c.to - c.from) * i / 400.0;
      const double y = fn(x);
      EXPECT_GE(c.direction * (y - prev), -1e-12 * std::abs(y)) << str::to_utf8(c.text) << " at " << x;
      EXPECT_GE(y, c.lo - 1e-12 * std::abs(c.lo)) << str::to_utf8(c.text) << " at " << x;
      EXPECT_LE(y, c.hi + 1e-12 * std::abs(c.hi)) << str::to_utf8(c.text) << " at " << x;
      prev = y;
    }
  }
  for (const wchar_t* text : {L"FnEstDynPWP(NExponent=0.3)", L"FnEstDynPWP()", L"FnEstDynPWP(NExponent=3)"}) {
    EXPECT_EQ(Estimate(text)(0.0), 0.0);
    EXPECT_EQ(Estimate(text)(1.0), 1.0);
  }
  const IFn air = Estimate(L"FnEstAirK(VolWCFnNum=1,AirKDry=2)");
  EXPECT_NEAR(air(0.0), 0.0, 1e-12);
  EXPECT_GT(air(-1e6), 1.98);  // Se is 0.003 at 1e6 kPa
  EXPECT_EQ(air(std::nan("")), kNo);
  EXPECT_EQ(Estimate(L"FnEstGReduction(PI=30,ConfiningStress=50)")(std::nan("")), kNo);
  // Denser sands resist more cycles and need less overburden correction.
  const wchar_t* sands[] = {L"VeryLooseSand", L"LooseSand", L"MedLooseSand", L"MedDenseSand", L"DenseSand"};
  double crrPrev = 0, gPrev = 0;
  for (const wchar_t* sand : sands) {
    const double crr = Estimate(std::wstring(L"FnEstCyclicNumber(SampleMatlCyclicNumber=") + sand + L")")(15.0);
    const double g = Estimate(std::wstring(L"FnEstGmax(SampleMatlGmax=") + sand + L")")(100.0);
    EXPECT_GT(crr, crrPrev) << str::to_utf8(sand);
    EXPECT_GT(g, gPrev) << str::to_utf8(sand);
    crrPrev = crr, gPrev = g;
  }
  // The leaf area is 0 outside the season, symmetric about its middle, and
  // repeats year after year.
  const IFn lai = Estimate(L"FnEstLAI(FirstDaySeason=100,LastDaySeason=300,NumYears=3)");
  for (double day : {1.0, 99.0, 300.0, 365.0}) EXPECT_EQ(lai(day + 365), 0.0) << day;
  for (double off : {10.0, 30.0, 49.0, 75.0}) {
    EXPECT_NEAR(lai(200 - off), lai(200 + off), 1e-12) << off;
    EXPECT_NEAR(lai(200 + off + 730), lai(200 + off), 1e-12) << off;
  }
}

TEST(PropertyEstimators, MalformedAttributesAreReportedAndChangeNothing) {
  Document d;
  const struct {
    const wchar_t* text;
    const wchar_t* attr;
  } cases[] = {
      {L"FnEstGmax(SampleMatlGmax=Granite)", L"SampleMatlGmax"},
      {L"FnEstGmax(SampleMatlGmax=SandDensity150)",
       L"SampleMatlGmax"},  // a member of another estimator
      {L"FnEstGReduction(PI=-5)", L"PI"},
      {L"FnEstDampingRatio(OCR=abc)", L"OCR"},
      {L"FnEstShearNormal(GeologicalStrength=101)", L"GeologicalStrength"},
      {L"FnEstShearNormal(NumPoints=1)", L"NumPoints"},
      {L"FnEstShearNormal(DisturbanceFactor=1.5)", L"DisturbanceFactor"},
      {L"FnEstLAI(SampleMatlLAI=Fair)", L"SampleMatlLAI"},
      {L"FnEstLAI(FirstDaySeason=400)", L"FirstDaySeason"},
      {L"FnEstDynPWP(NExponent=)", L"NExponent"},
  };
  for (const auto& c : cases) {
    IFn fn;
    const gtl::status created = FnCreate(c.text, fn);
    EXPECT_EQ(created.id(), 33500u) << str::to_utf8(c.text);
    ASSERT_FALSE(created.args().empty());
    EXPECT_EQ(created.args().front(), c.attr);
  }
  // On a function already set, a bad attribute leaves everything as it was,
  // the good attributes and parameter types given with it included.
  IFn fn = Estimate(L"FnEstShearNormal(GeologicalStrength=60,NumPoints=5)");
  const std::wstring before = fn.as_wstring();
  const gtl::status s = fn.SetAttributes(
      {FnAttrInputParam(DataParamType::Time), FnAttrSigmaC(1), FnAttrGeologicalStrength(-1)});
  EXPECT_EQ(s.id(), 33500u);
  EXPECT_EQ(fn.as_wstring(), before);
  // A water-content function number that names nothing is reported by the
  // update with the attribute's name, and leaves no table.
  for (const wchar_t* text :
       {L"FnEstThermalKvsVolWC(VolWCFnNum=7)", L"FnEstVolSpecHeat()", L"FnEstAirK(VolWCFnNum=2)"}) {
    IFn e;
    ASSERT_TRUE(FnCreate(text, e).succeeded());
    const gtl::status u = e.Unshared()->UpdateCalculatedValues();
    EXPECT_EQ(u.id(), 33500u) << str::to_utf8(text);
    EXPECT_EQ(u.args().front(), L"VolWCFnNum");
    EXPECT_EQ(e(0.1), kNo);
  }
  IFn lai;
  ASSERT_TRUE(FnCreate(L"FnEstLAI(FirstDaySeason=200,LastDaySeason=100)", lai).succeeded());
  EXPECT_EQ(lai.Unshared()->UpdateCalculatedValues().args().front(), L"LastDaySeason");
}

TEST(PropertyEstimators, NoValueBeforeATableThenEveryKindEstimates) {
  Document d;
  for (const std::wstring& kind : RegisteredFnKinds()) {
    if (kind.rfind(L"FnEst", 0) != 0 || kind == L"FnEstHydK" || kind == L"FnEstVolWC") continue;
    IFn fn;  // kinds without a water-content function ignore the number
    ASSERT_TRUE(FnCreate(kind + L"(VolWCFnNum=1)", fn).succeeded()) << str::to_utf8(kind);
    const double x = fn->InputRangeNumPoints() > 0 ? fn->InputRangeAt(0) : 0.5;
    EXPECT_EQ(fn(x), kNo) << str::to_utf8(kind);
    const gtl::status s = fn.Unshared()->UpdateCalculatedValues();
    EXPECT_TRUE(s.succeeded()) << str::to_utf8(kind) << ": " << s.message_utf8();
    const auto& pts = dynamic_cast<const FnDataPoints&>(*fn).DataPoints();
    ASSERT_GE(pts.size(), 2u) << str::to_utf8(kind);
    EXPECT_TRUE(std::isfinite(fn(pts[pts.size() / 2].x))) << str::to_utf8(kind);
  }
}

TEST(TimeHistories, VelocityByIntegration) {
  // a(t) = sin(2 pi t) sampled every 0.01 s over 1 s: v(t) = (1 - cos 2 pi t) / (2 pi).
  // The trapezoidal rule's error is below t dt^2 max|a''| / 12 = 3.3e-4 t.
  std::vector<FnPoint> a;
  for (int i = 0; i <= 100; ++i) a.push_back({i / 100.0, std::sin(2 * M_PI * i / 100.0), 0.0});
  auto* acc = new FnYAcc();
  acc->Assign(a.data(), a.data() + a.size());
  const IFn v = VelocityFromAcceleration(IFn(acc));
  for (double t : {0.0, 0.25, 0.5, 0.73, 1.0})
    EXPECT_NEAR(v(t), (1 - std::cos(2 * M_PI * t)) / (2 * M_PI), 3.3e-4 * t + 1e-15) << t;
  // Piecewise-linear acceleration integrates exactly; unsorted and open rows are handled.
  const std::vector<FnPoint> ramp = {{2, 4, 0}, {0, 0, 0}, {1, 2, 0}, {3, kNo, 0}};
  const std::vector<FnPoint> vel = IntegrateAcceleration(ramp);
  ASSERT_EQ(vel.size(), 3u);
  EXPECT_DOUBLE_EQ(vel[2].y, 4.0);  // integral of 2t over [0, 2]
  EXPECT_TRUE(VelocityFromAcceleration(IFn::FnOne()).IsUndefined());
}

}  // namespace
}  // namespace v7
