#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "QVI/qvi/Markers.h"
#include "V7Doc/geometry/ShapeFunctions.h"

using namespace v7::Geom;

namespace {

const std::int32_t kQuad[8] = {1, 2, 3, 4, 0, 0, 0, 0};
const std::int32_t kTri[8] = {1, 2, 3, 0, 0, 0, 0, 0};

// The forward map: x = sum N_i x_i over the corners.
void Forward(const double xy[][2], int corners, double r, double s, double& x, double& y) {
  double N[8];
  Shape_Function(N, r, s, corners == 4 ? kQuad : kTri);
  x = y = 0;
  for (int i = 0; i < corners; ++i) x += N[i] * xy[i][0], y += N[i] * xy[i][1];
}

// Seeded random convex quadrilaterals: a square of half-size h around (cx, cy)
// with each corner moved by up to 0.3 h, and random interior points. The
// round trip recovers (r, s) to 1e-9 (the quadratic's coefficients carry
// rounding of order 1e-16 times the squared coordinates; 1e-9 leaves a wide
// margin also at |centre| = 1e4).
TEST(Inversion, DistortedQuadrilateralsRoundTrip) {
  std::mt19937 gen(2024);
  std::uniform_real_distribution<double> u(-1, 1), in(-0.97, 0.97), centre(-1e4, 1e4);
  const double signs[4][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}};
  for (int e = 0; e < 300; ++e) {
    const double h = std::pow(10.0, u(gen) * 2), cx = centre(gen), cy = centre(gen);
    double xy[4][2];
    for (int i = 0; i < 4; ++i) {
      xy[i][0] = cx + h * (signs[i][0] + 0.3 * u(gen));
      xy[i][1] = cy + h * (signs[i][1] + 0.3 * u(gen));
    }
    for (int k = 0; k < 20; ++k) {
      const double r0 = in(gen), s0 = in(gen);
      double x, y, r = 9, s = 9;
      Forward(xy, 4, r0, s0, x, y);
      ASSERT_EQ(iGlobal_To_Local_Coords(r, s, x, y, xy, 4), 1) << "element " << e << " point " << k;
      EXPECT_NEAR(r, r0, 1e-9) << "element " << e;
      EXPECT_NEAR(s, s0, 1e-9) << "element " << e;
    }
  }
}

TEST(Inversion, TrianglesRoundTrip) {
  std::mt19937 gen(77);
  std::uniform_real_distribution<double> u(-100, 100), t(0, 1);
  for (int e = 0; e < 300; ++e) {
    double xy[3][2];
    for (auto& c : xy) c[0] = u(gen), c[1] = u(gen);
    const double area2 = (xy[1][0] - xy[0][0]) * (xy[2][1] - xy[0][1]) -
                         (xy[2][0] - xy[0][0]) * (xy[1][1] - xy[0][1]);
    if (std::fabs(area2) < 1) continue;  // skip slivers
    for (int k = 0; k < 20; ++k) {
      double r0 = t(gen), s0 = t(gen);
      if (r0 + s0 > 1) r0 = 1 - r0, s0 = 1 - s0;
      double x, y, r = 9, s = 9;
      Forward(xy, 3, r0, s0, x, y);
      ASSERT_EQ(iGlobal_To_Local_Coords(r, s, x, y, xy, 3), 1);
      EXPECT_NEAR(r, r0, 1e-9);
      EXPECT_NEAR(s, s0, 1e-9);
    }
  }
}

// The acceptance rules, worked by hand on the unit right triangle
// (0,0), (1,0), (0,1), where r = x and s = y.
TEST(Inversion, TriangleAcceptsTheBandAndTheHypotenuseSide) {
  const double xy[3][2] = {{0, 0}, {1, 0}, {0, 1}};
  struct Case {
    double x, y;
    int result;
    double r, s;
  } const cases[] = {
      {0.25, 0.5, 1, 0.25, 0.5},
      {1.00005, 0, 1, 1.00005, 0},   // inside the 0.01 % band
      {1.01, 0, 0, 0, 0},            // rejected: r = s = 0
      {0, -1.0002, 0, 0, 0},
      {0.8, 0.8, 1, 0.8, 0.8},       // beyond the hypotenuse: accepted
      {-0.5, 0.2, 1, -0.5, 0.2},     // only |r| < 1.0001 is asked
  };
  for (const auto& c : cases) {
    double r = 9, s = 9;
    EXPECT_EQ(iGlobal_To_Local_Coords(r, s, c.x, c.y, xy, 3), c.result) << c.x << "," << c.y;
    EXPECT_NEAR(r, c.r, 1e-15);
    EXPECT_NEAR(s, c.s, 1e-15);
  }
  // A degenerate triangle (zero determinant) fails.
  const double flat[3][2] = {{0, 0}, {1, 1}, {2, 2}};
  double r = 9, s = 9;
  EXPECT_EQ(iGlobal_To_Local_Coords(r, s, 0.5, 0.5, flat, 3), 0);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s, 0);
}

