#include "QVI/str/Convert.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cwctype>

namespace str {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void append_utf8(std::string& out, char32_t cp) {
  if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = kReplacement;
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

}  // namespace

std::wstring to_wstring(std::string_view s) {
  std::wstring out;
  out.reserve(s.size());
  std::size_t i = 0;
  while (i < s.size()) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    int extra = 0;
    char32_t cp = 0;
    char32_t min = 0;
    if (b0 < 0x80) {
      cp = b0;
    } else if ((b0 & 0xE0) == 0xC0) {
      extra = 1, cp = b0 & 0x1F, min = 0x80;
    } else if ((b0 & 0xF0) == 0xE0) {
      extra = 2, cp = b0 & 0x0F, min = 0x800;
    } else if ((b0 & 0xF8) == 0xF0) {
      extra = 3, cp = b0 & 0x07, min = 0x10000;
    } else {
      out.push_back(static_cast<wchar_t>(kReplacement));
      ++i;
      continue;
    }
    std::size_t j = 1;
    bool ok = true;
    for (; j <= static_cast<std::size_t>(extra); ++j) {
      if (i + j >= s.size() || (static_cast<unsigned char>(s[i + j]) & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      cp = (cp << 6) | (static_cast<unsigned char>(s[i + j]) & 0x3F);
    }
    if (!ok || cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
      out.push_back(static_cast<wchar_t>(kReplacement));
      i += ok ? j : j;  // skip the lead byte and any continuation bytes read
      continue;
    }
    out.push_back(static_cast<wchar_t>(cp));
    i += j;
  }
  return out;
}

std::string to_utf8(std::wstring_view w) {
  std::string out;
  out.reserve(w.size());
  append_utf8(out, w);
  return out;
}

void append_utf8(std::string& out, std::wstring_view w) {
  for (std::size_t i = 0; i < w.size(); ++i) {
    auto cp = static_cast<char32_t>(w[i]);
    if constexpr (sizeof(wchar_t) == 2) {
      // UTF-16 input: join surrogate pairs.
      if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < w.size()) {
        const auto lo = static_cast<char32_t>(w[i + 1]);
        if (lo >= 0xDC00 && lo <= 0xDFFF) {
          cp = 0x10000 + ((cp - 0xD800) << 10) + (lo - 0xDC00);
          ++i;
        }
      }
    }
    append_utf8(out, cp);
  }
}

std::wstring to_wstring(double value) {
  char buf[64];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
  if (ec != std::errc()) return L"nan";
  return std::wstring(buf, end);
}

std::wstring to_wstring(long long value) {
  char buf[32];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
  (void)ec;
  return std::wstring(buf, end);
}

std::wstring to_wstring(unsigned long long value) {
  char buf[32];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
  (void)ec;
  return std::wstring(buf, end);
}

std::wstring_view trim(std::wstring_view t) {
  while (!t.empty() && is_blank(t.front())) t.remove_prefix(1);
  while (!t.empty() && is_blank(t.back())) t.remove_suffix(1);
  return t;
}

namespace {
// Narrow an ASCII number text; any non-ASCII character makes it invalid.
bool narrow_number(std::wstring_view text, std::string& out) {
  text = trim(text);
  if (text.empty() || text.size() > 512) return false;
  out.clear();
  for (wchar_t c : text) {
    if (c <= 0 || c > 0x7F) return false;
    out.push_back(static_cast<char>(c));
  }
  return true;
}
}  // namespace

bool parse(std::wstring_view text, double& out) {
  std::string s;
  if (!narrow_number(text, s)) return false;
  const char* first = s.c_str();
  // from_chars refuses a leading plus; one plus is allowed, not one before
  // another sign ("+-1").
  if (*first == '+' && first[1] != '-' && first[1] != '+') ++first;
  double v = 0;
  auto [end, ec] = std::from_chars(first, s.c_str() + s.size(), v);
  if (ec != std::errc() || end != s.c_str() + s.size()) return false;
  out = v;
  return true;
}

bool parse(std::wstring_view text, std::int64_t& out) {
  std::string s;
  if (!narrow_number(text, s)) return false;
  const char* first = s.c_str();
  if (*first == '+' && first[1] != '-' && first[1] != '+') ++first;
  std::int64_t v = 0;
  auto [end, ec] = std::from_chars(first, s.c_str() + s.size(), v);
  if (ec != std::errc() || end != s.c_str() + s.size()) return false;
  out = v;
  return true;
}

bool iequals(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    wchar_t x = a[i], y = b[i];
    if (x >= L'A' && x <= L'Z') x = static_cast<wchar_t>(x - L'A' + L'a');
    if (y >= L'A' && y <= L'Z') y = static_cast<wchar_t>(y - L'A' + L'a');
    if (x != y) return false;
  }
  return true;
}

std::wstring to_lower(std::wstring_view text) {
  std::wstring out(text);
  for (auto& c : out)
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  return out;
}

}  // namespace str
