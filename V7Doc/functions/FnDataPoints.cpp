#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

// Whoever hands the points over (Func2D::UpdateFn, a tool, a test), a point
// with a missing coordinate is no data: it is dropped here, where every
// kind's table is built from points_.
void FnDataPoints::Assign(const FnPoint* first, const FnPoint* last) {
  points_.assign(first, last);
  std::erase_if(points_, [](const FnPoint& p) { return p.HasMissing(); });
  OnPointsChanged();
}

gtl::status FnDataPoints::UpdateCalculatedValues() {
  OnPointsChanged();
  return {};
}

}  // namespace v7
