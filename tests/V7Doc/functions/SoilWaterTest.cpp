#include <gtest/gtest.h>

#include <cmath>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnFredXing.h"
#include "V7Doc/functions/FnVanG.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

using fntest::Make;

constexpr double kNo = qvi::kNoValue;

TEST(FnFredXing, WaterContentMatchesPublishedForm) {
  // mpmath evaluation of Fredlund and Xing (1994), 1e-13 relative.
  const IFn fx = Make(L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45,SuctionLimit=1e6)");
  const struct {
    double suction, theta;
  } cases[] = {{1, 0.44995764353149945}, {100, 0.34072514216474167}, {1e4, 0.036530695609840202},
               {5e5, 0.0031368968364210832}};
  for (const auto& c : cases) EXPECT_NEAR(fx(-c.suction), c.theta, 1e-13 * c.theta) << c.suction;
  // Saturated at zero and positive pressures; dry at and beyond the limit.
  for (double x : {0.0, 5.0}) EXPECT_EQ(fx(x), 0.45) << x;
  EXPECT_EQ(fx(-1e6), 0.0);
  EXPECT_EQ(fx(std::nan("")), kNo);
  EXPECT_EQ(FnFredXing(0.0, 2, 1, 0.3, 1e6)(-1e5), 0.3);  // A <= 0: saturated throughout
  // Any parameter unset: no value.
  const double set[5] = {100, 2, 1, 0.45, 1e6};
  for (int unset = 0; unset < 5; ++unset) {
    double p[5];
    for (int i = 0; i < 5; ++i) p[i] = i == unset ? kNo : set[i];
    EXPECT_EQ(FnFredXing(p[0], p[1], p[2], p[3], p[4])(-10.0), kNo) << unset;
  }
}

TEST(FnVanG, WaterContentAndDerivedM) {
  // mpmath evaluation of van Genuchten (1980), 1e-13 relative.
  IFn vg = Make(L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)");
  const struct {
    double suction, theta;
  } cases[] = {{0.5, 0.39870526547277656}, {5, 0.36640469120859252}, {50, 0.2021183392136236},
               {500, 0.099450895818777118}};
  for (const auto& c : cases) EXPECT_NEAR(vg(-c.suction), c.theta, 1e-13 * c.theta) << c.suction;
  EXPECT_EQ(vg(7.0), 0.4);

  // M follows N, and an "M" given loses whatever the order; without "N"
  // there is no M, since the text written has none to read back.
  const struct {
    const wchar_t* text;
    const wchar_t* m;
  } ms[] = {{L"Van_Genuchten(M=0.9,N=2)", L"0.5"}, {L"Van_Genuchten(N=4,M=0.9)", L"0.75"}, {L"Van_Genuchten(M=0.9)", L""}};
  for (const auto& c : ms) {
    FnAttr m(L"M");
    ASSERT_TRUE(Make(c.text)->LookupAttribute(m)) << str::to_utf8(c.text);
    EXPECT_EQ(m.Value, c.m) << str::to_utf8(c.text);
  }
  // M is calculated, never written.
  EXPECT_EQ(Make(L"Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1)").as_wstring(),
            L"Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1,SuctionLimit=1e+06)");
}

