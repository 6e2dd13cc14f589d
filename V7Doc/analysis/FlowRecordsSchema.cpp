// Persisted names of the flux sections, flow paths, particles and history
// points. A flux section's ID is written by its table.
#include "OC/Schema.h"
#include "V7Doc/analysis/FlowRecords.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<FluxSegment>() {
  using T = FluxSegment;
  static const RecordType& t = Schema<T>(L"FluxSegment")
      .Add(&T::fX1_, L"fX1_", L"X1")
      .Add(&T::fY1_, L"fY1_", L"Y1")
      .Add(&T::fX2_, L"fX2_", L"X2")
      .Add(&T::fY2_, L"fY2_", L"Y2")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<FLUX>() {
  using T = FLUX;
  static const RecordType& t = Schema<T>(L"FLUX")
      .Add(&T::name_, L"name_", L"Name")
      // The collection's persisted name is spelt so; files depend on it.
      .Add(&T::vSections_, L"vSections_", L"Sectons[Fluxsect]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<FluxLabel>() {
  using T = FluxLabel;
  static const RecordType& t = Schema<T>(L"FluxLabel")
      .Add(&T::nFluxID_, L"nFluxID_", L"FluxSectionID")
      .Add(&T::fX_, L"fX_", L"X")
      .Add(&T::fY_, L"fY_", L"Y")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<PathPoint>() {
  using T = PathPoint;
  static const RecordType& t =
      Schema<T>(L"PathPoint").Add(&T::fX_, L"fX_", L"X").Add(&T::fY_, L"fY_", L"Y").Done();
  return t;
}

template <>
const RecordType& TypeOf<FlowPath>() {
  using T = FlowPath;
  static const RecordType& t = Schema<T>(L"FlowPath")
      .Add(&T::name_, L"name_", L"Name")
      .Add(&T::vPoints_, L"vPoints_", L"Points[Pt]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Particle>() {
  using T = Particle;
  static const RecordType& t = Schema<T>(L"Particle")
      .Add(&T::fX_, L"fX_", L"X")
      .Add(&T::fY_, L"fY_", L"Y")
      .Add(&T::fReleaseTime_, L"fReleaseTime_", L"ReleaseTime",
           meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue).Units(L"s"))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ParticlePair>() {
  using T = ParticlePair;
  static const RecordType& t = Schema<T>(L"ParticlePair")
      .Add(&T::fX1_, L"fX1_", L"X1")
      .Add(&T::fY1_, L"fY1_", L"Y1")
      .Add(&T::fX2_, L"fX2_", L"X2")
      .Add(&T::fY2_, L"fY2_", L"Y2")
      .Add(&T::nCount_, L"nCount_", L"Count", meta::MetaDataTraits{}.Bounds(1, 1e6))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<POGHPoint>() {
  using T = POGHPoint;
  static const RecordType& t = Schema<T>(L"POGHPoint")
      .Add(&T::name_, L"name_", L"Name")
      .Add(&T::fX_, L"fX_", L"X")
      .Add(&T::fY_, L"fY_", L"Y")
      .Done();
  return t;
}

}  // namespace oc
