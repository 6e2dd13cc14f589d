#pragma once
// The analysis record: one analysis of the project, its kind, method, parent,
// settings and the sources of its initial conditions. Its GID in the
// "Analyses" table is the analysis ID.
#include <cstdint>
#include <string>

#include "QVI/qvi/Markers.h"
#include "V7Doc/analysis/AnalysisBlocks.h"
#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/analysis/TIMEINCSTRUCT.h"
#include "V7Doc/core/GID.h"

namespace v7 {

#define V7_ANALYSIS_ACCESSOR(Name, member) \
  auto& Name() { return member; }          \
  const auto& Name() const { return member; }

struct ANALYSIS {
  ANALYSIS() { DataInit(AnalysisKind::Hydro); }
  ANALYSIS(const ANALYSIS&) = default;
  ANALYSIS(ANALYSIS&&) noexcept = default;
  ANALYSIS& operator=(const ANALYSIS&) = default;
  ANALYSIS& operator=(ANALYSIS&&) noexcept = default;

  // Resets every member to the defaults of `kind` (see ANALYSIS.cpp for the
  // table of defaults). `method` Undefined takes the kind's default method;
  // a method the kind does not admit is replaced by that default too. With a
  // parent, the initial conditions come from the parent.
  void DataInit(AnalysisKind kind, AnlsMethod method = AnlsMethod::Undefined, GID parent = 0);

  std::wstring name;         // "Name"
  std::wstring description;  // "Description"
  AnalysisKind kind = AnalysisKind::Hydro;  // "Kind"; None marks a deleted record
  // "ParentAnalysisId"; 0 for none. Documents of the previous generation
  // call it "ParentID" (their "Parent" migrates to it): that name is read as
  // a second name of this member and never written.
  GID parent = 0;
  AnlsMethod method = AnlsMethod::SteadyState;  // "Method"

