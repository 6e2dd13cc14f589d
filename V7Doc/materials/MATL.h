#pragma once
// A material: for every analysis kind, the constitutive model it follows and
// the parameters of all the models side by side, so that one material serves
// stability, seepage, stress-deformation, dynamic, heat-transfer,
// contaminant, air-flow and soil-climate analyses unchanged.
//
// Varying parameters are held as function numbers (members ending in FnNum:
// one-based numbers into the document's function lists, 0 for none) or as
// function objects (IFn; a constant is a constant function).
#include <cstdint>
#include <string>

#include "QVI/gtl/status.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/materials/ExternalMatlModel.h"
#include "V7Doc/materials/MatlEnums.h"
#include "V7Doc/materials/RecordMembers.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// Unit weight of water, kN/m3, used where a material default needs it.
inline constexpr double kUnitWeightOfWater = 9.807;

// Seepage parameters ("Hydraulic").
struct HYDRAULIC_PROPERTIES {
  QV_MEMBER(GID, nHKFnNum, 0)
  QV_MEMBER(GID, nVolWCFnNum, 0)
  QV_MEMBER(double, dHKSat, 0.0)
  QV_MEMBER(double, dHKT, 0.0)
  QV_MEMBER(double, dHKN, 0.0)
  QV_MEMBER(double, dSatVolWC, 0.0)
  QV_MEMBER(double, dMV, 0.0)
  QV_MEMBER(double, fRatio, 1.0)  // isotropic unless the user says otherwise
  QV_MEMBER(double, fDirection, 0.0)
  QV_MEMBER_AS(bool, bUseInitPWP, UseInitPWP, false)
  QV_MEMBER(double, dInitPWP, 0.0)
  QV_MEMBER(double, dPWPLoadResponseRatio, 0.0)
  friend bool operator==(const HYDRAULIC_PROPERTIES&, const HYDRAULIC_PROPERTIES&) = default;
};

// Air-flow parameters ("Air").
struct AIR_PROPERTIES {
  QV_MEMBER(GID, nAirKFnNum, 0)
  QV_MEMBER(double, dAirKDry, 0.0)
  QV_MEMBER(double, dInitAirPressure, 0.0)
  QV_MEMBER_AS(bool, bUseInitAirPressure, UseInitAirPressure, false)
  friend bool operator==(const AIR_PROPERTIES&, const AIR_PROPERTIES&) = default;
};

// Heat-transfer parameters ("Thermal").
struct THERMAL_PROPERTIES {
  QV_MEMBER(GID, nTKFnNum, 0)
  QV_MEMBER(GID, nTKTempFnNum, 0)
  QV_MEMBER(GID, nUWCFnNum, 0)
  QV_MEMBER(GID, nVSHFnNum, 0)
  QV_MEMBER(double, dTCFrozen, 0.0)
  QV_MEMBER(double, dTCUnfrozen, 0.0)
  QV_MEMBER(double, dTWaterContent, 0.0)
  QV_MEMBER(double, dTKFrozen, 0.0)
  QV_MEMBER(double, dTKUnfrozen, 0.0)
  QV_MEMBER(double, dTKConst, 0.0)
  QV_MEMBER(double, dInitTemp, 0.0)
  QV_MEMBER_AS(bool, bUseInitTemp, UseInitTemp, false)
  friend bool operator==(const THERMAL_PROPERTIES&, const THERMAL_PROPERTIES&) = default;
};

// Contaminant-transport parameters ("Contaminant").
struct CONTAM_PROPERTIES {
  QV_MEMBER(GID, nAdsFnNum, 0)
  QV_MEMBER(GID, nDifFnNum, 0)
  QV_MEMBER(double, fLongitudinal, 0.0)
  QV_MEMBER(double, fTransverse, 0.0)
  QV_MEMBER(double, fDecay, 0.0)
  QV_MEMBER(double, fDensity, 0.0)
  QV_MEMBER(double, dInitC, 0.0)
  QV_MEMBER_AS(bool, bUseInitC, UseInitC, false)  // persisted as "UseInitGasC"
  friend bool operator==(const CONTAM_PROPERTIES&, const CONTAM_PROPERTIES&) = default;
};

// Gas-transfer parameters ("Gas").
struct GAS_PROPERTIES {
  QV_MEMBER(double, fGasDecay, 0.0)
  QV_MEMBER(double, effReactionRateCoef, 0.0)
  QV_MEMBER(double, dInitGasC, 0.0)
  QV_MEMBER_AS(bool, bUseInitGasC, UseInitGasC, false)  // persisted as "UseInitTemp"
  friend bool operator==(const GAS_PROPERTIES&, const GAS_PROPERTIES&) = default;
};

