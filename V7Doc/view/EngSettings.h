#pragma once
// The document's engineering coordinates: the system of units in which every
// quantity of the project is entered and the window of the model being shown
// (root member "eng", alias "doc::Coordinates::Eng").
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// The system of units of a project. Metric: lengths in m, pressures in kPa.
// Imperial: lengths in ft, pressures in psf. Persisted by name.
enum class EngUnitSystem : std::int32_t { Metric = 0, Imperial = 1 };

// A window of the model in engineering units. No values (the default) means
// "the whole model"; result sets keep the window they were opened with.
struct EngWindow {
  double fMinX = qvi::kNoValue;  // "MinX"
  double fMinY = qvi::kNoValue;  // "MinY"
  double fMaxX = qvi::kNoValue;  // "MaxX"
  double fMaxY = qvi::kNoValue;  // "MaxY"
  friend bool operator==(const EngWindow&, const EngWindow&) = default;
};

class EngSettings {
 public:
  EngSettings() = default;
  explicit EngSettings(EngUnitSystem units) : eUnitSystem_(units) {}

  // The project's system of units.
  EngUnitSystem UnitSystem() const { return eUnitSystem_; }
  void SetUnitSystem(EngUnitSystem units) { eUnitSystem_ = units; }
  // True for metric units (the default of a new project).
  bool IsMetric() const { return eUnitSystem_ != EngUnitSystem::Imperial; }
  // The window of the model being shown.
  const EngWindow& Window() const { return window_; }
  void SetWindow(const EngWindow& window) { window_ = window; }
  // The physical constants (see the members).
  double UnitWaterWeight() const { return fUnitWaterWeight_; }
  double PhaseChange() const { return fPhaseChange_; }
  double LatentHeat() const { return fLatentHeat_; }
  double AtmosphericPressure() const { return fAtmosphericPressure_; }

  friend bool operator==(const EngSettings&, const EngSettings&) = default;

 private:
  friend const oc::RecordType& oc::TypeOf<EngSettings>();
  EngUnitSystem eUnitSystem_ = EngUnitSystem::Metric;  // "UnitSystem"
  EngWindow window_;                                    // "Window"
  // Physical constants of the project, shared by its analyses (metric):
  // water of 1000 kg/m3 under standard gravity 9.80665 m/s2; pore water
  // freezing at 0 C and giving up the latent heat of fusion of ice, 334 kJ/kg
  // (1000 kg/m3: 334000 kJ/m3); the standard atmosphere, 101.325 kPa (ISO 2533).
  double fUnitWaterWeight_ = 9.80665;      // "UnitWaterWeight", kN/m3
  double fPhaseChange_ = 0.0;              // "PhaseChange": freezing temperature, C
  double fLatentHeat_ = 334000.0;          // "LatentHeat", kJ/m3
  double fAtmosphericPressure_ = 101.325;  // "AtmosphericPressure", kPa
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::EngUnitSystem>();
template <>
const oc::RecordType& oc::TypeOf<v7::EngWindow>();
template <>
const oc::RecordType& oc::TypeOf<v7::EngSettings>();
