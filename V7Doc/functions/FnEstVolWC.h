#pragma once
// Volumetric water content estimated from soil data ("FnEstVolWC").
//
// "GrainSize": the modified Kovacs model of Aubertin, Mbonimpa, Bussiere and
// Chapuis (2003), Can. Geotech. J. 40:1104-1122. The degree of saturation is
//   Sr = Sc + Sa* (1 - Sc),
//   Sc = 1 - [(hco/psi)^2 + 1]^m exp(-m (hco/psi)^2)          (capillarity)
//   Sa = ac C(psi) (hco/psin)^(2/3) / (e^(1/3) (psi/psin)^(1/6)),
//   Sa* = min(Sa, 1)                                           (adhesion)
//   C(psi) = 1 - ln(1 + psi/psir) / ln(1 + psi0/psir),
// with psi in cm of water, psin = 1 cm, psi0 = 1e7 cm, the void ratio
// e = n / (1 - n) from the porosity n = "SatWC", and theta = n Sr.
//  - With a liquid limit above zero the soil is taken as plastic:
//    hco = (xi / e) wL^1.45 (xi = 402.2, wL in %), m = 3e-5, ac = 7e-4,
//    psir = 0.86 (xi / e)^1.2 wL^1.74.
//  - Otherwise it is granular, from D10 and D60 in mm: Cu = D60 / D10,
//    hco = b / (e D10) with b = 0.75 / (1.17 log10(Cu) + 1) cm^2 (D10 in cm),
//    m = 1 / Cu, ac = 0.01, psir = 0.86 hco^1.2.
//
// "SampleMatls": the stored curve of a sample material, scaled to "SatWC"
// when that is above zero. The curves come from a source that the document
// can replace (SetSampleVolWCCurveSource); the built-in source holds the
// van Genuchten sets of Carsel and Parrish (1988), Water Resour. Res.
// 24:755-769, for the textures closest to each sample material.
#include <cstdint>

#include "V7Doc/functions/FnEstBase.h"

namespace v7 {

struct FnEstVolWCType {
  // How the water content is estimated.
  enum eEstMethod : std::int32_t { GrainSize = 0, SampleMatls = 1 };
  // The sample materials with a stored water-content curve.
  enum eSampleMatl : std::int32_t { Clay = 0, SiltyClay = 1, Silt = 2, SiltySand = 3, Sand = 4, Rock = 5 };
};

// Supplies the stored water-content curve of a sample material (input:
// pore-water pressure in the current document's units); the undefined
// function when there is none.
using SampleVolWCCurveSource = IFn (*)(FnEstVolWCType::eSampleMatl matl);
// Replaces the source of sample curves; null restores the built-in one.
void SetSampleVolWCCurveSource(SampleVolWCCurveSource source);
// The built-in curves (Carsel and Parrish, 1988); none for "Rock".
IFn BuiltInSampleVolWCCurve(FnEstVolWCType::eSampleMatl matl);

class FnEstVolWC : public FnEstBase {
 public:
  static const wchar_t* TypeName() { return L"FnEstVolWC"; }

  std::wstring Name() const override { return TypeName(); }
  std::wstring OutputQuantity() const override { return L"Volumetric water content"; }
  FnImpl* Clone() const override { return new FnEstVolWC(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // "VolWCEstMethod", "SampleMatlVolWC", "SatWC", "LiqLimit", "D10", "D60",
  // "Max", "Min", "NumPoints".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

  FnEstVolWCType::eEstMethod Method() const { return eMethod_; }
  FnEstVolWCType::eSampleMatl SampleMatl() const { return eSampleMatl_; }

 protected:
  gtl::status Generate(const std::vector<double>& suctions, std::vector<double>& values) const override;

 private:
  gtl::status GenerateGrainSize(const std::vector<double>& suctions, std::vector<double>& values) const;
  gtl::status GenerateSample(const std::vector<double>& suctions, std::vector<double>& values) const;

  FnEstVolWCType::eEstMethod eMethod_ = FnEstVolWCType::SampleMatls;
  FnEstVolWCType::eSampleMatl eSampleMatl_ = FnEstVolWCType::Clay;
  double satWC_ = 0;
  double liqLimit_ = 0;
  double d10_ = 0;
  double d60_ = 0;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstVolWCType::eEstMethod>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstVolWCType::eSampleMatl>();
