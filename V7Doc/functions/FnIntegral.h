#pragma once
// The running integral of a function over its input ("FnIntegral"):
//     F(x) = integral from x_0 to x of f(t) dt,
// x_0 being the first point of the integration grid. The grid is the x of the
// points handed over by Assign, or, when none were, the integrand's own
// natural input points. Each grid interval is integrated by the composite
// Simpson rule with "Steps" panels (the constructor's int argument), the
// part-interval up to x likewise. Outside the grid, or where the integrand
// has no value, the integral has none.
#include <cstdint>

#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

class FnIntegral : public FnDataPoints {
 public:
  static constexpr std::uint32_t kDefaultSteps = 4;

  FnIntegral() = default;
  FnIntegral(const IFn& fn, int steps, DataParamType input, DataParamType output);

  std::wstring Name() const override { return L"FnIntegral"; }
  FnImpl* Clone() const override { return new FnIntegral(*this); }
  // "Function" (the integrand's type name, or its number for a constant),
  // "Function.<attr>" for each of its data attributes, then "Steps".
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  double Calculate(const double* x, const double* y) const override;
  double InputRangeAt(int index) const override;
  int InputRangeNumPoints() const override;
  gtl::status UpdateCalculatedValues() override;

  const IFn& Integrand() const { return fn_; }
  std::uint32_t Steps() const { return steps_; }

 protected:
  void OnPointsChanged() override { Rebuild(); }

 private:
  void Rebuild();
  // Simpson's rule over [a, b] with steps_ panels; kNoValue if f has none.
  double Simpson(double a, double b) const;

  IFn fn_;
  std::uint32_t steps_ = kDefaultSteps;
  std::vector<double> grid_;  // integration grid, ascending
  std::vector<double> cum_;   // F at the grid points
};

}  // namespace v7
