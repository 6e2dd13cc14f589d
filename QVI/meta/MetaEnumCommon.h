#pragma once
// Enumeration tables: value, name and traits of each entry, with conversion
// in both directions. Persisted enumerations are written by name.
//
// Every table ends with the undefined entry (value qvi::kNone); the
// constructor appends one, with an empty name, when the caller's list lacks
// it. A name that is not in the table reads as the undefined value and the
// conversion says so through a warning status.
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/qvi/Markers.h"

namespace meta {

// How a text names an enumeration value.
enum class MetaFormatType {
  Name,    // the value's name ("Hydro")
  Number,  // the value as a decimal number ("2")
};

class MetaEnumCommon {
 public:
  // Entry traits, a bit set.
  enum Traits : unsigned {
    Normal = 0,
    // Read but never written: a second name of a value (the first name of a
    // value is the one written).
    Alias = 1u << 0,
    // Kept for old documents; not offered to users.
    Hidden = 1u << 1,
    // The terminating "no value" entry.
    Undefined = 1u << 2,
  };

  struct Entry {
    std::int32_t value;
    std::wstring name;
    unsigned traits = Normal;
  };

  MetaEnumCommon(std::wstring enum_name, std::initializer_list<Entry> entries);

  // The enumeration's own name, used in messages ("AnalysisKind").
  const std::wstring& EnumName() const { return enum_name_; }
  const std::vector<Entry>& Entries() const { return entries_; }
  std::int32_t UndefinedValue() const { return qvi::kNone; }

  // Text to value. On an unknown text `value` becomes the undefined value and
  // a warning naming text and enumeration comes back. Names match exactly
  // first, then without regard to ASCII case.
  gtl::status ConvertFrom(std::wstring_view text, std::int32_t& value,
                          MetaFormatType format = MetaFormatType::Name) const;

  // Value to name: the first entry with that value. False (and `name` left
  // alone) when the value is not in the table.
  bool ConvertTo(std::int32_t value, std::wstring& name) const;

  // Value to name, empty when the value is not in the table.
  std::wstring NameOf(std::int32_t value) const;
  // Name to value, nothing when the name is unknown.
  std::optional<std::int32_t> ValueOf(std::wstring_view name) const;
  bool Contains(std::int32_t value) const;

 private:
  std::wstring enum_name_;
  std::vector<Entry> entries_;
};

// The table of an enumeration type. Each persisted enumeration declares a
// specialisation next to its type and defines it with a function-local static
// (built once, on first use).
template <class E>
const MetaEnumCommon& EnumTable();

template <class E>
  requires std::is_enum_v<E>
std::wstring ToName(E value) {
  return EnumTable<E>().NameOf(static_cast<std::int32_t>(value));
}

template <class E>
  requires std::is_enum_v<E>
gtl::status FromName(std::wstring_view text, E& value,
                     MetaFormatType format = MetaFormatType::Name) {
  std::int32_t v = qvi::kNone;
  gtl::status s = EnumTable<E>().ConvertFrom(text, v, format);
  value = static_cast<E>(v);
  return s;
}

}  // namespace meta
