#pragma once
// Time histories of ground motion: acceleration or velocity against time in
// the x or y direction ("FnXAcc", "FnXVel", "FnYAcc", "FnYVel"). Each is a
// point table interpolated by straight lines (the kind "Linear"), with its
// input and output quantities set: Time, and XAcceleration, XVelocity,
// YAcceleration or YVelocity.
//
// A velocity history is obtained from an acceleration record by integration
// (IntegrateAcceleration): the trapezoidal rule over the record's points,
// starting from rest at the first time. That is exact for the piecewise-
// linear acceleration the record stands for; the velocity between its
// points is then interpolated linearly (the exact velocity is quadratic
// there, so the error is at most |a'| dt^2 / 8 with a' the acceleration's change
// rate; records sampled at 0.01 s or 0.02 s keep it negligible).
#include <vector>

#include "V7Doc/functions/FnInterpolated.h"

namespace v7 {

// A history of one quantity against time: a "Linear" table under its own name.
class FnTimeHistory : public FnLinear {
 public:
  FnTimeHistory(const wchar_t* name, DataParamType output);
  std::wstring Name() const override { return name_; }
  FnImpl* Clone() const override { return new FnTimeHistory(*this); }

 private:
  const wchar_t* name_;
};

class FnXAcc : public FnTimeHistory {
 public:
  FnXAcc() : FnTimeHistory(L"FnXAcc", DataParamType::XAcceleration) {}
  FnImpl* Clone() const override { return new FnXAcc(*this); }
};
class FnXVel : public FnTimeHistory {
 public:
  FnXVel() : FnTimeHistory(L"FnXVel", DataParamType::XVelocity) {}
  FnImpl* Clone() const override { return new FnXVel(*this); }
};
class FnYAcc : public FnTimeHistory {
 public:
  FnYAcc() : FnTimeHistory(L"FnYAcc", DataParamType::YAcceleration) {}
  FnImpl* Clone() const override { return new FnYAcc(*this); }
};
class FnYVel : public FnTimeHistory {
 public:
  FnYVel() : FnTimeHistory(L"FnYVel", DataParamType::YVelocity) {}
  FnImpl* Clone() const override { return new FnYVel(*this); }
};

// The velocity at each time of an acceleration record (points sorted by time;
// points with a missing coordinate are skipped), starting from 0.
std::vector<FnPoint> IntegrateAcceleration(const std::vector<FnPoint>& acceleration);
// The velocity history of an acceleration history: an FnXVel for an FnXAcc,
// an FnYVel for an FnYAcc; the undefined function for any other kind.
IFn VelocityFromAcceleration(const IFn& acceleration);

}  // namespace v7
