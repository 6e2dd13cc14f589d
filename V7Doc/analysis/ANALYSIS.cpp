#include "V7Doc/analysis/ANALYSIS.h"

namespace v7 {

// Defaults of a new analysis, by kind. Members not named keep the defaults
// of their declaration (which suit every kind).
//
// kind    method (default)        settings
// ------  ----------------------  -------------------------------------------
// STAB    Morgenstern-Price       30 slices, tolerance 0.01, entry-and-exit
//                                 search, half-sine f(x), 100 critical
//                                 surfaces kept, slip left to right;
//                                 pore-water pressure from piezometric lines
//                                 (from the parent when it has one)
// HYDRO   SteadyState             steady: no time steps; transient: 10 equal
//                                 steps over one time unit from the initial
//                                 water table (or the parent's results)
// DEFORM  Insitu                  in situ: stresses from the materials'
//                                 weights (no parent); later stages from the
//                                 parent's stresses and pore pressures
// SHAKE   Dynamic                 Newmark average acceleration, consistent
//                                 mass, effective stresses, total motion;
//                                 initial stresses from the parent
// THERMO  SteadyState             as HYDRO for the time steps, temperatures
//                                 from the parent when it has one
// SOLUTE  AdvectionDispersion     10 steps; flow field from the parent's
//                                 seepage results; reference concentration 1
// EVAPO   Transient               10 steps; pore-water pressures from the
//                                 initial water table or the parent
// None    Undefined               the deleted-record state: all defaults
void ANALYSIS::DataInit(AnalysisKind k, AnlsMethod m, GID p) {
  *this = ANALYSIS(RawTag{});
  kind = k;
  parent = p;
  if (k == AnalysisKind::None) {
    method = AnlsMethod::Undefined;
    TimeInc_.SetMode(TimeStepMode::None);
    return;
  }
  const auto methods = MethodsOfKind(k);
  method = IsMethodAllowed(k, m) ? m : methods.front();
  const InitialCondOption fromParent = p != 0 ? InitialCondOption::Parent : InitialCondOption::None;

  // Time steps: only time-stepping methods get a series; 10 equal steps over
  // one time unit (the project's unit) is a start the user is expected to
  // edit, and it always generates.
  TimeInc_.DataInit(0.0);
  TimeInc_.SetMode(IsMethodTransient(k, method) ? TimeStepMode::Duration : TimeStepMode::None);

  switch (k) {
    case AnalysisKind::Stab:
      InitPWPCondOption_ = p != 0 ? InitialCondOption::Parent : InitialCondOption::PiezoLine;
      Side_.fnType_ = method == AnlsMethod::Spencer ? SideFnType::Constant : SideFnType::HalfSine;
      break;
    case AnalysisKind::Hydro:
      InitPWPCondOption_ =
          p != 0 ? InitialCondOption::Parent
                 : (IsTransient() ? InitialCondOption::InitialWaterTable : InitialCondOption::None);
      break;
    case AnalysisKind::Deform:
      initStressOption_ = fromParent;
      InitPWPCondOption_ = p != 0 ? InitialCondOption::Parent : InitialCondOption::InitialWaterTable;
      break;
    case AnalysisKind::Shake:
      initStressOption_ = fromParent;
      dynStressOption_ = fromParent;
      InitPWPCondOption_ = p != 0 ? InitialCondOption::Parent : InitialCondOption::InitialWaterTable;
      TimeInc_.SetMode(IsTransient() ? TimeStepMode::Dynamic : TimeStepMode::None);
      anlsDiff_ = v7::AnlsDiff::CentralDifference;
      break;
    case AnalysisKind::Thermo:
      InitThermCondOption_ = fromParent;
      break;
    case AnalysisKind::Solute:
      hydroResultCondOption_ = p != 0 ? InitialCondOption::Parent : InitialCondOption::Other;
      initConcentrationCondOption_ = fromParent;
      initParticleCondOption_ = fromParent;
      fRefConc_ = 1.0;
      break;
    case AnalysisKind::Evapo:
      InitPWPCondOption_ = p != 0 ? InitialCondOption::Parent : InitialCondOption::InitialWaterTable;
      InitThermCondOption_ = fromParent;
      initAirFlowCondOption_ = fromParent;
      break;
    default:
      break;
  }
}

}  // namespace v7
