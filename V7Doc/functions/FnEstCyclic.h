#pragma once
// Estimates for cyclic loading and liquefaction: cyclic resistance against
// number of cycles ("FnEstCyclicNumber"), pore-pressure ratio against cycle
// ratio ("FnEstDynPWP"), the corrections for static shear stress
// ("FnEstKalpha") and for overburden stress ("FnEstKsigma"), and the
// volume-change law of Martin, Finn and Seed ("FnEstMFSPWP").
//
// Sands are described by their relative density Dr (FnEstSampleMatl.h) and
// the equivalent clean-sand blow count (N1)60cs = 46 Dr^2 (Idriss and
// Boulanger, 2008, Dr = sqrt((N1)60 / 46)).
//
// FnEstCyclicNumber ("SampleMatlCyclicNumber"): cyclic stress ratio against
// the number of uniform cycles N, 41 points spaced evenly in log10 from 1 to
// 100 cycles, interpolated log-log (exact for the power law).
//  - sands: CSR(N) = CRR_M7.5 (15 / N)^b with b = 0.34 (Idriss and
//    Boulanger, 2008, CSR proportional to N^-b), CRR_M7.5 from
//    (N1)60cs by their SPT relation (at 1 atm, level ground, 15 cycles for M 7.5):
//    exp((N1)60/14.1 + ((N1)60/126)^2 - ((N1)60/23.6)^3 + ((N1)60/25.4)^4 - 2.8);
//  - "Cohesive": a normally consolidated clay, CRR_M7.5 = 0.83 su/s'vc with
//    su/s'vc = 0.22 and b = 0.135 (Boulanger and Idriss, 2007).
//
// FnEstDynPWP ("NExponent" = theta, 0.7 by default): the pore-pressure ratio
// against the cycle ratio r = N / N_L of Seed, Martin and Lysmer (1976):
// ru = 1/2 + (1/pi) asin(2 r^(1/theta) - 1), 51 ratios from 0 to 1;
// 0 <= ru <= 1, ru(0) = 0 and ru(1) = 1.
//
// FnEstKalpha ("SampleMatlKalpha"): K_alpha against the static shear stress
// ratio alpha = tau_s / s'vc from 0 to 0.35 (36 points), Idriss and Boulanger
// (2008):
//   K_alpha = a + b exp(-xi_R / c),
//   a = 1267 + 636 alpha^2 - 634 exp(alpha) - 632 exp(-alpha),
//   b = exp(-1.11 + 12.3 alpha^2 + 1.31 ln(alpha + 0.0001)),
//   c = 0.138 + 0.126 alpha + 2.52 alpha^3,
//   xi_R = 1 / (Q - ln(100 p' / pa)) - Dr, Q = 10,
// at p' = pa (the stress at which the relation is drawn), with xi_R held to
// its range of validity -0.6 to 0.1.
//
// FnEstKsigma ("SampleMatlKsigma"): K_sigma against the vertical effective
// stress (document pressure unit), 41 stresses spaced evenly in log10 from
// 10 to 1000 kPa, Idriss and Boulanger (2008):
//   K_sigma = 1 - C_sigma ln(s'v / pa) <= 1.1,
//   C_sigma = 1 / (18.9 - 2.55 sqrt((N1)60)) <= 0.3, pa = 101.325 kPa.
//
// FnEstMFSPWP ("SampleMatlMFSPWP"): the volumetric strain per cycle of
// drained cyclic shear, in the form of Byrne (1991) that restates the
// law of Martin, Finn and Seed (1975):
//   d(eps_v) / gamma = C1 exp(-C2 eps_v / gamma),
//   C1 = 7600 Dr^-2.5 (Dr in %), C2 = 0.4 / C1 (Byrne),
// tabulated against eps_v / gamma (accumulated volumetric strain over the
// cyclic shear strain) at 51 points from 0 to 5 / C2, interpolated in log10
// of the output (exact for the exponential). The pore-water pressure rise of
// an undrained cycle is this strain times the rebound modulus; the points
// are those that a function of the kind "MFSPWPFn" takes.
#include <cstdint>

