#include "V7Doc/geometry/Precision3D.h"

#include <algorithm>
#include <cmath>

#include "QVI/math/algorithm/DecimalExponent.h"

namespace v7::Geom {
namespace {

Precision3D& Current() {
  static Precision3D current(7, 7, 7);
  return current;
}

// Decimal places of a coordinate of magnitude v when `significant` digits are
// kept in all and at most `maxPlaces` after the point. Adding half a unit of
// the fifth significant place lets a value that rounds up to the next power
// of ten count as that power (99999.6 counts as 100000).
std::int32_t Places(double v, int significant, int maxPlaces) {
  if (v == qvi::kNoValue) return maxPlaces;
  const double w = v + 5e-5 * math::algorithm::DecimalMagnitude(v);
  return std::min(maxPlaces, significant - math::algorithm::DecimalExponent(w) - 1);
}

}  // namespace

Precision3D::Precision3D() {
  for (int i = 0; i < 3; ++i) {
    digits_[i] = qvi::kNone;
    epsilon_[i] = qvi::kNoValue;
    tolerance_[i] = qvi::kNoValue;
  }
}

Precision3D::Precision3D(std::int32_t digitsX, std::int32_t digitsY, std::int32_t digitsZ) {
  SetAxis(0, digitsX);
  SetAxis(1, digitsY);
  SetAxis(2, digitsZ);
}

void Precision3D::Set(const std::int32_t digits[3]) {
  for (int i = 0; i < 3; ++i) SetAxis(i, digits[i]);
}

void Precision3D::SetAxis(int axis, std::int32_t digits) {
  digits_[axis] = digits;
  epsilon_[axis] = std::pow(10.0, -static_cast<double>(digits));
  tolerance_[axis] = epsilon_[axis] * 0.5;
}

void Precision3D::ScaleEpsilon(double f) {
  for (int i = 0; i < 3; ++i) {
    const double eps = epsilon_[i] * f;
    if (!(eps > 0) || !std::isfinite(eps) || eps == qvi::kNoValue) {
      digits_[i] = qvi::kNone;
      epsilon_[i] = qvi::kNoValue;
      tolerance_[i] = qvi::kNoValue;
      continue;
    }
    epsilon_[i] = eps;
    // std::trunc rounds toward zero: -2.5 becomes -2. Deliberate, see header.
    digits_[i] = -static_cast<std::int32_t>(std::trunc(std::log10(eps) + 0.5));
    tolerance_[i] = eps * 0.5;
  }
}

bool operator==(const Precision3D& a, const Precision3D& b) {
  return a.digits_[0] == b.digits_[0] && a.digits_[1] == b.digits_[1] &&
         a.digits_[2] == b.digits_[2];
}

const Precision3D& Precision() { return Current(); }

void SetCompPrecision(const Precision3D& precision) { Current() = precision; }

Precision3D ComputePrecisionOfExtents(const Extents2D& e) {
  if (e.IsEmpty()) return Precision3D(7, 7, 7);
  const double mx = std::max(std::fabs(e.minX), std::fabs(e.maxX));
  const double my = std::max(std::fabs(e.minY), std::fabs(e.maxY));
  const std::int32_t dx = Places(mx, 8, 7);
  const std::int32_t dy = Places(my, 8, 7);
  return Precision3D(dx, dy, std::min(dx, dy));
}

}  // namespace v7::Geom
