#include "V7Doc/document/Associations.h"

#include <algorithm>


namespace v7 {
namespace {
bool ByGeometry(const GeometryUsesBC& a, const GeometryUsesBC& b) {
  return a.container != b.container ? a.container < b.container : a.record < b.record;
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

}  // namespace v7
