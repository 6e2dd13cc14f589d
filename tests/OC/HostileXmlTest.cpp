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

// NaN and the infinities, in every spelling from_chars takes, are refused
// in a double member unless it is declared to allow them.
TEST_F(HostileXml, NonFiniteNumbersAreRefusedUnlessAllowed) {
  const char* spellings[] = {"NaN", "nan", "inf", "-Infinity", "INF", " -nan "};
  for (const char* text : spellings) {
    SCOPED_TRACE(text);
    Doc d = SampleDoc();
    const Doc before = d;
    const std::string xml = std::string("<TestDoc>\n<Tolerance>") + text + "</Tolerance></TestDoc>";
    const gtl::status s = Read(xml, d);
    EXPECT_EQ(s.id(), 31062u) << s.message_utf8();
    EXPECT_NE(s.message().find(L"at Tolerance, line 2"), std::wstring::npos) << s.message_utf8();
    EXPECT_TRUE(d == before);
    // Elements of a value array and members of nested records alike.
    const std::string nested = std::string("<TestDoc><Layers><Layer><ID>1</ID>\n<ElapsedTimes><Time>1</Time><Time>") +
                               text + "</Time></ElapsedTimes></Layer></Layers></TestDoc>";
    EXPECT_EQ(Read(nested, d).id(), 31062u);
    // Through Set, as text and as a double.
    Doc live = SampleDoc();
    oc::IOC n;
    ASSERT_TRUE(oc::Find(oc::Store(live), L"Tolerance", n).succeeded());
    const gtl::status set = n.Set(str::to_wstring(text));
    EXPECT_EQ(set.id(), 31063u) << set.message_utf8();
    EXPECT_NE(set.message().find(L"Tolerance"), std::wstring::npos);
    EXPECT_EQ(live.fTolerance_, before.fTolerance_);
  }
  Doc live = SampleDoc();
  oc::IOC n;
  ASSERT_TRUE(oc::Find(oc::Store(live), L"Tolerance", n).succeeded());
  EXPECT_EQ(n.Set(std::nan("")).id(), 31063u);
  EXPECT_EQ(n.Set(-HUGE_VAL).id(), 31063u);
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
  // The declaration itself is checked.
  EXPECT_TRUE(oc::ValidateMetaData(oc::ValueType::Double, meta::MetaDataTraits{}.Default(L"inf")).failed());
  EXPECT_TRUE(oc::ValidateMetaData(oc::ValueType::Int32,
                                   meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::NonFinite))
                  .failed());
}

// A document is its root element: whatever stands beside it would be lost
// by the next save, so it is refused with its line.
TEST_F(HostileXml, ContentOutsideTheRootIsRefused) {
  const struct {
    const char* xml;
    const wchar_t* part;  // nullptr: read
  } cases[] = {
      {"<TestDoc/>\n<TestDoc/>", L"line 2: element <TestDoc>"},
      {"<TestDoc/>\n\n<Other><x/></Other>", L"line 3: element <Other>"},
      {"<TestDoc/>trailing", L"text \"trailing\""},
      {"<TestDoc/>&amp;", L"text \"&\""},
      {"junk<TestDoc/>", L"text \"junk\""},
      {"<TestDoc/><![CDATA[x]]>", L"text \"x\""},
      {"<?xml version=\"1.0\"?>\n<TestDoc/>\n<!-- a comment -->\n  \n", nullptr},
      {"\n  <TestDoc/>  \n<?pi after?>", nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.xml);
    Doc d = SampleDoc();
    const Doc before = d;
    const gtl::status s = Read(c.xml, d);
    if (!c.part) {
      EXPECT_TRUE(s.succeeded()) << s.message_utf8();
      continue;
    }
    EXPECT_EQ(s.id(), 31064u) << s.message_utf8();
    EXPECT_NE(s.message().find(c.part), std::wstring::npos) << s.message_utf8();
    EXPECT_TRUE(d == before);
  }
}

// A text that is not UTF-8 would read with replacement characters and be
// written back changed: it is refused with its path, line and byte.
TEST_F(HostileXml, TextThatIsNotUtf8IsRefused) {
  const struct {
    const char* bytes;
    const char* byte;  // the one-based byte named; nullptr: read as is
  } cases[] = {
      {"ab\xff", "byte 3"},          {"\xc0\xaf", "byte 1"},          // overlong "/"
      {"x\xed\xa0\x80", "byte 2"},   {"\xf4\x90\x80\x80", "byte 1"},  // a surrogate; above U+10FFFF
      {"\xe2\x82", "byte 1"},         {"\x80", "byte 1"},
      {"\xe2\x82\xac \xf0\x9d\x84\x9e \xc3\xa9", nullptr},  // euro, G clef, e acute
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    Doc d = SampleDoc();
    const Doc before = d;
    const gtl::status s = Read(std::string("<TestDoc>\n<Title>") + c.bytes + "</Title></TestDoc>", d);
    if (!c.byte) {
      ASSERT_TRUE(s.succeeded()) << s.message_utf8();
      EXPECT_EQ(str::to_utf8(d.title_), c.bytes);
      continue;
    }
    EXPECT_EQ(s.id(), 31067u) << s.message_utf8();
    EXPECT_NE(s.message_utf8().find(std::string("Title, line 2, is not valid UTF-8 (") + c.byte),
              std::string::npos)
        << s.message_utf8();
    EXPECT_TRUE(d == before);
  }
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

// IDs far beyond the number of records would make the table build a slot
// (a whole record) for every number below them. An ID may leave as many
// empty slots as the table has records, or 1024, and the empty slots of
// one read stay within a budget proportional to the text; beyond that the
// ID is refused with its table and line.
TEST_F(HostileXml, HugeIDsAreRefusedNotAllocated) {
  auto table = [](std::size_t rows, std::uint64_t last_id) {
    std::string xml = "<TestDoc><Layers>";
    for (std::size_t i = 1; i <= rows; ++i) xml += "<Layer><ID>" + std::to_string(i) + "</ID></Layer>";
    xml += "\n<Layer><ID>" + std::to_string(last_id) + "</ID></Layer></Layers></TestDoc>";
    return xml;
  };
  const struct {
    std::size_t rows;
    std::uint64_t id;
    bool read;
  } cases[] = {
      {0, 1024, true},    {0, 1025, true},      {0, 1026, false},  // one record: 1 + max(1, 1024)
      {3000, 6001, true}, {3000, 6002, true},   {3000, 6003, false},
      {16000, 1024000, false}, {0, 65536, false}, {0, 4294967295u, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.rows) + " rows, then ID " + std::to_string(c.id));
    Doc d;
    const gtl::status s = Read(table(c.rows, c.id), d);
    if (c.read) {
      ASSERT_TRUE(s.succeeded()) << s.message_utf8();
      EXPECT_EQ(d.layers_.Size(), c.id);
      continue;
    }
    EXPECT_EQ(s.id(), 31066u) << s.message_utf8();
    EXPECT_NE(s.message().find(L"ID " + std::to_wstring(c.id) + L" in Layers, line 2"), std::wstring::npos)
        << s.message_utf8();
    EXPECT_EQ(d.layers_.Size(), 0u);
  }
}

}  // namespace
}  // namespace octest
