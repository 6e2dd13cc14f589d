#pragma once
// Comparisons of points and lines under a Precision3D, and the comparators
// that carry one for searches and sorted containers.
#include <vector>

#include "V7Doc/geometry/Precision3D.h"

namespace v7::Geom {

// Each axis matches when exactly equal or |difference| <= that axis's
// tolerance (an undefined tolerance matches every pair of finite values).
bool IsEqual2D(const Point2D& a, const Point2D& b, const Precision3D& p = Precision());
bool IsEqual3D(const Point3D& a, const Point3D& b, const Precision3D& p = Precision());
// Same length and pairwise equal in order; two empty vectors are equal.
bool IsEqual3D(const std::vector<Point3D>& a, const std::vector<Point3D>& b,
               const Precision3D& p = Precision());
// Equal end points in either direction.
bool IsEqual2D(const Line2D& a, const Line2D& b, const Precision3D& p = Precision());

// Bit-for-bit comparison of the coordinates (no tolerance).
bool IsExactEqual2D(const Point2D& a, const Point2D& b);
bool IsExactEqual3D(const Point3D& a, const Point3D& b);

// The closest point to q on the infinite line through p1 and p2 (not clamped
// to the segment); p1 itself when p1 and p2 are equal under `p`.
Point2D InfLineClosestPoint2D(const Point2D& p1, const Point2D& p2, const Point2D& q,
                              const Precision3D& p = Precision());

// Equality of points under a precision, as a function object.
struct engequal_Point2D {
  Precision3D precision = Precision();
  bool operator()(const Point2D& a, const Point2D& b) const { return IsEqual2D(a, b, precision); }
};
struct engequal_Point3D {
  Precision3D precision = Precision();
  bool operator()(const Point3D& a, const Point3D& b) const { return IsEqual3D(a, b, precision); }
};

// An ordering of points for sorted containers, lexicographic in x then y.
//
// A "less" built straight on the tolerance (a < b when b - a > tol) is not a
// strict weak order: its equivalence is not transitive (0, 0.4e-7, 0.8e-7
// under tolerance 0.5e-7). This one compares each coordinate snapped to the
// precision grid, GridKey(v) = floor(v / epsilon + 0.5): the value as printed
// with the axis's digits. GridKey is monotone in v, so the lexicographic
// order of keys is a strict weak order, and two points are equivalent exactly
// when they print the same at the precision. Consistency with IsEqual2D:
// equivalent points differ by less than one epsilon per axis, and points
// equal under IsEqual2D have keys at most one step apart. A NaN coordinate
// orders after every number.
struct engless_Point2D {
  Precision3D precision = Precision();
  bool operator()(const Point2D& a, const Point2D& b) const;
};

// The grid key of coordinate v on an axis of `epsilon` (see engless_Point2D).
double GridKey(double v, double epsilon);

}  // namespace v7::Geom
