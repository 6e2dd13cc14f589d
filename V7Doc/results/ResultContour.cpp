#include "V7Doc/results/ResultContour.h"

#include "OC/Schema.h"

namespace v7 {

double ResultContour::Level(std::int32_t i) const {
  if (fMinLevel_ == qvi::kNoValue || fLevelIncrement_ == qvi::kNoValue) return qvi::kNoValue;
  return fMinLevel_ + i * fLevelIncrement_;
}

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ContourShadingMethod>() {
  static const MetaEnumCommon t(L"ContourShadingMethod",
                                {{0, L"None"}, {1, L"Solid"}, {2, L"Gradient"}});
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::ResultContour>() {
  using v7::ResultContour;
  // A contour needs at least one level and one shade per band; 1000 levels
  // is far beyond what a plot can show and keeps a typo from allocating.
  static const RecordType& t =
      Schema<ResultContour>(L"ResultContour")
          .Add(&ResultContour::eType_, L"eType_", L"Type")
          .Add(&ResultContour::fMinLevel_, L"fMinLevel_", L"MinLevel")
          .Add(&ResultContour::nNumOfLevels_, L"nNumOfLevels_", L"NumOfLevels",
               meta::MetaDataTraits{}.Bounds(1, 1000))
          .Add(&ResultContour::fLevelIncrement_, L"fLevelIncrement_", L"LevelIncrement")
          .Add(&ResultContour::nStartColor_, L"nStartColor_", L"StartColor")
          .Add(&ResultContour::nEndColor_, L"nEndColor_", L"EndColor")
          .Add(&ResultContour::eShadingMethod_, L"eShadingMethod_", L"ShadingMethod")
          .Add(&ResultContour::nShadesPerInterval_, L"nShadesPerInterval_", L"ShadesPerInterval",
               meta::MetaDataTraits{}.Bounds(1, 256))
          .Add(&ResultContour::bLabels_, L"bLabels_", L"Labels")
          .Done();
  return t;
}
