#include "V7Doc/files/DocumentFile.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <bit>
#include <cstring>
#include <unistd.h>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "OC/Path.h"
#include "OC/Registry.h"
#include "OC/Schema.h"
#include "OC/package/AtomicFile.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/V7Doc/files/SampleDocument.h"

namespace v7::files {
namespace {
namespace fs = std::filesystem;

bool Equal(const QVDocument& a, const QVDocument& b) {
  return oc::TypeOf<QVDocument>().Ops().equal(&a, &b);
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
    testing::FillSampleDocument(sample_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::wstring Path(const char* name) const { return (dir_ / name).wstring(); }

  fs::path dir_;
  QVDocument sample_;
};

TEST(DocumentSchema, RegistersWithoutProblems) {
  EXPECT_TRUE(RegisterDocumentSchema().succeeded()) << RegisterDocumentSchema().message();
  for (const auto& s : oc::OCRegistry::Instance().Problems()) ADD_FAILURE() << str::to_utf8(s.message());
  const oc::RootInfo* root = oc::OCRegistry::Instance().Root(kDocumentRootTag);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->version, kDocumentFormatVersion);
}

// Saving and loading, through either file kind, gives back the same
// document; writing the loaded one again gives the same bytes.
TEST_F(DocumentFileTest, RoundTripIsEqualAndStable) {
  for (const char* name : {"p.qvz", "p.xml", "P.QVZ"}) {
    SCOPED_TRACE(name);
    const PackageEntries results{{L"Analysis1/Heads.csv", "t,h\n0,1\n"}};
    ASSERT_TRUE(SaveDocument(sample_, Path(name), results).succeeded());
    QVDocument loaded;
    PackageEntries back;
    LoadReport report;
    const auto s = LoadDocument(Path(name), loaded, &back, &report);
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(s.message());
    EXPECT_TRUE(report.warnings.empty());
    EXPECT_EQ(report.version, kDocumentFormatVersion);
    EXPECT_TRUE(Equal(sample_, loaded));
    if (IsPackagePath(Path(name))) {
      EXPECT_EQ(back, results);
    }
    std::string a, b;
    ASSERT_TRUE(DocumentToXml(sample_, a).succeeded());
    ASSERT_TRUE(DocumentToXml(loaded, b).succeeded());
    EXPECT_EQ(a, b);
  }
}

// Deleted rows leave their slots: the survivors keep their IDs.
TEST_F(DocumentFileTest, DeletedRowsKeepIdentifiers) {
  std::string xml;
  ASSERT_TRUE(DocumentToXml(sample_, xml).succeeded());
  QVDocument loaded;
  ASSERT_TRUE(DocumentFromXml(xml, loaded, L"mem").succeeded());
  struct Case {
    const char* table;
    std::size_t size;
    std::vector<GID> live;
  } cases[] = {{"analyses", 5, {1, 3, 4, 5}}, {"lines", 3, {1, 3}}, {"HKFns", 3, {1, 3}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.table);
    oc::IOC node;
    ASSERT_TRUE(oc::Find(DocumentStore(loaded), str::to_wstring(c.table), node).succeeded());
    EXPECT_EQ(node.Length(), c.live.size());
    for (GID id = 1; id <= c.size; ++id)
      EXPECT_EQ(node.At(id).IsValid(), std::find(c.live.begin(), c.live.end(), id) != c.live.end()) << id;
  }
  EXPECT_EQ(loaded.Analyses().At(3).name, sample_.Analyses().At(3).name);
  EXPECT_EQ(loaded.SessionIDByAnalysisID(4), 3u);  // sessions renumbered densely on load
}

// Doubles read back bit for bit, over the whole exponent range, subnormals
// and the no-value marker included.
TEST_F(DocumentFileTest, DoublesReadBackBitIdentical) {
  QVDocument doc;
  std::vector<double> values{qvi::kNoValue, -0.0, 5e-324, 2.2250738585072014e-308, 0.1, 1.0 / 3.0};
  for (int e = -1022; e <= 1023; e += 7) values.push_back(std::ldexp(1.0 + std::ldexp(1.0, -52) * e, e));
  for (double v : values) doc.Geometry().Points().Add(Geom::Point{v, -v});
  std::string xml;
  ASSERT_TRUE(DocumentToXml(doc, xml).succeeded());
  QVDocument back;
  ASSERT_TRUE(DocumentFromXml(xml, back, L"mem").succeeded());
  ASSERT_EQ(back.Geometry().Points().Size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto& p = back.Geometry().Points().At(static_cast<GID>(i + 1));
    const auto& q = doc.Geometry().Points().At(static_cast<GID>(i + 1));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(p.dX_), std::bit_cast<std::uint64_t>(q.dX_)) << values[i];
    EXPECT_EQ(std::bit_cast<std::uint64_t>(p.dY_), std::bit_cast<std::uint64_t>(q.dY_)) << values[i];
  }
}

// A qualified alias and the member name reach the same node.
TEST_F(DocumentFileTest, AliasAndMemberReachTheSameTable) {
  const struct {
    const wchar_t* alias;
    const wchar_t* member;
  } cases[] = {{L"v7::doc::Analyses[3].Name", L"analyses[3].Name"},
               {L"v7::doc::Geometry::Lines[3].PointID1", L"lines[3].PointID1"},
               {L"v7::doc::Function::HydKFns[1].Fn", L"HKFns[1].Fn"},
               {L"v7::doc::Function::ClimateBoundRootDepthFns", L"RDFns"},
               {L"doc::Materials()[1].Name", L"hMatlMem[1].Name"},
               {L"doc::BCs[1]", L"boundaryConditions[1]"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(str::to_utf8(c.alias));
    oc::IOC a, m;
    ASSERT_TRUE(oc::Find(DocumentStore(sample_), c.alias, a).succeeded());
    ASSERT_TRUE(oc::Find(DocumentStore(sample_), c.member, m).succeeded());
    EXPECT_TRUE(a == m);
  }
  oc::IOC n;
  ASSERT_TRUE(oc::Find(DocumentStore(sample_), L"analyses[3].Name", n).succeeded());
  std::wstring name;
  ASSERT_TRUE(n.Get(name).succeeded());
  EXPECT_EQ(name, sample_.Analyses().At(3).name);
}

// The layout of the written file: points before lines, the lines' element
// tag "Lines", the function lists under their collection paths.
TEST_F(DocumentFileTest, WrittenLayout) {
  std::string xml;
  ASSERT_TRUE(DocumentToXml(sample_, xml).succeeded());
  const auto points = xml.find("<Points>");
  const auto lines = xml.find("<Lines>");
  ASSERT_NE(points, std::string::npos);
  ASSERT_NE(lines, std::string::npos);
  EXPECT_LT(points, lines);
  for (const char* fragment :
       {"<QVDocument Version=\"1.0\"", "<GeometryItems>", "<Lines>\n", "<PointID1>1</PointID1>",
        "<Functions>", "<Material>", "<Hydraulic>", "<KFns>", "<KFn>", "<Air>", "<BoundFn>",
        "<Analyses>", "<Analysis>", "<ID>3</ID>", "<Kind>STAB</Kind>", "<StabItems>", "<Entry>"}) {
    EXPECT_NE(xml.find(fragment), std::string::npos) << fragment;
  }
  // The element of the lines collection is itself "Lines".
  EXPECT_NE(xml.find("<Lines>\n"), std::string::npos);
  const auto inner = xml.find("<Lines>", lines + 1);
  EXPECT_NE(inner, std::string::npos);
}

void WriteZip(const std::wstring& path, const std::vector<std::pair<std::string, std::string>>& entries) {
  int err = 0;
  zip_t* z = zip_open(str::to_utf8(path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
  ASSERT_NE(z, nullptr);
  for (const auto& [name, data] : entries)
    zip_file_add(z, name.c_str(), zip_source_buffer(z, data.data(), data.size(), 0), 0);
  ASSERT_EQ(zip_close(z), 0);
}

// Bad input fails with a message naming the file and where, and leaves the
// current document as it was.
TEST_F(DocumentFileTest, MalformedInputIsRefusedAndChangesNothing) {
  std::string good;
  ASSERT_TRUE(DocumentToXml(sample_, good).succeeded());
  auto replace = [&](const std::string& from, const std::string& to) {
    std::string s = good;
    const auto at = s.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? s : s.replace(at, from.size(), to);
  };
  const struct {
    const char* what;
    std::string xml;
    const char* expect;  // a fragment of the message
  } cases[] = {
      {"truncated", good.substr(0, good.size() / 2), "line"},
      {"wrong type", replace("<NumTrials>500</NumTrials>", "<NumTrials>many</NumTrials>"), "NumTrials"},
      {"bad function text", replace("Linear(SlopeAfter=0)", "NoSuchKind("), "KFns[1].Fn"},
      {"duplicate ID", replace("<ID>3</ID>", "<ID>1</ID>"), "Duplicate ID 1"},
      {"wrong root", "<Other Version=\"1\"/>", "Other"},
      {"empty", "", "line"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::wstring file = Path("bad.xml");
    { std::ofstream(fs::path(file), std::ios::binary) << c.xml; }
    QVDocument doc;
    testing::FillSampleDocument(doc);
    const auto s = LoadDocument(file, doc);
    ASSERT_TRUE(s.failed());
    const std::string msg = str::to_utf8(s.message());
    EXPECT_NE(msg.find("bad.xml"), std::string::npos) << msg;
    EXPECT_NE(msg.find(c.expect), std::string::npos) << msg;
    EXPECT_TRUE(Equal(doc, sample_));
  }
}

// Unknown elements and enumeration names are warnings naming the place; the
// rest of the document loads.
TEST_F(DocumentFileTest, UnknownNamesAreWarnings) {
  std::string xml;
  ASSERT_TRUE(DocumentToXml(sample_, xml).succeeded());
  const struct {
    const char* from;
    const char* to;
    const char* expect;
  } cases[] = {{"<Kind>STAB</Kind>", "<Kind>STAB</Kind><Colour>red</Colour>", "Colour"},
               {"<Kind>STAB</Kind>", "<Kind>STABLE</Kind>", "STABLE"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.to);
    std::string s = xml;
    s.replace(s.find(c.from), std::strlen(c.from), c.to);
    QVDocument doc;
    LoadReport report;
    ASSERT_TRUE(DocumentFromXml(s, doc, L"mem", &report).succeeded());
    // An unknown kind reads as none, which also marks the analysis deleted:
    // a second warning says so.
    ASSERT_GE(report.warnings.size(), 1u);
    const std::string msg = str::to_utf8(report.warnings[0].message());
    EXPECT_NE(msg.find(c.expect), std::string::npos) << msg;
    EXPECT_NE(msg.find("Analyses"), std::string::npos) << msg;
    EXPECT_NE(msg.find("line"), std::string::npos) << msg;
  }
}

TEST_F(DocumentFileTest, BadPackagesAreRefused) {
  std::string good;
  ASSERT_TRUE(DocumentToXml(sample_, good).succeeded());
  const struct {
    const char* what;
    std::vector<std::pair<std::string, std::string>> entries;
    const char* expect;
  } cases[] = {{"escaping entry", {{"Document.xml", good}, {"../evil.csv", "x"}}, "../evil.csv"},
               {"absolute entry", {{"Document.xml", good}, {"/etc/evil", "x"}}, "/etc/evil"},
               {"no document", {{"Analysis1/Heads.csv", "x"}}, "Document.xml"},
               {"bad document", {{"Document.xml", "<QVDocument"}}, "Document.xml"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::wstring file = Path("bad.qvz");
    WriteZip(file, c.entries);
    QVDocument doc;
    testing::FillSampleDocument(doc);
    PackageEntries results{{L"keep", "me"}};
    const auto s = LoadDocument(file, doc, &results);
    ASSERT_TRUE(s.failed());
    const std::string msg = str::to_utf8(s.message());
    EXPECT_NE(msg.find("bad.qvz"), std::string::npos) << msg;
    EXPECT_NE(msg.find(c.expect), std::string::npos) << msg;
    EXPECT_TRUE(Equal(doc, sample_));
    EXPECT_EQ(results.size(), 1u);
  }
}

// A save that fails (here just before the rename, as a full disk would)
// leaves the previous file as it was; so does a refused entry name.
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

}  // namespace
}  // namespace v7::files
