// Points of a three-dimensional function from arbitrary bytes: reading never
// crashes or hangs, a failed read leaves no points, and the points read, fed
// to both surfaces (Qhull underneath the linear one), give a status and
// evaluate without crashing.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "QVI/math/fn/interpolate/KrigSurface.h"
#include "QVI/math/fn/interpolate/Linear3D.h"
#include "V7Doc/functions/Func3DPointsCsv.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<v7::FnPoint> points;
  if (!v7::ReadFunc3DPointsCsv(text, points).succeeded()) {
    if (!points.empty()) __builtin_trap();
    return 0;
  }
  for (const auto& p : points)
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) __builtin_trap();
  if (points.size() > 400) points.resize(400);
  std::vector<math::fn::Point3D> pts;
  for (const auto& p : points) pts.push_back({p.x, p.y, p.z});
  math::fn::interpolate::Linear3D linear;
  math::fn::interpolate::KrigSurface kriging;
  const bool linearOk = linear.SetPoints(pts).succeeded();
  (void)kriging.SetPoints(pts);
  for (const auto& p : pts) {
    const double v = linear(p.x, p.y);
    // A triangulated data point is inside the hull.
    if (linearOk && std::isnan(v)) __builtin_trap();
    (void)kriging(p.x + 0.5, p.y - 0.25);
  }
  return 0;
}
