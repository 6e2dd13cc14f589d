#include "QVI/meta/MetaEnumCommon.h"

#include <gtest/gtest.h>

namespace {

enum class Interslice : std::int32_t { Constant = 0, HalfSine = 1, None = qvi::kNone };

}  // namespace

template <>
const meta::MetaEnumCommon& meta::EnumTable<Interslice>() {
  static const MetaEnumCommon table(L"Interslice",
                                    {{0, L"Constant"},
                                     {0, L"Constant Function", MetaEnumCommon::Alias},
                                     {1, L"Half-sine"}});
  return table;
}

namespace {

TEST(MetaEnum, BothDirectionsAndAliases) {
  const auto& t = meta::EnumTable<Interslice>();
  EXPECT_EQ(t.NameOf(0), L"Constant") << "the first name of a value is the one written";
  EXPECT_EQ(t.ValueOf(L"Constant Function"), 0);
  EXPECT_EQ(t.ValueOf(L"half-SINE"), 1) << "names match without regard to case as a fallback";
  EXPECT_EQ(meta::ToName(Interslice::HalfSine), L"Half-sine");
  EXPECT_EQ(t.Entries().back().value, qvi::kNone) << "every table ends with the undefined entry";
  EXPECT_TRUE(t.Entries().back().traits & meta::MetaEnumCommon::Undefined);
}

TEST(MetaEnum, UnknownTextReadsAsUndefinedWithAWarning) {
  struct Case {
    const wchar_t* text;
    meta::MetaFormatType format;
    Interslice expected;
    bool warns;
  } cases[] = {
      {L"Half-sine", meta::MetaFormatType::Name, Interslice::HalfSine, false},
      {L"Quarter-sine", meta::MetaFormatType::Name, Interslice::None, true},
      {L"", meta::MetaFormatType::Name, Interslice::None, false},
      {L"1", meta::MetaFormatType::Number, Interslice::HalfSine, false},
      {L"7", meta::MetaFormatType::Number, Interslice::None, true},
      {L"1.5", meta::MetaFormatType::Number, Interslice::None, true},
      {L"99999999999", meta::MetaFormatType::Number, Interslice::None, true},
  };
  for (const auto& c : cases) {
    Interslice v = Interslice::Constant;
    const auto s = meta::FromName(c.text, v, c.format);
    EXPECT_EQ(v, c.expected) << str::to_utf8(c.text);
    EXPECT_EQ(s.is_warning(), c.warns) << str::to_utf8(c.text);
    if (c.warns) {
      EXPECT_NE(s.message().find(L"Interslice"), std::wstring::npos);
    }
  }
}

}  // namespace
