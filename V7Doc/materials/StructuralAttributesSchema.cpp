// Persisted names of the structural bar and beam attributes
// ("BarAttributes[BarAttribute]", "BeamAttributes[BeamAttribute]").
#include "OC/Schema.h"
#include "V7Doc/materials/StructuralAttributes.h"

namespace oc {
using namespace v7;

namespace {
meta::MetaDataTraits Positive(const wchar_t* units) {
  return meta::MetaDataTraits{}.Bounds(1e-12, qvi::kNoValue).Units(units);
}
meta::MetaDataTraits NonNegative(const wchar_t* units) {
  return meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue).Units(units);
}

// What a bar and a beam both start with: a named section, its modulus and
// its area.
template <class T>
Schema<T> Section(const wchar_t* name) {
  Schema<T> s(name);
  s.Add(&T::name_, L"name_", L"Name")
      .Add(&T::fEModulus_, L"fEModulus_", L"EModulus", Positive(L"kPa"))
      .Add(&T::fArea_, L"fArea_", L"Area", Positive(L"m2"));
  return s;
}
}  // namespace

template <>
const RecordType& TypeOf<StructuralBarAttribute>() {
  using T = StructuralBarAttribute;
  static const RecordType& t = Section<T>(L"StructuralBarAttribute")
      .Add(&T::fSpacing_, L"fSpacing_", L"Spacing", Positive(L"m"))
      .Add(&T::fTensileCapacity_, L"fTensileCapacity_", L"TensileCapacity", NonNegative(L"kN"))
      .Add(&T::fCompressiveCapacity_, L"fCompressiveCapacity_", L"CompressiveCapacity", NonNegative(L"kN"))
      .Add(&T::fPreForce_, L"fPreForce_", L"PreForce", meta::MetaDataTraits{}.Units(L"kN"))
      .Add(&T::nColor_, L"nColor_", L"Color")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<StructuralBeamAttribute>() {
  using T = StructuralBeamAttribute;
  static const RecordType& t = Section<T>(L"StructuralBeamAttribute")
      .Add(&T::fMomentOfInertia_, L"fMomentOfInertia_", L"MomentOfInertia", Positive(L"m4"))
      .Add(&T::fSpacing_, L"fSpacing_", L"Spacing", Positive(L"m"))
      .Add(&T::fUnitWeight_, L"fUnitWeight_", L"UnitWeight", NonNegative(L"kN/m"))
      .Add(&T::fYieldMoment_, L"fYieldMoment_", L"YieldMoment", NonNegative(L"kN m"))
      .Add(&T::nColor_, L"nColor_", L"Color")
      .Done();
  return t;
}

}  // namespace oc
