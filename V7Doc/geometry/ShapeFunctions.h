#pragma once
// Interpolation over the plane elements: shape functions and their
// derivatives, node positions in the Gauss-point frame, and the inversion of
// an element's map from natural to global coordinates.
//
// An element is described by its eight-position node list (0 = absent):
// corners 1..4, then the mid-side nodes 5 (corners 1-2), 6 (2-3), 7 (3-4, or
// 3-1 on a triangle) and 8 (4-1). A fourth corner makes a quadrilateral, else
// a third corner a triangle, else a line element. Natural coordinates:
//   quadrilateral corners (+1,+1), (-1,+1), (-1,-1), (+1,-1);
//   triangle corners (0,0), (1,0), (0,1);
//   line nodes r = +1, -1 and 0 (node 5).
// The serendipity forms with optional mid-side nodes are those of Zienkiewicz
// and Taylor (2000), The Finite Element Method, vol. 1, §8.5-8.8: each
// mid-side function is built and half of it is taken from both corners of its
// side.
#include <cstdint>

namespace v7::Geom {

// N[0..7]: the shape functions at (r, s) in node-position order; absent
// nodes get 0.
void Shape_Function(double N[8], double r, double s, const std::int32_t nodes[8]);

// dN[0][i] = dN_i/dr and dN[1][i] = dN_i/ds at (r, s); the whole result is
// cleared first.
void Shape_Derivative(double dN[2][8], double r, double s, const std::int32_t nodes[8]);

// Natural coordinates of element node `node` (0-based, corners then mid-side
// nodes, 8 = centre) in the frame in which the element's Gauss points sit at
// the corners (+-1) of a reference element: the coordinates that extrapolate
// Gauss-point values to the nodes. g = 1.732050808 for four Gauss points and
// 1.290994449 for nine, used as written with nine decimals. Another node
// index or Gauss-point count leaves r and s untouched.
void LocalCoordsAtElemNode(int node, double& r, double& s, int numGaussPoints);

// Inverts the map of a triangle (cornerCount 3) or a bilinear quadrilateral
// (4) whose corner coordinates are xy[i][0], xy[i][1]: finds (r, s) of the
// global point (x, y). Returns 1 on success and 0 on failure (then r = s =
// 0). Acceptance is deliberately lenient and follows the rules used by every
// consumer of results:
//   - triangle: only |r|, |s| < 1.0001 is demanded (r + s > 1 is accepted);
//   - quadrilateral: when the element's sides are aligned with the axes the
//     direct rules give (r, s) with no range check at all; otherwise r is the
//     smaller root of a quadratic (math::fn::QuadraticEqn, which reports only
//     roots with |r| <= 1.0001) and s must satisfy |s| < 1.0001;
//   - any other cornerCount returns 1 at once with r and s untouched.
// A degenerate element whose direct rules divide by zero does not count as
// solved by them (its r or s would not be finite).
int iGlobal_To_Local_Coords(double& r, double& s, double x, double y, const double xy[][2],
                            int cornerCount);

// The quotient a / b when neither is the no-value marker and |a / 1.0001| <
// |b| (so |a / b| < 1.0001); otherwise the no-value marker.
double BoundedDivide(double a, double b);

}  // namespace v7::Geom
