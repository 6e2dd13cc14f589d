#pragma once
// The analysis a document of the earlier generation describes when it holds
// one analysis only ("CurrentAnalysis"): the analysis record itself, the
// option it started from, and its stability and dynamic objects
// ("CurrentAnalysis.Objects.", where the old per-analysis item entries go).
// Kept as read and saved with the document, so that nothing an old project
// held is lost; a new project leaves it at its defaults and it is not written.
#include <cstdint>

#include "OC/RecordType.h"
#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/analysis/AnalysisKindData.h"

namespace v7 {

// Where the single analysis took its initial conditions from, under the
// names the earlier generation's options were given on migration.
enum class CurrentInitialCondOption : std::int32_t {
  None = 0,
  Self = 1,               // its own water table or material properties
  Other = 2,              // another analysis's results
  PreviousAnalysis = 3,   // the results of the analysis before it
  InitialWaterTable = 4,  // an initial water table
};

// The stability and dynamic objects of the single analysis, side by side at
// one level, as the old files had them.
struct CurrentAnalysisObjects {
  StabData stab_;
  ShakeData shake_;
  friend bool operator==(const CurrentAnalysisObjects& a, const CurrentAnalysisObjects& b) {
    return a.stab_ == b.stab_ && a.shake_ == b.shake_;
  }
};

struct CurrentAnalysis {
  ANALYSIS analysis_;  // its members at this record's level
  CurrentInitialCondOption initialCondOption_ = CurrentInitialCondOption::None;  // "InitialCondOption"
  CurrentAnalysisObjects objects_;  // "Objects"
  friend bool operator==(const CurrentAnalysis&, const CurrentAnalysis&) = default;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::CurrentInitialCondOption>();
template <>
const oc::RecordType& oc::TypeOf<v7::CurrentAnalysisObjects>();
template <>
const oc::RecordType& oc::TypeOf<v7::CurrentAnalysis>();
