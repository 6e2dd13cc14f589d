#pragma once
// The point table shared by the one-variable interpolators (Linear, Step,
// Spline): cleaned and sorted points, optional logarithmic axes, and the
// tails before the first and after the last point.
//
// Points with a non-finite coordinate or the no-value marker (qvi::kNoValue)
// are dropped, and so are points that a logarithmic axis cannot take (x <= 0
// on a log input axis, y <= 0 on a log output axis). The rest are sorted by
// x; of several points with the same x the one given last is kept (a later
// row of a table corrects an earlier one).
//
// On a logarithmic axis the interpolation runs in log10 of that coordinate,
// and the tail slopes are slopes in those coordinates.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "QVI/math/fn/TailType.h"
#include "QVI/qvi/Markers.h"

namespace math::fn::interpolate {

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

class Table {
 public:
  Table() = default;
  Table(const Table&) = default;
  Table& operator=(const Table&) = default;
  virtual ~Table() = default;

  // Replaces the points (see above for what is kept).
  void Assign(const std::vector<Point>& points);
  void Assign(const double* x, const double* y, std::size_t n);
  // Removes every point.
  void Clear();

  // Interpolates in log10 of the input / output.
  void SetLogX(bool b);
  void SetLogY(bool b);
  bool LogX() const { return bLogX_; }
  bool LogY() const { return bLogY_; }

  // The continuation before the first and after the last point.
  void SetTailBefore(const TailType& t) { tailBefore_ = t; }
  void SetTailAfter(const TailType& t) { tailAfter_ = t; }
  const TailType& TailBefore() const { return tailBefore_; }
  const TailType& TailAfter() const { return tailAfter_; }

  // The points kept, sorted by x, in the caller's coordinates.
  const std::vector<Point>& Points() const { return points_; }
  std::size_t Size() const { return points_.size(); }
  bool IsEmpty() const { return points_.empty(); }

 protected:
  // Rebuilds what a derived interpolator derives from u_ and v_.
  virtual void Rebuild() {}

  // Maps x into table coordinates; false for an input the axis cannot take.
  bool ToU(double x, double& u) const {
    if (!bLogX_) {
      u = x;
      return x == x;  // false for NaN
    }
    return ToLogU(x, u);
  }
  // Maps a table-coordinate output back.
  double FromV(double v) const { return bLogY_ ? FromLogV(v) : v; }
  // The interval holding u when u lies within the points of a table of at
  // least two points (the common case, kept inline); false otherwise.
  bool Inside(double u, std::size_t& i) const {
    const std::size_t n = u_.size();
    if (n < 2 || !(u >= u_.front()) || !(u <= u_.back())) return false;
    i = Interval(u);
    return true;
  }
  // The last i in [0, n - 2] with u_[i] <= u, for u within the points of a
  // table of at least two points. Evenly spaced points (the generated
  // tables of the estimators, most lab tables) find it by arithmetic and at
  // most a step or two; others by bisection. Both give the same interval.
  std::size_t Interval(double u) const {
    const std::size_t n = u_.size();
    const double* first = u_.data();
    if (!evenlySpaced_)
      return static_cast<std::size_t>(std::upper_bound(first + 1, first + n - 1, u) - first) - 1;
    std::size_t k = static_cast<std::size_t>(std::clamp((u - first[0]) * inverseSpacing_, 0.0, n - 2.0));
    while (k > 0 && first[k] > u) --k;
    while (k + 2 < n && first[k + 1] <= u) ++k;
    return k;
  }

  // Handles an input outside the points or on a one-point table, the curve
  // passing through `knots` (table coordinates, one per point). Returns true
  // when `out` holds the answer; otherwise `i` is the interval
  // (u_[i] <= u <= u_[i+1]) to interpolate in.
  bool Outside(double u, const std::vector<double>& knots, std::size_t& i, double& out) const;

  std::vector<Point> points_;  // kept points, caller's coordinates
  std::vector<double> u_, v_;  // the same in table coordinates (x and y)

 private:
  // Inline: it runs once per evaluation on a log input axis.
  bool ToLogU(double x, double& u) const {
    if (!(x > 0)) return false;
    u = std::log10(x);
    return true;
  }
  double FromLogV(double v) const;
  void Transform();
  void FindSpacing();

  std::vector<Point> raw_;  // as assigned, for re-cleaning when an axis changes
  // Every u_ within a quarter spacing of its place on an even grid, so that
  // (u - u_[0]) * inverseSpacing_ lands within one interval of the answer.
  bool evenlySpaced_ = false;
  double inverseSpacing_ = 0;
  bool bLogX_ = false;
  bool bLogY_ = false;
  TailType tailBefore_;
  TailType tailAfter_;
};

}  // namespace math::fn::interpolate
