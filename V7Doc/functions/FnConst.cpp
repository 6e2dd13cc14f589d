#include "V7Doc/functions/FnConst.h"

#include <cmath>

#include "QVI/str/Convert.h"

namespace v7 {

// The shortest text that reads back as the same double: a constant saved
// and loaded keeps its value to the last bit (16 digits do not always).
std::wstring FnConst::as_wstring() const { return str::to_wstring(value_); }

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
