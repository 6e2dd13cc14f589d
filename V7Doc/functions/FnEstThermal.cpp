#include "V7Doc/functions/FnEstThermal.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnRegistry.h"

using v7::FnEstSample;
using v7::SampleEntry;

#define V7_DENSITY_ENTRIES                                                                \
  SampleEntry(FnEstSample::SandDensity150), SampleEntry(FnEstSample::SandDensity145),     \
      SampleEntry(FnEstSample::SandDensity140), SampleEntry(FnEstSample::SandDensity135), \
      SampleEntry(FnEstSample::SiltDensity135), SampleEntry(FnEstSample::SiltDensity130), \
      SampleEntry(FnEstSample::SiltDensity125), SampleEntry(FnEstSample::SiltDensity120), \
      SampleEntry(FnEstSample::ClayDensity135), SampleEntry(FnEstSample::ClayDensity130), \
      SampleEntry(FnEstSample::ClayDensity125), SampleEntry(FnEstSample::ClayDensity120)

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstThermalKvsTempType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstThermalKvsTempType::eSampleMatl", {V7_DENSITY_ENTRIES});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstUnfrozenWCType::eSampleMatl>() {
  static const MetaEnumCommon t(
      L"FnEstUnfrozenWCType::eSampleMatl",
      {V7_DENSITY_ENTRIES, SampleEntry(FnEstSample::LowPlasticDensity135),
       SampleEntry(FnEstSample::LowPlasticDensity130),
       SampleEntry(FnEstSample::LowPlasticDensity125),
       SampleEntry(FnEstSample::LowPlasticDensity120), SampleEntry(FnEstSample::HighPlastic)});
  return t;
}
#undef V7_DENSITY_ENTRIES

namespace v7 {
namespace {

const FnKindRegistrar kKvsTemp(FnEstThermalKvsTemp::TypeName(), &CreateFn<FnEstThermalKvsTemp>);
const FnKindRegistrar kUnfrozen(FnEstUnfrozenWC::TypeName(), &CreateFn<FnEstUnfrozenWC>);
const FnKindRegistrar kKvsVolWC(FnEstThermalKvsVolWC::TypeName(), &CreateFn<FnEstThermalKvsVolWC>);
const FnKindRegistrar kVolSpecHeat(FnEstVolSpecHeat::TypeName(), &CreateFn<FnEstVolSpecHeat>);

constexpr double kRhoW = 1000.0;             // kg/m^3
constexpr double kGs = 2.65;                 // specific gravity of solids
constexpr double kKerstenUnit = 0.1442279;   // W/(m K) per BTU in/(ft^2 h F)
constexpr double kPcf = 16.018463373960138;  // kg/m^3 per lb/ft^3
constexpr double kWaterK = 0.57;             // W/(m K), Johansen
constexpr double kJohansenRhoS = 2700;       // kg/m^3, Johansen's particle density
constexpr double kDeVriesRhoS = 2650;        // kg/m^3
constexpr double kWaterC = 4.18e6;           // J/(m^3 K)
constexpr double kBig = 1e30;

const std::vector<FnEstField>& KvsTempFields() {
  static const std::vector<FnEstField> f = {
      EstDouble(FnAttrTCFrozen, qvi::kNoValue, 0.0, kBig, true),
      EstDouble(FnAttrTCUnfrozen, qvi::kNoValue, 0.0, kBig, true),
      EstEnum(FnAttrSampleMatlThermalKvsTemp,
              &meta::EnumTable<FnEstThermalKvsTempType::eSampleMatl>,
              FnEstThermalKvsTempType::SiltDensity120)};
  return f;
}
const std::vector<FnEstField>& UnfrozenFields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlUnfrozenWC, &meta::EnumTable<FnEstUnfrozenWCType::eSampleMatl>,
              FnEstUnfrozenWCType::SiltDensity120)};
  return f;
}
const std::vector<FnEstField>& KvsVolWCFields() {
  static const std::vector<FnEstField> f = {
      EstCount(FnAttrVolWCFnNum, 0, 0, 0xFFFFFFFFu),
      EstDouble(FnAttrMineralThermalK, 2.5, 1e-6, kBig),
      EstDouble(FnAttrMax, qvi::kNoValue, 0.0, 1.0, true), EstDouble(FnAttrMin, 0.0, 0.0, 1.0),
      EstCount(FnAttrNumPoints, 20, 2, FnEstBase::kMaxPoints)};
  return f;
}
const std::vector<FnEstField>& VolSpecHeatFields() {
  static const std::vector<FnEstField> f = {
      EstCount(FnAttrVolWCFnNum, 0, 0, 0xFFFFFFFFu),
      EstDouble(FnAttrMassSpecHeat, 800.0, 0.0, kBig),
      EstDouble(FnAttrMax, qvi::kNoValue, 0.0, 1.0, true), EstDouble(FnAttrMin, 0.0, 0.0, 1.0),
      EstCount(FnAttrNumPoints, 20, 2, FnEstBase::kMaxPoints)};
  return f;
}

double SpecificSurface(FnEstSample m) {
  const auto i = static_cast<int>(m);
  if (i <= static_cast<int>(FnEstSample::SandDensity135)) return 0.1;
  if (i <= static_cast<int>(FnEstSample::SiltDensity120)) return 10;
  if (i <= static_cast<int>(FnEstSample::ClayDensity120)) return 80;
  if (i <= static_cast<int>(FnEstSample::LowPlasticDensity120)) return 15;
  return 750;  // HighPlastic
}

bool IsSand(FnEstSample m) {
  return static_cast<int>(m) <= static_cast<int>(FnEstSample::SandDensity135);
}

