#include "QVI/str/Format.h"

#include <cstdint>

namespace str {

std::wstring format(std::wstring_view pattern, const std::vector<std::wstring>& args) {
  std::wstring out;
  out.reserve(pattern.size() + 16 * args.size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const wchar_t c = pattern[i];
    if (c == L'%' && i + 1 < pattern.size()) {
      if (pattern[i + 1] == L's') {
        if (next < args.size()) out += args[next];
        ++next;
        ++i;
        continue;
      }
      if (pattern[i + 1] == L'%') {
        out.push_back(L'%');
        ++i;
        continue;
      }
    }
    out.push_back(c);
  }
  return out;
}

std::wstring escape_controls(std::wstring_view text) {
  const auto control = [](wchar_t c) {
    const auto v = static_cast<std::uint32_t>(c);
    return v < 32 || (v >= 127 && v < 160);
  };
  std::wstring out;
  out.reserve(text.size());
  for (wchar_t c : text) {
    if (!control(c)) {
      out.push_back(c);
      continue;
    }
    switch (c) {
      case L'\t': out += L"\\t"; break;
      case L'\n': out += L"\\n"; break;
      case L'\r': out += L"\\r"; break;
      default: {
        static constexpr wchar_t kHex[] = L"0123456789ABCDEF";
        const auto v = static_cast<std::uint32_t>(c);
        out += L"\\x";
        out.push_back(kHex[(v >> 4) & 0xF]);
        out.push_back(kHex[v & 0xF]);
      }
    }
  }
  return out;
}

}  // namespace str
