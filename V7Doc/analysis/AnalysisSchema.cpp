// Persisted names of the analysis record, its setting blocks, its input
// files and its time increments. Names the record's own table does not give
// (the members of the setting blocks) follow the record's style: the
// quantity in words, without prefixes.
#include "OC/Schema.h"
#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/core/ContainerIDs.h"

namespace oc {
using namespace v7;
using v7qvi::analysis::ResultPath;

template <>
const RecordType& TypeOf<DYNAMIC_INFO>() {
  static const RecordType& t = Schema<DYNAMIC_INFO>(L"DYNAMIC_INFO")
      .Add(&DYNAMIC_INFO::motion_, L"motion_", L"Motion")
      .Add(&DYNAMIC_INFO::integration_, L"integration_", L"TimeIntegration")
      .Add(&DYNAMIC_INFO::fNewmarkBeta_, L"fNewmarkBeta_", L"NewmarkBeta", meta::MetaDataTraits{}.Bounds(0, 1))
      .Add(&DYNAMIC_INFO::fNewmarkGamma_, L"fNewmarkGamma_", L"NewmarkGamma", meta::MetaDataTraits{}.Bounds(0, 1))
      .Add(&DYNAMIC_INFO::fWilsonTheta_, L"fWilsonTheta_", L"WilsonTheta", meta::MetaDataTraits{}.Bounds(1, 10))
      .Add(&DYNAMIC_INFO::massMatrix_, L"massMatrix_", L"MassMatrix")
      .Add(&DYNAMIC_INFO::stressBasis_, L"stressBasis_", L"StressBasis")
      .Add(&DYNAMIC_INFO::nMaxIterations_, L"nMaxIterations_", L"MaxIterations", meta::MetaDataTraits{}.Bounds(0, 100000))
      .Add(&DYNAMIC_INFO::fTolerance_, L"fTolerance_", L"Tolerance", meta::MetaDataTraits{}.Bounds(0, 1))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SIDE_INFO>() {
  static const RecordType& t = Schema<SIDE_INFO>(L"SIDE_INFO")
      .Add(&SIDE_INFO::fnType_, L"fnType_", L"FnType")
      .Add(&SIDE_INFO::fLeftValue_, L"fLeftValue_", L"LeftValue")
      .Add(&SIDE_INFO::fRightValue_, L"fRightValue_", L"RightValue")
      .Add(&SIDE_INFO::fnNum_, L"fnNum_", L"FnNum", meta::MetaDataTraits{}.Ref(container::StressBFns))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SLIP_OPTIMIZE>() {
  static const RecordType& t = Schema<SLIP_OPTIMIZE>(L"SLIP_OPTIMIZE")
      .Add(&SLIP_OPTIMIZE::nMaxIterations_, L"nMaxIterations_", L"MaxIterations", meta::MetaDataTraits{}.Bounds(0, 1e9))
      .Add(&SLIP_OPTIMIZE::fConvTolerance_, L"fConvTolerance_", L"ConvergenceTolerance", meta::MetaDataTraits{}.Bounds(0, 1))
      .Add(&SLIP_OPTIMIZE::nNumSegments_, L"nNumSegments_", L"NumSegments", meta::MetaDataTraits{}.Bounds(1, 10000))
      .Add(&SLIP_OPTIMIZE::fMinSegmentRatio_, L"fMinSegmentRatio_", L"MinSegmentRatio", meta::MetaDataTraits{}.Bounds(0, 1))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<CONVERGENCE>() {
  static const RecordType& t = Schema<CONVERGENCE>(L"CONVERGENCE")
      .Add(&CONVERGENCE::measure_, L"measure_", L"Measure")
      .Add(&CONVERGENCE::norm_, L"norm_", L"Norm")
      .Add(&CONVERGENCE::nMaxIterations_, L"nMaxIterations_", L"MaxIterations", meta::MetaDataTraits{}.Bounds(0, 1e9))
      .Add(&CONVERGENCE::nMinIterations_, L"nMinIterations_", L"MinIterations", meta::MetaDataTraits{}.Bounds(0, 1e9))
      .Add(&CONVERGENCE::fTolerance_, L"fTolerance_", L"Tolerance", meta::MetaDataTraits{}.Bounds(0, 1))
      .Add(&CONVERGENCE::fMaxCourant_, L"fMaxCourant_", L"MaxCourantNumber", meta::MetaDataTraits{}.Bounds(0, 1e6))
      .Add(&CONVERGENCE::solver_, L"solver_", L"Solver")
      .Add(&CONVERGENCE::fRileyDamping_, L"fRileyDamping_", L"RileyDamping", meta::MetaDataTraits{}.Bounds(0, 1))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ResultPath>() {
  static const RecordType& t = Schema<ResultPath>(L"ResultPath")
      .Add(&ResultPath::strPath_, L"strPath_", L"Path")
      .Add(&ResultPath::strSubPath_, L"strSubPath_", L"SubPath")
      .Add(&ResultPath::strFile_, L"strFile_", L"File")
      .Add(&ResultPath::nStep_, L"nStep_", L"Step")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<INPUT_FILES>() {
  static const RecordType& t = Schema<INPUT_FILES>(L"INPUT_FILES")
      .Add(&INPUT_FILES::pathPWP, L"pathPWP", L"PWP")
      .Add(&INPUT_FILES::pathPWPFinal, L"pathPWPFinal", L"PWPFinal")
      .Add(&INPUT_FILES::pathPWPChange, L"pathPWPChange", L"PWPChange")
      .Add(&INPUT_FILES::pathStress, L"pathStress", L"Stress")
      .Add(&INPUT_FILES::pathThermo, L"pathThermo", L"Thermal")
      .Add(&INPUT_FILES::pathConc, L"pathConc", L"Concentration")
      .Add(&INPUT_FILES::pathHydro, L"pathHydro", L"Hydraulic")
      .Add(&INPUT_FILES::pathPart, L"pathPart", L"Particles")
      .Add(&INPUT_FILES::pathAirFlow, L"pathAirFlow", L"AirFlow")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<TIMEINC>() {
  static const RecordType& t = Schema<TIMEINC>(L"TIMEINC")
      .Add(&TIMEINC::fIncSize, L"fIncSize", L"IncSize")
      .Add(&TIMEINC::fElapsed, L"fElapsed", L"Elapsed")
      .Add(&TIMEINC::nSave, L"nSave", L"Save")
      .Done();
  return t;
}

// The members live in the plain base; the reach lambdas name them through
// the derived record.
template <>
const RecordType& TypeOf<TIMEINCSTRUCT>() {
  using T = TIMEINCSTRUCT;
  static const RecordType& t = Schema<T>(L"TIMEINCSTRUCT")
      .AddReach(+[](T& r) -> auto& { return r.fStartTime_; }, L"fStartTime_", L"StartTime")
      .AddReach(+[](T& r) -> auto& { return r.fDuration_; }, L"fDuration_", L"Duration", meta::MetaDataTraits{}.Bounds(0, 1e300))
      .AddReach(+[](T& r) -> auto& { return r.nIncCount_; }, L"nIncCount_", L"IncrementCount", meta::MetaDataTraits{}.Bounds(0, T::kMaxTimeSteps))
      .AddReach(+[](T& r) -> auto& { return r.incType_; }, L"incType_", L"IncrementType")
      .AddReach(+[](T& r) -> auto& { return r.fInitIncSize_; }, L"fInitIncSize_", L"InitialIncrementSize")
      .AddReach(+[](T& r) -> auto& { return r.nSaveMult_; }, L"nSaveMult_", L"SaveMultiple", meta::MetaDataTraits{}.Bounds(0, T::kMaxTimeSteps))
      .AddReach(+[](T& r) -> auto& { return r.mode_; }, L"mode_", L"Mode")
      .AddReach(+[](T& r) -> auto& { return r.vCustomElapsed; }, L"vCustomElapsed", L"CustomSteps[CustomStep]")
      .AddReach(+[](T& r) -> auto& { return r.vFixedTimes_; }, L"vFixedTimes_", L"FixedTimes[TimeStep]")
      .AddReach(+[](T& r) -> auto& { return r.vTimeIncs_; }, L"vTimeIncs_", L"TimeSteps[TimeStep]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ANALYSIS>() {
  using A = ANALYSIS;
  const auto legacy = meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::Legacy);
  static const RecordType& t = Schema<A>(L"ANALYSIS")
      .Add(&A::name, L"name", L"Name")
      .Add(&A::description, L"description", L"Description")
      .Add(&A::kind, L"kind", L"Kind")
      .Add(&A::parent, L"parent", L"ParentAnalysisId", meta::MetaDataTraits{}.Ref(container::Analyses))
      // The previous generation's name of the parent: read, never written.
      .Add(&A::parent, L"ParentID", L"ParentID", legacy)
      .Add(&A::method, L"method", L"Method")
      .Add(&A::DynamicControl_, L"DynamicControl_", L"DynamicControl")
      .Add(&A::nNumSlices_, L"nNumSlices_", L"NumSlices", meta::MetaDataTraits{}.Bounds(1, 100000))
      .Add(&A::fTolerance_, L"fTolerance_", L"OptimizationTolerance", meta::MetaDataTraits{}.Bounds(0, 1))
      .Add(&A::SlipDir_, L"SlipDir_", L"SlipDirection")
      .Add(&A::bAllowPassiveMode_, L"bAllowPassiveMode_", L"AllowPassiveMode")
      .Add(&A::slipSurfOption_, L"slipSurfOption_", L"SlipSurfaceOption")
      .Add(&A::bPiezPhreatic, L"bPiezPhreatic", L"PhreaticCorrection")
      .Add(&A::Side_, L"Side_", L"Side")
      .Add(&A::fLambda_, L"fLambda_", L"Lambda")
      .Add(&A::fosDistOption, L"fosDistOption", L"FOSDistributionCalc")
      .Add(&A::nNumCriticalSlip_, L"nNumCriticalSlip_", L"NumCriticalSlipSurfaces", meta::MetaDataTraits{}.Bounds(0, 1e9))
      .Add(&A::bOptimizeSlip_, L"bOptimizeSlip_", L"OptimizeCriticalLocation")
      .Add(&A::bBlockSlipNoCross_, L"bBlockSlipNoCross_", L"BlockSlipNoCrossing")
      .Add(&A::SlipOptimize_, L"SlipOptimize_", L"SlipSurfaceOptimize")
      .Add(&A::bInclGroundFreezing_, L"bInclGroundFreezing_", L"IncludeGroundFreezing")
      .Add(&A::nPhasePts_, L"nPhasePts_", L"NumPhaseChangePts")
      .Add(&A::bInclVegetation_, L"bInclVegetation_", L"IncludeVegetation")
      .Add(&A::bVelZero_, L"bVelZero_", L"SetVelocitiesToZero")
      .Add(&A::anlsDiff_, L"anlsDiff_", L"TimeDifference")
      .Add(&A::fRefConc_, L"fRefConc_", L"RefConcentration")
      .Add(&A::fRelDensity_, L"fRelDensity_", L"RelativeDensity")
      .Add(&A::initStressOption_, L"initStressOption_", L"InitialStressSource")
      .Add(&A::dynStressOption_, L"dynStressOption_", L"DynamicStressSource")
      .Add(&A::InitPWPCondOption_, L"InitPWPCondOption_", L"InitialCondSource")
      // A stability analysis's pore-water pressure source is the same
      // member, named after its accessor: read, and reached by path, but
      // written once only (as "InitialCondSource"), so that a file cannot
      // hold two values that disagree.
      .Add(&A::InitPWPCondOption_, L"GetStabPWPCondOption", L"StabPWPCondSource", legacy)
      .Add(&A::InitThermCondOption_, L"InitThermCondOption_", L"InitialThermCondSource")
      .Add(&A::initVolChangePWPCondOption_, L"initVolChangePWPCondOption_", L"VolChangePWPStartSource")
      .Add(&A::finalPWPCondOption_, L"finalPWPCondOption_", L"VolChangePWPFinalSource")
      .Add(&A::transPWPCondOption_, L"transPWPCondOption_", L"VolChangePWPSource")
      .Add(&A::hydroResultCondOption_, L"hydroResultCondOption_", L"HydroResultSource")
      .Add(&A::initParticleCondOption_, L"initParticleCondOption_", L"ParticleCondSource")
      .Add(&A::nGasDiffType_, L"nGasDiffType_", L"GasDiffusionType")
      .Add(&A::initConcentrationCondOption_, L"initConcentrationCondOption_", L"ConcCondSource")
      .Add(&A::pwpChangeOption_, L"pwpChangeOption_", L"PWPChangeOption")
      .Add(&A::bInclAirFlow_, L"bInclAirFlow_", L"IncludeAirFlow")
      .Add(&A::initAirFlowCondOption_, L"initAirFlowCondOption_", L"AirFlowCondSource")
      .Add(&A::inputFiles_, L"inputFiles_", L"InputFiles")
      .Add(&A::bRapidDrawdown_, L"bRapidDrawdown_", L"RapidDrawdown")
      .Add(&A::dDrawdownDistance_, L"dDrawdownDistance_", L"DrawdownDistance")
      .Add(&A::bMultipleGravity_, L"bMultipleGravity_", L"MultipleGravity")
      .Add(&A::bUseConstantStress_, L"bUseConstantStress_", L"UseConstantStress")
      .Add(&A::bConsolSatOnly_, L"bConsolSatOnly_", L"ConsolSatOnly")
      .Add(&A::bMovingBoundary_, L"bMovingBoundary_", L"MovingBoundary")
      .Add(&A::bAdjustFill_, L"bAdjustFill_", L"AdjustFillElevation")
      .Add(&A::bExcludeInitCumulative_, L"bExcludeInitCumulative_", L"ExcludeInitDeformation")
      .Add(&A::Conv_, L"Conv_", L"Convergence")
      .Add(&A::TimeInc_, L"TimeInc_", L"TimeIncrements")
      .Done();
  return t;
}

}  // namespace oc
