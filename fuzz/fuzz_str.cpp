// Text conversions and number parsing over arbitrary bytes: UTF-8 decoding
// must never read past the input, and a parsed number must read back.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/KindByExt.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::wstring wide = str::to_wstring(bytes);
  // Decoding then encoding is stable after one round.
  const std::string utf8 = str::to_utf8(wide);
  if (str::to_wstring(utf8) != wide) __builtin_trap();
  double d = 0;
  if (str::parse(wide, d)) {
    double back = 0;
    if (!str::parse(str::to_wstring(d), back) || (back != d && d == d)) __builtin_trap();
  }
  std::int64_t n = 0;
  (void)str::parse(wide, n);
  (void)v7::qvifile::ext::KindByExt(wide);
  return 0;
}
