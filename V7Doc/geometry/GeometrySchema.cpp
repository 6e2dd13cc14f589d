// Persisted names of the geometry items. Lines keep
// the names of their end points, "PointID1" and "PointID2", which the older
// documents' paths ("GeometryItems.Lines[$1].PointID1") use.
#include "OC/Schema.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/geometry/GeomItems.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<GGID>() {
  static const RecordType& t = Schema<GGID>(L"GGID")
      .Add(&GGID::container, L"container", L"Container")
      .Add(&GGID::record, L"record", L"ID")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Geom::Point>() {
  static const RecordType& t = Schema<Geom::Point>(L"Point")
      .Add(&Geom::Point::dX_, L"dX_", L"X")
      .Add(&Geom::Point::dY_, L"dY_", L"Y")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Geom::Line>() {
  static const RecordType& t = Schema<Geom::Line>(L"Line")
      .Add(&Geom::Line::nPointID1_, L"nPointID1_", L"PointID1")
      .Add(&Geom::Line::nPointID2_, L"nPointID2_", L"PointID2")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Geom::Region>() {
  static const RecordType& t = Schema<Geom::Region>(L"Region")
      .Add(&Geom::Region::pointIDs_, L"pointIDs_", L"PointIDs[ID]", meta::MetaDataTraits{}.Ref(container::Points))
      .Add(&Geom::Region::cornerPointIDs_, L"cornerPointIDs_", L"CornerPointIDs[ID]", meta::MetaDataTraits{}.Ref(container::Points))
      .Add(&Geom::Region::nFlags_, L"nFlags_", L"Flags")
      .Add(&Geom::Region::ggidOwner_, L"ggidOwner_", L"Owner")
      .Add(&Geom::Region::nMaterialID_, L"nMaterialID_", L"MaterialID", meta::MetaDataTraits{}.Ref(container::Materials))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Geom::Surface>() {
  static const RecordType& t = Schema<Geom::Surface>(L"Surface")
      .Add(&Geom::Surface::name_, L"name_", L"Name")
      .Add(&Geom::Surface::pointIDs_, L"pointIDs_", L"PointIDs[ID]", meta::MetaDataTraits{}.Ref(container::Points))
      .Add(&Geom::Surface::dThickness_, L"dThickness_", L"Thickness", meta::MetaDataTraits{}.Bounds(0, 1e300))
      .Done();
  return t;
}

}  // namespace oc
