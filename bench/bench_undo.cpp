// The cost of recording edits for undo: the same 10^5 edits of materials
// (adds, changes, deletes) on a table that records them and on a plain
// table, in the same run. Read the ratio of the times (recorded / plain),
// and the history's bytes per recorded edit (counter "bytes_per_edit").
#include <benchmark/benchmark.h>

#include <string>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/materials/MATLTable.h"

namespace {

using v7::GID;
using PlainMaterials = v7::QVContainerTable<v7::MATL, v7::MatlIDPolicy>;

// n/2 adds, n/4 changes, n/4 deletes.
template <class Table>
void Edit(Table& t, std::size_t n) {
  v7::MATL m;
  for (std::size_t i = 0; i < n / 2; ++i) {
    m.sDescription() = L"material " + std::to_wstring(i);
    m.Hydraulic().dHKSat() = 1e-6 * double(i + 1);
    t.Add(m);
  }
  for (std::size_t i = 0; i < n / 4; ++i) {
    v7::MATL changed = t.At(static_cast<GID>(2 * i + 1));
    changed.Stress().fPoisson() = 0.3;
    t.Change(static_cast<GID>(2 * i + 1), changed);
  }
  for (std::size_t i = 0; i < n / 4; ++i) t.Delete({static_cast<GID>(2 * i + 2)});
}

template <class Table>
void Run(benchmark::State& state, bool transaction) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::size_t bytes = 0;
  for (auto _ : state) {
    v7::QVContainerManager manager;
    manager.History().SetLimits({transaction ? 1u : n, std::size_t{1} << 40});
    Table t;
    manager.Register(&t, L"Materials", 4);
    if (transaction) manager.History().Begin();
    Edit(t, n);
    if (transaction) manager.History().Commit(L"edits");
    bytes = manager.History().Bytes();
    benchmark::DoNotOptimize(t.Size());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.counters["bytes_per_edit"] = double(bytes) / double(n);
}

// The baseline: the same edits, nothing recorded.
void BM_EditsPlain(benchmark::State& state) { Run<PlainMaterials>(state, false); }
// Recorded, all in one transaction (one step).
void BM_EditsRecordedOneStep(benchmark::State& state) { Run<v7::MATLTable>(state, true); }
// Recorded, each edit its own step.
void BM_EditsRecordedStepEach(benchmark::State& state) { Run<v7::MATLTable>(state, false); }

BENCHMARK(BM_EditsPlain)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EditsRecordedOneStep)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EditsRecordedStepEach)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
