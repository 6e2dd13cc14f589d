#pragma once
// Stiffness estimates against effective stress: small-strain shear modulus
// ("FnEstGmax"), elastic modulus ("FnEstEMod") and resilient modulus
// ("FnEstRecModulus").
//
// Units. Stresses and moduli are in the document's pressure unit (kPa in
// metric documents, psf otherwise; the formulas run in kPa). "Depth" is in
// metres. The atmospheric pressure pa is 101.325 kPa, Janbu's reference
// stress 100 kPa.
//
// Input of Gmax and EMod: the vertical effective stress s'v; the mean
// effective stress is s'm = s'v (1 + 2 K0) / 3. Their tables hold 31 stresses
// spaced evenly in log10 from 1 kPa to the vertical stress at "Depth" under a
// unit weight of 20 kN/m^3 (at least 10 kPa), so that every effective stress
// down to that depth lies inside; the moduli are power laws of the stress
// and are interpolated log-log, which is exact between the points. Below
// 1 kPa the value at 1 kPa is kept.
//
// FnEstGmax: data attributes "SampleMatlGmax", "GmaxEstMethod", "Depth",
// "KModifier", "K0", "OCR", "VoidRatio", "PI". "KModifier" multiplies the
// estimate (an ageing or site factor; 1 by default).
//  - "Hardin" (Hardin, 1978; with the OCR exponent k of Hardin and
//    Drnevich, 1972, by PI: 0 0, 20 0.18, 40 0.30, 60 0.41, 80 0.48,
//    interpolated linearly in PI, and 0.5 from PI 100 on):
//    Gmax = 625 / (0.3 + 0.7 e^2) OCR^k pa^0.5 s'm^0.5,
//    e = "VoidRatio";
//  - "SeedIdriss" (Seed and Idriss, 1970, with their K2max by relative
//    density: Dr 30 % 34, 40 % 40, 45 % 43, 60 % 52, 90 % 70):
//    Gmax = 1000 K2max (s'm)^0.5 with stresses in psf. The
//    gravels take the range 80 to 180 that Seed, Wong, Idriss and Tokimatsu
//    (1986) report for gravels: 80 loose, 130 medium dense (this system's
//    middle of the range), 180 dense.
//
// FnEstEMod: data attributes "SampleMatlEMod", "Depth", "KModifier",
// "NExponent", "K0". Janbu (1963): E = m pa (s'm / pa)^n with the modulus
// number m = "KModifier" (100 by default) and the stress exponent n =
// "NExponent", or when that is unset the sample material's: 0.5 for
// "Granular" and "Gravel" (Janbu's a = 0.5 for sands and silts), 1 for
// "Cohesive" (a = 0, normally consolidated clays), with pa = 100 kPa.
//
// FnEstRecModulus: data attribute "SampleMatlRecModulus". Input: the bulk
// stress theta for "Granular" and "Gravel", the k-theta model of Hicks and
// Monismith (1971): Mr = k1 pa (theta / pa)^k2; the deviator stress sd for
// "Cohesive", the power model of Moossazadeh and Witczak (1981):
// Mr = k1 pa (sd / pa)^k2. The constants are this system's representative
// values, not a published table: Granular k1 = 700, k2 = 0.5; Gravel
// k1 = 1000, k2 = 0.5; Cohesive k1 = 400, k2 = -0.2. The table spans 31
// stresses spaced evenly in log10 from 10 to 1000 kPa.
#include <cstdint>

#include "V7Doc/functions/FnEstCurve.h"
#include "V7Doc/functions/FnEstSampleMatl.h"

namespace v7 {

struct FnEstGmaxType {
  enum eSampleMatl : std::int32_t {
    VeryLooseSand = static_cast<std::int32_t>(FnEstSample::VeryLooseSand),
    LooseSand = static_cast<std::int32_t>(FnEstSample::LooseSand),
    MedLooseSand = static_cast<std::int32_t>(FnEstSample::MedLooseSand),
    MedDenseSand = static_cast<std::int32_t>(FnEstSample::MedDenseSand),
    DenseSand = static_cast<std::int32_t>(FnEstSample::DenseSand),
    LooseGravel = static_cast<std::int32_t>(FnEstSample::LooseGravel),
    MedDenseGravel = static_cast<std::int32_t>(FnEstSample::MedDenseGravel),
    DenseGravel = static_cast<std::int32_t>(FnEstSample::DenseGravel),
  };
  enum eEstMethod : std::int32_t { Hardin = 0, SeedIdriss = 1 };
};

struct FnEstEModType {
  enum eSampleMatl : std::int32_t {
    Granular = static_cast<std::int32_t>(FnEstSample::Granular),
    Cohesive = static_cast<std::int32_t>(FnEstSample::Cohesive),
    Gravel = static_cast<std::int32_t>(FnEstSample::Gravel),
  };
};

struct FnEstRecModulusType {
  enum eSampleMatl : std::int32_t {
    Granular = static_cast<std::int32_t>(FnEstSample::Granular),
    Cohesive = static_cast<std::int32_t>(FnEstSample::Cohesive),
    Gravel = static_cast<std::int32_t>(FnEstSample::Gravel),
  };
};

// The OCR exponent k of Hardin and Drnevich (1972) at a plasticity index.
double HardinOCRExponent(double pi);

// What the stress-based stiffness kinds share: a log10 stress axis and
// log-log interpolation.
class FnEstStressCurve : public FnEstCurve {
 protected:
  using FnEstCurve::FnEstCurve;
  bool LogInput() const override { return true; }
  bool LogOutput() const override { return true; }
  // 31 stresses (document units) from 1 kPa to the stress at "Depth".
  std::vector<double> DepthAxis() const;
};

class FnEstGmax : public FnEstStressCurve {
 public:
  FnEstGmax();
  static const wchar_t* TypeName() { return L"FnEstGmax"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstGmax(*this); }

 protected:
  std::vector<double> Abscissae() const override { return DepthAxis(); }
  double Estimate(double x) const override;
};

class FnEstEMod : public FnEstStressCurve {
 public:
  FnEstEMod();
  static const wchar_t* TypeName() { return L"FnEstEMod"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstEMod(*this); }

 protected:
  std::vector<double> Abscissae() const override { return DepthAxis(); }
  double Estimate(double x) const override;
};

class FnEstRecModulus : public FnEstStressCurve {
 public:
  FnEstRecModulus();
  static const wchar_t* TypeName() { return L"FnEstRecModulus"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstRecModulus(*this); }

 protected:
  std::vector<double> Abscissae() const override;
  double Estimate(double x) const override;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstGmaxType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstGmaxType::eEstMethod>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstEModType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstRecModulusType::eSampleMatl>();
