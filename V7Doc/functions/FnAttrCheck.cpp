#include "V7Doc/functions/FnAttrCheck.h"

#include <cmath>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "QVI/str/Messages.h"

namespace v7 {
namespace {

std::wstring NotANumber(const FnAttr& a) { return str::format(str::load_wstring(33501), a.Value); }

std::wstring OutOfRange(const std::wstring& lo, const std::wstring& hi) {
  return str::format(str::load_wstring(33502), lo, hi);
}

}  // namespace

gtl::status AttributeError(const FnAttr& a, const std::wstring& reason) {
  return gtl::status::error(33500, a.Name, reason);
}

bool ReadBounded(const FnAttr& a, double& v, gtl::status& s, double lo, double hi, bool allowUnset) {
  double d = 0;
  if (!ReadAttr(a.Value, d) || std::isinf(d)) {
    gtl::keep_first_failure(s, AttributeError(a, NotANumber(a)));
    return false;
  }
  if (qvi::IsNoValue(d)) {
    // Empty text. The marker itself typed in full is also "unset".
    if (!allowUnset) {
      gtl::keep_first_failure(s, AttributeError(a, NotANumber(a)));
      return false;
    }
    v = d;
    return true;
  }
  if (d < lo || d > hi) {
    gtl::keep_first_failure(s, AttributeError(a, OutOfRange(str::to_wstring(lo), str::to_wstring(hi))));
    return false;
  }
  v = d;
  return true;
}

bool ReadBounded(const FnAttr& a, std::uint32_t& v, gtl::status& s, std::uint32_t lo, std::uint32_t hi) {
  std::uint32_t n = 0;
  if (!ReadAttr(a.Value, n)) {
    gtl::keep_first_failure(s, AttributeError(a, NotANumber(a)));
    return false;
  }
  if (n < lo || n > hi) {
    gtl::keep_first_failure(s, AttributeError(a, OutOfRange(str::to_wstring(lo), str::to_wstring(hi))));
    return false;
  }
  v = n;
  return true;
}

bool ReadEnum(const FnAttr& a, std::int32_t& v, gtl::status& s, const meta::MetaEnumCommon& table) {
  std::int32_t n = 0;
  if (ReadAttr(a.Value, n) && n != qvi::kNone && table.Contains(n)) {
    v = n;
    return true;
  }
  if (auto byName = table.ValueOf(str::trim(a.Value)); byName && *byName != qvi::kNone) {
    v = *byName;
    return true;
  }
  gtl::keep_first_failure(s, AttributeError(a, str::format(str::load_wstring(33503), a.Value)));
  return false;
}

}  // namespace v7
