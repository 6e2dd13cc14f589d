#pragma once
// Thermal estimates: conductivity against temperature
// ("FnEstThermalKvsTemp") and against water content ("FnEstThermalKvsVolWC"),
// unfrozen water content against temperature ("FnEstUnfrozenWC"), and
// volumetric specific heat against water content ("FnEstVolSpecHeat").
//
// Units: temperature in degrees C, conductivity in W/(m K), heat capacity
// in J/(m^3 K), mass specific heat in J/(kg K), water contents as volume
// fractions. Water: density 1000 kg/m^3; specific gravity of solids 2.65.
//
// Unfrozen water (Anderson and Tice, 1972): the gravimetric unfrozen
// water content at theta degrees below freezing,
//   ln wu = 0.2618 + 0.5519 ln S - 1.449 S^-0.264 ln theta   (wu in %),
// S the specific surface in m^2/g. The members stand for: sands 0.1, silts
// 10 (this system's representative values for soils with little clay),
// "LowPlasticDensity..." 15 (kaolinitic), "ClayDensity..." 80 (illitic),
// "HighPlastic" 750 (montmorillonitic), within the ranges of Mitchell (1976)
// for those minerals. The volumetric content is wu rho_d / rho_w, never
// above the porosity 1 - rho_d / (2.65 rho_w) (all water unfrozen at and
// above 0 C). The temperature tables hold 89 temperatures from -20 C to
// +2 C, 0.25 C apart.
//
// FnEstThermalKvsTemp ("TCFrozen", "TCUnfrozen", "SampleMatlThermalKvsTemp"):
// the unfrozen and frozen conductivities of the saturated soil from
// Kersten's (1949) equations (as given by Farouki, 1981; w in
// % by dry mass, rho_d in lb/ft^3, k in BTU in/(ft^2 h F), 1 = 0.1442279
// W/(m K)):
//   silt-clay unfrozen  k = (0.9 log10 w - 0.2) 10^(0.01 rho_d),
//   silt-clay frozen    k = 0.01 10^(0.022 rho_d) + 0.085 10^(0.008 rho_d) w,
//   sand unfrozen       k = (0.7 log10 w + 0.4) 10^(0.01 rho_d),
//   sand frozen         k = 0.076 10^(0.013 rho_d) + 0.032 10^(0.0146 rho_d) w,
// at the saturated water content w = 100 (rho_w / rho_d - 1 / 2.65);
// "TCUnfrozen" and "TCFrozen", when set, replace them. Below 0 C the
// conductivity moves from the unfrozen towards the frozen value with the
// share of water frozen (this system's rule): k = kf + (ku - kf) Fu, Fu the
// unfrozen share of the pore water by Anderson and Tice.
//
// FnEstUnfrozenWC ("SampleMatlUnfrozenWC"): the volumetric unfrozen water
// content above.
//
// FnEstThermalKvsVolWC ("VolWCFnNum", "MineralThermalK", "Max", "Min",
// "NumPoints"): Johansen (1975), as given by Farouki (1981):
//   k = (ksat - kdry) Ke + kdry,
//   kdry = (0.135 rho_d + 64.7) / (2700 - 0.947 rho_d)   (rho_d in kg/m^3),
//   ksat = ks^(1-n) kw^n, kw = 0.57 W/(m K), ks = "MineralThermalK",
//   Ke = max(0, 0.7 log10 Sr + 1) (Johansen's rule for coarse unfrozen
//   soils), Sr = theta / n,
// with the porosity n the saturated water content of the function numbered
// "VolWCFnNum" (its value at a pore-water pressure of 0) and
// rho_d = 2700 (1 - n). The table holds "NumPoints" water contents evenly
// from "Min" (0 by default) to "Max" (by default, when unset, n). kdry <= k
// <= ksat.
//
// FnEstVolSpecHeat ("VolWCFnNum", "MassSpecHeat", "Max", "Min", "NumPoints"):
// de Vries (1963): C = sum of x_i C_i over the constituents, here
//   C = (1 - n) 2650 c_s + theta 4.18e6  (air neglected, as de Vries does),
// c_s = "MassSpecHeat" (800 by default), over the same water contents.
#include <cstdint>

