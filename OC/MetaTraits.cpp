#include "OC/MetaTraits.h"

#include <cmath>

#include "OC/Scalar.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"

namespace meta {

MetaPersistTraits MetaPersistTraits::TagFromTagName(std::wstring_view tag_name) {
  MetaPersistTraits t;
  const auto open = tag_name.find(L'[');
  if (open != std::wstring_view::npos && tag_name.back() == L']') {
    t.tag = std::wstring(tag_name.substr(0, open));
    t.element_tag = std::wstring(tag_name.substr(open + 1, tag_name.size() - open - 2));
  } else {
    t.tag = std::wstring(tag_name);
  }
  return t;
}

}  // namespace meta

namespace oc {
namespace {
constexpr unsigned kMsgTraitsMismatch = 31030;

gtl::status Mismatch(ValueType type, const wchar_t* why) {
  return gtl::status::error(kMsgTraitsMismatch, TypeName(type), why);
}
}  // namespace

const wchar_t* TypeName(ValueType type) {
  switch (type) {
    case ValueType::Bool: return L"Bool";
    case ValueType::Int32: return L"Int32";
    case ValueType::UInt32: return L"UInt32";
    case ValueType::Int64: return L"Int64";
    case ValueType::Double: return L"Double";
    case ValueType::WString: return L"WString";
    case ValueType::Enum: return L"Enum";
    case ValueType::Struct: return L"Struct";
    case ValueType::Array: return L"Array";
    case ValueType::Table: return L"Table";
  }
  return L"?";
}

gtl::status ValidateMetaData(ValueType type, const meta::MetaDataTraits& traits) {
  if ((traits.min || traits.max) && !IsNumeric(type))
    return Mismatch(type, L"bounds on a value that is not a number");
  if (traits.min && traits.max && !(*traits.min <= *traits.max))
    return Mismatch(type, L"lower bound above the upper bound");
  if ((traits.min && std::isnan(*traits.min)) || (traits.max && std::isnan(*traits.max)))
    return Mismatch(type, L"a bound that is not a number");
  if (type == ValueType::Enum && !traits.enum_table)
    return Mismatch(type, L"an enumeration without its table");
  if (type != ValueType::Enum && traits.enum_table)
    return Mismatch(type, L"an enumeration table on a value that is no enumeration");
  if (traits.def) {
    if (!IsScalar(type)) return Mismatch(type, L"a default on a record or collection");
    ScalarBox box;
    gtl::status warning;
    if (!ParseScalar(type, traits.enum_table, str::to_utf8(*traits.def), box.Slot(type), warning) ||
        !warning.succeeded())
      return Mismatch(type, L"a default that does not read as the type");
    double d = 0;
    if (IsNumeric(type) && ScalarToDouble(type, box.Slot(type), d) &&
        ((traits.min && d < *traits.min) || (traits.max && d > *traits.max)))
      return Mismatch(type, L"a default outside the bounds");
    if (type == ValueType::Double && !std::isfinite(box.d) && !traits.AllowsNonFinite())
      return Mismatch(type, L"a default that is not a finite number");
  }
  if ((traits.ref != 0 || !traits.ref_via.empty()) && type != ValueType::UInt32 &&
      type != ValueType::Array)
    return Mismatch(type, L"a reference on a value that is no record number");
  if (traits.ref != 0 && !traits.ref_via.empty())
    return Mismatch(type, L"a reference to a fixed collection and through a member at once");
  if (traits.AllowsNonFinite() && type != ValueType::Double)
    return Mismatch(type, L"NaN and infinities allowed on a value that is no double");
  if (traits.IsReadOnly() && traits.IsLegacy())
    return Mismatch(type, L"a member both read-only and legacy");
  return {};
}

bool OutsideBounds(ValueType type, const void* storage, const meta::MetaDataTraits& traits, double& value) {
  if (!traits.min && !traits.max) return false;
  if (!IsNumeric(type) || !ScalarToDouble(type, storage, value)) return false;
  if (type == ValueType::Double && value == qvi::kNoValue) return false;
  if (type == ValueType::Int32 && *static_cast<const std::int32_t*>(storage) == qvi::kNone) return false;
  return (traits.min && !(value >= *traits.min)) || (traits.max && !(value <= *traits.max));
}

}  // namespace oc