  DYNAMIC_INFO DynamicControl_;         // "DynamicControl"
  std::int32_t nNumSlices_ = 30;        // "NumSlices"
  double fTolerance_ = 0.01;            // "OptimizationTolerance"
  StabSlipDir SlipDir_ = StabSlipDir::LeftToRight;  // "SlipDirection"
  bool bAllowPassiveMode_ = false;      // "AllowPassiveMode"
  SlipSurfaceOption slipSurfOption_ = SlipSurfaceOption::EntryAndExit;  // "SlipSurfaceOption"
  bool bPiezPhreatic = false;           // "PhreaticCorrection"
  SIDE_INFO Side_;                      // "Side"
  double fLambda_ = qvi::kNoValue;      // "Lambda"; no value: solved for
  std::int32_t fosDistOption = 0;       // "FOSDistributionCalc"; 0: none computed
  std::int32_t nNumCriticalSlip_ = 100;  // "NumCriticalSlipSurfaces"
  bool bOptimizeSlip_ = false;          // "OptimizeCriticalLocation"
  bool bBlockSlipNoCross_ = false;      // "BlockSlipNoCrossing"
  SLIP_OPTIMIZE SlipOptimize_;          // "SlipSurfaceOptimize"
  bool bInclGroundFreezing_ = false;    // "IncludeGroundFreezing"
  std::int32_t nPhasePts_ = 1;          // "NumPhaseChangePts"
  bool bInclVegetation_ = false;        // "IncludeVegetation"
  bool bVelZero_ = false;               // "SetVelocitiesToZero"
  v7::AnlsDiff anlsDiff_ = v7::AnlsDiff::BackwardDifference;  // "TimeDifference"
  double fRefConc_ = 0;                 // "RefConcentration"
  double fRelDensity_ = 0;              // "RelativeDensity"
  InitialCondOption initStressOption_ = InitialCondOption::None;        // "InitialStressSource"
  InitialCondOption dynStressOption_ = InitialCondOption::None;         // "DynamicStressSource"
  InitialCondOption InitPWPCondOption_ = InitialCondOption::None;       // "InitialCondSource"
  InitialCondOption InitThermCondOption_ = InitialCondOption::None;     // "InitialThermCondSource"
  InitialCondOption initVolChangePWPCondOption_ = InitialCondOption::None;  // "VolChangePWPStartSource"
  InitialCondOption finalPWPCondOption_ = InitialCondOption::None;      // "VolChangePWPFinalSource"
  InitialCondOption transPWPCondOption_ = InitialCondOption::None;      // "VolChangePWPSource"
  InitialCondOption hydroResultCondOption_ = InitialCondOption::None;   // "HydroResultSource"
  InitialCondOption initParticleCondOption_ = InitialCondOption::None;  // "ParticleCondSource"
  GasDiffusionType nGasDiffType_ = GasDiffusionType::None;              // "GasDiffusionType"
  InitialCondOption initConcentrationCondOption_ = InitialCondOption::None;  // "ConcCondSource"
  PWPChangeOption pwpChangeOption_ = PWPChangeOption::FromResults;      // "PWPChangeOption"
  bool bInclAirFlow_ = false;                                           // "IncludeAirFlow"
  InitialCondOption initAirFlowCondOption_ = InitialCondOption::None;   // "AirFlowCondSource"
  INPUT_FILES inputFiles_;              // "InputFiles"
  bool bRapidDrawdown_ = false;         // "RapidDrawdown"
  double dDrawdownDistance_ = 0;        // "DrawdownDistance"
  bool bMultipleGravity_ = false;       // "MultipleGravity"
  bool bUseConstantStress_ = false;     // "UseConstantStress"
  bool bConsolSatOnly_ = false;         // "ConsolSatOnly"
  bool bMovingBoundary_ = false;        // "MovingBoundary"
  bool bAdjustFill_ = false;            // "AdjustFillElevation"
  bool bExcludeInitCumulative_ = false;  // "ExcludeInitDeformation"
  CONVERGENCE Conv_;                    // "Convergence"
  TIMEINCSTRUCT TimeInc_;               // "TimeIncrements"

