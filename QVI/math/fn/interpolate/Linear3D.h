#pragma once
// Linear interpolation over a Delaunay triangulation of scattered points.
//
// The value at (x, y) is the barycentric mix of the values at the corners of
// the triangle holding (x, y), so any plane z = a + b x + c y is reproduced
// exactly (to rounding). Outside the convex hull of the points there is no
// value (qvi::kNoValue). The triangulation comes from Qhull (Barber, Dobkin
// and Huhdanpaa 1996, "The Quickhull algorithm for convex hulls") as the
// lower hull of the points lifted onto the paraboloid z = x^2 + y^2.
//
// Point location starts from the triangle registered in a uniform grid cell
// near the query and walks across edges towards it (a visibility walk,
// Devillers, Pion and Teillaud 2002), so a query costs O(1) steps on average
// for points spread over the plane.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/I3D.h"

namespace math::fn::interpolate {

class Linear3D {
 public:
  // Where a query fell: the triangle and the weights of its three corners.
  struct Location {
    std::int32_t triangle = -1;  // -1: outside the hull
    double weight[3] = {0, 0, 0};
  };

  // Triangulates `points`. Coincident points count once, at the mean of
  // their values. Fewer than three distinct points, or all on one line, or a
  // coordinate that is not finite give an error and an empty surface.
  gtl::status SetPoints(const std::vector<Point3D>& points);

  // The interpolated value; qvi::kNoValue outside the hull, for a query that
  // is not finite, or when there is no triangulation.
  double operator()(double x, double y) const;
  // The triangle holding (x, y) and the barycentric weights.
  Location Locate(double x, double y) const;

  // The distinct points triangulated (sorted by x, then y).
  const std::vector<Point3D>& Vertices() const { return vertices_; }
  std::size_t TriangleCount() const { return triangles_.size(); }
  // The vertex indices of triangle `t`, counter-clockwise.
  const std::int32_t* Triangle(std::size_t t) const { return triangles_[t].v; }

 private:
  struct Tri {
    std::int32_t v[3];    // corners, counter-clockwise
    std::int32_t nb[3];   // neighbour across the edge opposite corner i; -1 on the hull
    double ox, oy;        // corner 0
    double inv[4];        // inverse of [p1 - p0, p2 - p0], row-major
    bool degenerate;      // zero area: never holds a query
  };

  void Clear();
  gtl::status Triangulate();
  void BuildNeighbours();
  void BuildStartGrid();
  // Barycentric weights of (x, y) in triangle t.
  void Weights(const Tri& t, double x, double y, double w[3]) const;
  std::int32_t StartTriangle(double x, double y) const;
  Location Scan(double x, double y) const;

  std::vector<Point3D> vertices_;
  std::vector<Tri> triangles_;
  // Start grid: one triangle per cell, near the cell.
  double gx0_ = 0, gy0_ = 0, gdx_ = 1, gdy_ = 1;
  std::int32_t gnx_ = 0, gny_ = 0;
  std::vector<std::int32_t> gridStart_;
};

}  // namespace math::fn::interpolate