TEST(SoilWaterValidity, RulesAtTheirBoundaries) {
  const double tiny = 1e-12;
  const struct {
    double a, n, satWC;
    bool fx, vg;  // Fredlund-Xing rule (M = 1); van Genuchten rule (M = 1 - 1/N)
  } cases[] = {
      {10, 1.0, 0.4, true, false},          // N = 1: fine for FX, VG needs N > 1
      {10, 1.0 + tiny, 0.4, true, true},    // just above 1
      {10, 0.0, 0.4, false, false},
      {0.0, 2, 0.4, false, false},
      {10, 2, 0.0, false, false},
  };
  for (const auto& c : cases) {
    FnFredXing fx(c.a, c.n, 1.0, c.satWC, 1e6);
    EXPECT_EQ(fx.IsValid(), c.fx) << c.a << " " << c.n << " " << c.satWC;
    const gtl::status s = fx.UpdateCalculatedValues();
    EXPECT_EQ(s.succeeded(), c.fx);
    if (!c.fx) {
      EXPECT_EQ(s.id(), 21578u);
    }
    EXPECT_EQ(FnVanG(c.a, c.n, c.satWC, 0.0).IsValid(), c.vg) << c.a << " " << c.n << " " << c.satWC;
  }
  // The shared update applies the Fredlund-Xing rule to a van Genuchten set
  // too: N = 1 gives M = 0, which fails it.
  EXPECT_FALSE(FnVanG(10, 1.0, 0.4, 0.0).UpdateCalculatedValues().succeeded());
  EXPECT_TRUE(FnVanG(10, 1.5, 0.4, 0.0).UpdateCalculatedValues().succeeded());
}

TEST(SoilWaterAttributes, BadValuesAreReportedAndLeaveTheField) {
  const struct {
    const wchar_t* text;
    const wchar_t* attr;    // the attribute named in the error
    const wchar_t* kept;    // that attribute's value afterwards
  } cases[] = {
      {L"Fredlund_Xing(A=5,A=abc)", L"A", L"5"},
      {L"Fredlund_Xing(SatWC=0.3,SatWC=-0.1)", L"SatWC", L"0.3"},
      {L"Fredlund_Xing(SuctionLimit=0)", L"SuctionLimit", L"1e+06"},
      {L"Van_Genuchten(SatWC=0.3,SatWC=1.5)", L"SatWC", L"0.3"},  // 1.0 is the bound
  };
  for (const auto& c : cases) {
    IFn fn;
    const gtl::status s = FnCreate(c.text, fn);
    ASSERT_TRUE(s.failed()) << str::to_utf8(c.text);
    EXPECT_EQ(s.id(), 33500u);
    EXPECT_EQ(s.message().rfind(std::wstring(c.attr) + L" : ", 0), 0u) << s.message_utf8();
    FnAttr a(c.attr);
    ASSERT_TRUE(fn->LookupAttribute(a));
    EXPECT_EQ(a.Value, c.kept) << str::to_utf8(c.text);
  }
  // The Fredlund-Xing water content takes a value above 1 (no bound), and
  // the van Genuchten one takes exactly 1; empty text unsets.
  IFn fx, vg;
  EXPECT_TRUE(FnCreate(L"Fredlund_Xing(SatWC=1.5)", fx).succeeded());
  EXPECT_TRUE(FnCreate(L"Van_Genuchten(SatWC=1,A=)", vg).succeeded());
  FnAttr a(L"A");
  ASSERT_TRUE(vg->LookupAttribute(a));
  EXPECT_EQ(a.Value, L"");
}

TEST(SoilWaterUnits, SuctionLimitFollowsTheDocument) {
  {
    fntest::CurrentDocument d({}, EngUnitSystem::Imperial);
    EXPECT_EQ(FnFredXing().SuctionLimit(), 2.08854e7);
    EXPECT_EQ(Make(L"Fredlund_Xing(A=1)").as_wstring(), L"Fredlund_Xing(A=1,SuctionLimit=20885400)");
  }
  const QVDocumentHandle previous = QVDocumentGetCurrentHandle();
  QVDocumentSetCurrentHandle(QVDocumentHandle());
  EXPECT_EQ(FnFredXing().SuctionLimit(), 1e6);  // no document: metric
  QVDocumentSetCurrentHandle(previous);
  // "English" reads as the imperial system (the settings round-trip with
  // the whole document).
  EngUnitSystem u = EngUnitSystem::Metric;
  EXPECT_TRUE(meta::FromName(L"English", u).succeeded());
  EXPECT_EQ(u, EngUnitSystem::Imperial);
}

}  // namespace
}  // namespace v7
