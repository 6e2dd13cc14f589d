#pragma once
// Cleaning scattered points before a surface is fitted to them.
#include <cstddef>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/I3D.h"

namespace math::fn::interpolate {

// What MergeCoincidentPoints found.
struct ScatteredPointsReport {
  std::size_t nMerged = 0;  // points folded into an earlier point at the same place
};

// `out` receives the points of `in` with every group of points at the same
// (x, y) replaced by one point carrying the mean of their values, sorted by
// x then y. Refused (an error naming the first such point, `out` emptied)
// when a coordinate or value is not finite. O(n log n), so that a million
// copies of one point cost no more than a sort.
//
// Averaging is the choice for repeated measurements at one place: neither a
// triangulation nor a kriging system can hold two values at one position.
gtl::status MergeCoincidentPoints(const std::vector<Point3D>& in, std::vector<Point3D>& out,
                                  ScatteredPointsReport* report = nullptr);

// The bounding box of the points' positions (all zero for no point).
struct Extent {
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  double Width() const { return xmax - xmin; }
  double Height() const { return ymax - ymin; }
};
Extent ExtentOf(const std::vector<Point3D>& points);

// True when every point lies on one straight line through the first two
// extreme points, within a relative tolerance of the points' extent (also
// true for fewer than three points).
bool AllCollinear(const std::vector<Point3D>& points);

}  // namespace math::fn::interpolate
