#pragma once
// The records of the geometry tables: points ("GeometryItems.Points[Point]"),
// lines ("GeometryItems.Lines[Lines]"), regions
// ("GeometryItems.Regions[Region]") and ground-surface layers ("Surface").
// Records refer to each other by GID, never by pointer.
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/geometry/GeomTypes.h"

namespace v7::Geom {

// A point of the drawing. Tombstone: both coordinates at the no-value marker
// (a live point always has coordinates).
struct Point {
  double dX_ = 0;
  double dY_ = 0;

  Point2D XY() const { return {dX_, dY_}; }
  friend bool operator==(const Point&, const Point&) = default;
};
inline bool IsMissing(const Point& p) { return p.dX_ == qvi::kNoValue && p.dY_ == qvi::kNoValue; }
inline void SetMissing(Point& p) { p.dX_ = p.dY_ = qvi::kNoValue; }

// A straight line between two points ("PointID1", "PointID2"). Tombstone:
// both point IDs 0.
struct Line {
  GID nPointID1_ = 0;
  GID nPointID2_ = 0;
  friend bool operator==(const Line&, const Line&) = default;
};
inline bool IsMissing(const Line& l) { return l.nPointID1_ == 0 && l.nPointID2_ == 0; }
inline void SetMissing(Line& l) { l = Line{}; }

// A region: a closed polygon of points ("PointIDs", in drawing order), the
// subset of them that are corners ("CornerPointIDs"), its flags and owner.
// The region's lines are not stored: they are the lines joining consecutive
// points of the polygon.
struct Region {
  // Flag bit 3: the region is a line region, drawn along two points only.
  static constexpr std::uint32_t kFlagLineRegion = 8;

  std::vector<GID> pointIDs_;
  std::vector<GID> cornerPointIDs_;
  std::uint32_t nFlags_ = 0;
  // The record that owns the region (a GGID of any container; none when 0).
  GGID ggidOwner_;
  // The region's material, a GID into the materials table (4); 0 for none.
  // This is the material every analysis uses unless an analysis context
  // associates another one ("RegionUsesMaterials").
  GID nMaterialID_ = 0;
  bool bMissing_ = false;

  bool IsLineRegion() const { return (nFlags_ & kFlagLineRegion) != 0; }
  friend bool operator==(const Region&, const Region&) = default;
};
inline bool IsMissing(const Region& r) { return r.bMissing_; }
inline void SetMissing(Region& r) {
  r = Region{};
  r.bMissing_ = true;
}

// A ground-surface layer: a named polyline of points along the ground surface
// and the thickness of the layer beneath it.
struct Surface {
  std::wstring name_;
  std::vector<GID> pointIDs_;
  double dThickness_ = 0;
  bool bMissing_ = false;
  friend bool operator==(const Surface&, const Surface&) = default;
};
inline bool IsMissing(const Surface& s) { return s.bMissing_; }
inline void SetMissing(Surface& s) {
  s = Surface{};
  s.bMissing_ = true;
}

}  // namespace v7::Geom
