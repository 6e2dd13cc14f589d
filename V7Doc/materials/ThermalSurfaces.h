#pragma once
// Thermosyphons (collection 58, "Thermosyphons") and convective surfaces
// (collection 59, "ConvectiveSurfaces"), looked up by the thermal boundary
// functions that name them. Both tables record edits for undo.
#include <cstdint>
#include <string>

#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

// A two-phase heat pipe that extracts heat from the ground in winter.
struct THERMOSYPHON_INFO {
  std::wstring wsName;             // "Name"
  double fEvaporatorLength = 0;    // "EvaporatorLength", m
  double fCondenserArea = 0;       // "CondenserArea", m2
  double fHeatTransferCoef = 0;    // "HeatTransferCoef", W/(m2 K)
  double fOperatingDelta = 0;      // "OperatingDelta": air-ground difference that starts it, K
  // "Convective": positive when the pipe is modelled as a convective
  // (third-kind) boundary rather than as a heat flux.
  std::int32_t nConvective = 0;
  friend bool operator==(const THERMOSYPHON_INFO&, const THERMOSYPHON_INFO&) = default;
};
// Missing: the default record (no name, nothing set).
inline bool IsMissing(const THERMOSYPHON_INFO& t) { return t == THERMOSYPHON_INFO{}; }
inline void SetMissing(THERMOSYPHON_INFO& t) { t = THERMOSYPHON_INFO{}; }

// A surface exchanging heat with a flowing fluid (a pipe wall, a culvert).
struct PIPESURF_INFO {
  std::wstring wsName;           // "Name"
  double fHeatTransferCoef = 0;  // "HeatTransferCoef", W/(m2 K)
  double fFluidTemp = 0;         // "FluidTemp", degrees C
  // "UseAsSurfaceAreaBoundary": the exchange is per unit surface area
  // rather than a total flux along the pipe.
  bool bSmallq = false;
  friend bool operator==(const PIPESURF_INFO&, const PIPESURF_INFO&) = default;
};
inline bool IsMissing(const PIPESURF_INFO& p) { return p == PIPESURF_INFO{}; }
inline void SetMissing(PIPESURF_INFO& p) { p = PIPESURF_INFO{}; }

class ThermosyphonTable : public TQVContainerTableNoStoredIDCustomUndo<THERMOSYPHON_INFO> {};
class ConvectiveSurfaceTable : public TQVContainerTableNoStoredIDCustomUndo<PIPESURF_INFO> {};

}  // namespace v7
