#pragma once
// The tolerance model of the geometry: per axis, the number of significant
// decimal places, derived from the extents of the drawing. Two coordinates
// closer than half a unit of the last significant place are the same.
#include <cstdint>

#include "V7Doc/geometry/GeomTypes.h"

namespace v7::Geom {

class Precision3D {
 public:
  // Undefined precision: digits kNone, epsilon and tolerance kNoValue on every
  // axis, so that every pair of finite coordinates counts as equal.
  Precision3D();
  // Digits per axis; epsilon = 10^-digits, tolerance = epsilon / 2.
  Precision3D(std::int32_t digitsX, std::int32_t digitsY, std::int32_t digitsZ);

  // Sets the digits of x, y, z and derives epsilon and tolerance.
  void Set(const std::int32_t digits[3]);

  // Scales every axis's epsilon by `f`, then digits = -trunc(log10(eps) + 0.5)
  // with truncation toward zero, and tolerance = eps / 2. The truncation is
  // kept as it always was: stored documents carry the digit counts it gives
  // (eps 0.001 yields 2 digits, not 3). A scaled epsilon that is not a
  // positive finite number leaves that axis undefined.
  void ScaleEpsilon(double f);

  // The error allowed when coordinates are written to and read from a file:
  // a hundredth of the axis tolerance.
  double FileErrorX() const { return tolerance_[0] * 0.01; }
  double FileErrorY() const { return tolerance_[1] * 0.01; }
  double FileErrorZ() const { return tolerance_[2] * 0.01; }

  // Axis 0 = x, 1 = y, 2 = z.
  std::int32_t Digits(int axis) const { return digits_[axis]; }
  double Epsilon(int axis) const { return epsilon_[axis]; }
  double Tolerance(int axis) const { return tolerance_[axis]; }

  // Equal digits on every axis; epsilon and tolerance are not compared.
  friend bool operator==(const Precision3D& a, const Precision3D& b);

 private:
  void SetAxis(int axis, std::int32_t digits);

  std::int32_t digits_[3];
  double epsilon_[3];
  double tolerance_[3];
};

// The precision every comparison of the geometry uses unless told otherwise.
// Before any SetCompPrecision it is Precision3D(7, 7, 7), the precision of an
// empty drawing.
const Precision3D& Precision();
// Replaces the current comparison precision.
void SetCompPrecision(const Precision3D& precision);

// The precision of a drawing reaching `extents`: eight significant digits in
// all, at most seven after the decimal point; z takes the smaller of x and y.
// Empty extents give (7, 7, 7).
Precision3D ComputePrecisionOfExtents(const Extents2D& extents);

}  // namespace v7::Geom
