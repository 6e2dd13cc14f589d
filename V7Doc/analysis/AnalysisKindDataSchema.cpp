// Persisted names of the per-kind analysis data. Each per-kind list is
// persisted as one item per analysis, "<ID>" (the analysis) and "<Entry>"
// (its data), the layout the older documents' paths
// ("StabItems[$1].Entry.PressureLines[$2]") already use.
#include "OC/Schema.h"
#include "V7Doc/analysis/AnalysisKindData.h"
#include "V7Doc/core/ContainerIDs.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<TimeHistoryPoint>() {
  static const RecordType& t = Schema<TimeHistoryPoint>(L"TimeHistoryPoint")
      .Add(&TimeHistoryPoint::fTime, L"fTime", L"Time")
      .Add(&TimeHistoryPoint::fValue, L"fValue", L"Value")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ShakeDirection>() {
  static const RecordType& t = Schema<ShakeDirection>(L"ShakeDirection")
      .Add(&ShakeDirection::vTimeHistory_, L"vTimeHistory_", L"Records[Record]")
      .Add(&ShakeDirection::fScale_, L"fScale_", L"ScaleFactor")
      .Add(&ShakeDirection::bUseBaselineCorrection_, L"bUseBaselineCorrection_", L"UseBaselineCorrection")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ShakeEarthquake>() {
  static const RecordType& t = Schema<ShakeEarthquake>(L"ShakeEarthquake")
      .Add(&ShakeEarthquake::name_, L"name_", L"Name")
      .Add(&ShakeEarthquake::horizontal_, L"horizontal_", L"Horizontal")
      .Add(&ShakeEarthquake::vertical_, L"vertical_", L"Vertical")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<WaterTableEntry>() {
  static const RecordType& t = Schema<WaterTableEntry>(L"WaterTableEntry")
      .Add(&WaterTableEntry::name_, L"name_", L"Name")
      .Add(&WaterTableEntry::vPoints_, L"vPoints_", L"DataPoints[DataPoint]", meta::MetaDataTraits{}.Ref(container::Points))
      .Add(&WaterTableEntry::vMaterials_, L"vMaterials_", L"Materials[ID]", meta::MetaDataTraits{}.Ref(container::Materials))
      .Add(&WaterTableEntry::inputDef_, L"inputDef_", L"InputDefinition")
      .Add(&WaterTableEntry::bMissing_, L"bMissing_", L"Deleted", meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::Deleted))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SoluteData>() {
  static const RecordType& t = Schema<SoluteData>(L"SoluteData")
      .Add(&SoluteData::vSources_, L"vSources_", L"Sources[ID]", meta::MetaDataTraits{}.Ref(container::BCs))
      .Add(&SoluteData::vParticles_, L"vParticles_", L"Particles[Particle]")
      .Add(&SoluteData::vParticlePairs_, L"vParticlePairs_", L"ParticlePairs[ParticlePair]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ShakeData>() {
  static const RecordType& t = Schema<ShakeData>(L"ShakeData")
      .Add(&ShakeData::earthquake_, L"earthquake_", L"EarthquakeRecords")
      .Add(&ShakeData::vHistoryPoints_, L"vHistoryPoints_", L"POGHPoints[POGHPoint]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<HydroData>() {
  static const RecordType& t = Schema<HydroData>(L"HydroData")
      .Add(&HydroData::vInitialWaterTables_, L"vInitialWaterTables_", L"InitialWaterTables[InitialWaterTable]")
      .Add(&HydroData::fluxSections_, L"fluxSections_", L"FluxSections[FluxSection]")
      .Add(&HydroData::vFluxLabels_, L"vFluxLabels_", L"FluxLabels[FluxLabel]")
      .Add(&HydroData::vFlowPaths_, L"vFlowPaths_", L"FlowPaths[FlowPath]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<DeformData>() {
  static const RecordType& t = Schema<DeformData>(L"DeformData")
      .Add(&DeformData::vIgnoredRegions_, L"vIgnoredRegions_", L"IgnoredItems[ID]", meta::MetaDataTraits{}.Ref(container::Regions))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<StabData>() {
  static const RecordType& t = Schema<StabData>(L"StabData")
      .Add(&StabData::vSurcharges_, L"vSurcharges_", L"SurchargeLoads[SurchargeLoad]")
      .Add(&StabData::vPiezometricLines_, L"vPiezometricLines_", L"PiezometricLines[PiezometricLine]")
      .Add(&StabData::dataPoints_, L"dataPoints_", L"DataPoints[DataPoint]")
      .Add(&StabData::reinforcements_, L"reinforcements_", L"Reinforcements[Reinforcement]")
      .Add(&StabData::vPressureLines_, L"vPressureLines_", L"PressureLines[PressureLine]")
      .Add(&StabData::slipSurfaces_, L"slipSurfaces_", L"FullySpecifiedSlipSurfaces[FullySpecifiedSlipSurface]")
      .Add(&StabData::vFixedPoints_, L"vFixedPoints_", L"FullySpecFixedPoints[FixedPoint]",
           meta::MetaDataTraits{}.Ref(container::Points))
      .Add(&StabData::vLineLoads_, L"vLineLoads_", L"LineLoadPoints[LineLoadPoint]")
      .Add(&StabData::paramVariation_, L"paramVariation_", L"ParameterVariation")
      .Add(&StabData::nNumTrials_, L"nNumTrials_", L"NumTrials", meta::MetaDataTraits{}.Bounds(1, 1e9))
      .Add(&StabData::slipSurfaceAxis_, L"slipSurfaceAxis_", L"SlipSurfaceAxis.ID")
      .Add(&StabData::vTensionCrack_, L"vTensionCrack_", L"TensionCrack.DataPoints[DataPoint]",
           meta::MetaDataTraits{}.Ref(container::Points))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ThermoData>() {
  static const RecordType& t = Schema<ThermoData>(L"ThermoData")
      .Add(&ThermoData::vThermosyphons_, L"vThermosyphons_", L"ThermoSyphons[ID]", meta::MetaDataTraits{}.Ref(container::Thermosyphons))
      .Add(&ThermoData::vConvectiveSurfaces_, L"vConvectiveSurfaces_", L"ConvectiveSurfaces[ID]", meta::MetaDataTraits{}.Ref(container::ConvectiveSurfaces))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<EvapoData>() {
  static const RecordType& t = Schema<EvapoData>(L"EvapoData")
      .Add(&EvapoData::climateData_, L"climateData_", L"ClimateDataID", meta::MetaDataTraits{}.Ref(container::ClimateData))
      .Add(&EvapoData::vInitialWaterTables_, L"vInitialWaterTables_", L"InitialWaterTables[InitialWaterTable]")
      .Done();
  return t;
}

// One item of a per-kind list: the analysis and its data.
template <class D>
const RecordType& ItemType(const wchar_t* name) {
  using E = typename AnalysisDataByAnalysisID<D>::Entry;
  static const RecordType& t = Schema<E>(name)
      // An item lives and dies with its analysis and is known by it.
      .Add(&E::first, L"first", L"ID",
           meta::MetaDataTraits{}
               .Ref(container::Analyses)
               .Flag(meta::MetaDataTraits::DropWhenGone | meta::MetaDataTraits::Key))
      .Add(&E::second, L"second", L"Entry")
      .Done();
  return t;
}

template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<SoluteData>::Entry>() { return ItemType<SoluteData>(L"SoluteItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<ShakeData>::Entry>() { return ItemType<ShakeData>(L"ShakeItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<HydroData>::Entry>() { return ItemType<HydroData>(L"HydroItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<DeformData>::Entry>() { return ItemType<DeformData>(L"DeformItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<StabData>::Entry>() { return ItemType<StabData>(L"StabItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<ThermoData>::Entry>() { return ItemType<ThermoData>(L"ThermoItem"); }
template <> const RecordType& TypeOf<AnalysisDataByAnalysisID<EvapoData>::Entry>() { return ItemType<EvapoData>(L"EvapoItem"); }

}  // namespace oc
