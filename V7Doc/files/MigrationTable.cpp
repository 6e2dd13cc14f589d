#include "V7Doc/files/MigrationTable.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "QVI/str/Convert.h"

namespace v7::files::migration {
namespace {

struct Pair {
  const wchar_t* key;
  const wchar_t* replacement;
};

// Renames and moves, in the order in which they are entered. The oddities
// are the old files' own and are kept: the misspelt key, the crosswise
// bounds of the surfaces, two options that both become "Self", the results
// of every method collapsing onto the current slip surface.
constexpr Pair kMoves[] = {
    {L"Analyses[$1].NumCritialSlipSurfaces", L"Analyses[$1].NumCriticalSlipSurfaces"},
    // Entered twice, as the earlier generation did; the map keeps one.
    {L"Analyses[$1].NumCritialSlipSurfaces", L"Analyses[$1].NumCriticalSlipSurfaces"},
    {L"CurrentAnalysis.NumCritialSlipSurfaces", L"CurrentAnalysis.NumCriticalSlipSurfaces"},
    {L"Analyses[$1].UnitWaterWeight", L"Coordinates.EngCoords.UnitWaterWeight"},
    {L"Analyses[$1].PhaseChange", L"Coordinates.EngCoords.PhaseChange"},
    {L"Analyses[$1].LatentHeat", L"Coordinates.EngCoords.LatentHeat"},
    {L"Analyses[$1].AtmosphericPressure", L"Coordinates.EngCoords.AtmosphericPressure"},
    {L"CurrentAnalysis.UnitWaterWeight", L"Coordinates.EngCoords.UnitWaterWeight"},
    {L"CurrentAnalysis.PhaseChange", L"Coordinates.EngCoords.PhaseChange"},
    {L"CurrentAnalysis.LatentHeat", L"Coordinates.EngCoords.LatentHeat"},
    {L"CurrentAnalysis.AtmosphericPressure", L"Coordinates.EngCoords.AtmosphericPressure"},
    {L"Analyses[$1].ExternalFiles", L"Analyses[$1].InputFiles"},
    {L"CurrentAnalysis.ExternalFiles", L"CurrentAnalysis.InputFiles"},
    {L"Analyses[$1].ExternalAnalyses", L"Analyses[$1].InputFiles"},
    {L"Particles", L"SoluteItems[1].Entry.Particles"},
    {L"ShakeItems", L"ShakeItems[1].Entry"},
    {L"ShakeItems.EarthquakeRecords.Vertical.BLC", L"ShakeItems[1].Entry.EarthquakeRecords.Vertical.UseBaselineCorrection"},
    {L"StructuralBeamAttrTable", L"BeamAttributes"},
    {L"StructuralBarAttrTable", L"BarAttributes"},
    {L"PointDisplay", L"View.PointLabel"},
    {L"GeometryItems.Edges", L"GeometryItems.Lines"},
    {L"CurrentAnalysis.PWPInitialOption", L"CurrentAnalysis.InitialCondOption"},
    {L"CurrentAnalysis.PWPInitialOption.Initial PWP from Result", L"CurrentAnalysis.InitialCondOption.PreviousAnalysis"},
    {L"CurrentAnalysis.PWPInitialOption.Initial PWP from Water Table", L"CurrentAnalysis.InitialCondOption.InitialWaterTable"},
    {L"CurrentAnalysis.InitialCondOption.PreviousAnalysis", L"CurrentAnalysis.InitialCondOption.Other"},
    {L"CurrentAnalysis.InitialCondOption.NoInitialCondition", L"CurrentAnalysis.InitialCondOption.None"},
    {L"CurrentAnalysis.InitialCondOption.InitialWaterTable", L"CurrentAnalysis.InitialCondOption.Self"},
    {L"CurrentAnalysis.InitialCondOption.MaterialProperties", L"CurrentAnalysis.InitialCondOption.Self"},
    {L"View.Preferences.Nodes", L"View.Preferences.Mesh"},
    {L"View.Preferences.NodeNumbers", L"View.Preferences.MeshLabels"},
    {L"View.Preferences.ElementColor", L"View.Preferences.MaterialColor"},
    {L"View.Preferences.RegionColor", L"View.Preferences.MaterialColor"},
    {L"Analyses[$1].View", L"GeometryItems.Common.Kind"},
    {L"GeometryItems.Regions[$1].Points", L"GeometryItems.Regions[$1].PointIDs"},
    {L"GeometryItems.Regions[$1].CornerPoints", L"GeometryItems.Regions[$1].CornerPointIDs"},
    {L"GeometryItems.Lines[$1].Point1", L"GeometryItems.Lines[$1].PointID1"},
    {L"GeometryItems.Lines[$1].Point2", L"GeometryItems.Lines[$1].PointID2"},
    {L"Coordinates.EngCoords.XGridSpacing", L"View.Preferences.XGridSpacing"},
    {L"Coordinates.EngCoords.YGridSpacing", L"View.Preferences.YGridSpacing"},
    {L"Coordinates.EngCoords.ShowGrid", L"View.Preferences.ShowGrid"},
    {L"Coordinates.EngCoords.SnapToGrid", L"View.Preferences.SnapToGrid"},
    {L"StabItems[$1].Entry.DataPoints[$2].ID", L"StabItems[$1].Entry.DataPoints[$2].Number"},
    {L"StabItems[$1].Entry.SlipSurfaceAxis", L"StabItems[$1].Entry.SlipSurfaceAxis.ID"},
    {L"StabItems[$1].Entry.TensionCrack.Point", L"StabItems[$1].Entry.TensionCrack.DataPoints"},
    {L"StabItems[$1].Entry.PiezometricLines[$2].Point", L"StabItems[$1].Entry.PiezometricLines[$2].DataPoints"},
    {L"StabItems[$1].Entry.PressureLines[$2].Point", L"StabItems[$1].Entry.PressureLines[$2].DataPoints"},
    {L"StabItems[$1].Entry.FullySpecifiedSlipSurfaces[$2].Point", L"StabItems[$1].Entry.FullySpecifiedSlipSurfaces[$2].DataPoints"},
    {L"Analyses[$1].PWPOption.PhreaticCorrection", L"Analyses[$1].PhreaticCorrection"},
    {L"Materials[$1].StressStrain.ShakeModel", L"Materials[$1].ShakeModel"},
    {L"Materials[$1].Hydraulic.HydroModel", L"Materials[$1].HydroModel"},
    {L"Materials[$1].StressStrain.DeformModel", L"Materials[$1].DeformModel"},
    {L"Materials[$1].StressStrain.StabModel", L"Materials[$1].StabModel"},
    {L"Materials[$1].Thermal.ThermoModel", L"Materials[$1].ThermoModel"},
    {L"Materials[$1].Hydraulic.EvapoModel", L"Materials[$1].EvapoModel"},
    {L"CutLines", L"Contour.CutLines"},
    {L"Analyses[$1].Parent", L"Analyses[$1].ParentID"},
    {L"Analyses[$1].RileyDamping", L"Analyses[$1].Convergence.RileyDamping"},
    {L"Contour.ResultSets[$1].Contours", L"Contour.ResultContours[$1]"},
    {L"Contour.ResultSets[$1].Contours.ContourType", L"Contour.ResultContours[$1].Type"},
    {L"Contour.ResultSets[$1].Contours.MinLevel", L"Contour.ResultContours[$1].MinLevel"},
    {L"Contour.ResultSets[$1].Contours.ContourLevels", L"Contour.ResultContours[$1].NumOfLevels"},
    {L"Contour.ResultSets[$1].Contours.LevelIncrementSize", L"Contour.ResultContours[$1].LevelIncrement"},
    {L"Contour.ResultSets[$1].Contours.StartColor", L"Contour.ResultContours[$1].StartColor"},
    {L"Contour.ResultSets[$1].Contours.EndColor", L"Contour.ResultContours[$1].EndColor"},
    {L"Contour.ResultSets[$1].Contours.ShadingMethod", L"Contour.ResultContours[$1].ShadingMethod"},
    {L"Contour.ResultSets[$1].Contours.ShadesPerInterval", L"Contour.ResultContours[$1].ShadesPerInterval"},
    {L"Contour.ResultSets[$1].Contours.Labels", L"Contour.ResultContours[$1].Labels"},
    {L"Probability.Ordinary.MeanFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMean"},
    {L"Probability.Bishop.MeanFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMean"},
    {L"Probability.Janbu.MeanFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMean"},
    {L"Probability.Other.MeanFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMean"},
    {L"CurrentProbability.MeanFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMean"},
    {L"Probability.Ordinary.StandardDeviation", L"CurrentResults.CurrentSlipSurface.SlipFOSStdDev"},
    {L"Probability.Bishop.StandardDeviation", L"CurrentResults.CurrentSlipSurface.SlipFOSStdDev"},
    {L"Probability.Janbu.StandardDeviation", L"CurrentResults.CurrentSlipSurface.SlipFOSStdDev"},
    {L"Probability.Other.StandardDeviation", L"CurrentResults.CurrentSlipSurface.SlipFOSStdDev"},
    {L"CurrentProbability.StandardDeviation", L"CurrentResults.CurrentSlipSurface.SlipFOSStdDev"},
    {L"Probability.Ordinary.ReliabilityIndex", L"CurrentResults.CurrentSlipSurface.SlipReliabilityIndex"},
    {L"Probability.Bishop.ReliabilityIndex", L"CurrentResults.CurrentSlipSurface.SlipReliabilityIndex"},
    {L"Probability.Janbu.ReliabilityIndex", L"CurrentResults.CurrentSlipSurface.SlipReliabilityIndex"},
    {L"Probability.Other.ReliabilityIndex", L"CurrentResults.CurrentSlipSurface.SlipReliabilityIndex"},
    {L"CurrentProbability.ReliabilityIndex", L"CurrentResults.CurrentSlipSurface.SlipReliabilityIndex"},
    {L"Probability.Ordinary.ProbabilityOfFailure", L"CurrentResults.CurrentSlipSurface.SlipProbOfFailure"},
    {L"Probability.Bishop.ProbabilityOfFailure", L"CurrentResults.CurrentSlipSurface.SlipProbOfFailure"},
    {L"Probability.Janbu.ProbabilityOfFailure", L"CurrentResults.CurrentSlipSurface.SlipProbOfFailure"},
    {L"Probability.Other.ProbabilityOfFailure", L"CurrentResults.CurrentSlipSurface.SlipProbOfFailure"},
    {L"CurrentProbability.ProbabilityOfFailure", L"CurrentResults.CurrentSlipSurface.SlipProbOfFailure"},
    {L"Probability.Ordinary.MinimumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMin"},
    {L"Probability.Bishop.MinimumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMin"},
    {L"Probability.Janbu.MinimumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMin"},
    {L"Probability.Other.MinimumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMin"},
    {L"CurrentProbability.MinimumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMin"},
    {L"Probability.Ordinary.MaximumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMax"},
    {L"Probability.Bishop.MaximumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMax"},
    {L"Probability.Janbu.MaximumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMax"},
    {L"Probability.Other.MaximumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMax"},
    {L"CurrentProbability.MaximumFofS", L"CurrentResults.CurrentSlipSurface.SlipFOSMax"},
    {L"SlipSummary.Ordinary.SlideVolume", L"CurrentResults.CurrentSlipSurface.SlipVolume"},
    {L"SlipSummary.Bishop.SlideVolume", L"CurrentResults.CurrentSlipSurface.SlipVolume"},
    {L"SlipSummary.Janbu.SlideVolume", L"CurrentResults.CurrentSlipSurface.SlipVolume"},
    {L"SlipSummary.Other.SlideVolume", L"CurrentResults.CurrentSlipSurface.SlipVolume"},
    {L"CurrentSlipSummary.SlideVolume", L"CurrentResults.CurrentSlipSurface.SlipVolume"},
    {L"SlipSummary.Ordinary.SlideMass", L"CurrentResults.CurrentSlipSurface.SlipMass"},
    {L"SlipSummary.Bishop.SlideMass", L"CurrentResults.CurrentSlipSurface.SlipMass"},
    {L"SlipSummary.Janbu.SlideMass", L"CurrentResults.CurrentSlipSurface.SlipMass"},
    {L"SlipSummary.Other.SlideMass", L"CurrentResults.CurrentSlipSurface.SlipMass"},
    {L"CurrentSlipSummary.SlideMass", L"CurrentResults.CurrentSlipSurface.SlipMass"},
    {L"SlipSummary.Ordinary.ResistingMoment", L"CurrentResults.CurrentSlipSurface.SlipResistingMoment"},
    {L"SlipSummary.Bishop.ResistingMoment", L"CurrentResults.CurrentSlipSurface.SlipResistingMoment"},
    {L"SlipSummary.Janbu.ResistingMoment", L"CurrentResults.CurrentSlipSurface.SlipResistingMoment"},
    {L"SlipSummary.Other.ResistingMoment", L"CurrentResults.CurrentSlipSurface.SlipResistingMoment"},
    {L"CurrentSlipSummary.ResistingMoment", L"CurrentResults.CurrentSlipSurface.SlipResistingMoment"},
    {L"SlipSummary.Ordinary.ActiveMoment", L"CurrentResults.CurrentSlipSurface.SlipActivatingMoment"},
    {L"SlipSummary.Bishop.ActiveMoment", L"CurrentResults.CurrentSlipSurface.SlipActivatingMoment"},
    {L"SlipSummary.Janbu.ActiveMoment", L"CurrentResults.CurrentSlipSurface.SlipActivatingMoment"},
    {L"SlipSummary.Other.ActiveMoment", L"CurrentResults.CurrentSlipSurface.SlipActivatingMoment"},
    {L"CurrentSlipSummary.ActiveMoment", L"CurrentResults.CurrentSlipSurface.SlipActivatingMoment"},
    {L"SlipSummary.Ordinary.ResistingForce", L"CurrentResults.CurrentSlipSurface.SlipResistingForce"},
    {L"SlipSummary.Bishop.ResistingForce", L"CurrentResults.CurrentSlipSurface.SlipResistingForce"},
    {L"SlipSummary.Janbu.ResistingForce", L"CurrentResults.CurrentSlipSurface.SlipResistingForce"},
    {L"SlipSummary.Other.ResistingForce", L"CurrentResults.CurrentSlipSurface.SlipResistingForce"},
    {L"CurrentSlipSummary.ResistingForce", L"CurrentResults.CurrentSlipSurface.SlipResistingForce"},
    {L"SlipSummary.Ordinary.ActiveForce", L"CurrentResults.CurrentSlipSurface.SlipActivatingForce"},
    {L"SlipSummary.Bishop.ActiveForce", L"CurrentResults.CurrentSlipSurface.SlipActivatingForce"},
    {L"SlipSummary.Janbu.ActiveForce", L"CurrentResults.CurrentSlipSurface.SlipActivatingForce"},
    {L"SlipSummary.Other.ActiveForce", L"CurrentResults.CurrentSlipSurface.SlipActivatingForce"},
    {L"CurrentSlipSummary.ActiveForce", L"CurrentResults.CurrentSlipSurface.SlipActivatingForce"},
    {L"SlipSummary.Ordinary.FofS", L"CurrentResults.CurrentSlipSurface.SlipFOS"},
    {L"SlipSummary.Bishop.FofS", L"CurrentResults.CurrentSlipSurface.SlipFOS"},
    {L"SlipSummary.Janbu.FofS", L"CurrentResults.CurrentSlipSurface.SlipFOS"},
    {L"SlipSummary.Other.FofS", L"CurrentResults.CurrentSlipSurface.SlipFOS"},
    {L"CurrentSlipSummary.FofS", L"CurrentResults.CurrentSlipSurface.SlipFOS"},
    {L"Analyses[$1].CapSuction", L"UpgradeList[1].Values[$1]"},
    {L"Analyses[$1].MaxSuction", L"UpgradeList[2].Values[$1]"},
    {L"Analyses[$1].InitialDynamicStressSource", L"Analyses[$1].DynamicStressSource"},
    {L"Functions.Func3Ds[$1].UserMin", L"Functions.Func3Ds[$1].SpecifiedMax"},
    {L"Functions.Func3Ds[$1].UserMax", L"Functions.Func3Ds[$1].SpecifiedMin"},
    {L"StabItems[$1].Entry.*", L"CurrentAnalysis.Objects."},
    {L"ShakeItems[$1].Entry.*", L"CurrentAnalysis.Objects."},
};

// Collections whose items the earlier generation described rather than
// named: "[$1].Description" becomes "[$1].Name".
constexpr const wchar_t* kDescribed[] = {
    L"BCs",
    L"ClimateDataSets",
    L"Materials",
    L"Contour.ResultGraphs",
    L"BeamAttributes",
    L"BarAttributes",
    L"Functions.Material.Hydraulic.KFns",
    L"Functions.Material.Thermal.KFns",
    L"Functions.Material.Thermal.KFnTemps",
    L"Functions.Material.Hydraulic.VolWCFns",
    L"Functions.Material.Air.KFns",
    L"Functions.Boundary.Air.BoundFns",
    L"Functions.Material.Contaminant.AdsorpFns",
    L"Functions.Material.Thermal.UnfrozenWCFns",
    L"Functions.Boundary.Hydraulic.BoundFns",
    L"Functions.Boundary.Thermal.BoundFns",
    L"Functions.Boundary.StressStrain.BoundFns",
    L"Functions.Boundary.Contaminant.BoundFns",
    L"Functions.Boundary.Gas.BoundFns",
    L"Functions.Boundary.Hydraulic.ModFns",
    L"Functions.Boundary.Thermal.ModFns",
    L"Functions.Boundary.Gas.ModFns",
    L"Functions.Material.Hydraulic.GrainSizeFns",
    L"Functions.Material.Thermal.VolSpecHeatFns",
    L"Functions.Boundary.Climate.LeafAreaIndexFns",
    L"Functions.Boundary.Climate.PlantMoistLimitFns",
    L"Functions.Boundary.Climate.RootDepthFns",
    L"Functions.Material.Contaminant.DiffusionFns",
    L"Functions.Material.StressStrain.CyclicNumFns",
    L"Functions.Material.StressStrain.SeedPWPFns",
    L"Functions.Material.StressStrain.GReductionFns",
    L"Functions.Material.StressStrain.DampingRatioFns",
    L"Functions.Material.StressStrain.KAlphaCorrFns",
    L"Functions.Material.StressStrain.KSigmaCorrFns",
    L"Functions.Material.StressStrain.MFSPWPFns",
    L"Functions.Material.StressStrain.EModulusFns",
    L"Functions.Material.StressStrain.GmaxFns",
    L"Functions.Material.StressStrain.KRedFns",
    L"Functions.Material.StressStrain.TotalEModFns",
    L"Functions.Material.StressStrain.TotalCFns",
    L"Functions.Material.StressStrain.RecModulusFns",
    L"Functions.Material.StressStrain.AnisoFns",
    L"Functions.Material.StressStrain.StrengthFns",
    L"Functions.Material.StressStrain.StabProbFns",
};

// Items given up: read and thrown away.
constexpr const wchar_t* kDropped[] = {
    L"StabItems.SlipEntryExit.LeftSideLeftPt.ID",
    L"StabItems.SlipEntryExit.LeftSideRightPt.ID",
    L"StabItems.SlipEntryExit.RightSideLeftPt.ID",
    L"StabItems.SlipEntryExit.RightSideRightPt.ID",
    L"GeometryItems.Edges[$1].Region1",
    L"GeometryItems.Edges[$1].Region2",
    L"Regions[$1].TunnelCenter.ID",
    L"View.Preferences.TimeStep",
    L"View.Preferences.TimeStepNumbers",
    L"View.Preferences.Elements",
    L"View.Preferences.ElementNumbers",
    L"View.Preferences.MaterialBoundaries",
    L"Materials[$1].Stress.SeismicCoef",
    L"StabItems[$1].Entry.Contours",
    L"Analyses[$1].StartingTimeStep",
    L"Analyses[$1].IterativeSolverTolerance",
    L"Analyses[$1].Convergence.UseResidualStrength",
    L"Analyses[$1].DynamicControl.Formulation",
    L"Analyses[$1].UseSumMass",
    L"Analyses[$1].SortDirection",
    L"Analyses[$1].Convergence.IterativeSolverTolerance",
    L"Functions.Material.Hydraulic.GrainSizeFns",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1]",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].ID",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Function",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Name",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Points",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Points[$2]",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Points[$2].X",
    L"Functions.Material.Hydraulic.GrainSizeFns[$1].Points[$2].Y",
    L"Contour.ResultContours[$1].ID",
};

// Every pattern of the table by its last step (from the pattern before it,
// a member name or an index "[$k]"), in an open-addressed table: looked up
// once per element of an old document, so the hash reads only the length
// and the ends of the name.
class StepIndex {
 public:
  void Add(const PatternInfo* from, std::string_view label, const PatternInfo* to) {
    slots_.push_back({from, label, to});  // sized and placed by Seal
  }
  void Seal() {
    std::vector<Slot> all = std::move(slots_);
    std::size_t size = 16;
    while (size < 4 * all.size()) size *= 2;
    slots_.assign(size, Slot{});
    mask_ = size - 1;
    for (const Slot& s : all) {
      std::size_t i = Hash(s.from, s.label) & mask_;
      while (slots_[i].to) i = (i + 1) & mask_;
      slots_[i] = s;
    }
  }
  const PatternInfo* Find(const PatternInfo* from, std::string_view label) const {
    for (std::size_t i = Hash(from, label) & mask_;; i = (i + 1) & mask_) {
      const Slot& s = slots_[i];
      if (!s.to) return nullptr;
      if (s.from == from && s.label == label) return s.to;
    }
  }

