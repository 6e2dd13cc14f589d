// Persisted names of the geometry and mesh settings and of the mesh
// constraints.
#include "OC/Schema.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/geometry/GeometrySettings.h"
#include "V7Doc/geometry/MeshConstraint.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::Geom::GeometryKind>() {
  static const MetaEnumCommon t(L"GeometryKind", {{0, L"2D"}, {1, L"Axisymmetric"}, {2, L"Plan"}});
  return t;
}

namespace oc {
using namespace v7;
using namespace v7::Geom;

template <>
const RecordType& TypeOf<GeometryCommon>() {
  static const RecordType& t =
      Schema<GeometryCommon>(L"GeometryCommon").Add(&GeometryCommon::kind_, L"kind_", L"Kind").Done();
  return t;
}

template <>
const RecordType& TypeOf<GeometryPlane>() {
  using T = GeometryPlane;
  static const RecordType& t = Schema<T>(L"GeometryPlane")
      .Add(&T::fOriginX_, L"fOriginX_", L"OriginX")
      .Add(&T::fOriginY_, L"fOriginY_", L"OriginY")
      .Add(&T::fOriginZ_, L"fOriginZ_", L"OriginZ")
      .Add(&T::fAzimuth_, L"fAzimuth_", L"Azimuth", meta::MetaDataTraits{}.Bounds(0, 360).Units(L"deg"))
      .Add(&T::fThickness_, L"fThickness_", L"Thickness", meta::MetaDataTraits{}.Bounds(1e-9, 1e9).Units(L"m"))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<InfElemDef>() {
  using T = InfElemDef;
  static const RecordType& t = Schema<T>(L"InfElemDef")
      .Add(&T::fPoleX_, L"fPoleX_", L"PoleX")
      .Add(&T::fPoleY_, L"fPoleY_", L"PoleY")
      .Add(&T::vRegions_, L"vRegions_", L"Regions[ID]", meta::MetaDataTraits{}.Ref(container::Regions))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<PointLabel>() {
  using T = PointLabel;
  static const RecordType& t = Schema<T>(L"PointLabel")
      // A label of a deleted point has nothing to label.
      .Add(&T::nPoint_, L"nPoint_", L"PointID",
           meta::MetaDataTraits{}.Ref(container::Points).Flag(meta::MetaDataTraits::DropWhenGone))
      .Add(&T::bShowNumber_, L"bShowNumber_", L"ShowNumber")
      .Add(&T::bShowCoordinates_, L"bShowCoordinates_", L"ShowCoordinates")
      .Add(&T::fOffsetX_, L"fOffsetX_", L"OffsetX")
      .Add(&T::fOffsetY_, L"fOffsetY_", L"OffsetY")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<MeshConstraint>() {
  using T = MeshConstraint;
  static const RecordType& t = Schema<T>(L"MeshConstraint")
      .Add(&T::nContainer_, L"nContainer_", L"ContainerID")
      .Add(&T::nRecord_, L"nRecord_", L"RecordID", meta::MetaDataTraits{}.RefVia(L"nContainer_"))
      .Add(&T::fEdgeLength_, L"fEdgeLength_", L"EdgeLength", meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue).Units(L"m"))
      .Add(&T::nDivisions_, L"nDivisions_", L"NumDivisions", meta::MetaDataTraits{}.Bounds(0, 1e6))
      .Done();
  return t;
}

}  // namespace oc
