#include "V7Doc/geometry/GeomCompare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

using namespace v7::Geom;

namespace {

const Precision3D k7(7, 7, 7);

TEST(GeomCompare, PointEquality) {
  struct Case {
    Point2D a, b;
    Precision3D p;
    bool equal;
  } const cases[] = {
      {{1.00000004, 2}, {1.00000005, 2}, k7, true},
      {{1.0, 2}, {1.0 + 0.49e-7, 2}, k7, true},
      {{1.0, 2}, {1.0 + 0.51e-7, 2}, k7, false},
      {{1.0, 2}, {1.0, 2.0000002}, k7, false},
      {{0, 0}, {1e300, -1e300}, Precision3D(), true},  // undefined precision: all equal
      {{0, 0}, {0.4, 0.4}, Precision3D(0, 0, 0), true},
      {{0, 0}, {0.6, 0}, Precision3D(0, 0, 0), false},
      {{0, 0}, {0, 0.6}, Precision3D(0, -1, 0), true},  // y axis coarser (tol 5)
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsEqual2D(c.a, c.b, c.p), c.equal) << c.a.x << "," << c.a.y << " " << c.b.x;
    EXPECT_EQ(engequal_Point2D{c.p}(c.a, c.b), c.equal);
    EXPECT_EQ(IsEqual3D(Point3D{c.a.x, c.a.y, 5}, Point3D{c.b.x, c.b.y, 5}, c.p), c.equal);
  }
  // z uses the z tolerance.
  EXPECT_TRUE(IsEqual3D({0, 0, 0}, {0, 0, 4}, Precision3D(7, 7, -1)));
  EXPECT_FALSE(IsEqual3D({0, 0, 0}, {0, 0, 4}, Precision3D(-1, -1, 7)));
  EXPECT_FALSE(engequal_Point3D{k7}({0, 0, 0}, {0, 0, 1e-6}));
  EXPECT_FALSE(IsExactEqual2D({1.00000004, 2}, {1.00000005, 2}));
  EXPECT_TRUE(IsExactEqual3D({1, 2, 3}, {1, 2, 3}));
  EXPECT_FALSE(IsExactEqual3D({1, 2, 3}, {1, 2, 3.0000000001}));
}

TEST(GeomCompare, VectorsAndLines) {
  const std::vector<Point3D> a{{0, 0, 0}, {1, 1, 1}}, b{{0, 0, 1e-8}, {1, 1, 1}};
  EXPECT_TRUE(IsEqual3D(a, b, k7));
  EXPECT_FALSE(IsEqual3D(a, {{1, 1, 1}, {0, 0, 0}}, k7));  // order matters
  EXPECT_FALSE(IsEqual3D(a, {{0, 0, 0}}, k7));
  EXPECT_TRUE(IsEqual3D(std::vector<Point3D>{}, std::vector<Point3D>{}, k7));

  const Point2D p{0, 0}, q{3, 4}, r{3, 4.1};
  EXPECT_TRUE(IsEqual2D(Line2D{p, q}, Line2D{q, p}, k7));
  EXPECT_TRUE(IsEqual2D(Line2D{p, q}, Line2D{{1e-8, 0}, q}, k7));
  EXPECT_FALSE(IsEqual2D(Line2D{p, q}, Line2D{p, r}, k7));
  EXPECT_FALSE(IsEqual2D(Line2D{p, q}, Line2D{p, p}, k7));
}

TEST(GeomCompare, InfLineClosestPoint) {
  struct Case {
    Point2D p1, p2, q, expected;
  } const cases[] = {
      {{0, 0}, {2, 0}, {1, 5}, {1, 0}},
      {{0, 0}, {2, 0}, {5, 1}, {5, 0}},      // beyond p2: not clamped
      {{0, 0}, {2, 0}, {-3, -1}, {-3, 0}},   // before p1
      {{0, 0}, {2, 2}, {2, 0}, {1, 1}},
      {{1, 1}, {1, 1}, {7, 3}, {1, 1}},      // p1 == p2: p1
      {{1, 1}, {1 + 1e-9, 1}, {7, 3}, {1, 1}},  // equal under the precision
  };
  for (const auto& c : cases) {
    const Point2D got = InfLineClosestPoint2D(c.p1, c.p2, c.q, k7);
    EXPECT_NEAR(got.x, c.expected.x, 1e-12);
    EXPECT_NEAR(got.y, c.expected.y, 1e-12);
  }
}

