#include "QVI/math/algorithm/FloatCommon.h"

#include <cfloat>
#include <cmath>

#include "QVI/qvi/Markers.h"

namespace math::algorithm {
namespace {

// Every power of ten that a double holds exactly.
constexpr double kExactPow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kExactMax = 22;

// value * 10^s computed with one correctly rounded operation where possible:
// dividing by an exact power is more accurate than multiplying by an inexact
// negative power.
double Scale(double value, int s) {
  if (s >= 0 && s <= kExactMax) return value * kExactPow10[s];
  if (s < 0 && -s <= kExactMax) return value / kExactPow10[-s];
  // Outside the exact range split the scaling so that neither factor
  // overflows on its own.
  const int half = s / 2;
  return value * FloatCommon<double>::Pow10(half) * FloatCommon<double>::Pow10(s - half);
}

double RoundInteger(double y, int mode) {
  switch (mode) {
    case FloatCommon<double>::Up:
      return std::ceil(y);
    case FloatCommon<double>::Down:
      return std::floor(y);
    case FloatCommon<double>::TowardZero:
      return std::trunc(y);
    default:
      return std::round(y);  // halves away from zero
  }
}

}  // namespace

double FloatCommon<double>::Pow10(int n) {
  if (n >= 0 && n <= kExactMax) return kExactPow10[n];
  if (n < 0 && -n <= kExactMax) return 1.0 / kExactPow10[-n];
  return std::pow(10.0, n);
}

double FloatCommon<double>::Exp10(double x) {
  if (std::isnan(x)) return x;
  if (x == std::trunc(x) && std::fabs(x) < 400) return Pow10(static_cast<int>(x));
  return std::pow(10.0, x);
}

double FloatCommon<double>::Round(double value, int digits, int mode) {
  if (value == 0 || !std::isfinite(value) || digits < 1 || digits > kMaxDigits) return value;
  // Decimal exponent of the leading digit; log10 can be one off next to a
  // power of ten, which the check below repairs.
  int e = static_cast<int>(std::floor(std::log10(std::fabs(value))));
  int s = digits - 1 - e;
  double y = Scale(value, s);
  if (std::fabs(y) >= Pow10(digits)) {
    --s;
    y = Scale(value, s);
  } else if (std::fabs(y) < Pow10(digits - 1)) {
    ++s;
    y = Scale(value, s);
  }
  // Past 2^53 a double has no fraction left to drop: the value already has
  // no more digits than asked for.
  if (std::fabs(y) >= 9007199254740992.0) return value;
  const double r = RoundInteger(y, mode);
  if (r == y) return value;  // nothing dropped: keep the original bits
  const double back = Scale(r, -s);
  return std::isfinite(back) ? back : value;
}

double FloatCommon<double>::StrictPrecision(double value) {
  if (qvi::IsNoValue(value)) return value;
  return Round(value, DBL_DIG, Nearest);
}

}  // namespace math::algorithm
