#include "QVI/math/fn/interpolate/KrigSurface.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVI/math/fn/interpolate/ScatteredPoints.h"
#include "QVI/qvi/Markers.h"

namespace math::fn::interpolate {
namespace {
constexpr unsigned kMsgTooFew = 33571;
constexpr unsigned kMsgBadVariogram = 33575;

// sqrt rather than hypot: coordinates never come near overflow here, and
// hypot's care costs several times more in the O(k^2) matrix fill.
double Distance(const Point3D& p, double x, double y) {
  return std::sqrt((p.x - x) * (p.x - x) + (p.y - y) * (p.y - y));
}
}  // namespace

struct KrigSurface::Global {
  Eigen::PartialPivLU<Eigen::MatrixXd> lu;
  std::vector<std::uint32_t> all;
};

KrigSurface::KrigSurface() = default;
KrigSurface::~KrigSurface() = default;

gtl::status KrigSurface::SetPoints(const std::vector<Point3D>& points) {
  points_.clear();
  experimental_ = {};
  global_.reset();
  flat_ = false;
  nearest_.Build(points_);
  if (gtl::status s = MergeCoincidentPoints(points, points_); s.failed()) return s;
  if (points_.empty()) return gtl::status::error(kMsgTooFew, 1, 0);
  if (userVariogram_ && !userVariogram_->IsValid()) {
    points_.clear();
    return gtl::status::error(kMsgBadVariogram);
  }

  const auto [zlo, zhi] = std::minmax_element(points_.begin(), points_.end(),
                                              [](const Point3D& a, const Point3D& b) { return a.z < b.z; });
  flat_ = points_.size() == 1 || zlo->z == zhi->z;
  if (userVariogram_) {
    variogram_ = *userVariogram_;
  } else if (!flat_) {
    experimental_ = ComputeExperimentalVariogram(points_);
    double bestWsse = std::numeric_limits<double>::infinity();
    bool fitted = false;
    const VariogramKind kinds[] = {VariogramKind::Spherical, VariogramKind::Exponential,
                                   VariogramKind::Gaussian};
    for (VariogramKind k : kinds) {
      if (kind_ && *kind_ != k) continue;
      Variogram v;
      double wsse = 0;
      if (FitVariogram(experimental_, k, fitNugget_, v, &wsse).succeeded() && wsse < bestWsse) {
        bestWsse = wsse, variogram_ = v, fitted = true;
      }
    }
    if (!fitted) {
      // Too few pairs to fit: a spherical model whose range is twice the
      // points' extent is nearly linear over them, the safe default of
      // Isaaks and Srivastava (1989, ch. 16) for sparse data.
      const Extent box = ExtentOf(points_);
      double mean = 0;
      for (const Point3D& p : points_) mean += p.z;
      mean /= static_cast<double>(points_.size());
      double var = 0;
      for (const Point3D& p : points_) var += (p.z - mean) * (p.z - mean);
      var /= static_cast<double>(points_.size());
      variogram_ = Variogram{kind_.value_or(VariogramKind::Spherical), 0.0, var > 0 ? var : 1.0,
                             2.0 * std::max(std::hypot(box.Width(), box.Height()), 1e-300)};
    }
  }
  if (flat_) return {};

  if (points_.size() > neighbours_) {
    nearest_.Build(points_);
    return {};
  }
  const std::size_t n = points_.size();
  Eigen::MatrixXd a(n + 1, n + 1);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < n; ++j) a(i, j) = variogram_(Distance(points_[i], points_[j].x, points_[j].y));
    a(i, n) = a(n, i) = 1.0;
  }
  a(n, n) = 0.0;
  global_ = std::make_unique<Global>();
  global_->lu.compute(a);
  global_->all.resize(n);
  for (std::size_t i = 0; i < n; ++i) global_->all[i] = static_cast<std::uint32_t>(i);
  return {};
}

bool KrigSurface::Solve(double x, double y, const std::vector<std::uint32_t>& idx, std::vector<double>& w,
                        double& mu, std::vector<double>& rhs) const {
  const std::size_t n = idx.size();
  Eigen::VectorXd b(n + 1);
  for (std::size_t i = 0; i < n; ++i) b(i) = variogram_(Distance(points_[idx[i]], x, y));
  b(n) = 1.0;
  Eigen::VectorXd sol;
  if (global_) {
    sol = global_->lu.solve(b);
  } else {
    Eigen::MatrixXd a(n + 1, n + 1);
    for (std::size_t i = 0; i < n; ++i) {
      a(i, i) = 0.0;
      for (std::size_t j = i + 1; j < n; ++j)
        a(i, j) = a(j, i) = variogram_(Distance(points_[idx[i]], points_[idx[j]].x, points_[idx[j]].y));
      a(i, n) = a(n, i) = 1.0;
    }
    a(n, n) = 0.0;
    sol = a.partialPivLu().solve(b);
  }
  if (!sol.allFinite()) return false;
  w.assign(sol.data(), sol.data() + n);
  mu = sol(n);
  rhs.assign(b.data(), b.data() + n);
  return true;
}

bool KrigSurface::Evaluate(double x, double y, Estimate& out) const {
  out.index.clear();
  out.weight.clear();
  if (points_.empty() || !std::isfinite(x) || !std::isfinite(y)) return false;
  if (flat_) {
    // One value everywhere, known exactly: any one point carries it.
    out.index = {0};
    out.weight = {1.0};
    out.value = points_[0].z;
    out.variance = 0.0;
    return true;
  }
  if (global_) out.index = global_->all;
  else nearest_.Find(x, y, neighbours_, out.index);
  double mu = 0;
  std::vector<double> rhs;
  if (!Solve(x, y, out.index, out.weight, mu, rhs)) return false;
  out.value = 0.0;
  out.variance = mu;
  for (std::size_t i = 0; i < out.index.size(); ++i) {
    out.value += out.weight[i] * points_[out.index[i]].z;
    out.variance += out.weight[i] * rhs[i];
  }
  out.variance = std::max(0.0, out.variance);
  return std::isfinite(out.value);
}

double KrigSurface::operator()(double x, double y) const {
  Estimate e;
  return Evaluate(x, y, e) ? e.value : qvi::kNoValue;
}

}  // namespace math::fn::interpolate
