#include "QVI/math/fn/interpolate/Spline.h"

#include <Eigen/Sparse>
#include <Eigen/SparseLU>
#include <cmath>

#include "QVI/math/fn/interpolate/EvaluateWithin.h"

namespace math::fn::interpolate {

void Spline::SetSmooth(unsigned s) {
  if (s == nSmooth_) return;
  nSmooth_ = s;
  Rebuild();
}

void Spline::SetTension(unsigned t) {
  if (t == nTension_) return;
  nTension_ = t;
  Rebuild();
}

double Spline::Phi(double w, double h) const {
  const double s = sigma_;
  const double z = s * h;
  if (z < 1e-3) {
    // Series in s^2 (the first term is the cubic spline's weight); the next
    // term is of relative size z^4 < 1e-12.
    const double cubic = (w * w - h * h) / 6.0;
    const double corr =
        s * s * ((w * w * w * w - h * h * h * h) / 120.0 - h * h * (w * w - h * h) / 36.0);
    return w / h * (cubic + corr);
  }
  // sinh(s w) / sinh(s h) without overflow, for 0 <= w <= h.
  const double ratio = std::exp(s * (w - h)) * (std::expm1(-2.0 * s * w) / std::expm1(-2.0 * z));
  return (ratio - w / h) / (s * s);
}

void Spline::Coefficients(double h, double& a, double& b) const {
  const double s = sigma_;
  const double z = s * h;
  if (z < 1e-2) {
    const double z2 = z * z;
    a = h * (1.0 / 6.0 - 7.0 * z2 / 360.0 + 31.0 * z2 * z2 / 15120.0);
    b = h * (1.0 / 3.0 - z2 / 45.0 + 2.0 * z2 * z2 / 945.0);
    return;
  }
  // 1 / sinh(z) and coth(z) through exp(-2z), which cannot overflow.
  const double e = std::exp(-2.0 * z);
  const double csch = 2.0 * std::exp(-z) / (1.0 - e);
  const double coth = (1.0 + e) / (1.0 - e);
  a = 1.0 / (s * s * h) - csch / s;
  b = coth / s - 1.0 / (s * s * h);
}

void Spline::Rebuild() {
  const std::size_t n = u_.size();
  m_.assign(n, 0.0);
  f_ = v_;
  sigma_ = 0;
  if (n < 3) {
    // One point is a point, two a straight line (natural ends, any tension;
    // the least-squares line through two points is the chord).
    return;
  }
  const double span = u_.back() - u_.front();
  sigma_ = nTension_ == 0 ? 0.0 : (nTension_ / 10.0) * static_cast<double>(n - 1) / span;
  if (nSmooth_ == 0)
    Interpolate();
  else
    SmoothFit();
}

// Continuity of f' at the inner knots with natural ends gives the symmetric,
// diagonally dominant tridiagonal system
//     a_{i-1} M_{i-1} + (b_{i-1} + b_i) M_i + a_i M_{i+1} = d_i - d_{i-1},
// d_i being the chord slopes; solved by the Thomas algorithm.
void Spline::Interpolate() {
  const std::size_t n = u_.size();
  f_ = v_;
  const std::size_t k = n - 2;
  std::vector<double> a(n - 1), b(n - 1), d(n - 1);
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const double h = u_[i + 1] - u_[i];
    Coefficients(h, a[i], b[i]);
    d[i] = (f_[i + 1] - f_[i]) / h;
  }
  std::vector<double> diag(k), rhs(k);
  for (std::size_t j = 0; j < k; ++j) {
    diag[j] = b[j] + b[j + 1];
    rhs[j] = d[j + 1] - d[j];
  }
  for (std::size_t j = 1; j < k; ++j) {
    const double f = a[j] / diag[j - 1];
    diag[j] -= f * a[j];
    rhs[j] -= f * rhs[j - 1];
  }
  for (std::size_t j = k; j-- > 0;) {
    const double next = j + 1 < k ? m_[j + 2] : 0.0;
    m_[j + 1] = (rhs[j] - a[j + 1] * next) / diag[j];
  }
}

