#include "QVI/math/fn/TailType.h"

#include <cmath>

#include "QVI/str/Convert.h"

namespace math::fn {

std::wstring TailType::as_wstring() const { return bTail ? str::to_wstring(slope) : std::wstring(); }

bool TailType::parse(const std::wstring& text) {
  if (str::trim(text).empty()) {
    *this = None();
    return true;
  }
  double s = 0;
  if (!str::parse(text, s) || !std::isfinite(s)) return false;
  *this = Slope(s);
  return true;
}

}  // namespace math::fn
