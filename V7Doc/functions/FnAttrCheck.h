#pragma once
// Reading numbers of the soil-water, estimator and probability kinds from
// their attribute text, with the "%s : %s" error (attribute name, reason)
// that these kinds report. A failed read leaves the field unchanged.
#include <cstdint>
#include <limits>

#include "QVI/gtl/status.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "V7Doc/functions/FnAttr.h"

namespace v7 {

// Reads a double within [lo, hi]. Empty text reads as unset (the no-value
// marker) when `allowUnset`; infinities are never accepted. On failure keeps
// the first error in `s` and returns false.
bool ReadBounded(const FnAttr& a, double& v, gtl::status& s,
                 double lo = std::numeric_limits<double>::lowest(),
                 double hi = std::numeric_limits<double>::max(), bool allowUnset = true);
// Reads an unsigned integer within [lo, hi].
bool ReadBounded(const FnAttr& a, std::uint32_t& v, gtl::status& s, std::uint32_t lo = 0,
                 std::uint32_t hi = std::numeric_limits<std::uint32_t>::max());
// Reads an enumeration value by number or by name from `table`'s names.
bool ReadEnum(const FnAttr& a, std::int32_t& v, gtl::status& s, const meta::MetaEnumCommon& table);

// The "%s : %s" error: the attribute's name and the reason.
gtl::status AttributeError(const FnAttr& a, const std::wstring& reason);

}  // namespace v7
