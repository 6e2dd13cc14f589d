#include "QVI/meta/MetaEnumCommon.h"

#include <algorithm>

#include "QVI/str/Convert.h"

namespace meta {
namespace {
constexpr unsigned kMsgUnknownName = 30001;
constexpr unsigned kMsgUnknownValue = 30002;
}  // namespace

MetaEnumCommon::MetaEnumCommon(std::wstring enum_name, std::initializer_list<Entry> entries)
    : enum_name_(std::move(enum_name)), entries_(entries) {
  const bool has_undefined = std::any_of(entries_.begin(), entries_.end(),
                                         [](const Entry& e) { return e.value == qvi::kNone; });
  if (!has_undefined) entries_.push_back({qvi::kNone, L"", Undefined});
  for (auto& e : entries_)
    if (e.value == qvi::kNone) e.traits |= Undefined;
}

gtl::status MetaEnumCommon::ConvertFrom(std::wstring_view text, std::int32_t& value,
                                        MetaFormatType format) const {
  if (format == MetaFormatType::Number) {
    std::int64_t n = 0;
    if (str::parse(text, n) && n >= INT32_MIN && n <= INT32_MAX &&
        Contains(static_cast<std::int32_t>(n))) {
      value = static_cast<std::int32_t>(n);
      return {};
    }
    value = UndefinedValue();
    return gtl::status::warning(kMsgUnknownValue, std::wstring(text), enum_name_);
  }
  if (auto v = ValueOf(text)) {
    value = *v;
    return {};
  }
  value = UndefinedValue();
  return gtl::status::warning(kMsgUnknownName, std::wstring(text), enum_name_);
}

bool MetaEnumCommon::ConvertTo(std::int32_t value, std::wstring& name) const {
  for (const auto& e : entries_)
    if (e.value == value) {
      name = e.name;
      return true;
    }
  return false;
}

std::wstring MetaEnumCommon::NameOf(std::int32_t value) const {
  std::wstring name;
  ConvertTo(value, name);
  return name;
}

std::optional<std::int32_t> MetaEnumCommon::ValueOf(std::wstring_view name) const {
  for (const auto& e : entries_)
    if (e.name == name) return e.value;
  if (name.empty()) return std::nullopt;
  for (const auto& e : entries_)
    if (!e.name.empty() && str::iequals(e.name, name)) return e.value;
  return std::nullopt;
}

bool MetaEnumCommon::Contains(std::int32_t value) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [value](const Entry& e) { return e.value == value; });
}

}  // namespace meta
