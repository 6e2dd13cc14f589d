#include "QVI/doc/FileName.h"

namespace doc::file {

Name::Name(std::wstring_view path) {
  const auto slash = path.find_last_of(L"/\\");
  std::wstring_view leaf = path;
  if (slash != std::wstring_view::npos) {
    folder_ = std::wstring(path.substr(0, slash + 1));
    leaf = path.substr(slash + 1);
  }
  // A leading dot names a hidden file, not an extension (".base" alone).
  const auto dot = leaf.find_last_of(L'.');
  if (dot == std::wstring_view::npos || dot == 0) {
    stem_ = std::wstring(leaf);
  } else {
    stem_ = std::wstring(leaf.substr(0, dot));
    ext_ = std::wstring(leaf.substr(dot));
  }
}

Name Name::WithExt(std::wstring_view ext) const {
  Name n = *this;
  n.ext_ = std::wstring(ext);
  return n;
}

std::wstring Name::Below(std::wstring_view leaf) const {
  std::wstring p = Path();
  if (!p.empty() && p.back() != L'/' && p.back() != L'\\') p += L'/';
  return p + std::wstring(leaf);
}

}  // namespace doc::file
