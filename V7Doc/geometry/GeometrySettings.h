#pragma once
// Settings of the geometry and its mesh held by the document beside the
// geometry tables: the kind of model ("geometry", "GeometryItems.Common"),
// the section's plane ("plane"), the mesher's global edge length and the
// mesh version, the infinite elements ("infElemDef") and how points are
// labelled ("pointAssocDisp").
#include <cstdint>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"

namespace v7::Geom {

// What the two coordinates of the model stand for.
enum class GeometryKind : std::int32_t {
  TwoD = 0,          // "2D": a section of unit thickness (plane strain)
  Axisymmetric = 1,  // "Axisymmetric": x is the radius about the y axis
  Plan = 2,          // "Plan": a horizontal plan view
  Undefined = qvi::kNone,
};

struct GeometryCommon {
  GeometryKind kind_ = GeometryKind::TwoD;  // "Kind"
  friend bool operator==(const GeometryCommon&, const GeometryCommon&) = default;
};

// Where the section lies in the site: its origin in site coordinates and the
// azimuth of its x axis (degrees clockwise from north), and its thickness
// out of the section.
struct GeometryPlane {
  double fOriginX_ = 0, fOriginY_ = 0, fOriginZ_ = 0;  // "OriginX/Y/Z", m
  double fAzimuth_ = 90;   // "Azimuth", degrees (90: x points east)
  double fThickness_ = 1;  // "Thickness", m
  friend bool operator==(const GeometryPlane&, const GeometryPlane&) = default;
};

// Infinite elements: the elements of the listed regions are mapped to
// infinity away from the pole, so that a far boundary need not be modelled
// (the mapped infinite elements of Zienkiewicz, Emson & Bettess, 1983). No
// pole (the marker) lets the mesher take the centroid of the other regions.
struct InfElemDef {
  double fPoleX_ = qvi::kNoValue;  // "PoleX", m
  double fPoleY_ = qvi::kNoValue;  // "PoleY", m
  std::vector<GID> vRegions_;      // "Regions[ID]"
  friend bool operator==(const InfElemDef&, const InfElemDef&) = default;
};

// How one point is labelled on the drawing ("View.PointLabel[Point]").
struct PointLabel {
  GID nPoint_ = 0;              // "PointID"
  bool bShowNumber_ = true;     // "ShowNumber"
  bool bShowCoordinates_ = false;  // "ShowCoordinates"
  double fOffsetX_ = 0, fOffsetY_ = 0;  // "OffsetX", "OffsetY": from the point, mm on the page
  friend bool operator==(const PointLabel&, const PointLabel&) = default;
};

}  // namespace v7::Geom

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::Geom::GeometryKind>();
