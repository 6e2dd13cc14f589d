#include "V7Doc/functions/FnEstStiffness.h"

#include <algorithm>
#include <cmath>

#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/SoilWaterUnits.h"

using v7::FnEstSample;
using v7::SampleEntry;

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstGmaxType::eSampleMatl>() {
  static const MetaEnumCommon t(
      L"FnEstGmaxType::eSampleMatl",
      {SampleEntry(FnEstSample::VeryLooseSand), SampleEntry(FnEstSample::LooseSand),
       SampleEntry(FnEstSample::MedLooseSand), SampleEntry(FnEstSample::MedDenseSand),
       SampleEntry(FnEstSample::DenseSand), SampleEntry(FnEstSample::LooseGravel),
       SampleEntry(FnEstSample::MedDenseGravel), SampleEntry(FnEstSample::DenseGravel)});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstGmaxType::eEstMethod>() {
  static const MetaEnumCommon t(L"FnEstGmaxType::eEstMethod", {{0, L"Hardin"}, {1, L"SeedIdriss"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstEModType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstEModType::eSampleMatl", {SampleEntry(FnEstSample::Granular),
                                                                SampleEntry(FnEstSample::Cohesive),
                                                                SampleEntry(FnEstSample::Gravel)});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstRecModulusType::eSampleMatl>() {
  static const MetaEnumCommon t(
      L"FnEstRecModulusType::eSampleMatl",
      {SampleEntry(FnEstSample::Granular), SampleEntry(FnEstSample::Cohesive),
       SampleEntry(FnEstSample::Gravel)});
  return t;
}

namespace v7 {
namespace {

const FnKindRegistrar kGmax(FnEstGmax::TypeName(), &CreateFn<FnEstGmax>);
const FnKindRegistrar kEMod(FnEstEMod::TypeName(), &CreateFn<FnEstEMod>);
const FnKindRegistrar kRecModulus(FnEstRecModulus::TypeName(), &CreateFn<FnEstRecModulus>);

constexpr double kPa = 101.325;      // atmospheric pressure, kPa
constexpr double kJanbuRef = 100.0;  // Janbu's reference stress, kPa
// psf per kPa: the factor of the document layer (SoilWaterUnits), so that an
// imperial document gets Seed and Idriss's psf form exactly.
constexpr double kPsfPerKPa = 20.8854;
constexpr double kUnitWeight = 20.0;  // kN/m^3, for the stress at "Depth"
constexpr double kBig = 1e12;

const std::vector<FnEstField>& GmaxFields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlGmax, &meta::EnumTable<FnEstGmaxType::eSampleMatl>,
              FnEstGmaxType::MedDenseSand),
      EstEnum(FnAttrGmaxEstMethod, &meta::EnumTable<FnEstGmaxType::eEstMethod>,
              FnEstGmaxType::SeedIdriss),
      EstDouble(FnAttrDepth, 50.0, 0.0, 1e5),
      EstDouble(FnAttrKModifier, 1.0, 0.0, kBig),
      EstDouble(FnAttrK0, 0.5, 0.0, 10.0),
      EstDouble(FnAttrOCR, 1.0, 1.0, 1000.0),
      EstDouble(FnAttrVoidRatio, 0.6, 0.01, 20.0),
      EstDouble(FnAttrPI, 0.0, 0.0, 1000.0)};
  return f;
}

const std::vector<FnEstField>& EModFields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlEMod, &meta::EnumTable<FnEstEModType::eSampleMatl>,
              FnEstEModType::Granular),
      EstDouble(FnAttrDepth, 50.0, 0.0, 1e5), EstDouble(FnAttrKModifier, 100.0, 0.0, kBig),
      EstDouble(FnAttrNExponent, qvi::kNoValue, 0.0, 2.0, true),
      EstDouble(FnAttrK0, 0.5, 0.0, 10.0)};
  return f;
}

const std::vector<FnEstField>& RecModulusFields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlRecModulus, &meta::EnumTable<FnEstRecModulusType::eSampleMatl>,
              FnEstRecModulusType::Granular)};
  return f;
}

