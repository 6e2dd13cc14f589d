#pragma once
// The interpolating kinds: a point table evaluated by straight lines, steps
// or a spline, with optional tails before the first and after the last point.
#include <algorithm>

#include "QVI/math/fn/interpolate/Linear.h"
#include "QVI/math/fn/interpolate/Spline.h"
#include "QVI/math/fn/interpolate/Step.h"
#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

// What the interpolating kinds share: the tails "SlopeBefore"/"SlopeAfter"
// and the natural input range (the points' x).
class FnInterpolated : public FnDataPoints {
 public:
  using FnDataPoints::FnDataPoints;

  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  double InputRangeAt(int index) const override;
  int InputRangeNumPoints() const override;

  // The interpolation table behind the kind.
  virtual math::fn::interpolate::Table& Table() = 0;
  virtual const math::fn::interpolate::Table& Table() const = 0;

 protected:
  void OnPointsChanged() override;
  // Reads one attribute of the kind's own; false when the name is not its own.
  virtual bool ReadOwnAttribute(const FnAttr& a, gtl::status& s);
  // Sets no-tail ends to slope-0 continuations (copies of Linear and Step).
  void FlatTailsWhereNone();
};

// Straight lines between points ("Linear").
class FnLinear : public FnInterpolated {
 public:
  FnLinear() = default;
  FnLinear(const FnLinear& o);
  std::wstring Name() const override { return L"Linear"; }
  FnImpl* Clone() const override { return new FnLinear(*this); }
  double Calculate(const double* x, const double*) const override { return interp_(*x); }
  void Evaluate(std::span<const double> in, std::span<double> out) const override {
    interp_.Evaluate(in.data(), out.data(), std::min(in.size(), out.size()));
  }
  math::fn::interpolate::Table& Table() override { return interp_; }
  const math::fn::interpolate::Table& Table() const override { return interp_; }

 private:
  math::fn::interpolate::Linear interp_;
};

// Constant from one point to the next ("Step").
class FnStep : public FnInterpolated {
 public:
  FnStep() = default;
  FnStep(const FnStep& o);
  std::wstring Name() const override { return L"Step"; }
  FnImpl* Clone() const override { return new FnStep(*this); }
  double Calculate(const double* x, const double*) const override { return interp_(*x); }
  void Evaluate(std::span<const double> in, std::span<double> out) const override {
    interp_.Evaluate(in.data(), out.data(), std::min(in.size(), out.size()));
  }
  math::fn::interpolate::Table& Table() override { return interp_; }
  const math::fn::interpolate::Table& Table() const override { return interp_; }

 private:
  math::fn::interpolate::Step interp_;
};

// A smoothing spline under tension ("Spline"), optionally on log axes.
class FnSpline : public FnInterpolated {
 public:
  FnSpline() = default;
  std::wstring Name() const override { return L"Spline"; }
  FnImpl* Clone() const override { return new FnSpline(*this); }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  double Calculate(const double* x, const double*) const override { return interp_(*x); }
  void Evaluate(std::span<const double> in, std::span<double> out) const override {
    interp_.Evaluate(in.data(), out.data(), std::min(in.size(), out.size()));
  }
  math::fn::interpolate::Table& Table() override { return interp_; }
  const math::fn::interpolate::Table& Table() const override { return interp_; }
  const math::fn::interpolate::Spline& Spline() const { return interp_; }

 protected:
  bool ReadOwnAttribute(const FnAttr& a, gtl::status& s) override;
  math::fn::interpolate::Spline interp_;
};

// As Spline, never below zero ("SplineGEZero").
class FnSplineGEZero : public FnSpline {
 public:
  std::wstring Name() const override { return L"SplineGEZero"; }
  FnImpl* Clone() const override { return new FnSplineGEZero(*this); }
  double Calculate(const double* x, const double*) const override;
  void Evaluate(std::span<const double> in, std::span<double> out) const override;
};

// A drawn volumetric water-content function ("VolWCSpline"): a spline that
// never goes below zero, since a water content cannot.
class FnVolWCSpline : public FnSplineGEZero {
 public:
  FnVolWCSpline();
  std::wstring Name() const override { return L"VolWCSpline"; }
  FnImpl* Clone() const override { return new FnVolWCSpline(*this); }
};

// A drawn hydraulic-conductivity function ("HydKFn"). Conductivity spans
// orders of magnitude, so a new one interpolates log10 of the output; the
// input (pore-water pressure, negative in suction) stays linear.
class FnHydKSpline : public FnSpline {
 public:
  FnHydKSpline();
  std::wstring Name() const override { return L"HydKFn"; }
  FnImpl* Clone() const override { return new FnHydKSpline(*this); }
};

// A drawn function of strength against pore-water pressure ("MFSPWPFn").
class FnMFSPWP : public FnSpline {
 public:
  FnMFSPWP();
  std::wstring Name() const override { return L"MFSPWPFn"; }
  FnImpl* Clone() const override { return new FnMFSPWP(*this); }
};

}  // namespace v7
