// Container-table costs per record at 10^3 to 10^6 records. Items per second
// should stay flat across sizes (linear scaling); Find is compared with
// indexing a plain std::vector of the same records in the same run.
#include <benchmark/benchmark.h>

#include <numeric>
#include <random>

#include "OC/Schema.h"
#include "V7Doc/core/QVContainerAssoc.h"
#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/core/QVContainerTable.h"

namespace {

using v7::GID;

struct Rec {
  double x = 0, y = 0;
  GID ref = 0;
  bool dead = false;
  friend bool operator==(const Rec&, const Rec&) = default;
};
bool IsMissing(const Rec& r) { return r.dead; }
void SetMissing(Rec& r) { r = Rec{0, 0, 0, true}; }

using Table = v7::QVContainerTable<Rec>;

Table Filled(std::size_t n) {
  Table t;
  t.Resize(n);
  return t;
}

// Look-up IDs in random order, the same for both Find and the baseline.
std::vector<GID> RandomIDs(std::size_t n) {
  std::vector<GID> ids(n);
  std::iota(ids.begin(), ids.end(), GID{1});
  std::shuffle(ids.begin(), ids.end(), std::mt19937(42));
  return ids;
}

void BM_Add(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  for (auto _ : state) {
    Table t;
    for (std::size_t i = 0; i < n; ++i) t.Add(Rec{double(i), 0, 0, false});
    benchmark::DoNotOptimize(t.Size());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_Find(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  Table t = Filled(n);
  const auto ids = RandomIDs(n);
  for (auto _ : state) {
    double sum = 0;
    for (GID id : ids) {
      auto it = t.Find(id);
      if (it != t.end()) sum += it->x;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Baseline: the same random look-ups as plain vector indexing with a bounds
// check, which is what Find does before its tombstone test.
void BM_FindBaselineVector(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::vector<Rec> v(n);
  const auto ids = RandomIDs(n);
  for (auto _ : state) {
    double sum = 0;
    for (GID id : ids)
      if (id - 1 < v.size()) sum += v[id - 1].x;
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_Delete(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::vector<GID> everyOther;
  for (GID id = 1; id <= n; id += 2) everyOther.push_back(id);
  for (auto _ : state) {
    state.PauseTiming();
    Table t = Filled(n);
    state.ResumeTiming();
    t.Delete(everyOther);
    benchmark::DoNotOptimize(t.Size());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(everyOther.size()));
}

void BM_FullCompact(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::vector<GID> everyThird;
  for (GID id = 1; id <= n; id += 3) everyThird.push_back(id);
  for (auto _ : state) {
    state.PauseTiming();
    Table t = Filled(n);
    t.Delete(everyThird);
    std::vector<GID> map;
    state.ResumeTiming();
    t.FullCompact(map);
    benchmark::DoNotOptimize(map.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// A target table of n records and a referring table of n records, each
// referring to a random target by a declared reference, plus an
// association keyed by the targets.
struct Users {
  Table table;
  friend bool operator==(const Users&, const Users&) = default;
};

}  // namespace

template <>
const oc::RecordType& oc::TypeOf<Rec>() {
  static const RecordType& t = Schema<Rec>(L"BenchRec")
                                   .Add(&Rec::x, L"x", L"X")
                                   .Add(&Rec::ref, L"ref", L"Ref", meta::MetaDataTraits{}.Ref(4))
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<Users>() {
  static const RecordType& t =
      Schema<Users>(L"BenchUsers")
          .Add(&Users::table, L"table", L"Users[User]", meta::MetaDataTraits{}.Collection(5))
          .Done();
  return t;
}

namespace {

void BM_GetUsageOf(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  v7::QVContainerManager m;
  Table targets = Filled(n);
  Users users;
  v7::QVContainerAssoc<GID> assoc;
  m.Register(&targets, L"Targets", 4);
  m.Register(&users.table, L"Users", 5);
  m.DeclareRecords(5, *oc::TypeOf<Users>().FindMember(L"table"), &users.table);
  m.Register(&assoc, L"Assoc", 10);
  m.Subscribe(&assoc, 4);
  assoc.SetKeyContainerID(4);
  users.table.Resize(n);
  std::mt19937 rng(7);
  std::uniform_int_distribution<GID> pick(1, static_cast<GID>(n));
  for (auto& r : users.table) r.ref = pick(rng);
  for (GID id = 1; id <= n; id += 2) assoc.Insert(id, 1);
  for (auto _ : state) {
    v7::UsageList usage;
    m.GetUsageOf(4, usage);
    benchmark::DoNotOptimize(usage.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Baseline: the same appends into the same list shape by a hand loop, so the
// ratio shows what the manager and the subscriber dispatch add. Both are bound
// by the allocator and cache misses of the list itself at large sizes.
void BM_GetUsageOfBaselineHandLoop(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::vector<GID> refs(n);
  std::mt19937 rng(7);
  std::uniform_int_distribution<GID> pick(1, static_cast<GID>(n));
  for (auto& r : refs) r = pick(rng);
  for (auto _ : state) {
    v7::UsageList usage(n + 1);
    for (std::size_t i = 0; i < n; ++i) usage[refs[i]].push_back({5, GID(i + 1)});
    for (GID id = 1; id <= n; id += 2) usage[id].push_back({10, id});
    benchmark::DoNotOptimize(usage.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define SIZES RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond)
BENCHMARK(BM_Add)->SIZES;
BENCHMARK(BM_Find)->SIZES;
BENCHMARK(BM_FindBaselineVector)->SIZES;
BENCHMARK(BM_Delete)->SIZES;
BENCHMARK(BM_FullCompact)->SIZES;
BENCHMARK(BM_GetUsageOf)->SIZES;
BENCHMARK(BM_GetUsageOfBaselineHandLoop)->SIZES;

}  // namespace
