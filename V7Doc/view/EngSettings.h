#pragma once
// The document's engineering settings: the system of units in which every
// quantity of the project is entered (root member "eng", alias
// "doc::Coordinates::Eng").
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// The system of units of a project. Metric: lengths in m, pressures in kPa.
// Imperial: lengths in ft, pressures in psf. Persisted by name.
enum class EngUnitSystem : std::int32_t { Metric = 0, Imperial = 1 };

class EngSettings {
 public:
  EngSettings() = default;
  explicit EngSettings(EngUnitSystem units) : eUnitSystem_(units) {}

  // The project's system of units.
  EngUnitSystem UnitSystem() const { return eUnitSystem_; }
  void SetUnitSystem(EngUnitSystem units) { eUnitSystem_ = units; }
  // True for metric units (the default of a new project).
  bool IsMetric() const { return eUnitSystem_ != EngUnitSystem::Imperial; }

  friend bool operator==(const EngSettings&, const EngSettings&) = default;

 private:
  friend const oc::RecordType& oc::TypeOf<EngSettings>();
  EngUnitSystem eUnitSystem_ = EngUnitSystem::Metric;  // "UnitSystem"
};

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::EngUnitSystem>();
template <>
const oc::RecordType& oc::TypeOf<v7::EngSettings>();