// Stress, strength, stiffness and dynamic parameters ("StressStrain").
struct STRESS_PROPERTIES {
  QV_FN_TEXT_ACCESS(STRESS_PROPERTIES)

  // Sub-model selectors.
  QV_MEMBER(MatlPropModel, ShakeStiffnessModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, ShakeDampingRatioModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, DeformStiffnessModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, DeformEffectiveStiffnessModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, DeformTotalCohesionModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, StabSuctionModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, StabWeightModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, StabCohesionModel, MatlPropModel::Constant)
  QV_MEMBER(MatlPropModel, StabPhiModel, MatlPropModel::Constant)

  QV_MEMBER_AS(bool, bCohesionUseInitStress, CohesionUseInitStress, false)
  QV_MEMBER_AS(bool, bEModulusUseInitStress, EModulusUseInitStress, false)
  QV_MEMBER_AS(bool, bUnitWeightAboveWT, UnitWeightAboveWT, false)
  // Read from documents written before 7.1 only; it means nothing now.
  bool bUseUnitWeightOfWaterForNoStrengthMatl_REMOVED_IN_V71 = false;

  // Function numbers.
  QV_MEMBER(GID, nDPFnNum, 0)
  QV_MEMBER(GID, nDGFnNum, 0)
  QV_MEMBER(GID, nDDFnNum, 0)
  QV_MEMBER(GID, nDPMFSFnNum, 0)
  QV_MEMBER(GID, nEPrimeModFnNum, 0)
  QV_MEMBER(GID, nEiModFnNum, 0)
  QV_MEMBER(GID, nGmaxFnNum, 0)
  QV_MEMBER(GID, nKRedFnNum, 0)
  QV_MEMBER(GID, nTotalEModFnNum, 0)
  QV_MEMBER(GID, nTotalCFnNum, 0)
  QV_MEMBER(GID, nStrengthFnNum, 0)
  QV_MEMBER(GID, nAFnNumShear, 0)
  QV_MEMBER(GID, nWeightFnNum, 0)
  QV_MEMBER(GID, nWeight3DFnNum, 0)
  QV_MEMBER(GID, nCohesionFnNum, 0)
  QV_MEMBER(GID, nCohesion3DFnNum, 0)
  QV_MEMBER(GID, nPhiFnNum, 0)
  QV_MEMBER(GID, nPhi3DFnNum, 0)
  QV_MEMBER(GID, nAFnNumC, 0)
  QV_MEMBER(GID, nAFnNumPhi, 0)
  QV_MEMBER(GID, nKAlphaFnNum, 0)
  QV_MEMBER(GID, nKSigmaFnNum, 0)
  QV_MEMBER(GID, nCyclicNumFnNum, 0)
  QV_MEMBER(GID, nRecModulusFnNum, 0)

  // Scalar strength parameters.
  QV_MEMBER(double, fnWeight, 20.0)  // kN/m3: a typical compacted soil
  QV_MEMBER(double, fAirPressure, 0.0)
  QV_MEMBER(double, fMinStrength, 0.0)
  QV_MEMBER_AS(std::int32_t, bUseSteadyStateStrength, UseSteadyStateStrength, 0)
  QV_MEMBER(double, fCPhiCorr, 0.0)
  QV_MEMBER(double, fPhiPhi2Corr, 0.0)

