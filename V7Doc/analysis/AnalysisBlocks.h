#pragma once
// The setting blocks of the analysis record. Defaults are those of a new
// analysis; ANALYSIS::DataInit adjusts some of them per kind.
#include <cstdint>

#include "QVI/qvi/Markers.h"
#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/analysis/ResultPath.h"
#include "V7Doc/core/GID.h"

namespace v7 {

// Controls of a dynamic analysis.
struct DYNAMIC_INFO {
  MotionType motion_ = MotionType::TotalMotion;
  // Newmark's average-acceleration rule (beta 1/4, gamma 1/2) is
  // unconditionally stable and adds no numerical damping (Newmark 1959).
  TimeIntegration integration_ = TimeIntegration::NewmarkDelta;
  double fNewmarkBeta_ = 0.25;
  double fNewmarkGamma_ = 0.5;
  // Wilson's theta must be at least 1.37 for unconditional stability; 1.4 is
  // the customary value (Wilson, Farhoomand and Bathe 1973).
  double fWilsonTheta_ = 1.4;
  MassMatrixType massMatrix_ = MassMatrixType::Consistent;
  StressBasis stressBasis_ = StressBasis::Effective;
  // Nonlinear equivalent-linear passes and their convergence (fraction of
  // change in shear modulus between passes).
  std::int32_t nMaxIterations_ = 15;
  double fTolerance_ = 0.02;

  friend bool operator==(const DYNAMIC_INFO&, const DYNAMIC_INFO&) = default;
};

// The interslice force function of a limit-equilibrium method: X = lambda
// f(x) E (Morgenstern and Price 1965).
struct SIDE_INFO {
  SideFnType fnType_ = SideFnType::HalfSine;
  // Ends of a clipped sine or trapezoid, as values of f at the slip
  // surface's left and right ends.
  double fLeftValue_ = 0;
  double fRightValue_ = 0;
  // Function number (one-based, in the stress boundary functions) of a fully
  // specified f(x); 0 when none.
  GID fnNum_ = 0;

  friend bool operator==(const SIDE_INFO&, const SIDE_INFO&) = default;
};

// Optimisation of the critical slip surface after the search.
struct SLIP_OPTIMIZE {
  std::int32_t nMaxIterations_ = 2000;  // trial moves before giving up
  double fConvTolerance_ = 1e-7;        // change of the factor of safety that ends it
  std::int32_t nNumSegments_ = 10;      // straight segments of the optimised surface
  double fMinSegmentRatio_ = 0.1;       // shortest segment, as a fraction of the surface length

  friend bool operator==(const SLIP_OPTIMIZE&, const SLIP_OPTIMIZE&) = default;
};

// Convergence of the nonlinear iteration of a finite-element analysis.
struct CONVERGENCE {
  ConvergenceMeasure measure_ = ConvergenceMeasure::VectorNorm;
  ConvergenceNorm norm_ = ConvergenceNorm::HeadVectorNorm;
  std::int32_t nMaxIterations_ = 50;
  std::int32_t nMinIterations_ = 1;
  double fTolerance_ = 0.001;  // relative change of the norm between iterations
  double fMaxCourant_ = 1.0;   // for the CourantNumber measure (explicit transport)
  SolverType solver_ = SolverType::Direct;
  // "RileyDamping": the share of the last iteration's change kept when
  // pore-water pressures swing between iterations; 0 takes each new
  // iteration whole, values towards 1 damp harder.
  double fRileyDamping_ = 0.0;

  friend bool operator==(const CONVERGENCE&, const CONVERGENCE&) = default;
};

// Result files an analysis starts from, one per initial-condition option
// that can name a file (InitialCondOption::Other).
struct INPUT_FILES {
  using ResultPath = v7qvi::analysis::ResultPath;
  // pore-water pressures (InitPWPCondOption_, GetStabPWPCondOption,
  // initVolChangePWPCondOption_)
  ResultPath pathPWP;
  ResultPath pathPWPFinal;   // final pore-water pressures (finalPWPCondOption_)
  ResultPath pathPWPChange;  // pore-water pressure change (transPWPCondOption_)
  ResultPath pathStress;     // stresses (initStressOption_, dynStressOption_)
  ResultPath pathThermo;     // temperatures (InitThermCondOption_)
  ResultPath pathConc;       // concentrations (initConcentrationCondOption_)
  ResultPath pathHydro;      // seepage results of a transport analysis (hydroResultCondOption_)
  ResultPath pathPart;       // particles (initParticleCondOption_)
  ResultPath pathAirFlow;    // air pressures (initAirFlowCondOption_)

  friend bool operator==(const INPUT_FILES&, const INPUT_FILES&) = default;
};

}  // namespace v7
