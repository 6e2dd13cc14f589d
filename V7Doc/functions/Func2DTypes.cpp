#include "V7Doc/functions/Func2DTypes.h"

namespace v7 {
namespace {

using LT = eFunc2DListType::eFunc2DListType;

// Row i is list type 11 + i; the row of 21 (no list) is empty.
constexpr eFunc2D_XYTypes kRows[41][5] = {
    {eXY_PWP_HydK, eXYNone},  // eHydK
    {eXY_Temp_ThermK, eXYNone},  // eTempKTemp
    {eXY_VolWC_Diffusion, eXYNone},  // eDiff
    {eXY_PWP_VolWC, eXYNone},  // eVolWC
    {eXY_Temp_UnfrozenWC, eXYNone},  // eUnfWC
    {eXY_Conc_Adsorption, eXYNone},  // eAdsorp
    {eXY_Normal_ShearStrength, eXYNone},  // eStrength
    {eXY_Time_TotalHead, eXY_Time_PressureHead, eXY_Time_WaterFlux, eXY_Time_WaterUnitFlux, eXYNone},  // eHydB
    {eXY_Time_Modifier, eXYNone},  // eHydMod
    {eXY_Time_Concentration, eXY_Time_MassFlux, eXYNone},  // eConcB
    {eXYNone},  // 21: no list
    {eXY_VolWC_ThermK, eXYNone},  // eThermK
    {eXY_VolWC_VolHeatCap, eXYNone},  // eVSpecHeat
    {eXY_Day_LAI, eXYNone},  // eLeafAI
    {eXY_Suction_LimitFactor, eXYNone},  // ePlantML
    {eXY_Day_RootDepth, eXYNone},  // eRootDepth
    {eXY_Time_Temperature, eXY_Time_ThermalFlux, eXYNone},  // eThermB
    {eXY_Time_Modifier, eXYNone},  // eThermMod
    {eXY_Time_GasConcentration, eXY_Time_GasFlux, eXYNone},  // eGasB
    {eXY_Time_Modifier, eXYNone},  // eGasMod
    {eXY_Time_Stress, eXY_Time_Displacement, eXY_Time_Force, eXYNone},  // eStressB
    {eXY_CyclicNumber_StressRatio, eXYNone},  // eCyclic
    {eXY_CyclicRatio_PWPRatio, eXYNone},  // eDynPWP
    {eXY_ShearStrain_GGMax, eXYNone},  // eGRed
    {eXY_ShearStrain_DampingRatio, eXYNone},  // eDampRatio
    {eXY_StressRatio_Kalpha, eXYNone},  // eKaCorr
    {eXY_Overburden_Ksigma, eXYNone},  // eKsCorr
    {eXY_PWP_ShearStrength, eXYNone},  // eMFSPWP
    {eXY_Inclination_Modifier, eXYNone},  // eAnisoStr
    {eXY_Value_Probability, eXYNone},  // eProb
    {eXY_Y_UnitWeight, eXYNone},  // eWeight
    {eXY_Y_Cohesion, eXYNone},  // eCohesion
    {eXY_Y_Phi, eXYNone},  // ePhi
    {eXY_Stress_EModulus, eXYNone},  // eEMod
    {eXY_Stress_Gmax, eXYNone},  // eGmax
    {eXY_Stress_KModifier, eXYNone},  // eKRed
    {eXY_Stress_TotalEModulus, eXYNone},  // eTotalEMod
    {eXY_Stress_TotalCohesion, eXYNone},  // eTotalC
    {eXY_Stress_RecModulus, eXYNone},  // eRecModulus
    {eXY_PWP_AirK, eXYNone},  // eAirK
    {eXY_Time_AirPressure, eXY_Time_AirFlux, eXYNone},  // eAirB
};

}  // namespace

eFunc2DListType::eFunc2DListType Func2DListTypeOf(std::uint32_t list) {
  if (list < 11 || list > 51 || list == 21) return eFunc2DListType::eUndefined;
  return static_cast<LT>(list);
}

const eFunc2D_XYTypes* Func2DXYTypesRow(eFunc2DListType::eFunc2DListType type) {
  static constexpr eFunc2D_XYTypes kEmpty[1] = {eXYNone};
  const auto t = static_cast<std::int64_t>(type);
  if (t < 11 || t > 51) return kEmpty;
  return kRows[t - 11];
}

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::eFunc2DListType::eFunc2DListType>() {
  namespace eFunc2DListType = v7::eFunc2DListType;
  static const meta::MetaEnumCommon table(L"eFunc2DListType", {
    {eFunc2DListType::eHydK, L"HydK"},
    {eFunc2DListType::eTempKTemp, L"TempKTemp"},
    {eFunc2DListType::eDiff, L"Diff"},
    {eFunc2DListType::eVolWC, L"VolWC"},
    {eFunc2DListType::eUnfWC, L"UnfWC"},
    {eFunc2DListType::eAdsorp, L"Adsorp"},
    {eFunc2DListType::eStrength, L"Strength"},
    {eFunc2DListType::eHydB, L"HydB"},
    {eFunc2DListType::eHydMod, L"HydMod"},
    {eFunc2DListType::eConcB, L"ConcB"},
    {eFunc2DListType::eThermK, L"ThermK"},
    {eFunc2DListType::eVSpecHeat, L"VSpecHeat"},
    {eFunc2DListType::eLeafAI, L"LeafAI"},
    {eFunc2DListType::ePlantML, L"PlantML"},
    {eFunc2DListType::eRootDepth, L"RootDepth"},
    {eFunc2DListType::eThermB, L"ThermB"},
    {eFunc2DListType::eThermMod, L"ThermMod"},
    {eFunc2DListType::eGasB, L"GasB"},
    {eFunc2DListType::eGasMod, L"GasMod"},
    {eFunc2DListType::eStressB, L"StressB"},
    {eFunc2DListType::eCyclic, L"Cyclic"},
    {eFunc2DListType::eDynPWP, L"DynPWP"},
    {eFunc2DListType::eGRed, L"GRed"},
    {eFunc2DListType::eDampRatio, L"DampRatio"},
    {eFunc2DListType::eKaCorr, L"KaCorr"},
    {eFunc2DListType::eKsCorr, L"KsCorr"},
    {eFunc2DListType::eMFSPWP, L"MFSPWP"},
    {eFunc2DListType::eAnisoStr, L"AnisoStr"},
    {eFunc2DListType::eProb, L"Prob"},
    {eFunc2DListType::eWeight, L"Weight"},
    {eFunc2DListType::eCohesion, L"Cohesion"},
    {eFunc2DListType::ePhi, L"Phi"},
    {eFunc2DListType::eEMod, L"EMod"},
    {eFunc2DListType::eGmax, L"Gmax"},
    {eFunc2DListType::eKRed, L"KRed"},
    {eFunc2DListType::eTotalEMod, L"TotalEMod"},
    {eFunc2DListType::eTotalC, L"TotalC"},
    {eFunc2DListType::eRecModulus, L"RecModulus"},
    {eFunc2DListType::eAirK, L"AirK"},
    {eFunc2DListType::eAirB, L"AirB"},
  });
  return table;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::eFunc2D_XYTypes>() {
  static const meta::MetaEnumCommon table(L"eFunc2D_XYTypes", {
    {v7::eXYNone, L"None"},
    {v7::eXY_PWP_HydK, L"PWP_HydK"},
    {v7::eXY_Temp_ThermK, L"Temp_ThermK"},
    {v7::eXY_VolWC_Diffusion, L"VolWC_Diffusion"},
    {v7::eXY_PWP_VolWC, L"PWP_VolWC"},
    {v7::eXY_Temp_UnfrozenWC, L"Temp_UnfrozenWC"},
    {v7::eXY_Conc_Adsorption, L"Conc_Adsorption"},
    {v7::eXY_Normal_ShearStrength, L"Normal_ShearStrength"},
    {v7::eXY_Time_TotalHead, L"Time_TotalHead"},
    {v7::eXY_Time_PressureHead, L"Time_PressureHead"},
    {v7::eXY_Time_WaterFlux, L"Time_WaterFlux"},
    {v7::eXY_Time_WaterUnitFlux, L"Time_WaterUnitFlux"},
    {v7::eXY_Time_Modifier, L"Time_Modifier"},
    {v7::eXY_Time_Concentration, L"Time_Concentration"},
    {v7::eXY_Time_MassFlux, L"Time_MassFlux"},
    {v7::eXY_VolWC_ThermK, L"VolWC_ThermK"},
    {v7::eXY_VolWC_VolHeatCap, L"VolWC_VolHeatCap"},
    {v7::eXY_Day_LAI, L"Day_LAI"},
    {v7::eXY_Suction_LimitFactor, L"Suction_LimitFactor"},
    {v7::eXY_Day_RootDepth, L"Day_RootDepth"},
    {v7::eXY_Time_Temperature, L"Time_Temperature"},
    {v7::eXY_Time_ThermalFlux, L"Time_ThermalFlux"},
    {v7::eXY_Time_GasConcentration, L"Time_GasConcentration"},
    {v7::eXY_Time_GasFlux, L"Time_GasFlux"},
    {v7::eXY_Time_Stress, L"Time_Stress"},
    {v7::eXY_Time_Displacement, L"Time_Displacement"},
    {v7::eXY_Time_Force, L"Time_Force"},
    {v7::eXY_CyclicNumber_StressRatio, L"CyclicNumber_StressRatio"},
    {v7::eXY_CyclicRatio_PWPRatio, L"CyclicRatio_PWPRatio"},
    {v7::eXY_ShearStrain_GGMax, L"ShearStrain_GGMax"},
    {v7::eXY_ShearStrain_DampingRatio, L"ShearStrain_DampingRatio"},
    {v7::eXY_StressRatio_Kalpha, L"StressRatio_Kalpha"},
    {v7::eXY_Overburden_Ksigma, L"Overburden_Ksigma"},
    {v7::eXY_PWP_ShearStrength, L"PWP_ShearStrength"},
    {v7::eXY_Inclination_Modifier, L"Inclination_Modifier"},
    {v7::eXY_Value_Probability, L"Value_Probability"},
    {v7::eXY_Y_UnitWeight, L"Y_UnitWeight"},
    {v7::eXY_Y_Cohesion, L"Y_Cohesion"},
    {v7::eXY_Y_Phi, L"Y_Phi"},
    {v7::eXY_Stress_EModulus, L"Stress_EModulus"},
    {v7::eXY_Stress_Gmax, L"Stress_Gmax"},
    {v7::eXY_Stress_KModifier, L"Stress_KModifier"},
    {v7::eXY_Stress_TotalEModulus, L"Stress_TotalEModulus"},
    {v7::eXY_Stress_TotalCohesion, L"Stress_TotalCohesion"},
    {v7::eXY_Stress_RecModulus, L"Stress_RecModulus"},
    {v7::eXY_PWP_AirK, L"PWP_AirK"},
    {v7::eXY_Time_AirPressure, L"Time_AirPressure"},
    {v7::eXY_Time_AirFlux, L"Time_AirFlux"},
  });
  return table;
}