// An axis-aligned rectangle [10, 14] x [2, 4] (corner 1 top right): the
// direct rules invert it with no range check, so points outside still give 1.
TEST(Inversion, AxisAlignedRectangleIsUnchecked) {
  const double xy[4][2] = {{14, 4}, {10, 4}, {10, 2}, {14, 2}};
  struct Case {
    double x, y, r, s;
  } const cases[] = {
      {12, 3, 0, 0},        // centroid
      {14, 4, 1, 1},        // corner 1
      {11, 2.5, -0.5, -0.5},
      {18, 3, 3, 0},        // far outside in x: still result 1
      {12, -1, 0, -4},
  };
  for (const auto& c : cases) {
    double r = 9, s = 9;
    EXPECT_EQ(iGlobal_To_Local_Coords(r, s, c.x, c.y, xy, 4), 1) << c.x << "," << c.y;
    EXPECT_NEAR(r, c.r, 1e-13);
    EXPECT_NEAR(s, c.s, 1e-13);
  }
  // A rotated square goes through the quadratic and is range checked.
  const double diamond[4][2] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}};
  double r = 9, s = 9;
  EXPECT_EQ(iGlobal_To_Local_Coords(r, s, 0, 0, diamond, 4), 1);
  EXPECT_NEAR(r, 0, 1e-15);
  EXPECT_NEAR(s, 0, 1e-15);
  EXPECT_EQ(iGlobal_To_Local_Coords(r, s, 5, 5, diamond, 4), 0);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s, 0);
}

// On a general quadrilateral (no side parallel to an axis: the quadratic
// path), s just outside the element within the
// 0.01 % band is accepted, 1 % outside is refused; r from the quadratic.
TEST(Inversion, QuadrilateralBandAndFailure) {
  const double xy[4][2] = {{3, 2.2}, {-1, 2}, {-2, -1}, {2.5, -1.3}};
  struct Case {
    double r0, s0;
    int result;
  } const cases[] = {
      {0.3, 1.00005, 1}, {-0.6, -1.00009, 1}, {0.3, 1.01, 0}, {0.2, -1.02, 0}, {0.1, 0.2, 1},
      {1.00005, 0.4, 1}, {1.01, 0.4, 0},  // r is bounded by the solver
  };
  for (const auto& c : cases) {
    double x, y, r = 9, s = 9;
    Forward(xy, 4, c.r0, c.s0, x, y);
    ASSERT_EQ(iGlobal_To_Local_Coords(r, s, x, y, xy, 4), c.result) << c.r0 << "," << c.s0;
    if (c.result == 1) {
      EXPECT_NEAR(r, c.r0, 1e-12);
      EXPECT_NEAR(s, c.s0, 1e-12);
    } else {
      EXPECT_EQ(r, 0);
      EXPECT_EQ(s, 0);
    }
  }
}

TEST(Inversion, OtherCornerCountsAndDegenerateQuads) {
  const double xy[4][2] = {{0, 0}, {0, 0}, {0, 0}, {0, 0}};
  for (int count : {0, 2, 5}) {
    double r = 7, s = 8;
    EXPECT_EQ(iGlobal_To_Local_Coords(r, s, 1, 1, xy, count), 1);
    EXPECT_EQ(r, 7);
    EXPECT_EQ(s, 8);
  }
  // Every corner at one place: the direct rules would divide by zero; the
  // element cannot be inverted.
  double r = 7, s = 8;
  EXPECT_EQ(iGlobal_To_Local_Coords(r, s, 1, 1, xy, 4), 0);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s, 0);
}

TEST(Inversion, BoundedDivide) {
  struct Case {
    double a, b, q;
  } const cases[] = {
      {1, 2, 0.5},
      {1.00009, 1, 1.00009},
      {1.0002, 1, qvi::kNoValue},
      {-1.0002, 1, qvi::kNoValue},
      {1, 0, qvi::kNoValue},
      {0, 0, qvi::kNoValue},
      {qvi::kNoValue, 1, qvi::kNoValue},
      {0.5, qvi::kNoValue, qvi::kNoValue},
  };
  for (const auto& c : cases) EXPECT_EQ(BoundedDivide(c.a, c.b), c.q) << c.a << "/" << c.b;
}

}  // namespace
