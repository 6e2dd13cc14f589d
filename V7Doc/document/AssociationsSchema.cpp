// Persisted names of the analysis contexts ("Contexts[Context]") and the
// association maps they carry. The ID is written by the table itself, so nID_
// is not declared.
#include "OC/Schema.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/document/Associations.h"

namespace oc {
using namespace v7;

namespace {
// A link of a map means nothing without either end: it leaves its map when
// the record at one end is deleted.
constexpr unsigned kDrop = meta::MetaDataTraits::DropWhenGone;
meta::MetaDataTraits Link(GID to) { return meta::MetaDataTraits{}.Ref(to).Flag(kDrop); }
}  // namespace

// One entry of a GID-to-GID key map (QVContainerAssoc<GID>). The key is
// read-only by path: the map is kept sorted by it, so an entry changes its
// key by being erased and inserted again.
template <>
const RecordType& TypeOf<std::pair<GID, GID>>() {
  using T = std::pair<GID, GID>;
  static const RecordType& t =
      Schema<T>(L"GIDByGID")
          .Add(&T::first, L"first", L"Key", meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::ReadOnly))
          .Add(&T::second, L"second", L"Value")
          .Done();
  return t;
}

template <>
const RecordType& TypeOf<RegionUsesMaterial>() {
  using T = RegionUsesMaterial;
  static const RecordType& t = Schema<T>(L"RegionUsesMaterial")
                                   .Add(&T::region, L"region", L"RegionID", Link(container::Regions))
                                   .Add(&T::material, L"material", L"MaterialID", Link(container::Materials))
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<GeometryUsesBC>() {
  using T = GeometryUsesBC;
  static const RecordType& t = Schema<T>(L"GeometryUsesBC")
                                   .Add(&T::container, L"container", L"ContainerID")
                                   .Add(&T::record, L"record", L"ID",
                                        meta::MetaDataTraits{}.RefVia(L"container").Flag(kDrop))
                                   .Add(&T::bc, L"bc", L"BCID", Link(container::BCs))
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<LineSideUsesMaterial>() {
  using T = LineSideUsesMaterial;
  static const RecordType& t = Schema<T>(L"LineSideUsesMaterial")
                                   .Add(&T::line, L"line", L"LineID", Link(container::Lines))
                                   .Add(&T::material, L"material", L"MaterialID", Link(container::Materials))
                                   .Done();
  return t;
}

namespace {
template <GID Table>
const RecordType& LineAttributeType(const wchar_t* name) {
  using T = LineUsesAttribute<Table>;
  static const RecordType& t = Schema<T>(name)
                                   .Add(&T::line, L"line", L"LineID", Link(container::Lines))
                                   .Add(&T::attribute, L"attribute", L"AttributeID", Link(Table))
                                   .Done();
  return t;
}
}  // namespace

template <>
const RecordType& TypeOf<LineUsesBar>() {
  return LineAttributeType<container::StructuralBarAttributes>(L"LineUsesBar");
}

template <>
const RecordType& TypeOf<LineUsesBeam>() {
  return LineAttributeType<container::StructuralBeamAttributes>(L"LineUsesBeam");
}

template <>
const RecordType& TypeOf<MaterialUsesPiez>() {
  using T = MaterialUsesPiez;
  static const RecordType& t = Schema<T>(L"MaterialUsesPiez")
                                   .Add(&T::material, L"material", L"MaterialID", Link(container::Materials))
                                   .Add(&T::piez, L"piez", L"PiezID")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<MaterialUsesParam>() {
  using T = MaterialUsesParam;
  static const RecordType& t = Schema<T>(L"MaterialUsesParam")
                                   .Add(&T::material, L"material", L"MaterialID", Link(container::Materials))
                                   .Add(&T::value, L"value", L"Value")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<Associations>() {
  using T = Associations;
  static const RecordType& t =
      Schema<T>(L"Associations")
          .Add(&T::name_, L"name_", L"Name")
          .Add(&T::nAnalysisID_, L"nAnalysisID_", L"AnalysisID",
               meta::MetaDataTraits{}.Ref(container::Analyses))
          .Add(&T::regionUsesMaterials_, L"regionUsesMaterials_",
               L"RegionUsesMaterials[RegionUsesMaterial]")
          .Add(&T::hydBCIDByGGID, L"hydBCIDByGGID", L"GeometryUsesHydraulicBCs[GeometryUsesHydraulicBC]")
          .Add(&T::airBCIDByGGID, L"airBCIDByGGID", L"GeometryUsesAirBCs[GeometryUsesAirBC]")
          .Add(&T::thermBCIDByGGID, L"thermBCIDByGGID", L"GeometryUsesThermBCs[GeometryUsesThermBC]")
          .Add(&T::contamBCIDByGGID, L"contamBCIDByGGID",
               L"GeometryUsesContaminantBCs[GeometryUsesContaminantBC]")
          .Add(&T::gasBCIDByGGID, L"gasBCIDByGGID", L"GeometryUsesGasBCs[GeometryUsesGasBC]")
          .Add(&T::xdispBCIDByGGID, L"xdispBCIDByGGID", L"GeometryUsesXDispBCs[GeometryUsesXDispBC]")
          .Add(&T::ydispBCIDByGGID, L"ydispBCIDByGGID", L"GeometryUsesYDispBCs[GeometryUsesYDispBC]")
          .Add(&T::rotBCIDByGGID, L"rotBCIDByGGID", L"GeometryUsesRotBCs[GeometryUsesRotBC]")
          .Add(&T::cwLineSideMaterials_, L"cwLineSideMaterials_",
               L"CWLineSideUsesMaterials[CWLineSideUsesMaterial]")
          .Add(&T::ccwLineSideMaterials_, L"ccwLineSideMaterials_",
               L"CCWLineSideUsesMaterials[CCWLineSideUsesMaterial]")
          .Add(&T::lineBars_, L"lineBars_", L"LineUsesBars[LineUsesBar]")
          .Add(&T::lineBeams_, L"lineBeams_", L"LineUsesBeams[LineUsesBeam]")
          .Add(&T::materialPiezs_, L"materialPiezs_", L"MaterialUsesPiezs[MaterialUsesPiez]")
          .Add(&T::materialRu_, L"materialRu_", L"MaterialUsesRuParams[MaterialUsesRuParam]")
          .Add(&T::materialBBar_, L"materialBBar_", L"MaterialUsesBBarParams[MaterialUsesBBarParam]")
          .Done();
  return t;
}

}  // namespace oc
