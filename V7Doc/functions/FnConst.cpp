#include "V7Doc/functions/FnConst.h"

#include <charconv>
#include <cmath>

namespace v7 {

std::wstring FnConst::as_wstring() const {
  // "%.16g" as printf writes it (std::to_chars with a precision is defined
  // as printf's conversion), without printf's locale and stream machinery:
  // a save writes one of these per constant member.
  char buf[64];
  const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value_, std::chars_format::general, 16);
  return std::wstring(buf, ec == std::errc() ? end : buf);
}

gtl::status FnConst::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    if (a.Name != L"Value") continue;
    double v = 0;
    if (!ReadAttr(a.Value, v) || std::isinf(v))
      gtl::keep_first_failure(s, InvalidAttributeValue(L"Constant", a));
    else
      value_ = v;
  }
  return s;
}

void FnConst::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttr(L"Value", str::to_wstring(value_)));
}

gtl::status FnUndefinedType::SetAttributes(const std::vector<FnAttr>& attrs) {
  return FnImpl::SetAttributes(attrs);
}

}  // namespace v7
