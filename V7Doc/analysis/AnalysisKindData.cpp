#include "V7Doc/analysis/AnalysisKindData.h"

#include <algorithm>

namespace v7 {
namespace {

template <class T>
void EraseMissing(std::vector<T>& v) {
  std::erase_if(v, [](const T& x) { return x.bMissing_; });
}

}  // namespace

void HydroData::FullCompact() { EraseMissing(vInitialWaterTables_); }

void StabData::FullCompact() {
  EraseMissing(vSurcharges_);
  EraseMissing(vPiezometricLines_);
}

void EvapoData::FullCompact() { EraseMissing(vInitialWaterTables_); }

}  // namespace v7