 private:
  struct Slot {
    const PatternInfo* from = nullptr;
    std::string_view label;
    const PatternInfo* to = nullptr;  // nullptr: an empty slot
  };
  static std::size_t Hash(const PatternInfo* from, std::string_view label) {
    std::uint64_t h = reinterpret_cast<std::uintptr_t>(from) ^ (label.size() << 40);
    if (!label.empty()) {
      h ^= static_cast<unsigned char>(label.front()) | static_cast<std::uint64_t>(label.back()) << 8;
      if (label.size() > 2)
        h ^= static_cast<std::uint64_t>(static_cast<unsigned char>(label[label.size() / 2])) << 16 |
             static_cast<std::uint64_t>(static_cast<unsigned char>(label[1])) << 24;
    }
    h *= 0x9E3779B97F4A7C15ull;  // Fibonacci hashing (Knuth, TAOCP vol. 3, 6.4)
    return static_cast<std::size_t>(h >> 32);
  }
  std::vector<Slot> slots_{Slot{}};
  std::size_t mask_ = 0;
};

struct Table {
  std::vector<Entry> entries;
  std::unordered_map<std::wstring_view, std::size_t> by_key;
  std::vector<std::size_t> prefixes;          // ".*" entries, longest first
  std::deque<std::wstring> inner_text;
  std::unordered_map<std::wstring_view, PatternInfo> info;  // by pattern
  PatternInfo root;                                        // the empty pattern
  std::deque<std::string> labels;
  StepIndex steps;

