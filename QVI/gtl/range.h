#pragma once
// A closed interval [min, max] of ordered values.
#include <algorithm>

namespace gtl {

template <class T>
struct range {
  T min{};  // lower end
  T max{};  // upper end

  // True when min <= max.
  constexpr bool valid() const { return !(max < min); }
  // True when `v` lies within the ends, both included.
  constexpr bool contains(const T& v) const { return !(v < min) && !(max < v); }
  // `v` clamped into the interval (the interval must be valid).
  constexpr T truncate(const T& v) const { return v < min ? min : (max < v ? max : v); }
  // max - min.
  constexpr T length() const { return max - min; }
  // The smallest interval holding this one and `v`.
  constexpr range extended(const T& v) const { return {std::min(min, v), std::max(max, v)}; }

  friend constexpr bool operator==(const range&, const range&) = default;
};

}  // namespace gtl
