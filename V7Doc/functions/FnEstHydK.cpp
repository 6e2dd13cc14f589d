#include "V7Doc/functions/FnEstHydK.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/Func2D.h"
#include "V7Doc/functions/SoilWaterUnits.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstHydKType::eEstMethod>() {
  static const MetaEnumCommon t(L"FnEstHydKType::eEstMethod", {{0, L"FredlundXing"}, {1, L"VanGenuchten"}});
  return t;
}

namespace v7 {
namespace {

const FnKindRegistrar kEstHydK(FnEstHydK::TypeName(), &CreateFn<FnEstHydK>);

constexpr double kLn10 = 2.302585092994046;

// The water content tabulated against suction.
struct WCTable {
  std::vector<double> s, theta;
};

}  // namespace

gtl::status FnEstHydK::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    std::int32_t e = 0;
    if (a.Name == L"VolWCFnNum") {
      ReadBounded(a, volWCFnNum_, s);
    } else if (a.Name == L"HydKSat") {
      ReadBounded(a, hydKSat_, s, 0.0, std::numeric_limits<double>::max(), false);
    } else if (a.Name == L"HydKEstMethod") {
      if (ReadEnum(a, e, s, meta::EnumTable<FnEstHydKType::eEstMethod>()))
        eMethod_ = static_cast<FnEstHydKType::eEstMethod>(e);
    } else if (a.Name == L"ResWC") {
      ReadBounded(a, resWC_, s, 0.0, 1.0, false);
    } else {
      ReadRangeAttribute(a, s);
    }
  }
  return s;
}

void FnEstHydK::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrVolWCFnNum(volWCFnNum_));
  attrs.push_back(FnAttrHydKSat(hydKSat_));
  attrs.push_back(FnAttrHydKEstMethod(eMethod_));
  GetRangeAttributes(attrs);
  attrs.push_back(FnAttrResWC(resWC_));
}

void FnEstHydK::GetFnReferences(std::vector<FnReference>& refs) const {
  refs.push_back({container::VolWCFns, volWCFnNum_});
}

