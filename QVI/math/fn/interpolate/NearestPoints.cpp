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
  for (std::int32_t r = 0; r <= maxRing; ++r) {
    if (r == 0) {
      visit(ci, cj);
    } else {
      for (std::int32_t i = ci - r; i <= ci + r; ++i) visit(i, cj - r), visit(i, cj + r);
      for (std::int32_t j = cj - r + 1; j <= cj + r - 1; ++j) visit(ci - r, j), visit(ci + r, j);
    }
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
