#pragma once
// What a declaration says about one persistent member: how it is persisted
// (MetaPersistTraits) and what values it takes (MetaDataTraits).
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "QVI/gtl/status.h"

namespace oc {
class RefSink;
}

namespace meta {
class MetaEnumCommon;

// Reports the references a member's value holds inside itself (a function
// that names a record of a table) to `sink`, which may give each a new
// number; the hook stores the new numbers back into the record.
using RefHook = void (*)(void* record, oc::RefSink& sink);

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
    // A reference whose record is gone takes the element of the nearest
    // enclosing list with it (a link that means nothing without its end).
    DropWhenGone = 1u << 2,
    // The element's own identifier within the container that holds the
    // list (an entry keyed by analysis): usage answers name it.
    Key = 1u << 3,
    // A bool that marks the element deleted (waiting for a compaction): a
    // deleted element's references count for nothing.
    Deleted = 1u << 4,
    // A double that may hold NaN and the infinities ("nan", "inf"); every
    // other double refuses them on read and on Set.
    NonFinite = 1u << 5,
  };
  std::optional<double> min;          // lower bound of a numeric value
  std::optional<double> max;          // upper bound of a numeric value
  std::optional<std::wstring> def;    // default as text; the record's own initial value when empty
  std::wstring units;                 // display units ("kPa")
  unsigned flags = None;              // Flags
  const MetaEnumCommon* enum_table = nullptr;  // set for enumerations by the declaration
  // References. A member that holds the number of a record of another
  // collection names that collection (its container GID) here; the
  // framework then finds, renumbers, clears and checks it (OC/References.h).
  std::uint32_t ref = 0;          // the collection the value (or each element) names a record of
  std::wstring ref_via;           // or: the sibling member holding that collection's GID (a GGID)
  RefHook refs_in = nullptr;      // or: the value holds references of its own
  // A collection member of a top-level object: the container GID it is
  // registered as, so that its records' references answer for it.
  std::uint32_t collection = 0;

  MetaDataTraits& Bounds(double lo, double hi) { min = lo; max = hi; return *this; }
  MetaDataTraits& Default(std::wstring text) { def = std::move(text); return *this; }
  MetaDataTraits& Units(std::wstring u) { units = std::move(u); return *this; }
  MetaDataTraits& Flag(unsigned f) { flags |= f; return *this; }
  // The value is the number of a record of collection `c` (0: none). On an
  // array of numbers, each element is; on a key map, each value is.
  MetaDataTraits& Ref(std::uint32_t c) { ref = c; return *this; }
  // The value is the number of a record of the collection named by the
  // sibling member `container_member` (a GGID split in two members).
  MetaDataTraits& RefVia(std::wstring container_member) { ref_via = std::move(container_member); return *this; }
  MetaDataTraits& RefsIn(RefHook hook) { refs_in = hook; return *this; }
  MetaDataTraits& Collection(std::uint32_t id) { collection = id; return *this; }
  bool IsReference() const { return ref != 0 || !ref_via.empty() || refs_in != nullptr; }
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

// True when the number of `type` at `storage` lies outside the bounds of
// `traits`, its value then in `value`. An undefined value (no value, none)
// lies within any bounds: it means "not given".
bool OutsideBounds(ValueType type, const void* storage, const meta::MetaDataTraits& traits, double& value);

// Checks, at declaration, that `traits` fit a member of type `type`: bounds
// only on numbers and in order, an enumeration table exactly on
// enumerations, a default that parses as the type and lies within bounds.
gtl::status ValidateMetaData(ValueType type, const meta::MetaDataTraits& traits);

}  // namespace oc
