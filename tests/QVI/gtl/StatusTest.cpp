#include "QVI/gtl/status.h"

#include <gtest/gtest.h>

#include <set>

#include "QVI/gtl/handle.h"
#include "QVI/str/Messages.h"

namespace {

TEST(Status, RendersItsMessageFromTheTable) {
  const auto s = gtl::status::warning(30001, L"Hidro", L"AnalysisKind");
  EXPECT_TRUE(s.is_warning());
  EXPECT_FALSE(s.failed());
  EXPECT_EQ(s.message(), L"\"Hidro\" is not a name of the enumeration AnalysisKind; it reads as "
                         L"undefined.");
  EXPECT_TRUE(gtl::status().succeeded());
  EXPECT_EQ(gtl::status().message(), L"");
}

TEST(Status, UnknownMessageStillNamesItsArguments) {
  const auto s = gtl::status::error(29999, L"file.xml", 12);
  EXPECT_TRUE(s.failed());
  EXPECT_EQ(s.message(), L"message 29999: file.xml, 12");
}

TEST(Status, ArgumentsAreEscapedWhenShown) {
  const std::wstring name(L"Hi\0dro\n", 7);
  const auto s = gtl::status::warning(30001, name, L"AnalysisKind");
  EXPECT_EQ(s.args()[0], name);  // kept as given; escaped only when shown
  EXPECT_EQ(s.message().find(L'\0'), std::wstring::npos);
  EXPECT_NE(s.message().find(L"\"Hi\\x00dro\\n\""), std::wstring::npos) << s.message_utf8();
  EXPECT_EQ(gtl::status::error(29999, name).message(), L"message 29999: Hi\\x00dro\\n");
}

TEST(Status, KeepFirstFailure) {
  gtl::status s;
  gtl::keep_first_failure(s, {});
  EXPECT_TRUE(s.succeeded());
  gtl::keep_first_failure(s, gtl::status::error(1, L"first"));
  gtl::keep_first_failure(s, gtl::status::error(2, L"second"));
  EXPECT_EQ(s.id(), 1u);
}

TEST(MessageTable, NumbersAreUniqueAndTextsNonEmpty) {
  const auto ids = str::message_ids();
  ASSERT_FALSE(ids.empty());
  EXPECT_EQ(std::set<unsigned>(ids.begin(), ids.end()).size(), ids.size())
      << "a message number is defined twice";
  for (unsigned id : ids) EXPECT_FALSE(str::load_wstring(id).empty()) << id;
  EXPECT_TRUE(str::load_wstring(0).empty());
}

struct Counted : gtl::handle_ref_counter {
  explicit Counted(int& alive) : alive_(alive) { ++alive_; }
  ~Counted() override { --alive_; }
  int& alive_;
};

TEST(Handle, SharesAndReleasesOnce) {
  int alive = 0;
  {
    auto a = gtl::make_handle<Counted>(alive);
    EXPECT_TRUE(a.unique());
    auto b = a;
    EXPECT_EQ(a->ref_count(), 2u);
    gtl::handle<Counted> c = std::move(b);
    EXPECT_FALSE(b);
    EXPECT_EQ(a->ref_count(), 2u);
    c = a;  // self-share through another handle
    EXPECT_EQ(a->ref_count(), 2u);
    c.reset();
    EXPECT_TRUE(a.unique());
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}

}  // namespace
