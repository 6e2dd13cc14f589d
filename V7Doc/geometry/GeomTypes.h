#pragma once
// Plain geometric values of the drawing: points, segments and extents.
#include "QVI/qvi/Markers.h"

namespace v7::Geom {

// A point of the plane.
struct Point2D {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point2D&, const Point2D&) = default;
};

// A point of space.
struct Point3D {
  double x = 0;
  double y = 0;
  double z = 0;
  friend bool operator==(const Point3D&, const Point3D&) = default;
};

// A segment from `start` to `end`.
struct Line2D {
  Point2D start;
  Point2D end;
  friend bool operator==(const Line2D&, const Line2D&) = default;
};

// A bounding box of the plane; the default value is the empty extents, which
// any added point turns into that point's box.
struct Extents2D {
  double minX = qvi::kNoValue;
  double maxX = -qvi::kNoValue;
  double minY = qvi::kNoValue;
  double maxY = -qvi::kNoValue;

  // True for the empty extents (all four members at their empty values).
  bool IsEmpty() const {
    return minX == qvi::kNoValue && maxX == -qvi::kNoValue && minY == qvi::kNoValue &&
           maxY == -qvi::kNoValue;
  }
  // Grows the box to hold `p`.
  void Add(const Point2D& p) {
    if (p.x < minX) minX = p.x;
    if (p.x > maxX) maxX = p.x;
    if (p.y < minY) minY = p.y;
    if (p.y > maxY) maxY = p.y;
  }
  friend bool operator==(const Extents2D&, const Extents2D&) = default;
};

}  // namespace v7::Geom
