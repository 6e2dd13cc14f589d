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

#include "V7Doc/core/ContainerIDs.h"
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

// "CWLineSideUsesMaterials[...]", "CCWLineSideUsesMaterials[...]": the
// material of an interface along one side of a line (clockwise or
// counter-clockwise side, seen from the line's first point).
struct LineSideUsesMaterial {
  GID line = 0;      // "LineID"
  GID material = 0;  // "MaterialID"
  friend bool operator==(const LineSideUsesMaterial&, const LineSideUsesMaterial&) = default;
};

// "LineUsesBars[LineUsesBar]", "LineUsesBeams[LineUsesBeam]": the
// structural attribute a line is built with. The attribute table is part of
// the type, so that each map declares which table its attributes are in.
template <GID AttributeTable>
struct LineUsesAttribute {
  GID line = 0;       // "LineID"
  GID attribute = 0;  // "AttributeID"
  friend bool operator==(const LineUsesAttribute&, const LineUsesAttribute&) = default;
};
using LineUsesBar = LineUsesAttribute<container::StructuralBarAttributes>;
using LineUsesBeam = LineUsesAttribute<container::StructuralBeamAttributes>;

// "MaterialUsesPiezs[MaterialUsesPiez]": the piezometric line that gives a
// material its pore-water pressure in a stability analysis.
struct MaterialUsesPiez {
  GID material = 0;  // "MaterialID"
  // "PiezID": one-based position in the piezometric lines of the context's
  // analysis (its StabItems entry). A position in another record's list, not
  // a record number, so it is not a declared reference.
  GID piez = 0;
  friend bool operator==(const MaterialUsesPiez&, const MaterialUsesPiez&) = default;
};

// "MaterialUsesRuParams[...]", "MaterialUsesBBarParams[...]": a material's
// pore-pressure ratio ru = u / (gamma h) (Bishop & Morgenstern, 1960) or
// pore-pressure parameter B-bar = du / dsigma1 (Bishop, 1954).
struct MaterialUsesParam {
  GID material = 0;  // "MaterialID"
  double value = 0;  // "Value"
  friend bool operator==(const MaterialUsesParam&, const MaterialUsesParam&) = default;
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
  // Line and material maps, in the order entered (a reader looks a key up
  // by a linear search: a context holds a few dozen of them at most).
  std::vector<LineSideUsesMaterial> cwLineSideMaterials_;
  std::vector<LineSideUsesMaterial> ccwLineSideMaterials_;
  std::vector<LineUsesBar> lineBars_;
  std::vector<LineUsesBeam> lineBeams_;
  std::vector<MaterialUsesPiez> materialPiezs_;
  std::vector<MaterialUsesParam> materialRu_;
  std::vector<MaterialUsesParam> materialBBar_;

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
