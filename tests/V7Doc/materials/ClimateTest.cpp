#include <gtest/gtest.h>

#include "QVI/str/Messages.h"
#include "V7Doc/materials/Climate.h"

namespace v7 {
namespace {

CLIMATE_INFO WithDays(int n) {
  CLIMATE_INFO c;
  c.DataInit();
  for (int d = 1; d <= n; ++d) {
    CLIMATEENTRY e;
    e.nDay = d;
    e.fmaxT = 20 + d;
    e.fPrecip = d * 0.5;
    c.hClimateMem.push_back(e);
  }
  return c;
}

TEST(Climate, NewDataSet) {
  CLIMATE_INFO c = WithDays(3);
  c.DataInit();  // frees the days first
  EXPECT_EQ(c.nDayCnt(), 0);
  EXPECT_GE(c.nAllocated(), 1u);
  EXPECT_EQ(c.wsTitle, str::load_wstring(20245));
  EXPECT_EQ(c.nStartMonth, 1);
  EXPECT_EQ(c.nStartDay, 1);
  EXPECT_EQ(c.nStartYear, 0);
  EXPECT_EQ(c.fLat, 0);
  EXPECT_EQ(static_cast<int>(c.eEnergyMethod), 0);
  EXPECT_EQ(static_cast<int>(c.eDist), 0);
  EXPECT_EQ(c.Mod.fWind, 100.0);
  EXPECT_EQ(c.Mod.fPrecip, 100.0);
  EXPECT_EQ(c.Mod.fEvap, 100.0);
  EXPECT_EQ(c.Mod.fNetRad, 100.0);
  EXPECT_EQ(c.Mod.nMaxTemp, 0);
  EXPECT_FALSE(IsMissing(c));
  c.DataFree();
  EXPECT_EQ(c.nDayCnt(), 0);
  EXPECT_EQ(c.nAllocated(), 0u);
}

TEST(Climate, UndoAssignmentCopiesAndAlwaysAllocates) {
  for (int n : {0, 1, 5}) {
    SCOPED_TRACE(n);
    const CLIMATE_INFO source = WithDays(n);
    CLIMATE_INFO copy = WithDays(7);
    copy.UndoAssignment(source);
    EXPECT_EQ(copy, source);
    EXPECT_EQ(copy.nDayCnt(), n);
    EXPECT_GE(copy.nAllocated(), 1u);  // one zeroed entry even for no days
  }
  CLIMATE_INFO a = WithDays(2), b = WithDays(2);
  EXPECT_EQ(a, b);
  b.hClimateMem[1].dNetRad = 1;
  EXPECT_FALSE(a == b);
  b = a;
  b.Mod.nMinRH = 2;
  EXPECT_FALSE(a == b);
}

TEST(Climate, EnumerationsHaveNoZero) {
  EXPECT_EQ(meta::EnumTable<ClimateDist>().ValueOf(L"SlopeAvgDist"), 3);
  EXPECT_EQ(meta::EnumTable<ClimateEnergyMethod>().ValueOf(L"PotentialEnergy"), 3);
  EXPECT_FALSE(meta::EnumTable<ClimateDist>().Contains(0));
  EXPECT_FALSE(meta::EnumTable<ClimateEnergyMethod>().Contains(0));
}

}  // namespace
}  // namespace v7
