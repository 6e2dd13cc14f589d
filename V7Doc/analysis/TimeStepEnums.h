#pragma once
// How the time steps of an analysis are produced.
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"

namespace v7 {

// Where the steps of TIMEINCSTRUCT come from. The settings that each mode
// reads are listed with it (D duration, n increment count, dt0 initial
// increment size); times are relative to the start time until the start is
// added at the end of generation.
enum class TimeStepMode : std::int32_t {
  // No time stepping (steady-state analyses); the step list is left alone.
  None = 0,
  // n increments spanning D. Linear: equal increments D/n. Exponential: a
  // geometric series dt0, dt0 r, dt0 r^2, ... whose ratio r is solved so that
  // the n increments sum to D.
  Duration = 1,
  // n increments starting at dt0, the duration following from them. Linear:
  // every increment dt0. Exponential: each increment twice the previous one
  // (the doubling schedule customary for consolidation and transient flow).
  IncrementSize = 2,
  // Increments of dt0 (Linear) or doubling from dt0 (Exponential) until D is
  // reached; the last increment is shortened to end exactly at D. n is not read.
  UntilDuration = 3,
  // Steps set from elsewhere through SetTimeSteps (a motion record, existing
  // results, a given list); generation leaves them alone.
  External = 4,
  // n equal increments D/n that must stay on the motion record's samples:
  // always linear, never rounded.
  Dynamic = 5,
  // The solver adapts its increments; the steps generated as for Duration are
  // the times at which it must arrive and save.
  Adaptive = 6,
  // Steps given directly as elapsed times (the mode-7 list, vFixedTimes_);
  // always linear, never rounded.
  Direct = 7,
  Undefined = qvi::kNone,
};

// How increments vary within a generated series. Exponential series are
// rounded to short decimals; linear ones are kept exact.
enum class IncrementType : std::int32_t {
  Linear = 0,
  Exponential = 1,
  Undefined = qvi::kNone,
};

// Which steps of existing results SetTimeSteps(ResultInfo, ...) takes.
enum class ResultStepType : std::int32_t {
  AllSteps = 0,    // every computed step
  SavedSteps = 1,  // the steps whose results were saved
  Undefined = qvi::kNone,
};

}  // namespace v7

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::TimeStepMode>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::IncrementType>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ResultStepType>();
