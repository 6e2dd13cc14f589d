#pragma once
// The geometry tables: points (1), lines (2), regions (3) and ground-surface
// layers (56). Each table that refers to another subscribes to it, answers
// usage queries about its records and follows their renumbering.
#include <vector>

#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/geometry/GeomItems.h"
#include "V7Doc/geometry/Precision3D.h"

namespace v7::Geom {

// The container GIDs the geometry tables refer to.
namespace ids {
inline constexpr GID Points = 1, Lines = 2, Regions = 3, Materials = 4, Surface = 56;
}

// Base of the geometry tables: a container that also hears the change notices
// of the containers it subscribed to (none by default).
class IGeomContainer : public IQVContainer, public IQVChangeListener {
 public:
  void OnIDUpdate(GID, const std::vector<GID>&) override {}
  void OnDelete(GID, const std::vector<GID>&) override {}
  void OnAdd(GID, const std::vector<GID>&) override {}
};

template <class T>
using GeomTable = QVContainerTable<T, QVContainerNoStoredIDPolicy<T>, QVContainerOpPolicy<T>,
                                   QVContainerVectorStoragePolicy<T>, IGeomContainer>;

class PointTable : public GeomTable<Point> {
 public:
  // The lowest ID of a live point equal to `p` under `precision`, or 0.
  GID FindPoint(const Point2D& p, const Precision3D& precision = Precision()) const;
  // The ID of a live point equal to `p`, or of a new point added at `p`; 0
  // (nothing added) when a coordinate is not finite or is the no-value marker.
  GID AddNew(const Point2D& p, const Precision3D& precision = Precision());
  // The box holding every live point (empty extents when there is none).
  Extents2D Extents() const;
};

class LineTable : public GeomTable<Line> {
 public:
  // The lowest ID of a live line joining points a and b in either direction,
  // or 0.
  GID FindLine(GID a, GID b) const;
  // The ID of the line joining a and b, added when there is none; 0 (nothing
  // added) when a or b is 0 or a == b.
  GID AddNew(GID a, GID b);

  // Subscribes to the points.
  void OnRegistration() override;
  // Usage of points: each line is listed under both of its end points.
  void OnGetUsageOf(GID container, UsageList& usage) override;
  // Follows the renumbering of points; a line that loses an end point in a
  // full compaction is deleted, since a line cannot exist without both ends.
  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
};

class RegionTable : public GeomTable<Region> {
 public:
  // The live lines joining consecutive points of region `id`'s polygon, in
  // polygon order (closing edge last; a two-point region has one edge).
  // Edges without a line are skipped.
  std::vector<GID> RegionLineIDs(GID id) const;

  // Subscribes to the lines.
  void OnRegistration() override;
  // Usage of lines: the lines along the edges of the polygon. (The points
  // and the material a region names are declared references: in a
  // document they answer, and follow renumbering, by themselves.)
  void OnGetUsageOf(GID container, UsageList& usage) override;

 private:
  const LineTable* Lines() const;
};

// The points along a surface polyline are declared references.
class SurfaceTable : public GeomTable<Surface> {};

}  // namespace v7::Geom
