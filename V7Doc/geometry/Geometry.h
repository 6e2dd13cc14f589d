#pragma once
// The document's geometry: the points, lines, regions and ground-surface
// tables, the finite-element mesh and the precision of the drawing.
#include <vector>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/geometry/GeomContainers.h"
#include "V7Doc/geometry/Mesh2D.h"
#include "V7Doc/geometry/Precision3D.h"

namespace v7::Geom {

class Geometry {
 public:
  // Registers the points (1, "Points") and the lines (2, "Lines").
  void Init(QVContainerManager& manager);
  // Registers the regions (3, "Regions").
  void RegisterRegions(QVContainerManager& manager);
  // Registers the ground-surface layers (56, "Surface").
  void RegisterSurface(QVContainerManager& manager);
  // Empties every table and the mesh; the precision returns to that of an
  // empty drawing.
  void Reset();

  PointTable& Points() { return points_; }
  const PointTable& Points() const { return points_; }
  LineTable& Lines() { return lines_; }
  const LineTable& Lines() const { return lines_; }
  RegionTable& Regions() { return regions_; }
  const RegionTable& Regions() const { return regions_; }
  SurfaceTable& Surfaces() { return surface_; }
  const SurfaceTable& Surfaces() const { return surface_; }
  // The finite-element mesh ("hNodeMem", "hElemMem", "elem1Ds").
  Mesh2D& Mesh() { return mesh_; }
  const Mesh2D& Mesh() const { return mesh_; }

  // The drawing's precision, as last computed by UpdatePrecision.
  const Precision3D& DrawingPrecision() const { return precision_; }
  // Recomputes the precision from the extents of the points and makes it the
  // current comparison precision (SetCompPrecision).
  const Precision3D& UpdatePrecision();

  // Entry p is true when a registered container refers to point p (entry 0
  // is false). Needs the tables registered; all false otherwise.
  std::vector<bool> GetAllIsPointUsed();
  // Deletes the live points nobody refers to; returns how many.
  std::size_t CleanUnusedPoints();
  // Deletes the live lines nobody refers to; returns how many.
  std::size_t CleanUnusedLines();

 private:
  PointTable points_;
  LineTable lines_;
  RegionTable regions_;
  SurfaceTable surface_;
  Mesh2D mesh_;
  Precision3D precision_{7, 7, 7};
};

}  // namespace v7::Geom
