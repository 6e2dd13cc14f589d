#pragma once
// Conversions between the API's wide strings and the UTF-8 of files.
#include <cstdint>
#include <string>
#include <string_view>

namespace str {

// UTF-8 to wide (UTF-32 on Linux). Malformed sequences become U+FFFD.
std::wstring to_wstring(std::string_view utf8);

// Wide to UTF-8. Unpaired surrogates and values beyond U+10FFFF become U+FFFD.
std::string to_utf8(std::wstring_view wide);
// The same, appended to `out` (no allocation when `out` has the room).
void append_utf8(std::string& out, std::wstring_view wide);

// Numbers as text. Doubles use the shortest form that reads back exactly.
std::wstring to_wstring(double value);
std::wstring to_wstring(long long value);
std::wstring to_wstring(unsigned long long value);
inline std::wstring to_wstring(int value) { return to_wstring(static_cast<long long>(value)); }
inline std::wstring to_wstring(long value) { return to_wstring(static_cast<long long>(value)); }
inline std::wstring to_wstring(unsigned value) {
  return to_wstring(static_cast<unsigned long long>(value));
}
inline std::wstring to_wstring(unsigned long value) {
  return to_wstring(static_cast<unsigned long long>(value));
}

// Whole-text number parsing: leading/trailing blanks allowed, nothing else.
// Return false (and leave `out` alone) when the text is not a number or is
// out of range.
bool parse(std::wstring_view text, double& out);
bool parse(std::wstring_view text, std::int64_t& out);

// ASCII case-insensitive comparison (file extensions, keywords).
bool iequals(std::wstring_view a, std::wstring_view b);
std::wstring to_lower(std::wstring_view text);

// The one test of a blank used by every reader of text: characters 9 to 13
// (tab, line feed, vertical tab, form feed, carriage return) and 32 (space).
constexpr bool is_blank(wchar_t c) { return c == L' ' || (c >= 9 && c <= 13); }
constexpr bool is_blank(char c) { return c == ' ' || (c >= 9 && c <= 13); }

// Blanks removed from both ends.
std::wstring_view trim(std::wstring_view text);

}  // namespace str
