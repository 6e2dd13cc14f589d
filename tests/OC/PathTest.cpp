#include <gtest/gtest.h>

#include <cmath>

#include "OC/Path.h"
#include "OC/Registry.h"
#include "OC/Schema.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

class Paths : public ::testing::Test {
 protected:
  void SetUp() override {
    RegisterTestTypes();
    doc = SampleDoc();
  }
  oc::IOC Node(const wchar_t* path) {
    oc::IOC n;
    const gtl::status s = oc::Find(oc::Store(doc), path, n);
    EXPECT_TRUE(s.succeeded()) << s.message_utf8();
    return n;
  }
  Doc doc;
};

TEST_F(Paths, NameTagAndAliasReachTheSameValue) {
  // Each row: equivalent paths to one value, and the value as text.
  struct Row {
    std::vector<const wchar_t*> paths;
    const wchar_t* text;
  };
  const Row rows[] = {
      {{L"layers[3].fWeight_", L"Layers[3].UnitWeight", L"test::doc::Layers[3].UnitWeight",
        L"test::doc::Layers()[3].fWeight_"},
       L"18.5"},
      {{L"layers[5].points_[4].fY_", L"Layers[5].Points[4].Y"}, L"-1"},
      {{L"layers[1].eKind_", L"Layers[1].Kind"}, L"Clay"},
      {{L"layers[1].fDepth_", L"Layers[1].Depth"}, L"2.5"},  // through the accessor pair
      {{L"HKFns[1].fX_", L"Functions.Material.Hydraulic.KFns[1].X",
        L"test::Function::HydKFns[1].X"},
       L"3"},
      {{L"items[4].label_", L"Items[4].Label"}, L"item4"},
      {{L"geometry.points_[2].fY_", L"GeometryItems.Points[2].Y"}, L"5"},
      {{L"notes[1]", L"Notes[1]"}, L"  padded  "},
  };
  for (const auto& row : rows)
    for (const wchar_t* p : row.paths) {
      std::wstring text;
      const oc::IOC n = Node(p);
      ASSERT_TRUE(n.IsValid()) << p;
      EXPECT_TRUE(n.Get(text).succeeded()) << p;
      EXPECT_EQ(text, row.text) << p;
    }
  // The alias and the member reach the same table.
  EXPECT_EQ(Node(L"test::doc::Layers").Template(), Node(L"layers").Template());
  EXPECT_EQ(Node(L"test::doc::Layers[1]").Object(), &doc.layers_.At(1));
}

TEST_F(Paths, SetConvertsChecksAndStores) {
  oc::IOC w = Node(L"Layers[1].UnitWeight");
  EXPECT_TRUE(w.Set(std::wstring_view(L"20.25")).succeeded());
  EXPECT_EQ(doc.layers_.At(1).fWeight_, 20.25);
  EXPECT_TRUE(w.Set(std::int64_t{30}).succeeded());
  EXPECT_EQ(doc.layers_.At(1).fWeight_, 30.0);
  EXPECT_EQ(w.Set(150.0).id(), 31005u);  // above the bound 100
  EXPECT_EQ(doc.layers_.At(1).fWeight_, 30.0);
  EXPECT_EQ(w.Set(std::wstring_view(L"heavy")).id(), 31002u);

  oc::IOC kind = Node(L"Layers[1].Kind");
  EXPECT_TRUE(kind.Set(std::wstring_view(L"Rock")).succeeded());
  EXPECT_EQ(doc.layers_.At(1).eKind_, Kind::Rock);
  EXPECT_TRUE(kind.Set(std::int64_t{0}).succeeded());
  EXPECT_EQ(doc.layers_.At(1).eKind_, Kind::Sand);
  EXPECT_TRUE(kind.Set(std::int64_t{7}).failed());  // not a value of the table
  EXPECT_TRUE(kind.Set(std::wstring_view(L"Granite")).failed());

  oc::IOC count = Node(L"Layers[1].Count");
  EXPECT_TRUE(count.Set(2.0).succeeded());
  EXPECT_EQ(count.Set(2.5).id(), 31002u);           // not integral
  EXPECT_EQ(count.Set(std::int64_t{1} << 40).id(), 31002u);  // out of 32 bits
  EXPECT_EQ(doc.layers_.At(1).nCount_, 2);

  oc::IOC depth = Node(L"Layers[1].Depth");
  EXPECT_TRUE(depth.Set(7.5).succeeded());
  EXPECT_EQ(doc.layers_.At(1).GetDepth(), 7.5);

  oc::IOC active = Node(L"layers[1].bActive_");
  EXPECT_TRUE(active.Set(true).succeeded());
  bool b = false;
  EXPECT_TRUE(active.Get(b).succeeded());
  EXPECT_TRUE(b);

  EXPECT_EQ(Node(L"Items[2].Label").Set(std::wstring_view(L"x")).id(), 31000u);  // read-only
  EXPECT_EQ(Node(L"Layers[1]").Set(1.0).id(), 31000u);  // a record holds no one value

  // NaN and the infinities, as text in every spelling and as doubles, only
  // in a member declared to allow them.
  oc::IOC tolerance = Node(L"Tolerance");
  for (const wchar_t* text : {L"NaN", L"nan", L"inf", L"-Infinity", L"INF", L" -nan "}) {
    const gtl::status set = tolerance.Set(std::wstring_view(text));
    EXPECT_EQ(set.id(), 31063u) << set.message_utf8();
    EXPECT_NE(set.message().find(L"Tolerance"), std::wstring::npos);
  }
  EXPECT_EQ(tolerance.Set(std::nan("")).id(), 31063u);
  EXPECT_EQ(tolerance.Set(-HUGE_VAL).id(), 31063u);
  EXPECT_EQ(doc.fTolerance_, SampleDoc().fTolerance_);
  EXPECT_TRUE(Node(L"Items[2].Value").Set(std::wstring_view(L"nan")).succeeded());
  EXPECT_TRUE(std::isnan(doc.items_.At(2).fValue_));
  // XML cannot carry a NUL, not even as a character reference.
  EXPECT_EQ(Node(L"Layers[3].Name").Set(std::wstring_view(L"left\0right", 10)).id(), 31065u);
  EXPECT_EQ(doc.layers_.At(3).name_, L"Layer 3");
}

