#include "QVI/math/algorithm/DecimalExponent.h"

#include <cmath>

namespace math::algorithm {

int DecimalExponent(double v) {
  const double a = std::fabs(v);
  if (!(a > 0) || !std::isfinite(a)) return 0;
  // log10 may land a hair below an exact power of ten, or round a value just
  // below one up to it; correct by one step against std::pow, whose results
  // for integral exponents are exact up to 1e22 and correctly rounded beyond.
  int e = static_cast<int>(std::floor(std::log10(a)));
  if (std::pow(10.0, e) > a) --e;
  else if (e < 308 && std::pow(10.0, e + 1) <= a) ++e;
  return e;
}

double DecimalMagnitude(double v) { return std::pow(10.0, DecimalExponent(v)); }

}  // namespace math::algorithm
