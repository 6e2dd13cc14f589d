#pragma once
// What a declaration says about one persistent member: how it is persisted
// (MetaPersistTraits) and what values it takes (MetaDataTraits).
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "QVI/gtl/status.h"

namespace meta {
class MetaEnumCommon;

// The persisted name of a member. A tag may be a dotted path, whose leading
// steps become wrapper elements shared with sibling members
// ("Functions.Material.Hydraulic.KFns"); a collection also names the tag of
// one element ("KFn").
struct MetaPersistTraits {
  std::wstring tag;          // persisted name, possibly dotted
  std::wstring element_tag;  // tag of one element of a collection; empty otherwise

  // Builds the traits from a persisted name: "Points" or the collection path
  // "GeometryItems.Points[Point]".
  static MetaPersistTraits TagFromTagName(std::wstring_view tag_name);
};

// The value type and validity rules of a member.
struct MetaDataTraits {
  enum Flags : unsigned {
    None = 0,
    ReadOnly = 1u << 0,  // persisted and readable; Set refuses
    Legacy = 1u << 1,    // read from old files, never written
    // A double that may hold NaN and the infinities ("nan", "inf"); every
    // other double refuses them on read and on Set.
    NonFinite = 1u << 2,
  };
  std::optional<double> min;          // lower bound of a numeric value
  std::optional<double> max;          // upper bound of a numeric value
  std::optional<std::wstring> def;    // default as text; the record's own initial value when empty
  std::wstring units;                 // display units ("kPa")
  unsigned flags = None;              // Flags
  const MetaEnumCommon* enum_table = nullptr;  // set for enumerations by the declaration

  MetaDataTraits& Bounds(double lo, double hi) { min = lo; max = hi; return *this; }
  MetaDataTraits& Default(std::wstring text) { def = std::move(text); return *this; }
  MetaDataTraits& Units(std::wstring u) { units = std::move(u); return *this; }
  MetaDataTraits& Flag(unsigned f) { flags |= f; return *this; }
  bool IsReadOnly() const { return (flags & ReadOnly) != 0; }
  bool IsLegacy() const { return (flags & Legacy) != 0; }
  bool AllowsNonFinite() const { return (flags & NonFinite) != 0; }
};

}  // namespace meta

namespace oc {

// The value type of a declared node.
enum class ValueType : std::uint8_t {
  Bool,
  Int32,
  UInt32,   // GID and other unsigned identifiers
  Int64,
  Double,
  WString,
  Enum,     // persisted by name through its meta::MetaEnumCommon table
  Struct,   // a nested record
  Array,    // a vector of records or of values
  Table,    // an identified record table (QVContainerTable): elements carry their ID
};

// The type's name for messages ("Double").
const wchar_t* TypeName(ValueType type);

// True for the types that hold one value (not a record or a collection).
constexpr bool IsScalar(ValueType t) { return t <= ValueType::Enum; }
// True for the numeric types that bounds apply to.
constexpr bool IsNumeric(ValueType t) {
  return t == ValueType::Int32 || t == ValueType::UInt32 || t == ValueType::Int64 ||
         t == ValueType::Double;
}

// Checks, at declaration, that `traits` fit a member of type `type`: bounds
// only on numbers and in order, an enumeration table exactly on
// enumerations, a default that parses as the type and lies within bounds.
gtl::status ValidateMetaData(ValueType type, const meta::MetaDataTraits& traits);

}  // namespace oc
