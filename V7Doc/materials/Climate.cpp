#include "V7Doc/materials/Climate.h"

#include <algorithm>

#include "QVI/str/Messages.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ClimateEnergyMethod>() {
  static const MetaEnumCommon t(L"ClimateEnergyMethod", {{1, L"EstimatedNetSolarEnergy"},
                                                         {2, L"NetSolarEnergy"},
                                                         {3, L"PotentialEnergy"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ClimateDist>() {
  static const MetaEnumCommon t(
      L"ClimateDist", {{1, L"SinusoidalDist"}, {2, L"ConstantAvgDist"}, {3, L"SlopeAvgDist"}});
  return t;
}

namespace v7 {

void CLIMATE_INFO::DataInit() {
  if (!hClimateMem.empty() || hClimateMem.capacity() > 0) DataFree();
  hClimateMem.reserve(1);
  wsTitle = str::load_wstring(20245);
  fLat = 0;
  eEnergyMethod = static_cast<ClimateEnergyMethod>(0);
  eDist = static_cast<ClimateDist>(0);
  nStartMonth = 1;
  nStartDay = 1;
  nStartYear = 0;
  Mod = CLIMATEMODIFIERS();
  Mod.fWind = Mod.fPrecip = Mod.fEvap = Mod.fNetRad = 100.0;
}

void CLIMATE_INFO::DataFree() { std::vector<CLIMATEENTRY>().swap(hClimateMem); }

void CLIMATE_INFO::UndoAssignment(const CLIMATE_INFO& other) {
  if (this == &other) return;
  DataFree();
  const std::size_t n = other.hClimateMem.size();
  std::vector<CLIMATEENTRY> entries;
  entries.reserve(std::max<std::size_t>(1, n));
  entries.resize(n);
  for (std::size_t i = 0; i < n; ++i) entries[i].UndoAssignment(other.hClimateMem[i]);
  wsTitle = other.wsTitle;
  fLat = other.fLat;
  eEnergyMethod = other.eEnergyMethod;
  eDist = other.eDist;
  nStartMonth = other.nStartMonth;
  nStartDay = other.nStartDay;
  nStartYear = other.nStartYear;
  Mod = other.Mod;
  hClimateMem = std::move(entries);
}

}  // namespace v7
