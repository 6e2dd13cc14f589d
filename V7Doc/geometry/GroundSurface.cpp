#include "V7Doc/geometry/GroundSurface.h"

#include "V7Doc/document/QVDocument.h"

namespace v7::Geom::surface {

static_assert(ids::Points == container::Points && ids::Lines == container::Lines &&
                  ids::Regions == container::Regions && ids::Materials == container::Materials &&
                  ids::Surface == container::Surface,
              "the geometry tables and the document agree on container GIDs");

MaterialLookup DocumentMaterials(QVDocData& document) {
  MaterialLookup m;
  const RegionTable* regions = &document.Geometry().Regions();
  m.materialOf = [regions](GID region, AnalysisKind) -> GID {
    return regions->IsValidID(region) ? regions->At(region).nMaterialID_ : 0;
  };
  auto* materials = &document.Materials();
  m.hasStabStrength = [materials](GID material) {
    if (!materials->IsValidID(material)) return false;
    const StabMatlModel model = materials->At(material).StabModel();
    return model != StabMatlModel::None && model != StabMatlModel::NoStrength;
  };
  return m;
}

IsGroundSurfaceRegion::IsGroundSurfaceRegion(const RegionTable& regions, AnalysisKind kind,
                                             MaterialLookup materials)
    : regions_(&regions), kind_(kind), materials_(std::move(materials)) {}

IsGroundSurfaceRegion::IsGroundSurfaceRegion(QVDocData& document, AnalysisKind kind)
    : IsGroundSurfaceRegion(document.Geometry().Regions(), kind, DocumentMaterials(document)) {}

bool IsGroundSurfaceRegion::operator()(GID region) const {
  if (!regions_->IsValidID(region)) return false;
  const Region& r = regions_->At(region);
  const std::size_t points = r.pointIDs_.size();
  if (r.IsLineRegion() ? points != 2 : points < 3) return false;
  if (r.IsLineRegion()) return false;
  const GID material = materials_.materialOf ? materials_.materialOf(region, kind_) : 0;
  if (material == 0) return false;
  if (kind_ != AnalysisKind::Stab) return true;
  return materials_.hasStabStrength && materials_.hasStabStrength(material);
}

}  // namespace v7::Geom::surface
