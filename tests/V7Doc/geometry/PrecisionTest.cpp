#include "V7Doc/geometry/Precision3D.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace v7::Geom;

namespace {

TEST(Precision3D, DigitsGiveEpsilonAndTolerance) {
  const int digits[] = {-3, 0, 2, 5, 7, 12};
  for (int d : digits) {
    const Precision3D p(d, d + 1, d + 2);
    for (int axis = 0; axis < 3; ++axis) {
      const double eps = std::pow(10.0, -(d + axis));
      EXPECT_EQ(p.Digits(axis), d + axis);
      EXPECT_DOUBLE_EQ(p.Epsilon(axis), eps);
      EXPECT_DOUBLE_EQ(p.Tolerance(axis), eps / 2);
    }
    EXPECT_DOUBLE_EQ(p.FileErrorX(), std::pow(10.0, -d) / 200);
    EXPECT_DOUBLE_EQ(p.FileErrorZ(), std::pow(10.0, -(d + 2)) / 200);
    Precision3D q;
    const std::int32_t arr[3] = {d, d + 1, d + 2};
    q.Set(arr);
    EXPECT_EQ(q, p);
  }
}

// digits = -trunc(log10(eps * f) + 0.5): the truncation toward zero moves
// exact powers of ten of epsilon below 1 one digit down (worked by hand).
TEST(Precision3D, ScaleEpsilonTruncatesTowardZero) {
  struct Case {
    int digits;
    double f;
    int expected;
  } const cases[] = {
      {3, 1, 2},     // log10 0.001 = -3 -> -2.5 -> -2
      {7, 1, 6},     // -7 -> -6.5 -> -6
      {1, 1, 0},     // -1 -> -0.5 -> 0
      {0, 1, 0},     // 0 -> 0.5 -> 0
      {-2, 1, -2},   // 2 -> 2.5 -> 2, digits -2
      {3, 5, 1},     // 0.005: -2.301 -> -1.801 -> -1
      {3, 0.2, 3},   // 0.0002: -3.699 -> -3.199 -> -3
      {2, 100, 0},   // 1: 0 -> 0.5 -> 0
      {2, 1000, -1}, // 10: 1 -> 1.5 -> 1
  };
  for (const auto& c : cases) {
    Precision3D p(c.digits, c.digits, c.digits);
    p.ScaleEpsilon(c.f);
    const double eps = std::pow(10.0, -c.digits) * c.f;
    EXPECT_EQ(p.Digits(0), c.expected) << c.digits << " " << c.f;
    EXPECT_DOUBLE_EQ(p.Epsilon(1), eps);
  }
  // A non-positive scale leaves the axes undefined rather than inventing digits.
  Precision3D p(3, 3, 3);
  p.ScaleEpsilon(0);
  EXPECT_EQ(p.Digits(0), qvi::kNone);
  EXPECT_EQ(p.Tolerance(0), qvi::kNoValue);
}

TEST(Precision3D, EqualityComparesDigitsOnly) {
  Precision3D scaled(2, 2, 2);
  scaled.ScaleEpsilon(2);  // 0.02: -1.699 -> -1.199 -> -1 -> 1 digit, eps 0.02
  EXPECT_EQ(scaled, Precision3D(1, 1, 1));
  EXPECT_NE(scaled.Epsilon(0), Precision3D(1, 1, 1).Epsilon(0));
  EXPECT_NE(Precision3D(1, 1, 1), Precision3D(1, 1, 2));
  EXPECT_NE(Precision3D(1, 1, 1), Precision3D(2, 1, 1));
}

TEST(Precision3D, ComputePrecisionOfExtents) {
  const double kE = qvi::kNoValue;
  struct Case {
    Extents2D e;
    int dx, dy, dz;
  } const cases[] = {
      {Extents2D{}, 7, 7, 7},
      {{0, 123.4, 0, 0.5}, 5, 7, 5},
      {{-99999.6, 10, -1, 1}, 2, 7, 2},  // w = 100000.1
      {{0, 99999.4, 0, 9.99996}, 3, 6, 3},  // 99999.4 stays below 1e5; 9.99996 counts as 10
      {{-1e10, 0, 0, 0}, -3, 7, -3},
      {{0, 0, 0, 0}, 7, 7, 7},           // zero: seven places
      {{1, 2, kE, -kE}, 7, 7, 7},        // empty y axis: the no-value magnitude gives 7
      {{-5000, 20, -0.001, 0.002}, 4, 7, 4},
  };
  for (const auto& c : cases) {
    const Precision3D p = ComputePrecisionOfExtents(c.e);
    EXPECT_EQ(p, Precision3D(c.dx, c.dy, c.dz)) << c.e.minX << " " << c.e.maxX << " " << c.e.maxY
                                                << " -> " << p.Digits(0) << "," << p.Digits(1);
  }
}

}  // namespace
