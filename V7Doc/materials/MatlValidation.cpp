#include "V7Doc/materials/MatlValidation.h"

#include <algorithm>
#include <optional>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/materials/MATLTable.h"

namespace v7 {
namespace {

constexpr GID kFirstKindItems = container::SoluteItems, kLastKindItems = container::EvapoItems;

// True when `who`, a user of material `material`, makes analysis `analysis`
// use it.
bool UsedBy(const GGID& who, GID analysis, const AssociationsTable* contexts) {
  if (who.container == container::Contexts)
    return contexts && contexts->IsValidID(who.record) &&
           contexts->At(who.record).nAnalysisID_ == analysis;
  if (who.container >= kFirstKindItems && who.container <= kLastKindItems)
    return who.record == analysis;
  if (who.container == container::Regions) {
    // The region's own material, unless the analysis's context overrides it.
    const Associations* ctx = contexts ? contexts->ContextOf(analysis) : nullptr;
    return !ctx || ctx->RegionMaterial(who.record) == 0;
  }
  return false;
}

}  // namespace

std::vector<GID> MaterialsUsedByAnalysis(const MATLTable& materials, GID analysis) {
  std::vector<GID> used;
  if (!materials.IsRegistered() || analysis == 0) return used;
  QVContainerManager& manager = materials.Manager();
  UsageList usage;
  manager.GetUsageOf(materials.ID(), usage);
  const auto* contexts = dynamic_cast<const AssociationsTable*>(manager.GetContainer(container::Contexts));
  for (GID m = 1; m < usage.size(); ++m) {
    if (!materials.IsValidID(m)) continue;
    if (std::any_of(usage[m].begin(), usage[m].end(),
                    [&](const GGID& who) { return UsedBy(who, analysis, contexts); }))
      used.push_back(m);
  }
  return used;
}

void TestStabMaterialModels(MATLTable& materials, const ANALYSISTable& analyses, GID analysis,
                            std::vector<gtl::status>& statuses) {
  if (!analyses.IsValidID(analysis)) return;
  const std::wstring& analysisName = analyses.At(analysis).name;
  for (GID id : MaterialsUsedByAnalysis(materials, analysis)) {
    MATL& m = materials[id - 1];
    if (m.StabModel() == StabMatlModel::NoStrength) {
      m.StabModel() = StabMatlModel::None;
      statuses.push_back(gtl::status::warning(23075, m.sDescription(), analysisName));
    }
    const StabMatlModel model = m.StabModel();
    if (model != StabMatlModel::MohrCoulomb && model != StabMatlModel::UndrainedPhiZero) continue;
    const STRESS_PROPERTIES& s = m.Stress();
    // An undrained (phi = 0) material has no friction angle: its sub-model
    // is ignored whatever it says.
    const bool varies = IsFunctionModel(s.StabWeightModel()) ||
                        IsFunctionModel(s.StabCohesionModel()) ||
                        (model == StabMatlModel::MohrCoulomb && IsFunctionModel(s.StabPhiModel()));
    if (!varies) continue;
    m.StabModel() = StabMatlModel::MohrCoulombSpatial;
    statuses.push_back(gtl::status::warning(23073, m.sDescription()));
  }
}

namespace {

// The elevation of a polyline (points left to right) at x; nothing outside it.
std::optional<double> ElevationAt(const std::vector<Geom::Point2D>& line, double x) {
  for (std::size_t i = 1; i < line.size(); ++i) {
    const auto& a = line[i - 1];
    const auto& b = line[i];
    const double lo = std::min(a.x, b.x), hi = std::max(a.x, b.x);
    if (x < lo || x > hi) continue;
    if (hi == lo) return std::max(a.y, b.y);
    return a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x);
  }
  return std::nullopt;
}

}  // namespace

void TestSurchargeLoadForWTWeight(const QVDocument& document, GID analysis,
                                  std::vector<gtl::status>& statuses) {
  const ANALYSISTable& analyses = document.Analyses();
  if (!analyses.IsValidID(analysis)) return;
  const ANALYSIS& a = analyses.At(analysis);
  if (a.kind != AnalysisKind::Stab) return;
  const StabData* data = document.StabItems().Find(analysis);
  if (!data) return;
  const auto live = std::count_if(data->vPiezometricLines_.begin(), data->vPiezometricLines_.end(),
                                  [](const auto& e) { return !e.bMissing_; });
  if (data->vSurcharges_.begin() == data->vSurcharges_.end() || live == 0) return;

  const auto& points = document.Geometry().Points();
  const auto coordinates = [&](const std::vector<GID>& ids, const std::wstring& surcharge,
                               bool report) {
    std::vector<Geom::Point2D> out;
    for (GID p : ids) {
      if (!points.IsValidID(p)) {
        if (report) statuses.push_back(gtl::status::warning(35002, surcharge, a.name, p));
        continue;
      }
      out.push_back(points.At(p).XY());
    }
    return out;
  };

  for (const SurchargeLoad& s : data->vSurcharges_) {
    const auto outline = coordinates(s.vPoints_, s.name_, true);
    if (outline.empty()) continue;
    for (const WaterTableEntry& w : data->vPiezometricLines_) {
      if (w.bMissing_) continue;
      const auto line = coordinates(w.vPoints_, {}, false);
      const bool below = std::any_of(outline.begin(), outline.end(), [&](const Geom::Point2D& p) {
        const auto water = ElevationAt(line, p.x);
        return water && *water > p.y;
      });
      if (!below) continue;
      if (s.fUnitWeight_ < kUnitWeightOfWater)
        statuses.push_back(gtl::status::warning(35001, s.name_, a.name, s.fUnitWeight_,
                                                kUnitWeightOfWater, w.name_));
      else
        statuses.push_back(gtl::status::warning(35000, s.name_, a.name, w.name_));
    }
  }
}

}  // namespace v7
