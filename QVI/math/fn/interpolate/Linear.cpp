#include "QVI/math/fn/interpolate/Linear.h"

namespace math::fn::interpolate {

double Linear::OutsideValue(double u) const {
  double out = 0;
  std::size_t i = 0;
  if (Outside(u, v_, i, out)) return out;
  const double t = (u - u_[i]) / (u_[i + 1] - u_[i]);  // not reached: Inside said no
  return FromV(v_[i] + t * (v_[i + 1] - v_[i]));
}

void Linear::Evaluate(const double* in, double* out, std::size_t n) const {
  const std::size_t m = u_.size();
  if (m < 2 || LogX() || LogY()) {
    for (std::size_t i = 0; i < n; ++i) out[i] = (*this)(in[i]);
    return;
  }
  // Linear axes: operator() with the table held in locals; inputs outside
  // the points (and NaN) take the general path. Same arithmetic, same values.
  const double* u = u_.data();
  const double* v = v_.data();
  const double lo = u[0], hi = u[m - 1];
  for (std::size_t i = 0; i < n; ++i) {
    const double x = in[i];
    if (!(x >= lo && x <= hi)) {
      out[i] = (*this)(x);
      continue;
    }
    const std::size_t k = Interval(x);
    const double t = (x - u[k]) / (u[k + 1] - u[k]);
    out[i] = v[k] + t * (v[k + 1] - v[k]);
  }
}

}  // namespace math::fn::interpolate
