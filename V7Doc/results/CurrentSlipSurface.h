#pragma once
// The summary of the slip surface last looked at ("CurrentResults.
// CurrentSlipSurface"): its factor of safety, the size and forces of the
// sliding mass, and the statistics of a probabilistic analysis. Every value
// is unset (the no-value marker) until results are read or an old document
// brings them.
#include "OC/RecordType.h"
#include "QVI/qvi/Markers.h"

namespace v7::result {

struct CurrentSlipSurface {
  double fFOS_ = qvi::kNoValue;                // "SlipFOS"
  double fVolume_ = qvi::kNoValue;             // "SlipVolume", m3 per metre
  double fMass_ = qvi::kNoValue;               // "SlipMass", kN per metre
  double fResistingMoment_ = qvi::kNoValue;    // "SlipResistingMoment", kN m
  double fActivatingMoment_ = qvi::kNoValue;   // "SlipActivatingMoment", kN m
  double fResistingForce_ = qvi::kNoValue;     // "SlipResistingForce", kN
  double fActivatingForce_ = qvi::kNoValue;    // "SlipActivatingForce", kN
  double fFOSMean_ = qvi::kNoValue;            // "SlipFOSMean"
  double fFOSStdDev_ = qvi::kNoValue;          // "SlipFOSStdDev"
  double fReliabilityIndex_ = qvi::kNoValue;   // "SlipReliabilityIndex"
  double fProbOfFailure_ = qvi::kNoValue;      // "SlipProbOfFailure", 0..1
  double fFOSMin_ = qvi::kNoValue;             // "SlipFOSMin"
  double fFOSMax_ = qvi::kNoValue;             // "SlipFOSMax"
  friend bool operator==(const CurrentSlipSurface&, const CurrentSlipSurface&) = default;
};

}  // namespace v7::result

template <>
const oc::RecordType& oc::TypeOf<v7::result::CurrentSlipSurface>();
