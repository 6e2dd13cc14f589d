#pragma once
// Air conductivity against suction ("FnEstAirK"), from the water-content
// function numbered "VolWCFnNum" and the conductivity of the dry soil
// "AirKDry" (in the unit the user keeps conductivities in).
//
// Brooks and Corey (1964) (the relative permeability of the
// non-wetting phase, Burdine's integral on their power-law curve):
//   ka = AirKDry (1 - Se)^2 (1 - Se^((2 + lambda) / lambda)),
// with the effective saturation Se = theta / theta_s (the residual water
// content taken as 0) and theta_s the function's value at a pore-water
// pressure of 0. The pore-size index lambda is read off the function itself
// as the log-log slope of Se between the suctions where Se is 1/2 and 1/4:
// lambda = ln 2 / ln(psi_1/4 / psi_1/2), which is exact for a curve of
// Brooks and Corey's form Se = (psi_b / psi)^lambda.
//
// The table holds 57 suctions spaced evenly in log10 (seven per decade) from
// 0.01 kPa to the suction limit of the unit system (1e6 kPa); the input is
// the pore-water pressure, as for the soil-water functions.
#include "V7Doc/functions/FnEstCurve.h"

namespace v7 {

class FnEstAirK : public FnEstCurve {
 public:
  FnEstAirK();
  static const wchar_t* TypeName() { return L"FnEstAirK"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstAirK(*this); }
  // The pore-size index found at the last update (qvi::kNoValue before).
  double Lambda() const { return lambda_; }

 protected:
  bool SuctionInput() const override { return true; }
  bool LogInput() const override { return true; }
  gtl::status Check() const override;
  std::vector<double> Abscissae() const override;
  double Estimate(double suction) const override;

 private:
  mutable IFn wc_;  // the water-content function, found by Check
  mutable double thetaS_ = 0;
  mutable double lambda_ = qvi::kNoValue;
};

}  // namespace v7
