// Persisted names of the view preferences and of the page settings.
#include "OC/Schema.h"
#include "V7Doc/view/ViewPreferences.h"

namespace oc {
using namespace v7::v7qvi;

template <>
const RecordType& TypeOf<ViewPreferences>() {
  static const RecordType& t = Schema<ViewPreferences>(L"ViewPreferences")
      .Add(&ViewPreferences::bShowPoints, L"bShowPoints", L"ShowPoints")
      .Add(&ViewPreferences::bShowMesh, L"bShowMesh", L"Mesh")
      .Add(&ViewPreferences::bShowAxes, L"bShowAxes", L"ShowAxes")
      .Add(&ViewPreferences::fFontSize, L"fFontSize", L"FontSize", meta::MetaDataTraits{}.Bounds(1, 1000).Units(L"pt"))
      .Add(&ViewPreferences::bShowMeshLabels, L"bShowMeshLabels", L"MeshLabels")
      .Add(&ViewPreferences::bMaterialColor, L"bMaterialColor", L"MaterialColor")
      .Add(&ViewPreferences::bShowGrid, L"bShowGrid", L"ShowGrid")
      .Add(&ViewPreferences::bSnapToGrid, L"bSnapToGrid", L"SnapToGrid")
      .Add(&ViewPreferences::fXGridSpacing, L"fXGridSpacing", L"XGridSpacing", meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue))
      .Add(&ViewPreferences::fYGridSpacing, L"fYGridSpacing", L"YGridSpacing", meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue))
      .Add(&ViewPreferences::vVectorDefs, L"vVectorDefs", L"VectorDefs[VectorDef]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<DisplaySettings>() {
  static const RecordType& t = Schema<DisplaySettings>(L"DisplaySettings")
      .Add(&DisplaySettings::fPageWidth, L"fPageWidth", L"PageWidth", meta::MetaDataTraits{}.Bounds(0, 1e6).Units(L"in"))
      .Add(&DisplaySettings::fPageHeight, L"fPageHeight", L"PageHeight", meta::MetaDataTraits{}.Bounds(0, 1e6).Units(L"in"))
      .Add(&DisplaySettings::fMargin, L"fMargin", L"Margin", meta::MetaDataTraits{}.Bounds(0, 1e6).Units(L"in"))
      .Done();
  return t;
}

}  // namespace oc
