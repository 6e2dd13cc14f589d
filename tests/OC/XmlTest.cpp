#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>
#include <random>
#include <string>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "QVI/str/Convert.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

std::string Write(Doc& d) {
  std::string xml;
  EXPECT_TRUE(oc::xml::StringWrite(oc::Store(d), xml).succeeded());
  return xml;
}

class Xml : public ::testing::Test {
 protected:
  void SetUp() override { RegisterTestTypes(); }
};

TEST_F(Xml, RoundTripGivesEqualRecordsAndSameBytes) {
  Doc d = SampleDoc();
  const std::string first = Write(d);
  Doc back;
  oc::xml::ReadReport report;
  ASSERT_TRUE(oc::xml::StringRead(first, oc::Store(back), &report).succeeded())
      << (report.messages.empty() ? "" : report.messages[0].message_utf8());
  EXPECT_TRUE(report.messages.empty());
  EXPECT_EQ(report.version, L"7.1");
  EXPECT_TRUE(back == d);
  EXPECT_EQ(Write(back), first);
  // Deleted rows keep their slots: the same IDs, stored IDs set.
  EXPECT_EQ(back.layers_.Size(), 5u);
  EXPECT_TRUE(back.layers_.IsMissingSlot(2));
  EXPECT_TRUE(back.layers_.IsMissingSlot(4));
  ASSERT_EQ(back.items_.Size(), 4u);
  EXPECT_TRUE(back.items_.IsMissingSlot(1));
  // Defaults are left out; collections nest along their dotted tags.
  Doc blank;
  EXPECT_EQ(Write(blank).find("<Tolerance>"), std::string::npos);
  EXPECT_NE(first.find("<Functions>\n    <Material>\n      <Hydraulic>\n        <KFns>\n          <KFn>"),
            std::string::npos)
      << first;
  EXPECT_NE(first.find("<Kind>Rock</Kind>"), std::string::npos);  // enumerations by name
  EXPECT_LT(first.find("<Points>"), first.find("<Lines>"));  // the registered ordering
}

TEST_F(Xml, DoublesReadBackBitIdentical) {
  using L = std::numeric_limits<double>;
  const double specials[] = {0.0, -0.0, L::denorm_min(), -L::denorm_min(), L::min(),
                             std::nextafter(L::min(), 0.0), L::max(), L::lowest(), L::epsilon(),
                             qvi::kNoValue, 0.1, 1.0 / 3.0,
                             123456789012345678.0, 5e-324, 2.2250738585072009e-308};
  Doc d;
  Layer l;
  l.times_.assign(std::begin(specials), std::end(specials));
  // Random bit patterns over the whole exponent range (seeded), NaNs and
  // infinities excluded: the member refuses them.
  std::mt19937_64 gen(20240611);
  while (l.times_.size() < 5000) {
    const double v = std::bit_cast<double>(gen());
    if (std::isfinite(v)) l.times_.push_back(v);
  }
  d.layers_.Add(l);
  const std::string xml = Write(d);
  Doc back;
  ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(back)).succeeded());
  ASSERT_EQ(back.layers_.At(1).times_.size(), l.times_.size());
  for (std::size_t i = 0; i < l.times_.size(); ++i)
    ASSERT_EQ(std::bit_cast<std::uint64_t>(back.layers_.At(1).times_[i]),
              std::bit_cast<std::uint64_t>(l.times_[i]))
        << "value " << i << " = " << l.times_[i];
}

