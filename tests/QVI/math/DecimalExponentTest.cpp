#include "QVI/math/algorithm/DecimalExponent.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(DecimalExponent, PowerOfTenOfTheLeadingDigit) {
  struct Case {
    double v;
    int e;
  } const cases[] = {
      {1, 0},        {9.999999, 0},  {10, 1},    {99999.6, 4},  {100000.1, 5}, {123.4, 2},
      {0.5, -1},     {0.1, -1},      {0.099, -2}, {1e-300, -300}, {1e300, 300},  {-0.001, -3},
      {-1234, 3},    {1e22, 22},     {2e23, 23}, {1e-320, -320},  // subnormal
      {std::numeric_limits<double>::denorm_min(), -324},
      {std::numeric_limits<double>::max(), 308},
      // zero and non-finite values: exponent 0 (magnitude 1)
      {0, 0},        {std::numeric_limits<double>::infinity(), 0},
      {std::numeric_limits<double>::quiet_NaN(), 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(math::algorithm::DecimalExponent(c.v), c.e) << c.v;
    EXPECT_EQ(math::algorithm::DecimalMagnitude(c.v), std::pow(10.0, c.e)) << c.v;
  }
}

// Every exact power of ten, and its neighbours one ulp away, land on the right
// side of the boundary (a bare floor(log10) fails some of these).
TEST(DecimalExponent, ExactAtPowerOfTenBoundaries) {
  for (int e = -300; e <= 300; ++e) {
    const double p = std::pow(10.0, e);
    EXPECT_EQ(math::algorithm::DecimalExponent(p), e) << p;
    EXPECT_EQ(math::algorithm::DecimalExponent(std::nextafter(p, 0.0)), e - 1) << e;
    EXPECT_EQ(math::algorithm::DecimalExponent(std::nextafter(p, 1e308)), e) << e;
  }
}

}  // namespace