TEST_F(Paths, BadPathsNameTheFailingStep) {
  struct Case {
    const wchar_t* path;
    const wchar_t* part;
  };
  const Case cases[] = {
      {L"Layers[2].Name", L"Layers[2]"},  // a deleted row
      {L"Layers[9]", L"Layers[9]"},
      {L"Layers[1].Nope", L"at Layers[1].Nope"},
      {L"Layers[x]", L"\"x\""},
      {L"Tolerance[1]", L"Tolerance"},
      {L"Layers..Name", L"empty path step"},
      {L"Layers[1", L"path index"},
      {L"Notes[7]", L"Notes[7]"},
      {L"test::doc::Layers.Foo.Bar", L"Foo"},
  };
  for (const auto& c : cases) {
    oc::IOC n;
    const gtl::status s = oc::Find(oc::Store(doc), c.path, n);
    EXPECT_TRUE(s.failed()) << c.path;
    EXPECT_NE(s.message().find(c.part), std::wstring::npos) << s.message_utf8();
  }
  // Tags only: member names are not file names.
  oc::IOC n;
  EXPECT_TRUE(oc::FindTag(oc::Store(doc), L"Layers[1].UnitWeight", n).succeeded());
  EXPECT_TRUE(oc::FindTag(oc::Store(doc), L"layers[1].fWeight_", n).failed());
}

TEST_F(Paths, ValueProtocol) {
  oc::IOC root(oc::Store(doc));
  // Children in layout order: wrapper elements and members.
  std::vector<std::wstring> names;
  for (oc::IOC c = root.begin(); c.IsValid(); c = root.GetNextSubOC(c)) names.push_back(c.Name());
  EXPECT_EQ(names, (std::vector<std::wstring>{L"fTolerance_", L"title_", L"eDefaultKind_", L"layers",
                                              L"items", L"geometry", L"Functions", L"notes"}));
  oc::IOC layers = Node(L"layers");
  EXPECT_EQ(layers.Length(), 3u);  // live records only
  std::vector<std::wstring> where;
  for (oc::IOC c = layers.begin(); c.IsValid(); c = layers.GetNextSubOC(c)) where.push_back(c.Where());
  EXPECT_EQ(where, (std::vector<std::wstring>{L"layers[1]", L"layers[3]", L"layers[5]"}));
  EXPECT_EQ(Node(L"Layers[5].Points").Length(), 5u);
  EXPECT_EQ(Node(L"Title").Length(), doc.title_.size());

  oc::IOC depth = Node(L"Layers[1].Depth");
  EXPECT_FALSE(depth.IsDefault());
  EXPECT_TRUE(depth.Clear().succeeded());
  EXPECT_TRUE(depth.IsDefault());
  EXPECT_TRUE(depth.IsUndefined());  // the no-value marker
  EXPECT_EQ(oc::PrettyPrintValue(depth), L"(none)");
  EXPECT_EQ(oc::PrettyPrintValue(Node(L"Layers[1].UnitWeight")), L"17.833333333333332 kN/m³");

  oc::IOC geometry = Node(L"geometry");
  EXPECT_FALSE(geometry.IsDefault());
  EXPECT_TRUE(geometry.Clear().succeeded());
  EXPECT_TRUE(geometry.IsDefault());
  EXPECT_TRUE(doc.geometry_.points_.empty());
  EXPECT_FALSE(Node(L"Functions").IsDefault());
  EXPECT_TRUE(Node(L"Functions").Clear().succeeded());
  EXPECT_TRUE(doc.kfns_.empty() && doc.boundFns_.empty());

  // Clone and assign a record.
  oc::IOC l1 = Node(L"layers[1]");
  oc::OCObject copy = Node(L"layers[5]").Clone();
  ASSERT_TRUE(copy.get());
  EXPECT_TRUE(l1.Assign(oc::IOC::Record(*copy.type(), copy.get())).succeeded());
  EXPECT_TRUE(doc.layers_.At(1) == doc.layers_.At(5));
  EXPECT_TRUE(Node(L"layers[3].origin_").Assign(Node(L"layers[5].origin_")).succeeded());
  EXPECT_TRUE(doc.layers_.At(3).origin_ == doc.layers_.At(5).origin_);
  EXPECT_TRUE(Node(L"layers[3].origin_").Assign(Node(L"layers[5].points_")).failed());
}

