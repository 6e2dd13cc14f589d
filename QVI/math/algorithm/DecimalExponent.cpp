#include "QVI/math/algorithm/DecimalExponent.h"

#include <array>
#include <cmath>

namespace math::algorithm {
namespace {

// 10^e for e in [kLowest, kHighest], as std::pow gives them (exact up to
// 1e22, correctly rounded beyond; 10^-324 underflows to 0 and 10^309
// overflows to infinity, which bound every finite double). Made once: the
// inversion of element maps asks for two magnitudes per point.
constexpr int kLowest = -324;
constexpr int kHighest = 309;
const std::array<double, kHighest - kLowest + 1>& Powers() {
  static const auto table = [] {
    std::array<double, kHighest - kLowest + 1> t{};
    for (int e = kLowest; e <= kHighest; ++e) t[static_cast<std::size_t>(e - kLowest)] = std::pow(10.0, e);
    return t;
  }();
  return table;
}

double PowerOfTen(int e) { return Powers()[static_cast<std::size_t>(e - kLowest)]; }

}  // namespace

int DecimalExponent(double v) {
  const double a = std::fabs(v);
  if (!(a > 0) || !std::isfinite(a)) return 0;
  // a = f 2^b with f in [0.5, 1), so log10(a) lies in [(b - 1) log10 2,
  // b log10 2): a first guess one below or at the answer, then steps up
  // while the next power of ten is still <= a. No logarithm is taken, and
  // the comparisons against the powers decide exactly.
  int b = 0;
  (void)std::frexp(a, &b);
  int e = static_cast<int>(std::floor((b - 1) * 0.30102999566398120)) - 1;
  if (e < kLowest) e = kLowest;
  while (e > kLowest && PowerOfTen(e) > a) --e;
  while (e < 308 && PowerOfTen(e + 1) <= a) ++e;
  return e;
}

double DecimalMagnitude(double v) { return PowerOfTen(DecimalExponent(v)); }

}  // namespace math::algorithm
