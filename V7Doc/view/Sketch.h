#pragma once
// The sketch: drawing that annotates the model without being part of it
// ("sketchItems", persisted as "SketchItems", alias "v7::doc::Sketch"):
// arcs, circles, lines and texts, labels tied to geometry items, and
// background images. Coordinates are engineering coordinates (m).
//
// Sketch texts are identified: an analysis may own a text exclusively
// (the document's "exclusiveAnlsIDbySkTextID" map is keyed by the text's
// ID), so they live in a table whose IDs stay put until a full compaction.
#include <cstdint>
#include <string>
#include <vector>

#include "V7Doc/core/GID.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7::v7qvi {

// How a sketch item is drawn.
struct SketchStyle {
  std::uint32_t nColor_ = 0x000000;  // "Color"
  double fLineWidth_ = 1;            // "LineWidth", points
  friend bool operator==(const SketchStyle&, const SketchStyle&) = default;
};

// An arc about a centre, counter-clockwise from the start to the end angle.
struct SkArc {
  double fCenterX_ = 0, fCenterY_ = 0;  // "CenterX", "CenterY"
  double fRadius_ = 1;                  // "Radius"
  double fStartAngle_ = 0;              // "StartAngle", degrees from +x
  double fEndAngle_ = 90;               // "EndAngle", degrees from +x
  SketchStyle style_;                   // "Style"
  friend bool operator==(const SkArc&, const SkArc&) = default;
};

struct SkCircle {
  double fCenterX_ = 0, fCenterY_ = 0;  // "CenterX", "CenterY"
  double fRadius_ = 1;                  // "Radius"
  bool bFilled_ = false;                // "Filled"
  SketchStyle style_;                   // "Style"
  friend bool operator==(const SkCircle&, const SkCircle&) = default;
};

// A straight line, with arrow heads at either end as chosen.
struct SkLine {
  double fX1_ = 0, fY1_ = 0, fX2_ = 0, fY2_ = 0;  // "X1", "Y1", "X2", "Y2"
  bool bArrowStart_ = false;  // "ArrowStart"
  bool bArrowEnd_ = false;    // "ArrowEnd"
  SketchStyle style_;         // "Style"
  friend bool operator==(const SkLine&, const SkLine&) = default;
};

// A text; it may quote values of the document by path (the host expands
// them), hence it is kept with its ID. A deleted text is marked by a flag of
// its own, never persisted.
struct SkText {
  std::wstring text_;       // "Text"
  double fX_ = 0, fY_ = 0;  // "X", "Y": the anchor (top left)
  double fHeight_ = 8;      // "Height", points
  double fAngle_ = 0;       // "Angle", degrees counter-clockwise
  SketchStyle style_;       // "Style"
  bool bMissing_ = false;
  friend bool operator==(const SkText&, const SkText&) = default;
};
inline bool IsMissing(const SkText& t) { return t.bMissing_; }
inline void SetMissing(SkText& t) {
  t = SkText{};
  t.bMissing_ = true;
}
using SkTextTable = QVContainerTable<SkText>;

// A text tied to a geometry item: it moves with the item.
struct SketchLabel {
  GID nContainer_ = 0;  // "ContainerID": points 1, lines 2, regions 3
  GID nRecord_ = 0;     // "RecordID": the item in nContainer_
  std::wstring text_;   // "Text"
  double fOffsetX_ = 0, fOffsetY_ = 0;  // "OffsetX", "OffsetY": from the item, m
  friend bool operator==(const SketchLabel&, const SketchLabel&) = default;
};

// A background image, stretched over a rectangle of the model.
struct SketchImage {
  std::wstring fileName_;  // "FileName": as the user chose it
  double fLeft_ = 0, fBottom_ = 0, fRight_ = 1, fTop_ = 1;  // "Left", "Bottom", "Right", "Top"
  bool bVisible_ = true;   // "Visible"
  friend bool operator==(const SketchImage&, const SketchImage&) = default;
};

struct Sketch {
  std::vector<SkArc> vArcs_;         // "SkArcs[SkArc]"
  std::vector<SkCircle> vCircles_;   // "SkCircles[SkCircle]"
  std::vector<SkLine> vLines_;       // "SkLines[SkLine]"
  SkTextTable texts_;                // "SkTexts[SkText]"
  std::vector<SketchLabel> vLabels_;  // "Labels[Label]"
  std::vector<SketchImage> vImages_;  // "Images[Image]"
  friend bool operator==(const Sketch&, const Sketch&) = default;
};

}  // namespace v7::v7qvi
