#pragma once
// A cut line: a straight section through the model along which results are
// sampled and graphed (a vertical profile under a dam crest, a horizontal
// line through a foundation). Collection "Contour.CutLines[CutLine]"
// (container 52). Coordinates are model (engineering) coordinates.
#include <cstdint>
#include <string>

#include "QVI/qvi/Markers.h"
#include "V7Doc/core/QVContainerTable.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

struct CutLine {
  std::wstring name_;                  // "Name"
  double fStartX_ = qvi::kNoValue;     // "StartX"
  double fStartY_ = qvi::kNoValue;     // "StartY"
  double fEndX_ = qvi::kNoValue;       // "EndX"
  double fEndY_ = qvi::kNoValue;       // "EndY"
  // How many equally spaced points, ends included, the results are sampled
  // at ("NumPoints"); two is the least that describes a line.
  std::int32_t nNumPoints_ = 21;
  bool bDeleted_ = false;  // tombstone of the table slot, not persisted

  // True when both ends are set and apart.
  bool IsDefined() const;
  // The line's length, or the no-value marker when it is not defined.
  double Length() const;

  friend bool operator==(const CutLine&, const CutLine&) = default;
};

inline bool IsMissing(const CutLine& c) { return c.bDeleted_; }
inline void SetMissing(CutLine& c) {
  c = CutLine{};
  c.bDeleted_ = true;
}

using CutLineTable = QVContainerTable<CutLine>;

}  // namespace v7

template <>
const oc::RecordType& oc::TypeOf<v7::CutLine>();
