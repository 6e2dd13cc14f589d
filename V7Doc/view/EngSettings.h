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

  friend bool operator==(const EngSettings&, const EngSettings&) = default;

 private:
  friend const oc::RecordType& oc::TypeOf<EngSettings>();
  EngUnitSystem eUnitSystem_ = EngUnitSystem::Metric;  // "UnitSystem"
  EngWindow window_;                                    // "Window"
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::EngUnitSystem>();
template <>
const oc::RecordType& oc::TypeOf<v7::EngWindow>();
template <>
const oc::RecordType& oc::TypeOf<v7::EngSettings>();
