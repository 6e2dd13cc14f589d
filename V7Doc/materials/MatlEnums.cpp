#include "V7Doc/materials/MatlEnums.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::StabMatlModel>() {
  static const MetaEnumCommon t(L"StabMatlModel",
                                {{0, L"None"},
                                 {1, L"MohrCoulomb"},
                                 {2, L"UndrainedPhiZero"},
                                 {3, L"NoStrength"},
                                 {4, L"Bedrock"},
                                 {5, L"Bilinear"},
                                 {6, L"SFnDepth"},
                                 {7, L"SFnDatum"},
                                 {8, L"AnisotropicStrength"},
                                 {9, L"ShearNormalFn"},
                                 {10, L"AnisotropicFn"},
                                 {11, L"CombinedSFnDepth"},
                                 {12, L"CombinedSFnDatum"},
                                 {13, L"SFnOverburden"},
                                 {14, L"MohrCoulombSpatial"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::DeformMatlModel>() {
  static const MetaEnumCommon t(L"DeformMatlModel",
                                {{0, L"None"},
                                 {1, L"TotalLinearElastic"},
                                 {2, L"EffectiveLinearElastic"},
                                 {3, L"EffectivePWPLinearElastic"},
                                 {4, L"TotalAnisotropicElastic"},
                                 {5, L"EffectiveAnisotropicElastic"},
                                 {6, L"TotalNonlinearElastic"},
                                 {7, L"EffectiveNonlinearElastic"},
                                 {8, L"TotalElasticPlastic"},
                                 {9, L"EffectiveElasticPlastic"},
                                 {10, L"EffectivePWPElasticPlastic"},
                                 {11, L"EffectiveCamClay"},
                                 {12, L"EffectivePWPCamClay"},
                                 {13, L"TotalInterface"},
                                 {14, L"EffectiveInterface"},
                                 {15, L"EffectivePWPInterface"},
                                 {16, L"TotalExternal"},
                                 {17, L"EffectiveExternal"},
                                 {18, L"EffectivePWPExternal"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ShakeMatlModel>() {
  static const MetaEnumCommon t(
      L"ShakeMatlModel",
      {{0, L"None"}, {1, L"LinearElastic"}, {2, L"EquivalentLinear"}, {3, L"MFSNonlinear"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::HydroMatlModel>() {
  static const MetaEnumCommon t(L"HydroMatlModel",
                                {{0, L"None"}, {1, L"SatUnsat"}, {2, L"SatOnly"}, {3, L"Interface"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ThermoMatlModel>() {
  static const MetaEnumCommon t(L"ThermoMatlModel", {{0, L"None"},
                                                     {1, L"FullThermal"},
                                                     {2, L"CoupledThermal"},
                                                     {3, L"SimplifiedThermal"},
                                                     {4, L"Interface"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::EvapoMatlModel>() {
  static const MetaEnumCommon t(
      L"EvapoMatlModel",
      {{0, L"None"}, {1, L"FullThermal"}, {2, L"SimplifiedThermal"}, {3, L"Interface"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::MatlPropModel>() {
  static const MetaEnumCommon t(L"MatlPropModel",
                                {{0, L"Constant"}, {1, L"Function"}, {2, L"Spatial Function"}});
  return t;
}
