#include "V7Doc/functions/FnConst.h"

#include <cmath>
#include <cwchar>

namespace v7 {

std::wstring FnConst::as_wstring() const {
  wchar_t buf[64];
  std::swprintf(buf, 64, L"%.16g", value_);
  return buf;
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
