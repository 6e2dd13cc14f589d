#include "QVI/math/fn/interpolate/Linear.h"

#include "QVI/math/fn/interpolate/EvaluateWithin.h"

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
  const double* u = u_.data();
  const double* v = v_.data();
  EvaluateWithin(
      u_, in, out, n, *this, [this](double x) { return Interval(x); },
      [u, v](std::size_t k, double x) {
        const double t = (x - u[k]) / (u[k + 1] - u[k]);
        return v[k] + t * (v[k + 1] - v[k]);
      });
}

}  // namespace math::fn::interpolate
