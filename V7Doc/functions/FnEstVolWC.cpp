#include "V7Doc/functions/FnEstVolWC.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/FnVanG.h"
#include "V7Doc/functions/SoilWaterUnits.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstVolWCType::eEstMethod>() {
  static const MetaEnumCommon t(L"FnEstVolWCType::eEstMethod", {{0, L"GrainSize"}, {1, L"SampleMatls"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstVolWCType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstVolWCType::eSampleMatl", {{0, L"Clay"},
                                                                 {1, L"SiltyClay"},
                                                                 {2, L"Silt"},
                                                                 {3, L"SiltySand"},
                                                                 {4, L"Sand"},
                                                                 {5, L"Rock"}});
  return t;
}

namespace v7 {
namespace {

const FnKindRegistrar kEstVolWC(FnEstVolWC::TypeName(), &CreateFn<FnEstVolWC>);

// One cm of water in kPa (standard gravity, water at 4 degrees C).
constexpr double kCmWaterInKPa = 0.0980665;

SampleVolWCCurveSource& Source() {
  static SampleVolWCCurveSource source = nullptr;
  return source;
}

// Modified Kovacs constants (Aubertin et al., 2003).
constexpr double kPsi0Cm = 1e7;     // suction of complete dryness
constexpr double kXi = 402.2;       // plastic soils, hco in cm with wL in %
constexpr double kMPlastic = 3e-5;
constexpr double kAcPlastic = 7e-4;
constexpr double kAcGranular = 0.01;

}  // namespace

void SetSampleVolWCCurveSource(SampleVolWCCurveSource source) { Source() = source; }

IFn BuiltInSampleVolWCCurve(FnEstVolWCType::eSampleMatl matl) {
  // Carsel and Parrish (1988), mean van Genuchten parameters by texture:
  // theta_r, theta_s, alpha (1/cm), n. A silty sand is taken as a sandy loam.
  struct VG {
    double thetaR, thetaS, alpha, n;
  };
  VG vg{};
  switch (matl) {
    case FnEstVolWCType::Clay: vg = {0.068, 0.38, 0.008, 1.09}; break;
    case FnEstVolWCType::SiltyClay: vg = {0.070, 0.36, 0.005, 1.09}; break;
    case FnEstVolWCType::Silt: vg = {0.034, 0.46, 0.016, 1.37}; break;
    case FnEstVolWCType::SiltySand: vg = {0.065, 0.41, 0.075, 1.89}; break;
    case FnEstVolWCType::Sand: vg = {0.045, 0.43, 0.145, 2.68}; break;
    default: return IFn();  // rock: no published texture curve stands for it
  }
  const double a = (1.0 / vg.alpha) * kCmWaterInKPa * KiloPascalInDocumentUnits();
  return IFn(new FnVanG(a, vg.n, vg.thetaS, vg.thetaR));
}

gtl::status FnEstVolWC::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    std::int32_t e = 0;
    if (a.Name == L"VolWCEstMethod") {
      if (ReadEnum(a, e, s, meta::EnumTable<FnEstVolWCType::eEstMethod>()))
        eMethod_ = static_cast<FnEstVolWCType::eEstMethod>(e);
    } else if (a.Name == L"SampleMatlVolWC") {
      if (ReadEnum(a, e, s, meta::EnumTable<FnEstVolWCType::eSampleMatl>()))
        eSampleMatl_ = static_cast<FnEstVolWCType::eSampleMatl>(e);
    } else if (a.Name == L"SatWC") {
      ReadBounded(a, satWC_, s, 0.0, 1.0, false);
    } else if (a.Name == L"LiqLimit") {
      ReadBounded(a, liqLimit_, s, 0.0, 1000.0, false);  // percent
    } else if (a.Name == L"D10") {
      ReadBounded(a, d10_, s, 0.0, 1e6, false);  // mm
    } else if (a.Name == L"D60") {
      ReadBounded(a, d60_, s, 0.0, 1e6, false);
    } else {
      ReadRangeAttribute(a, s);
    }
  }
  return s;
}

void FnEstVolWC::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrVolWCEstMethod(eMethod_));
  attrs.push_back(FnAttrSampleMatlVolWC(eSampleMatl_));
  attrs.push_back(FnAttrSatWC(satWC_));
  attrs.push_back(FnAttrLiqLimit(liqLimit_));
  attrs.push_back(FnAttrD10(d10_));
  attrs.push_back(FnAttrD60(d60_));
  GetRangeAttributes(attrs);
}

gtl::status FnEstVolWC::Generate(const std::vector<double>& suctions, std::vector<double>& values) const {
  return eMethod_ == FnEstVolWCType::GrainSize ? GenerateGrainSize(suctions, values)
                                               : GenerateSample(suctions, values);
}

gtl::status FnEstVolWC::GenerateGrainSize(const std::vector<double>& suctions,
                                          std::vector<double>& values) const {
  if (!(satWC_ > 0 && satWC_ < 1)) return EstimateError(str::load_wstring(33511));
  const double n = satWC_;
  const double e = n / (1 - n);
  double hco = 0, m = 0, ac = 0, psir = 0;
  if (liqLimit_ > 0) {
    hco = kXi / e * std::pow(liqLimit_, 1.45);
    m = kMPlastic;
    ac = kAcPlastic;
    psir = 0.86 * std::pow(kXi / e, 1.2) * std::pow(liqLimit_, 1.74);
  } else {
    if (!(d10_ > 0 && d60_ >= d10_)) return EstimateError(str::load_wstring(33512));
    const double cu = d60_ / d10_;
    const double b = 0.75 / (1.17 * std::log10(cu) + 1.0);  // cm^2
    hco = b / (e * d10_ * 0.1);                              // D10 from mm to cm
    m = 1.0 / cu;
    ac = kAcGranular;
    psir = 0.86 * std::pow(hco, 1.2);
  }
  const double toCm = 1.0 / (KiloPascalInDocumentUnits() * kCmWaterInKPa);
  const double logDry = std::log1p(kPsi0Cm / psir);
  values.clear();
  for (double s : suctions) {
    const double psi = s * toCm;
    const double r2 = (hco / psi) * (hco / psi);
    // [r2 + 1]^m exp(-m r2), through logarithms so that a large r2 cannot overflow.
    const double sc = 1.0 - std::exp(m * (std::log1p(r2) - r2));
    const double c = std::max(0.0, 1.0 - std::log1p(psi / psir) / logDry);
    const double sa = ac * c * std::pow(hco, 2.0 / 3.0) / (std::cbrt(e) * std::pow(psi, 1.0 / 6.0));
    const double sr = sc + std::min(sa, 1.0) * (1.0 - sc);
    values.push_back(n * std::clamp(sr, 0.0, 1.0));
  }
  return {};
}

gtl::status FnEstVolWC::GenerateSample(const std::vector<double>& suctions, std::vector<double>& values) const {
  const SampleVolWCCurveSource source = Source();
  const IFn curve = source ? source(eSampleMatl_) : BuiltInSampleVolWCCurve(eSampleMatl_);
  const double thetaS = curve(0.0);
  if (curve.IsUndefined() || qvi::IsNoValue(thetaS))
    return EstimateError(str::format(str::load_wstring(33513), meta::ToName(eSampleMatl_)));
  const double scale = satWC_ > 0 && thetaS > 0 ? satWC_ / thetaS : 1.0;
  values.clear();
  for (double s : suctions) {
    const double v = curve(-s);
    if (qvi::IsNoValue(v)) return EstimateError(str::format(str::load_wstring(33517), s));
    values.push_back(v * scale);
  }
  return {};
}

}  // namespace v7
