#pragma once
// A staircase through the points of a table: the value of a point holds from
// its x up to (not including) the next point's x; the last point's value
// holds at its own x only, beyond it the tail decides.
#include "QVI/math/fn/interpolate/Table.h"

namespace math::fn::interpolate {

class Step : public Table {
 public:
  // The step value at `x`; qvi::kNoValue where Linear would give none.
  double operator()(double x) const;
  double Calculate(double x) const { return (*this)(x); }
  // operator() at in[i] into out[i] for i < n.
  void Evaluate(const double* in, double* out, std::size_t n) const;
};

}  // namespace math::fn::interpolate
