#pragma once
// Which regions make up the ground surface of an analysis.
#include <functional>

#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/geometry/GeomContainers.h"

namespace v7 {
class QVDocData;
}

namespace v7::Geom::surface {

// What the ground-surface test asks of the materials.
struct MaterialLookup {
  // The material (a GID into the materials table) that region `region` has
  // in an analysis of kind `kind`; 0 for none.
  std::function<GID(GID region, AnalysisKind kind)> materialOf;
  // True when material `material` exists in the material table and its
  // "StabModel" is neither "None" nor "NoStrength".
  std::function<bool(GID material)> hasStabStrength;
};

// The material facts of a document: a region's material is its own
// nMaterialID_, and a material has stability strength when it is a live row
// of the document's material table whose "StabModel" is neither "None" nor
// "NoStrength".
MaterialLookup DocumentMaterials(QVDocData& document);

// A function object: called with a region GID, tells whether that region
// counts as part of the ground surface. The tests, in this order:
//   1. the region is a live row of the region table;
//   2. its point list is long enough: exactly two points for a line region
//      (flag bit 3), at least three for any other;
//   3. it is not a line region (so a line region never counts, even after
//      passing 2; the order is kept as it has always been);
//   4. it has a material for the analysis kind;
//   5. for a stability analysis ("STAB"), that material exists and has
//      strength; any other kind counts at once.
class IsGroundSurfaceRegion {
 public:
  IsGroundSurfaceRegion(const RegionTable& regions, AnalysisKind kind, MaterialLookup materials);
  // Over the document's regions and materials.
  IsGroundSurfaceRegion(QVDocData& document, AnalysisKind kind);

  bool operator()(GID region) const;

 private:
  const RegionTable* regions_;
  AnalysisKind kind_;
  MaterialLookup materials_;
};

}  // namespace v7::Geom::surface
