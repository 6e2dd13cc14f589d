#include "V7Doc/functions/FnEstDarendeli.h"

#include <cmath>
#include <numbers>

#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/SoilWaterUnits.h"

namespace v7 {
namespace {

const FnKindRegistrar kGReduction(FnEstGReduction::TypeName(), &CreateFn<FnEstGReduction>);
const FnKindRegistrar kDamping(FnEstDampingRatio::TypeName(), &CreateFn<FnEstDampingRatio>);

// Darendeli (2001), Table 8.12.
constexpr double kPhi[13] = {0,      0.0352,  0.0010,  0.3246, 0.3483, 0.9190, 0.8005,
                             0.0129, -0.1069, -0.2889, 0.2919, 0.6329, -0.0057};
constexpr double kAtm = 101.325;  // kPa

const std::vector<FnEstField>& GReductionFields() {
  static const std::vector<FnEstField> f = {EstDouble(FnAttrPI, 0.0, 0.0, 1000.0),
                                            EstDouble(FnAttrConfiningStress, 100.0, 1e-9, 1e12)};
  return f;
}

const std::vector<FnEstField>& DampingFields() {
  static const std::vector<FnEstField> f = {EstDouble(FnAttrPI, 0.0, 0.0, 1000.0),
                                            EstDouble(FnAttrConfiningStress, 100.0, 1e-9, 1e12),
                                            EstDouble(FnAttrOCR, 1.0, 1.0, 1000.0)};
  return f;
}

}  // namespace

double DarendeliModel::ReferenceStrain() const {
  return (kPhi[1] + kPhi[2] * pi * std::pow(ocr, kPhi[3])) * std::pow(sigmaAtm, kPhi[4]) / 100.0;
}

double DarendeliModel::GReduction(double strain) const {
  return 1.0 / (1.0 + std::pow(strain / ReferenceStrain(), kPhi[5]));
}

double DarendeliModel::Damping(double strain) const {
  const double a = kPhi[5];
  const double g = strain * 100.0, gr = ReferenceStrain() * 100.0;  // in %
  const double dMin = (kPhi[6] + kPhi[7] * pi * std::pow(ocr, kPhi[8])) *
                      std::pow(sigmaAtm, kPhi[9]) * (1.0 + kPhi[10] * std::log(frequency));
  // D_Masing,a=1 with x = gamma / gamma_r. The bracket is
  // 4 (x - ln(1 + x)) (1 + x) / x^2 - 2 = 4 sum_k>=1 (-1)^(k+1) x^k / ((k+1)(k+2)),
  // whose direct form loses its digits to cancellation at small x: below
  // x = 0.1 the series is summed instead (24 terms leave < 1e-24).
  const double x = g / gr;
  double bracket = 0;
  if (x >= 0.1) {
    bracket = 4.0 * (x - std::log1p(x)) * (1.0 + x) / (x * x) - 2.0;
  } else {
    double term = x;
    for (int k = 1; k <= 24; ++k, term *= -x) bracket += 4.0 * term / ((k + 1.0) * (k + 2.0));
  }
  const double d1 = 100.0 / std::numbers::pi * bracket;
  const double c1 = -1.1143 * a * a + 1.8618 * a + 0.2523;
  const double c2 = 0.0805 * a * a - 0.0710 * a - 0.0095;
  const double c3 = -0.0005 * a * a + 0.0002 * a + 0.0003;
  const double dMasing = c1 * d1 + c2 * d1 * d1 + c3 * d1 * d1 * d1;
  const double b = kPhi[11] + kPhi[12] * std::log(cycles);
  return (b * std::pow(GReduction(strain), 0.1) * dMasing + dMin) / 100.0;
}

DarendeliModel FnEstDarendeliCurve::Model() const {
  DarendeliModel m;
  m.pi = Param(L"PI");
  m.sigmaAtm = Param(L"ConfiningStress") / KiloPascalInDocumentUnits() / kAtm;
  if (const double ocr = Param(L"OCR"); !qvi::IsNoValue(ocr)) m.ocr = ocr;
  return m;
}

FnEstGReduction::FnEstGReduction()
    : FnEstDarendeliCurve(GReductionFields(), L"Cyclic shear strain (ratio)",
                          L"Shear modulus reduction G/Gmax") {}
FnEstDampingRatio::FnEstDampingRatio()
    : FnEstDarendeliCurve(DampingFields(), L"Cyclic shear strain (ratio)", L"Damping ratio") {}

}  // namespace v7
