#include "V7Doc/results/CutLine.h"

#include <cmath>

#include "OC/Schema.h"

namespace v7 {

bool CutLine::IsDefined() const {
  for (double v : {fStartX_, fStartY_, fEndX_, fEndY_})
    if (v == qvi::kNoValue || !std::isfinite(v)) return false;
  return fStartX_ != fEndX_ || fStartY_ != fEndY_;
}

double CutLine::Length() const {
  if (!IsDefined()) return qvi::kNoValue;
  return std::hypot(fEndX_ - fStartX_, fEndY_ - fStartY_);
}

}  // namespace v7

template <>
const oc::RecordType& oc::TypeOf<v7::CutLine>() {
  using v7::CutLine;
  static const RecordType& t =
      Schema<CutLine>(L"CutLine")
          .Add(&CutLine::name_, L"name_", L"Name")
          .Add(&CutLine::fStartX_, L"fStartX_", L"StartX")
          .Add(&CutLine::fStartY_, L"fStartY_", L"StartY")
          .Add(&CutLine::fEndX_, L"fEndX_", L"EndX")
          .Add(&CutLine::fEndY_, L"fEndY_", L"EndY")
          .Add(&CutLine::nNumPoints_, L"nNumPoints_", L"NumPoints",
               meta::MetaDataTraits{}.Bounds(2, 100000))
          .Done();
  return t;
}
