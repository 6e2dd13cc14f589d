// An add-in function evaluated through IFn (the External kind: virtual call,
// bound delegate, return-code and finiteness checks) against a direct call of
// the same add-in function pointer on an instance made by hand, in the same
// run. The ratio BM_IFnExternal / BM_DirectAddInCall is what the host adds.
//
// Two add-ins: the example Gardner conductivity (one exp per call, a
// realistic property function) and, when the test fixtures are built, an
// identity function, where the call itself is all there is (the worst case).
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"
#include "QVI/sys/DynamicLibrary.h"
#include "V7Doc/functions/FnExternal.h"
#include "addins/QviAddIn.h"

namespace {

constexpr int kQueries = 1000;

using CalculateFn = int (*)(void*, const double*, const double*, double*);

std::vector<double> Queries() {
  std::vector<double> q;
  for (int i = 0; i < kQueries; ++i) q.push_back(std::fmod(i * 0.618033988749895 * 100, 100.0));
  return q;
}

struct Direct {
  void* self = nullptr;
  CalculateFn calc = nullptr;
};

// The add-in opened by hand, with no bridge and no host in between.
Direct OpenDirect(const std::string& file, const char* type) {
  std::string why;
  void* lib = sys::dl::Open(file, why);
  auto entry = reinterpret_cast<QviAddInModuleFn>(sys::dl::Symbol(lib, QVI_ADDIN_ENTRY));
  if (!entry) return {};
  const QviAddInModule* m = entry();
  for (int i = 0; i < m->type_count; ++i) {
    const QviAddInType& t = m->types[i];
    if (std::strcmp(t.name, type) != 0) continue;
    for (int k = 0; k < t.method_count; ++k)
      if (std::strcmp(t.methods[k].name, "Calculate") == 0)
        return {t.create(), reinterpret_cast<CalculateFn>(t.methods[k].fn)};
  }
  return {};
}

v7::IFn OpenExternal(const std::string& folder, const std::wstring& text) {
  qvi::addins::AddInsManager::Instance().SetDocumentFolder(str::to_wstring(folder));
  v7::IFn fn;
  (void)v7::FnCreate(text, fn);
  return fn;
}

void RunDirect(benchmark::State& state, const std::string& folder, const char* file, const char* type) {
  const Direct d = OpenDirect(folder + "/" + file, type);
  if (!d.calc) {
    state.SkipWithError("the add-in is not built");
    return;
  }
  const auto q = Queries();
  for (auto _ : state) {
    double sum = 0;
    for (double x : q) {
      double out = 0;
      if (d.calc(d.self, &x, nullptr, &out) == 0) sum += out;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kQueries);
}

void RunIFn(benchmark::State& state, const std::string& folder, const std::wstring& text) {
  const v7::IFn fn = OpenExternal(folder, text);
  if (!dynamic_cast<const v7::FnExternal&>(*fn).IsLoaded()) {
    state.SkipWithError("the add-in is not built or the bridge is missing");
    return;
  }
  const auto q = Queries();
  for (auto _ : state) {
    double sum = 0;
    for (double x : q) sum += fn(x);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kQueries);
}

void BM_DirectAddInCall(benchmark::State& state) {
  RunDirect(state, QVV7_EXAMPLE_ADDIN_DIR, "gardner_conductivity.so", "GardnerK");
}
void BM_IFnExternal(benchmark::State& state) {
  RunIFn(state, QVV7_EXAMPLE_ADDIN_DIR, L"External(Assembly=gardner_conductivity.so,Function=GardnerK)");
}
void BM_DirectAddInCallIdentity(benchmark::State& state) {
  RunDirect(state, QVV7_TEST_ADDIN_DIR, "faulty.so", "Fails");
}
void BM_IFnExternalIdentity(benchmark::State& state) {
  RunIFn(state, QVV7_TEST_ADDIN_DIR, L"External(Assembly=faulty.so,Function=Fails)");
}

BENCHMARK(BM_DirectAddInCall);
BENCHMARK(BM_IFnExternal);
BENCHMARK(BM_DirectAddInCallIdentity);
BENCHMARK(BM_IFnExternalIdentity);

}  // namespace
