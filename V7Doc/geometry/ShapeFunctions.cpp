#include "V7Doc/geometry/ShapeFunctions.h"

#include <algorithm>
#include <cmath>

#include "QVI/math/algorithm/DecimalExponent.h"
#include "QVI/math/fn/QuadraticEqn.h"
#include "QVI/qvi/Markers.h"

namespace v7::Geom {
namespace {

// Node positions (0-based) of the list.
constexpr int kC1 = 0, kC2 = 1, kC3 = 2, kC4 = 3, kM5 = 4, kM6 = 5, kM7 = 6, kM8 = 7;

enum class Shape { Line, Triangle, Quadrilateral };

Shape ShapeOf(const std::int32_t nodes[8]) {
  if (nodes[kC4] != 0) return Shape::Quadrilateral;
  if (nodes[kC3] != 0) return Shape::Triangle;
  return Shape::Line;
}

bool Has(const std::int32_t nodes[8], int position) { return nodes[position] > 0; }

// Takes half of the mid-side value at `mid` from the corners `a` and `b`.
void Split(double* v, int mid, int a, int b) {
  v[a] -= 0.5 * v[mid];
  v[b] -= 0.5 * v[mid];
}

bool IsDefined(double v) { return v != qvi::kNoValue && std::isfinite(v); }

}  // namespace

void Shape_Function(double N[8], double r, double s, const std::int32_t nodes[8]) {
  std::fill(N, N + 8, 0.0);
  switch (ShapeOf(nodes)) {
    case Shape::Quadrilateral:
      N[kC1] = 0.25 * (1 + r) * (1 + s);
      N[kC2] = 0.25 * (1 - r) * (1 + s);
      N[kC3] = 0.25 * (1 - r) * (1 - s);
      N[kC4] = 0.25 * (1 + r) * (1 - s);
      if (Has(nodes, kM5)) N[kM5] = 0.5 * (1 - r * r) * (1 + s), Split(N, kM5, kC1, kC2);
      if (Has(nodes, kM6)) N[kM6] = 0.5 * (1 - s * s) * (1 - r), Split(N, kM6, kC2, kC3);
      if (Has(nodes, kM7)) N[kM7] = 0.5 * (1 - r * r) * (1 - s), Split(N, kM7, kC3, kC4);
      if (Has(nodes, kM8)) N[kM8] = 0.5 * (1 - s * s) * (1 + r), Split(N, kM8, kC1, kC4);
      break;
    case Shape::Triangle:
      N[kC1] = 1 - r - s;
      N[kC2] = r;
      N[kC3] = s;
      if (Has(nodes, kM5)) N[kM5] = 4 * r * (1 - r - s), Split(N, kM5, kC1, kC2);
      if (Has(nodes, kM6)) N[kM6] = 4 * r * s, Split(N, kM6, kC2, kC3);
      if (Has(nodes, kM7)) N[kM7] = 4 * s * (1 - r - s), Split(N, kM7, kC3, kC1);
      break;
    case Shape::Line:
      N[kC1] = 0.5 * (1 + r);
      N[kC2] = 0.5 * (1 - r);
      if (Has(nodes, kM5)) N[kM5] = 1 - r * r, Split(N, kM5, kC1, kC2);
      break;
  }
}

void Shape_Derivative(double dN[2][8], double r, double s, const std::int32_t nodes[8]) {
  double* dr = dN[0];
  double* ds = dN[1];
  std::fill(dr, dr + 8, 0.0);
  std::fill(ds, ds + 8, 0.0);
  // Each mid-side correction is linear, so the derivative rows take it the
  // same way as the values do.
  auto split = [&](int mid, int a, int b) {
    Split(dr, mid, a, b);
    Split(ds, mid, a, b);
  };
  switch (ShapeOf(nodes)) {
    case Shape::Quadrilateral:
      dr[kC1] = 0.25 * (1 + s), ds[kC1] = 0.25 * (1 + r);
      dr[kC2] = -0.25 * (1 + s), ds[kC2] = 0.25 * (1 - r);
      dr[kC3] = -0.25 * (1 - s), ds[kC3] = -0.25 * (1 - r);
      dr[kC4] = 0.25 * (1 - s), ds[kC4] = -0.25 * (1 + r);
      if (Has(nodes, kM5)) dr[kM5] = -r * (1 + s), ds[kM5] = 0.5 * (1 - r * r), split(kM5, kC1, kC2);
      if (Has(nodes, kM6)) dr[kM6] = -0.5 * (1 - s * s), ds[kM6] = -s * (1 - r), split(kM6, kC2, kC3);
      if (Has(nodes, kM7)) dr[kM7] = -r * (1 - s), ds[kM7] = -0.5 * (1 - r * r), split(kM7, kC3, kC4);
      if (Has(nodes, kM8)) dr[kM8] = 0.5 * (1 - s * s), ds[kM8] = -s * (1 + r), split(kM8, kC1, kC4);
      break;
    case Shape::Triangle:
      dr[kC1] = -1, ds[kC1] = -1;
      dr[kC2] = 1;
      ds[kC3] = 1;
      if (Has(nodes, kM5)) dr[kM5] = 4 * (1 - 2 * r - s), ds[kM5] = -4 * r, split(kM5, kC1, kC2);
      if (Has(nodes, kM6)) dr[kM6] = 4 * s, ds[kM6] = 4 * r, split(kM6, kC2, kC3);
      if (Has(nodes, kM7)) dr[kM7] = -4 * s, ds[kM7] = 4 * (1 - r - 2 * s), split(kM7, kC3, kC1);
      break;
    case Shape::Line:
      dr[kC1] = 0.5;
      dr[kC2] = -0.5;
      if (Has(nodes, kM5)) dr[kM5] = -2 * r, split(kM5, kC1, kC2);
      break;
  }
}

void LocalCoordsAtElemNode(int node, double& r, double& s, int numGaussPoints) {
  double g;
  if (numGaussPoints == 4) g = 1.732050808;
  else if (numGaussPoints == 9) g = 1.290994449;
  else return;
  static constexpr int kSign[8][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1},
                                      {0, 1}, {-1, 0}, {0, -1},  {1, 0}};
  if (node >= 0 && node < 8) {
    r = kSign[node][0] * g;
    s = kSign[node][1] * g;
  } else if (node == 8 && numGaussPoints == 9) {
    r = 0;
    s = 0;
  }
}

