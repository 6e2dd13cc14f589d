#pragma once
// Record and container identifiers.
#include <compare>
#include <cstdint>
#include <functional>

namespace v7 {

// A record's identifier within its table (its one-based slot), or a table's
// identifier within the document. 0 means none.
using GID = std::uint32_t;

// The invalid identifier.
inline constexpr GID kNoGID = 0;

// A reference to a record of any container: the container's GID, then the
// record's GID within it.
struct GGID {
  GID container = 0;
  GID record = 0;

  constexpr GGID() = default;
  constexpr GGID(GID c, GID r) : container(c), record(r) {}

  // True when both parts are set.
  constexpr bool IsValid() const { return container != 0 && record != 0; }

  friend constexpr bool operator==(const GGID&, const GGID&) = default;
  friend constexpr auto operator<=>(const GGID&, const GGID&) = default;
};

}  // namespace v7

template <>
struct std::hash<v7::GGID> {
  std::size_t operator()(const v7::GGID& g) const noexcept {
    return std::hash<std::uint64_t>{}((std::uint64_t{g.container} << 32) | g.record);
  }
};