  // Strength quantities as functions.
  QV_MEMBER(IFn, fnCohesion, IFn())
  QV_MEMBER(IFn, fnStabCohesion, IFn())
  QV_MEMBER(IFn, fnCohesionPrime, IFn())
  QV_MEMBER(IFn, fnInterfaceCohesion, IFn())
  QV_MEMBER(IFn, fnInterfaceCohesionPrime, IFn())
  QV_MEMBER(IFn, fnPhi, IFn())
  // The stored stability friction angle; read it through fnStabPhi(model).
  QV_MEMBER_AS(IFn, fnStabPhi, fnStabPhiStored, IFn())
  QV_MEMBER(IFn, fnInterfacePhi, IFn())
  QV_MEMBER(IFn, fnInterfacePhiPrime, IFn())
  QV_MEMBER(IFn, fnPhiPrime, IFn())
  QV_MEMBER(IFn, fnDrawdownCohesion, IFn())
  QV_MEMBER(IFn, fnDrawdownPhi, IFn())
  QV_MEMBER(IFn, fnSteadyStateStrength, IFn())
  QV_MEMBER(IFn, fnCollapseSurfaceAngle, IFn())
  QV_MEMBER(IFn, fnDryWeight, IFn())
  QV_MEMBER(IFn, fnPhiB, IFn())
  QV_MEMBER(IFn, fnBilinearPhi1, IFn())
  QV_MEMBER(IFn, fnBilinearPhi2, IFn())
  QV_MEMBER(IFn, fnBilinearNormal, IFn())
  QV_MEMBER(IFn, fnCTopOfLayer, IFn())
  QV_MEMBER(IFn, fnCRateOfIncrease, IFn())
  QV_MEMBER(IFn, fnCMaxMin, IFn())
  QV_MEMBER(IFn, fnCDatum, IFn())
  QV_MEMBER(IFn, fnDatumElev, IFn())
  QV_MEMBER(IFn, fnCHorz, IFn())
  QV_MEMBER(IFn, fnCVert, IFn())
  QV_MEMBER(IFn, fnPhiHorz, IFn())
  QV_MEMBER(IFn, fnPhiVert, IFn())
  QV_MEMBER(IFn, fnCUTopOfLayer, IFn())
  QV_MEMBER(IFn, fnCURateOfIncrease, IFn())
  QV_MEMBER(IFn, fnCCURatio, IFn())
  QV_MEMBER(IFn, fnCUDatum, IFn())
  QV_MEMBER(IFn, fnTauSigmaRatio, IFn())

  // Stiffness and dynamic parameters. Defaults: a medium-stiff soil, and
  // the hyperbolic-model constants typical of Duncan and Chang (1970).
  QV_MEMBER(double, fBodyLoad, 0.0)
  QV_MEMBER(double, fEModulus, 0.0)
  QV_MEMBER(double, fEPrimeModulus, 0.0)
  QV_MEMBER(double, fEiModulus, 0.0)
  QV_MEMBER(double, fPoisson, 0.334)  // gives K0 = v / (1 - v) = 0.5
  QV_MEMBER_AS(bool, bSpecifyInsituKo, SpecifyInsituKo, false)
  QV_MEMBER(double, fInsituKo, 0.5)
  QV_MEMBER(double, fEffectivePoisson, 0.334)
  QV_MEMBER(double, fEModulus1, 0.0)
  QV_MEMBER(double, fEPrimeModulus1, 0.0)
  QV_MEMBER(double, fPoisson1, 0.334)
  QV_MEMBER(double, fEffectivePoisson1, 0.334)
  QV_MEMBER(double, fEModulus2, 0.0)
  QV_MEMBER(double, fEPrimeModulus2, 0.0)
  QV_MEMBER(double, fPoisson2, 0.334)
  QV_MEMBER(double, fEffectivePoisson2, 0.334)
  QV_MEMBER(double, fGModulus2, 0.0)
  QV_MEMBER(double, fInterfaceGModulus, 0.0)
  QV_MEMBER(double, fInclinationAngle, 0.0)
  QV_MEMBER(double, fKload, 0.0)
  QV_MEMBER(double, fNExponent, 0.5)
  QV_MEMBER(double, fKbulk, 0.0)
  QV_MEMBER(double, fMExponent, 0.5)
  QV_MEMBER(double, fRf, 0.9)
  QV_MEMBER(double, fKur, 0.0)
  QV_MEMBER(double, fMinPRatio, 0.0)
  QV_MEMBER(double, fS3min, 0.0)
  QV_MEMBER(double, fEmin, 0.0)
  QV_MEMBER(double, fDilation, 0.0)
  QV_MEMBER(double, fCPeak, 0.0)
  QV_MEMBER(double, fSofteningRate, 0.0)
  QV_MEMBER(double, fOCRatio, 1.0)  // normally consolidated
  QV_MEMBER(double, fConsolLambda, 0.0)
  QV_MEMBER(double, fOCKappa, 0.0)
  QV_MEMBER(double, fInitVoidRatio, 0.0)
  QV_MEMBER(double, fPreConsolRatio, 1.0)
  QV_MEMBER(double, fKNormal, 0.0)
  QV_MEMBER(double, fKShear, 0.0)
  QV_MEMBER_AS(double, fMinStress, min, 0.0)
  QV_MEMBER(double, fDampingRatio, 0.0)
  QV_MEMBER(double, fGMax, 0.0)
  QV_MEMBER(double, fGMin, 0.0)
  QV_MEMBER(double, fKG, 0.0)
  QV_MEMBER(double, fMFS_Dmax, 0.0)
  QV_MEMBER(double, fMFS_K, 0.0)
  QV_MEMBER(double, fMFS_M, 0.0)
  QV_MEMBER(double, fMFS_N, 0.0)

