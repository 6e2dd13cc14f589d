#include "QVI/math/fn/QuadraticEqn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using math::fn::QuadraticEqn;

namespace {

TEST(QuadraticEqn, RootsAndPreferenceForTheBound) {
  struct Case {
    double a, b, c, bound;
    int n;
    double x1, x2;
  } const cases[] = {
      {1, -3, 2, 10, 2, 1, 2},        // (x-1)(x-2)
      {1, -3, 2, 1.5, 1, 1, 0},       // only x = 1 lies within the bound
      {1, -30, 200, 1, 0, 0, 0},      // none within the bound
      {1, -30, 200, 1e308, 2, 10, 20},  // unbounded: both
      {1, 0, 1, 10, 0, 0, 0},         // no real root
      {1, -2, 1, 10, 1, 1, 0},        // double root
      {0, 2, -1, 10, 1, 0.5, 0},      // linear
      {0, 0, 1, 10, 0, 0, 0},         // degenerate
      {1e-12, 2, -1, 10, 1, 0.5, 0},  // a within the tolerance: linear
      {2, 0, -8, 2, 2, -2, 2},        // equal magnitudes, ascending
  };
  for (const auto& c : cases) {
    double x1 = -99, x2 = -99;
    const int n = QuadraticEqn::Solve(c.a, c.b, c.c, 1e-9, c.bound, x1, x2);
    ASSERT_EQ(n, c.n) << c.a << " " << c.b << " " << c.c;
    if (n >= 1) {
      EXPECT_NEAR(x1, c.x1, 1e-12);
    }
    if (n == 2) {
      EXPECT_NEAR(x2, c.x2, 1e-12);
    }
  }
}

// The small root of a x² + b x + c with b² >> 4ac loses every digit to
// cancellation in the schoolbook formula; the stable form keeps it. Checked
// against the series -c/b - a c²/b³ - 2a²c³/b⁵ (relative 1e-14).
TEST(QuadraticEqn, SmallRootWithoutCancellation) {
  const double a = 1e-3, b = 1e5, c = 1;
  double x1 = 0, x2 = 0;
  ASSERT_EQ(QuadraticEqn::Solve(a, b, c, 1e-12, 1, x1, x2), 1);
  const double series = -c / b - a * c * c / (b * b * b) - 2 * a * a * c * c * c / std::pow(b, 5);
  EXPECT_NEAR(x1, series, 1e-14 * std::fabs(series));
}

// Seeded random roots: rebuilding the coefficients from two roots and solving
// gives them back (relative 1e-10).
TEST(QuadraticEqn, RandomRootsRoundTrip) {
  std::mt19937 gen(20240611);
  std::uniform_real_distribution<double> u(-5, 5);
  for (int i = 0; i < 1000; ++i) {
    double p = u(gen), q = u(gen);
    if (std::fabs(p - q) < 1e-3) continue;
    if (p > q) std::swap(p, q);
    const double k = u(gen) + 6;  // scale, never 0
    double x1 = 0, x2 = 0;
    ASSERT_EQ(QuadraticEqn::Solve(k, -k * (p + q), k * p * q, 1e-12, 10, x1, x2), 2);
    EXPECT_NEAR(x1, p, 1e-10 * (1 + std::fabs(p)));
    EXPECT_NEAR(x2, q, 1e-10 * (1 + std::fabs(q)));
  }
}

}  // namespace
