#pragma once
// The per-kind analysis data types.
#include "V7Doc/analysis/AnalysisData.h"

namespace v7 {

// Shared implementation of Assign and IsEqual for a data type with value
// semantics.
template <class Derived>
class AnalysisDataOf : public AnalysisData {
 public:
  void Assign(const AnalysisData& other) override {
    static_cast<Derived&>(*this) = static_cast<const Derived&>(other);
  }
  bool IsEqual(const AnalysisData& other) const override {
    const auto* o = dynamic_cast<const Derived*>(&other);
    return o && static_cast<const Derived&>(*this) == *o;
  }
};

struct SoluteData : AnalysisDataOf<SoluteData> {
  void DataInit() override { *this = SoluteData{}; }
  friend bool operator==(const SoluteData&, const SoluteData&) { return true; }
};
struct ShakeData : AnalysisDataOf<ShakeData> {
  void DataInit() override { *this = ShakeData{}; }
  friend bool operator==(const ShakeData&, const ShakeData&) { return true; }
};
struct HydroData : AnalysisDataOf<HydroData> {
  void DataInit() override { *this = HydroData{}; }
  friend bool operator==(const HydroData&, const HydroData&) { return true; }
};
struct DeformData : AnalysisDataOf<DeformData> {
  void DataInit() override { *this = DeformData{}; }
  friend bool operator==(const DeformData&, const DeformData&) { return true; }
};
struct StabData : AnalysisDataOf<StabData> {
  void DataInit() override { *this = StabData{}; }
  friend bool operator==(const StabData&, const StabData&) { return true; }
};
struct ThermoData : AnalysisDataOf<ThermoData> {
  void DataInit() override { *this = ThermoData{}; }
  friend bool operator==(const ThermoData&, const ThermoData&) { return true; }
};
struct EvapoData : AnalysisDataOf<EvapoData> {
  void DataInit() override { *this = EvapoData{}; }
  friend bool operator==(const EvapoData&, const EvapoData&) { return true; }
};

}  // namespace v7
