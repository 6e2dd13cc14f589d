#pragma once
// The per-kind analysis data: what only one analysis kind needs, held per
// analysis in the containers 61 to 67 ("SoluteItems" ... "EvapoItems").
// The references they hold (points, materials, BCs, regions, functions,
// climate data, thermosyphons, convective surfaces) are declared with their
// members and answered and repaired by the container manager.
#include <string>
#include <vector>

#include "V7Doc/analysis/AnalysisData.h"
#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/analysis/FlowRecords.h"
#include "V7Doc/analysis/StabRecords.h"
#include "V7Doc/analysis/ShakeRecord.h"

namespace v7 {

// Shared implementation of Assign and IsEqual for a data type with value
// semantics.
template <class Derived>
class AnalysisDataOf : public AnalysisData {
 public:
  void Assign(const AnalysisData& other) override {
    static_cast<Derived&>(*this) = static_cast<const Derived&>(other);
  }
  bool IsEqual(const AnalysisData& other) const override {
    const auto* o = dynamic_cast<const Derived*>(&other);
    return o && static_cast<const Derived&>(*this) == *o;
  }
};

// A water table or piezometric line, and the materials it applies to.
struct WaterTableEntry {
  std::wstring name_;
  std::vector<GID> vPoints_;     // geometry points of the line, left to right
  std::vector<GID> vMaterials_;  // materials whose pore pressure it gives
  InputDefinition inputDef_ = InputDefinition::Define;  // drawn, or a result contour
  bool bMissing_ = false;
  friend bool operator==(const WaterTableEntry&, const WaterTableEntry&) = default;
};

struct SoluteData : AnalysisDataOf<SoluteData> {
  std::vector<GID> vSources_;  // boundary conditions that release contaminant
  std::vector<Particle> vParticles_;          // "Particles[Particle]"
  std::vector<ParticlePair> vParticlePairs_;  // "ParticlePairs[ParticlePair]"
  void DataInit() override { *this = SoluteData{}; }
  friend bool operator==(const SoluteData& a, const SoluteData& b) {
    return a.vSources_ == b.vSources_ && a.vParticles_ == b.vParticles_ &&
           a.vParticlePairs_ == b.vParticlePairs_;
  }
};

struct ShakeData : AnalysisDataOf<ShakeData> {
  ShakeEarthquake earthquake_;  // the input motion
  std::vector<POGHPoint> vHistoryPoints_;  // "POGHPoints[POGHPoint]"
  void DataInit() override { *this = ShakeData{}; }
  friend bool operator==(const ShakeData& a, const ShakeData& b) {
    return a.earthquake_ == b.earthquake_ && a.vHistoryPoints_ == b.vHistoryPoints_;
  }
};

struct HydroData : AnalysisDataOf<HydroData> {
  std::vector<WaterTableEntry> vInitialWaterTables_;
  FLUXTable fluxSections_;            // "FluxSections[FluxSection]"
  std::vector<FluxLabel> vFluxLabels_;  // "FluxLabels[FluxLabel]"
  std::vector<FlowPath> vFlowPaths_;    // "FlowPaths[FlowPath]"
  void DataInit() override { *this = HydroData{}; }
  void FullCompact() override;
  friend bool operator==(const HydroData& a, const HydroData& b) {
    return a.vInitialWaterTables_ == b.vInitialWaterTables_ &&
           a.fluxSections_ == b.fluxSections_ && a.vFluxLabels_ == b.vFluxLabels_ &&
           a.vFlowPaths_ == b.vFlowPaths_;
  }
};

struct DeformData : AnalysisDataOf<DeformData> {
  std::vector<GID> vIgnoredRegions_;  // regions left out of this stage (excavated, not yet built)
  void DataInit() override { *this = DeformData{}; }
  friend bool operator==(const DeformData& a, const DeformData& b) {
    return a.vIgnoredRegions_ == b.vIgnoredRegions_;
  }
};

struct StabData : AnalysisDataOf<StabData> {
  SurchargeLoadTable vSurcharges_;  // "SurchargeLoads[SurchargeLoad]"
  std::vector<WaterTableEntry> vPiezometricLines_;
  DataPointTable dataPoints_;                  // "DataPoints[DataPoint]"
  ReinforcementTable reinforcements_;          // "Reinforcements[Reinforcement]"
  std::vector<PressureLine> vPressureLines_;   // "PressureLines[PressureLine]"
  SLIPTable slipSurfaces_;  // "FullySpecifiedSlipSurfaces[FullySpecifiedSlipSurface]"
  // "FullySpecFixedPoints[FixedPoint]": points of the fully specified slip
  // surfaces that optimisation leaves where they are
  std::vector<GID> vFixedPoints_;
  std::vector<LineLoadPoint> vLineLoads_;      // "LineLoadPoints[LineLoadPoint]"
  ParamVariation paramVariation_ = ParamVariation::Constant;
  // Monte Carlo trials of a probabilistic analysis; 1000 gives the
  // probability of failure to about +-1.5 % at 5 % (binomial standard error).
  std::int32_t nNumTrials_ = 1000;
  GID slipSurfaceAxis_ = 0;            // "SlipSurfaceAxis.ID": the data point the slip circles turn about; 0: none
  std::vector<GID> vTensionCrack_;     // "TensionCrack.DataPoints[DataPoint]": the tension crack line
  void DataInit() override { *this = StabData{}; }
  void FullCompact() override;
  // The surcharges (0), reinforcements (1) and slip surfaces (2) record
  // their edits for undo.
  IQVContainer* NestedTable(std::uint32_t i) override;
  void AttachNested(NestedTableOwner* owner) override;
  friend bool operator==(const StabData& a, const StabData& b) {
    return a.vSurcharges_ == b.vSurcharges_ && a.vPiezometricLines_ == b.vPiezometricLines_ &&
           a.dataPoints_ == b.dataPoints_ && a.reinforcements_ == b.reinforcements_ &&
           a.vPressureLines_ == b.vPressureLines_ && a.slipSurfaces_ == b.slipSurfaces_ &&
           a.vFixedPoints_ == b.vFixedPoints_ && a.vLineLoads_ == b.vLineLoads_ &&
           a.paramVariation_ == b.paramVariation_ && a.nNumTrials_ == b.nNumTrials_ &&
           a.slipSurfaceAxis_ == b.slipSurfaceAxis_ && a.vTensionCrack_ == b.vTensionCrack_;
  }
};

struct ThermoData : AnalysisDataOf<ThermoData> {
  std::vector<GID> vThermosyphons_;       // thermosyphons active in the analysis
  std::vector<GID> vConvectiveSurfaces_;  // convective surfaces active in the analysis
  void DataInit() override { *this = ThermoData{}; }
  friend bool operator==(const ThermoData& a, const ThermoData& b) {
    return a.vThermosyphons_ == b.vThermosyphons_ &&
           a.vConvectiveSurfaces_ == b.vConvectiveSurfaces_;
  }
};

struct EvapoData : AnalysisDataOf<EvapoData> {
  GID climateData_ = 0;  // the climate data set driving the surface; 0: none
  std::vector<WaterTableEntry> vInitialWaterTables_;
  void DataInit() override { *this = EvapoData{}; }
  void FullCompact() override;
  friend bool operator==(const EvapoData& a, const EvapoData& b) {
    return a.climateData_ == b.climateData_ && a.vInitialWaterTables_ == b.vInitialWaterTables_;
  }
};

}  // namespace v7