TEST(GeomCompare, EngLessIsAStrictWeakOrderByPrintedValue) {
  const engless_Point2D less{Precision3D(3, 3, 3)};
  struct Case {
    Point2D a, b;
    bool aLess, bLess;
  } const cases[] = {
      {{1.0001, 5}, {1.0004, 5}, false, false},  // both print 1.000
      {{1.0004, 5}, {1.0006, 5}, true, false},   // 1.000 < 1.001
      {{1.0004, 5}, {1.0004, 4.9}, false, true}, // x ties, y decides
      {{-0.0004, 0}, {0.0004, 0}, false, false}, // both print 0.000
      {{std::nan(""), 0}, {1e300, 0}, false, true},  // NaN orders last
  };
  for (const auto& c : cases) {
    EXPECT_EQ(less(c.a, c.b), c.aLess) << c.a.x << " " << c.b.x;
    EXPECT_EQ(less(c.b, c.a), c.bLess) << c.a.x << " " << c.b.x;
  }
}

// Seeded clusters of near-equal points: the order's axioms hold on every
// triple, a set keyed by it keeps one point per printed value, and points the
// order calls equivalent are within one epsilon (the stated bound).
TEST(GeomCompare, EngLessWorksInSortedContainers) {
  const Precision3D p(3, 3, 3);
  const engless_Point2D less{p};
  std::mt19937 gen(7);
  std::uniform_int_distribution<int> centre(-20, 20);
  std::uniform_real_distribution<double> jitter(-0.0008, 0.0008);
  std::vector<Point2D> pts;
  for (int i = 0; i < 400; ++i)
    pts.push_back({centre(gen) * 0.001 + jitter(gen), (i % 3) * 0.001 + jitter(gen)});

  for (std::size_t i = 0; i < 60; ++i)
    for (std::size_t j = 0; j < 60; ++j) {
      const Point2D &a = pts[i], &b = pts[j];
      EXPECT_FALSE(less(a, b) && less(b, a));
      for (std::size_t k = 0; k < 60; ++k) {
        const Point2D& c = pts[k];
        if (less(a, b) && less(b, c)) {
          EXPECT_TRUE(less(a, c));
        }
        const bool ab = !less(a, b) && !less(b, a), bc = !less(b, c) && !less(c, b);
        if (ab && bc) {
          EXPECT_TRUE(!less(a, c) && !less(c, a));  // transitive equivalence
        }
      }
    }

  std::set<Point2D, engless_Point2D> set(less);
  std::set<std::pair<double, double>> printed;
  for (const auto& q : pts) {
    set.insert(q);
    printed.insert({std::round(q.x * 1000), std::round(q.y * 1000)});
  }
  EXPECT_EQ(set.size(), printed.size());

  std::sort(pts.begin(), pts.end(), less);
  for (std::size_t i = 1; i < pts.size(); ++i) {
    EXPECT_FALSE(less(pts[i], pts[i - 1]));
    if (!less(pts[i - 1], pts[i])) {
      EXPECT_LT(std::fabs(pts[i].x - pts[i - 1].x), p.Epsilon(0));
      EXPECT_LT(std::fabs(pts[i].y - pts[i - 1].y), p.Epsilon(1));
    }
  }
  // Points equal under IsEqual2D are never more than one grid step apart.
  for (std::size_t i = 1; i < pts.size(); ++i)
    if (IsEqual2D(pts[i], pts[i - 1], p)) {
      EXPECT_LE(std::fabs(GridKey(pts[i].x, p.Epsilon(0)) - GridKey(pts[i - 1].x, p.Epsilon(0))), 1);
    }
}

}  // namespace
