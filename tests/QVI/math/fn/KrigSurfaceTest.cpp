#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "QVI/math/fn/interpolate/KrigSurface.h"
#include "QVI/math/fn/interpolate/NearestPoints.h"
#include "QVI/qvi/Markers.h"

namespace math::fn::interpolate {
namespace {

// A smooth field sampled at random places.
std::vector<Point3D> Field(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> u(0.0, 100.0);
  std::vector<Point3D> pts;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = u(rng), y = u(rng);
    pts.push_back({x, y, 10 + 3 * std::sin(x / 15) + 2 * std::cos(y / 20) + 0.01 * x * y / 10});
  }
  return pts;
}

// The five-point case solved independently: a dense Gaussian elimination
// with partial pivoting written in plain Python (no linear-algebra library)
// on the same ordinary kriging system, printed to 15 digits. Tolerance 1e-12:
// two double-precision solves of a well-conditioned 6 x 6 system.
TEST(KrigSurface, MatchesAnIndependentDenseSolve) {
  const std::vector<Point3D> pts = {{0, 0, 1}, {1, 0, 3}, {0, 1, 2}, {1, 1, 4}, {2, 0.5, 2.5}};
  const struct {
    Variogram v;
    double w[5];  // for the points in the order given
    double value, variance;
  } cases[] = {
      {{VariogramKind::Spherical, 0, 1, 2},
       {0.284746274908455, 0.149478533210992, 0.438218026638712, 0.208287666594145, -0.0807305013523042},
       2.24094234081468, 0.412601607944896},
      {{VariogramKind::Exponential, 0.1, 2, 1.5},
       {0.248532319972688, 0.144392957905922, 0.361961842247824, 0.179983772279812, 0.0651291075937538},
       2.28839273628973, 1.74148467506148},
  };
  for (const auto& c : cases) {
    KrigSurface k;
    k.SetVariogram(c.v);
    ASSERT_TRUE(k.SetPoints(pts).succeeded());
    KrigSurface::Estimate e;
    ASSERT_TRUE(k.Evaluate(0.3, 0.6, e));
    EXPECT_NEAR(e.value, c.value, 1e-12);
    EXPECT_NEAR(e.variance, c.variance, 1e-12);
    ASSERT_EQ(e.index.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
      // The surface keeps its points sorted: match them by position.
      const Point3D& p = k.Points()[e.index[i]];
      const auto at = std::find_if(pts.begin(), pts.end(), [&](const Point3D& q) { return q.x == p.x && q.y == p.y; });
      EXPECT_NEAR(e.weight[i], c.w[at - pts.begin()], 1e-12);
    }
  }
}

// With no nugget ordinary kriging is an exact interpolator (Cressie 1993,
// sec. 3.2.1): at a data point the estimate is its value and the variance
// zero; everywhere the weights sum to one. Checked for each model kind, for
// the global system (40 points, all in the neighbourhood) and the local one
// (400 points, 16 nearest).
TEST(KrigSurface, ExactAtDataPointsWithWeightsSummingToOne) {
  for (std::size_t n : {40u, 400u}) {
    const std::vector<Point3D> pts = Field(n, 11);
    for (VariogramKind kind : {VariogramKind::Spherical, VariogramKind::Exponential, VariogramKind::Gaussian}) {
      SCOPED_TRACE(testing::Message() << n << " points, kind " << static_cast<int>(kind));
      KrigSurface k;
      k.SetNeighbours(n <= 40 ? 40 : 16);
      k.SetVariogramKind(kind);
      ASSERT_TRUE(k.SetPoints(pts).succeeded());
      KrigSurface::Estimate e;
      for (std::size_t i = 0; i < pts.size(); i += 7) {
        ASSERT_TRUE(k.Evaluate(pts[i].x, pts[i].y, e));
        // The Gaussian model's system is the worst conditioned.
        EXPECT_NEAR(e.value, pts[i].z, kind == VariogramKind::Gaussian ? 1e-6 : 1e-9);
        EXPECT_NEAR(e.variance, 0.0, 1e-6);
      }
      std::mt19937 rng(5);
      std::uniform_real_distribution<double> u(-10.0, 110.0);
      for (int q = 0; q < 50; ++q) {
        ASSERT_TRUE(k.Evaluate(u(rng), u(rng), e));
        EXPECT_NEAR(std::accumulate(e.weight.begin(), e.weight.end(), 0.0), 1.0, 1e-9);
        EXPECT_EQ(e.weight.size(), n <= 40 ? n : 16u);
        EXPECT_GT(e.variance, 0.0);
      }
    }
  }
}

// Fitting a model to lag classes computed from a known model recovers it.
TEST(KrigSurface, VariogramFitRecoversAKnownModel) {
  const Variogram known[] = {{VariogramKind::Spherical, 0.0, 4.0, 30.0},
                             {VariogramKind::Exponential, 0.5, 2.0, 20.0},
                             {VariogramKind::Gaussian, 0.0, 1.0, 25.0}};
  for (const Variogram& v : known) {
    SCOPED_TRACE(static_cast<int>(v.kind));
    ExperimentalVariogram e;
    for (int i = 1; i <= 15; ++i) {
      e.lag.push_back(3.0 * i);
      e.gamma.push_back(v(3.0 * i));
      e.pairs.push_back(100 + 10 * i);
    }
    Variogram fit;
    ASSERT_TRUE(FitVariogram(e, v.kind, v.nugget > 0, fit).succeeded());
    EXPECT_NEAR(fit.range, v.range, 0.01 * v.range);
    EXPECT_NEAR(fit.partialSill, v.partialSill, 0.01 * v.partialSill);
    EXPECT_NEAR(fit.nugget, v.nugget, 0.01);
  }
  ExperimentalVariogram one;
  one.lag = {1}, one.gamma = {1}, one.pairs = {3};
  Variogram fit;
  EXPECT_EQ(FitVariogram(one, VariogramKind::Spherical, false, fit).id(), 33574u);
}

TEST(KrigSurface, DegenerateInput) {
  const struct {
    const char* name;
    std::vector<Point3D> pts;
    unsigned message;
    double at00;  // value at the origin
  } cases[] = {
      {"empty", {}, 33571, qvi::kNoValue},
      {"one point", {{5, 5, 7}}, 0, 7},
      {"copies of one point", std::vector<Point3D>(100000, Point3D{1, 1, 3}), 0, 3},
      {"same value everywhere", {{0, 1, 2}, {1, 0, 2}, {3, 3, 2}}, 0, 2},
      // Two distinct points, too few lag classes: the fallback model still
      // gives the mean between them, by symmetry.
      {"two points", {{-1, 0, 1}, {1, 0, 3}}, 0, 2},
      {"collinear", {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}}, 0, 0},
      {"NaN", {{0, 0, 0}, {std::nan(""), 1, 1}}, 33570, qvi::kNoValue},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    KrigSurface k;
    EXPECT_EQ(k.SetPoints(c.pts).id(), c.message);
    if (qvi::IsNoValue(c.at00)) EXPECT_TRUE(qvi::IsNoValue(k(0, 0)));
    else EXPECT_NEAR(k(0, 0), c.at00, 1e-9);
  }
  KrigSurface k;
  k.SetVariogram(Variogram{VariogramKind::Spherical, 0, 0, 1});
  EXPECT_EQ(k.SetPoints({{0, 0, 1}, {1, 1, 2}}).id(), 33575u);
}

