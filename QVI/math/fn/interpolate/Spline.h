#pragma once
// A smoothing spline under tension through (or near) the points of a table.
//
// Between knots the curve solves f'''' - s^2 f'' = 0 (Schweikert 1966), so it
// is made of sinh, cosh and straight-line terms; s = 0 gives the cubic
// spline. With natural ends (f'' = 0 at the first and last knot) it is the
// curve that minimises
//     J(f) = integral(f''^2 + s^2 f'^2) + p * sum_i (f(x_i) - y_i)^2,
// the smoothing formulation of Reinsch (1967) extended to tension; with no
// smoothing (p infinite) it interpolates. The curve is held, as in Cline
// (1974), by its knot values f_i and second derivatives M_i.
//
// The two integers of the document map to the parameters as follows (both
// are scale-free, so the same settings mean the same on any units):
//  - Tension T: Cline's normalised tension s' = T / 10, and
//    s = s' * (n - 1) / (x_last - x_first). T = 0 is the natural cubic spline;
//    T = 10 (s' = 1) bends the curve a little toward the chords; T = 100
//    (s' = 10) is close to the polygon through the points, and the curve
//    tends to the polygon as T grows.
//  - Smooth S: 0 interpolates. Otherwise p = 1 / (rho * hbar^3) with hbar the
//    mean knot spacing and rho = (S / 10)^4, so that S / 10 is roughly the
//    width, in knot spacings, over which the data are averaged (the
//    equivalent kernel of a smoothing spline is about rho^(1/4) spacings
//    wide, Silverman 1984). As S grows a tension-free curve tends to the
//    least-squares straight line through the points.
// On log axes all of this happens in log10 coordinates.
#include <vector>

#include "QVI/math/fn/interpolate/Table.h"

namespace math::fn::interpolate {

class Spline : public Table {
 public:
  // The smoothing integer (0: interpolate).
  void SetSmooth(unsigned s);
  unsigned Smooth() const { return nSmooth_; }
  // The tension integer (0: natural cubic spline).
  void SetTension(unsigned t);
  unsigned Tension() const { return nTension_; }

  // The spline value at `x`; qvi::kNoValue where Linear would give none.
  double operator()(double x) const {
    double u = 0;
    std::size_t i = 0;
    if (!ToU(x, u)) return qvi::kNoValue;
    if (!Inside(u, i) || sigma_ != 0) return Slow(u);
    // Cubic spline: M_i s (s^2 - h^2) / 6h + M_{i+1} t (t^2 - h^2) / 6h.
    const double h = u_[i + 1] - u_[i], t = u - u_[i], s = h - t;
    return FromV((f_[i] * s + f_[i + 1] * t) / h +
                 (m_[i] * s * (s * s - h * h) + m_[i + 1] * t * (t * t - h * h)) / (6.0 * h));
  }
  double Calculate(double x) const { return (*this)(x); }
  // operator() at in[i] into out[i] for i < n.
  void Evaluate(const double* in, double* out, std::size_t n) const;

  // The knot values of the curve in table coordinates (equal to the points'
  // y, or log10 y, when there is no smoothing).
  const std::vector<double>& KnotValues() const { return f_; }
  // The second derivatives at the knots, in table coordinates.
  const std::vector<double>& KnotCurvatures() const { return m_; }
  // The tension s in force, in table coordinates (0 for a cubic spline).
  double Sigma() const { return sigma_; }

 protected:
  void Rebuild() override;

 private:
  // Evaluation off the inline path: outside the points, or under tension.
  double Slow(double u) const;
  // phi(w) on an interval of length h: the weight of a knot's M at distance w
  // from the opposite knot.
  double Phi(double w, double h) const;
  // The off-diagonal (a) and diagonal (b) coupling of one interval.
  void Coefficients(double h, double& a, double& b) const;
  void Interpolate();
  void SmoothFit();

  unsigned nSmooth_ = 0;
  unsigned nTension_ = 0;
  double sigma_ = 0;
  std::vector<double> m_;  // second derivatives at the knots
  std::vector<double> f_;  // knot values of the curve (v_ smoothed, or v_)
};

}  // namespace math::fn::interpolate
