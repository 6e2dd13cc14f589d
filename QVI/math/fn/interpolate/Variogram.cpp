#include "QVI/math/fn/interpolate/Variogram.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace math::fn::interpolate {
namespace {
constexpr unsigned kMsgFit = 33574;

// The unit-sill shape of a model at h / a.
double Shape(VariogramKind kind, double r) {
  switch (kind) {
    case VariogramKind::Spherical:
      return r >= 1.0 ? 1.0 : r * (1.5 - 0.5 * r * r);
    case VariogramKind::Exponential:
      return 1.0 - std::exp(-3.0 * r);
    case VariogramKind::Gaussian:
      return 1.0 - std::exp(-3.0 * r * r);
  }
  return 1.0;
}

struct Trial {
  double nugget = 0, sill = 0, wsse = std::numeric_limits<double>::infinity();
};

// Nugget and sill for a fixed range: linear weighted least squares in the two
// unknowns, with each held at zero when the free solution makes it negative.
Trial SolveForRange(const ExperimentalVariogram& e, const std::vector<double>& w, VariogramKind kind,
                    double range, bool fitNugget) {
  const std::size_t n = e.lag.size();
  std::vector<double> f(n);
  for (std::size_t i = 0; i < n; ++i) f[i] = Shape(kind, e.lag[i] / range);
  double sw = 0, sf = 0, sff = 0, sg = 0, sfg = 0;
  for (std::size_t i = 0; i < n; ++i) {
    sw += w[i], sf += w[i] * f[i], sff += w[i] * f[i] * f[i];
    sg += w[i] * e.gamma[i], sfg += w[i] * f[i] * e.gamma[i];
  }
  Trial t;
  const double det = sw * sff - sf * sf;
  if (fitNugget && det > 1e-14 * sw * sff) {
    t.nugget = (sff * sg - sf * sfg) / det;
    t.sill = (sw * sfg - sf * sg) / det;
  }
  if (!fitNugget || !(det > 1e-14 * sw * sff) || t.nugget < 0 || t.sill < 0) {
    // Sill alone, nugget zero; or nugget alone when even that sill is negative.
    t.nugget = 0;
    t.sill = sff > 0 ? std::max(0.0, sfg / sff) : 0;
    if (fitNugget && t.sill == 0) t.nugget = std::max(0.0, sg / sw);
  }
  t.wsse = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double r = e.gamma[i] - (t.nugget + t.sill * f[i]);
    t.wsse += w[i] * r * r;
  }
  return t;
}
}  // namespace

double Variogram::operator()(double h) const {
  if (h <= 0.0) return 0.0;
  return nugget + partialSill * Shape(kind, h / range);
}

bool Variogram::IsValid() const {
  return std::isfinite(nugget) && std::isfinite(partialSill) && std::isfinite(range) && nugget >= 0 &&
         partialSill >= 0 && nugget + partialSill > 0 && range > 0;
}

ExperimentalVariogram ComputeExperimentalVariogram(const std::vector<Point3D>& points, int classes,
                                                   std::size_t maxPoints) {
  ExperimentalVariogram e;
  if (points.size() < 2 || classes < 1) return e;
  std::vector<const Point3D*> use;
  const std::size_t n = points.size();
  const std::size_t m = std::max<std::size_t>(2, std::min(n, maxPoints));
  use.reserve(m);
  // An evenly spaced subset keeps the choice deterministic and spread over
  // the input order.
  for (std::size_t k = 0; k < m; ++k) use.push_back(&points[k * (n - 1) / (m - 1)]);

  double xmin = use[0]->x, xmax = xmin, ymin = use[0]->y, ymax = ymin;
  for (const Point3D* p : use) {
    xmin = std::min(xmin, p->x), xmax = std::max(xmax, p->x);
    ymin = std::min(ymin, p->y), ymax = std::max(ymax, p->y);
  }
  // Half the diagonal of the bounding box: the usual cut-off (Journel and
  // Huijbregts 1978), beyond which too few pairs remain for a stable mean.
  const double cutoff = 0.5 * std::hypot(xmax - xmin, ymax - ymin);
  if (!(cutoff > 0)) return e;
  const double width = cutoff / classes;
  std::vector<double> sumH(classes, 0.0), sumG(classes, 0.0);
  std::vector<std::size_t> count(classes, 0);
  for (std::size_t i = 0; i < use.size(); ++i) {
    for (std::size_t j = i + 1; j < use.size(); ++j) {
      const double h = std::hypot(use[i]->x - use[j]->x, use[i]->y - use[j]->y);
      if (!(h > 0) || h > cutoff) continue;
      const int c = std::min(classes - 1, static_cast<int>(h / width));
      const double d = use[i]->z - use[j]->z;
      sumH[c] += h, sumG[c] += 0.5 * d * d, ++count[c];
    }
  }
  for (int c = 0; c < classes; ++c) {
    if (count[c] == 0) continue;
    e.lag.push_back(sumH[c] / count[c]);
    e.gamma.push_back(sumG[c] / count[c]);
    e.pairs.push_back(count[c]);
  }
  return e;
}

gtl::status FitVariogram(const ExperimentalVariogram& e, VariogramKind kind, bool fitNugget,
                         Variogram& fitted, double* wsse) {
  const std::size_t n = e.lag.size();
  if (n < 2) return gtl::status::error(kMsgFit, L"fewer than two lag classes hold pairs of points");
  double gmax = 0;
  for (double g : e.gamma) gmax = std::max(gmax, g);
  if (!(gmax > 0)) return gtl::status::error(kMsgFit, L"the values do not vary");
  std::vector<double> w(n);
  for (std::size_t i = 0; i < n; ++i) w[i] = static_cast<double>(e.pairs[i]) / (e.lag[i] * e.lag[i]);

  // Ranges from the first lag to twice the last, log-spaced, then a golden
  // section refinement around the best.
  const double lo = e.lag.front(), hi = 2.0 * e.lag.back();
  constexpr int kSteps = 40;
  double bestRange = lo;
  Trial best;
  for (int k = 0; k <= kSteps; ++k) {
    const double a = lo * std::pow(hi / lo, static_cast<double>(k) / kSteps);
    const Trial t = SolveForRange(e, w, kind, a, fitNugget);
    if (t.wsse < best.wsse) best = t, bestRange = a;
  }
  const double step = std::pow(hi / lo, 1.0 / kSteps);
  double a = std::log(bestRange / step), b = std::log(bestRange * step);
  const double g = 0.5 * (std::sqrt(5.0) - 1.0);
  for (int it = 0; it < 40; ++it) {
    const double c = b - g * (b - a), d = a + g * (b - a);
    if (SolveForRange(e, w, kind, std::exp(c), fitNugget).wsse <
        SolveForRange(e, w, kind, std::exp(d), fitNugget).wsse)
      b = d;
    else
      a = c;
  }
  const double refined = std::exp(0.5 * (a + b));
  if (const Trial t = SolveForRange(e, w, kind, refined, fitNugget); t.wsse <= best.wsse)
    best = t, bestRange = refined;
  if (!(best.nugget + best.sill > 0))
    return gtl::status::error(kMsgFit, L"no model with a positive sill matches the lag classes");
  fitted = Variogram{kind, best.nugget, best.sill, bestRange};
  if (wsse) *wsse = best.wsse;
  return {};
}

}  // namespace math::fn::interpolate
