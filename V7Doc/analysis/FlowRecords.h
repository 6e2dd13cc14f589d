#pragma once
// Records of the transport analyses kept in their per-kind data: flux
// sections, their labels and flow paths of a seepage analysis
// ("HydroItems[HydroItem].Entry"), particles of a particle-tracking analysis
// ("SoluteItems[SoluteItem].Entry"), and history points of a dynamic
// analysis ("ShakeItems[ShakeItem].Entry").
#include <cstdint>
#include <string>
#include <vector>

#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

// One straight piece of a flux section ("Fluxsect").
struct FluxSegment {
  double fX1_ = 0, fY1_ = 0;  // "X1", "Y1", m
  double fX2_ = 0, fY2_ = 0;  // "X2", "Y2", m
  friend bool operator==(const FluxSegment&, const FluxSegment&) = default;
};

// A flux section: the polyline across which the solver totals the flow
// (water, heat, mass) per time step; its pieces are listed in order.
struct FLUX {
  GID nID_ = 0;  // written only through FLUXIDPolicy
  std::wstring name_;                  // "Name"
  std::vector<FluxSegment> vSections_;  // "Sectons[Fluxsect]"
  friend bool operator==(const FLUX&, const FLUX&) = default;
};
struct FLUXIDPolicy : QVContainerStoredIDPolicy<FLUX, &FLUX::nID_> {};
using FLUXTable = QVContainerTable<FLUX, FLUXIDPolicy>;

// Where the total of a flux section is written on the drawing.
struct FluxLabel {
  // "FluxSectionID": a flux section of the same item. Not a declared
  // reference: the item's own compaction of its flux sections renumbers it.
  GID nFluxID_ = 0;
  double fX_ = 0, fY_ = 0;  // "X", "Y": the label's anchor, m
  friend bool operator==(const FluxLabel&, const FluxLabel&) = default;
};

// One vertex of a drawn path ("Pt").
struct PathPoint {
  double fX_ = 0, fY_ = 0;  // "X", "Y", m
  friend bool operator==(const PathPoint&, const PathPoint&) = default;
};

// A flow path: a polyline along which results are graphed against the
// distance travelled (travel distance, time and speed of water).
struct FlowPath {
  std::wstring name_;               // "Name"
  std::vector<PathPoint> vPoints_;  // "Points[Pt]", from the start
  friend bool operator==(const FlowPath&, const FlowPath&) = default;
};

// A particle released into the flow field at a time.
struct Particle {
  double fX_ = 0, fY_ = 0;   // "X", "Y", m
  double fReleaseTime_ = 0;  // "ReleaseTime", s from the start of the analysis
  friend bool operator==(const Particle&, const Particle&) = default;
};

// A row of particles: `nCount_` particles spaced evenly from the first end
// to the second, both ends included (one particle sits at the first end).
struct ParticlePair {
  double fX1_ = 0, fY1_ = 0;  // "X1", "Y1", m
  double fX2_ = 0, fY2_ = 0;  // "X2", "Y2", m
  std::int32_t nCount_ = 2;   // "Count", at least 1
  friend bool operator==(const ParticlePair&, const ParticlePair&) = default;
};

// A history point: a place whose results the solver writes at every step
// (one history file per point, named by its position in the list).
struct POGHPoint {
  std::wstring name_;       // "Name"
  double fX_ = 0, fY_ = 0;  // "X", "Y", m
  friend bool operator==(const POGHPoint&, const POGHPoint&) = default;
};

}  // namespace v7
