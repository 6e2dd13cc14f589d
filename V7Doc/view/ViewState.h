#pragma once
// What the user last looked at and how the document's window was laid out,
// stored with the document so that reopening it shows the same view: the
// last analysis, mode and result times viewed, the font of the drawing, the
// window's placement, and how vectors are drawn on results.
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"

namespace v7::v7qvi {

// The view the document was showing.
enum class ViewMode : std::int32_t {
  Define = 0,   // editing the model
  Results = 1,  // showing an analysis's results
  Undefined = qvi::kNone,
};

// The view last used, persisted under "View." ("View.AnalysisLastViewed",
// ...). Result times are step numbers of the analysis's saved steps (0 is
// the initial step); the base time is the step differences are taken
// from. None (the marker) means no selection.
struct LastViewed {
  GID analysis_ = 0;  // "AnalysisLastViewed"
  ViewMode mode_ = ViewMode::Define;          // "ModeLastViewed"
  std::int32_t resultTime_ = qvi::kNone;      // "ResultTimeLastViewed"
  std::int32_t baseTime_ = qvi::kNone;        // "BaseTimeLastViewed"
  // "TimeStepsForCurrentAnalysisOnly": list only the steps of the analysis
  // shown, not those of its parents as well.
  bool bTimeStepsForCurrentAnalysisOnly_ = true;
  friend bool operator==(const LastViewed&, const LastViewed&) = default;
};

// The font of the drawing's texts ("View.Font").
struct ViewFont {
  std::wstring faceName_ = L"Arial";  // "FaceName"
  double fHeight_ = 8;                // "Height", points
  bool bBold_ = false;                // "Bold"
  bool bItalic_ = false;              // "Italic"
  friend bool operator==(const ViewFont&, const ViewFont&) = default;
};

// The document window's placement on the screen, in pixels ("View.Window").
// An empty rectangle lets the host choose.
struct WindowPlacement {
  std::int32_t nLeft_ = 0, nTop_ = 0;     // "Left", "Top"
  std::int32_t nRight_ = 0, nBottom_ = 0; // "Right", "Bottom"
  bool bMaximized_ = false;               // "Maximized"
  friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

// A kind of vector drawn on results.
enum class VectorKind : std::int32_t {
  WaterVelocity = 0,
  Gradient = 1,
  Displacement = 2,
  HeatFlux = 3,
  AirVelocity = 4,
  Undefined = qvi::kNone,
};

// How one kind of vector is drawn ("VectorDefs[VectorDef]"): arrows are
// drawn with a length proportional to the magnitude, the largest being
// `fScale_` times the default length.
struct VectorDef {
  VectorKind kind_ = VectorKind::WaterVelocity;  // "Kind"
  bool bShow_ = false;                           // "Show"
  double fScale_ = 1;                            // "Scale"
  std::uint32_t nColor_ = 0x000000;              // "Color"
  friend bool operator==(const VectorDef&, const VectorDef&) = default;
};

}  // namespace v7::v7qvi

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::v7qvi::ViewMode>();
template <> const meta::MetaEnumCommon& meta::EnumTable<v7::v7qvi::VectorKind>();
