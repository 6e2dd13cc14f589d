#pragma once
// The array form that the interpolators on linear axes share: an input
// within the points goes straight to its segment's formula with the search
// for the interval being the table's own (Table::Interval); any other input (outside the points,
// NaN) takes the interpolator's general path. Same arithmetic, same values as one call at a time.
// Included by the interpolators' own sources only.
#include <algorithm>
#include <cstddef>
#include <vector>

namespace math::fn::interpolate {

// out[i] for i < n: segment(k, x) for an input x with u[k] <= x <= u[k+1],
// k = interval(x), general(x) for the others. `knots` holds at least two
// values, sorted.
template <class General, class Interval, class Segment>
void EvaluateWithin(const std::vector<double>& knots, const double* in, double* out, std::size_t n,
                    const General& general, const Interval& interval, const Segment& segment) {
  const double* u = knots.data();
  const std::size_t m = knots.size();
  const double lo = u[0], hi = u[m - 1];
  for (std::size_t i = 0; i < n; ++i) {
    const double x = in[i];
    if (!(x >= lo && x <= hi)) {
      out[i] = general(x);
      continue;
    }
    out[i] = segment(interval(x), x);
  }
}

}  // namespace math::fn::interpolate
