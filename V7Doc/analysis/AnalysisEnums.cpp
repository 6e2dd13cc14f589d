#include "V7Doc/analysis/AnalysisEnums.h"

#include <algorithm>
#include <array>

namespace v7 {
namespace {

using M = AnlsMethod;

// Which methods each kind admits, its default first. The choices follow what
// each solver family computes:
// - limit equilibrium takes the classical methods of slices and the
//   finite-element stress methods (stresses from a DEFORM or SHAKE parent);
// - seepage is steady or transient;
// - deformation starts from in situ stresses (two variants), then applies
//   loads, redistributes stresses or consolidates (coupled or not);
// - dynamic analyses run the motion (linear or nonlinear), the static and in
//   situ states they start from, and the pore-pressure and deformation
//   analyses that follow shaking;
// - heat transfer is steady, transient, coupled or uncoupled with seepage, or
//   convective;
// - the unsaturated-zone family is transient by nature (climate drives it),
//   with isothermal and coupled variants;
// - transport is advection-dispersion, density-dependent or particle tracking.
constexpr std::array kSolute{M::AdvectionDispersion, M::DensityDependent,
                             M::ParticleTrackingForward, M::ParticleTrackingBackward};
constexpr std::array kShake{M::Dynamic,          M::Insitu,     M::Static,
                            M::NonlinearDynamic, M::DynamicPWP, M::DynamicDeformation};
constexpr std::array kHydro{M::SteadyState, M::Transient};
constexpr std::array kDeform{M::Insitu,       M::Insitu2,       M::Load,
                             M::StressRedist, M::Consolidation, M::UncoupledConsolidation};
constexpr std::array kStab{M::MorgensternPrice, M::Ordinary,       M::Spencer,     M::GLE,
                           M::CorpsOfEng1,      M::CorpsOfEng2,    M::LoweKarafiath, M::JanbuGeneral,
                           M::Sarma,            M::FE_Deform,      M::FE_ShakeStatic,
                           M::FE_ShakeDynamic};
constexpr std::array kThermo{M::SteadyState, M::Transient, M::TransientCouple, M::TransientUnCouple,
                             M::ConvectiveHeatTransfer};
constexpr std::array kEvapo{M::Transient, M::SteadyState, M::TransientIso, M::TransientCouple,
                            M::TransientUnCouple};

// Methods that step through time: transient flow and transport, consolidation
// (pore pressures dissipate over time), the dynamic methods (they follow the
// motion record step by step, and so do the pore-pressure and deformation
// analyses driven by it), particle tracking (particles move with time) and
// convective heat transfer (always solved in time).
bool IsTimeMethod(AnlsMethod m) {
  switch (m) {
    case M::Transient:
    case M::TransientCouple:
    case M::TransientUnCouple:
    case M::TransientIso:
    case M::Consolidation:
    case M::UncoupledConsolidation:
    case M::DensityDependent:
    case M::AdvectionDispersion:
    case M::ParticleTrackingForward:
    case M::ParticleTrackingBackward:
    case M::Dynamic:
    case M::NonlinearDynamic:
    case M::DynamicPWP:
    case M::DynamicDeformation:
    case M::ConvectiveHeatTransfer:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::span<const AnlsMethod> MethodsOfKind(AnalysisKind kind) {
  switch (kind) {
    case AnalysisKind::Solute: return kSolute;
    case AnalysisKind::Shake: return kShake;
    case AnalysisKind::Hydro: return kHydro;
    case AnalysisKind::Deform: return kDeform;
    case AnalysisKind::Stab: return kStab;
    case AnalysisKind::Thermo: return kThermo;
    case AnalysisKind::Evapo: return kEvapo;
    default: return {};
  }
}

bool IsMethodAllowed(AnalysisKind kind, AnlsMethod method) {
  const auto methods = MethodsOfKind(kind);
  return std::find(methods.begin(), methods.end(), method) != methods.end();
}

bool IsMethodTransient(AnalysisKind kind, AnlsMethod method) {
  return kind != AnalysisKind::Stab && IsMethodAllowed(kind, method) && IsTimeMethod(method);
}

}  // namespace v7

using meta::MetaEnumCommon;

template <>
const MetaEnumCommon& meta::EnumTable<v7::AnalysisKind>() {
  static const MetaEnumCommon t(L"AnalysisKind",
                                {{0, L"SOLUTE"},
                                 {1, L"SHAKE"},
                                 {2, L"HYDRO"},
                                 {3, L"DEFORM"},
                                 {4, L"STAB"},
                                 {5, L"THERMO"},
                                 {6, L"EVAPO"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::AnlsMethod>() {
  static const MetaEnumCommon t(L"AnlsMethod", {{0, L"None"},
                                                {1, L"Ordinary"},
                                                {2, L"Spencer"},
                                                {3, L"Morgenstern-Price"},
                                                {4, L"GLE"},
                                                {5, L"CorpsOfEng1"},
                                                {6, L"CorpsOfEng2"},
                                                {7, L"Lowe-Karafiath"},
                                                {8, L"JanbuGeneral"},
                                                {9, L"FE_Deform"},
                                                {10, L"FE_ShakeStatic"},
                                                {11, L"FE_ShakeDynamic"},
                                                {12, L"Sarma"},
                                                {13, L"SteadyState"},
                                                {14, L"Transient"},
                                                {15, L"TransientCouple"},
                                                {16, L"TransientUnCouple"},
                                                {17, L"TransientIso"},
                                                {18, L"Consolidation"},
                                                {19, L"DensityDependent"},
                                                {20, L"AdvectionDispersion"},
                                                {21, L"ParticleTrackingForward"},
                                                {22, L"ParticleTrackingBackward"},
                                                {23, L"Dynamic"},
                                                {24, L"Load"},
                                                {25, L"StressRedist"},
                                                {26, L"Insitu"},
                                                {27, L"Insitu2"},
                                                {28, L"Convective Heat Transfer"},
                                                {29, L"Uncoupled Consolidation"},
                                                {30, L"Nonlinear Dynamic"},
                                                {31, L"Static"},
                                                {32, L"DynamicPWP"},
                                                {33, L"DynamicDeformation"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::InitialCondOption>() {
  static const MetaEnumCommon t(L"InitialCondOption", {{0, L"None"},
                                                       {1, L"Parent"},
                                                       {2, L"InitialWaterTable"},
                                                       {3, L"Other"},
                                                       {4, L"MaterialProperties"},
                                                       {5, L"3DFunction"},
                                                       {6, L"Ru"},
                                                       {7, L"Bbar"},
                                                       {8, L"PiezoLine"},
                                                       {9, L"PiezoLineRu"},
                                                       {10, L"PiezoLineBbar"},
                                                       {11, L"PressureHeadGrid"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::AnlsDiff>() {
  static const MetaEnumCommon t(L"AnlsDiff", {{0, L"BackwardDifference"}, {1, L"CentralDifference"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::StabSlipDir>() {
  static const MetaEnumCommon t(L"StabSlipDir", {{0, L"LeftToRight"}, {1, L"RightToLeft"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::SlipSurfaceOption>() {
  static const MetaEnumCommon t(L"SlipSurfaceOption", {{0, L"None"},
                                                       {1, L"GridAndRadius"},
                                                       {2, L"FullySpecified"},
                                                       {3, L"Block"},
                                                       {4, L"EntryAndExit"},
                                                       {5, L"AutoSearch"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::SideFnType>() {
  static const MetaEnumCommon t(L"SideFnType",
                                {{0, L"None"},
                                 {0, L"SideFunction", MetaEnumCommon::Alias},
                                 {1, L"Constant"},
                                 {2, L"HalfSine"},
                                 {3, L"ClippedSine"},
                                 {4, L"Trapezoidal"},
                                 {5, L"FullySpecified"},
                                 {6, L"CorpsOfEng1"},
                                 {7, L"CorpsOfEng2"},
                                 {8, L"Lowe-Karafiath"},
                                 {9, L"FE"},
                                 {10, L"Sarma"},
                                 {11, L"JanbuGeneral"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::ConvergenceMeasure>() {
  static const MetaEnumCommon t(
      L"ConvergenceMeasure",
      {{1, L"Nodal"}, {2, L"VectorNorm"}, {3, L"IterationCount"}, {4, L"CourantNumber"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::ConvergenceNorm>() {
  static const MetaEnumCommon t(L"ConvergenceNorm",
                                {{0, L"HeadVectorNorm"}, {1, L"GaussPointConductivity"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::PWPChangeOption>() {
  static const MetaEnumCommon t(L"PWPChangeOption",
                                {{0, L"PWP Change from Results"},
                                 {1, L"PWP Change from Initial Cond. and Result"},
                                 {2, L"PWP Change from Initial Cond. and Water Table"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::MotionType>() {
  static const MetaEnumCommon t(L"MotionType", {{1, L"TotalMotion"}, {2, L"IncrementalMotion"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::TimeIntegration>() {
  static const MetaEnumCommon t(L"TimeIntegration",
                                {{1, L"WilsonTheta"}, {2, L"NewmarkDelta"}, {3, L"CrankNicolson"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::MassMatrixType>() {
  static const MetaEnumCommon t(L"MassMatrixType", {{1, L"Consistent"}, {2, L"Lumped"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::StressBasis>() {
  static const MetaEnumCommon t(L"StressBasis", {{1, L"Effective"}, {2, L"Total"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::SolverType>() {
  static const MetaEnumCommon t(L"SolverType", {{0, L"Direct"}, {2, L"ParDirect"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::GasDiffusionType>() {
  // Value 0 and the undefined value both have an empty name; the empty name
  // reads as 0, the first entry that has it.
  static const MetaEnumCommon t(L"GasDiffusionType", {{0, L""}, {1, L"Oxygen"}, {2, L"Radon"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::VariationType>() {
  static const MetaEnumCommon t(L"VariationType", {{0, L"Linear"}, {1, L"Exponential"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::ParamVariation>() {
  static const MetaEnumCommon t(L"ParamVariation",
                                {{0, L"Constant"}, {1, L"Probabilistic"}, {2, L"Sensitivity"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::InputDefinition>() {
  static const MetaEnumCommon t(L"InputDefinition", {{0, L"Define"}, {1, L"Contour"}});
  return t;
}
