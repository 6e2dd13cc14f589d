#pragma once
// The timed loops that the function and geometry benchmarks share, so that a
// figure and its baseline in the same program are timed by the same loop and
// differ only in what they evaluate.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "V7Doc/functions/FnImpl.h"

namespace bench {

// The function that `text` builds, brought up to date (an estimator
// generates its points here).
inline v7::IFn MakeUpdated(const wchar_t* text) {
  v7::IFn fn;
  (void)v7::FnCreate(text, fn);
  (void)fn.Unshared()->UpdateCalculatedValues();
  return fn;
}

// `f(x)` at every query, one call at a time; an item is a query.
template <class F>
void EachQuery(benchmark::State& state, const std::vector<double>& queries, const F& f) {
  for (auto _ : state)
    for (double x : queries) benchmark::DoNotOptimize(f(x));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
}

// `fn` at all queries in one call: the virtual call paid once per array.
inline void WholeArray(benchmark::State& state, const v7::IFn& fn, const std::vector<double>& queries) {
  std::vector<double> out(queries.size());
  for (auto _ : state) {
    fn.Evaluate(queries, out);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
}

// `solve(item)` for every item, which counts 1 for an item solved; a run
// that leaves an item unsolved is reported as an error rather than timed.
template <class Item, class Solve>
void SolveEach(benchmark::State& state, const std::vector<Item>& items, const Solve& solve) {
  for (auto _ : state) {
    std::size_t solved = 0;
    for (const Item& item : items) solved += solve(item);
    if (solved != items.size()) state.SkipWithError("an item was not solved");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items.size()));
}

}  // namespace bench
