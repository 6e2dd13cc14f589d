// Finding the natural coordinates (r, s) of a global point in a bilinear
// quadrilateral: the library's closed form (a quadratic in r, then s)
// against a plain Newton iteration on the same map, in the same run. The
// points are 10^6, one per element of a mesh of distorted quadrilaterals
// (corners moved by up to a fifth of the element size), each at a known
// (r, s) drawn inside the element.
//
// Newton (e.g. Bathe 1996, Finite Element Procedures, §5.3): from (0, 0),
// solve J d = x - x(r, s) and step until |d| < 1e-10 (coordinates near 1000 leave about 1e-13 of noise), at most 20 steps.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "V7Doc/geometry/ShapeFunctions.h"
#include "bench/EvaluationLoops.h"

namespace {

constexpr int kPoints = 1000000;

struct Case {
  double xy[4][2];
  double x, y;
};

// Corner order as the library expects: (+1,+1), (-1,+1), (-1,-1), (+1,-1).
constexpr double kCornerR[4] = {1, -1, -1, 1};
constexpr double kCornerS[4] = {1, 1, -1, -1};

void Map(const double xy[4][2], double r, double s, double& x, double& y) {
  x = y = 0;
  for (int i = 0; i < 4; ++i) {
    const double n = 0.25 * (1 + kCornerR[i] * r) * (1 + kCornerS[i] * s);
    x += n * xy[i][0];
    y += n * xy[i][1];
  }
}

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = [] {
    std::mt19937_64 gen(20261124);
    std::uniform_real_distribution<double> jitter(-0.2, 0.2), nat(-0.95, 0.95);
    std::vector<Case> out(kPoints);
    for (int k = 0; k < kPoints; ++k) {
      Case& c = out[k];
      const double cx = (k % 1000) * 1.0 + 3.5, cy = (k / 1000) * 1.0 - 7.25;
      for (int i = 0; i < 4; ++i) {
        c.xy[i][0] = cx + 0.5 * kCornerR[i] + jitter(gen);
        c.xy[i][1] = cy + 0.5 * kCornerS[i] + jitter(gen);
      }
      Map(c.xy, nat(gen), nat(gen), c.x, c.y);
    }
    return out;
  }();
  return cases;
}

int Newton(double& r, double& s, double x, double y, const double xy[4][2]) {
  r = s = 0;
  for (int it = 0; it < 20; ++it) {
    double fx = -x, fy = -y, xr = 0, xs = 0, yr = 0, ys = 0;
    for (int i = 0; i < 4; ++i) {
      const double ar = 1 + kCornerR[i] * r, as = 1 + kCornerS[i] * s;
      const double n = 0.25 * ar * as, nr = 0.25 * kCornerR[i] * as, ns = 0.25 * kCornerS[i] * ar;
      fx += n * xy[i][0], fy += n * xy[i][1];
      xr += nr * xy[i][0], xs += ns * xy[i][0];
      yr += nr * xy[i][1], ys += ns * xy[i][1];
    }
    const double det = xr * ys - xs * yr;
    if (det == 0) return 0;
    const double dr = (fx * ys - fy * xs) / det, ds = (fy * xr - fx * yr) / det;
    r -= dr, s -= ds;
    if (std::fabs(dr) + std::fabs(ds) < 1e-10) return 1;
  }
  return 0;
}

void BM_InversionClosedForm(benchmark::State& state) {
  bench::SolveEach(state, Cases(), [](const Case& c) {
    double r = 0, s = 0;
    const int solved = v7::Geom::iGlobal_To_Local_Coords(r, s, c.x, c.y, c.xy, 4);
    benchmark::DoNotOptimize(r), benchmark::DoNotOptimize(s);
    return solved;
  });
}
BENCHMARK(BM_InversionClosedForm)->Unit(benchmark::kMillisecond);

void BM_InversionNewton(benchmark::State& state) {
  bench::SolveEach(state, Cases(), [](const Case& c) {
    double r = 0, s = 0;
    const int solved = Newton(r, s, c.x, c.y, c.xy);
    benchmark::DoNotOptimize(r), benchmark::DoNotOptimize(s);
    return solved;
  });
}
BENCHMARK(BM_InversionNewton)->Unit(benchmark::kMillisecond);

}  // namespace