  void Enter(std::wstring key, std::wstring replacement) {
    for (const Entry& e : entries)
      if (e.key == key) return;  // the first entry of a key stands
    entries.push_back({std::move(key), std::move(replacement)});
  }

  Table() {
    for (const Pair& p : kMoves) Enter(p.key, p.replacement);
    for (const wchar_t* c : kDescribed)
      Enter(std::wstring(c) + L"[$1].Description", std::wstring(c) + L"[$1].Name");
    for (const wchar_t* k : kDropped) Enter(k, std::wstring(kIgnoreData));
    // Views into `entries`, which no longer changes.
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const std::wstring& k = entries[i].key;
      by_key.emplace(k, i);
      info[k].entry = &entries[i];
      if (entries[i].IsPrefix()) prefixes.push_back(i);
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const std::wstring& k = entries[i].key;
      for (std::size_t at = 0; at < k.size(); ++at) {
        if (k[at] != L'.' && k[at] != L'[') continue;
        auto it = info.find(std::wstring_view(k).substr(0, at));
        if (it == info.end()) it = info.emplace(inner_text.emplace_back(k.substr(0, at)), PatternInfo{}).first;
        it->second.inner = true;
        if (k[at] == L'[') it->second.collection = true;
      }
    }
    std::stable_sort(prefixes.begin(), prefixes.end(), [&](std::size_t a, std::size_t b) {
      return entries[a].key.size() > entries[b].key.size();
    });
    for (std::size_t i : prefixes) {
      const std::wstring& k = entries[i].key;
      info.find(std::wstring_view(k).substr(0, k.size() - 2))->second.stem = &entries[i];
    }
    // A pattern's last step starts at its last "." or "[": the pattern
    // before it is a key's prefix too, so it is in `info` (or is the root).
    for (const auto& [pattern, pi] : info) {
      const std::size_t at = pattern.find_last_of(L".[");
      const PatternInfo* from = &root;
      std::wstring_view label = pattern;
      if (at != std::wstring_view::npos) {
        from = &info.find(pattern.substr(0, at))->second;
        label = pattern.substr(pattern[at] == L'.' ? at + 1 : at);
      }
      steps.Add(from, labels.emplace_back(str::to_utf8(label)), &pi);
    }
    steps.Seal();
  }
};