gtl::status FnEstHydK::Generate(const std::vector<double>& suctions, std::vector<double>& values) const {
  fit_ = {};
  if (!(hydKSat_ > 0)) return EstimateError(str::load_wstring(33518));
  const Func2D* f = FindFunc2D(container::VolWCFns, static_cast<int>(std::min<std::uint32_t>(volWCFnNum_, 0x7FFFFFFF)));
  if (!f) return EstimateError(str::format(str::load_wstring(33515), volWCFnNum_));
  if (gtl::status s = CheckFnReferences(*this); s.failed()) return s;
  const int wcNum = static_cast<int>(std::min<std::uint32_t>(volWCFnNum_, 0x7FFFFFFF));
  auto theta = [&](double s) {
    const double x = -s;
    return CalculateFunc2D(container::VolWCFns, wcNum, &x, nullptr);
  };

  // Step 1: the 50-point table from Min to the suction limit.
  const double limit = SuctionLimitOfUnitSystem();
  if (!(min_ < limit)) return EstimateError(str::format(str::load_wstring(33514), kMaxPoints));
  WCTable t;
  const double step = (std::log10(limit) - std::log10(min_)) * 0.02040816326530612;
  for (int i = 0; i < kTablePoints; ++i) {
    const double s = std::pow(10.0, std::log10(min_) + i * step);
    const double v = theta(s);
    if (qvi::IsNoValue(v) || !std::isfinite(v)) return EstimateError(str::format(str::load_wstring(33517), s));
    t.s.push_back(s);
    t.theta.push_back(v);
  }

  values.clear();
  if (eMethod_ == FnEstHydKType::VanGenuchten) {
    // Step 2: the halfway suction.
    const double sat0 = theta(0.0);
    const double thetaS = qvi::IsNoValue(sat0) ? t.theta.front() : sat0;
    const double thetaR = resWC_;
    const double half = 0.5 * (thetaS + thetaR);
    const auto noHalf = [&] {
      return EstimateError(str::format(str::load_wstring(33516), thetaS, thetaR));
    };
    if (!(thetaS > thetaR)) return noHalf();
    int k = 1;
    while (k < kTablePoints && t.theta[k] > half) ++k;
    if (k == kTablePoints || !(t.theta[k - 1] > half)) return noHalf();
    double lo = std::log10(t.s[k - 1]), hi = std::log10(t.s[k]);
    for (int i = 0; i < 1000 && hi - lo > 1e-12; ++i) {
      const double mid = 0.5 * (lo + hi);
      (theta(std::pow(10.0, mid)) > half ? lo : hi) = mid;
    }
    const double hp = std::pow(10.0, 0.5 * (lo + hi));
    // Step 3: the normalised slope per log10 cycle.
    const double h = 1e-4;
    const double dThetaDLn = (theta(hp * std::exp(h)) - theta(hp * std::exp(-h))) / (2 * h);
    const double sp = std::abs(dThetaDLn) * kLn10 / (thetaS - thetaR);
    if (!(sp > 0) || !std::isfinite(sp)) return noHalf();
    // Step 4: m, n and alpha.
    const double m = sp <= 1 ? 1.0 - std::exp(-0.8 * sp)
                             : 1.0 - 0.5755 / sp + 0.1 / (sp * sp) + 0.025 / (sp * sp * sp);
    const double n = 1.0 / (1.0 - m);
    const double alpha = std::pow(std::pow(2.0, 1.0 / m) - 1.0, 1.0 - m) / hp;
    fit_ = {hp, sp, m, n, alpha};
    // Steps 5 and 6.
    for (double s : suctions) {
      const double ah = alpha * s;
      const double an = std::pow(ah, n);
      const double inner = 1.0 - std::pow(ah, n - 1.0) * std::pow(1.0 + an, -m);
      values.push_back(hydKSat_ * inner * inner / std::pow(1.0 + an, 0.5 * m));
    }
    return {};
  }

  // "FredlundXing": midpoint quadrature over the table in y = ln suction.
  const int intervals = kTablePoints - 1;
  const double thetaS = t.theta.front();
  auto term = [](double thetaMid, double yMid, double dTheta, double thetaRef) {
    return (thetaMid - thetaRef) * std::exp(-yMid) * dTheta;
  };
  double denominator = 0;
  for (int i = 0; i < intervals; ++i)
    denominator += term(0.5 * (t.theta[i] + t.theta[i + 1]), 0.5 * (std::log(t.s[i]) + std::log(t.s[i + 1])),
                        t.theta[i + 1] - t.theta[i], thetaS);
  if (!(denominator > 0)) return EstimateError(str::format(str::load_wstring(33516), thetaS, t.theta.back()));
  for (double psi : suctions) {
    if (psi <= t.s.front()) {
      values.push_back(hydKSat_);
      continue;
    }
    if (psi >= t.s.back()) {
      values.push_back(0.0);
      continue;
    }
    const double thetaPsi = theta(psi);
    if (qvi::IsNoValue(thetaPsi)) return EstimateError(str::format(str::load_wstring(33517), psi));
    const int k = static_cast<int>(std::upper_bound(t.s.begin(), t.s.end(), psi) - t.s.begin());  // s[k-1] < psi < s[k]
    double numerator = term(0.5 * (thetaPsi + t.theta[k]), 0.5 * (std::log(psi) + std::log(t.s[k])),
                            t.theta[k] - thetaPsi, thetaPsi);
    for (int i = k; i < intervals; ++i)
      numerator += term(0.5 * (t.theta[i] + t.theta[i + 1]), 0.5 * (std::log(t.s[i]) + std::log(t.s[i + 1])),
                        t.theta[i + 1] - t.theta[i], thetaPsi);
    values.push_back(hydKSat_ * std::clamp(numerator / denominator, 0.0, 1.0));
  }
  return {};
}

}  // namespace v7
