#pragma once
// Functions defined by a table of points that Func2D hands them.
#include <vector>

#include "V7Doc/functions/FnImpl.h"

namespace v7 {

// One point of a function table: x, y and a third value carried with the
// point. A coordinate equal to qvi::kNoValue is missing. A new point's x and y
// are missing (the open row the user is typing); its third value is 0, so
// that a point is complete once x and y are given.
struct FnPoint {
  double x = qvi::kNoValue;
  double y = qvi::kNoValue;
  double z = 0.0;

  // True when any coordinate is missing.
  bool HasMissing() const { return qvi::IsNoValue(x) || qvi::IsNoValue(y) || qvi::IsNoValue(z); }
  friend bool operator==(const FnPoint&, const FnPoint&) = default;
};

// What a function that takes data points offers its owner.
class IFnDataPoints {
 public:
  virtual ~IFnDataPoints() = default;
  // Replaces the function's points by [first, last), leaving out every
  // point with a missing coordinate.
  virtual void Assign(const FnPoint* first, const FnPoint* last) = 0;
  // The points held.
  virtual const std::vector<FnPoint>& DataPoints() const = 0;
};

// Base of the kinds that hold data points; derived kinds rebuild what they
// derive from the points in OnPointsChanged.
class FnDataPoints : public FnImpl, public IFnDataPoints {
 public:
  using FnImpl::FnImpl;

  void Assign(const FnPoint* first, const FnPoint* last) override;
  const std::vector<FnPoint>& DataPoints() const override { return points_; }
  // Rebuilds from the points.
  gtl::status UpdateCalculatedValues() override;

 protected:
  virtual void OnPointsChanged() {}

  std::vector<FnPoint> points_;
};

}  // namespace v7
