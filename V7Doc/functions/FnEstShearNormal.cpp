#include "V7Doc/functions/FnEstShearNormal.h"

#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kShearNormal(FnEstShearNormal::TypeName(), &CreateFn<FnEstShearNormal>);

const std::vector<FnEstField>& Fields() {
  static const std::vector<FnEstField> f = {
      EstDouble(FnAttrIntactRockParam, 10.0, 1e-6, 1e4),
      EstDouble(FnAttrGeologicalStrength, 50.0, 0.0, 100.0),
      EstDouble(FnAttrDisturbanceFactor, 0.0, 0.0, 1.0),
      EstDouble(FnAttrSigmaC, 50000.0, 1e-9, 1e15),
      EstDouble(FnAttrSigma3, 5000.0, 1e-9, 1e15),
      EstCount(FnAttrNumPoints, 20, 2, FnEstBase::kMaxPoints)};
  return f;
}

}  // namespace

HoekBrown::HoekBrown(double mi, double gsi, double d, double sigmaC) : sci(sigmaC) {
  mb = mi * std::exp((gsi - 100.0) / (28.0 - 14.0 * d));
  s = std::exp((gsi - 100.0) / (9.0 - 3.0 * d));
  a = 0.5 + (std::exp(-gsi / 15.0) - std::exp(-20.0 / 3.0)) / 6.0;
}

void HoekBrown::NormalShear(double s3, double& sn, double& tau) const {
  const double base = mb * s3 / sci + s;
  if (!(base > 0)) {  // at (or below) the tensile strength the envelope closes
    sn = s3;
    tau = 0;
    return;
  }
  const double s1 = s3 + sci * std::pow(base, a);
  const double k = 1.0 + a * mb * std::pow(base, a - 1.0);
  sn = 0.5 * (s1 + s3) - 0.5 * (s1 - s3) * (k - 1.0) / (k + 1.0);
  tau = (s1 - s3) * std::sqrt(k) / (k + 1.0);
}

FnEstShearNormal::FnEstShearNormal()
    : FnEstCurve(Fields(), L"Normal stress (pressure unit)", L"Shear strength (pressure unit)") {}

gtl::status FnEstShearNormal::Tabulate(std::vector<double>& xs, std::vector<double>& ys) const {
  const HoekBrown hb(Param(L"IntactRockParam"), Param(L"GeologicalStrength"),
                     Param(L"DisturbanceFactor"), Param(L"SigmaC"));
  const double st = hb.TensileStrength(), top = Param(L"Sigma3");
  const auto n = static_cast<std::uint32_t>(Param(L"NumPoints"));
  xs.clear();
  ys.clear();
  for (std::uint32_t i = 0; i < n; ++i) {
    const double t = static_cast<double>(i) / (n - 1);
    double sn = 0, tau = 0;
    hb.NormalShear(i + 1 == n ? top : st + (top - st) * t * t, sn, tau);
    if (!std::isfinite(sn) || !std::isfinite(tau))
      return EstimateError(str::format(str::load_wstring(33530), t));
    xs.push_back(sn);
    ys.push_back(tau);
  }
  return {};
}

}  // namespace v7
