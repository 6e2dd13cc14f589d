#pragma once
// Climate data sets (collection 57, "ClimateData"): a daily weather record
// and the settings that turn it into surface boundary conditions of
// soil-climate analyses. Climate boundary functions refer to a set by ID.
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

// How the surface energy is obtained.
enum class ClimateEnergyMethod : std::int32_t {
  EstimatedNetSolarEnergy = 1,
  NetSolarEnergy = 2,
  PotentialEnergy = 3,
  Undefined = qvi::kNone,
};

// How a day's record is spread over the day (the solvers' business).
enum class ClimateDist : std::int32_t {
  SinusoidalDist = 1,
  ConstantAvgDist = 2,
  SlopeAvgDist = 3,
  Undefined = qvi::kNone,
};

// One day of weather.
struct CLIMATEENTRY {
  std::int32_t nDay = 0;      // "Day"
  double fmaxT = 0;           // "MaxTemp"
  double fminT = 0;           // "MinTemp"
  double fmaxRH = 0;          // "MaxRH"
  double fminRH = 0;          // "MinRH"
  double fWind = 0;           // "Wind"
  double fPrecip = 0;         // "Precip"
  double dStartPrecip = 0;    // "StartPrecip", time of day
  double dEndPrecip = 0;      // "EndPrecip", time of day
  double dPotEvap = 0;        // "Evap"
  double dNetRad = 0;         // "NetRad"

  // Copies one entry for undo.
  void UndoAssignment(const CLIMATEENTRY& other) { *this = other; }
  friend bool operator==(const CLIMATEENTRY&, const CLIMATEENTRY&) = default;
};

// How the whole record is adjusted before use. The quantities that scale
// (wind, precipitation, evaporation, net radiation) are per-cent factors,
// 100 leaving them unchanged; the others shift: temperatures in whole
// degrees, humidities in whole per-cent points, precipitation times in whole
// hours, 0 leaving them unchanged.
struct CLIMATEMODIFIERS {
  std::int32_t nMaxTemp = 0;     // "MaxTemp"
  std::int32_t nMinTemp = 0;     // "MinTemp"
  std::int32_t nMaxRH = 0;       // "MaxRH"
  std::int32_t nMinRH = 0;       // "MinRH"
  double fWind = 0;              // "Wind", per cent
  double fPrecip = 0;            // "Precip", per cent
  std::int32_t nStartPrecip = 0;  // "StartPrecip"
  std::int32_t nEndPrecip = 0;    // "EndPrecip"
  double fEvap = 0;              // "Evap", per cent
  double fNetRad = 0;            // "NetRad", per cent
  friend bool operator==(const CLIMATEMODIFIERS&, const CLIMATEMODIFIERS&) = default;
};

class CLIMATE_INFO {
 public:
  std::wstring wsTitle;                                             // "Name"
  double fLat = 0;                                                  // "Latitude"
  ClimateEnergyMethod eEnergyMethod = static_cast<ClimateEnergyMethod>(0);  // "EnergyMethod"
  ClimateDist eDist = static_cast<ClimateDist>(0);                  // "Distribution"
  std::int32_t nStartMonth = 0;                                     // "StartMonth", 1 to 12
  std::int32_t nStartDay = 0;                                       // "StartDay"
  std::int32_t nStartYear = 0;                                      // "StartYear"
  CLIMATEMODIFIERS Mod;                                             // "Modifier"
  // The days, "ClimateEntries[ClimateEntry]". Its length is the day count;
  // its storage always has room for at least one entry once initialised.
  std::vector<CLIMATEENTRY> hClimateMem;

  // The number of days (the length of the entry array).
  std::int32_t nDayCnt() const { return static_cast<std::int32_t>(hClimateMem.size()); }
  // Entries allocated: at least one after DataInit or UndoAssignment.
  std::size_t nAllocated() const { return hClimateMem.capacity(); }

  // A new data set: one zeroed entry allocated but no days, the default
  // title (message 20245), starting on 1 January, modifiers neutral.
  void DataInit();
  // Releases the entries; the day count becomes 0.
  void DataFree();
  // Copies `other` for undo, allocating max(1, n) zeroed entries first.
  void UndoAssignment(const CLIMATE_INFO& other);

  friend bool operator==(const CLIMATE_INFO& a, const CLIMATE_INFO& b) {
    return a.wsTitle == b.wsTitle && a.fLat == b.fLat && a.eEnergyMethod == b.eEnergyMethod &&
           a.eDist == b.eDist && a.nStartMonth == b.nStartMonth && a.nStartDay == b.nStartDay &&
           a.nStartYear == b.nStartYear && a.Mod == b.Mod && a.hClimateMem == b.hClimateMem;
  }
};

// Missing: no title and no days.
inline bool IsMissing(const CLIMATE_INFO& c) { return c.wsTitle.empty() && c.hClimateMem.empty(); }
inline void SetMissing(CLIMATE_INFO& c) { c = CLIMATE_INFO(); }

// Climate data sets follow the undo contract (UndoAssignment): the table
// takes part in the undo history.
class ClimateDataTable
    : public QVContainerTable<CLIMATE_INFO, QVContainerNoStoredIDPolicy<CLIMATE_INFO>,
                              QVContainerOpUndoPolicy<CLIMATE_INFO>> {
 public:
  ClimateDataTable() = default;
};

}  // namespace v7

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ClimateEnergyMethod>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ClimateDist>();
