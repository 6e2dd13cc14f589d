#include "V7Doc/results/ResultSet.h"

#include "OC/Schema.h"

namespace v7 {

ResultSet::ResultSet(GID analysisID, const ANALYSIS& analysis, const v7qvi::ViewPreferences& view,
                     const ResultEngCoords& eng)
    : name_(analysis.name),
      analysis_(analysisID),
      bShowMesh_(view.bShowMesh),
      bShowPoints_(view.bShowPoints),
      fFontSize_(view.fFontSize),
      view_(eng) {}

}  // namespace v7

template <>
const oc::RecordType& oc::TypeOf<v7::ResultEngCoords>() {
  using v7::ResultEngCoords;
  static const RecordType& t = Schema<ResultEngCoords>(L"ResultEngCoords")
                                   .Add(&ResultEngCoords::fMinX, L"fMinX", L"MinX")
                                   .Add(&ResultEngCoords::fMinY, L"fMinY", L"MinY")
                                   .Add(&ResultEngCoords::fMaxX, L"fMaxX", L"MaxX")
                                   .Add(&ResultEngCoords::fMaxY, L"fMaxY", L"MaxY")
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::ResultSet>() {
  using v7::ResultSet;
  static const RecordType& t =
      Schema<ResultSet>(L"ResultSet")
          .Add(&ResultSet::name_, L"name_", L"Name")
          .Add(&ResultSet::analysis_, L"analysis_", L"AnalysisID")
          .Add(&ResultSet::nStep_, L"nStep_", L"Step")
          .Add(&ResultSet::fElapsedTime_, L"fElapsedTime_", L"ElapsedTime")
          .Add(&ResultSet::contour_, L"contour_", L"ContourID")
          .Add(&ResultSet::bShowMesh_, L"bShowMesh_", L"ShowMesh")
          .Add(&ResultSet::bShowPoints_, L"bShowPoints_", L"ShowPoints")
          .Add(&ResultSet::fFontSize_, L"fFontSize_", L"FontSize",
               meta::MetaDataTraits{}.Bounds(1, 200).Units(L"pt"))
          .Add(&ResultSet::view_, L"view_", L"View")
          .Done();
  return t;
}
