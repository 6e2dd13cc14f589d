// Reading nested records: a nested record is put back to its own type's
// defaults before it is read (the writer skipped the members at those
// defaults), unless it is known to hold them already. These cases catch a
// reader that skips that reset too eagerly.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

// `anchor_` starts away from Point's own default; `plain_` and the wrapped
// `inner_` start at it.
struct Anchored {
  Point anchor_{1.5, -2.0};
  Point plain_;
  Point inner_;
  double fZ_ = 0.0;
  friend bool operator==(const Anchored&, const Anchored&) = default;
};

// Fixed-length arrays (std::array) declared as collections: written like a
// vector, read back with the missing tail at its default, more than N
// elements refused with the collection's path and line.
struct Corner {
  double x = 0;
  double y = 0;
  friend bool operator==(const Corner&, const Corner&) = default;
};

struct Cell {
  std::array<std::int32_t, 4> ids{};
  std::array<Corner, 2> corners{};
  std::wstring name;
  friend bool operator==(const Cell&, const Cell&) = default;
};


}  // namespace
}  // namespace octest

template <>
const oc::RecordType& oc::TypeOf<octest::Anchored>() {
  using octest::Anchored;
  static const RecordType& t = Schema<Anchored>(L"Anchored")
                                   .Add(&Anchored::anchor_, L"anchor_", L"Anchor")
                                   .Add(&Anchored::plain_, L"plain_", L"Plain")
                                   .Add(&Anchored::inner_, L"inner_", L"Group.Inner")
                                   .Add(&Anchored::fZ_, L"fZ_", L"Z")
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<octest::Corner>() {
  static const RecordType& t = Schema<octest::Corner>(L"Corner")
                                   .Add(&octest::Corner::x, L"x", L"X")
                                   .Add(&octest::Corner::y, L"y", L"Y")
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<octest::Cell>() {
  static const RecordType& t =
      Schema<octest::Cell>(L"Cell")
          .Add(&octest::Cell::ids, L"ids", L"Ids[I]", meta::MetaDataTraits{}.Bounds(0, 1000))
          .Add(&octest::Cell::corners, L"corners", L"Shape.Corners[C]")
          .Add(&octest::Cell::name, L"name", L"Name")
          .Done();
  return t;
}

namespace octest {
namespace {

struct Case {
  const char* what;
  const char* body;  // children of the root element
  Point anchor, plain, inner;
  double z;
  std::size_t warnings;
};

TEST(NestedRead, ResetOnlyWhereItChangesTheResult) {
  RegisterTestTypes();
  const Case cases[] = {
      {"nothing listed: the owner's defaults stay", "", {1.5, -2.0}, {0, 0}, {0, 0}, 0, 0},
      // X was skipped as Point's default 0, not the owner's 1.5.
      {"owner default differs", "<Anchor><Y>7</Y></Anchor>", {0, 7}, {0, 0}, {0, 0}, 0, 0},
      {"same defaults", "<Plain><X>3</X></Plain>", {1.5, -2.0}, {3, 0}, {0, 0}, 0, 0},
      // The last occurrence wins whole: nothing of the first survives.
      {"element twice", "<Plain><X>3</X></Plain><Plain><Y>4</Y></Plain>", {1.5, -2.0}, {0, 4}, {0, 0}, 0, 0},
      {"wrapper twice", "<Group><Inner><X>1</X></Inner></Group><Group><Inner><Y>2</Y></Inner></Group>",
       {1.5, -2.0}, {0, 0}, {0, 2}, 0, 0},
      {"element twice, owner default differs", "<Anchor><X>5</X></Anchor><Anchor><Y>6</Y></Anchor>",
       {0, 6}, {0, 0}, {0, 0}, 0, 0},
      // Out of the written order, with an unknown element and padded numbers.
      {"any order", "<Z> 9.25\n</Z><Bogus/><Group><Inner><X>\t8</X></Inner></Group><Plain><Y>4</Y></Plain>"
                    "<Anchor><X>2</X></Anchor>",
       {2, 0}, {0, 4}, {8, 0}, 9.25, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string xml = std::string("<Anchored>") + c.body + "</Anchored>";
    Anchored a;
    oc::xml::ReadReport report;
    ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(a), &report).succeeded());
    EXPECT_EQ(report.messages.size(), c.warnings);
    EXPECT_EQ(a.anchor_, c.anchor);
    EXPECT_EQ(a.plain_, c.plain);
    EXPECT_EQ(a.inner_, c.inner);
    EXPECT_EQ(a.fZ_, c.z);
  }
}

TEST(NestedRead, RoundTripKeepsValuesAtEitherDefault) {
  RegisterTestTypes();
  const Anchored samples[] = {
      Anchored{},
      Anchored{{0, 0}, {1.5, -2.0}, {0, 1}, 3},
      Anchored{{0, 7}, {0, 0}, {-0.0, 0}, 0},
      Anchored{{1.5, 0}, {0, -2.0}, {2, 2}, -1},
  };
  for (const Anchored& s : samples) {
    Anchored copy = s;
    std::string xml;
    ASSERT_TRUE(oc::xml::StringWrite(oc::Store(copy), xml).succeeded());
    Anchored back;
    ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(back), nullptr).succeeded()) << xml;
    EXPECT_TRUE(back == s) << xml;
  }
}

TEST(FixedArray, RoundTripWritesEveryElement) {
  Cell c;
  c.ids = {7, 0, 3, 0};
  c.corners = {Corner{1.5, -2}, Corner{}};
  std::string xml;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(c), xml).succeeded());
  EXPECT_NE(xml.find("<Ids>\n    <I>7</I>\n    <I>0</I>\n    <I>3</I>\n    <I>0</I>\n  </Ids>"),
            std::string::npos)
      << xml;
  Cell back;
  ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(back)).succeeded());
  EXPECT_EQ(back, c);
  std::string again;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(back), again).succeeded());
  EXPECT_EQ(again, xml);
}

