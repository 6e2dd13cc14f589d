// The single analysis of an old document: the analysis record, the stability
// data and the dynamic data are included whole, so that their members are
// declared once, with their own records.
#include "OC/Schema.h"
#include "V7Doc/analysis/CurrentAnalysis.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::CurrentInitialCondOption>() {
  static const MetaEnumCommon t(L"CurrentInitialCondOption", {{0, L"None"},
                                                              {1, L"Self"},
                                                              {2, L"Other"},
                                                              {3, L"PreviousAnalysis"},
                                                              {4, L"InitialWaterTable"}});
  return t;
}

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<CurrentAnalysisObjects>() {
  static const RecordType& t = Schema<CurrentAnalysisObjects>(L"CurrentAnalysisObjects")
      .Include(&CurrentAnalysisObjects::stab_)
      .Include(&CurrentAnalysisObjects::shake_)
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<CurrentAnalysis>() {
  static const RecordType& t = Schema<CurrentAnalysis>(L"CurrentAnalysis")
      .Include(&CurrentAnalysis::analysis_)
      .Add(&CurrentAnalysis::initialCondOption_, L"initialCondOption_", L"InitialCondOption")
      .Add(&CurrentAnalysis::objects_, L"objects_", L"Objects")
      .Done();
  return t;
}

}  // namespace oc