const Table& TheTable() {
  static const Table t;
  return t;
}

// Built at library load, before any document is read.
const Table& kBuiltAtLoad = TheTable();

}  // namespace

const std::vector<Entry>& Entries() { return TheTable().entries; }

const Entry* Lookup(std::wstring_view key) {
  const Table& t = TheTable();
  const auto it = t.by_key.find(key);
  return it == t.by_key.end() ? nullptr : &t.entries[it->second];
}

const Entry* LookupPrefix(std::wstring_view pattern) {
  const Table& t = TheTable();
  for (std::size_t i : t.prefixes) {
    const std::wstring_view stem = std::wstring_view(t.entries[i].key).substr(0, t.entries[i].key.size() - 1);
    if (pattern.starts_with(stem)) return &t.entries[i];
  }
  return nullptr;
}

bool MayMatchBelow(std::wstring_view pattern) {
  // Below a ".*" key's stem every path matches, but to the same place its
  // parent went: only keys that name a deeper path need a look.
  const PatternInfo* i = Info(pattern);
  return i && i->inner;
}

bool IsCollection(std::wstring_view pattern) {
  const PatternInfo* i = Info(pattern);
  return i && i->collection;
}

const PatternInfo* Info(std::wstring_view pattern) {
  const Table& t = TheTable();
  const auto it = t.info.find(pattern);
  return it == t.info.end() ? nullptr : &it->second;
}

const PatternInfo* RootInfo() { return &TheTable().root; }

const PatternInfo* InfoBelow(const PatternInfo* from, std::string_view name) {
  return from ? TheTable().steps.Find(from, name) : nullptr;
}

const PatternInfo* InfoAtIndex(const PatternInfo* from, std::size_t k) {
  if (!from || k < 1 || k > 9) return nullptr;  // keys bind "$1" to "$9" at most
  const char label[] = {'[', '$', static_cast<char>('0' + k), ']'};
  return InfoBelow(from, std::string_view(label, sizeof label));
}

std::size_t IndexOf(const Entry& e) { return static_cast<std::size_t>(&e - TheTable().entries.data()); }

}  // namespace v7::files::migration
