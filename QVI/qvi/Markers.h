#pragma once
// The two markers used throughout the document model for "nothing here".
#include <cstdint>
#include <limits>

namespace qvi {

// An unset parameter, coordinate or result: the largest finite double.
inline constexpr double kNoValue = std::numeric_limits<double>::max();

// A missing enumeration value or selection: the largest signed 32-bit value.
inline constexpr std::int32_t kNone = 0x7FFFFFFF;

// True when `value` is the no-value marker.
constexpr bool IsNoValue(double value) { return value == kNoValue; }

}  // namespace qvi