double BoundedDivide(double a, double b) {
  if (a == qvi::kNoValue || b == qvi::kNoValue) return qvi::kNoValue;
  if (!(std::fabs(a / 1.0001) < std::fabs(b))) return qvi::kNoValue;
  return a / b;
}

int iGlobal_To_Local_Coords(double& r, double& s, double x, double y, const double xy[][2],
                            int cornerCount) {
  if (cornerCount == 3) {
    const double x1 = xy[0][0], y1 = xy[0][1];
    const double x21 = xy[1][0] - x1, y21 = xy[1][1] - y1;
    const double x31 = xy[2][0] - x1, y31 = xy[2][1] - y1;
    const double det = y21 * x31 - y31 * x21;
    r = BoundedDivide((y - y1) * x31 - y31 * (x - x1), det);
    s = BoundedDivide(y21 * (x - x1) - (y - y1) * x21, det);
    if (r == qvi::kNoValue || s == qvi::kNoValue) {
      r = s = 0;
      return 0;
    }
    return 1;
  }
  if (cornerCount != 4) return 1;

  const double x1 = xy[0][0], x2 = xy[1][0], x3 = xy[2][0], x4 = xy[3][0];
  const double y1 = xy[0][1], y2 = xy[1][1], y3 = xy[2][1], y4 = xy[3][1];
  const double a0 = x1 + x2 + x3 + x4, a1 = x1 - x2 - x3 + x4, a2 = x1 + x2 - x3 - x4,
               a3 = x1 - x2 + x3 - x4;
  const double b0 = y1 + y2 + y3 + y4, b1 = y1 - y2 - y3 + y4, b2 = y1 + y2 - y3 - y4,
               b3 = y1 - y2 + y3 - y4;
  const double X = 4 * x - a0, Y = 4 * y - b0;
  const double tx = 5e-10 * math::algorithm::DecimalMagnitude(a0 / 4);
  const double ty = 5e-10 * math::algorithm::DecimalMagnitude(b0 / 4);

  // Direct rules for elements whose map is linear in one direction (sides
  // parallel to the axes). Later rules overwrite earlier ones, as always.
  r = qvi::kNoValue;
  s = qvi::kNoValue;
  if (std::fabs(b2) < ty && std::fabs(b3) < ty) r = Y / b1, s = (X - r * a1) / (r * a3 + a2);
  if (std::fabs(b1) < ty && std::fabs(b3) < ty) s = Y / b2, r = (X - s * a2) / (s * a3 + a1);
  if (std::fabs(a2) < tx && std::fabs(a3) < tx) r = X / a1, s = (Y - r * b1) / (r * b3 + b2);
  if (std::fabs(a1) < tx && std::fabs(a3) < tx) s = X / a2, r = (Y - s * b2) / (s * b3 + b1);
  if (IsDefined(r) && IsDefined(s)) return 1;

  const double qa = b3 * a1 - b1 * a3;
  const double qb = b2 * a1 - b1 * a2 + a3 * Y - b3 * X;
  const double qc = a2 * Y - b2 * X;
  double r1 = 0, r2 = 0;
  const int roots = math::fn::QuadraticEqn::Solve(qa, qb, qc, std::max(tx, ty), 1.0001, r1, r2);
  if (roots == 0) {
    r = s = 0;
    return 0;
  }
  r = roots == 1 ? r1 : (std::fabs(r1) < std::fabs(r2) ? r1 : r2);
  if (std::fabs(r * b3 + b2) > ty) {
    s = BoundedDivide(Y - r * b1, r * b3 + b2);
    if (s != qvi::kNoValue) return 1;
  }
  s = BoundedDivide(X - r * a1, r * a3 + a2);
  if (s == qvi::kNoValue) {
    r = s = 0;
    return 0;
  }
  return 1;
}

}  // namespace v7::Geom
