#pragma once
// Straight lines between the points of a table (in log coordinates on log
// axes: a power law between points when both axes are logarithmic).
#include "QVI/math/fn/interpolate/Table.h"

namespace math::fn::interpolate {

class Linear : public Table {
 public:
  // The interpolated value at `x`; qvi::kNoValue outside the points where no
  // tail is set, on an empty table, or for an input the axis cannot take.
  double operator()(double x) const;
  double Calculate(double x) const { return (*this)(x); }
};

}  // namespace math::fn::interpolate
