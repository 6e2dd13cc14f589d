#pragma once
// One value of a scalar member, and its text form. The text form is the
// persisted one: numbers that read back exactly (shortest round-trip form),
// "true"/"false", enumerations by name, strings as they are.
#include <cstdint>
#include <string>
#include <string_view>

#include "OC/MetaTraits.h"

namespace oc {

// Storage for one scalar of any type, used for getter/setter members and for
// conversions. Enumerations are held as their 32-bit value.
struct ScalarBox {
  bool b = false;
  std::int32_t i32 = 0;
  std::uint32_t u32 = 0;
  std::int64_t i64 = 0;
  double d = 0.0;
  std::wstring s;

  // The slot of the box that holds a value of `type`.
  void* Slot(ValueType type);
  const void* Slot(ValueType type) const { return const_cast<ScalarBox*>(this)->Slot(type); }
};

// Reads a value of `type` held at `storage` as a double (strings: parsed;
// false when the text is no number).
bool ScalarToDouble(ValueType type, const void* storage, double& out);
// Reads a value of `type` as a 64-bit integer (doubles: only integral values).
bool ScalarToInt64(ValueType type, const void* storage, std::int64_t& out);

// Stores `v` into a value of `type`; false when out of the type's range or
// not integral for an integer type. Enumerations must name a value of `table`.
bool ScalarFromDouble(ValueType type, const meta::MetaEnumCommon* table, double v, void* storage);
bool ScalarFromInt64(ValueType type, const meta::MetaEnumCommon* table, std::int64_t v,
                     void* storage);

// The persisted text of a value, UTF-8.
void FormatScalar(ValueType type, const meta::MetaEnumCommon* table, const void* storage,
                  std::string& out);
// Parses persisted text (UTF-8) into a value. False when the text is
// malformed for the type; for an unknown enumeration name the value becomes
// the undefined one, `warning` says so, and the result is true.
bool ParseScalar(ValueType type, const meta::MetaEnumCommon* table, std::string_view text,
                 void* storage, gtl::status& warning);

// Equality of two values of `type`. Doubles compare by bit pattern, so that
// -0 differs from 0 and a NaN equals itself (a default must round-trip).
bool ScalarEqual(ValueType type, const void* a, const void* b);
// Copies a value of `type`.
void ScalarCopy(ValueType type, void* dst, const void* src);

}  // namespace oc
