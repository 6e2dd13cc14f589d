#include "V7Doc/materials/MATL.h"

#include <cmath>
#include <numbers>

#include "QVI/qvi/Markers.h"

namespace v7 {

const IFn& STRESS_PROPERTIES::fnStabPhi(StabMatlModel owner) const {
  if (owner == StabMatlModel::UndrainedPhiZero) return IFn::FnZero();
  return fnStabPhi_;
}

// The selection rule of nFnNum, on a record of either constness.
template <class M>
auto& MATL::SelectFnNum(M& m, Selector which) {
  auto& s = m.Stress();
  switch (m.StabModel()) {
    case StabMatlModel::ShearNormalFn:
      return which == 1 ? s.nStrengthFnNum() : s.nAFnNumShear();
    case StabMatlModel::AnisotropicFn:
      return which == 0 ? s.nAFnNumC() : s.nAFnNumPhi();
    case StabMatlModel::MohrCoulomb:
    case StabMatlModel::UndrainedPhiZero:
    case StabMatlModel::Bilinear:
    case StabMatlModel::SFnDepth:
    case StabMatlModel::SFnDatum:
    case StabMatlModel::CombinedSFnDepth:
    case StabMatlModel::CombinedSFnDatum:
    case StabMatlModel::SFnOverburden:
    case StabMatlModel::MohrCoulombSpatial:
      if (which == 0) return s.nAFnNumShear();
      break;
    default:
      break;
  }
  return m.nSpareFnNum_;
}

GID& MATL::nFnNum(Selector which) { return SelectFnNum(*this, which); }
const GID& MATL::nFnNum(Selector which) const { return SelectFnNum(*this, which); }

double& MATL::fCorrelationCoef(Selector which) {
  return which == 1 ? Stress_.fPhiPhi2Corr() : Stress_.fCPhiCorr();
}
const double& MATL::fCorrelationCoef(Selector which) const {
  return which == 1 ? Stress_.fPhiPhi2Corr() : Stress_.fCPhiCorr();
}

double MATL::fMu() const {
  const double phi = Stress_.fnPhiPrime()(qvi::kNoValue);
  // No friction angle, no coefficient.
  if (qvi::IsNoValue(phi)) return qvi::kNoValue;
  const double s = std::sin(phi * std::numbers::pi * (1.0 / 180.0));
  return 6.0 * s / (3.0 - s);
}

GID MATL::GetFnNumFromGGID(const GGID& ggid, unsigned) { return ggid.record; }

void MATL::Clear() {
  const GID id = nMatlNum_;
  *this = MATL();
  nMatlNum_ = id;
}

std::int32_t MATL::UndoEquality(const MATL& o) const {
  return sDescription_ == o.sDescription_ && crColor_ == o.crColor_ &&
         ShakeModel_ == o.ShakeModel_ && HydroModel_ == o.HydroModel_ &&
         DeformModel_ == o.DeformModel_ && StabModel_ == o.StabModel_ &&
         ThermoModel_ == o.ThermoModel_ && EvapoModel_ == o.EvapoModel_ &&
         external_ == o.external_ && Hydraulic_ == o.Hydraulic_ && Air_ == o.Air_ &&
         Thermal_ == o.Thermal_ && Contam_ == o.Contam_ && Gas_ == o.Gas_ && Stress_ == o.Stress_;
}

void MATL::UndoAssignment(const MATL& other) {
  const GID id = nMatlNum_;
  *this = other;
  nMatlNum_ = id;
  nSpareFnNum_ = 0;
}

std::int32_t MATL::UndoFreeMemory() {
  // The function objects are shared with the live row; dropping the copy's
  // references releases them once the row lets go too. Assigned from one
  // default set made once rather than from a new one each time: making
  // and dropping a set of handles per copy is what a history dropping many
  // copies would pay for most.
  static const STRESS_PROPERTIES kNone{};
  Stress_ = kNone;
  return 0;
}

}  // namespace v7
