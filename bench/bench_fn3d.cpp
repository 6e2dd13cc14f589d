// Surfaces over scattered points.
//
// Linear3D: triangulating 100 000 random points and answering 1 000 000
// random queries, against sorting the same points (the n log n floor under
// any triangulation) and a bare pass evaluating a plane at the queries.
// Kriging: fitting 1 000 points (experimental variogram, three model fits)
// and 100 000 estimates, against one dense solve of a 17 x 17 system (the
// size a 16-point neighbourhood gives); estimates over 1 000 to 100 000
// points show that one estimate costs the same whatever the number of points.
#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <algorithm>
#include <random>
#include <vector>

#include "QVI/math/fn/interpolate/KrigSurface.h"
#include "QVI/math/fn/interpolate/Linear3D.h"

namespace {
using math::fn::Point3D;
using math::fn::interpolate::KrigSurface;
using math::fn::interpolate::Linear3D;

std::vector<Point3D> RandomPoints(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> u(0.0, 1.0);
  std::vector<Point3D> p(n);
  for (auto& q : p) {
    q.x = u(rng), q.y = u(rng);
    q.z = std::sin(6 * q.x) + std::cos(4 * q.y) + 0.5 * q.x * q.y;
  }
  return p;
}

constexpr std::size_t kLinearPoints = 100000;
constexpr std::size_t kLinearQueries = 1000000;

void BM_Linear3DTriangulate(benchmark::State& state) {
  const auto pts = RandomPoints(kLinearPoints, 1);
  for (auto _ : state) {
    Linear3D s;
    benchmark::DoNotOptimize(s.SetPoints(pts));
  }
  state.SetItemsProcessed(state.iterations() * kLinearPoints);
}
BENCHMARK(BM_Linear3DTriangulate)->Unit(benchmark::kMillisecond);

void BM_Linear3DQuery(benchmark::State& state) {
  Linear3D s;
  (void)s.SetPoints(RandomPoints(kLinearPoints, 1));
  const auto q = RandomPoints(kLinearQueries, 2);
  for (auto _ : state) {
    double sum = 0;
    for (const auto& p : q) sum += s(p.x, p.y);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kLinearQueries);
}
BENCHMARK(BM_Linear3DQuery)->Unit(benchmark::kMillisecond);

// The figure to hold against scipy's LinearNDInterpolator on the same sizes.
void BM_Linear3DTriangulateAndQuery(benchmark::State& state) {
  const auto pts = RandomPoints(kLinearPoints, 1);
  const auto q = RandomPoints(kLinearQueries, 2);
  for (auto _ : state) {
    Linear3D s;
    (void)s.SetPoints(pts);
    double sum = 0;
    for (const auto& p : q) sum += s(p.x, p.y);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_Linear3DTriangulateAndQuery)->Unit(benchmark::kMillisecond);

void BM_SortPointsBaseline(benchmark::State& state) {
  const auto pts = RandomPoints(kLinearPoints, 1);
  for (auto _ : state) {
    auto copy = pts;
    std::sort(copy.begin(), copy.end(), [](const Point3D& a, const Point3D& b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetItemsProcessed(state.iterations() * kLinearPoints);
}
BENCHMARK(BM_SortPointsBaseline)->Unit(benchmark::kMillisecond);

void BM_PlanePassBaseline(benchmark::State& state) {
  const auto q = RandomPoints(kLinearQueries, 2);
  for (auto _ : state) {
    double sum = 0;
    for (const auto& p : q) sum += 1.0 + 2.0 * p.x - 3.0 * p.y;
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kLinearQueries);
}
BENCHMARK(BM_PlanePassBaseline)->Unit(benchmark::kMillisecond);

constexpr std::size_t kKrigQueries = 100000;

void BM_KrigFit1000(benchmark::State& state) {
  const auto pts = RandomPoints(1000, 3);
  for (auto _ : state) {
    KrigSurface k;
    benchmark::DoNotOptimize(k.SetPoints(pts));
  }
}
BENCHMARK(BM_KrigFit1000)->Unit(benchmark::kMillisecond);

// 100 000 estimates; the argument is the number of points.
void BM_KrigEvaluate(benchmark::State& state) {
  KrigSurface k;
  (void)k.SetPoints(RandomPoints(static_cast<std::size_t>(state.range(0)), 3));
  const auto q = RandomPoints(kKrigQueries, 4);
  for (auto _ : state) {
    double sum = 0;
    for (const auto& p : q) sum += k(p.x, p.y);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kKrigQueries);
}
BENCHMARK(BM_KrigEvaluate)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// 100 000 dense solves of a 17 x 17 system, as one 16-point estimate needs.
void BM_DenseSolve17Baseline(benchmark::State& state) {
  std::mt19937 rng(5);
  std::uniform_real_distribution<double> u(0.0, 1.0);
  Eigen::MatrixXd a = Eigen::MatrixXd::NullaryExpr(17, 17, [&] { return u(rng); });
  a += 17 * Eigen::MatrixXd::Identity(17, 17);
  Eigen::VectorXd b = Eigen::VectorXd::Ones(17);
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t i = 0; i < kKrigQueries; ++i) {
      b(0) = static_cast<double>(i);
      sum += a.partialPivLu().solve(b)(0);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kKrigQueries);
}
BENCHMARK(BM_DenseSolve17Baseline)->Unit(benchmark::kMillisecond);

}  // namespace
