#pragma once
// The material-model enumerations: which constitutive model a material
// follows in each kind of analysis, and how one sub-property is given.
// The numbers are part of the stored format; the two thermal enumerations
// number "SimplifiedThermal" differently (3 and 2) and must stay so.
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"

namespace v7 {

// Limit-equilibrium strength models.
enum class StabMatlModel : std::int32_t {
  None = 0,
  MohrCoulomb = 1,
  UndrainedPhiZero = 2,
  NoStrength = 3,
  Bedrock = 4,
  Bilinear = 5,
  SFnDepth = 6,
  SFnDatum = 7,
  AnisotropicStrength = 8,
  ShearNormalFn = 9,
  AnisotropicFn = 10,
  CombinedSFnDepth = 11,
  CombinedSFnDatum = 12,
  SFnOverburden = 13,
  MohrCoulombSpatial = 14,
  Undefined = qvi::kNone,
};

// Stress-deformation models: total, effective and effective with pore
// pressure change variants of each family.
enum class DeformMatlModel : std::int32_t {
  None = 0,
  TotalLinearElastic = 1,
  EffectiveLinearElastic = 2,
  EffectivePWPLinearElastic = 3,
  TotalAnisotropicElastic = 4,
  EffectiveAnisotropicElastic = 5,
  TotalNonlinearElastic = 6,
  EffectiveNonlinearElastic = 7,
  TotalElasticPlastic = 8,
  EffectiveElasticPlastic = 9,
  EffectivePWPElasticPlastic = 10,
  EffectiveCamClay = 11,
  EffectivePWPCamClay = 12,
  TotalInterface = 13,
  EffectiveInterface = 14,
  EffectivePWPInterface = 15,
  TotalExternal = 16,
  EffectiveExternal = 17,
  EffectivePWPExternal = 18,
  Undefined = qvi::kNone,
};

// Dynamic-response models.
enum class ShakeMatlModel : std::int32_t {
  None = 0,
  LinearElastic = 1,
  EquivalentLinear = 2,
  MFSNonlinear = 3,
  Undefined = qvi::kNone,
};

// Seepage models.
enum class HydroMatlModel : std::int32_t {
  None = 0,
  SatUnsat = 1,
  SatOnly = 2,
  Interface = 3,
  Undefined = qvi::kNone,
};

// Heat-transfer models.
enum class ThermoMatlModel : std::int32_t {
  None = 0,
  FullThermal = 1,
  CoupledThermal = 2,
  SimplifiedThermal = 3,
  Interface = 4,
  Undefined = qvi::kNone,
};

// Soil-climate (Evapo) models; note SimplifiedThermal = 2 here.
enum class EvapoMatlModel : std::int32_t {
  None = 0,
  FullThermal = 1,
  SimplifiedThermal = 2,
  Interface = 3,
  Undefined = qvi::kNone,
};

// How one sub-property is given.
enum class MatlPropModel : std::int32_t {
  Constant = 0,
  Function = 1,
  SpatialFunction = 2,  // "Spatial Function"
  Undefined = qvi::kNone,
};

// True for "Function" and "Spatial Function".
constexpr bool IsFunctionModel(MatlPropModel m) {
  return m == MatlPropModel::Function || m == MatlPropModel::SpatialFunction;
}

}  // namespace v7

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::StabMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::DeformMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ShakeMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::HydroMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ThermoMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::EvapoMatlModel>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::MatlPropModel>();
