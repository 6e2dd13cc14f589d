#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "OC/Path.h"
#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "QVI/str/Convert.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

class HostileXml : public ::testing::Test {
 protected:
  void SetUp() override { RegisterTestTypes(); }
  static gtl::status Read(const std::string& xml, Doc& into) { return oc::xml::StringRead(xml, oc::Store(into)); }
};

// NaN and the infinities are refused by Set, as text and as a double, in a
// double member unless it is declared to allow them; one that allows them
// reads, takes and writes them back. (The reader's refusals of hostile
// texts are one table with the document's malformed inputs.)
TEST_F(HostileXml, NonFiniteNumbersAreRefusedUnlessAllowed) {
  Doc live = SampleDoc();
  const double before = live.fTolerance_;
  oc::IOC n;
  ASSERT_TRUE(oc::Find(oc::Store(live), L"Tolerance", n).succeeded());
  for (const wchar_t* text : {L"NaN", L"nan", L"inf", L"-Infinity", L"INF", L" -nan "}) {
    const gtl::status set = n.Set(std::wstring_view(text));
    EXPECT_EQ(set.id(), 31063u) << set.message_utf8();
    EXPECT_NE(set.message().find(L"Tolerance"), std::wstring::npos);
  }
  EXPECT_EQ(n.Set(std::nan("")).id(), 31063u);
  EXPECT_EQ(n.Set(-HUGE_VAL).id(), 31063u);
  EXPECT_EQ(live.fTolerance_, before);
  // A member declared to allow them takes them and writes them back.
  Doc d;
  ASSERT_TRUE(Read("<TestDoc><Items><Item><ID>1</ID><Value>-inf</Value></Item></Items></TestDoc>", d).succeeded());
  EXPECT_EQ(d.items_.At(1).fValue_, -HUGE_VAL);
  ASSERT_TRUE(oc::Find(oc::Store(d), L"Items[1].Value", n).succeeded());
  EXPECT_TRUE(n.Set(std::wstring_view(L"nan")).succeeded());
  EXPECT_TRUE(std::isnan(d.items_.At(1).fValue_));
  std::string xml;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(d), xml).succeeded());
  Doc back;
  ASSERT_TRUE(Read(xml, back).succeeded()) << xml;
  EXPECT_TRUE(std::isnan(back.items_.At(1).fValue_));
}

// An enumeration name this version does not know reads as undefined with
// a warning, and is written back as read, wherever it stood, so that a load
// and a save lose nothing; a member set since to a known value is written
// as that value.
TEST_F(HostileXml, UnknownEnumerationNamesAreWrittenBackAsRead) {
  const std::string xml =
      "<TestDoc>\n<DefaultKind> Granite </DefaultKind>\n<Layers><Layer><ID>2</ID><Kind>Gneiss &amp; co</Kind>"
      "</Layer><Layer><ID>5</ID><Kind>Sand</Kind></Layer></Layers></TestDoc>";
  Doc d;
  oc::xml::ReadReport r;
  ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(d), &r).succeeded());
  ASSERT_EQ(r.messages.size(), 2u);
  EXPECT_EQ(r.messages[0].id(), 31013u);
  EXPECT_EQ(d.eDefaultKind_, Kind::None);
  EXPECT_EQ(d.layers_.At(2).eKind_, Kind::None);
  EXPECT_EQ(r.kept.size(), 2u);
  std::string out;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(d), out, &r.kept).succeeded());
  EXPECT_NE(out.find("<DefaultKind> Granite </DefaultKind>"), std::string::npos) << out;
  EXPECT_NE(out.find("<Kind>Gneiss &amp; co</Kind>"), std::string::npos) << out;
  // Read again: the same names, the same warnings, the same bytes.
  Doc back;
  oc::xml::ReadReport again;
  ASSERT_TRUE(oc::xml::StringRead(out, oc::Store(back), &again).succeeded());
  EXPECT_EQ(again.kept, r.kept);
  std::string twice;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(back), twice, &again.kept).succeeded());
  EXPECT_EQ(twice, out);
  // Without the kept texts the undefined value is written as such; a
  // member given a known value since is written as that value.
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(d), out).succeeded());
  EXPECT_EQ(out.find("Granite"), std::string::npos);
  d.layers_.At(2).eKind_ = Kind::Rock;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(d), out, &r.kept).succeeded());
  EXPECT_EQ(out.find("Gneiss"), std::string::npos);
  EXPECT_NE(out.find("<Kind>Rock</Kind>"), std::string::npos);
}

// XML cannot carry a NUL, not even as a character reference: a text that
// holds one is refused by Set and fails the write, naming where it is,
// instead of being cut at the NUL.
TEST_F(HostileXml, TextWithNulIsRefusedNotCut) {
  Doc d = SampleDoc();
  oc::IOC n;
  ASSERT_TRUE(oc::Find(oc::Store(d), L"Layers[3].Name", n).succeeded());
  const std::wstring with_nul(L"left\0right", 10);
  EXPECT_EQ(n.Set(std::wstring_view(with_nul)).id(), 31065u);
  EXPECT_EQ(d.layers_.At(3).name_, L"Layer 3");
  d.layers_.At(3).name_ = with_nul;  // set behind the framework's back
  std::string xml = "unchanged";
  const gtl::status s = oc::xml::StringWrite(oc::Store(d), xml);
  EXPECT_EQ(s.id(), 31065u);
  EXPECT_NE(s.message().find(L"Layers[3].Name"), std::wstring::npos) << s.message_utf8();
  EXPECT_TRUE(xml.empty());
  d.layers_.At(3).name_ = L"left right";
  EXPECT_TRUE(oc::xml::StringWrite(oc::Store(d), xml).succeeded());
}

}  // namespace
}  // namespace octest