// The minimiser of J satisfies, with Q^T f the jumps of chord slope at the
// inner knots, R the matrix of Interpolate and K the chord-energy matrix
// (sum (f_{i+1} - f_i)^2 / h_i = f^T K f),
//     (s^2 K + p I) f + Q M = p y
//      Q^T f     -   R M   = 0,
// because J's curve energy equals s^2 f^T K f + f^T Q R^{-1} Q^T f for the
// tension spline through values f. The sparse symmetric block system is
// solved by LU.
void Spline::SmoothFit() {
  const std::size_t n = u_.size();
  const std::size_t k = n - 2;
  const double hbar = (u_.back() - u_.front()) / static_cast<double>(n - 1);
  const double rho = std::pow(nSmooth_ / 10.0, 4.0);
  const double p = 1.0 / (rho * hbar * hbar * hbar);
  const double s2 = sigma_ * sigma_;

  std::vector<double> a(n - 1), b(n - 1), h(n - 1);
  for (std::size_t i = 0; i + 1 < n; ++i) {
    h[i] = u_[i + 1] - u_[i];
    Coefficients(h[i], a[i], b[i]);
  }
  using Index = Eigen::Index;
  std::vector<Eigen::Triplet<double>> t;
  t.reserve(3 * n + 9 * k);
  const auto F = [](std::size_t i) { return static_cast<Index>(i); };
  const auto Mi = [n](std::size_t j) { return static_cast<Index>(n + j); };  // M of knot j+1
  for (std::size_t i = 0; i < n; ++i) {
    double diag = p;
    if (i > 0) diag += s2 / h[i - 1];
    if (i + 1 < n) {
      diag += s2 / h[i];
      t.emplace_back(F(i), F(i + 1), -s2 / h[i]);
      t.emplace_back(F(i + 1), F(i), -s2 / h[i]);
    }
    t.emplace_back(F(i), F(i), diag);
  }
  for (std::size_t j = 0; j < k; ++j) {
    // Row j of Q^T: knot j+1's slope jump in terms of f_j, f_{j+1}, f_{j+2}.
    const double q0 = 1.0 / h[j], q2 = 1.0 / h[j + 1], q1 = -q0 - q2;
    const std::size_t c[3] = {j, j + 1, j + 2};
    const double q[3] = {q0, q1, q2};
    for (int r = 0; r < 3; ++r) {
      t.emplace_back(Mi(j), F(c[r]), q[r]);
      t.emplace_back(F(c[r]), Mi(j), q[r]);
    }
    t.emplace_back(Mi(j), Mi(j), -(b[j] + b[j + 1]));
    if (j + 1 < k) {
      t.emplace_back(Mi(j), Mi(j + 1), -a[j + 1]);
      t.emplace_back(Mi(j + 1), Mi(j), -a[j + 1]);
    }
  }
  Eigen::SparseMatrix<double> A(static_cast<Index>(n + k), static_cast<Index>(n + k));
  A.setFromTriplets(t.begin(), t.end());
  Eigen::VectorXd rhs = Eigen::VectorXd::Zero(static_cast<Index>(n + k));
  for (std::size_t i = 0; i < n; ++i) rhs[F(i)] = p * v_[i];
  Eigen::SparseLU<Eigen::SparseMatrix<double>> lu;
  lu.compute(A);
  if (lu.info() != Eigen::Success) {
    Interpolate();  // cannot happen for distinct knots; interpolate rather than fail
    return;
  }
  const Eigen::VectorXd sol = lu.solve(rhs);
  for (std::size_t i = 0; i < n; ++i) f_[i] = sol[F(i)];
  for (std::size_t j = 0; j < k; ++j) m_[j + 1] = sol[Mi(j)];
}

double Spline::Slow(double u) const {
  double out = 0;
  std::size_t i = 0;
  if (!Inside(u, i) && Outside(u, f_, i, out)) return out;
  const double h = u_[i + 1] - u_[i];
  const double t = u - u_[i];
  const double s = h - t;
  double f = (f_[i] * s + f_[i + 1] * t) / h;
  if (sigma_ == 0)
    f += (m_[i] * s * (s * s - h * h) + m_[i + 1] * t * (t * t - h * h)) / (6.0 * h);
  else
    f += m_[i] * Phi(s, h) + m_[i + 1] * Phi(t, h);
  return FromV(f);
}

void Spline::Evaluate(const double* in, double* out, std::size_t n) const {
  const std::size_t count = u_.size();
  if (count < 2 || sigma_ != 0 || LogX() || LogY()) {
    for (std::size_t i = 0; i < n; ++i) out[i] = (*this)(in[i]);
    return;
  }
  // A cubic spline (no tension) on linear axes.
  const double* u = u_.data();
  const double* f = f_.data();
  const double* m = m_.data();
  EvaluateWithin(
      u_, in, out, n, *this, [this](double x) { return Interval(x); },
      [u, f, m](std::size_t k, double x) {
        const double h = u[k + 1] - u[k], t = x - u[k], s = h - t;
        return (f[k] * s + f[k + 1] * t) / h +
               (m[k] * s * (s * s - h * h) + m[k + 1] * t * (t * t - h * h)) / (6.0 * h);
      });
}

}  // namespace math::fn::interpolate
