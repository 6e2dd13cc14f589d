#include "V7Doc/geometry/GeomCompare.h"

#include <cmath>
#include <limits>

namespace v7::Geom {
namespace {

bool AxisMatches(double a, double b, double tolerance) {
  if (a == b) return true;
  // Under the undefined precision every pair of finite values matches, even
  // when their difference overflows.
  if (tolerance == qvi::kNoValue) return std::isfinite(a) && std::isfinite(b);
  return std::fabs(a - b) <= tolerance;
}

}  // namespace

bool IsEqual2D(const Point2D& a, const Point2D& b, const Precision3D& p) {
  return AxisMatches(a.x, b.x, p.Tolerance(0)) && AxisMatches(a.y, b.y, p.Tolerance(1));
}

bool IsEqual3D(const Point3D& a, const Point3D& b, const Precision3D& p) {
  return AxisMatches(a.x, b.x, p.Tolerance(0)) && AxisMatches(a.y, b.y, p.Tolerance(1)) &&
         AxisMatches(a.z, b.z, p.Tolerance(2));
}

bool IsEqual3D(const std::vector<Point3D>& a, const std::vector<Point3D>& b,
               const Precision3D& p) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (!IsEqual3D(a[i], b[i], p)) return false;
  return true;
}

bool IsEqual2D(const Line2D& a, const Line2D& b, const Precision3D& p) {
  return (IsEqual2D(a.start, b.start, p) && IsEqual2D(a.end, b.end, p)) ||
         (IsEqual2D(a.start, b.end, p) && IsEqual2D(a.end, b.start, p));
}

bool IsExactEqual2D(const Point2D& a, const Point2D& b) { return a.x == b.x && a.y == b.y; }

bool IsExactEqual3D(const Point3D& a, const Point3D& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

Point2D InfLineClosestPoint2D(const Point2D& p1, const Point2D& p2, const Point2D& q,
                              const Precision3D& p) {
  if (IsEqual2D(p1, p2, p)) return p1;
  const double dx = p2.x - p1.x, dy = p2.y - p1.y;
  const double t = ((q.x - p1.x) * dx + (q.y - p1.y) * dy) / (dx * dx + dy * dy);
  return {p1.x + t * dx, p1.y + t * dy};
}

double GridKey(double v, double epsilon) {
  if (std::isnan(v)) return std::numeric_limits<double>::infinity();
  // A zero epsilon (digits beyond any double) is the finest grid: the value.
  if (!(epsilon > 0)) return v;
  return std::floor(v / epsilon + 0.5);
}

bool engless_Point2D::operator()(const Point2D& a, const Point2D& b) const {
  const double ax = GridKey(a.x, precision.Epsilon(0)), bx = GridKey(b.x, precision.Epsilon(0));
  if (ax != bx) return ax < bx;
  return GridKey(a.y, precision.Epsilon(1)) < GridKey(b.y, precision.Epsilon(1));
}

}  // namespace v7::Geom
