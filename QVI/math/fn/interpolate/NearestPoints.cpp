#include "QVI/math/fn/interpolate/NearestPoints.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <utility>

#include "QVI/math/fn/interpolate/ScatteredPoints.h"

namespace math::fn::interpolate {

void NearestPoints::Build(const std::vector<Point3D>& points) {
  points_ = &points;
  cellStart_.clear();
  index_.clear();
  nx_ = ny_ = 0;
  if (points.empty()) return;
  const Extent box = ExtentOf(points);
  const double w = box.Width(), h = box.Height();
  const double cells = std::max(1.0, static_cast<double>(points.size()) / 2.0);
  // Square cells over the extent; a flat extent (points on a line) gets one
  // row or column.
  const double side = (w > 0 && h > 0) ? std::sqrt(w * h / cells) : std::max(w, h) / cells;
  nx_ = side > 0 && w > 0 ? static_cast<std::int32_t>(std::clamp(std::ceil(w / side), 1.0, 4096.0)) : 1;
  ny_ = side > 0 && h > 0 ? static_cast<std::int32_t>(std::clamp(std::ceil(h / side), 1.0, 4096.0)) : 1;
  x0_ = box.xmin, y0_ = box.ymin;
  dx_ = w > 0 ? w / nx_ : 1.0;
  dy_ = h > 0 ? h / ny_ : 1.0;
  const std::size_t ncell = static_cast<std::size_t>(nx_) * ny_;
  std::vector<std::uint32_t> cellOf(points.size());
  cellStart_.assign(ncell + 1, 0);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto ci = std::clamp(static_cast<std::int32_t>((points[i].x - x0_) / dx_), 0, nx_ - 1);
    const auto cj = std::clamp(static_cast<std::int32_t>((points[i].y - y0_) / dy_), 0, ny_ - 1);
    cellOf[i] = static_cast<std::uint32_t>(cj * nx_ + ci);
    ++cellStart_[cellOf[i] + 1];
  }
  for (std::size_t c = 0; c < ncell; ++c) cellStart_[c + 1] += cellStart_[c];
  index_.resize(points.size());
  std::vector<std::uint32_t> fill(cellStart_.begin(), cellStart_.end() - 1);
  for (std::size_t i = 0; i < points.size(); ++i) index_[fill[cellOf[i]]++] = static_cast<std::uint32_t>(i);
}

void NearestPoints::Find(double x, double y, std::size_t k, std::vector<std::uint32_t>& out) const {
  out.clear();
  if (!points_ || points_->empty() || k == 0) return;
  const std::vector<Point3D>& pts = *points_;
  k = std::min(k, pts.size());
  // A max-heap on distance holds the k best so far.
  std::priority_queue<std::pair<double, std::uint32_t>> best;
  const auto ci = static_cast<std::int32_t>(std::clamp(std::floor((x - x0_) / dx_), 0.0, nx_ - 1.0));
  const auto cj = static_cast<std::int32_t>(std::clamp(std::floor((y - y0_) / dy_), 0.0, ny_ - 1.0));
  const double cell = std::min(dx_, dy_);
  const std::int32_t maxRing = std::max(nx_, ny_);
  auto visit = [&](std::int32_t i, std::int32_t j) {
    if (i < 0 || i >= nx_ || j < 0 || j >= ny_) return;
    const std::size_t c = static_cast<std::size_t>(j) * nx_ + i;
    for (std::uint32_t s = cellStart_[c]; s < cellStart_[c + 1]; ++s) {
      const Point3D& p = pts[index_[s]];
      const double d2 = (p.x - x) * (p.x - x) + (p.y - y) * (p.y - y);
      if (best.size() < k) best.emplace(d2, index_[s]);
      else if (d2 < best.top().first) {
        best.pop();
        best.emplace(d2, index_[s]);
      }
    }
  };
  // Ring r is the border of the (2r+1)-square of cells around the query's
  // cell, clipped to the grid: a query near one end of a long, thin grid
  // would otherwise walk thousands of empty rings outside it (points
  // clustered at one end of a wide extent made each query cost millions of
  // visits). The walk ends when the ring has covered the whole grid.
  for (std::int32_t r = 0; r <= maxRing; ++r) {
    const std::int32_t i0 = ci - r, i1 = ci + r, j0 = cj - r, j1 = cj + r;
    if (r == 0) {
      visit(ci, cj);
    } else {
      const std::int32_t ilo = std::max(i0, 0), ihi = std::min(i1, nx_ - 1);
      const std::int32_t jlo = std::max(j0 + 1, 0), jhi = std::min(j1 - 1, ny_ - 1);
      if (j0 >= 0) for (std::int32_t i = ilo; i <= ihi; ++i) visit(i, j0);
      if (j1 < ny_) for (std::int32_t i = ilo; i <= ihi; ++i) visit(i, j1);
      if (i0 >= 0) for (std::int32_t j = jlo; j <= jhi; ++j) visit(i0, j);
      if (i1 < nx_) for (std::int32_t j = jlo; j <= jhi; ++j) visit(i1, j);
    }
    if (i0 <= 0 && j0 <= 0 && i1 >= nx_ - 1 && j1 >= ny_ - 1) break;
    // Cells beyond ring r lie at least r cell widths from the query.
    if (best.size() == k && best.top().first <= (r * cell) * (r * cell)) break;
  }
  out.resize(best.size());
  for (std::size_t i = best.size(); i-- > 0;) {
    out[i] = best.top().second;
    best.pop();
  }
}

}  // namespace math::fn::interpolate
