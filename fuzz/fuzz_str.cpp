// Text conversions and number parsing over arbitrary bytes: UTF-8 decoding
// must never read past the input, and a parsed number must read back.
//
// The extension look-up is seeded from KindByExt's own table: the first byte
// picks an entry, whose extension (its case changed by the second byte, a
// series "*" replaced by the rest of the input) must come back as the kind
// that the first entry of that extension names.
#include <cstddef>
#include <cstdint>
#include <cwctype>
#include <string_view>

#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/KindByExt.h"

namespace {

void CheckKindByExt(const std::uint8_t* data, std::size_t size, const std::wstring& rest) {
  namespace ext = v7::qvifile::ext;
  const auto entries = ext::KindByExtEntries();
  if (size < 2 || entries.empty()) return;
  const ext::KindEntry& e = entries[data[0] % entries.size()];
  std::wstring text = e.ext;
  for (std::size_t i = 0; i < text.size(); ++i)
    if ((data[1] >> (i % 8)) & 1) text[i] = static_cast<wchar_t>(std::towupper(text[i]));
  // The kind of the first entry of this extension, ignoring case.
  v7::AnalysisKind expected = e.kind;
  for (const ext::KindEntry& other : entries)
    if (str::iequals(other.ext, e.ext)) {
      expected = other.kind;
      break;
    }
  if (ext::KindByExt(text) != expected) __builtin_trap();
  // A series extension with any step text: never a crash, and a decimal
  // step finds the series.
  if (!text.empty() && text.back() == L'*') {
    text.pop_back();
    const v7::AnalysisKind k = ext::KindByExt(text + rest);
    bool digits = !rest.empty() && rest.size() < 9;
    for (wchar_t c : rest) digits = digits && c >= L'0' && c <= L'9';
    if (digits && k == v7::AnalysisKind::None) __builtin_trap();
  }
}

}  // namespace

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
  const std::wstring escaped = str::escape_controls(wide);
  if (str::escape_controls(escaped) != escaped) __builtin_trap();
  if (size >= 2) CheckKindByExt(data, size, str::to_wstring(bytes.substr(2)));
  return 0;
}