  // The stability friction angle of a material whose stability model is
  // `owner`: the shared zero function for "UndrainedPhiZero" (such a
  // material has no friction angle, whatever is stored), else the stored one.
  const IFn& fnStabPhi(StabMatlModel owner) const;

  friend bool operator==(const STRESS_PROPERTIES&, const STRESS_PROPERTIES&) = default;
};

class MATL {
 public:
  // Selects which function number nFnNum(which) addresses (see nFnNum).
  using Selector = std::int32_t;

  MATL() = default;

  // The material's identifier, written only through MatlIDPolicy.
  GID nMatlNum() const { return nMatlNum_; }
  QV_MEMBER(std::wstring, sDescription, std::wstring())
  QV_MEMBER(std::uint32_t, crColor, kDefaultColour)
  QV_MEMBER(ShakeMatlModel, ShakeModel, ShakeMatlModel::None)
  QV_MEMBER(HydroMatlModel, HydroModel, HydroMatlModel::None)
  QV_MEMBER(DeformMatlModel, DeformModel, DeformMatlModel::None)
  QV_MEMBER(StabMatlModel, StabModel, StabMatlModel::None)
  QV_MEMBER(ThermoMatlModel, ThermoModel, ThermoMatlModel::None)
  QV_MEMBER(EvapoMatlModel, EvapoModel, EvapoMatlModel::None)
  QV_MEMBER(ExternalMatlModel, external, ExternalMatlModel())

  QV_MEMBER(HYDRAULIC_PROPERTIES, Hydraulic, HYDRAULIC_PROPERTIES())
  QV_MEMBER(AIR_PROPERTIES, Air, AIR_PROPERTIES())
  QV_MEMBER(THERMAL_PROPERTIES, Thermal, THERMAL_PROPERTIES())
  QV_MEMBER(CONTAM_PROPERTIES, Contam, CONTAM_PROPERTIES())
  QV_MEMBER(GAS_PROPERTIES, Gas, GAS_PROPERTIES())
  QV_MEMBER(STRESS_PROPERTIES, Stress, STRESS_PROPERTIES())

  // The function number holding the strength function of the current
  // stability model; `which` picks one of two where the model has two.
  // Selections that address no property give the spare slot, which reads 0
  // and may be written harmlessly.
  GID& nFnNum(Selector which);
  const GID& nFnNum(Selector which) const;

  // The correlation coefficient between strength parameters of a
  // probabilistic analysis: 1 gives phi-phi2, anything else c-phi.
  double& fCorrelationCoef(Selector which);
  const double& fCorrelationCoef(Selector which) const;

  // The stability friction angle (zero for "UndrainedPhiZero").
  const IFn& fnStabPhi() const { return Stress_.fnStabPhi(StabModel_); }

  // The frictional coefficient of the effective friction angle phi' (the
  // far end of fnPhiPrime, degrees): M = 6 sin(phi') / (3 - sin(phi')), the
  // slope of the critical-state line in triaxial compression (Wood, 1990).
  // qvi::kNoValue when phi' has no value.
  double fMu() const;

  // The function number within its table: the record part of `ggid`.
  static GID GetFnNumFromGGID(const GGID& ggid, unsigned number = 0);

  // Resets to a new material's defaults (keeping the stored ID): every model
  // "None", no functions, sub-properties constant, unit weight 20 kN/m3,
  // Poisson's ratio 0.334, conductivity ratio 1, OCR 1, Rf 0.9.
  void Clear();

  // Equal for the purposes of undo: every persisted member, ignoring the
  // stored ID (an undo copy is compared with the row it came from, which may
  // have been renumbered) and the spare slot. Non-zero when equal.
  std::int32_t UndoEquality(const MATL& other) const;
  // Copies `other` for undo: every member but the stored ID.
  void UndoAssignment(const MATL& other);
  // Releases the function objects an undo copy holds. Returns 0.
  std::int32_t UndoFreeMemory();

  // Every member, the stored ID included; the spare slot is no member.
  friend bool operator==(const MATL& a, const MATL& b) {
    return a.nMatlNum_ == b.nMatlNum_ && a.UndoEquality(b) != 0;
  }

  // The colour of a new material: a mid grey (red in the low byte).
  static constexpr std::uint32_t kDefaultColour = 0x00C0C0C0;

 private:
  friend struct MatlIDPolicy;
  template <class M>
  static auto& SelectFnNum(M& m, Selector which);
  friend const oc::RecordType& oc::TypeOf<MATL>();
  GID nMatlNum_ = 0;
  // Belongs to no property: where nFnNum sends a selection that has none.
  GID nSpareFnNum_ = 0;
};

}  // namespace v7
