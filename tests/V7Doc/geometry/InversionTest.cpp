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

// Seeded random elements inverted at random inner points: convex
// quadrilaterals (a square of half-size h around (cx, cy) with each corner
// moved by up to 0.3 h) and triangles (slivers skipped). The round trip
// recovers (r, s) to 1e-9 (the quadratic's coefficients carry rounding of
// order 1e-16 times the squared coordinates; 1e-9 leaves a wide margin also
// at |centre| = 1e4).
TEST(Inversion, RandomElementsRoundTrip) {
  std::mt19937 gen(2024);
  std::uniform_real_distribution<double> u(-1, 1), in(-0.97, 0.97), t(0, 1);
  const double signs[4][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}};
  for (int e = 0; e < 600; ++e) {
    const int corners = e % 2 ? 3 : 4;
    const double h = std::pow(10.0, u(gen) * 2), cx = 1e4 * u(gen), cy = 1e4 * u(gen);
    double xy[4][2];
    for (int i = 0; i < corners; ++i) {
      xy[i][0] = corners == 4 ? cx + h * (signs[i][0] + 0.3 * u(gen)) : 100 * u(gen);
      xy[i][1] = corners == 4 ? cy + h * (signs[i][1] + 0.3 * u(gen)) : 100 * u(gen);
    }
    const double area2 = (xy[1][0] - xy[0][0]) * (xy[2][1] - xy[0][1]) -
                         (xy[2][0] - xy[0][0]) * (xy[1][1] - xy[0][1]);
    if (corners == 3 && std::fabs(area2) < 1) continue;
    for (int k = 0; k < 20; ++k) {
      double r0 = corners == 4 ? in(gen) : t(gen), s0 = corners == 4 ? in(gen) : t(gen);
      if (corners == 3 && r0 + s0 > 1) r0 = 1 - r0, s0 = 1 - s0;
      double x, y, r = 9, s = 9;
      Forward(xy, corners, r0, s0, x, y);
      ASSERT_EQ(iGlobal_To_Local_Coords(r, s, x, y, xy, corners), 1) << "element " << e << " point " << k;
      EXPECT_NEAR(r, r0, 1e-9) << "element " << e;
      EXPECT_NEAR(s, s0, 1e-9) << "element " << e;
    }
  }
}

// The acceptance rules by hand. The unit right triangle (0,0), (1,0), (0,1),
// where r = x and s = y: a band of 0.01 % is accepted, beyond the
// hypotenuse too (only |r| < 1.0001 is asked). The axis-aligned rectangle
// [10, 14] x [2, 4] (corner 1 top right) is inverted by the direct rules
// with no range check. A general quadrilateral (the quadratic path, points
// given by their (r, s)) and a rotated square are range checked. A refusal
// gives 0 with r = s = 0.
TEST(Inversion, AcceptanceRules) {
  const double tri[3][2] = {{0, 0}, {1, 0}, {0, 1}};
  const double flat[3][2] = {{0, 0}, {1, 1}, {2, 2}};
  const double rect[4][2] = {{14, 4}, {10, 4}, {10, 2}, {14, 2}};
  const double diamond[4][2] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}};
  const double quad[4][2] = {{3, 2.2}, {-1, 2}, {-2, -1}, {2.5, -1.3}};
  struct Case {
    const double (*xy)[2];
    int corners;
    bool local;  // (x, y) given as (r, s) of `xy`
    double x, y;
    int result;
    double r, s;
  } const cases[] = {
      {tri, 3, false, 0.25, 0.5, 1, 0.25, 0.5},       {tri, 3, false, 1.00005, 0, 1, 1.00005, 0},
      {tri, 3, false, 1.01, 0, 0, 0, 0},              {tri, 3, false, 0, -1.0002, 0, 0, 0},
      {tri, 3, false, 0.8, 0.8, 1, 0.8, 0.8},         {tri, 3, false, -0.5, 0.2, 1, -0.5, 0.2},
      {flat, 3, false, 0.5, 0.5, 0, 0, 0},            // zero determinant
      {rect, 4, false, 12, 3, 1, 0, 0},               {rect, 4, false, 14, 4, 1, 1, 1},
      {rect, 4, false, 11, 2.5, 1, -0.5, -0.5},       {rect, 4, false, 18, 3, 1, 3, 0},
      {rect, 4, false, 12, -1, 1, 0, -4},             {diamond, 4, false, 0, 0, 1, 0, 0},
      {diamond, 4, false, 5, 5, 0, 0, 0},             {quad, 4, true, 0.3, 1.00005, 1, 0.3, 1.00005},
      {quad, 4, true, -0.6, -1.00009, 1, -0.6, -1.00009}, {quad, 4, true, 0.3, 1.01, 0, 0, 0},
      {quad, 4, true, 0.2, -1.02, 0, 0, 0},           {quad, 4, true, 0.1, 0.2, 1, 0.1, 0.2},
      {quad, 4, true, 1.00005, 0.4, 1, 1.00005, 0.4}, {quad, 4, true, 1.01, 0.4, 0, 0, 0},
  };
  for (const auto& c : cases) {
    double x = c.x, y = c.y, r = 9, s = 9;
    if (c.local) Forward(c.xy, c.corners, c.x, c.y, x, y);
    EXPECT_EQ(iGlobal_To_Local_Coords(r, s, x, y, c.xy, c.corners), c.result) << c.x << "," << c.y;
    const double tol = c.local ? 1e-12 : c.corners == 3 ? 1e-15 : 1e-13;
    EXPECT_NEAR(r, c.r, tol) << c.x << "," << c.y;
    EXPECT_NEAR(s, c.s, tol) << c.x << "," << c.y;
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
