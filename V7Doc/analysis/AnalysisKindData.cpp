#include "V7Doc/analysis/AnalysisKindData.h"

#include <algorithm>

namespace v7 {
namespace {

using namespace kind_data;

// Records that the data of `analysis` (in container `self`) uses record `r`.
// One entry per user, however often it names the record.
void AddUse(UsageList& usage, GID r, GID self, GID analysis) {
  if (r == 0) return;
  if (r >= usage.size()) usage.resize(static_cast<std::size_t>(r) + 1);
  const GGID user(self, analysis);
  if (std::find(usage[r].begin(), usage[r].end(), user) == usage[r].end()) usage[r].push_back(user);
}

void AddUses(UsageList& usage, const std::vector<GID>& refs, GID self, GID analysis) {
  for (GID r : refs) AddUse(usage, r, self, analysis);
}

// Maps every reference through `newID` and drops those that are gone.
void Remap(std::vector<GID>& refs, const std::function<GID(GID)>& newID) {
  for (GID& r : refs) r = newID(r);
  std::erase(refs, GID{0});
}

void RemapWaterTables(std::vector<WaterTableEntry>& tables, GID container,
                      const std::function<GID(GID)>& newID) {
  for (auto& w : tables) {
    if (container == kPoints) Remap(w.vPoints_, newID);
    if (container == kMaterials) Remap(w.vMaterials_, newID);
  }
}

template <class T>
void EraseMissing(std::vector<T>& v) {
  std::erase_if(v, [](const T& x) { return x.bMissing_; });
}

void WaterTableUses(const std::vector<WaterTableEntry>& tables, GID container, UsageList& usage,
                    GID self, GID analysis) {
  for (const auto& w : tables) {
    if (w.bMissing_) continue;
    if (container == kPoints) AddUses(usage, w.vPoints_, self, analysis);
    if (container == kMaterials) AddUses(usage, w.vMaterials_, self, analysis);
  }
}

}  // namespace

void SoluteData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  if (container == kBCs) AddUses(usage, vSources_, kSoluteItems, analysis);
}

void HydroData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  WaterTableUses(vInitialWaterTables_, container, usage, kHydroItems, analysis);
}

void DeformData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  if (container == kRegions) AddUses(usage, vIgnoredRegions_, kDeformItems, analysis);
}

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

void StabData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  for (const auto& s : vSurcharges_) {
    if (container == kPoints) AddUses(usage, s.vPoints_, kStabItems, analysis);
    if (container == kStressBoundFns) AddUse(usage, s.fnNum_, kStabItems, analysis);
  }
  WaterTableUses(vPiezometricLines_, container, usage, kStabItems, analysis);
}

void ThermoData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  if (container == kThermosyphons) AddUses(usage, vThermosyphons_, kThermoItems, analysis);
  if (container == kConvectiveSurfaces)
    AddUses(usage, vConvectiveSurfaces_, kThermoItems, analysis);
}

void EvapoData::FullCompact() { EraseMissing(vInitialWaterTables_); }

void EvapoData::OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
  if (container == kClimateData) AddUse(usage, climateData_, kEvapoItems, analysis);
  WaterTableUses(vInitialWaterTables_, container, usage, kEvapoItems, analysis);
}

void SoluteData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  if (container == kBCs) Remap(vSources_, newID);
}

void HydroData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  RemapWaterTables(vInitialWaterTables_, container, newID);
}

void DeformData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  if (container == kRegions) Remap(vIgnoredRegions_, newID);
}

void StabData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  for (auto& s : vSurcharges_) {
    if (container == kPoints) Remap(s.vPoints_, newID);
    // A deleted variation function leaves the surcharge constant.
    if (container == kStressBoundFns && s.fnNum_ != 0) s.fnNum_ = newID(s.fnNum_);
  }
  RemapWaterTables(vPiezometricLines_, container, newID);
}

void ThermoData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  if (container == kThermosyphons) Remap(vThermosyphons_, newID);
  if (container == kConvectiveSurfaces) Remap(vConvectiveSurfaces_, newID);
}

void EvapoData::RemapReferences(GID container, const std::function<GID(GID)>& newID) {
  if (container == kClimateData && climateData_ != 0) climateData_ = newID(climateData_);
  RemapWaterTables(vInitialWaterTables_, container, newID);
}

}  // namespace v7
