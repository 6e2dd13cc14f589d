// The writer produces text directly; these tests hold its bytes against a
// pugixml DOM built and saved for the same object (ReferenceDomWriter.h),
// and pin a small document's bytes outright.
#include <gtest/gtest.h>

#include <pugixml.hpp>

#include <functional>
#include <string>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "OC/xml/XmlText.h"
#include "QVI/str/Convert.h"
#include "tests/OC/ReferenceDomWriter.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

class XmlWriter : public ::testing::Test {
 protected:
  void SetUp() override { RegisterTestTypes(); }
  static std::string Write(Doc& d) {
    std::string xml;
    EXPECT_TRUE(oc::xml::StringWrite(oc::Store(d), xml).succeeded());
    return xml;
  }
};

// Every ASCII character alone and in company, markup, control characters,
// a NUL inside the text (the text ends there, as in a C string), characters
// beyond ASCII and code points UTF-8 cannot carry.
std::vector<std::wstring> AwkwardTexts() {
  std::vector<std::wstring> texts = {L"", L" ", L"  two  ", L"<&>\"'", L"]]>", L"a\r\nb\rc\n\t",
                                     L"\x01\x08\x0b\x0c\x1f", L"ünïcødé ∑ 𝄞", L"ab\0cd", L"\0x",
                                     L"&amp; already", L"\xD800 lone surrogate",
                                     std::wstring(1, static_cast<wchar_t>(0x110000))};
  std::wstring all;
  for (wchar_t c = 1; c < 128; ++c) {
    texts.push_back(std::wstring(1, c));
    all += c;
  }
  texts.push_back(all);
  return texts;
}

TEST_F(XmlWriter, TextsAreEscapedAsTheDomWouldAndReadBack) {
  for (const std::wstring& t : AwkwardTexts()) {
    Doc d;
    d.title_ = t;
    d.notes_ = {t, L"after"};
    Layer l;
    l.name_ = t;
    d.layers_.Add(l);
    const std::string xml = Write(d);
    EXPECT_EQ(xml, ReferenceDomWriter::Write(oc::Store(d))) << str::to_utf8(t);
    // A text of valid code points reads back with every character.
    if (str::to_wstring(str::to_utf8(t)) != t) continue;
    Doc back;
    ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(back)).succeeded()) << xml;
    EXPECT_EQ(back.title_, t) << xml;
    EXPECT_EQ(back.notes_, d.notes_) << xml;
  }
}

TEST_F(XmlWriter, AttributesAreEscapedAsTheDomWould) {
  for (const std::wstring& t : AwkwardTexts()) {
    const std::string utf8 = str::to_utf8(t);
    pugi::xml_document doc;
    doc.append_child("a").append_attribute("v").set_value(utf8.c_str());
    std::ostringstream dom;
    doc.save(dom, "", pugi::format_raw | pugi::format_no_declaration);
    std::string direct = "<a v=\"";
    oc::xml::AppendEscapedAttribute(direct, utf8);
    direct += "\"/>";  // format_raw: no blank before the slash
    EXPECT_EQ(direct, dom.str()) << utf8;
  }
}

// Wrappers, nested records, collections and tables in their edge states:
// empty, at defaults, all rows deleted, values missing from a table.
TEST_F(XmlWriter, LayoutMatchesTheDomInEveryState) {
  const std::vector<std::pair<const char*, std::function<void(Doc&)>>> cases = {
      {"blank", [](Doc&) {}},
      {"sample", [](Doc& d) { d = SampleDoc(); }},
      {"every row deleted", [](Doc& d) {
         d = SampleDoc();
         d.layers_.Delete({1, 3, 5});
         d.items_.Delete({2, 4});
       }},
      {"record at its defaults in a table", [](Doc& d) { d.layers_.Add(Layer{}); }},
      {"records at their defaults in an array", [](Doc& d) { d.geometry_.points_ = {{}, {}, {1, 0}}; }},
      {"nested record changed then reset", [](Doc& d) {
         Layer l;
         l.origin_ = {0, 0};
         l.points_ = {{}};
         d.layers_.Add(l);
       }},
      {"only one wrapper branch written", [](Doc& d) { d.boundFns_ = {{-0.0, 1e300}}; }},
      {"empty texts in a collection", [](Doc& d) { d.notes_ = {L"", L"", L"x"}; }},
      {"enumeration value outside its table", [](Doc& d) {
         d.eDefaultKind_ = static_cast<Kind>(7);
         Layer l;
         l.eKind_ = Kind::None;
         d.layers_.Add(l);
       }},
      {"extreme numbers", [](Doc& d) {
         d.fTolerance_ = 5e-324;
         Layer l;
         l.nCount_ = INT32_MIN;
         l.gidMaterial_ = UINT32_MAX;
         l.nBig_ = INT64_MIN;
         l.times_ = {-0.0, 1.0 / 3.0, 1e21, 123456789012345678.0};
         l.SetDepth(0.1);
         d.layers_.Add(l);
       }},
  };
  for (const auto& [name, fill] : cases) {
    Doc d;
    fill(d);
    EXPECT_EQ(Write(d), ReferenceDomWriter::Write(oc::Store(d))) << name;
  }
}

// The bytes of a small document, independent of any DOM: declaration,
// two-blank indent, enumerations by name, shortest doubles, empty elements,
// escaped text, the table's ID first.
TEST_F(XmlWriter, SmallDocumentBytes) {
  Doc d;
  d.title_ = L"a<b & \"c\"\x01";
  d.eDefaultKind_ = Kind::Rock;
  Layer l;
  l.fWeight_ = 0.1;
  l.points_ = {{}};
  d.layers_.Add(l);
  d.notes_ = {L""};
  const std::string expected =
      "<?xml version=\"1.0\"?>\n"
      "<TestDoc Version=\"7.1\">\n"
      "  <Title>a&lt;b &amp; \"c\"&#01;</Title>\n"
      "  <DefaultKind>Rock</DefaultKind>\n"
      "  <Layers>\n"
      "    <Layer>\n"
      "      <ID>1</ID>\n"
      "      <UnitWeight>0.1</UnitWeight>\n"
      "      <Points>\n"
      "        <Point />\n"
      "      </Points>\n"
      "    </Layer>\n"
      "  </Layers>\n"
      "  <Notes>\n"
      "    <Note></Note>\n"
      "  </Notes>\n"
      "</TestDoc>\n";
  EXPECT_EQ(Write(d), expected);
}

}  // namespace
}  // namespace octest
