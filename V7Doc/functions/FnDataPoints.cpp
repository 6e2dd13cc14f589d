#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

void FnDataPoints::Assign(const FnPoint* first, const FnPoint* last) {
  points_.assign(first, last);
  OnPointsChanged();
}

gtl::status FnDataPoints::UpdateCalculatedValues() {
  OnPointsChanged();
  return {};
}

}  // namespace v7