// Temperatures of the tables: -20 C to +2 C, 0.25 C apart.
std::vector<double> TemperatureAxis() {
  std::vector<double> t;
  for (int i = 0; i <= 88; ++i) t.push_back(-20.0 + 0.25 * i);
  return t;
}

}  // namespace

double SamplePorosity(FnEstSample m) { return 1.0 - SampleDryDensity(m) / (kGs * kRhoW); }

double UnfrozenWaterContent(FnEstSample m, double celsius) {
  const double n = SamplePorosity(m);
  if (!(celsius < 0)) return n;
  const double S = SpecificSurface(m);
  const double wu =
      std::exp(0.2618 + 0.5519 * std::log(S) - 1.449 * std::pow(S, -0.264) * std::log(-celsius));
  return std::min(n, wu / 100.0 * SampleDryDensity(m) / kRhoW);
}

void KerstenConductivity(FnEstSample m, double& unfrozen, double& frozen) {
  const double rho = SampleDryDensity(m) / kPcf;                       // lb/ft^3
  const double w = 100.0 * (kRhoW / SampleDryDensity(m) - 1.0 / kGs);  // % at saturation
  if (IsSand(m)) {
    unfrozen = (0.7 * std::log10(w) + 0.4) * std::pow(10.0, 0.01 * rho);
    frozen = 0.076 * std::pow(10.0, 0.013 * rho) + 0.032 * std::pow(10.0, 0.0146 * rho) * w;
  } else {
    unfrozen = (0.9 * std::log10(w) - 0.2) * std::pow(10.0, 0.01 * rho);
    frozen = 0.01 * std::pow(10.0, 0.022 * rho) + 0.085 * std::pow(10.0, 0.008 * rho) * w;
  }
  unfrozen *= kKerstenUnit;
  frozen *= kKerstenUnit;
}

FnEstThermalKvsTemp::FnEstThermalKvsTemp()
    : FnEstCurve(KvsTempFields(), L"Temperature (C)", L"Thermal conductivity (W/(m K))") {}

std::vector<double> FnEstThermalKvsTemp::Abscissae() const { return TemperatureAxis(); }

double FnEstThermalKvsTemp::Estimate(double t) const {
  const auto m = static_cast<FnEstSample>(IntParam(L"SampleMatlThermalKvsTemp"));
  double ku = 0, kf = 0;
  KerstenConductivity(m, ku, kf);
  if (const double v = Param(L"TCUnfrozen"); !qvi::IsNoValue(v)) ku = v;
  if (const double v = Param(L"TCFrozen"); !qvi::IsNoValue(v)) kf = v;
  const double share = UnfrozenWaterContent(m, t) / SamplePorosity(m);
  return kf + (ku - kf) * share;
}

FnEstUnfrozenWC::FnEstUnfrozenWC()
    : FnEstCurve(UnfrozenFields(), L"Temperature (C)", L"Unfrozen volumetric water content") {}

std::vector<double> FnEstUnfrozenWC::Abscissae() const { return TemperatureAxis(); }

double FnEstUnfrozenWC::Estimate(double t) const {
  return UnfrozenWaterContent(static_cast<FnEstSample>(IntParam(L"SampleMatlUnfrozenWC")), t);
}

gtl::status FnEstOverWaterContent::Check() const {
  IFn wc;
  if (gtl::status s = FindWaterContentFn(static_cast<std::uint32_t>(Param(L"VolWCFnNum")), wc);
      !s.succeeded())
    return s;
  const double n = wc(0.0);
  if (!(n > 0 && n <= 1)) return EstimateError(str::load_wstring(33511));
  porosity_ = n;
  const double hi = qvi::IsNoValue(Param(L"Max")) ? n : Param(L"Max");
  if (!(hi > Param(L"Min")))
    return ParamError(L"Max", str::format(str::load_wstring(33531), L"Max", Param(L"Min"), 1.0));
  return {};
}

std::vector<double> FnEstOverWaterContent::Abscissae() const {
  const double hi = qvi::IsNoValue(Param(L"Max")) ? porosity_ : Param(L"Max");
  return LinSpaced(Param(L"Min"), hi, static_cast<std::uint32_t>(Param(L"NumPoints")));
}

FnEstThermalKvsVolWC::FnEstThermalKvsVolWC()
    : FnEstOverWaterContent(KvsVolWCFields(), L"Volumetric water content",
                            L"Thermal conductivity (W/(m K))") {}

double FnEstThermalKvsVolWC::Estimate(double theta) const {
  const double n = porosity_;
  const double rhoD = kJohansenRhoS * (1.0 - n);
  const double kDry = (0.135 * rhoD + 64.7) / (kJohansenRhoS - 0.947 * rhoD);
  const double kSat = std::pow(Param(L"MineralThermalK"), 1.0 - n) * std::pow(kWaterK, n);
  const double sr = std::clamp(theta / n, 0.0, 1.0);
  const double ke = sr > 0 ? std::max(0.0, 0.7 * std::log10(sr) + 1.0) : 0.0;
  return (kSat - kDry) * ke + kDry;
}

FnEstVolSpecHeat::FnEstVolSpecHeat()
    : FnEstOverWaterContent(VolSpecHeatFields(), L"Volumetric water content",
                            L"Volumetric specific heat (J/(m3 K))") {}

double FnEstVolSpecHeat::Estimate(double theta) const {
  return (1.0 - porosity_) * kDeVriesRhoS * Param(L"MassSpecHeat") + theta * kWaterC;
}

}  // namespace v7
