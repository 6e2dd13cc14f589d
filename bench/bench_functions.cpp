// Evaluating a 100-point linear and spline function through IFn, against a
// hand-written loop over the same points (binary search, then the segment's
// formula) in the same run. The ratio of the two is the cost of the function
// framework (virtual call, tails, log-axis checks).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "V7Doc/functions/FnInterpolated.h"
#include "bench/EvaluationLoops.h"

namespace {

constexpr int kPoints = 100;
constexpr int kQueries = 1000;

std::vector<v7::FnPoint> Points() {
  std::vector<v7::FnPoint> p;
  for (int i = 0; i < kPoints; ++i) p.push_back({i * 0.5, std::sin(i * 0.1) + 0.01 * i, 0});
  return p;
}

std::vector<double> Queries() {
  std::vector<double> q;
  for (int i = 0; i < kQueries; ++i) q.push_back(std::fmod(i * 0.618033988749895 * 49.5, 49.5));
  return q;
}

v7::IFn Make(const wchar_t* text) {
  v7::IFn fn;
  (void)v7::FnCreate(text, fn);
  const auto pts = Points();
  dynamic_cast<v7::IFnDataPoints*>(fn.Unshared())->Assign(pts.data(), pts.data() + pts.size());
  return fn;
}

// The segment of the sorted knots `xs` that holds x (the first or last
// segment beyond the ends), by bisection as the library searches.
std::size_t Segment(const std::vector<double>& xs, double x) {
  const auto it = std::upper_bound(xs.begin(), xs.end(), x);
  return std::min<std::size_t>(std::max<std::ptrdiff_t>(it - xs.begin() - 1, 0), xs.size() - 2);
}

void BM_IFnLinear(benchmark::State& state) { bench::EachQuery(state, Queries(), Make(L"Linear()")); }
BENCHMARK(BM_IFnLinear);

void BM_IFnLinearArray(benchmark::State& state) { bench::WholeArray(state, Make(L"Linear()"), Queries()); }
BENCHMARK(BM_IFnLinearArray);
void BM_IFnSplineArray(benchmark::State& state) { bench::WholeArray(state, Make(L"Spline()"), Queries()); }
BENCHMARK(BM_IFnSplineArray);

void BM_HandLinear(benchmark::State& state) {
  std::vector<double> xs, ys;
  for (const auto& pt : Points()) xs.push_back(pt.x), ys.push_back(pt.y);
  // Captured by value, as locals that nothing else sees: DoNotOptimize's
  // memory clobber would reload them through a reference after every query.
  bench::EachQuery(state, Queries(), [xs, ys](double x) {
    const std::size_t i = Segment(xs, x);
    return ys[i] + (x - xs[i]) / (xs[i + 1] - xs[i]) * (ys[i + 1] - ys[i]);
  });
}
BENCHMARK(BM_HandLinear);

void BM_IFnSpline(benchmark::State& state) { bench::EachQuery(state, Queries(), Make(L"Spline()")); }
BENCHMARK(BM_IFnSpline);

// The same cubic spline evaluated by hand from the library's knot curvatures.
void BM_HandSpline(benchmark::State& state) {
  const v7::IFn fn = Make(L"Spline()");
  const auto& sp = dynamic_cast<const v7::FnSpline&>(*fn).Spline();
  std::vector<double> xs, ys = sp.KnotValues(), m = sp.KnotCurvatures();
  for (const auto& pt : sp.Points()) xs.push_back(pt.x);
  bench::EachQuery(state, Queries(), [xs, ys, m](double x) {
    const std::size_t i = Segment(xs, x);
    const double h = xs[i + 1] - xs[i], t = x - xs[i], s = h - t;
    return (ys[i] * s + ys[i + 1] * t) / h + (m[i] * s * (s * s - h * h) + m[i + 1] * t * (t * t - h * h)) / (6 * h);
  });
}
BENCHMARK(BM_HandSpline);

}  // namespace
