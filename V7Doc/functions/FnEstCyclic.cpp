#include "V7Doc/functions/FnEstCyclic.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "V7Doc/functions/FnInterpolated.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/SoilWaterUnits.h"

using v7::FnEstSample;
using v7::SampleEntry;

#define V7_SAND_ENTRIES                                                               \
  SampleEntry(FnEstSample::VeryLooseSand), SampleEntry(FnEstSample::LooseSand),       \
      SampleEntry(FnEstSample::MedLooseSand), SampleEntry(FnEstSample::MedDenseSand), \
      SampleEntry(FnEstSample::DenseSand)

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstCyclicNumberType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstCyclicNumberType::eSampleMatl",
                                {V7_SAND_ENTRIES, SampleEntry(FnEstSample::Cohesive)});
  return t;
}
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstKalphaType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstKalphaType::eSampleMatl", {V7_SAND_ENTRIES});
  return t;
}
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstKsigmaType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstKsigmaType::eSampleMatl", {V7_SAND_ENTRIES});
  return t;
}
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstMFSPWPType::eSampleMatl>() {
  static const MetaEnumCommon t(L"FnEstMFSPWPType::eSampleMatl",
                                {V7_SAND_ENTRIES, SampleEntry(FnEstSample::SilicaSand)});
  return t;
}
#undef V7_SAND_ENTRIES

namespace v7 {
namespace {

const FnKindRegistrar kCyclicNumber(FnEstCyclicNumber::TypeName(), &CreateFn<FnEstCyclicNumber>);
const FnKindRegistrar kDynPWP(FnEstDynPWP::TypeName(), &CreateFn<FnEstDynPWP>);
const FnKindRegistrar kKalpha(FnEstKalpha::TypeName(), &CreateFn<FnEstKalpha>);
const FnKindRegistrar kKsigma(FnEstKsigma::TypeName(), &CreateFn<FnEstKsigma>);
const FnKindRegistrar kMFSPWP(FnEstMFSPWP::TypeName(), &CreateFn<FnEstMFSPWP>);

constexpr double kPa = 101.325;  // kPa

const std::vector<FnEstField>& CyclicNumberFields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlCyclicNumber, &meta::EnumTable<FnEstCyclicNumberType::eSampleMatl>,
              FnEstCyclicNumberType::MedDenseSand)};
  return f;
}
const std::vector<FnEstField>& DynPWPFields() {
  static const std::vector<FnEstField> f = {EstDouble(FnAttrNExponent, 0.7, 0.01, 100.0)};
  return f;
}
const std::vector<FnEstField>& KalphaFields() {
  static const std::vector<FnEstField> f = {EstEnum(FnAttrSampleMatlKalpha,
                                                    &meta::EnumTable<FnEstKalphaType::eSampleMatl>,
                                                    FnEstKalphaType::MedDenseSand)};
  return f;
}
const std::vector<FnEstField>& KsigmaFields() {
  static const std::vector<FnEstField> f = {EstEnum(FnAttrSampleMatlKsigma,
                                                    &meta::EnumTable<FnEstKsigmaType::eSampleMatl>,
                                                    FnEstKsigmaType::MedDenseSand)};
  return f;
}
const std::vector<FnEstField>& MFSPWPFields() {
  static const std::vector<FnEstField> f = {EstEnum(FnAttrSampleMatlMFSPWP,
                                                    &meta::EnumTable<FnEstMFSPWPType::eSampleMatl>,
                                                    FnEstMFSPWPType::SilicaSand)};
  return f;
}

double Dr(std::int32_t member) { return SampleRelativeDensity(static_cast<FnEstSample>(member)); }

}  // namespace

double IdrissBoulangerCRR(double n) {
  return std::exp(n / 14.1 + std::pow(n / 126.0, 2) - std::pow(n / 23.6, 3) +
                  std::pow(n / 25.4, 4) - 2.8);
}

FnEstCyclicNumber::FnEstCyclicNumber()
    : FnEstCurve(CyclicNumberFields(), L"Number of cycles", L"Cyclic stress ratio") {}

double FnEstCyclicNumber::Estimate(double n) const {
  const std::int32_t m = IntParam(L"SampleMatlCyclicNumber");
  if (m == FnEstCyclicNumberType::Cohesive) return 0.83 * 0.22 * std::pow(15.0 / n, 0.135);
  return IdrissBoulangerCRR(SandBlowCount(Dr(m))) * std::pow(15.0 / n, 0.34);
}

FnEstDynPWP::FnEstDynPWP()
    : FnEstCurve(DynPWPFields(), L"Cycle ratio N/NL", L"Pore-pressure ratio ru") {}

double FnEstDynPWP::Estimate(double r) const {
  const double t = std::clamp(2.0 * std::pow(r, 1.0 / Param(L"NExponent")) - 1.0, -1.0, 1.0);
  return std::clamp(0.5 + std::asin(t) / std::numbers::pi, 0.0, 1.0);
}

FnEstKalpha::FnEstKalpha()
    : FnEstCurve(KalphaFields(), L"Static shear stress ratio alpha", L"K-alpha") {}

double FnEstKalpha::Estimate(double alpha) const {
  const double xi =
      std::clamp(1.0 / (10.0 - std::log(100.0)) - Dr(IntParam(L"SampleMatlKalpha")), -0.6, 0.1);
  const double a =
      1267.0 + 636.0 * alpha * alpha - 634.0 * std::exp(alpha) - 632.0 * std::exp(-alpha);
  const double b = std::exp(-1.11 + 12.3 * alpha * alpha + 1.31 * std::log(alpha + 0.0001));
  const double c = 0.138 + 0.126 * alpha + 2.52 * alpha * alpha * alpha;
  return a + b * std::exp(-xi / c);
}

FnEstKsigma::FnEstKsigma()
    : FnEstCurve(KsigmaFields(), L"Vertical effective stress (pressure unit)", L"K-sigma") {}

std::vector<double> FnEstKsigma::Abscissae() const {
  const double u = KiloPascalInDocumentUnits();
  return LogSpaced(10.0 * u, 1000.0 * u, 41);
}

double FnEstKsigma::Estimate(double sv) const {
  const double n = SandBlowCount(Dr(IntParam(L"SampleMatlKsigma")));
  const double cs = std::min(0.3, 1.0 / (18.9 - 2.55 * std::sqrt(n)));
  return std::min(1.1, 1.0 - cs * std::log(sv / KiloPascalInDocumentUnits() / kPa));
}

FnEstMFSPWP::FnEstMFSPWP()
    : FnEstCurve(MFSPWPFields(), L"Volumetric strain / cyclic shear strain",
                 L"Volumetric strain per cycle / cyclic shear strain") {}

double FnEstMFSPWP::C1() const {
  return 7600.0 * std::pow(100.0 * Dr(IntParam(L"SampleMatlMFSPWP")), -2.5);
}

IFn FnEstMFSPWP::ToPointFunction() const {
  if (DataPoints().empty()) return IFn();
  auto* fn = new FnMFSPWP();
  fn->Assign(DataPoints().data(), DataPoints().data() + DataPoints().size());
  return IFn(fn);
}

double FnEstMFSPWP::Estimate(double x) const {
  const double c1 = C1();
  return c1 * std::exp(-0.4 / c1 * x);
}

}  // namespace v7
