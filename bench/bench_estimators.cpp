// Cost of evaluating a property estimator through IFn against the same
// interpolation written inline over the same generated points (the price of
// the handle, the virtual call, the input checks and the table class):
//  - G/Gmax (Darendeli), a log10 strain axis: the inline loop takes log10 of
//    the input, as the table does, and searches the 51 points by bisection;
//  - the pore-pressure ratio (Seed, Martin and Lysmer), a linear axis of 51
//    points.
// Report the ratio IFn / Inline of each pair; the IFnArray cases evaluate
// the same inputs with one call per array (IFn::Evaluate).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/FnImpl.h"
#include "bench/EvaluationLoops.h"

namespace {

constexpr int kQueries = 1000;

// Inputs spread over the table (golden-ratio sequence), log or linear.
std::vector<double> Inputs(double lo, double hi, bool log) {
  std::vector<double> q;
  for (int i = 0; i < kQueries; ++i) {
    const double t = std::fmod(i * 0.618033988749895, 1.0);
    q.push_back(log ? std::pow(10.0, std::log10(lo) + t * (std::log10(hi) - std::log10(lo)))
                    : lo + t * (hi - lo));
  }
  return q;
}

// The same points as the function's table, with the input axis as it interpolates.
struct InlineTable {
  std::vector<double> u, v;
  bool log = false;
  InlineTable(const v7::IFn& fn, bool logX) : log(logX) {
    for (const v7::FnPoint& p : dynamic_cast<const v7::FnDataPoints&>(*fn).DataPoints()) {
      u.push_back(logX ? std::log10(p.x) : p.x);
      v.push_back(p.y);
    }
  }
  // The estimator's rules: NaN has no value; on a log axis an input of zero
  // or below takes the first value; beyond the points the end values hold.
  double operator()(double x) const {
    if (x != x) return qvi::kNoValue;
    if (log && !(x > 0)) return v.front();
    const double a = log ? std::log10(x) : x;
    if (a <= u.front()) return v.front();
    if (a >= u.back()) return v.back();
    const std::size_t i =
        static_cast<std::size_t>(std::upper_bound(u.begin(), u.end(), a) - u.begin()) - 1;
    return v[i] + (a - u[i]) / (u[i + 1] - u[i]) * (v[i + 1] - v[i]);
  }
};

void ThroughIFn(benchmark::State& state, const wchar_t* text, double lo, double hi, bool log) {
  bench::EachQuery(state, Inputs(lo, hi, log), bench::MakeUpdated(text));
}

void ThroughIFnArray(benchmark::State& state, const wchar_t* text, double lo, double hi, bool log) {
  bench::WholeArray(state, bench::MakeUpdated(text), Inputs(lo, hi, log));
}

void Inline(benchmark::State& state, const wchar_t* text, double lo, double hi, bool log) {
  const InlineTable t(bench::MakeUpdated(text), log);
  bench::EachQuery(state, Inputs(lo, hi, log), t);
}

void BM_GReductionIFn(benchmark::State& s) {
  ThroughIFn(s, L"FnEstGReduction(PI=20)", 1e-6, 0.1, true);
}
void BM_GReductionIFnArray(benchmark::State& s) {
  ThroughIFnArray(s, L"FnEstGReduction(PI=20)", 1e-6, 0.1, true);
}
void BM_GReductionInline(benchmark::State& s) {
  Inline(s, L"FnEstGReduction(PI=20)", 1e-6, 0.1, true);
}
void BM_DynPWPIFn(benchmark::State& s) { ThroughIFn(s, L"FnEstDynPWP()", 0.0, 1.0, false); }
void BM_DynPWPIFnArray(benchmark::State& s) { ThroughIFnArray(s, L"FnEstDynPWP()", 0.0, 1.0, false); }
void BM_DynPWPInline(benchmark::State& s) { Inline(s, L"FnEstDynPWP()", 0.0, 1.0, false); }

}  // namespace

BENCHMARK(BM_GReductionIFn);
BENCHMARK(BM_GReductionIFnArray);
BENCHMARK(BM_GReductionInline);
BENCHMARK(BM_DynPWPIFn);
BENCHMARK(BM_DynPWPIFnArray);
BENCHMARK(BM_DynPWPInline);
