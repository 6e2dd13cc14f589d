#include "QVI/math/algorithm/FloatCommon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "QVI/qvi/Markers.h"

namespace {

using FC = math::algorithm::FloatCommon<double>;

TEST(FloatCommon, PowersOfTenAreTheNearestDoubles) {
  // Decimal literals are the nearest doubles to the powers they name, an
  // independent reference for every exponent.
  const double expected[] = {1e-30, 1e-22, 1e-5, 1e-1, 1e0, 1e1, 1e15, 1e22, 1e23, 1e300};
  const int exps[] = {-30, -22, -5, -1, 0, 1, 15, 22, 23, 300};
  for (std::size_t i = 0; i < std::size(exps); ++i) {
    EXPECT_DOUBLE_EQ(FC::Pow10(exps[i]), expected[i]) << exps[i];
    EXPECT_DOUBLE_EQ(FC::Exp10(exps[i]), expected[i]) << exps[i];
  }
  for (int n = -22; n <= 22; ++n) EXPECT_EQ(FC::Pow10(n), std::stod("1e" + std::to_string(n))) << n;
  EXPECT_EQ(FC::Pow10(400), std::numeric_limits<double>::infinity());
  EXPECT_EQ(FC::Pow10(-400), 0.0);
  EXPECT_NEAR(FC::Exp10(0.5), std::sqrt(10.0), 1e-15);
  EXPECT_TRUE(std::isnan(FC::Exp10(std::nan(""))));
}

TEST(FloatCommon, RoundCountsSignificantDigits) {
  struct Case {
    double value;
    int digits;
    int mode;
    double expected;
  } cases[] = {
      {1234.5678, 6, FC::Nearest, 1234.57},
      {0.00123456, 3, FC::Nearest, 0.00123},
      {-2.5, 1, FC::Nearest, -3},  // halves away from zero
      {2.5, 1, FC::Nearest, 3},
      {3.45, 2, FC::Nearest, 3.5},
      {3.41, 2, FC::Up, 3.5},
      {-3.41, 2, FC::Up, -3.4},
      {3.49, 2, FC::Down, 3.4},
      {-3.41, 2, FC::Down, -3.5},
      {-3.49, 2, FC::TowardZero, -3.4},
      {99.96, 3, FC::Nearest, 100},  // carries into a new leading digit
      {1e-300 * 1.23456, 3, FC::Nearest, 1.23e-300},
      {1.23456e300, 3, FC::Nearest, 1.23e300},
      {123456789012.0, 10, FC::Nearest, 123456789000.0},
      {1000, 1, FC::Nearest, 1000},  // exactly a power of ten
      {0.3333333333333333, 10, FC::Nearest, 0.3333333333},
      {5, 3, 99, 5},  // unknown mode: nearest
  };
  for (const auto& c : cases)
    EXPECT_DOUBLE_EQ(FC::Round(c.value, c.digits, c.mode), c.expected)
        << c.value << " to " << c.digits << " digits, mode " << c.mode;
}

TEST(FloatCommon, RoundLeavesWhatItCannotOrNeedNotRound) {
  const double inf = std::numeric_limits<double>::infinity();
  for (double v : {0.0, -0.0, inf, -inf, 1.5, 0.1})
    for (int digits : {0, -3, 18, 100}) EXPECT_EQ(FC::Round(v, digits), v) << v << " " << digits;
  EXPECT_TRUE(std::isnan(FC::Round(std::nan(""), 5)));
  EXPECT_EQ(FC::Round(0.1, 15), 0.1) << "digits that all survive keep the original bits";
  EXPECT_EQ(FC::Round(9007199254740993.0, 17), 9007199254740993.0);
}

TEST(FloatCommon, StrictPrecisionRemovesArithmeticNoise) {
  EXPECT_EQ(FC::StrictPrecision(0.1 * 3), 0.3);
  EXPECT_EQ(FC::StrictPrecision(0.1 + 0.2), 0.3);
  EXPECT_EQ(FC::StrictPrecision(2.9999999999999996), 3.0);
  EXPECT_EQ(FC::StrictPrecision(1.0 - 1e-16), 1.0);
  EXPECT_EQ(FC::StrictPrecision(123456.789), 123456.789) << "clean values stay";
  EXPECT_EQ(FC::StrictPrecision(1.0 / 3), 0.333333333333333);  // 15 digits kept
  EXPECT_EQ(FC::StrictPrecision(qvi::kNoValue), qvi::kNoValue);
  EXPECT_EQ(FC::StrictPrecision(0.0), 0.0);
}

}  // namespace
