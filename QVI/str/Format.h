#pragma once
// "%s" formatting of message texts.
#include <string>
#include <type_traits>
#include <string_view>
#include <vector>

#include "QVI/str/Convert.h"

namespace str {

// Replaces each "%s" of `pattern` by the next argument, in order; "%%" gives a
// single "%". Missing arguments leave the "%s" empty; surplus ones are ignored.
std::wstring format(std::wstring_view pattern, const std::vector<std::wstring>& args);

// Argument conversion for the variadic form: text passes through, numbers are
// written by to_wstring.
inline std::wstring as_arg(std::wstring s) { return s; }
inline std::wstring as_arg(const wchar_t* s) { return s ? std::wstring(s) : std::wstring(); }
inline std::wstring as_arg(std::wstring_view s) { return std::wstring(s); }
inline std::wstring as_arg(std::string_view utf8) { return to_wstring(utf8); }
inline std::wstring as_arg(const char* utf8) { return utf8 ? to_wstring(std::string_view(utf8)) : L""; }
inline std::wstring as_arg(const std::string& utf8) { return to_wstring(std::string_view(utf8)); }
template <class N>
  requires std::is_arithmetic_v<N>
std::wstring as_arg(N n) {
  return to_wstring(n);
}

// Input quoted in a message, made safe to print: control characters (0 to
// 31, 127 and 128 to 159) are written as escapes, "\t", "\n", "\r" for the
// common ones and "\xHH" for the rest (a NUL byte is "\x00"), so that a
// message is one readable line whatever bytes a file held. Other text,
// backslashes included, is kept as it is, so escaping twice changes nothing.
std::wstring escape_controls(std::wstring_view text);

template <class... Args>
  requires(sizeof...(Args) > 0 &&
           (!std::is_same_v<std::remove_cvref_t<Args>, std::vector<std::wstring>> && ...))
std::wstring format(std::wstring_view pattern, Args&&... args) {
  return format(pattern, std::vector<std::wstring>{as_arg(std::forward<Args>(args))...});
}

}  // namespace str
