#pragma once
// A surface over the plane: a value z at every (x, y), fitted to scattered
// points (x, y, z).
#include <vector>

#include "QVI/gtl/status.h"

namespace math::fn {

// One scattered data point: position (x, y) and value z.
struct Point3D {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  friend bool operator==(const Point3D&, const Point3D&) = default;
};

class I3D {
 public:
  virtual ~I3D() = default;
  // Replaces the points the surface is fitted to and fits it again. A
  // failure leaves a surface that has no value anywhere.
  virtual gtl::status SetPoints(const std::vector<Point3D>& points) = 0;
  // The surface value at (x, y); qvi::kNoValue where the surface has none.
  virtual double Calculate(double x, double y) const = 0;
  // The status of the last fit.
  virtual gtl::status LastError() const = 0;
};

}  // namespace math::fn
