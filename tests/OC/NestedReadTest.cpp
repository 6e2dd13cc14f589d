// Reading nested records: a nested record is put back to its own type's
// defaults before it is read (the writer skipped the members at those
// defaults), unless it is known to hold them already. These cases catch a
// reader that skips that reset too eagerly.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace octest