TEST(PathPatterns, MatchBindsWildcards) {
  struct Case {
    const wchar_t* pattern;
    const wchar_t* path;
    bool match;
    std::optional<std::uint64_t> b1, b2;
    const wchar_t* rest;
  };
  const Case cases[] = {
      {L"Analyses[$1].View", L"Analyses[3].View", true, 3, {}, L""},
      {L"StabItems[$1].Entry.PressureLines[$2].Point", L"StabItems[0].Entry.PressureLines[3].Point", true,
       0, 3, L""},
      {L"A[$1].B[$1]", L"A[2].B[2]", true, 2, {}, L""},
      {L"A[$1].B[$1]", L"A[2].B[3]", false, {}, {}, L""},
      {L"Analyses[$1].View", L"Analyses.View", false, {}, {}, L""},
      {L"Analyses[$1].View", L"Analyses[x].View", false, {}, {}, L""},
      {L"Analyses[$1].View", L"Analyses[1].View.More", false, {}, {}, L""},
      {L"UpgradeList[1].Values", L"UpgradeList[1].Values", true, {}, {}, L""},
      {L"UpgradeList[1].Values", L"UpgradeList[2].Values", false, {}, {}, L""},
      {L"StabItems[$1].Entry.*", L"StabItems[4].Entry.Slip.Points[2].X", true, 4, {}, L"Slip.Points[2].X"},
      {L"StabItems[$1].Entry.*", L"StabItems[4].Entry", false, {}, {}, L""},
      {L"analyses", L"Analyses", false, {}, {}, L""},  // names compare exactly
  };
  for (const auto& c : cases) {
    oc::Bindings b;
    EXPECT_EQ(oc::Match(c.pattern, c.path, b), c.match) << c.pattern << " ~ " << c.path;
    if (!c.match) continue;
    EXPECT_EQ(b.index[0], c.b1) << c.pattern;
    EXPECT_EQ(b.index[1], c.b2) << c.pattern;
    EXPECT_EQ(b.rest, c.rest) << c.pattern;
  }
  oc::Bindings b;
  ASSERT_TRUE(oc::Match(L"StabItems[$1].Entry.PressureLines[$2].Point",
                        L"StabItems[0].Entry.PressureLines[3].Point", b));
  EXPECT_EQ(oc::Substitute(L"StabItems[$1].Entry.PressureLines[$2].DataPoints", b),
            L"StabItems[0].Entry.PressureLines[3].DataPoints");
  ASSERT_TRUE(oc::Match(L"StabItems[$1].Entry.*", L"StabItems[4].Entry.A.B", b));
  EXPECT_EQ(oc::Substitute(L"CurrentAnalysis.Objects.*", b), L"CurrentAnalysis.Objects.A.B");
  EXPECT_EQ(oc::Substitute(L"UpgradeList[2].Values[$1]", b), L"UpgradeList[2].Values[4]");

  EXPECT_EQ(oc::GetParent(L"Analyses[3].Convergence.RileyDamping"), L"Analyses[3].Convergence");
  EXPECT_EQ(oc::GetParent(L"Analyses"), L"");
  EXPECT_EQ(oc::GetSibling(L"Analyses[3].Parent", L"ParentID"), L"Analyses[3].ParentID");
  EXPECT_EQ(oc::OCSet::FormName(L"Points", {3}), L"Points[3]");
  EXPECT_EQ(oc::OCSet::FormName(L"Grid", {1, 2}), L"Grid[1][2]");
}

}  // namespace
}  // namespace octest
