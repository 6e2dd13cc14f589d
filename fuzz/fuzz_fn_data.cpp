// `qvdoc fn --data` text: points read from arbitrary text give a status or
// points, the points written read back to the same points, and a point
// table built from them evaluates without a crash.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnDataText.h"
#include "V7Doc/functions/FnImpl.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  std::vector<v7::FnPoint> points;
  const gtl::status s = v7::ParseFnDataPoints(text, points);
  (void)s.message();
  if (s.failed()) {
    if (!points.empty()) __builtin_trap();  // left as it was
    return 0;
  }
  std::vector<v7::FnPoint> again;
  if (v7::ParseFnDataPoints(v7::FormatFnDataPoints(points), again).failed() || again != points)
    __builtin_trap();
  for (const wchar_t* kind : {L"Linear(SlopeBefore=1,SlopeAfter=-1)", L"Spline()", L"Step()"}) {
    v7::IFn fn;
    if (v7::FnCreate(kind, fn).failed()) __builtin_trap();
    auto* target = dynamic_cast<v7::IFnDataPoints*>(fn.Unshared());
    if (!target) __builtin_trap();
    target->Assign(points.data(), points.data() + points.size());
    (void)fn.Unshared()->UpdateCalculatedValues();
    for (const v7::FnPoint& p : points) (void)fn(p.x);
    for (double x : {-1e300, -1.0, 0.0, 0.5, 1e300}) (void)fn(x);
  }
  return 0;
}
