#pragma once
// The document's geometry: points, lines, regions and the surface geometry.
#include <string>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7::Geom {

// Base of the geometry tables.
class IGeomContainer : public IQVContainer {};

struct Point {
  double x = 0, y = 0;
  bool bMissing_ = false;
  friend bool operator==(const Point&, const Point&) = default;
};
struct Line {
  GID point1 = 0, point2 = 0;
  friend bool operator==(const Line&, const Line&) = default;
};
struct Region {
  std::wstring name;
  bool bMissing_ = false;
  friend bool operator==(const Region&, const Region&) = default;
};
struct Surface {
  bool bMissing_ = false;
  friend bool operator==(const Surface&, const Surface&) = default;
};

inline bool IsMissing(const Point& p) { return p.bMissing_; }
inline void SetMissing(Point& p) { p = Point{}, p.bMissing_ = true; }
inline bool IsMissing(const Line& l) { return l.point1 == 0 && l.point2 == 0; }
inline void SetMissing(Line& l) { l = Line{}; }
inline bool IsMissing(const Region& r) { return r.bMissing_; }
inline void SetMissing(Region& r) { r = Region{}, r.bMissing_ = true; }
inline bool IsMissing(const Surface& s) { return s.bMissing_; }
inline void SetMissing(Surface& s) { s = Surface{}, s.bMissing_ = true; }

using PointTable = QVContainerTable<Point, QVContainerNoStoredIDPolicy<Point>,
                                    QVContainerOpPolicy<Point>,
                                    QVContainerVectorStoragePolicy<Point>, IGeomContainer>;
using LineTable = QVContainerTable<Line, QVContainerNoStoredIDPolicy<Line>, QVContainerOpPolicy<Line>,
                                   QVContainerVectorStoragePolicy<Line>, IGeomContainer>;
using RegionTable = QVContainerTable<Region, QVContainerNoStoredIDPolicy<Region>,
                                     QVContainerOpPolicy<Region>,
                                     QVContainerVectorStoragePolicy<Region>, IGeomContainer>;
using SurfaceTable = QVContainerTable<Surface, QVContainerNoStoredIDPolicy<Surface>,
                                      QVContainerOpPolicy<Surface>,
                                      QVContainerVectorStoragePolicy<Surface>, IGeomContainer>;

class Geometry {
 public:
  // Registers the points (1) and lines (2).
  void Init(QVContainerManager& manager) {
    manager.Register(&points_, L"Points", 1);
    manager.Register(&lines_, L"Lines", 2);
  }
  // Registers the regions (3).
  void RegisterRegions(QVContainerManager& manager) { manager.Register(&regions_, L"Regions", 3); }
  // Registers the surface geometry (56).
  void RegisterSurface(QVContainerManager& manager) { manager.Register(&surface_, L"Surface", 56); }
  // Empties every table and resets the settings.
  void Reset() {
    points_.Clear();
    lines_.Clear();
    regions_.Clear();
    surface_.Clear();
  }

  PointTable& Points() { return points_; }
  LineTable& Lines() { return lines_; }
  RegionTable& Regions() { return regions_; }
  SurfaceTable& Surfaces() { return surface_; }
  const PointTable& Points() const { return points_; }
  const LineTable& Lines() const { return lines_; }
  const RegionTable& Regions() const { return regions_; }

 private:
  PointTable points_;
  LineTable lines_;
  RegionTable regions_;
  SurfaceTable surface_;
};

}  // namespace v7::Geom
