#include "QVI/str/Convert.h"

#include <gtest/gtest.h>

#include <cmath>

#include "QVI/str/Format.h"

namespace {

TEST(Utf8, RoundTripsEveryPlane) {
  const std::wstring samples[] = {L"", L"plain", L"K\u03B1 correction", L"\u00E9t\u00E9",
                                  L"\U0001F600 emoji", std::wstring(1, L'\0') + L"x"};
  for (const auto& s : samples) EXPECT_EQ(str::to_wstring(str::to_utf8(s)), s);
}

TEST(Utf8, MalformedInputBecomesReplacementCharacters) {
  struct Case {
    std::string bytes;
    std::wstring expected;
  } cases[] = {
      {"\xC3", L"\uFFFD"},                  // truncated two-byte sequence
      {"\xC0\xAF", L"\uFFFD"},              // overlong "/"
      {"a\xFF" "b", L"a\uFFFD" L"b"},       // invalid lead byte
      {"\xED\xA0\x80", L"\uFFFD"},          // encoded surrogate
      {"\xF4\x90\x80\x80", L"\uFFFD"},      // beyond U+10FFFF
  };
  for (const auto& c : cases) EXPECT_EQ(str::to_wstring(c.bytes), c.expected) << c.bytes.size();
}

TEST(Numbers, ParseAcceptsWholeNumbersOnly) {
  struct Case {
    const wchar_t* text;
    bool ok;
    double value;
  } cases[] = {{L"1.5", true, 1.5},     {L"  -2e3 ", true, -2000}, {L"+4", true, 4},
               {L"1.5x", false, 0},     {L"", false, 0},           {L"1e999", false, 0},
               {L"\u0661", false, 0},   {L"--1", false, 0},        {L"+-1", false, 0},
               {L"++1", false, 0},      {L"+", false, 0},          {L" +0.5", true, 0.5}};
  for (const auto& c : cases) {
    double v = -7;
    EXPECT_EQ(str::parse(c.text, v), c.ok) << str::to_utf8(c.text);
    if (c.ok) {
      EXPECT_EQ(v, c.value);
    } else {
      EXPECT_EQ(v, -7) << "a failed parse must leave the output alone";
    }
  }
  std::int64_t n = 0;
  EXPECT_TRUE(str::parse(L"-9223372036854775808", n));
  EXPECT_EQ(n, INT64_MIN);
  EXPECT_FALSE(str::parse(L"9223372036854775808", n));
  EXPECT_FALSE(str::parse(L"1.0", n));
  for (const wchar_t* bad : {L"+-3", L"++3", L"+"}) {
    n = 11;
    EXPECT_FALSE(str::parse(bad, n)) << str::to_utf8(bad);
    EXPECT_EQ(n, 11);
  }
  EXPECT_TRUE(str::parse(L"+3", n));
  EXPECT_EQ(n, 3);
}

TEST(Numbers, DoublesWrittenShortestAndExact) {
  const double values[] = {0.1, 1.0 / 3, 1e-310, 1.7976931348623157e308, -0.0, 123456789.125};
  for (double v : values) {
    double back = 0;
    ASSERT_TRUE(str::parse(str::to_wstring(v), back)) << v;
    EXPECT_EQ(std::signbit(back), std::signbit(v));
    EXPECT_EQ(back, v);
  }
  EXPECT_EQ(str::to_wstring(0.1), L"0.1");
}

TEST(Format, FillsArgumentsInOrder) {
  EXPECT_EQ(str::format(L"%s:\n\n%s", L"a", L"b"), L"a:\n\nb");
  EXPECT_EQ(str::format(L"100%% of %s", 3), L"100% of 3");
  EXPECT_EQ(str::format(L"%s and %s", L"one"), L"one and ");
  EXPECT_EQ(str::format(L"no args", L"x"), L"no args");
  EXPECT_EQ(str::format(L"trailing %", L"x"), L"trailing %");
}

// One rule for blanks everywhere: characters 9 to 13 and 32, nothing else.
TEST(Blanks, AreNineToThirteenAndSpace) {
  for (int c = 0; c < 256; ++c) {
    const bool blank = c == 32 || (c >= 9 && c <= 13);
    EXPECT_EQ(str::is_blank(static_cast<wchar_t>(c)), blank) << c;
    EXPECT_EQ(str::is_blank(static_cast<char>(c)), blank) << c;
    const std::wstring padded = std::wstring(1, static_cast<wchar_t>(c)) + L"7" +
                                std::wstring(1, static_cast<wchar_t>(c));
    EXPECT_EQ(str::trim(padded) == L"7", blank) << c;
    double d = 0;
    if (c < '0' || c > '9') {
      EXPECT_EQ(str::parse(padded, d), blank) << c;
    }
  }
  EXPECT_EQ(str::trim(L"\v\f \t\r\n"), L"");
}

TEST(EscapeControls, MakesQuotedInputOneReadableLine) {
  const struct {
    std::wstring in, out;
  } cases[] = {
      {std::wstring(L"a\0b", 3), L"a\\x00b"},
      {L"tab\there", L"tab\\there"},
      {L"two\nlines\r", L"two\\nlines\\r"},
      {L"\v\f\x1B\x7F", L"\\x0B\\x0C\\x1B\\x7F"},
      {L"\u0085\u009F", L"\\x85\\x9F"},                      // C1 controls
      {L"C:\\p\\slope \u00E9\u03B1", L"C:\\p\\slope \u00E9\u03B1"},  // kept as it is
      {L"", L""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(str::escape_controls(c.in), c.out) << str::to_utf8(c.out);
    EXPECT_EQ(str::escape_controls(c.out), c.out) << "escaping twice changes nothing";
  }
}

TEST(CaseInsensitive, ComparesAsciiOnly) {
  EXPECT_TRUE(str::iequals(L"QVZ", L"qvz"));
  EXPECT_FALSE(str::iequals(L"qvz", L"qv"));
  EXPECT_FALSE(str::iequals(L"\u00C9", L"\u00E9"));
}

}  // namespace
