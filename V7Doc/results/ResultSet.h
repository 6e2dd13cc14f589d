#pragma once
// A result set: what one results view shows. It names the analysis and the
// step whose results are drawn, the contour used, what of the model is drawn
// with them, and the window of the model in view. Collection
// "Contour.ResultSets[ResultSet]" (container 69).
//
// Layout ("persisted name"):
//   name_           "Name"         label of the set, the analysis name at first
//   analysis_       "AnalysisID"   GID in "Analyses"; 0: none
//   nStep_          "Step"         saved step shown; kStepLast ("(last)") at first
//   fElapsedTime_   "ElapsedTime"  elapsed time of that step, for labels; no value
//   contour_        "ContourID"    GID in "ResultContours"; 0: no contours
//   bShowMesh_      "ShowMesh"     copied from the view preferences
//   bShowPoints_    "ShowPoints"   copied from the view preferences
//   fFontSize_      "FontSize"     label size in points, from the view preferences
//   view_           "View.MinX" ... "View.MaxY"  window in engineering
//                   coordinates; no value: the whole model
#include <cstdint>
#include <string>

#include "QVI/qvi/Markers.h"
#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/analysis/ResultInfo.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/view/EngSettings.h"
#include "V7Doc/view/ViewPreferences.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

struct ResultSet {
  // An empty set: no analysis, the last step, no contour.
  ResultSet() = default;
  // The set that first shows the results of analysis `analysisID`: named
  // after it, at its last saved step, drawn as the view preferences say, in
  // the window of the engineering coordinates `eng`.
  ResultSet(GID analysisID, const ANALYSIS& analysis, const v7qvi::ViewPreferences& view,
            const EngSettings& eng = {});

  std::wstring name_;
  GID analysis_ = 0;
  std::int32_t nStep_ = v7qvi::analysis::kStepLast;
  double fElapsedTime_ = qvi::kNoValue;
  GID contour_ = 0;
  bool bShowMesh_ = true;
  bool bShowPoints_ = true;
  double fFontSize_ = 8.0;
  EngWindow view_;
  bool bDeleted_ = false;  // tombstone of the table slot, not persisted

  friend bool operator==(const ResultSet&, const ResultSet&) = default;
};

inline bool IsMissing(const ResultSet& r) { return r.bDeleted_; }
inline void SetMissing(ResultSet& r) {
  r = ResultSet{};
  r.bDeleted_ = true;
}

}  // namespace v7

template <>
const oc::RecordType& oc::TypeOf<v7::ResultSet>();
