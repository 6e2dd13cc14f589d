#pragma once
// The kinds of function lists of the document and the x/y quantity pairs that
// the functions of each list may have.
#include <cstdint>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"

namespace v7 {

// One value per function list; the value is the list's container GID (11 to
// 51; 21 holds no list).
namespace eFunc2DListType {
enum eFunc2DListType : std::int32_t {
    eHydK = 11, eTempKTemp, eDiff, eVolWC, eUnfWC, eAdsorp, eStrength, eHydB, eHydMod, eConcB,
    eThermK = 22, eVSpecHeat, eLeafAI, ePlantML, eRootDepth, eThermB, eThermMod, eGasB, eGasMod,
    eStressB, eCyclic, eDynPWP, eGRed, eDampRatio, eKaCorr, eKsCorr, eMFSPWP, eAnisoStr, eProb,
    eWeight, eCohesion, ePhi, eEMod, eGmax, eKRed, eTotalEMod, eTotalC, eRecModulus, eAirK, eAirB,
    eUndefined = 0x7FFFFFFF,
};
}  // namespace eFunc2DListType

// An x/y quantity pair (x first). 0 ends a list.
enum eFunc2D_XYTypes : std::int32_t {
  eXYNone = 0,
  eXY_PWP_HydK, eXY_Temp_ThermK, eXY_VolWC_Diffusion, eXY_PWP_VolWC, eXY_Temp_UnfrozenWC,
  eXY_Conc_Adsorption, eXY_Normal_ShearStrength, eXY_Time_TotalHead, eXY_Time_PressureHead,
  eXY_Time_WaterFlux, eXY_Time_WaterUnitFlux, eXY_Time_Modifier, eXY_Time_Concentration,
  eXY_Time_MassFlux, eXY_VolWC_ThermK, eXY_VolWC_VolHeatCap, eXY_Day_LAI, eXY_Suction_LimitFactor,
  eXY_Day_RootDepth, eXY_Time_Temperature, eXY_Time_ThermalFlux, eXY_Time_GasConcentration,
  eXY_Time_GasFlux, eXY_Time_Stress, eXY_Time_Displacement, eXY_Time_Force,
  eXY_CyclicNumber_StressRatio, eXY_CyclicRatio_PWPRatio, eXY_ShearStrain_GGMax,
  eXY_ShearStrain_DampingRatio, eXY_StressRatio_Kalpha, eXY_Overburden_Ksigma, eXY_PWP_ShearStrength,
  eXY_Inclination_Modifier, eXY_Value_Probability, eXY_Y_UnitWeight, eXY_Y_Cohesion, eXY_Y_Phi,
  eXY_Stress_EModulus, eXY_Stress_Gmax, eXY_Stress_KModifier, eXY_Stress_TotalEModulus,
  eXY_Stress_TotalCohesion, eXY_Stress_RecModulus, eXY_PWP_AirK, eXY_Time_AirPressure,
  eXY_Time_AirFlux,
};

// The list type of the function list with container GID `list`; eUndefined
// for 21 and for GIDs outside 11..51.
eFunc2DListType::eFunc2DListType Func2DListTypeOf(std::uint32_t list);

// The zero-terminated row of allowed pairs for a list type (a row holding only
// the terminator for eUndefined).
const eFunc2D_XYTypes* Func2DXYTypesRow(eFunc2DListType::eFunc2DListType type);

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::eFunc2DListType::eFunc2DListType>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::eFunc2D_XYTypes>();
