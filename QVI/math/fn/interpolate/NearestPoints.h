#pragma once
// The k points nearest a query among scattered points in the plane, through a
// uniform grid of buckets (about two points per cell). A query visits rings
// of cells around its own until k points are held and no unvisited cell can
// be nearer than the k-th, so for points spread over the plane it costs
// O(k) on average, whatever their number.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "QVI/math/fn/I3D.h"

namespace math::fn::interpolate {

class NearestPoints {
 public:
  // Indexes `points` (positions only; the caller keeps the points).
  void Build(const std::vector<Point3D>& points);
  // Indices of the min(k, n) points nearest (x, y), nearest first.
  void Find(double x, double y, std::size_t k, std::vector<std::uint32_t>& out) const;

 private:
  const std::vector<Point3D>* points_ = nullptr;
  double x0_ = 0, y0_ = 0, dx_ = 1, dy_ = 1;
  std::int32_t nx_ = 0, ny_ = 0;
  std::vector<std::uint32_t> cellStart_;  // bucket c is [cellStart_[c], cellStart_[c+1])
  std::vector<std::uint32_t> index_;
};

}  // namespace math::fn::interpolate
