#include "OC/Schema.h"
#include "V7Doc/results/CurrentSlipSurface.h"

namespace oc {

template <>
const RecordType& TypeOf<v7::result::CurrentSlipSurface>() {
  using T = v7::result::CurrentSlipSurface;
  const auto kProbability = meta::MetaDataTraits{}.Bounds(0, 1);
  static const RecordType& t = Schema<T>(L"CurrentSlipSurface")
      .Add(&T::fFOS_, L"fFOS_", L"SlipFOS")
      .Add(&T::fVolume_, L"fVolume_", L"SlipVolume", meta::MetaDataTraits{}.Units(L"m3"))
      .Add(&T::fMass_, L"fMass_", L"SlipMass", meta::MetaDataTraits{}.Units(L"kN"))
      .Add(&T::fResistingMoment_, L"fResistingMoment_", L"SlipResistingMoment", meta::MetaDataTraits{}.Units(L"kN m"))
      .Add(&T::fActivatingMoment_, L"fActivatingMoment_", L"SlipActivatingMoment", meta::MetaDataTraits{}.Units(L"kN m"))
      .Add(&T::fResistingForce_, L"fResistingForce_", L"SlipResistingForce", meta::MetaDataTraits{}.Units(L"kN"))
      .Add(&T::fActivatingForce_, L"fActivatingForce_", L"SlipActivatingForce", meta::MetaDataTraits{}.Units(L"kN"))
      .Add(&T::fFOSMean_, L"fFOSMean_", L"SlipFOSMean")
      .Add(&T::fFOSStdDev_, L"fFOSStdDev_", L"SlipFOSStdDev")
      .Add(&T::fReliabilityIndex_, L"fReliabilityIndex_", L"SlipReliabilityIndex")
      .Add(&T::fProbOfFailure_, L"fProbOfFailure_", L"SlipProbOfFailure", kProbability)
      .Add(&T::fFOSMin_, L"fFOSMin_", L"SlipFOSMin")
      .Add(&T::fFOSMax_, L"fFOSMax_", L"SlipFOSMax")
      .Done();
  return t;
}

}  // namespace oc
