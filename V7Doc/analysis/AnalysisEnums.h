#pragma once
// The enumerations of the analysis record. Each is persisted by name through
// its meta::EnumTable; every table ends with the undefined value qvi::kNone.
#include <cstdint>
#include <span>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"

namespace v7 {

// The solver family of an analysis. None (kNone) marks a deleted record.
enum class AnalysisKind : std::int32_t {
  Solute = 0,  // "SOLUTE": contaminant transport
  Shake = 1,   // "SHAKE": dynamic and earthquake response
  Hydro = 2,   // "HYDRO": groundwater seepage
  Deform = 3,  // "DEFORM": stress and deformation
  Stab = 4,    // "STAB": limit-equilibrium slope stability
  Thermo = 5,  // "THERMO": heat transfer
  Evapo = 6,   // "EVAPO": unsaturated zone, climate and air flow
  None = qvi::kNone,
};

// The method of an analysis: one list across all kinds (MethodsOfKind tells
// which a kind admits). Names with blanks (28 to 30) are persisted so.
enum class AnlsMethod : std::int32_t {
  None = 0,
  Ordinary = 1,
  Spencer = 2,
  MorgensternPrice = 3,  // "Morgenstern-Price"
  GLE = 4,
  CorpsOfEng1 = 5,
  CorpsOfEng2 = 6,
  LoweKarafiath = 7,  // "Lowe-Karafiath"
  JanbuGeneral = 8,
  FE_Deform = 9,
  FE_ShakeStatic = 10,
  FE_ShakeDynamic = 11,
  Sarma = 12,
  SteadyState = 13,
  Transient = 14,
  TransientCouple = 15,
  TransientUnCouple = 16,
  TransientIso = 17,
  Consolidation = 18,
  DensityDependent = 19,
  AdvectionDispersion = 20,
  ParticleTrackingForward = 21,
  ParticleTrackingBackward = 22,
  Dynamic = 23,
  Load = 24,
  StressRedist = 25,
  Insitu = 26,
  Insitu2 = 27,
  ConvectiveHeatTransfer = 28,  // "Convective Heat Transfer"
  UncoupledConsolidation = 29,  // "Uncoupled Consolidation"
  NonlinearDynamic = 30,        // "Nonlinear Dynamic"
  Static = 31,
  DynamicPWP = 32,
  DynamicDeformation = 33,
  Undefined = qvi::kNone,
};

// Where an analysis takes an initial condition (pore-water pressure, stress,
// temperature, ...) from.
enum class InitialCondOption : std::int32_t {
  None = 0,
  Parent = 1,
  InitialWaterTable = 2,
  Other = 3,  // a result file named in the analysis's input files
  MaterialProperties = 4,
  Function3D = 5,  // "3DFunction"
  Ru = 6,
  Bbar = 7,
  PiezoLine = 8,
  PiezoLineRu = 9,
  PiezoLineBbar = 10,
  PressureHeadGrid = 11,
  Undefined = qvi::kNone,
};

// Time-difference scheme of a transient solution.
enum class AnlsDiff : std::int32_t {
  BackwardDifference = 0,
  CentralDifference = 1,
  Undefined = qvi::kNone,
};

// Direction of movement of a slip surface.
enum class StabSlipDir : std::int32_t { LeftToRight = 0, RightToLeft = 1, Undefined = qvi::kNone };

// How trial slip surfaces are specified.
enum class SlipSurfaceOption : std::int32_t {
  None = 0,
  GridAndRadius = 1,
  FullySpecified = 2,
  Block = 3,
  EntryAndExit = 4,
  AutoSearch = 5,
  Undefined = qvi::kNone,
};

// Interslice force function f(x) of a limit-equilibrium method. Value 0 has
// two names: "None" (written) and "SideFunction" (read as well).
enum class SideFnType : std::int32_t {
  None = 0,
  SideFunction = 0,
  Constant = 1,
  HalfSine = 2,
  ClippedSine = 3,
  Trapezoidal = 4,
  FullySpecified = 5,
  CorpsOfEng1 = 6,
  CorpsOfEng2 = 7,
  LoweKarafiath = 8,  // "Lowe-Karafiath"
  FE = 9,
  Sarma = 10,
  JanbuGeneral = 11,
  Undefined = qvi::kNone,
};

// What the nonlinear iteration measures to decide it has converged.
enum class ConvergenceMeasure : std::int32_t {
  Nodal = 1,
  VectorNorm = 2,
  IterationCount = 3,
  CourantNumber = 4,
  Undefined = qvi::kNone,
};

// The quantity whose vector norm the VectorNorm measure uses.
enum class ConvergenceNorm : std::int32_t {
  HeadVectorNorm = 0,
  GaussPointConductivity = 1,
  Undefined = qvi::kNone,
};

// Where a volume-change analysis takes its pore-water pressure change from.
enum class PWPChangeOption : std::int32_t {
  FromResults = 0,                   // "PWP Change from Results"
  FromInitialCondAndResult = 1,      // "PWP Change from Initial Cond. and Result"
  FromInitialCondAndWaterTable = 2,  // "PWP Change from Initial Cond. and Water Table"
  Undefined = qvi::kNone,
};

// Whether dynamic results are total or per-step motion.
enum class MotionType : std::int32_t { TotalMotion = 1, IncrementalMotion = 2, Undefined = qvi::kNone };

// Direct time integration of the dynamic equations.
enum class TimeIntegration : std::int32_t {
  WilsonTheta = 1,   // Wilson, Farhoomand and Bathe (1973)
  NewmarkDelta = 2,  // Newmark (1959)
  CrankNicolson = 3,
  Undefined = qvi::kNone,
};

// Form of the mass matrix.
enum class MassMatrixType : std::int32_t { Consistent = 1, Lumped = 2, Undefined = qvi::kNone };

// Stresses the material models work in.
enum class StressBasis : std::int32_t { Effective = 1, Total = 2, Undefined = qvi::kNone };

// Equation solver. Value 1 is not used.
enum class SolverType : std::int32_t { Direct = 0, ParDirect = 2, Undefined = qvi::kNone };

// Gas of a gas-diffusion analysis; 0 (no gas) has an empty name.
enum class GasDiffusionType : std::int32_t { None = 0, Oxygen = 1, Radon = 2, Undefined = qvi::kNone };

// Variation of a quantity between two values.
enum class VariationType : std::int32_t { Linear = 0, Exponential = 1, Undefined = qvi::kNone };

// How a stability parameter varies between trials.
enum class ParamVariation : std::int32_t {
  Constant = 0,
  Probabilistic = 1,
  Sensitivity = 2,
  Undefined = qvi::kNone,
};

// Whether an input is drawn by the user or taken from a result contour.
enum class InputDefinition : std::int32_t { Define = 0, Contour = 1, Undefined = qvi::kNone };

// The methods a kind admits, the kind's default first. Empty for None.
std::span<const AnlsMethod> MethodsOfKind(AnalysisKind kind);
// True when `kind` admits `method`.
bool IsMethodAllowed(AnalysisKind kind, AnlsMethod method);
// True when the method of `kind` steps through time (it has time steps and
// saved results per step). Stability is never transient; a method that the
// kind does not admit is not transient either.
bool IsMethodTransient(AnalysisKind kind, AnlsMethod method);

}  // namespace v7

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::AnalysisKind>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::AnlsMethod>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::InitialCondOption>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::AnlsDiff>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::StabSlipDir>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::SlipSurfaceOption>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::SideFnType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ConvergenceMeasure>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ConvergenceNorm>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::PWPChangeOption>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::MotionType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::TimeIntegration>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::MassMatrixType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::StressBasis>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::SolverType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::GasDiffusionType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::VariationType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ParamVariation>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::InputDefinition>();
