#pragma once
// Ordinary kriging over scattered points (Matheron 1963; Isaaks and
// Srivastava 1989, ch. 12; Cressie 1993, sec. 3.2).
//
// The estimate at x0 is sum_i w_i z_i with weights from
//   sum_j w_j gamma(x_i - x_j) + mu = gamma(x_i - x0)   for each point i,
//   sum_j w_j = 1,
// and its kriging variance is sum_i w_i gamma(x_i - x0) + mu (Cressie 1993,
// eq. 3.2.16). With a zero nugget the estimate passes through every point.
//
// The variogram is fitted to the points' experimental variogram (the best of
// the spherical, exponential and Gaussian models, or the kind asked for), or
// set by the caller. With more points than the neighbourhood size, each
// estimate uses only the nearest points (as the kriging programs of Deutsch
// and Journel 1998 do), so one estimate costs O(k^3) whatever the number of
// points; otherwise the one system of all points is factorised once.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/I3D.h"
#include "QVI/math/fn/interpolate/NearestPoints.h"
#include "QVI/math/fn/interpolate/Variogram.h"

namespace math::fn::interpolate {

class KrigSurface {
 public:
  // The neighbourhood size: 16 points, within the 8 to 24 usually advised
  // (Deutsch and Journel 1998, GSLIB's ndmax) and enough for a smooth map.
  static constexpr std::size_t kDefaultNeighbours = 16;

  KrigSurface();
  ~KrigSurface();
  KrigSurface(const KrigSurface&) = delete;
  KrigSurface& operator=(const KrigSurface&) = delete;

  // Options, applied at the next SetPoints.
  // Fit this model kind rather than the best of the three.
  void SetVariogramKind(std::optional<VariogramKind> kind) { kind_ = kind; }
  // Use this variogram instead of fitting one; nullopt to fit again.
  void SetVariogram(std::optional<Variogram> variogram) { userVariogram_ = variogram; }
  // Fit a nugget too. Off by default: a surface through measured points is
  // expected to honour them, which a nugget gives up.
  void SetFitNugget(bool fit) { fitNugget_ = fit; }
  void SetNeighbours(std::size_t k) { neighbours_ = k < 1 ? 1 : k; }

  // Fits the surface. Coincident points count once, at the mean of their
  // values. No point, a coordinate that is not finite, or a variogram given
  // that is not valid give an error and an empty surface. One point, or
  // points whose values do not vary, give a flat surface; points too few to
  // fit a variogram to get a linear-like spherical model whose range spans
  // them (ordinary kriging weights do not depend on the sill).
  gtl::status SetPoints(const std::vector<Point3D>& points);

  // The estimate at (x, y); qvi::kNoValue for a query that is not finite or
  // an empty surface.
  double operator()(double x, double y) const;

  struct Estimate {
    double value = 0.0;
    double variance = 0.0;             // the kriging variance
    std::vector<std::uint32_t> index;  // the points used, into Points()
    std::vector<double> weight;        // their weights, summing to one
  };
  // The estimate with its variance and weights; false where operator()
  // gives no value.
  bool Evaluate(double x, double y, Estimate& out) const;

  const Variogram& GetVariogram() const { return variogram_; }
  // The distinct points fitted (sorted by x, then y).
  const std::vector<Point3D>& Points() const { return points_; }
  const ExperimentalVariogram& Experimental() const { return experimental_; }

 private:
  struct Global;  // the factorised system of all points
  bool Solve(double x, double y, const std::vector<std::uint32_t>& idx, std::vector<double>& w,
             double& mu, std::vector<double>& rhs) const;

  std::optional<VariogramKind> kind_;
  std::optional<Variogram> userVariogram_;
  bool fitNugget_ = false;
  std::size_t neighbours_ = kDefaultNeighbours;

  std::vector<Point3D> points_;
  Variogram variogram_;
  ExperimentalVariogram experimental_;
  bool flat_ = false;  // one value everywhere
  NearestPoints nearest_;
  std::unique_ptr<Global> global_;
};

}  // namespace math::fn::interpolate
