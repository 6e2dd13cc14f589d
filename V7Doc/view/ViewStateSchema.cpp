// Persisted names of the view state kept with the document.
#include "OC/Schema.h"
#include "V7Doc/view/ViewState.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::v7qvi::ViewMode>() {
  static const MetaEnumCommon t(L"ViewMode", {{0, L"Define"}, {1, L"Results"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::v7qvi::VectorKind>() {
  static const MetaEnumCommon t(L"VectorKind", {{0, L"WaterVelocity"},
                                                {1, L"Gradient"},
                                                {2, L"Displacement"},
                                                {3, L"HeatFlux"},
                                                {4, L"AirVelocity"}});
  return t;
}

namespace oc {
using namespace v7::v7qvi;

template <>
const RecordType& TypeOf<ViewFont>() {
  using T = ViewFont;
  static const RecordType& t = Schema<T>(L"ViewFont")
      .Add(&T::faceName_, L"faceName_", L"FaceName")
      .Add(&T::fHeight_, L"fHeight_", L"Height", meta::MetaDataTraits{}.Bounds(1, 1000).Units(L"pt"))
      .Add(&T::bBold_, L"bBold_", L"Bold")
      .Add(&T::bItalic_, L"bItalic_", L"Italic")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<WindowPlacement>() {
  using T = WindowPlacement;
  static const RecordType& t = Schema<T>(L"WindowPlacement")
      .Add(&T::nLeft_, L"nLeft_", L"Left")
      .Add(&T::nTop_, L"nTop_", L"Top")
      .Add(&T::nRight_, L"nRight_", L"Right")
      .Add(&T::nBottom_, L"nBottom_", L"Bottom")
      .Add(&T::bMaximized_, L"bMaximized_", L"Maximized")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<VectorDef>() {
  using T = VectorDef;
  static const RecordType& t = Schema<T>(L"VectorDef")
      .Add(&T::kind_, L"kind_", L"Kind")
      .Add(&T::bShow_, L"bShow_", L"Show")
      .Add(&T::fScale_, L"fScale_", L"Scale", meta::MetaDataTraits{}.Bounds(0, 1e6))
      .Add(&T::nColor_, L"nColor_", L"Color")
      .Done();
  return t;
}

}  // namespace oc
