#pragma once
// Shear strength against normal stress of a rock mass ("FnEstShearNormal"),
// from the generalised Hoek-Brown criterion (Hoek, Carranza-Torres and
// Corkum, 2002, eqs. 1-4):
//   s1 = s3 + sci (mb s3 / sci + s)^a,
//   mb = mi exp((GSI - 100) / (28 - 14 D)),  s = exp((GSI - 100) / (9 - 3 D)),
//   a  = 1/2 + (exp(-GSI / 15) - exp(-20 / 3)) / 6,
// and the normal and shear stresses on the failure plane by Balmer's (1952)
// relations (as Hoek et al., 2002, give them):
//   sn  = (s1 + s3)/2 - (s1 - s3)/2 (ds1/ds3 - 1) / (ds1/ds3 + 1),
//   tau = (s1 - s3) sqrt(ds1/ds3) / (ds1/ds3 + 1),
//   ds1/ds3 = 1 + a mb (mb s3 / sci + s)^(a - 1).
//
// Data attributes: "IntactRockParam" mi (10 by default, above 0),
// "GeologicalStrength" GSI (0 to 100, 50 by default), "DisturbanceFactor" D
// (0 to 1, 0 by default), "SigmaC" sci (uniaxial compressive strength of the
// intact rock, above 0; 50000, i.e. 50 MPa in a metric document),
// "Sigma3" (the largest minor principal stress of the envelope, above 0;
// 5000 by default), "NumPoints" (20 by default).
// Stresses are in the document's pressure unit, compression positive.
// The table holds "NumPoints" minor principal stresses from the tensile
// strength st = -s sci / mb (where tau = 0) to "Sigma3", spaced as the
// square of an even step (denser near st, where the envelope bends most);
// the input is sn, the output tau, interpolated linearly; beyond the ends
// the end values hold.
#include "V7Doc/functions/FnEstCurve.h"

namespace v7 {

// The criterion's constants for given mi, GSI and D.
struct HoekBrown {
  double mb = 0, s = 0, a = 0.5, sci = 0;
  HoekBrown(double mi, double gsi, double d, double sigmaC);
  // (sn, tau) on the failure plane at the minor principal stress s3.
  void NormalShear(double s3, double& sn, double& tau) const;
  // The biaxial tensile strength -s sci / mb.
  double TensileStrength() const { return -s * sci / mb; }
};

class FnEstShearNormal : public FnEstCurve {
 public:
  FnEstShearNormal();
  static const wchar_t* TypeName() { return L"FnEstShearNormal"; }
  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnEstShearNormal(*this); }

 protected:
  gtl::status Tabulate(std::vector<double>& xs, std::vector<double>& ys) const override;
};

}  // namespace v7
