#include "V7Doc/analysis/AnalysisKindData.h"

#include <algorithm>

namespace v7 {
namespace {

template <class T>
void EraseMissing(std::vector<T>& v) {
  std::erase_if(v, [](const T& x) { return x.bMissing_; });
}

}  // namespace

void HydroData::FullCompact() {
  EraseMissing(vInitialWaterTables_);
  std::vector<GID> renumber;
  fluxSections_.FullCompact(renumber);
  // Labels name sections of the same data; a label whose section is gone
  // goes with it.
  for (FluxLabel& l : vFluxLabels_) l.nFluxID_ = l.nFluxID_ < renumber.size() ? renumber[l.nFluxID_] : 0;
  std::erase_if(vFluxLabels_, [](const FluxLabel& l) { return l.nFluxID_ == 0; });
}

void StabData::FullCompact() {
  std::vector<GID> renumber;
  vSurcharges_.FullCompact(renumber);
  dataPoints_.FullCompact(renumber);
  reinforcements_.FullCompact(renumber);
  slipSurfaces_.FullCompact(renumber);
  EraseMissing(vPiezometricLines_);
}

IQVContainer* StabData::NestedTable(std::uint32_t i) {
  switch (i) {
    case 0: return &vSurcharges_;
    case 1: return &reinforcements_;
    case 2: return &slipSurfaces_;
    default: return nullptr;
  }
}

void StabData::AttachNested(NestedTableOwner* owner) {
  vSurcharges_.AttachTo(owner);
  reinforcements_.AttachTo(owner);
  slipSurfaces_.AttachTo(owner);
}

void EvapoData::FullCompact() { EraseMissing(vInitialWaterTables_); }

}  // namespace v7
