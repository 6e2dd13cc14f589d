#include "QVI/str/Format.h"

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

}  // namespace str
