#include "QVI/math/fn/interpolate/Linear.h"

namespace math::fn::interpolate {

double Linear::OutsideValue(double u) const {
  double out = 0;
  std::size_t i = 0;
  if (Outside(u, v_, i, out)) return out;
  const double t = (u - u_[i]) / (u_[i + 1] - u_[i]);  // not reached: Inside said no
  return FromV(v_[i] + t * (v_[i + 1] - v_[i]));
}

}  // namespace math::fn::interpolate
