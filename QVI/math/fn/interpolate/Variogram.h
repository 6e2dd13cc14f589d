#pragma once
// Semivariogram models, the experimental semivariogram of scattered points,
// and the fit of a model to it.
//
// Models (Journel and Huijbregts 1978, ch. II; Isaaks and Srivastava 1989,
// ch. 16), with nugget c0, partial sill c and range a, for h > 0:
//   spherical    c0 + c (1.5 h/a - 0.5 (h/a)^3) for h < a, c0 + c beyond;
//   exponential  c0 + c (1 - exp(-3 h/a));
//   Gaussian     c0 + c (1 - exp(-3 h^2/a^2));
// and gamma(0) = 0. The exponential and Gaussian ranges are practical ranges:
// the model reaches 95 % of its sill at h = a.
#include <cstddef>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/I3D.h"

namespace math::fn::interpolate {

enum class VariogramKind { Spherical, Exponential, Gaussian };

struct Variogram {
  VariogramKind kind = VariogramKind::Spherical;
  double nugget = 0.0;       // c0, the jump at the origin
  double partialSill = 1.0;  // c; the total sill is c0 + c
  double range = 1.0;        // a

  // gamma(h) for a distance h >= 0.
  double operator()(double h) const;
  // Nugget and sill at zero or above, their sum and the range above zero.
  bool IsValid() const;
  friend bool operator==(const Variogram&, const Variogram&) = default;
};

// The experimental semivariogram (Matheron 1962): for each lag class, the
// mean distance of its pairs and half the mean squared difference of their
// values.
struct ExperimentalVariogram {
  std::vector<double> lag;
  std::vector<double> gamma;
  std::vector<std::size_t> pairs;
};

// Pairs up to half the largest distance between points, in `classes` equal
// lag classes; classes without pairs are left out. Beyond `maxPoints` points
// an evenly spaced subset of them is used, so the cost stays bounded.
ExperimentalVariogram ComputeExperimentalVariogram(const std::vector<Point3D>& points,
                                                   int classes = 15,
                                                   std::size_t maxPoints = 1500);

// Fits a model of `kind` by weighted least squares with the weights N(h)/h^2
// of Pebesma (2004, gstat, fit method 7): a search over the range, with
// nugget and sill solved linearly (non-negative) for each range tried. The
// nugget is held at zero unless `fitNugget`. Fails when fewer than two lag
// classes hold pairs, or when the points' values do not vary. `wsse`
// receives the weighted sum of squared residuals.
gtl::status FitVariogram(const ExperimentalVariogram& experimental, VariogramKind kind,
                         bool fitNugget, Variogram& fitted, double* wsse = nullptr);

}  // namespace math::fn::interpolate
