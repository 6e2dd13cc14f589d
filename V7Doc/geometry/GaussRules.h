#pragma once
// The integration rules of the elements: natural coordinates and weights of
// the Gauss points of an element with a given corner count and point count.
//
// Coordinates are those of ShapeFunctions.h: quadrilaterals on [-1, 1]^2
// (weights sum to 4), triangles on r, s >= 0, r + s <= 1 (weights sum to
// 1/2), lines on [-1, 1] (weights sum to 2, s = 0).
//
//  - Lines: Gauss-Legendre rules of 1 to 4 points (Abramowitz and Stegun
//    1964, table 25.4), exact for polynomials of degree 2n - 1. Ordered like
//    the nodes: the + end first, its mirror next, the centre last.
//  - Quadrilaterals: products of the Gauss-Legendre rules, 1, 4, 9 and 16
//    points, exact for degree 2n - 1 in each coordinate. 4 points lie in the
//    corner order of the element's nodes; 9 points are the corners, then the
//    mid-sides in node order, then the centre, so that LocalCoordsAtElemNode
//    addresses them; 16 points run row by row from s = +1 down, each row
//    from r = +1 down.
//  - Triangles: the symmetric rules of Dunavant (1985), Int. J. Numer. Meth.
//    Eng. 21:1129-1148, of 1, 3, 4, 6 and 7 points, exact for polynomials of
//    degree 1, 2, 3, 4 and 5. The 3-point rule is the interior one of
//    Strang and Fix (1973), the 7-point rule that of Radon (1948), written
//    in closed form. Points near the corners come first (in corner order),
//    then points near the mid-sides (5: 1-2, 6: 2-3, 7: 3-1), then the
//    centroid. The 4-point rule has a negative centroid weight.
#include <vector>

namespace v7::Geom {

// One Gauss point: natural coordinates and weight.
struct GaussRulePoint {
  double r = 0;
  double s = 0;
  double w = 0;
};

// The rule of `order` points for an element with `corners` corners (4, 3,
// or 2 for a line); empty when there is no such rule.
const std::vector<GaussRulePoint>& GaussRule(int corners, int order);

// The point counts that have a rule, ascending, for `corners` corners.
std::vector<int> GaussRuleOrders(int corners);

}  // namespace v7::Geom
