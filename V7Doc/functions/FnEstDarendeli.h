#pragma once
// Modulus reduction ("FnEstGReduction") and damping ratio
// ("FnEstDampingRatio") against cyclic shear strain, from the model of
// Darendeli (2001), "Development of a new family of normalized modulus
// reduction and material damping curves", PhD thesis, Univ. of Texas at
// Austin, the modified hyperbolic model with its calibrated constants
// phi1 .. phi12 (0.0352, 0.0010, 0.3246, 0.3483, 0.9190, 0.8005, 0.0129,
// -0.1069, -0.2889, 0.2919, 0.6329, -0.0057):
//   gamma_r = (phi1 + phi2 PI OCR^phi3) s'0^phi4          (% strain, s'0 in atm)
//   G/Gmax  = 1 / (1 + (gamma / gamma_r)^a),  a = phi5
//   Dmin    = (phi6 + phi7 PI OCR^phi8) s'0^phi9 (1 + phi10 ln f)   (%)
//   D_Masing,a=1 = (100/pi) [4 (gamma - gamma_r ln((gamma + gamma_r)/gamma_r))
//                            / (gamma^2 / (gamma + gamma_r)) - 2]
//   D_Masing = c1 D_Masing,a=1 + c2 D_Masing,a=1^2 + c3 D_Masing,a=1^3,
//     c1 = -1.1143 a^2 + 1.8618 a + 0.2523, c2 = 0.0805 a^2 - 0.0710 a - 0.0095,
//     c3 = -0.0005 a^2 + 0.0002 a + 0.0003
//   D       = b (G/Gmax)^0.1 D_Masing + Dmin,  b = phi11 + phi12 ln N.
//
// Units and choices. The input is the cyclic shear strain as a ratio (1e-4
// is 0.01 %); the outputs are G/Gmax and the damping ratio as ratios (0.05
// is 5 %). "ConfiningStress" is the mean effective confining stress in the
// document's pressure unit (100 kPa by default); "PI" in %. The loading
// frequency f is 1 Hz and the number of cycles N is 10, the reference
// conditions of the model. The tables hold strains spaced evenly in log10,
// ten per decade, from 1e-6 to 0.1 for G/Gmax (51 points) and to 0.01 for
// damping (41 points); beyond them the end values hold. Damping stops at 1 %
// because the model's damping turns down beyond a few per cent (the
// (G/Gmax)^0.1 factor overtakes the Masing term), outside the strains of
// the tests it was fitted to; holding the 1 % value keeps it non-decreasing.
//
// Data attributes: FnEstGReduction "PI", "ConfiningStress" (OCR 1, as the
// two attributes leave the overconsolidation out); FnEstDampingRatio "PI",
// "ConfiningStress", "OCR".
#include "V7Doc/functions/FnEstCurve.h"

namespace v7 {

// The model at one strain (ratio), with s'0 in atm; results as ratios.
struct DarendeliModel {
  double pi = 0, ocr = 1, sigmaAtm = 1, frequency = 1, cycles = 10;
  double ReferenceStrain() const;  // gamma_r as a ratio
  double GReduction(double strain) const;
  double Damping(double strain) const;
};

class FnEstDarendeliCurve : public FnEstCurve {
 protected:
  using FnEstCurve::FnEstCurve;
  bool LogInput() const override { return true; }
  // The model for the current attributes.
  DarendeliModel Model() const;
};

class FnEstGReduction : public FnEstDarendeliCurve {
 public:
  FnEstGReduction();
  static const wchar_t* TypeName() { return L"FnEstGReduction"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstGReduction(*this); }

 protected:
  std::vector<double> Abscissae() const override { return LogSpaced(1e-6, 0.1, 51); }
  double Estimate(double x) const override { return Model().GReduction(x); }
};

class FnEstDampingRatio : public FnEstDarendeliCurve {
 public:
  FnEstDampingRatio();
  static const wchar_t* TypeName() { return L"FnEstDampingRatio"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstDampingRatio(*this); }

 protected:
  std::vector<double> Abscissae() const override { return LogSpaced(1e-6, 0.01, 41); }
  double Estimate(double x) const override { return Model().Damping(x); }
};

}  // namespace v7
