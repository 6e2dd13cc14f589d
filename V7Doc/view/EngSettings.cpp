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
const oc::RecordType& oc::TypeOf<v7::EngSettings>() {
  static const RecordType& t =
      Schema<v7::EngSettings>(L"EngSettings")
          .Add(&v7::EngSettings::eUnitSystem_, L"eUnitSystem_", L"UnitSystem")
          .Done();
  return t;
}
