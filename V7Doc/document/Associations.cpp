#include "V7Doc/document/Associations.h"

#include <algorithm>

#include "V7Doc/core/QVContainerManager.h"

namespace v7 {
namespace {
// Container GIDs the contexts refer to.
constexpr GID kPoints = 1, kLines = 2, kRegions = 3, kMaterials = 4, kBCs = 5, kAnalyses = 8;

bool ByGeometry(const GeometryUsesBC& a, const GeometryUsesBC& b) {
  return a.container != b.container ? a.container < b.container : a.record < b.record;
}

void AppendOnce(UsageList& usage, GID index, GGID user) {
  if (index == 0) return;
  if (index >= usage.size()) usage.resize(static_cast<std::size_t>(index) + 1);
  auto& list = usage[index];
  if (list.empty() || !(list.back() == user)) list.push_back(user);
}
}  // namespace

std::vector<GeometryUsesBC>* Associations::BCMap(int dof) {
  std::vector<GeometryUsesBC>* maps[kNumBCMaps] = {
      &hydBCIDByGGID,    &airBCIDByGGID,   &thermBCIDByGGID,  &contamBCIDByGGID,
      &gasBCIDByGGID,    &xdispBCIDByGGID, &ydispBCIDByGGID,  &rotBCIDByGGID};
  return dof >= 1 && dof <= static_cast<int>(kNumBCMaps) ? maps[dof - 1] : nullptr;
}
const std::vector<GeometryUsesBC>* Associations::BCMap(int dof) const {
  return const_cast<Associations*>(this)->BCMap(dof);
}

void Associations::SetRegionMaterial(GID region, GID material) {
  auto it = std::lower_bound(regionUsesMaterials_.begin(), regionUsesMaterials_.end(), region,
                             [](const RegionUsesMaterial& e, GID r) { return e.region < r; });
  const bool found = it != regionUsesMaterials_.end() && it->region == region;
  if (material == 0) {
    if (found) regionUsesMaterials_.erase(it);
  } else if (found) {
    it->material = material;
  } else {
    regionUsesMaterials_.insert(it, {region, material});
  }
}

GID Associations::RegionMaterial(GID region) const {
  auto it = std::lower_bound(regionUsesMaterials_.begin(), regionUsesMaterials_.end(), region,
                             [](const RegionUsesMaterial& e, GID r) { return e.region < r; });
  return it != regionUsesMaterials_.end() && it->region == region ? it->material : 0;
}

void Associations::SetBC(int dof, GGID geometry, GID bc) {
  auto* map = BCMap(dof);
  if (!map) return;
  const GeometryUsesBC key{geometry.container, geometry.record, 0};
  auto it = std::lower_bound(map->begin(), map->end(), key, ByGeometry);
  const bool found = it != map->end() && it->Geometry() == geometry;
  if (bc == 0) {
    if (found) map->erase(it);
  } else if (found) {
    it->bc = bc;
  } else {
    map->insert(it, {geometry.container, geometry.record, bc});
  }
}

GID Associations::GetBC(int dof, GGID geometry) const {
  const auto* map = BCMap(dof);
  if (!map) return 0;
  const GeometryUsesBC key{geometry.container, geometry.record, 0};
  auto it = std::lower_bound(map->begin(), map->end(), key, ByGeometry);
  return it != map->end() && it->Geometry() == geometry ? it->bc : 0;
}

const Associations* AssociationsTable::ContextOf(GID analysis) const {
  if (analysis == 0) return nullptr;
  for (auto it = begin(); it != end(); ++it)
    if (it->nAnalysisID_ == analysis) return &*it;
  return nullptr;
}

Associations& AssociationsTable::ContextFor(GID analysis) {
  if (const Associations* c = ContextOf(analysis)) return const_cast<Associations&>(*c);
  Associations a;
  a.nAnalysisID_ = analysis;
  return *Add(std::move(a));
}

void AssociationsTable::OnRegistration() {
  for (GID c : {kPoints, kLines, kRegions, kMaterials, kBCs, kAnalyses}) Manager().Subscribe(this, c);
}

void AssociationsTable::OnGetUsageOf(GID container, UsageList& usage) {
  if (container == ID()) return;
  for (auto it = begin(); it != end(); ++it) {
    const GGID who(ID(), it.ID());
    if (container == kAnalyses) AppendOnce(usage, it->nAnalysisID_, who);
    for (const auto& e : it->regionUsesMaterials_) {
      if (container == kMaterials) AppendOnce(usage, e.material, who);
      if (container == kRegions) AppendOnce(usage, e.region, who);
    }
    for (int d = 1; d <= static_cast<int>(kNumBCMaps); ++d)
      for (const auto& e : *it->BCMap(d)) {
        if (container == kBCs) AppendOnce(usage, e.bc, who);
        if (container == e.container) AppendOnce(usage, e.record, who);
      }
  }
}

template <class F>
void AssociationsTable::Remap(GID container, F newID) {
  for (auto& a : *this) {
    if (container == kAnalyses) a.nAnalysisID_ = newID(a.nAnalysisID_);
    if (container == kMaterials || container == kRegions) {
      for (auto& e : a.regionUsesMaterials_) {
        GID& ref = container == kMaterials ? e.material : e.region;
        ref = newID(ref);
      }
      std::erase_if(a.regionUsesMaterials_,
                    [](const RegionUsesMaterial& e) { return e.region == 0 || e.material == 0; });
      std::stable_sort(a.regionUsesMaterials_.begin(), a.regionUsesMaterials_.end(),
                       [](const RegionUsesMaterial& x, const RegionUsesMaterial& y) {
                         return x.region < y.region;
                       });
    }
    for (int d = 1; d <= static_cast<int>(kNumBCMaps); ++d) {
      auto& map = *a.BCMap(d);
      bool changed = false;
      for (auto& e : map) {
        if (container == kBCs) e.bc = newID(e.bc), changed = true;
        if (container == e.container) e.record = newID(e.record), changed = true;
      }
      if (!changed) continue;
      std::erase_if(map, [](const GeometryUsesBC& e) { return e.bc == 0 || e.record == 0; });
      std::stable_sort(map.begin(), map.end(), ByGeometry);
    }
  }
}

void AssociationsTable::OnIDUpdate(GID container, const std::vector<GID>& renumber) {
  Remap(container, [&](GID old) { return old < renumber.size() ? renumber[old] : GID{0}; });
}

void AssociationsTable::OnDelete(GID container, const std::vector<GID>& ids) {
  Remap(container, [&](GID old) {
    return std::binary_search(ids.begin(), ids.end(), old) ? GID{0} : old;
  });
}

}  // namespace v7
