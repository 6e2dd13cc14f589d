#include "V7Doc/results/ResultSet.h"

#include "OC/Schema.h"
#include "V7Doc/core/ContainerIDs.h"

namespace v7 {

ResultSet::ResultSet(GID analysisID, const ANALYSIS& analysis, const v7qvi::ViewPreferences& view,
                     const EngSettings& eng)
    : name_(analysis.name),
      analysis_(analysisID),
      bShowMesh_(view.bShowMesh),
      bShowPoints_(view.bShowPoints),
      fFontSize_(view.fFontSize),
      view_(eng.Window()) {}

}  // namespace v7

template <>
const oc::RecordType& oc::TypeOf<v7::ResultSet>() {
  using v7::ResultSet;
  static const RecordType& t =
      Schema<ResultSet>(L"ResultSet")
          .Add(&ResultSet::name_, L"name_", L"Name")
          .Add(&ResultSet::analysis_, L"analysis_", L"AnalysisID", meta::MetaDataTraits{}.Ref(v7::container::Analyses))
          .Add(&ResultSet::nStep_, L"nStep_", L"Step")
          .Add(&ResultSet::fElapsedTime_, L"fElapsedTime_", L"ElapsedTime")
          .Add(&ResultSet::contour_, L"contour_", L"ContourID", meta::MetaDataTraits{}.Ref(v7::container::ResultContours))
          .Add(&ResultSet::bShowMesh_, L"bShowMesh_", L"ShowMesh")
          .Add(&ResultSet::bShowPoints_, L"bShowPoints_", L"ShowPoints")
          .Add(&ResultSet::fFontSize_, L"fFontSize_", L"FontSize",
               meta::MetaDataTraits{}.Bounds(1, 200).Units(L"pt"))
          .Add(&ResultSet::view_, L"view_", L"View")
          .Done();
  return t;
}
