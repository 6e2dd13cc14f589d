#include "QVI/math/fn/interpolate/Step.h"

namespace math::fn::interpolate {

double Step::operator()(double x) const {
  double u = 0, out = 0;
  std::size_t i = 0;
  if (!ToU(x, u)) return qvi::kNoValue;
  if (!Inside(u, i) && Outside(u, v_, i, out)) return out;
  return FromV(u >= u_[i + 1] ? v_[i + 1] : v_[i]);
}

void Step::Evaluate(const double* in, double* out, std::size_t n) const {
  for (std::size_t i = 0; i < n; ++i) out[i] = (*this)(in[i]);
}

}  // namespace math::fn::interpolate