TEST(FixedArray, ReadsFewerAndRefusesMore) {
  struct Case {
    const char* what;
    std::string body;
    std::array<std::int32_t, 4> ids;
    Corner second;
    const char* error;  // part of the error; nullptr when the read succeeds
  };
  const Case cases[] = {
      {"all four", "<Ids><I>1</I><I>2</I><I>3</I><I>4</I></Ids>", {1, 2, 3, 4}, {}, nullptr},
      {"two: the rest at default", "<Ids><I>1</I><I>2</I></Ids>", {1, 2, 0, 0}, {}, nullptr},
      {"none", "<Ids/>", {0, 0, 0, 0}, {}, nullptr},
      {"one record", "<Shape><Corners><C><X>4</X></C></Corners></Shape>", {}, {}, nullptr},
      {"two records", "<Shape><Corners><C/><C><Y>9</Y></C></Corners></Shape>", {}, {0, 9}, nullptr},
      {"five values", "<Ids><I>1</I><I>2</I><I>3</I><I>4</I>\n<I>5</I></Ids>", {}, {},
       "More than 4 elements at Ids, line 2"},
      {"three records", "<Shape><Corners><C/><C/>\n\n<C/></Corners></Shape>", {}, {},
       "More than 2 elements at Shape.Corners, line 3"},
      {"a bad value", "<Ids><I>1</I><I>x</I></Ids>", {}, {}, "Malformed value \"x\" at Ids[1]"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Cell cell;
    cell.name = L"kept on failure";
    oc::xml::ReadReport report;
    const gtl::status s =
        oc::xml::StringRead("<Cell Version=\"1\">" + c.body + "</Cell>", oc::Store(cell), &report);
    if (c.error) {
      EXPECT_TRUE(s.failed());
      EXPECT_NE(s.message_utf8().find(c.error), std::string::npos) << s.message_utf8();
      EXPECT_EQ(cell.name, L"kept on failure");
      continue;
    }
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    EXPECT_EQ(cell.ids, c.ids);
    EXPECT_EQ(cell.corners[1], c.second);
  }
}

}  // namespace
}  // namespace octest
