// The mesh, the sketch-text owner map and function texts that fail to
// build, as they come back from a file that was edited by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>

#include "OC/Path.h"
#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/core/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/V7Doc/files/SampleDocument.h"

namespace v7::files {
namespace {

std::string SampleXml() {
  QVDocument doc;
  testing::FillSampleDocument(doc);
  std::string xml;
  EXPECT_TRUE(DocumentToXml(doc, xml).succeeded());
  return xml;
}

// `xml` with the first match of `pattern` replaced (the test fails when
// there is none, so that a changed layout cannot make a case vacuous).
std::string Edit(const std::string& xml, const std::string& pattern, const std::string& with) {
  const std::regex re(pattern);
  EXPECT_TRUE(std::regex_search(xml, re)) << "no match for " << pattern;
  return std::regex_replace(xml, re, with, std::regex_constants::format_first_only);
}

std::string Messages(const std::vector<gtl::status>& list) {
  std::string all;
  for (const auto& s : list) all += s.message_utf8() + "\n";
  return all;
}

// The eight-position node list: fewer positions read as absent nodes, more
// than eight refuse the file with the collection's path and line.
TEST(MeshPersistence, NodeListsAndRowNumbers) {
  const std::string xml = SampleXml();
  struct Case {
    const char* what;
    std::string xml;
    bool loads;
    const char* expect;  // a part of the error, or of nothing when it loads
  };
  const std::string nine = std::string(9, ' ');
  const Case cases[] = {
      {"as written", xml, true, ""},
      // Element 3 lists its three corners only: the rest are absent (0),
      // which is what the sample holds.
      {"trailing positions left out",
       Edit(xml, R"((<N>6</N>)\s*<N>0</N>\s*<N>0</N>\s*<N>0</N>\s*<N>0</N>\s*<N>0</N>)", "$1"), true,
       ""},
      {"a ninth position",
       Edit(xml, R"(<Nodes>\s*<N>1</N>)", "<Nodes><N>1</N><N>1</N>"), false,
       "More than 8 elements at MeshItems.Elements[0].Nodes, line "},
      {"a negative node", Edit(xml, R"(<N>5</N>)", "<N>-5</N>"), true, ""},
      {"a node list of records", Edit(xml, R"(<N>5</N>)", "<N><X>1</X></N>"), false,
       "Malformed value"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    LoadReport report;
    const gtl::status s = DocumentFromXml(c.xml, doc, L"mesh.xml", &report);
    EXPECT_EQ(s.succeeded(), c.loads) << s.message_utf8();
    if (!c.loads) {
      EXPECT_NE(s.message_utf8().find(c.expect), std::string::npos) << s.message_utf8();
      EXPECT_TRUE(doc.Geometry().Mesh().IsEmpty());  // nothing half-loaded
      continue;
    }
    const Geom::Mesh2D& mesh = doc.Geometry().Mesh();
    ASSERT_EQ(mesh.Elements().size(), 3u);
    // The emptied rows keep their places, so the numbers after them hold.
    EXPECT_TRUE(mesh.Elements()[1].IsEmpty());
    EXPECT_TRUE(mesh.Elements1D()[0].IsEmpty());
    EXPECT_EQ(mesh.Elements()[2].anNodes_, (std::array<std::int32_t, 8>{2, 3, 6, 0, 0, 0, 0, 0}));
    EXPECT_EQ(mesh.Elements()[2].nIntegrationOrder_, 3);
    EXPECT_EQ(mesh.Elements1D()[1].anNodes_[1], 2);
    ASSERT_EQ(mesh.NodePairs().size(), 1u);
    EXPECT_EQ(mesh.NodePairs()[0], (NodePair{2, 5}));
    ASSERT_EQ(mesh.Nodes().size(), 6u);
    EXPECT_EQ(mesh.Nodes()[4].dY_, 0.1 - 1e-300);  // bit-exact
    std::vector<gtl::status> problems;
    mesh.Validate(problems);
    EXPECT_EQ(problems.size(), c.xml.find("<N>-5</N>") != std::string::npos ? 1u : 0u)
        << Messages(problems);
  }
}

TEST(MeshPersistence, PathsReachElementNodes) {
  QVDocument doc;
  testing::FillSampleDocument(doc);
  const oc::IODS ds = DocumentStore(doc);
  struct Case {
    const wchar_t* path;
    const wchar_t* value;  // nullptr: the path must not resolve
  };
  const Case cases[] = {
      {L"hElemMem[2].anNodes_[2]", L"6"},
      {L"MeshItems.Elements[0].Nodes[3]", L"4"},
      {L"hElemMem[0].IntegrationOrder", L"4"},
      {L"hNodeMem[5].X", L"2"},
      {L"hNodePairMem[0].Node2", L"5"},
      {L"elem1Ds[1].Nodes[1]", L"2"},
      {L"hElemMem[0].Nodes[8]", nullptr},
      {L"hElemMem[3].Nodes[0]", nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(str::to_utf8(c.path));
    oc::IOC node;
    const gtl::status s = oc::Find(ds, c.path, node);
    if (!c.value) {
      EXPECT_TRUE(s.failed());
      continue;
    }
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    std::wstring text;
    ASSERT_TRUE(node.Get(text).succeeded());
    EXPECT_EQ(text, c.value);
  }
  oc::IOC n;
  ASSERT_TRUE(oc::Find(ds, L"hElemMem[0].Nodes[4]", n).succeeded());
  EXPECT_TRUE(n.Set(std::wstring(L"-1")).failed());  // node numbers are not negative
  EXPECT_TRUE(n.Set(std::wstring(L"3")).succeeded());
  EXPECT_EQ(doc.Geometry().Mesh().Elements()[0].anNodes_[4], 3);
}

// The map is sorted by key after a read of any order; a repeated key keeps
// its last value, as inserting the entries one by one would.
TEST(SketchTextOwners, ReadInAnyOrder) {
  const std::string xml = SampleXml();
  const std::string block = R"(<AnalysisUsesSketchTexts>[\s\S]*</AnalysisUsesSketchTexts>)";
  auto entries = [](std::initializer_list<std::pair<int, int>> kv) {
    std::string s = "<AnalysisUsesSketchTexts>";
    for (auto [k, v] : kv)
      s += "<AnalysisUsesSketchText><Key>" + std::to_string(k) + "</Key><Value>" +
           std::to_string(v) + "</Value></AnalysisUsesSketchText>\n";
    return s + "</AnalysisUsesSketchTexts>";
  };
  struct Case {
    const char* what;
    std::string xml;
    std::vector<std::pair<GID, GID>> expect;
    const char* warning;  // part of the one warning expected, or nullptr
  };
  const Case cases[] = {
      {"as written", xml, {{3, 3}, {7, 1}}, nullptr},
      {"reversed", Edit(xml, block, entries({{9, 2}, {4, 1}, {1, 3}})), {{1, 3}, {4, 1}, {9, 2}},
       nullptr},
      {"repeated key", Edit(xml, block, entries({{5, 1}, {2, 2}, {5, 3}})), {{2, 2}, {5, 3}},
       "1 entries dropped"},
      {"key 0", Edit(xml, block, entries({{0, 1}, {2, 2}})), {{2, 2}}, "1 entries dropped"},
      {"empty", Edit(xml, block, "<AnalysisUsesSketchTexts/>"), {}, nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    LoadReport report;
    const gtl::status s = DocumentFromXml(c.xml, doc, L"owners.xml", &report);
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    const auto& map = doc.ExclusiveAnlsIDBySkTextID();
    const std::vector<std::pair<GID, GID>> got(map.begin(), map.end());
    EXPECT_EQ(got, c.expect);
    if (c.warning) {
      ASSERT_EQ(report.warnings.size(), 1u) << Messages(report.warnings);
      const std::string m = report.warnings[0].message_utf8();
      EXPECT_NE(m.find(c.warning), std::string::npos) << m;
      EXPECT_NE(m.find("at AnalysisUsesSketchTexts, line "), std::string::npos) << m;
    } else {
      EXPECT_TRUE(report.warnings.empty()) << Messages(report.warnings);
    }
    for (const auto& [k, v] : c.expect) EXPECT_EQ(*map.Get(k), v);  // lookups work
  }
}

TEST(SketchTextOwners, PathsByNameAndAlias) {
  QVDocument doc;
  testing::FillSampleDocument(doc);
  const oc::IODS ds = DocumentStore(doc);
  oc::IOC byName, byAlias, key;
  ASSERT_TRUE(oc::Find(ds, L"exclusiveAnlsIDbySkTextID[1].Value", byName).succeeded());
  ASSERT_TRUE(oc::Find(ds, L"v7::doc::ExclAnlsIDbySkTxt()[1].Value", byAlias).succeeded());
  ASSERT_TRUE(byAlias.Set(std::wstring(L"2")).succeeded());
  std::wstring v;
  ASSERT_TRUE(byName.Get(v).succeeded());
  EXPECT_EQ(v, L"2");
  EXPECT_EQ(*doc.ExclusiveAnlsIDBySkTextID().Get(7), 2u);
  // A key changes only by erase and insert: by path it is read-only.
  ASSERT_TRUE(oc::Find(ds, L"exclusiveAnlsIDbySkTextID[0].Key", key).succeeded());
  EXPECT_TRUE(key.Set(std::wstring(L"9")).failed());
  EXPECT_TRUE(doc.ExclusiveAnlsIDBySkTextID().Exists(3));
}

// A function text that builds no function loads with a warning naming the
// text, the member's path and line, and is written back unchanged.
TEST(FunctionTexts, BadTextsWarnAndSurvive) {
  const std::string xml = SampleXml();
  struct Case {
    const char* what;
    std::string pattern, bad;
    const char* path;
  };
  const Case cases[] = {
      {"material, unknown kind", "<Cohesion>[^<]*</Cohesion>", "Spline(Points=1;2", "Materials[1].StressStrain.Cohesion"},
      {"material, bad attribute", "<PhiPrime>[^<]*</PhiPrime>", "Constant(Value=abc)", "Materials[1].StressStrain.PhiPrime"},
      {"boundary, unknown kind", "<Hydraulic>Constant[^<]*</Hydraulic>", "Seepage(Face=1)", "BCs[1].Hydraulic"},
      {"boundary, bad attribute", "<Hydraulic>Constant[^<]*</Hydraulic>", "Constant(BType=1,Value=x)", "BCs[1].Hydraulic"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string tag = c.pattern.substr(1, c.pattern.find('>') - 1);
    const std::string edited = Edit(xml, c.pattern, "<" + tag + ">" + c.bad + "</" + tag + ">");
    const std::size_t line =
        1 + static_cast<std::size_t>(std::count(edited.begin(), edited.begin() + edited.find(c.bad), '\n'));
    QVDocument doc;
    LoadReport report;
    const gtl::status s = DocumentFromXml(edited, doc, L"fn.xml", &report);
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    ASSERT_EQ(report.warnings.size(), 1u) << Messages(report.warnings);
    const std::string m = report.warnings[0].message_utf8();
    EXPECT_TRUE(report.warnings[0].is_warning());
    EXPECT_NE(m.find("\"" + c.bad + "\""), std::string::npos) << m;
    EXPECT_NE(m.find(std::string("at ") + c.path + ", line " + std::to_string(line)), std::string::npos) << m;
    std::string again;
    ASSERT_TRUE(DocumentToXml(doc, again).succeeded());
    EXPECT_EQ(again, edited) << "the text must come back as it was read";
  }
}

}  // namespace
}  // namespace v7::files
