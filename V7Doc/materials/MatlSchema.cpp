// Persistence declarations of the material record ("Materials[Material]").
#include "V7Doc/materials/MaterialsSchema.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<ExternalMatlModel>() {
  static const RecordType& t = Schema<ExternalMatlModel>(L"ExternalMatlModel")
                                   .Add(&ExternalMatlModel::Assembly_, L"Assembly", L"Assembly")
                                   .Add(&ExternalMatlModel::Name_, L"Name", L"Name")
                                   .Add(&ExternalMatlModel::Fields_, L"Fields", L"Fields")
                                   .Done();
  return t;
}

#define QV_F(T, m, tag) Add(&T::m##_, L## #m, tag)
// A function number: the number of a function in the list `list`.
#define QV_FNUM(T, m, tag, list) Add(&T::m##_, L## #m, tag, meta::MetaDataTraits{}.Ref(list))

template <>
const RecordType& TypeOf<HYDRAULIC_PROPERTIES>() {
  using T = HYDRAULIC_PROPERTIES;
  static const RecordType& t = Schema<T>(L"HYDRAULIC_PROPERTIES")
                                   .QV_FNUM(T, nHKFnNum, L"KFnNum", container::HydKFns)
                                   .QV_FNUM(T, nVolWCFnNum, L"VolWCFnNum", container::VolWCFns)
                                   .QV_F(T, dHKSat, L"KSat")
                                   .QV_F(T, dHKT, L"KTranspose")
                                   .QV_F(T, dHKN, L"KNormal")
                                   .QV_F(T, dSatVolWC, L"VolWC")
                                   .QV_F(T, dMV, L"Mv")
                                   .QV_F(T, fRatio, L"KRatio")
                                   .QV_F(T, fDirection, L"KDirection")
                                   .QV_F(T, bUseInitPWP, L"UseInitPWP")
                                   .QV_F(T, dInitPWP, L"InitPWP")
                                   .QV_F(T, dPWPLoadResponseRatio, L"PWPLoadResponseRatio")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<AIR_PROPERTIES>() {
  using T = AIR_PROPERTIES;
  static const RecordType& t = Schema<T>(L"AIR_PROPERTIES")
                                   .QV_FNUM(T, nAirKFnNum, L"AirKFnNum", container::AirKFns)
                                   .QV_F(T, dAirKDry, L"AirKDry")
                                   .QV_F(T, dInitAirPressure, L"InitAirPressure")
                                   .QV_F(T, bUseInitAirPressure, L"UseInitAirPressure")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<THERMAL_PROPERTIES>() {
  using T = THERMAL_PROPERTIES;
  static const RecordType& t = Schema<T>(L"THERMAL_PROPERTIES")
                                   .QV_FNUM(T, nTKFnNum, L"KFnNum", container::ThermKFns)
                                   .QV_FNUM(T, nTKTempFnNum, L"KFnTempNum", container::TempKTempFns)
                                   .QV_FNUM(T, nUWCFnNum, L"UnfrozenWCFnNum", container::UnfWCFns)
                                   .QV_FNUM(T, nVSHFnNum, L"VolSpecHeatFnNum", container::VSpecHeatFns)
                                   .QV_F(T, dTCFrozen, L"FrozenSpecHeat")
                                   .QV_F(T, dTCUnfrozen, L"UnfrozenSpecHeat")
                                   .QV_F(T, dTWaterContent, L"WaterContent")
                                   .QV_F(T, dTKFrozen, L"KFrozen")
                                   .QV_F(T, dTKUnfrozen, L"KUnfrozen")
                                   .QV_F(T, dTKConst, L"KConst")
                                   .QV_F(T, dInitTemp, L"InitTemp")
                                   .QV_F(T, bUseInitTemp, L"UseInitTemp")
                                   .Done();
  return t;
}

// The two initial-concentration flags are persisted under crossed names:
// the contaminant flag as "UseInitGasC", the gas flag as "UseInitTemp".
// Documents have always been written so; the names stay.
template <>
const RecordType& TypeOf<CONTAM_PROPERTIES>() {
  using T = CONTAM_PROPERTIES;
  static const RecordType& t = Schema<T>(L"CONTAM_PROPERTIES")
                                   .QV_FNUM(T, nAdsFnNum, L"AdsorpFnNum", container::AdsorpFns)
                                   .QV_FNUM(T, nDifFnNum, L"DiffusionFnNum", container::DiffFns)
                                   .QV_F(T, fLongitudinal, L"LongDisp")
                                   .QV_F(T, fTransverse, L"TransDisp")
                                   .QV_F(T, fDecay, L"Decay")
                                   .QV_F(T, fDensity, L"Density")
                                   .QV_F(T, dInitC, L"InitC")
                                   .QV_F(T, bUseInitC, L"UseInitGasC")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<GAS_PROPERTIES>() {
  using T = GAS_PROPERTIES;
  static const RecordType& t = Schema<T>(L"GAS_PROPERTIES")
                                   .QV_F(T, fGasDecay, L"Decay")
                                   .QV_F(T, effReactionRateCoef, L"EffReactionRateCoef")
                                   .QV_F(T, dInitGasC, L"InitC")
                                   .QV_F(T, bUseInitGasC, L"UseInitTemp")
                                   .Done();
  return t;
}

// A function member, persisted as its text.
#define QV_FN(m, tag) \
  Add(&T::FnText<&T::m##_>, &T::SetFnText<&T::m##_>, L## #m, tag)

template <>
const RecordType& TypeOf<STRESS_PROPERTIES>() {
  using T = STRESS_PROPERTIES;
  static const RecordType& t =
      Schema<T>(L"STRESS_PROPERTIES")
          .QV_F(T, ShakeStiffnessModel, L"ShakeStiffnessModel")
          .QV_F(T, ShakeDampingRatioModel, L"ShakeDampingRatioModel")
          .QV_F(T, DeformStiffnessModel, L"DeformStiffnessModel")
          .QV_F(T, DeformEffectiveStiffnessModel, L"DeformEffectiveStiffnessModel")
          .QV_F(T, DeformTotalCohesionModel, L"DeformTotalCohesionModel")
          .QV_F(T, StabSuctionModel, L"StabSuctionModel")
          .QV_F(T, StabWeightModel, L"StabWeightModel")
          .QV_F(T, StabCohesionModel, L"StabCohesionModel")
          .QV_F(T, StabPhiModel, L"StabPhiModel")
          .QV_F(T, bCohesionUseInitStress, L"CohesionUseInitStress")
          .QV_F(T, bEModulusUseInitStress, L"EModulusUseInitStress")
          .QV_F(T, bUnitWeightAboveWT, L"StabUseUnitWeightAboveWT")
          .Add(&T::bUseUnitWeightOfWaterForNoStrengthMatl_REMOVED_IN_V71,
               L"bUseUnitWeightOfWaterForNoStrengthMatl_REMOVED_IN_V71", L"UseUnitWeightOfWater",
               meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::Legacy))
          .QV_FNUM(T, nDPFnNum, L"DynSeedPWPFnNum", container::DynPWPFns)
          .QV_FNUM(T, nDGFnNum, L"DynGReductionFnNum", container::GRedFns)
          .QV_FNUM(T, nDDFnNum, L"DynDampingRatioFnNum", container::DampRatioFns)
          .QV_FNUM(T, nDPMFSFnNum, L"MFSPWPFnNum", container::MFSPWPFns)
          .QV_FNUM(T, nEPrimeModFnNum, L"EPrimeModulusFnNum", container::EModFns)
          .QV_FNUM(T, nEiModFnNum, L"EiModulusFnNum", container::EModFns)
          .QV_FNUM(T, nGmaxFnNum, L"GmaxFnNum", container::GmaxFns)
          .QV_FNUM(T, nKRedFnNum, L"KModFnNum", container::KRedFns)
          .QV_FNUM(T, nTotalEModFnNum, L"TotalEModulusFnNum", container::TotalEModFns)
          .QV_FNUM(T, nTotalCFnNum, L"TotalCFnNum", container::TotalCFns)
          .QV_FNUM(T, nStrengthFnNum, L"StrengthFnNum", container::StrengthFns)
          .QV_FNUM(T, nAFnNumShear, L"ShearAnisoFnNum", container::AnisoStrFns)
          .QV_FNUM(T, nWeightFnNum, L"WeightFnNum", container::WeightFns)
          .QV_FNUM(T, nWeight3DFnNum, L"WeightSpatialFnNum", container::Func3Ds)
          .QV_FNUM(T, nCohesionFnNum, L"CohesionFnNum", container::CohesionFns)
          .QV_FNUM(T, nCohesion3DFnNum, L"CohesionSpatialFnNum", container::Func3Ds)
          .QV_FNUM(T, nPhiFnNum, L"PhiFnNum", container::PhiFns)
          .QV_FNUM(T, nPhi3DFnNum, L"PhiSpatialFnNum", container::Func3Ds)
          .QV_FNUM(T, nAFnNumC, L"CAnisoFnNum", container::AnisoStrFns)
          .QV_FNUM(T, nAFnNumPhi, L"PhiAnisoFnNum", container::AnisoStrFns)
          .QV_FNUM(T, nKAlphaFnNum, L"KAlphaFnNum", container::KaCorrFns)
          .QV_FNUM(T, nKSigmaFnNum, L"KSigmaFnNum", container::KsCorrFns)
          .QV_FNUM(T, nCyclicNumFnNum, L"CyclicNumFnNum", container::CyclicFns)
          .QV_FNUM(T, nRecModulusFnNum, L"RecModulusFnNum", container::RecModulusFns)
          .QV_F(T, fnWeight, L"UnitWeight")
          .QV_F(T, fAirPressure, L"PoreAirPressure")
          .QV_F(T, fMinStrength, L"MinShansepStrength")
          .QV_F(T, bUseSteadyStateStrength, L"UseResidualStrength")
          .QV_F(T, fCPhiCorr, L"CPhiCorrCoef")
          .QV_F(T, fPhiPhi2Corr, L"PhiPhi2CorrCoef")
          .QV_FN(fnCohesion, L"Cohesion")
          .QV_FN(fnStabCohesion, L"StabCohesion")
          .QV_FN(fnCohesionPrime, L"CohesionPrime")
          .QV_FN(fnInterfaceCohesion, L"InterfaceCohesion")
          .QV_FN(fnInterfaceCohesionPrime, L"InterfaceCohesionPrime")
          .QV_FN(fnPhi, L"Phi")
          .QV_FN(fnStabPhi, L"StabPhi")
          .QV_FN(fnInterfacePhi, L"InterfacePhi")
          .QV_FN(fnInterfacePhiPrime, L"InterfacePhiPrime")
          .QV_FN(fnPhiPrime, L"PhiPrime")
          .QV_FN(fnDrawdownCohesion, L"DrawdownCohesion")
          .QV_FN(fnDrawdownPhi, L"DrawdownPhi")
          .QV_FN(fnSteadyStateStrength, L"SteadyStateStrength")
          .QV_FN(fnCollapseSurfaceAngle, L"CollapseSurfaceAngle")
          .QV_FN(fnDryWeight, L"DryWeight")
          .QV_FN(fnPhiB, L"UnsatPhiB")
          .QV_FN(fnBilinearPhi1, L"BilinearPhi1")
          .QV_FN(fnBilinearPhi2, L"BilinearPhi2")
          .QV_FN(fnBilinearNormal, L"BilinearNormal")
          .QV_FN(fnCTopOfLayer, L"CTopOfLayer")
          .QV_FN(fnCRateOfIncrease, L"CRateOfIncrease")
          .QV_FN(fnCMaxMin, L"CMaxMin")
          .QV_FN(fnCDatum, L"CDatum")
          .QV_FN(fnDatumElev, L"DatumElev")
          .QV_FN(fnCHorz, L"CHorz")
          .QV_FN(fnCVert, L"CVert")
          .QV_FN(fnPhiHorz, L"PhiHorz")
          .QV_FN(fnPhiVert, L"PhiVert")
          .QV_FN(fnCUTopOfLayer, L"CUTopOfLayer")
          .QV_FN(fnCURateOfIncrease, L"CURateOfIncrease")
          .QV_FN(fnCCURatio, L"CCURatio")
          .QV_FN(fnCUDatum, L"CUDatum")
          .QV_FN(fnTauSigmaRatio, L"TauSigmaRatio")
          .QV_F(T, fBodyLoad, L"GravityLoad")
          .QV_F(T, fEModulus, L"YoungsModulus")
          .QV_F(T, fEPrimeModulus, L"YoungsPrimeModulus")
          .QV_F(T, fEiModulus, L"YoungsiModulus")
          .QV_F(T, fPoisson, L"PoissonsRatio")
          .QV_F(T, bSpecifyInsituKo, L"SpecifyInsituKo")
          .QV_F(T, fInsituKo, L"InsituKo")
          .QV_F(T, fEffectivePoisson, L"EffectivePoissonsRatio")
          .QV_F(T, fEModulus1, L"EModulusXPrime")
          .QV_F(T, fEPrimeModulus1, L"EPrimeModulusXPrime")
          .QV_F(T, fPoisson1, L"PoissonsRatioXPrime")
          .QV_F(T, fEffectivePoisson1, L"EffectivePoissonsRatioXPrime")
          .QV_F(T, fEModulus2, L"EModulusYPrime")
          .QV_F(T, fEPrimeModulus2, L"EPrimeModulusYPrime")
          .QV_F(T, fPoisson2, L"PoissonsRatioYPrime")
          .QV_F(T, fEffectivePoisson2, L"EffectivePoissonsRatioYPrime")
          .QV_F(T, fGModulus2, L"ShearModulusXYPrime")
          .QV_F(T, fInterfaceGModulus, L"InterfaceGModulus")
          .QV_F(T, fInclinationAngle, L"InclinationAngle")
          .QV_F(T, fKload, L"Kload")
          .QV_F(T, fNExponent, L"NExponent")
          .QV_F(T, fKbulk, L"Kbulk")
          .QV_F(T, fMExponent, L"MExponent")
          .QV_F(T, fRf, L"Rf")
          .QV_F(T, fKur, L"Kur")
          .QV_F(T, fMinPRatio, L"MinPoissonsRatio")
          .QV_F(T, fS3min, L"MinS3")
          .QV_F(T, fEmin, L"MinEModulus")
          .QV_F(T, fDilation, L"DilationAngle")
          .QV_F(T, fCPeak, L"PeakC")
          .QV_F(T, fSofteningRate, L"SofteningRate")
          .QV_F(T, fOCRatio, L"OCRatio")
          .QV_F(T, fConsolLambda, L"ConsolLambda")
          .QV_F(T, fOCKappa, L"OCKappa")
          .QV_F(T, fInitVoidRatio, L"InitVoidRatio")
          .QV_F(T, fPreConsolRatio, L"PreConsolRatio")
          .QV_F(T, fKNormal, L"KNormal")
          .QV_F(T, fKShear, L"KShear")
          .QV_F(T, fMinStress, L"Min")
          .QV_F(T, fDampingRatio, L"DynDampingRatio")
          .QV_F(T, fGMax, L"Gmax")
          .QV_F(T, fGMin, L"DynGMin")
          .QV_F(T, fKG, L"DynKG")
          .QV_F(T, fMFS_Dmax, L"MaxDampingRatio")
          .QV_F(T, fMFS_K, L"MFS_K")
          .QV_F(T, fMFS_M, L"MFS_M")
          .QV_F(T, fMFS_N, L"MFS_N")
          .Done();
  return t;
}

template <>
const RecordType& TypeOf<MATL>() {
  using T = MATL;
  static const RecordType& t = Schema<T>(L"MATL")
                                   .QV_F(T, sDescription, L"Name")
                                   .QV_F(T, crColor, L"Color")
                                   .QV_F(T, ShakeModel, L"ShakeModel")
                                   .QV_F(T, HydroModel, L"HydroModel")
                                   .QV_F(T, DeformModel, L"DeformModel")
                                   .QV_F(T, StabModel, L"StabModel")
                                   .QV_F(T, ThermoModel, L"ThermoModel")
                                   .QV_F(T, EvapoModel, L"EvapoModel")
                                   .QV_F(T, external, L"External")
                                   .QV_F(T, Hydraulic, L"Hydraulic")
                                   .QV_F(T, Air, L"Air")
                                   .QV_F(T, Thermal, L"Thermal")
                                   .QV_F(T, Contam, L"Contaminant")
                                   .QV_F(T, Gas, L"Gas")
                                   .QV_F(T, Stress, L"StressStrain")
                                   .Done();
  return t;
}

}  // namespace oc
