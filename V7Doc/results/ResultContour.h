#pragma once
// How one result quantity is contoured: the levels, the colours of the
// first and last level, and how the bands between levels are shaded.
// Collection "Contour.ResultContours[ResultContour]" (container 54).
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/results/DataParamType.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// How the band between two contour levels is filled.
enum class ContourShadingMethod : std::int32_t {
  None = 0,      // "None": lines only
  Solid = 1,     // "Solid": one colour per band
  Gradient = 2,  // "Gradient": ShadesPerInterval colours per band
  Undefined = qvi::kNone,
};

// Colours are 32-bit values with red in the low byte, then green, then blue.
inline constexpr std::uint32_t RGBColor(unsigned r, unsigned g, unsigned b) {
  return (r & 0xFFu) | ((g & 0xFFu) << 8) | ((b & 0xFFu) << 16);
}

struct ResultContour {
  // The contoured quantity ("Type"); Undefined until chosen.
  DataParamType eType_ = DataParamType::Undefined;
  // The lowest level ("MinLevel"); no value: taken from the results shown.
  double fMinLevel_ = qvi::kNoValue;
  // How many levels ("NumOfLevels").
  std::int32_t nNumOfLevels_ = 10;
  // The step between levels ("LevelIncrement"); no value: the range of the
  // results shown divided into NumOfLevels.
  double fLevelIncrement_ = qvi::kNoValue;
  // Colours of the lowest and highest level ("StartColor", "EndColor"); the
  // usual blue-to-red ramp of seepage and stress plots.
  std::uint32_t nStartColor_ = RGBColor(0, 0, 255);
  std::uint32_t nEndColor_ = RGBColor(255, 0, 0);
  ContourShadingMethod eShadingMethod_ = ContourShadingMethod::Solid;  // "ShadingMethod"
  std::int32_t nShadesPerInterval_ = 1;  // "ShadesPerInterval"
  bool bLabels_ = true;                  // "Labels": levels are labelled
  bool bDeleted_ = false;                // tombstone of the table slot, not persisted

  // The value of level `i` (0-based) when both MinLevel and LevelIncrement
  // are set, else the no-value marker.
  double Level(std::int32_t i) const;

  friend bool operator==(const ResultContour&, const ResultContour&) = default;
};

inline bool IsMissing(const ResultContour& r) { return r.bDeleted_; }
inline void SetMissing(ResultContour& r) {
  r = ResultContour{};
  r.bDeleted_ = true;
}

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ContourShadingMethod>();
template <>
const oc::RecordType& oc::TypeOf<v7::ResultContour>();
