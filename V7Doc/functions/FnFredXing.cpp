#include "V7Doc/functions/FnFredXing.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/SoilWaterUnits.h"

namespace v7 {
namespace {
const FnKindRegistrar kFredXing(FnFredXing::TypeName(), &CreateFn<FnFredXing>);
constexpr double kE = 2.718281828459045;
constexpr double kHuge = std::numeric_limits<double>::max();
bool Set(double v) { return !qvi::IsNoValue(v); }
}  // namespace

FnFredXing::FnFredXing() { SuctionLimit_ = SuctionLimitOfUnitSystem(); }

FnFredXing::FnFredXing(double a, double n, double m, double satWC, double suctionLimit)
    : math::fn::flow::FredXing(a, n, m, satWC, suctionLimit) {}

bool FnFredXing::FredXingRuleHolds() const {
  return Set(A_) && Set(N_) && Set(M_) && Set(SuctionLimit_) && Set(SatWC_) && A_ > 0 && N_ > 0 &&
         M_ > 0 && SatWC_ > 0;
}

bool FnFredXing::IsValid() const { return FredXingRuleHolds(); }

gtl::status FnFredXing::UpdateCalculatedValues() {
  // Both closed forms are checked by the Fredlund-Xing rule here; the van
  // Genuchten rule is that kind's IsValid, which editors ask before accepting.
  if (!FredXingRuleHolds()) return gtl::status::error(21578, Name());
  return {};
}

bool FnFredXing::ReadShared(const FnAttr& a, gtl::status& s, double satWCMax) {
  if (a.Name == L"A")
    ReadBounded(a, A_, s);
  else if (a.Name == L"N")
    ReadBounded(a, N_, s);
  else if (a.Name == L"M")
    ReadBounded(a, M_, s);
  else if (a.Name == L"SatWC")
    ReadBounded(a, SatWC_, s, 0.0, satWCMax);
  else if (a.Name == L"SuctionLimit")
    // A limit of zero would put the residual suction at zero (0.003 x limit).
    // An empty limit is refused: unlike the other parameters the limit has a
    // default, so an unset limit (which the text leaves out) would come back
    // as the default after a save.
    ReadBounded(a, SuctionLimit_, s, std::numeric_limits<double>::min(), kHuge, false);
  else
    return false;
  return true;
}

gtl::status FnFredXing::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) ReadShared(a, s, kHuge);
  return s;
}

double FnFredXing::Calculate(const double* x, const double*) const {
  if (!Set(A_) || !Set(N_) || !Set(M_) || !Set(SuctionLimit_) || !Set(SatWC_)) return qvi::kNoValue;
  if (!x || std::isnan(*x)) return qvi::kNoValue;
  if (*x >= 0 || A_ <= 0) return SatWC_;
  if (!(SuctionLimit_ > 0)) return qvi::kNoValue;  // set by a constructor, never read from text
  const double s = -*x;
  // Beyond the suction limit the correction turns negative; a soil holds no
  // less than no water, so the curve stays at zero there.
  if (s >= SuctionLimit_) return 0.0;
  const double r = kResidualFraction * SuctionLimit_;
  const double c = 1.0 - std::log1p(s / r) / std::log1p(SuctionLimit_ / r);
  return SatWC_ * c * std::pow(1.0 / std::log(kE + std::pow(s / A_, N_)), M_);
}

void FnFredXing::Evaluate(std::span<const double> in, std::span<double> out) const {
  const std::size_t n = std::min(in.size(), out.size());
  if (!Set(A_) || !Set(N_) || !Set(M_) || !Set(SuctionLimit_) || !Set(SatWC_) || !(SuctionLimit_ > 0) ||
      A_ <= 0) {
    FnImpl::Evaluate(in, out);  // a constant or no value: no loop worth tuning
    return;
  }
  const double r = kResidualFraction * SuctionLimit_;
  const double denominator = std::log1p(SuctionLimit_ / r);
  for (std::size_t i = 0; i < n; ++i) {
    const double x = in[i];
    if (std::isnan(x)) out[i] = qvi::kNoValue;
    else if (x >= 0) out[i] = SatWC_;
    else if (-x >= SuctionLimit_) out[i] = 0.0;
    else {
      const double s = -x;
      const double c = 1.0 - std::log1p(s / r) / denominator;
      out[i] = SatWC_ * c * std::pow(1.0 / std::log(kE + std::pow(s / A_, N_)), M_);
    }
  }
}

void FnFredXing::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrA(A_));
  attrs.push_back(FnAttrN(N_));
  attrs.push_back(FnAttrM(M_));
  attrs.push_back(FnAttrSatWC(SatWC_));
  attrs.push_back(FnAttrSuctionLimit(SuctionLimit_));
}

}  // namespace v7
