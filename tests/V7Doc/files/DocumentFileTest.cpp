#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentEdit.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <zip.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "OC/Path.h"
#include "OC/Registry.h"
#include "OC/Schema.h"
#include "OC/package/AtomicFile.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/materials/MATLTable.h"
#include "V7Doc/document/QVDocument.h"

namespace v7::files {
namespace {
namespace fs = std::filesystem;

void FillSampleDocument(QVDocument& doc) {
  doc.DataInit();
  for (int i = 1; i <= 4; ++i) {
    ANALYSIS a;
    a.DataInit(i % 2 ? AnalysisKind::Hydro : AnalysisKind::Stab);
    a.name = L"Stage " + std::to_wstring(i) + L" <&\"'>";
    a.parent = i > 1 ? 1 : 0;
    a.fLambda_ = 0.1 * i;
    a.TimeInc_.vCustomElapsed = {1.0 / 3.0, 86400.0 * i};
    a.inputFiles_.pathPWP = v7qvi::analysis::ResultPath(L"C:\\p", L"Stage 1", L"pwp.csv", i);
    doc.Analyses().Add(a);
  }
  ANALYSIS transient;
  transient.DataInit(AnalysisKind::Hydro, AnlsMethod::Transient);
  transient.name = L"Drawdown";
  transient.TimeInc_.SetIncCount(10);
  transient.TimeInc_.SetDuration(1);
  doc.Analyses().Add(transient);
  doc.Analyses().Delete({2});
  auto& geo = doc.Geometry();
  for (int i = 0; i < 4; ++i) geo.Points().Add(Geom::Point{i * 1.5, -0.25 * i});
  for (GID i = 1; i <= 3; ++i) geo.Lines().Add(Geom::Line{i, i + 1});
  geo.Lines().Delete({2});
  Geom::Region r;
  r.pointIDs_ = {1, 2, 3};
  r.nMaterialID_ = 1;
  geo.Regions().Add(r);
  auto& mesh = geo.Mesh();
  for (int i = 0; i < 6; ++i) mesh.AddNode(i % 3 * 1.0, i / 3 * 0.1 - 1e-300);
  mesh.AddElement(ELEM{{1, 2, 5, 4, 0, 0, 0, 0}, 1, 4});
  mesh.AddElement(ELEM{});
  mesh.AddElement(ELEM{{2, 3, 6, 0, 0, 0, 0, 0}, 1, 3});
  mesh.AddElement1D(ELEM1D{});
  mesh.AddElement1D(ELEM1D{{1, 2, 0, 0, 0, 0, 0, 0}, 1, 2});
  mesh.NodePairs().push_back(NodePair{2, 5});
  doc.ExclusiveAnlsIDBySkTextID().Insert(7, 1);
  doc.ExclusiveAnlsIDBySkTextID().Insert(3, 3);
  Func2D f(L"Silty sand K", L"drawn", IFn());
  (void)f.SetFnText(L"Linear(SlopeAfter=0)");
  f.Points() = {{1, 2, 0}, {3, 4, 0.5}};
  doc.FunctionList(11)->Add(f);
  doc.FunctionList(11)->Add(Func2D(L"second", L"", IFn()));
  doc.FunctionList(11)->Add(Func2D(L"third", L"", IFn()));
  doc.FunctionList(11)->Delete({2});
  doc.FunctionList(51)->Add(Func2D(L"Air", L"", IFn::Constant(2.5)));
  MATL clay;
  clay.sDescription() = L"Clay";
  clay.HydroModel() = HydroMatlModel::SatUnsat;
  clay.Hydraulic().dHKSat() = 1e-8;
  clay.StabModel() = StabMatlModel::MohrCoulomb;
  clay.Stress().fnCohesion() = IFn::Constant(8);
  clay.Stress().fnPhiPrime() = IFn::Constant(24.5);
  doc.Materials().Add(clay);
  doc.Materials().Add(MATL());
  doc.Materials().Delete({2});
  BC drain;
  drain.name = L"Drain";
  (void)drain.SetSlot(DOFType::Hydraulic, L"Constant(BType=1,Value=42)");
  SetBCDefaultColour(drain);
  doc.BCs().Add(drain);
  CLIMATE_INFO climate;
  climate.DataInit();
  climate.wsTitle = L"Week";
  CLIMATEENTRY day;
  day.nDay = 1;
  day.fmaxT = 14.5;
  climate.hClimateMem.push_back(day);
  doc.ClimateData().Add(climate);
  ResultContour contour;
  contour.eType_ = DataParamType::PoreWaterPressure;
  contour.fMinLevel_ = -100;
  doc.ResultContours().Add(contour);
  doc.StabItems().Get(3).nNumTrials_ = 500;
  doc.HydroItems().Get(1).vInitialWaterTables_.push_back(WaterTableEntry{L"WT", {1, 2}, {1}, InputDefinition::Define, false});
  doc.ViewPreferences().fFontSize = 10.5;
  Associations context;
  context.name_ = L"ctx";
  context.nAnalysisID_ = 1;
  context.regionUsesMaterials_.push_back(RegionUsesMaterial{1, 1});
  context.hydBCIDByGGID.push_back(GeometryUsesBC{container::Lines, 1, 1});
  doc.Contexts().Add(context);
}

bool Equal(const QVDocument& a, const QVDocument& b) {
  return oc::TypeOf<QVDocument>().Ops().equal(&a, &b);
}

std::string Xml(const QVDocument& d) {
  std::string xml;
  EXPECT_TRUE(DocumentToXml(d, xml).succeeded());
  return xml;
}

std::string Slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class DocumentFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("qvv7_docfile_" + std::to_string(::getpid()));
    fs::create_directories(dir_);
    FillSampleDocument(sample_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::wstring Path(const std::string& name) const { return (dir_ / name).wstring(); }

  fs::path dir_;
  QVDocument sample_;
  const PackageEntries results_{{L"Analysis1/Heads.csv", "t,h\n0,1\n"},
                                {L"Analysis3/Stab.csv", "slip,fs\n1,1.25\n"}};
};

TEST(DocumentSchema, RegistersWithoutProblems) {
  EXPECT_TRUE(RegisterDocumentSchema().succeeded()) << RegisterDocumentSchema().message();
  for (const auto& s : oc::OCRegistry::Instance().Problems()) ADD_FAILURE() << str::to_utf8(s.message());
  const oc::RootInfo* root = oc::OCRegistry::Instance().Root(kDocumentRootTag);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->version, kDocumentFormatVersion);
}

TEST_F(DocumentFileTest, RoundTripIsEqualAndStable) {
  for (const char* name : {"p.qvz", "p.xml", "P.QVZ"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(SaveDocument(sample_, Path(name), results_).succeeded());
    QVDocument loaded;
    PackageEntries back;
    LoadReport report;
    const auto s = LoadDocument(Path(name), loaded, &back, &report);
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(s.message());
    EXPECT_TRUE(report.warnings.empty());
    EXPECT_TRUE(Equal(sample_, loaded));
    if (IsPackagePath(Path(name))) {
      EXPECT_EQ(back, results_);
    }
    EXPECT_EQ(Xml(sample_), Xml(loaded));
    // Sessions are numbered densely on load: live analyses 1, 3, 4 and 5.
    EXPECT_EQ(loaded.SessionIDByAnalysisID(4), 3u);
  }
}

TEST_F(DocumentFileTest, FailedSaveLeavesOldFile) {
  for (const char* name : {"keep.qvz", "keep.xml"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(SaveDocument(sample_, Path(name)).succeeded());
    const std::string before = Slurp(dir_ / name);
    QVDocument other;
    other.DataInit();
    oc::package::SimulateFailureBeforeRename(true);
    EXPECT_TRUE(SaveDocument(other, Path(name)).failed());
    oc::package::SimulateFailureBeforeRename(false);
    EXPECT_TRUE(SaveDocument(other, Path(name), {{L"../x", "y"}}).failed() == IsPackagePath(Path(name)));
    if (IsPackagePath(Path(name))) {
      EXPECT_EQ(Slurp(dir_ / name), before);
    }
  }
  EXPECT_TRUE(SaveDocument(sample_, Path("p.txt")).failed());
}

TEST_F(DocumentFileTest, SetChecksThenSavesAtomically) {
  struct Case {
    const wchar_t* path;
    const wchar_t* text;
    const char* error;    // part of the message when refused; nullptr when stored
    const wchar_t* back;  // the value read back from the saved file
  };
  const Case cases[] = {
      {L"hMatlMem[1].Hydraulic.KSat", L"2.5e-7", nullptr, L"2.5e-07"},
      {L"v7::doc::Analyses()[1].Name", L"Steady <seep>", nullptr, L"Steady <seep>"},
      {L"hMatlMem[1].HydroModel", L"SatOnly", nullptr, L"SatOnly"},
      {L"hElemMem[2].Nodes[2]", L"5", nullptr, L"5"},
      {L"MeshItems.Elements[0].Nodes[3]", L"6", nullptr, L"6"},
      {L"v7::doc::ExclAnlsIDbySkTxt()[1].Value", L"2", nullptr, L"2"},
      {L"exclusiveAnlsIDbySkTextID[0].Value", L"1", nullptr, L"1"},
      {L"hMatlMem[1].HydroModel", L"SatOnyl", "Cannot assign", nullptr},
      {L"analyses[1].DynamicControl.NewmarkBeta", L"1.5", "outside the bounds", nullptr},
      {L"hElemMem[0].Nodes[8]", L"1", "There is no element 8 in hElemMem[0].Nodes[8]: Nodes holds", nullptr},
      {L"hElemMem[0].Nodes[4]", L"-1", "", nullptr},  // node numbers are not negative
      {L"exclusiveAnlsIDbySkTextID[0].Key", L"5", "not supported", nullptr},
      {L"hMatlMem[1].NoSuchMember", L"1", "", nullptr},
      {L"hMatlMem[2].Hydraulic.KSat", L"1", "There is no record 2 in hMatlMem[2].Hydraulic.KSat: hMatlMem holds 1 record, ID 1.", nullptr},  // a deleted row
      {L"analyses[9].Name", L"x", "analyses holds 4 records, IDs 1, 3, 4 and 5.", nullptr},
      {L"hMatlMem[1]", L"x", "not one value", nullptr},
  };
  for (const char* name : {"p.qvz", "p.xml"}) {
    const std::wstring file = Path(name);
    ASSERT_TRUE(SaveDocument(sample_, file, results_).succeeded());
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(name) + " " + str::to_utf8(c.path) + " = " + str::to_utf8(c.text));
      const std::string before = Slurp(file);
      SetReport report;
      const gtl::status s = SetValueInFile(file, c.path, c.text, &report);
      if (c.error) {
        EXPECT_TRUE(s.failed());
        EXPECT_NE(s.message_utf8().find(c.error), std::string::npos) << s.message_utf8();
        EXPECT_EQ(Slurp(file), before);
        continue;
      }
      ASSERT_TRUE(s.succeeded()) << s.message_utf8();
      QVDocument doc;
      PackageEntries back;
      ASSERT_TRUE(LoadDocument(file, doc, &back).succeeded());
      oc::IOC node;
      std::wstring text;
      ASSERT_TRUE(oc::Find(DocumentStore(doc), c.path, node).succeeded());
      ASSERT_TRUE(node.Get(text).succeeded());
      EXPECT_EQ(text, c.back);
      EXPECT_EQ(back, IsPackagePath(file) ? results_ : PackageEntries{});
    }
  }
}

TEST_F(DocumentFileTest, SetOnAFileThatDoesNotLoadWritesNothing) {
  const std::wstring file = Path("bad.xml");
  std::ofstream(dir_ / "bad.xml") << "<QVDocument Version=\"1.0\"><Analyses><Analysis><ID>x</ID>";
  const std::string before = Slurp(dir_ / "bad.xml");
  EXPECT_TRUE(SetValueInFile(file, L"analyses[1].Name", L"A").failed());
  EXPECT_EQ(Slurp(dir_ / "bad.xml"), before);
  EXPECT_TRUE(SetValueInFile(Path("missing.qvz"), L"analyses[1].Name", L"A").failed());
  EXPECT_FALSE(fs::exists(dir_ / "missing.qvz"));
}

TEST_F(DocumentFileTest, SetWarnsOfAFunctionTextKeptAsWritten) {
  const std::wstring file = Path("fn.qvz");
  ASSERT_TRUE(SaveDocument(sample_, file).succeeded());
  SetReport report;
  ASSERT_TRUE(SetValueInFile(file, L"hMatlMem[1].StressStrain.Cohesion", L"Nope(1", &report).succeeded());
  ASSERT_EQ(report.warnings.size(), 1u);
  EXPECT_NE(report.warnings[0].message_utf8().find("\"Nope(1\""), std::string::npos);
  QVDocument doc;
  ASSERT_TRUE(LoadDocument(file, doc).succeeded());
  EXPECT_EQ(doc.Materials().At(1).Stress().fnCohesion().as_wstring(), L"Nope(1");
}

TEST_F(DocumentFileTest, ConvertKeepsTheDocumentAndCarriesResultsBetweenPackages) {
  ASSERT_TRUE(SaveDocument(sample_, Path("a.qvz"), results_).succeeded());
  std::string original;
  ASSERT_TRUE(DocumentToXml(sample_, original).succeeded());
  struct Case {
    const char* in;
    const char* out;
    std::size_t entries;  // result entries the output holds
  };
  const Case chain[] = {
      {"a.qvz", "b.qvz", 2}, {"b.qvz", "c.xml", 0}, {"c.xml", "d.qvz", 0},
      {"d.qvz", "e.XML", 0}, {"a.qvz", "f.QVZ", 2},
  };
  for (const Case& c : chain) {
    SCOPED_TRACE(std::string(c.in) + " -> " + c.out);
    std::size_t written = 99;
    const gtl::status s = ConvertFile(Path(c.in), Path(c.out), &written);
    ASSERT_TRUE(s.succeeded()) << s.message_utf8();
    EXPECT_EQ(written, c.entries);
    QVDocument doc;
    PackageEntries back;
    ASSERT_TRUE(LoadDocument(Path(c.out), doc, &back).succeeded());
    EXPECT_EQ(back, c.entries ? results_ : PackageEntries{});
    std::string xml;
    ASSERT_TRUE(DocumentToXml(doc, xml).succeeded());
    EXPECT_EQ(xml, original);  // byte-identical document at every step
  }
  EXPECT_EQ(Slurp(dir_ / "c.xml"), original);
  EXPECT_EQ(Slurp(dir_ / "e.XML"), original);
  EXPECT_TRUE(ConvertFile(Path("a.qvz"), Path("g.txt")).failed());
  EXPECT_FALSE(fs::exists(dir_ / "g.txt"));
}

// A result entry compressed otherwise than a save would compress it (level
// 1 here) keeps its stored bytes through Set and Convert: it is copied, not
// decompressed and compressed again.
TEST_F(DocumentFileTest, EditsCopyResultEntriesAsStored) {
  std::string xml, table = "Node,X,Y\r\n";
  ASSERT_TRUE(DocumentToXml(sample_, xml).succeeded());
  for (int n = 1; n <= 20000; ++n) table += std::to_string(n) + "," + std::to_string(n % 101 * 0.5) + ",0.25\r\n";
  const std::string file = str::to_utf8(Path("fast.qvz"));
  auto add = [](zip_t* z, const char* name, const std::string& bytes, zip_uint32_t level) {
    zip_source_t* src = zip_source_buffer(z, bytes.data(), bytes.size(), 0);
    const zip_int64_t i = zip_file_add(z, name, src, 0);
    ASSERT_GE(i, 0);
    ASSERT_EQ(zip_set_file_compression(z, static_cast<zip_uint64_t>(i), ZIP_CM_DEFLATE, level), 0);
  };
  int err = 0;
  zip_t* z = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
  ASSERT_NE(z, nullptr);
  add(z, "Document.xml", xml, 9);
  add(z, "001/node.csv", table, 1);
  ASSERT_EQ(zip_close(z), 0);
  auto stored = [](const std::string& path) {
    int e = 0;
    zip_t* a = zip_open(path.c_str(), ZIP_RDONLY, &e);
    zip_stat_t st;
    zip_stat_init(&st);
    const bool ok = a && zip_stat(a, "001/node.csv", 0, &st) == 0;
    if (a) zip_discard(a);
    return ok ? std::pair<zip_uint64_t, zip_uint32_t>(st.comp_size, st.crc) : std::pair<zip_uint64_t, zip_uint32_t>();
  };
  const auto before = stored(file);
  ASSERT_GT(before.first, 0u);
  ASSERT_TRUE(SetValueInFile(Path("fast.qvz"), L"analyses[1].Name", L"Edited").succeeded());
  EXPECT_EQ(stored(file), before);
  std::size_t written = 0;
  ASSERT_TRUE(ConvertFile(Path("fast.qvz"), Path("copy.qvz"), &written).succeeded());
  EXPECT_EQ(written, 1u);
  EXPECT_EQ(stored(str::to_utf8(Path("copy.qvz"))), before);
  QVDocument doc;
  PackageEntries back;
  ASSERT_TRUE(LoadDocument(Path("copy.qvz"), doc, &back).succeeded());
  EXPECT_EQ(back, (PackageEntries{{L"001/node.csv", table}}));
  EXPECT_EQ(doc.Analyses().At(1).name, L"Edited");
}

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

TEST_F(DocumentFileTest, NodeListsAndRowNumbers) {
  const std::string xml = Xml(sample_);
  struct Case {
    const char* what;
    std::string xml;
    bool loads;
    const char* expect;  // a part of the error when it does not load
  };
  const Case cases[] = {
      // (Fewer positions than eight, or more, are the fixed arrays' rule.)
      {"as written", xml, true, ""},
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
    EXPECT_TRUE(mesh.Elements()[1].IsEmpty());
    EXPECT_TRUE(mesh.Elements1D()[0].IsEmpty());
    EXPECT_EQ(mesh.Elements()[2].anNodes_, (std::array<std::int32_t, 8>{2, 3, 6, 0, 0, 0, 0, 0}));
    EXPECT_EQ(mesh.Elements()[2].nIntegrationOrder_, 3);
    EXPECT_EQ(mesh.Elements1D()[1].anNodes_[1], 2);
    ASSERT_EQ(mesh.NodePairs().size(), 1u);
    EXPECT_EQ(mesh.NodePairs()[0], (NodePair{2, 5}));
    ASSERT_EQ(mesh.Nodes().size(), 6u);
    std::vector<gtl::status> problems;
    mesh.Validate(problems);
    EXPECT_EQ(problems.size(), c.xml.find("<N>-5</N>") != std::string::npos ? 1u : 0u)
        << Messages(problems);
  }
}

TEST_F(DocumentFileTest, ReadInAnyOrder) {
  const std::string xml = Xml(sample_);
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
      {"reversed", Edit(xml, block, entries({{9, 3}, {4, 1}, {1, 3}})), {{1, 3}, {4, 1}, {9, 3}},
       nullptr},
      {"repeated key", Edit(xml, block, entries({{5, 1}, {2, 1}, {5, 3}})), {{2, 1}, {5, 3}},
       "1 entries dropped"},
      {"key 0", Edit(xml, block, entries({{0, 1}, {2, 1}})), {{2, 1}}, "1 entries dropped"},
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

TEST_F(DocumentFileTest, BadTextsWarnAndSurvive) {
  const std::string xml = Xml(sample_);
  struct Case {
    const char* what;
    std::string pattern, bad;
    const char* path;
  };
  const Case cases[] = {
      {"material, unknown kind", "<Cohesion>[^<]*</Cohesion>", "Spline(Points=1;2", "Materials[1].StressStrain.Cohesion"},
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