// K2max of Seed and Idriss (1970) by relative density, and of gravels.
double K2max(FnEstSample m) {
  switch (m) {
    case FnEstSample::VeryLooseSand:
      return 34;
    case FnEstSample::LooseSand:
      return 40;
    case FnEstSample::MedLooseSand:
      return 43;
    case FnEstSample::MedDenseSand:
      return 52;
    case FnEstSample::DenseSand:
      return 70;
    case FnEstSample::LooseGravel:
      return 80;
    case FnEstSample::MedDenseGravel:
      return 130;
    case FnEstSample::DenseGravel:
      return 180;
    default:
      return 0;
  }
}

}  // namespace

double HardinOCRExponent(double pi) {
  static const double kPI[] = {0, 20, 40, 60, 80, 100};
  static const double kK[] = {0, 0.18, 0.30, 0.41, 0.48, 0.50};
  if (!(pi > 0)) return 0;
  if (pi >= 100) return 0.5;
  const int i = static_cast<int>(pi / 20);
  return kK[i] + (kK[i + 1] - kK[i]) * (pi - kPI[i]) / 20.0;
}

std::vector<double> FnEstStressCurve::DepthAxis() const {
  const double u = KiloPascalInDocumentUnits();
  const double top = std::max(10.0, kUnitWeight * Param(L"Depth"));
  return LogSpaced(1.0 * u, top * u, 31);
}

FnEstGmax::FnEstGmax()
    : FnEstStressCurve(GmaxFields(), L"Vertical effective stress (pressure unit)",
                       L"Small-strain shear modulus Gmax (pressure unit)") {}

double FnEstGmax::Estimate(double x) const {
  const double u = KiloPascalInDocumentUnits();
  const double sm = x / u * (1.0 + 2.0 * Param(L"K0")) / 3.0;  // kPa
  double g = 0;
  if (IntParam(L"GmaxEstMethod") == FnEstGmaxType::Hardin) {
    const double e = Param(L"VoidRatio");
    g = 625.0 / (0.3 + 0.7 * e * e) * std::pow(Param(L"OCR"), HardinOCRExponent(Param(L"PI"))) *
        std::sqrt(kPa * sm);
  } else {
    const double k2 = K2max(static_cast<FnEstSample>(IntParam(L"SampleMatlGmax")));
    g = 1000.0 * k2 * std::sqrt(sm * kPsfPerKPa) / kPsfPerKPa;
  }
  return Param(L"KModifier") * g * u;
}

FnEstEMod::FnEstEMod()
    : FnEstStressCurve(EModFields(), L"Vertical effective stress (pressure unit)",
                       L"Elastic modulus E (pressure unit)") {}

double FnEstEMod::Estimate(double x) const {
  const double u = KiloPascalInDocumentUnits();
  const double sm = x / u * (1.0 + 2.0 * Param(L"K0")) / 3.0;
  double n = Param(L"NExponent");
  if (qvi::IsNoValue(n)) n = IntParam(L"SampleMatlEMod") == FnEstEModType::Cohesive ? 1.0 : 0.5;
  return Param(L"KModifier") * kJanbuRef * std::pow(sm / kJanbuRef, n) * u;
}

FnEstRecModulus::FnEstRecModulus()
    : FnEstStressCurve(RecModulusFields(), L"Bulk or deviator stress (pressure unit)",
                       L"Resilient modulus Mr (pressure unit)") {}

std::vector<double> FnEstRecModulus::Abscissae() const {
  const double u = KiloPascalInDocumentUnits();
  return LogSpaced(10.0 * u, 1000.0 * u, 31);
}

double FnEstRecModulus::Estimate(double x) const {
  const double u = KiloPascalInDocumentUnits();
  double k1 = 700, k2 = 0.5;
  switch (IntParam(L"SampleMatlRecModulus")) {
    case FnEstRecModulusType::Gravel:
      k1 = 1000;
      break;
    case FnEstRecModulusType::Cohesive:
      k1 = 400, k2 = -0.2;
      break;
    default:
      break;
  }
  return k1 * kPa * std::pow(x / u / kPa, k2) * u;
}

}  // namespace v7
