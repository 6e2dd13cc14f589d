// Costs of the soil-water and probability functions, each against a baseline
// in the same run:
//  - a Fredlund-Xing curve through IFn against the same formula written
//    inline (the cost of the framework and of the unset checks);
//  - a distribution's table lookup against Boost.Math's quantile of the same
//    normal (what tabulating buys the solver per trial draw);
//  - a conductivity estimate through IFn against the water-content curve it
//    came from (interpolation in log-log against a closed form).
#include <benchmark/benchmark.h>

#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <vector>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnImpl.h"
#include "bench/EvaluationLoops.h"

namespace {

constexpr int kQueries = 1000;

std::vector<double> Suctions() {
  std::vector<double> q;
  for (int i = 0; i < kQueries; ++i) q.push_back(std::pow(10.0, -2 + 7 * std::fmod(i * 0.618033988749895, 1.0)));
  return q;
}

std::vector<double> Probabilities() {
  std::vector<double> q;
  for (int i = 0; i < kQueries; ++i) q.push_back(0.001 + 0.998 * std::fmod(i * 0.618033988749895, 1.0));
  return q;
}

// Pore-water pressures: the suctions as the functions take them (negative).
std::vector<double> Pressures() {
  auto q = Suctions();
  for (double& s : q) s = -s;
  return q;
}

using bench::MakeUpdated;

void BM_FredXingIFn(benchmark::State& state) {
  bench::EachQuery(state, Pressures(), MakeUpdated(L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45)"));
}

void BM_FredXingIFnArray(benchmark::State& state) {
  bench::WholeArray(state, MakeUpdated(L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45)"), Pressures());
}

// The baseline keeps its own loop: how the compiler treats the opaque
// parameters depends on it, and the shared loop would let it hoist more.
void BM_FredXingInline(benchmark::State& state) {
  const auto q = Suctions();
  // Opaque parameters, so that the compiler cannot fold pow(x, 2) or hoist
  // the constant logarithm, which the library cannot do either.
  double a = 100, n = 2, m = 1, ts = 0.45, lim = 1e6;
  benchmark::DoNotOptimize(a), benchmark::DoNotOptimize(n), benchmark::DoNotOptimize(m);
  benchmark::DoNotOptimize(ts), benchmark::DoNotOptimize(lim);
  const double r = 0.003 * lim;
  for (auto _ : state)
    for (double s : q) {
      const double c = 1.0 - std::log1p(s / r) / std::log1p(lim / r);
      benchmark::DoNotOptimize(ts * c * std::pow(1.0 / std::log(2.718281828459045 + std::pow(s / a, n)), m));
    }
  state.SetItemsProcessed(state.iterations() * kQueries);
}

void BM_NormalTable(benchmark::State& state) {
  bench::EachQuery(state, Probabilities(), MakeUpdated(L"Normal(Mean=10,SD=2,Min=7,Max=15)"));
}

void BM_NormalBoostQuantile(benchmark::State& state) {
  const boost::math::normal d(10, 2);
  const double pl = boost::math::cdf(d, 7.0), pu = boost::math::cdf(d, 15.0);
  bench::EachQuery(state, Probabilities(), [&](double p) { return boost::math::quantile(d, pl + p * (pu - pl)); });
}

void BM_HydKEstimate(benchmark::State& state) {
  v7::QVDocumentHandle doc(new v7::QVDocument());
  doc->DataInit();
  v7::QVDocumentSetCurrentHandle(doc);
  doc->FunctionList(14)->Add(v7::Func2D(L"wc", L"", MakeUpdated(L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)")));
  bench::EachQuery(state, Pressures(),
                   MakeUpdated(L"FnEstHydK(VolWCFnNum=1,HydKSat=1e-5,ResWC=0.05,Max=1e5,NumPoints=50)"));
  v7::QVDocumentSetCurrentHandle(v7::QVDocumentHandle());
}

void BM_HydKUpdate(benchmark::State& state) {
  v7::QVDocumentHandle doc(new v7::QVDocument());
  doc->DataInit();
  v7::QVDocumentSetCurrentHandle(doc);
  doc->FunctionList(14)->Add(v7::Func2D(L"wc", L"", MakeUpdated(L"Fredlund_Xing(A=100,N=2,M=1,SatWC=0.45)")));
  v7::IFn k = MakeUpdated(L"FnEstHydK(VolWCFnNum=1,HydKSat=1e-5,HydKEstMethod=FredlundXing)");
  for (auto _ : state) benchmark::DoNotOptimize(k.Unshared()->UpdateCalculatedValues());
  v7::QVDocumentSetCurrentHandle(v7::QVDocumentHandle());
}

BENCHMARK(BM_FredXingIFn);
BENCHMARK(BM_FredXingIFnArray);
BENCHMARK(BM_FredXingInline);
BENCHMARK(BM_NormalTable);
BENCHMARK(BM_NormalBoostQuantile);
BENCHMARK(BM_HydKEstimate);
BENCHMARK(BM_HydKUpdate);

}  // namespace

BENCHMARK_MAIN();
