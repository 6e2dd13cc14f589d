#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "QVI/math/fn/interpolate/Linear3D.h"
#include "QVI/qvi/Markers.h"

namespace math::fn::interpolate {
namespace {

double Plane(double x, double y) { return 3.0 + 2.0 * x - 5.0 * y; }

std::vector<Point3D> RandomPlanePoints(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> u(-50.0, 150.0);
  std::vector<Point3D> pts;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = u(rng), y = u(rng);
    pts.push_back({x, y, Plane(x, y)});
  }
  return pts;
}

// Every triangle corner is a plane point, so the interpolant is that plane:
// any difference is a fault in location or weights. Tolerance: rounding of
// values near 1000 over a few operations.
TEST(Linear3D, ReproducesAPlaneOnRandomAndGridPoints) {
  std::vector<Point3D> grid;
  for (int i = 0; i < 40; ++i)
    for (int j = 0; j < 40; ++j) grid.push_back({i * 2.5, j * 2.5, Plane(i * 2.5, j * 2.5)});
  // Far from the origin, as survey coordinates are.
  std::vector<Point3D> far = RandomPlanePoints(500, 7);
  for (Point3D& p : far) p.x += 5e5, p.y += 7e6, p.z = Plane(p.x, p.y);
  const struct {
    const char* name;
    std::vector<Point3D> pts;
  } cases[] = {{"random", RandomPlanePoints(2000, 1)}, {"grid", grid}, {"far", far}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Linear3D s;
    ASSERT_TRUE(s.SetPoints(c.pts).succeeded());
    std::mt19937 rng(3);
    std::uniform_int_distribution<std::size_t> pick(0, c.pts.size() - 1);
    std::uniform_real_distribution<double> t(0.0, 1.0);
    for (int q = 0; q < 2000; ++q) {
      // A point between two data points lies inside the hull.
      const Point3D& a = c.pts[pick(rng)];
      const Point3D& b = c.pts[pick(rng)];
      const double f = t(rng), x = a.x + f * (b.x - a.x), y = a.y + f * (b.y - a.y);
      const double v = s(x, y);
      ASSERT_FALSE(qvi::IsNoValue(v)) << x << "," << y;
      EXPECT_NEAR(v, Plane(x, y), 1e-9 * (1 + std::abs(Plane(x, y))));
    }
    for (const Point3D& p : c.pts) EXPECT_NEAR(s(p.x, p.y), p.z, 1e-9 * (1 + std::abs(p.z)));
  }
}

TEST(Linear3D, HandTriangleAndHull) {
  // One triangle: z = 1 at (1,0), 2 at (0,1), 0 at the origin, so z = x + 2y.
  Linear3D s;
  ASSERT_TRUE(s.SetPoints({{0, 0, 0}, {1, 0, 1}, {0, 1, 2}}).succeeded());
  ASSERT_EQ(s.TriangleCount(), 1u);
  const struct {
    double x, y, z;
  } cases[] = {
      {0.25, 0.25, 0.75}, {1.0 / 3, 1.0 / 3, 1.0}, {0.5, 0.5, 1.5},  // on the long edge
      {0, 0, 0},          {1, 0, 1},               {0, 0.5, 1.0},     // corner, edge
      {0.6, 0.6, qvi::kNoValue}, {-0.01, 0.5, qvi::kNoValue}, {5, 5, qvi::kNoValue},
      {std::nan(""), 0, qvi::kNoValue}, {INFINITY, 0, qvi::kNoValue},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << "," << c.y);
    if (qvi::IsNoValue(c.z)) EXPECT_TRUE(qvi::IsNoValue(s(c.x, c.y)));
    else EXPECT_NEAR(s(c.x, c.y), c.z, 1e-15);
  }
}

TEST(Linear3D, DegenerateInputGivesAStatusAndNoValue) {
  std::vector<Point3D> million(1000000, Point3D{2, 3, 4});
  std::vector<Point3D> manyCopies = million;
  manyCopies.push_back({0, 0, 1});
  manyCopies.push_back({1, 0, 1});
  const struct {
    const char* name;
    std::vector<Point3D> pts;
    unsigned message;  // 0: succeeds
  } cases[] = {
      {"empty", {}, 33571},
      {"two points", {{0, 0, 1}, {1, 1, 2}}, 33571},
      {"collinear", {{0, 0, 1}, {1, 1, 2}, {2, 2, 3}, {-5, -5, 0}}, 33572},
      {"nearly collinear", {{0, 0, 1}, {1, 1e-15, 2}, {2, 0, 3}}, 33572},
      {"a million copies of one point", million, 33571},
      {"NaN coordinate", {{0, 0, 1}, {1, 0, 1}, {0, std::nan(""), 1}}, 33570},
      {"infinite value", {{0, 0, 1}, {1, 0, 1}, {0, 1, INFINITY}}, 33570},
      {"a million copies and two more", manyCopies, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Linear3D s;
    const gtl::status st = s.SetPoints(c.pts);
    EXPECT_EQ(st.id(), c.message) << st.message_utf8();
    if (c.message) {
      EXPECT_EQ(s.TriangleCount(), 0u);
      EXPECT_TRUE(qvi::IsNoValue(s(0.5, 0.1)));
    }
  }
  // Coincident points count once, at their mean value.
  Linear3D s;
  ASSERT_TRUE(s.SetPoints({{0, 0, 0}, {0, 0, 2}, {1, 0, 1}, {0, 1, 1}, {1, 0, 3}}).succeeded());
  EXPECT_EQ(s.Vertices().size(), 3u);
  EXPECT_DOUBLE_EQ(s(0, 0), 1.0);
  EXPECT_DOUBLE_EQ(s(1, 0), 2.0);
}

}  // namespace
}  // namespace math::fn::interpolate
