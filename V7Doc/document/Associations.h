#pragma once
// One analysis context ("Contexts[Context]"): the links that say which
// materials and boundary conditions the geometry uses in an analysis. The
// record is stored with its own ID (QVAssociationsIDPolicy).
//
// A region's own material (Region::nMaterialID_) holds unless the context
// of an analysis maps the region to another one. Boundary conditions are
// given per field: one map per BC slot, from a geometry item (point, line or
// region, as a GGID) to the BC used for that field.
#include <array>
#include <string>
#include <vector>

#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

// "RegionUsesMaterials[RegionUsesMaterial]": region -> material.
struct RegionUsesMaterial {
  GID region = 0;    // "RegionID"
  GID material = 0;  // "MaterialID"
  friend bool operator==(const RegionUsesMaterial&, const RegionUsesMaterial&) = default;
};

// "GeometryUses...BCs[GeometryUses...BC]": geometry item -> BC of one field.
struct GeometryUsesBC {
  GID container = 0;  // "ContainerID": points 1, lines 2 or regions 3
  GID record = 0;     // "ID"
  GID bc = 0;         // "BCID"
  GGID Geometry() const { return GGID(container, record); }
  friend bool operator==(const GeometryUsesBC&, const GeometryUsesBC&) = default;
};

// The eight BC maps, in the order of the BC slots (DOFType 1 to 8).
inline constexpr std::size_t kNumBCMaps = 8;

struct Associations {
  GID nID_ = 0;  // written only through QVAssociationsIDPolicy
  std::wstring name_;
  // The analysis the context belongs to ("AnalysisID"); 0 for none.
  GID nAnalysisID_ = 0;
  // Sorted by region, one entry per region.
  std::vector<RegionUsesMaterial> regionUsesMaterials_;
  // Sorted by geometry GGID, one entry per item.
  std::vector<GeometryUsesBC> hydBCIDByGGID;
  std::vector<GeometryUsesBC> airBCIDByGGID;
  std::vector<GeometryUsesBC> thermBCIDByGGID;
  std::vector<GeometryUsesBC> contamBCIDByGGID;
  std::vector<GeometryUsesBC> gasBCIDByGGID;
  std::vector<GeometryUsesBC> xdispBCIDByGGID;
  std::vector<GeometryUsesBC> ydispBCIDByGGID;
  std::vector<GeometryUsesBC> rotBCIDByGGID;

  // The map of BC slot `dof` (1 to 8); null for any other value.
  std::vector<GeometryUsesBC>* BCMap(int dof);
  const std::vector<GeometryUsesBC>* BCMap(int dof) const;

  // Maps `region` to `material` (0 removes the mapping).
  void SetRegionMaterial(GID region, GID material);
  // The material the context maps `region` to; 0 when it maps none.
  GID RegionMaterial(GID region) const;
  // Sets the BC of slot `dof` for a geometry item (0 removes it).
  void SetBC(int dof, GGID geometry, GID bc);
  // The BC of slot `dof` for a geometry item; 0 when none.
  GID GetBC(int dof, GGID geometry) const;

  friend bool operator==(const Associations&, const Associations&) = default;
};

struct QVAssociationsIDPolicy : QVContainerStoredIDPolicy<Associations, &Associations::nID_> {};

// The contexts table. Its links to analyses, materials, BCs and geometry
// items are declared references: in a document, usage queries about those
// records name the contexts, and deleting one drops the links to it (a
// context whose analysis is deleted keeps its links, with analysis 0).
class AssociationsTable : public QVContainerTable<Associations, QVAssociationsIDPolicy> {
 public:
  AssociationsTable() = default;

  // The live context of `analysis`; null when it has none.
  const Associations* ContextOf(GID analysis) const;
  // The context of `analysis`, added when missing.
  Associations& ContextFor(GID analysis);
};

}  // namespace v7
