#include "V7Doc/functions/FnVanG.h"

#include <cmath>

#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {
const FnKindRegistrar kVanG(FnVanG::TypeName(), &CreateFn<FnVanG>);
bool Set(double v) { return !qvi::IsNoValue(v); }
}  // namespace

FnVanG::FnVanG(double a, double n, double satWC, double resWC) : ResWC_(resWC) {
  A_ = a;
  N_ = n;
  SatWC_ = satWC;
  DeriveM();
}

void FnVanG::DeriveM() {
  // Mualem (1976): m = 1 - 1/n. N = 0 leaves no M (1/0).
  M_ = Set(N_) && N_ != 0 ? 1.0 - 1.0 / N_ : qvi::kNoValue;
}

gtl::status FnVanG::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    if (a.Name == L"ResWC")
      ReadBounded(a, ResWC_, s, 0.0, 1.0);
    else
      ReadShared(a, s, 1.0);
  }
  // M always follows N, after the loop: an "M" given is read and replaced,
  // so that the text written (which has no "M") reads back to the same
  // function, also when "N" is unset.
  DeriveM();
  return s;
}

double FnVanG::Calculate(const double* x, const double*) const {
  if (!Set(A_) || !Set(N_) || !Set(M_) || !Set(SatWC_) || !Set(ResWC_)) return qvi::kNoValue;
  if (!x || std::isnan(*x)) return qvi::kNoValue;
  // A non-positive air-entry value has no suction to desaturate from (as in
  // the Fredlund-Xing form), and would make the power undefined.
  if (*x >= 0 || A_ <= 0) return SatWC_;
  return ResWC_ + (SatWC_ - ResWC_) * std::pow(1.0 / (std::pow(std::abs(*x) / A_, N_) + 1.0), M_);
}

void FnVanG::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrA(A_));
  attrs.push_back(FnAttrN(N_));
  attrs.push_back(FnAttrSatWC(SatWC_));
  attrs.push_back(FnAttrResWC(ResWC_));
  attrs.push_back(FnAttrSuctionLimit(SuctionLimit_));
}

void FnVanG::GetCalcAttributes(std::vector<FnAttr>& attrs) const { attrs.push_back(FnAttrM(M_)); }

bool FnVanG::IsValid() const {
  return Set(A_) && Set(N_) && Set(M_) && Set(SatWC_) && A_ > 0 && N_ > 1 && M_ > 0 && SatWC_ > 0;
}

}  // namespace v7