TEST(NearestPoints, AgreesWithABruteForceSearch) {
  std::vector<Point3D> clustered = Field(3000, 2);
  for (std::size_t i = 0; i < 1000; ++i) clustered[i].x *= 0.01, clustered[i].y *= 0.01;
  std::vector<Point3D> line;
  for (int i = 0; i < 500; ++i) line.push_back({i * 0.5, 2.0, 0});
  // Most points at one end of a wide, thin extent: the grid is long and
  // nearly every query has to reach the far end.
  std::vector<Point3D> skewed = Field(60, 3);
  for (auto& p : skewed) p.x *= 1e-4, p.y *= 1e-4;
  skewed.push_back({3.1e7, 0.01, 1});
  for (const auto* pts : {&clustered, &line, &skewed}) {
    NearestPoints grid;
    grid.Build(*pts);
    std::mt19937 rng(9);
    std::uniform_real_distribution<double> u(-50.0, 300.0);
    std::vector<std::uint32_t> found;
    for (int q = 0; q < 300; ++q) {
      const double x = u(rng), y = q % 3 ? u(rng) * 0.3 : u(rng);
      grid.Find(x, y, 12, found);
      std::vector<double> d;
      for (const Point3D& p : *pts) d.push_back(std::hypot(p.x - x, p.y - y));
      std::vector<double> sorted = d;
      std::sort(sorted.begin(), sorted.end());
      ASSERT_EQ(found.size(), 12u);
      for (std::size_t i = 0; i < found.size(); ++i) EXPECT_DOUBLE_EQ(d[found[i]], sorted[i]) << q;
    }
  }
}

}  // namespace
}  // namespace math::fn::interpolate
