#pragma once
// Leaf-area index of grass against day ("FnEstLAI") over "NumYears" growing
// seasons from day "FirstDaySeason" to day "LastDaySeason" of each year.
//
// The peak index is that of clipped grass of height h, LAI = 24 h (Allen,
// Pereira, Raes and Smith, 1998, FAO Irrigation and Drainage Paper 56,
// chapter 2, for the reference grass), with h by grass quality: "Poor"
// 0.05 m (LAI 1.2), "Good" 0.12 m (2.88, the reference crop), "Excellent"
// 0.15 m (3.6, the upper end of the relation's range). Over a season the
// index follows the shape of the crop-coefficient curve of the same paper
// (its crop-coefficient curve): a straight rise over the first quarter of the season, the
// peak through the middle half, a straight fall over the last quarter (the
// stage lengths are this system's choice), and 0 outside the season.
//
// The input is the day counted from day 1 of the first year (day d of year
// y, from 0, is d + 365 y). Each year's table holds day 1, "NumPoints" days
// spread evenly over the season, the two ends of the peak, and day 365.
#include <cstdint>

#include "V7Doc/functions/FnEstCurve.h"

namespace v7 {

struct FnEstLAIType {
  enum eGrassQuality : std::int32_t { Poor = 0, Good = 1, Excellent = 2 };
};

class FnEstLAI : public FnEstCurve {
 public:
  FnEstLAI();
  static const wchar_t* TypeName() { return L"FnEstLAI"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstLAI(*this); }
  // The peak index of the grass quality.
  double PeakLAI() const;

 protected:
  gtl::status Check() const override;
  std::vector<double> Abscissae() const override;
  double Estimate(double day) const override;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstLAIType::eGrassQuality>();
