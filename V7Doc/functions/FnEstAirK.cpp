#include "V7Doc/functions/FnEstAirK.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/SoilWaterUnits.h"

namespace v7 {
namespace {

const FnKindRegistrar kAirK(FnEstAirK::TypeName(), &CreateFn<FnEstAirK>);

const std::vector<FnEstField>& Fields() {
  static const std::vector<FnEstField> f = {EstCount(FnAttrVolWCFnNum, 0, 0, 0xFFFFFFFFu),
                                            EstDouble(FnAttrAirKDry, 1.0, 0.0, 1e30)};
  return f;
}

}  // namespace

FnEstAirK::FnEstAirK() : FnEstCurve(Fields(), L"Suction", L"Air conductivity") {}

std::vector<double> FnEstAirK::Abscissae() const {
  return LogSpaced(0.01 * KiloPascalInDocumentUnits(), SuctionLimitOfUnitSystem(), 57);
}

gtl::status FnEstAirK::Check() const {
  lambda_ = qvi::kNoValue;
  if (gtl::status s = FindWaterContentFn(static_cast<std::uint32_t>(Param(L"VolWCFnNum")), wc_);
      !s.succeeded())
    return s;
  thetaS_ = wc_(0.0);
  if (!(thetaS_ > 0 && thetaS_ <= 1)) return EstimateError(str::load_wstring(33511));
  // The suction where Se falls to `se`, by halving in log10 suction.
  const double lo0 = std::log10(0.01 * KiloPascalInDocumentUnits()),
               hi0 = std::log10(SuctionLimitOfUnitSystem());
  auto find = [&](double se) {
    double lo = lo0, hi = hi0;
    if (!(wc_(-std::pow(10.0, lo)) / thetaS_ > se) || !(wc_(-std::pow(10.0, hi)) / thetaS_ < se))
      return qvi::kNoValue;
    for (int i = 0; i < 200 && hi - lo > 1e-13; ++i) {
      const double mid = 0.5 * (lo + hi);
      (wc_(-std::pow(10.0, mid)) / thetaS_ > se ? lo : hi) = mid;
    }
    return std::pow(10.0, 0.5 * (lo + hi));
  };
  const double half = find(0.5), quarter = find(0.25);
  if (qvi::IsNoValue(half) || qvi::IsNoValue(quarter) || !(quarter > half))
    return EstimateError(str::format(str::load_wstring(33516), thetaS_, 0.0));
  lambda_ = std::log(2.0) / std::log(quarter / half);
  return {};
}

double FnEstAirK::Estimate(double suction) const {
  const double se = std::clamp(wc_(-suction) / thetaS_, 0.0, 1.0);
  return Param(L"AirKDry") * (1.0 - se) * (1.0 - se) *
         (1.0 - std::pow(se, (2.0 + lambda_) / lambda_));
}

}  // namespace v7