#include "V7Doc/functions/FnEstCurve.h"
#include "V7Doc/functions/FnEstSampleMatl.h"

namespace v7 {

#define V7_SAND_MEMBERS                                                  \
  VeryLooseSand = static_cast<std::int32_t>(FnEstSample::VeryLooseSand), \
  LooseSand = static_cast<std::int32_t>(FnEstSample::LooseSand),         \
  MedLooseSand = static_cast<std::int32_t>(FnEstSample::MedLooseSand),   \
  MedDenseSand = static_cast<std::int32_t>(FnEstSample::MedDenseSand),   \
  DenseSand = static_cast<std::int32_t>(FnEstSample::DenseSand)

struct FnEstCyclicNumberType {
  enum eSampleMatl : std::int32_t {
    V7_SAND_MEMBERS,
    Cohesive = static_cast<std::int32_t>(FnEstSample::Cohesive)
  };
};
struct FnEstKalphaType {
  enum eSampleMatl : std::int32_t { V7_SAND_MEMBERS };
};
struct FnEstKsigmaType {
  enum eSampleMatl : std::int32_t { V7_SAND_MEMBERS };
};
struct FnEstMFSPWPType {
  enum eSampleMatl : std::int32_t {
    V7_SAND_MEMBERS,
    SilicaSand = static_cast<std::int32_t>(FnEstSample::SilicaSand)
  };
};
#undef V7_SAND_MEMBERS

// (N1)60cs of a sand of relative density dr (fraction).
inline double SandBlowCount(double dr) { return 46.0 * dr * dr; }
// CRR at M 7.5 and 1 atm from (N1)60cs (Idriss and Boulanger, 2008).
double IdrissBoulangerCRR(double n160cs);

class FnEstCyclicNumber : public FnEstCurve {
 public:
  FnEstCyclicNumber();
  static const wchar_t* TypeName() { return L"FnEstCyclicNumber"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstCyclicNumber(*this); }

 protected:
  bool LogInput() const override { return true; }
  bool LogOutput() const override { return true; }
  std::vector<double> Abscissae() const override { return LogSpaced(1.0, 100.0, 41); }
  double Estimate(double x) const override;
};

class FnEstDynPWP : public FnEstCurve {
 public:
  FnEstDynPWP();
  static const wchar_t* TypeName() { return L"FnEstDynPWP"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstDynPWP(*this); }

 protected:
  std::vector<double> Abscissae() const override { return LinSpaced(0.0, 1.0, 51); }
  double Estimate(double x) const override;
};

class FnEstKalpha : public FnEstCurve {
 public:
  FnEstKalpha();
  static const wchar_t* TypeName() { return L"FnEstKalpha"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstKalpha(*this); }

 protected:
  std::vector<double> Abscissae() const override { return LinSpaced(0.0, 0.35, 36); }
  double Estimate(double x) const override;
};

class FnEstKsigma : public FnEstCurve {
 public:
  FnEstKsigma();
  static const wchar_t* TypeName() { return L"FnEstKsigma"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstKsigma(*this); }

 protected:
  bool LogInput() const override { return true; }
  std::vector<double> Abscissae() const override;
  double Estimate(double x) const override;
};

class FnEstMFSPWP : public FnEstCurve {
 public:
  FnEstMFSPWP();
  static const wchar_t* TypeName() { return L"FnEstMFSPWP"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstMFSPWP(*this); }
  // Byrne's C1 for the current sample material (C2 = 0.4 / C1).
  double C1() const;
  // The generated points as a function of the point kind "MFSPWPFn" (the
  // undefined function before an update).
  IFn ToPointFunction() const;

 protected:
  bool LogOutput() const override { return true; }
  std::vector<double> Abscissae() const override { return LinSpaced(0.0, 5.0 * C1() / 0.4, 51); }
  double Estimate(double x) const override;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstCyclicNumberType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstKalphaType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstKsigmaType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstMFSPWPType::eSampleMatl>();
