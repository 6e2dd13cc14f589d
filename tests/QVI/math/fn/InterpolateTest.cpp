// Interpolation checked against values worked out by hand (natural cubic
// splines, power laws on log axes) and against the limits of the spline's
// parameters (large tension: the polygon; large smoothing: the least-squares
// line).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "QVI/math/fn/interpolate/Linear.h"
#include "QVI/math/fn/interpolate/Spline.h"
#include "QVI/math/fn/interpolate/Step.h"
#include "QVI/qvi/Markers.h"

namespace {

using math::fn::TailType;
using math::fn::interpolate::Linear;
using math::fn::interpolate::Point;
using math::fn::interpolate::Spline;
using math::fn::interpolate::Step;

constexpr double kNo = qvi::kNoValue;

TEST(Linear, InterpolatesAndHonoursTails) {
  Linear f;
  f.Assign({{2, 4}, {0, 0}, {3, 4}});  // unsorted on purpose
  f.SetTailBefore(TailType::Slope(-1));
  struct Case {
    double x, y;
  } cases[] = {{0, 0}, {1, 2}, {2, 4}, {2.5, 4}, {3, 4}, {-1, 1}, {-3, 3}, {3.0001, kNo}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(f(c.x), c.y) << "x=" << c.x;
  EXPECT_EQ(f(std::nan("")), kNo);
}

TEST(Linear, CleansPoints) {
  Linear f;
  // Non-finite points are dropped; of equal x the last given wins.
  f.Assign({{0, 0}, {1, 5}, {std::nan(""), 3}, {1, 1}, {2, std::numeric_limits<double>::infinity()}});
  ASSERT_EQ(f.Size(), 2u);
  EXPECT_DOUBLE_EQ(f(1), 1);
  EXPECT_DOUBLE_EQ(f(0.5), 0.5);
}

TEST(Interpolators, NoValueOnEmptyTableAndOffOnePoint) {
  Linear l;
  Step s;
  Spline sp;
  for (double x : {-1.0, 0.0, 1.0}) {
    EXPECT_EQ(l(x), kNo);
    EXPECT_EQ(s(x), kNo);
    EXPECT_EQ(sp(x), kNo);
  }
  l.Assign({{1, 7}});
  sp.Assign({{1, 7}});
  EXPECT_EQ(l(1), 7);
  EXPECT_EQ(sp(1), 7);
  EXPECT_EQ(l(1.5), kNo);
  l.SetTailAfter(TailType::Slope(2));
  EXPECT_DOUBLE_EQ(l(1.5), 8);
}

// The interval search takes a shortcut on evenly spaced points; whatever
// the spacing, each value must be the one bisection gives, to the bit (at a
// knot the neighbouring interval would round differently).
TEST(Linear, EvenSpacingShortcutFindsTheSameIntervalAsBisection) {
  std::mt19937 rng(5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  auto grid = [&](int n, double jitter, bool log) {
    std::vector<Point> pts;
    for (int i = 0; i < n; ++i) {
      const double u = -2.0 + 0.1 * (i + (i > 0 && i + 1 < n ? jitter * (unit(rng) - 0.5) : 0.0));
      pts.push_back({log ? std::pow(10.0, u) : u, std::sin(3.0 * i) + 0.01 * i});
    }
    return pts;
  };
  struct Case {
    const char* name;
    std::vector<Point> pts;
    bool log;
  } cases[] = {
      {"even", grid(51, 0.0, false), false},         {"even, log axis", grid(51, 0.0, true), true},
      {"jitter below a quarter", grid(40, 0.45, false), false}, {"uneven", grid(40, 1.9, false), false},
      {"three points", grid(3, 0.0, false), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Linear f;
    f.SetLogX(c.log);
    f.Assign(c.pts);
    std::vector<double> u, v;
    for (const Point& p : f.Points()) u.push_back(c.log ? std::log10(p.x) : p.x), v.push_back(p.y);
    std::vector<double> queries;
    for (const Point& p : f.Points()) queries.push_back(p.x);
    for (int q = 0; q < 500; ++q) {
      const double t = u.front() + unit(rng) * (u.back() - u.front());
      queries.push_back(c.log ? std::pow(10.0, t) : t);
    }
    for (const double x : queries) {
      const double a = c.log ? std::log10(x) : x;
      const std::size_t i =
          static_cast<std::size_t>(std::upper_bound(u.begin() + 1, u.end() - 1, a) - u.begin()) - 1;
      const double expected = v[i] + (a - u[i]) / (u[i + 1] - u[i]) * (v[i + 1] - v[i]);
      ASSERT_EQ(f(x), expected) << "x = " << x;
      double out = 0;
      f.Evaluate(&x, &out, 1);
      ASSERT_EQ(out, expected) << "x = " << x;
    }
  }
}

TEST(Step, HoldsEachValueToTheNextPoint) {
  Step f;
  f.Assign({{0, 1}, {1, 2}, {2, 3}});
  struct Case {
    double x, y;
  } cases[] = {{0, 1}, {0.99, 1}, {1, 2}, {1.5, 2}, {2, 3}, {2.5, kNo}, {-0.1, kNo}};
  for (const auto& c : cases) EXPECT_EQ(f(c.x), c.y) << "x=" << c.x;
  f.SetTailAfter(TailType::Slope(0));
  EXPECT_EQ(f(10), 3);
}

TEST(LogAxes, PowerLawBetweenPointsAndTailsInLogCoordinates) {
  // On log-log axes the line through (1, 1) and (10, 100) is y = x^2.
  Linear f;
  f.SetLogX(true);
  f.SetLogY(true);
  f.Assign({{1, 1}, {10, 100}, {-5, 3}, {2, 0}});  // the last two cannot be on log axes
  ASSERT_EQ(f.Size(), 2u);
  for (double x : {1.0, 2.0, std::sqrt(10.0), 7.5, 10.0}) EXPECT_NEAR(f(x), x * x, 1e-12 * x * x) << x;
  f.SetTailAfter(TailType::Slope(1));  // one decade of y per decade of x
  EXPECT_NEAR(f(100), 1000, 1e-9);
  EXPECT_EQ(f(0.5), kNo);
  EXPECT_EQ(f(0), kNo);
  EXPECT_EQ(f(-1), kNo);

  // Log input only: y linear in log10 x.
  Linear g;
  g.SetLogX(true);
  g.Assign({{1, 0}, {100, 2}});
  EXPECT_NEAR(g(10), 1, 1e-12);

  // A spline on log output stays positive and passes through the points.
  Spline s;
  s.SetLogY(true);
  s.Assign({{0, 1e-3}, {1, 1e-5}, {2, 1e-9}, {3, 1e-10}});
  for (const Point& p : s.Points()) EXPECT_NEAR(s(p.x), p.y, 1e-12 * p.y);
  for (double x = 0; x <= 3; x += 0.1) EXPECT_GT(s(x), 0) << x;
}

TEST(Spline, NaturalCubicMatchesHandValues) {
  // (0,0), (1,1), (2,8), (3,27) with natural ends: 4 M1 + M2 = 36 and
  // M1 + 4 M2 = 72 give M1 = 4.8, M2 = 16.8, so f(1.5) = 4.5 - 0.0625 x 21.6.
  Spline s;
  s.Assign({{0, 0}, {1, 1}, {2, 8}, {3, 27}});
  EXPECT_NEAR(s.KnotCurvatures()[1], 4.8, 1e-12);
  EXPECT_NEAR(s.KnotCurvatures()[2], 16.8, 1e-12);
  EXPECT_NEAR(s(1.5), 3.15, 1e-12);
  // On [0, 1] f'' = M1 x = 4.8 x and f(0) = 0, f(1) = 1: f = 0.8 x^3 + 0.2 x.
  for (double x : {0.1, 0.25, 0.5, 0.9}) EXPECT_NEAR(s(x), 0.8 * x * x * x + 0.2 * x, 1e-12) << x;
  // Symmetric hat (0,0), (1,1), (2,0): f = 1.5 x - 0.5 x^3 on [0, 1].
  Spline hat;
  hat.Assign({{0, 0}, {1, 1}, {2, 0}});
  EXPECT_NEAR(hat(0.5), 0.6875, 1e-12);
  EXPECT_NEAR(hat(1.5), 0.6875, 1e-12);
  // Two points: the chord; tails continue from the end knots.
  Spline two;
  two.Assign({{0, 1}, {2, 5}});
  two.SetTailAfter(TailType::Slope(0));
  EXPECT_NEAR(two(1), 3, 1e-15);
  EXPECT_EQ(two(4), 5);
  EXPECT_EQ(two(-1), kNo);
}

TEST(Spline, TensionFollowsSchweikertAndTendsToThePolygon) {
  // Hat (0,0), (1,1), (2,0) under tension s: the single unknown M1 solves
  // 2 b M1 = -2 with b = cosh(s)/(s sinh(s)) - 1/s^2 (h = 1), and
  // f(x) on [0, 1] = x + M1 (sinh(s x)/sinh(s) - x)/s^2. Computed here with
  // std::sinh directly, not the overflow-safe forms of the library.
  for (unsigned tension : {1u, 10u, 30u, 100u}) {
    Spline s;
    s.SetTension(tension);
    s.Assign({{0, 0}, {1, 1}, {2, 0}});
    const double sig = tension / 10.0 * 2 / 2;  // s' (n - 1) / span
    ASSERT_NEAR(s.Sigma(), sig, 1e-15);
    const double b = std::cosh(sig) / (sig * std::sinh(sig)) - 1 / (sig * sig);
    const double m1 = -1 / b;
    for (double x : {0.1, 0.5, 0.8}) {
      const double expect = x + m1 * (std::sinh(sig * x) / std::sinh(sig) - x) / (sig * sig);
      EXPECT_NEAR(s(x), expect, 1e-10) << "tension " << tension << " x " << x;
    }
  }
  Spline hard;
  hard.SetTension(100000);
  hard.Assign({{0, 0}, {1, 1}, {2, 0}, {3, 3}});
  Linear poly;
  poly.Assign({{0, 0}, {1, 1}, {2, 0}, {3, 3}});
  for (double x = 0; x <= 3; x += 0.05) EXPECT_NEAR(hard(x), poly(x), 2e-3) << x;
  // Tiny tension is the cubic spline.
  Spline soft, cubic;
  soft.SetTension(1);
  for (Spline* sp : {&soft, &cubic}) sp->Assign({{0, 0}, {1, 1}, {2, 8}, {3, 27}});
  EXPECT_NEAR(soft(1.5), cubic(1.5), 0.05);
}

TEST(Spline, SmoothingRunsFromInterpolationToTheLeastSquaresLine) {
  const std::vector<Point> pts = {{0, 0}, {1, 2}, {2, 1}, {3, 3}, {4, 2}};
  // Least squares by hand: xbar 2, ybar 1.6, Sxy 5, Sxx 10: y = 0.6 + 0.5 x.
  Spline heavy;
  heavy.SetSmooth(5000);
  heavy.Assign(pts);
  for (double x : {0.0, 0.5, 2.5, 4.0}) EXPECT_NEAR(heavy(x), 0.6 + 0.5 * x, 1e-4) << x;

  Spline light, lighter, exact;
  light.SetSmooth(2);
  lighter.SetSmooth(1);
  for (Spline* sp : {&light, &lighter, &exact}) sp->Assign(pts);
  double d2 = 0, d1 = 0;
  for (double x = 0; x <= 4; x += 0.25) {
    EXPECT_NEAR(lighter(x), exact(x), 5e-3) << x;
    d2 = std::max(d2, std::abs(light(x) - exact(x)));
    d1 = std::max(d1, std::abs(lighter(x) - exact(x)));
  }
  // rho grows as Smooth^4 and, for small rho, the departure grows with rho.
  EXPECT_NEAR(d2 / d1, 16, 1.5);

  double prev = 0;
  for (unsigned sm : {60u, 20u, 5u}) {
    Spline s;
    s.SetSmooth(sm);
    s.Assign(pts);
    double ss = 0, mean = 0;
    for (std::size_t i = 0; i < pts.size(); ++i) {
      ss += std::pow(s.KnotValues()[i] - pts[i].y, 2);
      mean += s.KnotValues()[i] / pts.size();
    }
    EXPECT_NEAR(mean, 1.6, 1e-9) << sm;
    if (prev > 0) {
      EXPECT_LT(ss, prev) << sm;
    }
    prev = ss;
  }
  // Smoothing under tension is solved too and stays near the data's mean.
  Spline both;
  both.SetSmooth(20);
  both.SetTension(20);
  both.Assign(pts);
  EXPECT_NEAR(both(2), 1.6, 0.6);
}

}  // namespace
