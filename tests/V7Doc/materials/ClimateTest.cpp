#include <gtest/gtest.h>

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

TEST(Climate, NewDataSetAndFree) {
  CLIMATE_INFO c = WithDays(3);
  c.DataInit();  // frees the days first
  EXPECT_EQ(c.nDayCnt(), 0);
  EXPECT_GE(c.nAllocated(), 1u);
  EXPECT_FALSE(IsMissing(c));
  c.DataFree();
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

}  // namespace
}  // namespace v7
