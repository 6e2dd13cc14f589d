#include "V7Doc/view/EngSettings.h"

#include "OC/Schema.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::EngUnitSystem>() {
  static const MetaEnumCommon t(L"EngUnitSystem", {{0, L"Metric"},
                                                   {1, L"Imperial"},
                                                   {0, L"SI", MetaEnumCommon::Alias},
                                                   {1, L"English", MetaEnumCommon::Alias}});
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::EngWindow>() {
  using v7::EngWindow;
  static const RecordType& t = Schema<EngWindow>(L"EngWindow")
                                   .Add(&EngWindow::fMinX, L"fMinX", L"MinX")
                                   .Add(&EngWindow::fMinY, L"fMinY", L"MinY")
                                   .Add(&EngWindow::fMaxX, L"fMaxX", L"MaxX")
                                   .Add(&EngWindow::fMaxY, L"fMaxY", L"MaxY")
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::EngSettings>() {
  static const RecordType& t =
      Schema<v7::EngSettings>(L"EngSettings")
          .Add(&v7::EngSettings::eUnitSystem_, L"eUnitSystem_", L"UnitSystem")
          .Add(&v7::EngSettings::window_, L"window_", L"Window")
          .Add(&v7::EngSettings::fUnitWaterWeight_, L"fUnitWaterWeight_", L"UnitWaterWeight",
               meta::MetaDataTraits{}.Bounds(0, 1e3).Units(L"kN/m3"))
          .Add(&v7::EngSettings::fPhaseChange_, L"fPhaseChange_", L"PhaseChange", meta::MetaDataTraits{}.Units(L"C"))
          .Add(&v7::EngSettings::fLatentHeat_, L"fLatentHeat_", L"LatentHeat",
               meta::MetaDataTraits{}.Bounds(0, 1e9).Units(L"kJ/m3"))
          .Add(&v7::EngSettings::fAtmosphericPressure_, L"fAtmosphericPressure_", L"AtmosphericPressure",
               meta::MetaDataTraits{}.Bounds(0, 1e6).Units(L"kPa"))
          .Done();
  return t;
}