TEST_F(Xml, ElementsInAnotherOrderReadTheSame) {
  // Members reversed, table records in descending ID order, points after
  // lines: all read into the same record.
  const std::string xml = R"(<?xml version="1.0"?>
<TestDoc Version="7.1">
  <Notes><Note>b</Note><Note>a</Note></Notes>
  <GeometryItems>
    <Lines><Lines><PointID2>2</PointID2><PointID1>1</PointID1></Lines></Lines>
    <Points><Point><Y>1</Y><X>2</X></Point><Point/></Points>
  </GeometryItems>
  <Items>
    <Item><Value>2.5</Value><ID>3</ID></Item>
    <Item><ID>1</ID><Label>one</Label></Item>
  </Items>
  <Layers>
    <Layer><Depth>4</Depth><Kind>Stone</Kind><ID>2</ID><Name>b</Name></Layer>
  </Layers>
  <DefaultKind>Sand</DefaultKind>
  <Tolerance>0.25</Tolerance>
</TestDoc>)";
  Doc back;
  oc::xml::ReadReport r;
  ASSERT_TRUE(oc::xml::StringRead(xml, oc::Store(back), &r).succeeded());
  EXPECT_TRUE(r.messages.empty());
  Doc expected;
  expected.fTolerance_ = 0.25;
  expected.eDefaultKind_ = Kind::Sand;
  expected.notes_ = {L"b", L"a"};
  expected.geometry_.lines_ = {{1, 2}};
  expected.geometry_.points_ = {{2, 1}, {0, 0}};
  expected.items_.Reserve(3);
  expected.items_.At(1) = Item{1, L"one", qvi::kNoValue};
  expected.items_.At(3) = Item{3, L"", 2.5};
  expected.layers_.Reserve(2);
  Layer l;
  l.name_ = L"b";
  l.eKind_ = Kind::Rock;  // "Stone" is a second name of Rock
  l.SetDepth(4);
  expected.layers_.At(2) = l;
  EXPECT_TRUE(back == expected);
}

// A member declared to allow non-finite numbers reads and writes them back.
// A text holding a NUL (set behind the framework's back) fails the write,
// naming where it is, instead of being cut at the NUL.
TEST_F(Xml, NonFiniteWhereAllowedAndNoNulAnywhere) {
  Doc d;
  ASSERT_TRUE(oc::xml::StringRead("<TestDoc><Items><Item><ID>1</ID><Value>-inf</Value></Item><Item><ID>2</ID>"
                                  "<Value>nan</Value></Item></Items></TestDoc>",
                                  oc::Store(d))
                  .succeeded());
  EXPECT_EQ(d.items_.At(1).fValue_, -HUGE_VAL);
  Doc back;
  ASSERT_TRUE(oc::xml::StringRead(Write(d), oc::Store(back)).succeeded());
  EXPECT_EQ(back.items_.At(1).fValue_, -HUGE_VAL);
  EXPECT_TRUE(std::isnan(back.items_.At(2).fValue_));

  d = SampleDoc();
  d.layers_.At(3).name_ = std::wstring(L"left\0right", 10);
  std::string xml = "unchanged";
  const gtl::status s = oc::xml::StringWrite(oc::Store(d), xml);
  EXPECT_EQ(s.id(), 31065u);
  EXPECT_NE(s.message().find(L"Layers[3].Name"), std::wstring::npos) << s.message_utf8();
  EXPECT_TRUE(xml.empty());
}

TEST_F(Xml, FileReadAndWrite) {
  const std::string dir = ::testing::TempDir();
  const std::wstring path = str::to_wstring(dir) + L"oc_filetest.xml";
  Doc d = SampleDoc();
  ASSERT_TRUE(oc::xml::FileWrite(oc::Store(d), path).succeeded());
  Doc back;
  ASSERT_TRUE(oc::xml::FileRead(path, oc::Store(back)).succeeded());
  EXPECT_TRUE(back == d);
  EXPECT_EQ(oc::xml::FileRead(path + L".missing", oc::Store(back)).id(), 31010u);
  // A folder by a document's name is refused with the same status, not thrown.
  const std::wstring folder = str::to_wstring(dir) + L"oc_folder.xml";
  std::filesystem::create_directories(std::filesystem::path(folder));
  EXPECT_EQ(oc::xml::FileRead(folder, oc::Store(back)).id(), 31010u);
}

}  // namespace
}  // namespace octest
