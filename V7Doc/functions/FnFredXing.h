#pragma once
// Volumetric water content against pore-water pressure, Fredlund and Xing
// (1994), Can. Geotech. J. 31:521-532:
//
//   theta(s) = SatWC C(s) [1 / ln(e + (s/A)^N)]^M,
//   C(s) = 1 - ln(1 + s/r) / ln(1 + limit/r),  r = 0.003 x limit,
//
// for the suction s = -x; zero and positive pressures are saturated.
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/FredXing.h"

namespace v7 {

class FnFredXing : public FnImpl, public math::fn::flow::FredXing {
 public:
  static const wchar_t* TypeName() { return L"Fredlund_Xing"; }
  // The residual suction as a fraction of the suction limit (fixed).
  static constexpr double kResidualFraction = 0.003;

  // Every parameter unset but the suction limit, which takes the current
  // document's unit system (SuctionLimitOfUnitSystem).
  FnFredXing();
  // A, N, M, saturated water content, suction limit.
  FnFredXing(double a, double n, double m, double satWC, double suctionLimit);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnFredXing(*this); }
  // Checks the Fredlund-Xing rule; error 21578 when it fails.
  gtl::status UpdateCalculatedValues() override;
  // Reads "A", "N", "M", "SatWC", "SuctionLimit".
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // The water content at pore-water pressure x[0].
  double Calculate(const double* x, const double* y) const override;
  // The same per point, with the checks and the correction's denominator
  // taken once per array.
  void Evaluate(std::span<const double> in, std::span<double> out) const override;
  // "A", "N", "M", "SatWC", "SuctionLimit".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // Whether the parameters make a usable curve: A, N, M, the saturated water
  // content and the suction limit set, and A, N, M and the saturated water
  // content above zero.
  virtual bool IsValid() const;

 protected:
  // True when the Fredlund-Xing rule holds (shared by both closed forms).
  bool FredXingRuleHolds() const;
  // Reads one of the shared parameters; false when `a` is none of them.
  bool ReadShared(const FnAttr& a, gtl::status& s, double satWCMax);
};

}  // namespace v7
