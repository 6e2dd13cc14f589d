#include "QVI/math/fn/QuadraticEqn.h"

#include <cfloat>
#include <cmath>
#include <utility>

namespace math::fn {

int QuadraticEqn::Solve(double a, double b, double c, double tolerance, double bound, double& x1,
                        double& x2) {
  double roots[2];
  int n = 0;
  if (std::fabs(a) <= tolerance) {
    if (std::fabs(b) <= tolerance) return 0;
    roots[n++] = -c / b;
  } else {
    double disc = b * b - 4.0 * a * c;
    const double scale = b * b + std::fabs(4.0 * a * c);
    if (disc < 0 && -disc <= 64.0 * DBL_EPSILON * scale) disc = 0;
    if (!(disc >= 0)) return 0;  // also refuses NaN
    if (disc == 0) {
      roots[n++] = -b / (2.0 * a);
    } else {
      const double q = -0.5 * (b + std::copysign(std::sqrt(disc), b));
      roots[n++] = q / a;
      roots[n++] = c / q;  // q != 0: disc > 0 makes |q| > 0
      if (roots[1] < roots[0]) std::swap(roots[0], roots[1]);
    }
  }
  double kept[2];
  int m = 0;
  for (int i = 0; i < n; ++i)
    if (std::isfinite(roots[i]) && std::fabs(roots[i]) <= bound) kept[m++] = roots[i];
  if (m > 0) x1 = kept[0];
  if (m > 1) x2 = kept[1];
  return m;
}

}  // namespace math::fn
