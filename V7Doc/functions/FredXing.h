#pragma once
// The parameter block of the closed-form soil-water characteristic curves
// (Fredlund and Xing, 1994; van Genuchten, 1980). Every value may be unset
// (qvi::kNoValue).
#include "QVI/qvi/Markers.h"

namespace math::fn::flow {

class FredXing {
 public:
  FredXing() = default;
  // A, N, M, saturated water content, suction limit.
  FredXing(double a, double n, double m, double satWC, double suctionLimit)
      : A_(a), N_(n), M_(m), SatWC_(satWC), SuctionLimit_(suctionLimit) {}

  // Air-entry parameter, a pressure.
  double A() const { return A_; }
  // Slope parameter.
  double N() const { return N_; }
  // Shape parameter.
  double M() const { return M_; }
  // Saturated volumetric water content.
  double SatWC() const { return SatWC_; }
  // The suction at which the water content reaches zero.
  double SuctionLimit() const { return SuctionLimit_; }

 protected:
  double A_ = qvi::kNoValue;
  double N_ = qvi::kNoValue;
  double M_ = qvi::kNoValue;
  double SatWC_ = qvi::kNoValue;
  double SuctionLimit_ = qvi::kNoValue;
};

}  // namespace math::fn::flow