#include "V7Doc/functions/FnEstCurve.h"
#include "V7Doc/functions/FnEstSampleMatl.h"

namespace v7 {

#define V7_MEMBER(m) m = static_cast<std::int32_t>(FnEstSample::m)
// The twelve soils of Kersten's tables, which both enumerations offer.
#define V7_KERSTEN_MEMBERS                                                             \
  V7_MEMBER(SandDensity150), V7_MEMBER(SandDensity145), V7_MEMBER(SandDensity140),     \
      V7_MEMBER(SandDensity135), V7_MEMBER(SiltDensity135), V7_MEMBER(SiltDensity130), \
      V7_MEMBER(SiltDensity125), V7_MEMBER(SiltDensity120), V7_MEMBER(ClayDensity135), \
      V7_MEMBER(ClayDensity130), V7_MEMBER(ClayDensity125), V7_MEMBER(ClayDensity120)

struct FnEstThermalKvsTempType {
  enum eSampleMatl : std::int32_t { V7_KERSTEN_MEMBERS };
};

struct FnEstUnfrozenWCType {
  enum eSampleMatl : std::int32_t {
    V7_KERSTEN_MEMBERS,
    V7_MEMBER(LowPlasticDensity135),
    V7_MEMBER(LowPlasticDensity130),
    V7_MEMBER(LowPlasticDensity125),
    V7_MEMBER(LowPlasticDensity120),
    V7_MEMBER(HighPlastic),
  };
};
#undef V7_KERSTEN_MEMBERS
#undef V7_MEMBER

// Unfrozen volumetric water content of a sample soil at a temperature (C).
double UnfrozenWaterContent(FnEstSample m, double celsius);
// Porosity of a sample soil from its dry density.
double SamplePorosity(FnEstSample m);
// Kersten's conductivities (W/(m K)) of a saturated sample soil.
void KerstenConductivity(FnEstSample m, double& unfrozen, double& frozen);

class FnEstThermalKvsTemp : public FnEstCurve {
 public:
  FnEstThermalKvsTemp();
  static const wchar_t* TypeName() { return L"FnEstThermalKvsTemp"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstThermalKvsTemp(*this); }

 protected:
  std::vector<double> Abscissae() const override;
  double Estimate(double x) const override;
};

class FnEstUnfrozenWC : public FnEstCurve {
 public:
  FnEstUnfrozenWC();
  static const wchar_t* TypeName() { return L"FnEstUnfrozenWC"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstUnfrozenWC(*this); }

 protected:
  std::vector<double> Abscissae() const override;
  double Estimate(double x) const override;
};

// What the two kinds over water content share: the porosity of the named
// water-content function and the water-content axis.
class FnEstOverWaterContent : public FnEstCurve {
 protected:
  using FnEstCurve::FnEstCurve;
  gtl::status Check() const override;
  std::vector<double> Abscissae() const override;
  mutable double porosity_ = 0;  // from the water-content function, found by Check
};

class FnEstThermalKvsVolWC : public FnEstOverWaterContent {
 public:
  FnEstThermalKvsVolWC();
  static const wchar_t* TypeName() { return L"FnEstThermalKvsVolWC"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstThermalKvsVolWC(*this); }

 protected:
  double Estimate(double x) const override;
};

class FnEstVolSpecHeat : public FnEstOverWaterContent {
 public:
  FnEstVolSpecHeat();
  static const wchar_t* TypeName() { return L"FnEstVolSpecHeat"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstVolSpecHeat(*this); }

 protected:
  double Estimate(double x) const override;
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstThermalKvsTempType::eSampleMatl>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstUnfrozenWCType::eSampleMatl>();
