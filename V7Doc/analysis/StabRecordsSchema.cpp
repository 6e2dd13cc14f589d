// Persisted names of the stability records. Identified records (DataPoint,
// SurchargeLoad, ReinforcementLoad, SLIP) have their ID written by their
// table, so the stored ID member is not declared.
#include "OC/Schema.h"
#include "V7Doc/analysis/StabRecords.h"
#include "V7Doc/core/ContainerIDs.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ReinforcementType>() {
  static const MetaEnumCommon t(L"ReinforcementType",
                                {{0, L"Anchor"}, {1, L"Nail"}, {2, L"Geosynthetic"}, {3, L"Pile"}});
  return t;
}

namespace oc {
using namespace v7;

namespace {
const meta::MetaDataTraits kNonNegative = meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue);

// The points of a line: each the ID of a point of the document.
meta::MetaDataTraits PointIDs() { return meta::MetaDataTraits{}.Ref(container::Points); }

// What a slip surface and a pressure line both start with: a named line
// through points of the document.
template <class T>
Schema<T> NamedPointLine(const wchar_t* name) {
  Schema<T> s(name);
  s.Add(&T::name_, L"name_", L"Name").Add(&T::vPoints_, L"vPoints_", L"DataPoints[DataPoint]", PointIDs());
  return s;
}
}  // namespace

template <>
const RecordType& TypeOf<DataPoint>() {
  using T = DataPoint;
  static const RecordType& t = Schema<T>(L"DataPoint")
      .Add(&T::nNumber_, L"nNumber_", L"Number")
      .Add(&T::fX_, L"fX_", L"X", meta::MetaDataTraits{}.Units(L"m"))
      .Add(&T::fY_, L"fY_", L"Y", meta::MetaDataTraits{}.Units(L"m"))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SurchargeLoad>() {
  using T = SurchargeLoad;
  static const RecordType& t = Schema<T>(L"SurchargeLoad")
      .Add(&T::name_, L"name_", L"Name")
      .Add(&T::fUnitWeight_, L"fUnitWeight_", L"UnitWeight")
      .Add(&T::vPoints_, L"vPoints_", L"DataPoints[DataPoint]", PointIDs())
      .Add(&T::fnNum_, L"fnNum_", L"FnNum", meta::MetaDataTraits{}.Ref(container::StressBFns))
      .Add(&T::variation_, L"variation_", L"Variation")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ReinforcementLoad>() {
  using T = ReinforcementLoad;
  const auto kN = [] { return meta::MetaDataTraits(kNonNegative).Units(L"kN"); };
  static const RecordType& t = Schema<T>(L"ReinforcementLoad")
      .Add(&T::name_, L"name_", L"Name")
      .Add(&T::type_, L"type_", L"Type")
      .Add(&T::fOutX_, L"fOutX_", L"OutsidePoint.X")
      .Add(&T::fOutY_, L"fOutY_", L"OutsidePoint.Y")
      .Add(&T::fInX_, L"fInX_", L"InsidePoint.X")
      .Add(&T::fInY_, L"fInY_", L"InsidePoint.Y")
      .Add(&T::fBondLength_, L"fBondLength_", L"BondLength", meta::MetaDataTraits(kNonNegative).Units(L"m"))
      .Add(&T::fSpacing_, L"fSpacing_", L"Spacing", meta::MetaDataTraits{}.Bounds(1e-6, qvi::kNoValue).Units(L"m"))
      .Add(&T::fTensileCapacity_, L"fTensileCapacity_", L"TensileCapacity", kN())
      .Add(&T::fBondResistance_, L"fBondResistance_", L"BondResistance", meta::MetaDataTraits(kNonNegative).Units(L"kN/m"))
      .Add(&T::fShearCapacity_, L"fShearCapacity_", L"ShearCapacity", kN())
      .Add(&T::bFOSDependent_, L"bFOSDependent_", L"FOSDependent")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SLIP>() {
  using T = SLIP;
  static const RecordType& t = NamedPointLine<T>(L"SLIP")
      .Add(&T::fAxisX_, L"fAxisX_", L"AxisX")
      .Add(&T::fAxisY_, L"fAxisY_", L"AxisY")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<PressureLine>() {
  using T = PressureLine;
  static const RecordType& t = NamedPointLine<T>(L"PressureLine")
      .Add(&T::fUnitWeight_, L"fUnitWeight_", L"UnitWeight", meta::MetaDataTraits(kNonNegative).Units(L"kN/m3"))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<LineLoadPoint>() {
  using T = LineLoadPoint;
  static const RecordType& t = Schema<T>(L"LineLoadPoint")
      .Add(&T::fX_, L"fX_", L"X")
      .Add(&T::fY_, L"fY_", L"Y")
      .Add(&T::fMagnitude_, L"fMagnitude_", L"Magnitude", meta::MetaDataTraits{}.Units(L"kN/m"))
      .Add(&T::fDirection_, L"fDirection_", L"Direction", meta::MetaDataTraits{}.Bounds(0, 360).Units(L"deg"))
      .Done();
  return t;
}

}  // namespace oc
