#pragma once
// Earthquake motion records of a dynamic analysis: a time history per
// direction.
#include <string>
#include <vector>

#include "V7Doc/core/GID.h"

namespace v7 {

// One sample of a time history.
struct TimeHistoryPoint {
  double fTime = 0;   // time of the sample
  double fValue = 0;  // acceleration (in g) at that time
  friend bool operator==(const TimeHistoryPoint&, const TimeHistoryPoint&) = default;
};

// The motion in one direction.
struct ShakeDirection {
  std::vector<TimeHistoryPoint> vTimeHistory_;  // samples, times increasing
  double fScale_ = 1.0;                         // factor applied to every value
  // "UseBaselineCorrection": remove the drift a recorded acceleration gains
  // when integrated to displacement (baseline correction).
  bool bUseBaselineCorrection_ = false;
  friend bool operator==(const ShakeDirection&, const ShakeDirection&) = default;
};

// A named earthquake record: horizontal and vertical motion.
struct ShakeEarthquake {
  std::wstring name_;
  ShakeDirection horizontal_;
  ShakeDirection vertical_;
  friend bool operator==(const ShakeEarthquake&, const ShakeEarthquake&) = default;
};

}  // namespace v7
