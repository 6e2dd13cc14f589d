#include "QVI/math/fn/interpolate/Table.h"

#include <algorithm>
#include <cmath>

namespace math::fn::interpolate {

void Table::Assign(const std::vector<Point>& points) {
  raw_ = points;
  Transform();
}

void Table::Assign(const double* x, const double* y, std::size_t n) {
  raw_.clear();
  raw_.reserve(n);
  for (std::size_t i = 0; i < n; ++i) raw_.push_back({x[i], y[i]});
  Transform();
}

void Table::Clear() {
  raw_.clear();
  Transform();
}

void Table::SetLogX(bool b) {
  if (b == bLogX_) return;
  bLogX_ = b;
  Transform();
}

void Table::SetLogY(bool b) {
  if (b == bLogY_) return;
  bLogY_ = b;
  Transform();
}

void Table::Transform() {
  points_.clear();
  points_.reserve(raw_.size());
  for (const Point& p : raw_) {
    // The no-value marker is finite, so it is tested apart: a point that
    // holds it is missing, never data.
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || qvi::IsNoValue(p.x) || qvi::IsNoValue(p.y))
      continue;
    if ((bLogX_ && p.x <= 0) || (bLogY_ && p.y <= 0)) continue;
    points_.push_back(p);
  }
  // Tables arrive sorted almost always (drawn, tabulated or read back): sort
  // and drop repeated x only when there is something to do.
  const auto byX = [](const Point& a, const Point& b) { return a.x < b.x; };
  if (!std::is_sorted(points_.begin(), points_.end(), byX)) std::stable_sort(points_.begin(), points_.end(), byX);
  // Of equal x keep the last given: after a stable sort it is the last of
  // its run.
  const auto sameX = [](const Point& a, const Point& b) { return a.x == b.x; };
  if (std::adjacent_find(points_.begin(), points_.end(), sameX) != points_.end()) {
    std::vector<Point> kept;
    kept.reserve(points_.size());
    for (std::size_t i = 0; i < points_.size(); ++i)
      if (i + 1 == points_.size() || points_[i + 1].x != points_[i].x) kept.push_back(points_[i]);
    points_ = std::move(kept);
  }
  u_.resize(points_.size());
  v_.resize(points_.size());
  for (std::size_t i = 0; i < points_.size(); ++i) {
    u_[i] = bLogX_ ? std::log10(points_[i].x) : points_[i].x;
    v_[i] = bLogY_ ? std::log10(points_[i].y) : points_[i].y;
  }
  // Two distinct x can share one log10 on a log axis only if they are
  // adjacent doubles; drop such a twin so that intervals never vanish.
  for (std::size_t i = 1; i < u_.size();) {
    if (u_[i] <= u_[i - 1]) {
      u_.erase(u_.begin() + static_cast<std::ptrdiff_t>(i - 1));
      v_.erase(v_.begin() + static_cast<std::ptrdiff_t>(i - 1));
      points_.erase(points_.begin() + static_cast<std::ptrdiff_t>(i - 1));
    } else {
      ++i;
    }
  }
  FindSpacing();
  Rebuild();
}

void Table::FindSpacing() {
  const std::size_t n = u_.size();
  evenlySpaced_ = false;
  inverseSpacing_ = 0;
  if (n < 3) return;
  const double spacing = (u_.back() - u_.front()) / static_cast<double>(n - 1);
  if (!(spacing > 0) || !std::isfinite(1.0 / spacing)) return;
  for (std::size_t i = 1; i + 1 < n; ++i)
    if (!(std::fabs(u_[i] - (u_.front() + spacing * static_cast<double>(i))) <= 0.25 * spacing)) return;
  evenlySpaced_ = true;
  inverseSpacing_ = 1.0 / spacing;
}

double Table::FromLogV(double v) const {
  const double y = std::pow(10.0, v);
  return std::isfinite(y) ? y : qvi::kNoValue;
}

bool Table::Outside(double u, const std::vector<double>& knots, std::size_t& i,
                    double& out) const {
  const std::size_t n = u_.size();
  if (n == 0) {
    out = qvi::kNoValue;
    return true;
  }
  if (u < u_.front()) {
    out = tailBefore_.bTail ? FromV(knots.front() + tailBefore_.slope * (u - u_.front()))
                            : qvi::kNoValue;
    return true;
  }
  if (u > u_.back()) {
    out = tailAfter_.bTail ? FromV(knots.back() + tailAfter_.slope * (u - u_.back())) : qvi::kNoValue;
    return true;
  }
  if (n == 1) {
    out = FromV(knots.front());
    return true;
  }
  // Last i with u_[i] <= u, kept below n - 1 so that [i, i+1] exists.
  auto it = std::upper_bound(u_.begin(), u_.end(), u);
  i = static_cast<std::size_t>(it - u_.begin());
  i = i == 0 ? 0 : i - 1;
  if (i > n - 2) i = n - 2;
  return false;
}

}  // namespace math::fn::interpolate
