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
          .Done();
  return t;
}