  V7_ANALYSIS_ACCESSOR(Name, name)
  V7_ANALYSIS_ACCESSOR(Description, description)
  V7_ANALYSIS_ACCESSOR(Kind, kind)
  V7_ANALYSIS_ACCESSOR(Parent, parent)
  V7_ANALYSIS_ACCESSOR(Method, method)
  V7_ANALYSIS_ACCESSOR(DynamicControl, DynamicControl_)
  V7_ANALYSIS_ACCESSOR(NumSlices, nNumSlices_)
  V7_ANALYSIS_ACCESSOR(Tolerance, fTolerance_)
  V7_ANALYSIS_ACCESSOR(SlipDir, SlipDir_)
  V7_ANALYSIS_ACCESSOR(AllowPassiveMode, bAllowPassiveMode_)
  V7_ANALYSIS_ACCESSOR(SlipSurfOption, slipSurfOption_)
  V7_ANALYSIS_ACCESSOR(PiezPhreatic, bPiezPhreatic)
  V7_ANALYSIS_ACCESSOR(Side, Side_)
  V7_ANALYSIS_ACCESSOR(Lambda, fLambda_)
  V7_ANALYSIS_ACCESSOR(FosDistOption, fosDistOption)
  V7_ANALYSIS_ACCESSOR(NumCriticalSlip, nNumCriticalSlip_)
  V7_ANALYSIS_ACCESSOR(OptimizeSlip, bOptimizeSlip_)
  V7_ANALYSIS_ACCESSOR(BlockSlipNoCross, bBlockSlipNoCross_)
  V7_ANALYSIS_ACCESSOR(SlipOptimize, SlipOptimize_)
  V7_ANALYSIS_ACCESSOR(InclGroundFreezing, bInclGroundFreezing_)
  V7_ANALYSIS_ACCESSOR(PhasePts, nPhasePts_)
  V7_ANALYSIS_ACCESSOR(InclVegetation, bInclVegetation_)
  V7_ANALYSIS_ACCESSOR(VelZero, bVelZero_)
  V7_ANALYSIS_ACCESSOR(AnlsDiff, anlsDiff_)
  V7_ANALYSIS_ACCESSOR(RefConc, fRefConc_)
  V7_ANALYSIS_ACCESSOR(RelDensity, fRelDensity_)
  V7_ANALYSIS_ACCESSOR(InitStressOption, initStressOption_)
  V7_ANALYSIS_ACCESSOR(DynStressOption, dynStressOption_)
  V7_ANALYSIS_ACCESSOR(InitPWPCondOption, InitPWPCondOption_)
  // A stability analysis keeps its pore-water pressure source in the same
  // member; "StabPWPCondSource" addresses it through this accessor.
  V7_ANALYSIS_ACCESSOR(GetStabPWPCondOption, InitPWPCondOption_)
  V7_ANALYSIS_ACCESSOR(InitThermCondOption, InitThermCondOption_)
  V7_ANALYSIS_ACCESSOR(InitVolChangePWPCondOption, initVolChangePWPCondOption_)
  V7_ANALYSIS_ACCESSOR(FinalPWPCondOption, finalPWPCondOption_)
  V7_ANALYSIS_ACCESSOR(TransPWPCondOption, transPWPCondOption_)
  V7_ANALYSIS_ACCESSOR(HydroResultCondOptions, hydroResultCondOption_)
  V7_ANALYSIS_ACCESSOR(InitParticleCondOptions, initParticleCondOption_)
  V7_ANALYSIS_ACCESSOR(GasDiffType, nGasDiffType_)
  V7_ANALYSIS_ACCESSOR(InitConcentrationCondOptions, initConcentrationCondOption_)
  V7_ANALYSIS_ACCESSOR(PwpChangeOption, pwpChangeOption_)
  V7_ANALYSIS_ACCESSOR(InclAirFlow, bInclAirFlow_)
  V7_ANALYSIS_ACCESSOR(InitAirFlowCondOptions, initAirFlowCondOption_)
  V7_ANALYSIS_ACCESSOR(InputFiles, inputFiles_)
  V7_ANALYSIS_ACCESSOR(RapidDrawdown, bRapidDrawdown_)
  V7_ANALYSIS_ACCESSOR(DrawdownDistance, dDrawdownDistance_)
  V7_ANALYSIS_ACCESSOR(MultipleGravity, bMultipleGravity_)
  V7_ANALYSIS_ACCESSOR(UseConstantStress, bUseConstantStress_)
  V7_ANALYSIS_ACCESSOR(ConsolSatOnly, bConsolSatOnly_)
  V7_ANALYSIS_ACCESSOR(MovingBoundary, bMovingBoundary_)
  V7_ANALYSIS_ACCESSOR(AdjustFill, bAdjustFill_)
  V7_ANALYSIS_ACCESSOR(ExcludeInitCumulative, bExcludeInitCumulative_)
  V7_ANALYSIS_ACCESSOR(Conv, Conv_)
  V7_ANALYSIS_ACCESSOR(TimeInc, TimeInc_)

  // True when the method steps through time.
  bool IsTransient() const { return IsMethodTransient(kind, method); }

  friend bool operator==(const ANALYSIS&, const ANALYSIS&) = default;

 private:
  // Members at their declared defaults, without DataInit.
  struct RawTag {};
  explicit ANALYSIS(RawTag) {}
};

#undef V7_ANALYSIS_ACCESSOR

// A deleted record has the kind None.
inline bool IsMissing(const ANALYSIS& a) { return a.kind == AnalysisKind::None; }
inline void SetMissing(ANALYSIS& a) { a.DataInit(AnalysisKind::None); }

}  // namespace v7
