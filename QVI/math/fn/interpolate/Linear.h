#pragma once
// Straight lines between the points of a table (in log coordinates on log
// axes: a power law between points when both axes are logarithmic).
#include "QVI/math/fn/interpolate/Table.h"

namespace math::fn::interpolate {

class Linear : public Table {
 public:
  // The interpolated value at `x`; qvi::kNoValue outside the points where no
  // tail is set, on an empty table, or for an input the axis cannot take.
  // Inline: it is the innermost call of every evaluation.
  double operator()(double x) const {
    double u = 0;
    std::size_t i = 0;
    if (!ToU(x, u)) return qvi::kNoValue;
    if (!Inside(u, i)) return OutsideValue(u);
    const double t = (u - u_[i]) / (u_[i + 1] - u_[i]);
    return FromV(v_[i] + t * (v_[i + 1] - v_[i]));
  }
  double Calculate(double x) const { return (*this)(x); }
  // operator() at in[i] into out[i] for i < n.
  void Evaluate(const double* in, double* out, std::size_t n) const;

 private:
  double OutsideValue(double u) const;
};

}  // namespace math::fn::interpolate
