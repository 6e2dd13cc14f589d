#include "QVI/math/fn/interpolate/ScatteredPoints.h"

#include <algorithm>
#include <cmath>

namespace math::fn::interpolate {
namespace {
constexpr unsigned kMsgNotFinite = 33570;
}

gtl::status MergeCoincidentPoints(const std::vector<Point3D>& in, std::vector<Point3D>& out,
                                  ScatteredPointsReport* report) {
  out.clear();
  for (std::size_t i = 0; i < in.size(); ++i) {
    const Point3D& p = in[i];
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z))
      return gtl::status::error(kMsgNotFinite, i + 1, p.x, p.y, p.z);
  }
  std::vector<Point3D> sorted(in);
  std::sort(sorted.begin(), sorted.end(), [](const Point3D& a, const Point3D& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  });
  out.reserve(sorted.size());
  std::size_t merged = 0;
  for (std::size_t i = 0; i < sorted.size();) {
    std::size_t j = i;
    double sum = 0.0;
    while (j < sorted.size() && sorted[j].x == sorted[i].x && sorted[j].y == sorted[i].y)
      sum += sorted[j++].z;
    out.push_back({sorted[i].x, sorted[i].y, sum / static_cast<double>(j - i)});
    merged += j - i - 1;
    i = j;
  }
  if (report) report->nMerged = merged;
  return {};
}

Extent ExtentOf(const std::vector<Point3D>& points) {
  if (points.empty()) return {};
  Extent e{points[0].x, points[0].x, points[0].y, points[0].y};
  for (const Point3D& p : points) {
    e.xmin = std::min(e.xmin, p.x), e.xmax = std::max(e.xmax, p.x);
    e.ymin = std::min(e.ymin, p.y), e.ymax = std::max(e.ymax, p.y);
  }
  return e;
}

bool AllCollinear(const std::vector<Point3D>& points) {
  if (points.size() < 3) return true;
  // The line through the two points farthest apart along the wider axis;
  // a point off that line by more than a tiny fraction of the extent makes
  // a proper triangle.
  const Extent box = ExtentOf(points);
  const bool alongX = box.Width() >= box.Height();
  auto key = [&](const Point3D& p) { return alongX ? p.x : p.y; };
  const auto [lo, hi] = std::minmax_element(points.begin(), points.end(),
                                            [&](const Point3D& a, const Point3D& b) { return key(a) < key(b); });
  const double dx = hi->x - lo->x, dy = hi->y - lo->y;
  const double len = std::hypot(dx, dy);
  if (len == 0.0) return true;
  const double tol = 1e-12 * len;
  for (const Point3D& p : points) {
    const double dist = std::abs(dx * (p.y - lo->y) - dy * (p.x - lo->x)) / len;
    if (dist > tol) return false;
  }
  return true;
}

}  // namespace math::fn::interpolate
