// Evaluating a 100-point linear and spline function through IFn, against a
// hand-written loop over the same points (binary search, then the segment's
// formula) in the same run. The ratio of the two is the cost of the function
// framework (virtual call, tails, log-axis checks).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "V7Doc/functions/FnInterpolated.h"

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

void BM_IFnLinear(benchmark::State& state) {
  const v7::IFn fn = Make(L"Linear()");
  const auto q = Queries();
  for (auto _ : state)
    for (double x : q) benchmark::DoNotOptimize(fn(x));
  state.SetItemsProcessed(state.iterations() * kQueries);
}
BENCHMARK(BM_IFnLinear);

// The same queries in one call: the virtual call paid once per array.
void ArrayRun(benchmark::State& state, const wchar_t* text) {
  const v7::IFn fn = Make(text);
  const auto q = Queries();
  std::vector<double> out(q.size());
  for (auto _ : state) {
    fn.Evaluate(q, out);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kQueries);
}
void BM_IFnLinearArray(benchmark::State& state) { ArrayRun(state, L"Linear()"); }
BENCHMARK(BM_IFnLinearArray);
void BM_IFnSplineArray(benchmark::State& state) { ArrayRun(state, L"Spline()"); }
BENCHMARK(BM_IFnSplineArray);

void BM_HandLinear(benchmark::State& state) {
  const auto p = Points();
  std::vector<double> xs, ys;
  for (const auto& pt : p) xs.push_back(pt.x), ys.push_back(pt.y);
  const auto q = Queries();
  for (auto _ : state)
    for (double x : q) {
      auto it = std::upper_bound(xs.begin(), xs.end(), x);
      std::size_t i = std::min<std::size_t>(std::max<std::ptrdiff_t>(it - xs.begin() - 1, 0), xs.size() - 2);
      benchmark::DoNotOptimize(ys[i] + (x - xs[i]) / (xs[i + 1] - xs[i]) * (ys[i + 1] - ys[i]));
    }
  state.SetItemsProcessed(state.iterations() * kQueries);
}
BENCHMARK(BM_HandLinear);

void BM_IFnSpline(benchmark::State& state) {
  const v7::IFn fn = Make(L"Spline()");
  const auto q = Queries();
  for (auto _ : state)
    for (double x : q) benchmark::DoNotOptimize(fn(x));
  state.SetItemsProcessed(state.iterations() * kQueries);
}
BENCHMARK(BM_IFnSpline);

// The same cubic spline evaluated by hand from the library's knot curvatures.
void BM_HandSpline(benchmark::State& state) {
  const v7::IFn fn = Make(L"Spline()");
  const auto& sp = dynamic_cast<const v7::FnSpline&>(*fn).Spline();
  std::vector<double> xs, ys = sp.KnotValues(), m = sp.KnotCurvatures();
  for (const auto& pt : sp.Points()) xs.push_back(pt.x);
  const auto q = Queries();
  for (auto _ : state)
    for (double x : q) {
      auto it = std::upper_bound(xs.begin(), xs.end(), x);
      std::size_t i = std::min<std::size_t>(std::max<std::ptrdiff_t>(it - xs.begin() - 1, 0), xs.size() - 2);
      const double h = xs[i + 1] - xs[i], t = x - xs[i], s = h - t;
      benchmark::DoNotOptimize((ys[i] * s + ys[i + 1] * t) / h +
                               (m[i] * s * (s * s - h * h) + m[i + 1] * t * (t * t - h * h)) / (6 * h));
    }
  state.SetItemsProcessed(state.iterations() * kQueries);
}
BENCHMARK(BM_HandSpline);

}  // namespace
