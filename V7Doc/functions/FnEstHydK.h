#pragma once
// Hydraulic conductivity estimated from a water-content function of the
// document ("FnEstHydK"), function number "VolWCFnNum" of the list
// "VolWCFns" (container 14), whose input is the pore-water pressure.
//
// Both methods start from the water content tabulated at 50 suctions spaced
// evenly in log10 from "Min" to the suction limit of the unit system.
//
// "VanGenuchten" (van Genuchten, 1980, Soil Sci. Soc. Am. J. 44:892-898):
// the suction h_p halfway between the saturated and the residual water
// content, the slope S_p = |dtheta/dlog10 h| / (theta_s - theta_r) there,
// m from S_p by van Genuchten's fit (eq. 28), n = 1/(1-m),
// alpha = (2^(1/m) - 1)^(1-m) / h_p, and Mualem's relative conductivity
//   Kr = [1 - (alpha h)^(n-1) (1 + (alpha h)^n)^(-m)]^2 / (1 + (alpha h)^n)^(m/2).
// The halfway suction is found by halving the bracketing table interval in
// log10 suction until it is narrower than 1e-12 (at most 1000 halvings); the
// slope is a central difference in ln(suction) with a step of 1e-4, times
// ln 10 (truncation error about 2e-9 relative).
//
// "FredlundXing" (Fredlund, Xing and Huang, 1994, Can. Geotech. J.
// 31:533-546, eq. 22 with y = ln suction):
//   Kr(psi) = Int_{ln psi}^{b} (theta(e^y) - theta(psi)) e^-y theta'(e^y) dy
//           / Int_{ln psi_0}^{b} (theta(e^y) - theta_s) e^-y theta'(e^y) dy,
// with b = ln(limit) and the lower limit psi_0 = "Min" (below the air-entry
// value the integrand is nil, so any smaller lower limit gives the same).
// The quadrature is the midpoint rule of the paper on the 49 table
// intervals, theta' dy taken as the water-content step of the interval and
// theta and y at the interval's middle; the interval holding psi is cut at
// psi. theta_s is the table's first value, so that Kr(Min) = 1.
//
// The output points hold "HydKSat" x Kr at "NumPoints" suctions spaced
// evenly in log10 between "Min" and "Max", interpolated in log10 of both.
#include <cstdint>

#include "V7Doc/functions/FnEstBase.h"

namespace v7 {

struct FnEstHydKType {
  // How the conductivity is estimated.
  enum eEstMethod : std::int32_t { FredlundXing = 0, VanGenuchten = 1 };
};

// What the "VanGenuchten" method derived at its last update.
struct VanGenuchtenFit {
  double hp = qvi::kNoValue;     // suction halfway between saturated and residual
  double Sp = qvi::kNoValue;     // normalised slope per log10 cycle there
  double m = qvi::kNoValue;      // van Genuchten m
  double n = qvi::kNoValue;      // van Genuchten n = 1/(1-m)
  double alpha = qvi::kNoValue;  // van Genuchten alpha, 1/pressure
};

class FnEstHydK : public FnEstBase {
 public:
  static const wchar_t* TypeName() { return L"FnEstHydK"; }
  // Number of suctions of the water-content table.
  static constexpr int kTablePoints = 50;

  std::wstring Name() const override { return TypeName(); }
  std::wstring OutputQuantity() const override { return L"Hydraulic conductivity"; }
  FnImpl* Clone() const override { return new FnEstHydK(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // "VolWCFnNum", "HydKSat", "HydKEstMethod", "Max", "Min", "NumPoints", "ResWC".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

  FnEstHydKType::eEstMethod Method() const { return eMethod_; }
  std::uint32_t VolWCFnNum() const { return volWCFnNum_; }
  // The parameters found by the last "VanGenuchten" update.
  const VanGenuchtenFit& Fit() const { return fit_; }

 protected:
  gtl::status Generate(const std::vector<double>& suctions, std::vector<double>& values) const override;
  bool LogOutput() const override { return true; }

 private:
  std::uint32_t volWCFnNum_ = 0;
  double hydKSat_ = 0;
  FnEstHydKType::eEstMethod eMethod_ = FnEstHydKType::VanGenuchten;
  double resWC_ = 0;
  mutable VanGenuchtenFit fit_;  // a by-product of Generate, kept for review
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstHydKType::eEstMethod>();
