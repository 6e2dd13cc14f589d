#pragma once
// Volumetric water content against pore-water pressure, van Genuchten (1980),
// Soil Sci. Soc. Am. J. 44:892-898, with Mualem's restriction M = 1 - 1/N:
//
//   theta(s) = ResWC + (SatWC - ResWC) [1 / ((s/A)^N + 1)]^M,
//
// for the suction s = -x (A is the reciprocal of van Genuchten's alpha, a
// pressure). The suction limit is kept but takes no part.
#include "V7Doc/functions/FnFredXing.h"

namespace v7 {

class FnVanG : public FnFredXing {
 public:
  static const wchar_t* TypeName() { return L"Van_Genuchten"; }

  FnVanG() = default;
  // A, N, saturated and residual water content; M follows from N.
  FnVanG(double a, double n, double satWC, double resWC);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnVanG(*this); }
  // Reads "A", "N", "SatWC" (at most 1.0), "ResWC", "SuctionLimit"; an "M"
  // is read but always replaced by the value derived from "N" (none while
  // "N" is unset).
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double* x, const double* y) const override;
  // Point by point through Calculate (not the Fredlund-Xing loop).
  void Evaluate(std::span<const double> in, std::span<double> out) const override {
    FnImpl::Evaluate(in, out);
  }
  // "A", "N", "SatWC", "ResWC", "SuctionLimit".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // "M", derived from "N".
  void GetCalcAttributes(std::vector<FnAttr>& attrs) const override;
  // A > 0, N > 1, M > 0 and a saturated water content above zero.
  bool IsValid() const override;

  // Residual volumetric water content.
  double ResWC() const { return ResWC_; }

 private:
  void DeriveM();
  double ResWC_ = qvi::kNoValue;
};

}  // namespace v7
