// Cost of generating time steps, against a baseline in the same run: a hand
// loop that fills the same number of equal steps. The ratio shows what the
// exponential series, the rounding (up to four passes) and the save flags add.
#include <benchmark/benchmark.h>

#include <vector>

#include "V7Doc/analysis/TIMEINCSTRUCT.h"

namespace {

void BM_Baseline_HandLoop(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    std::vector<v7::TIMEINC> steps;
    steps.reserve(static_cast<std::size_t>(n));
    for (int k = 1; k <= n; ++k) steps.push_back({1.0 / n, static_cast<double>(k) / n, 1});
    benchmark::DoNotOptimize(steps.data());
  }
  state.SetItemsProcessed(state.iterations() * n);
}

void Generate(benchmark::State& state, v7::IncrementType type) {
  const int n = static_cast<int>(state.range(0));
  v7::TIMEINCSTRUCT t;
  t.SetDuration(1000);
  t.SetIncCount(n);
  t.SetIncType(type);
  t.SetInitIncSize(1e-3);
  for (auto _ : state) {
    auto s = t.GenerateTimeSteps();
    benchmark::DoNotOptimize(s);
  }
  state.SetItemsProcessed(state.iterations() * n);
}

void BM_Generate_Linear(benchmark::State& state) { Generate(state, v7::IncrementType::Linear); }
void BM_Generate_ExponentialRounded(benchmark::State& state) {
  Generate(state, v7::IncrementType::Exponential);
}

BENCHMARK(BM_Baseline_HandLoop)->Arg(100)->Arg(10000);
BENCHMARK(BM_Generate_Linear)->Arg(100)->Arg(10000);
BENCHMARK(BM_Generate_ExponentialRounded)->Arg(100)->Arg(10000);

}  // namespace
