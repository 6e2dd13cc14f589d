// `set` and `convert` as the library does them: checks before any write,
// atomic saves, result entries carried between packages.
#include "V7Doc/files/DocumentEdit.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/core/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/V7Doc/files/SampleDocument.h"

namespace v7::files {
namespace {
namespace fs = std::filesystem;

std::string Slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class DocumentEditTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("qvv7_edit_" + std::to_string(::getpid()));
    fs::create_directories(dir_);
    testing::FillSampleDocument(sample_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::wstring Path(const std::string& name) const { return (dir_ / name).wstring(); }

  fs::path dir_;
  QVDocument sample_;
  const PackageEntries results_{{L"Analysis1/Heads.csv", "t,h\n0,1\n"},
                                {L"Analysis3/Stab.csv", "slip,fs\n1,1.25\n"}};
};

TEST_F(DocumentEditTest, SetChecksThenSavesAtomically) {
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
      {L"exclusiveAnlsIDbySkTextID[0].Value", L"1", nullptr, L"1"},
      // Refused: each leaves the file byte for byte as it was.
      {L"hMatlMem[1].HydroModel", L"SatOnyl", "Cannot assign", nullptr},
      {L"analyses[1].DynamicControl.NewmarkBeta", L"1.5", "outside the bounds", nullptr},
      {L"hElemMem[0].IntegrationOrder", L"12", "outside the bounds", nullptr},
      {L"hElemMem[0].Nodes[8]", L"1", "", nullptr},
      {L"exclusiveAnlsIDbySkTextID[0].Key", L"5", "not supported", nullptr},
      {L"hMatlMem[1].NoSuchMember", L"1", "", nullptr},
      {L"hMatlMem[2].Hydraulic.KSat", L"1", "", nullptr},  // a deleted row
      {L"hMatlMem[1].Hydraulic.KSat", L"fast", "Cannot assign", nullptr},
      {L"hMatlMem[1]", L"x", "not one value", nullptr},
      {L"hNodeMem", L"x", "not one value", nullptr},
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
      ASSERT_TRUE(oc::Find(DocumentStore(doc), c.path, node).succeeded());
      std::wstring text;
      ASSERT_TRUE(node.Get(text).succeeded());
      EXPECT_EQ(text, c.back);
      if (IsPackagePath(file)) {
        EXPECT_EQ(back, results_);  // results kept
      }
    }
  }
}

TEST_F(DocumentEditTest, SetOnAFileThatDoesNotLoadWritesNothing) {
  const std::wstring file = Path("bad.xml");
  std::ofstream(dir_ / "bad.xml") << "<QVDocument Version=\"1.0\"><Analyses><Analysis><ID>x</ID>";
  const std::string before = Slurp(dir_ / "bad.xml");
  EXPECT_TRUE(SetValueInFile(file, L"analyses[1].Name", L"A").failed());
  EXPECT_EQ(Slurp(dir_ / "bad.xml"), before);
  EXPECT_TRUE(SetValueInFile(Path("missing.qvz"), L"analyses[1].Name", L"A").failed());
  EXPECT_FALSE(fs::exists(dir_ / "missing.qvz"));
}

TEST_F(DocumentEditTest, SetWarnsOfAFunctionTextKeptAsWritten) {
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

TEST_F(DocumentEditTest, ConvertKeepsTheDocumentAndCarriesResultsBetweenPackages) {
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
    EXPECT_EQ(back.size(), c.entries);
    if (c.entries) {
      EXPECT_EQ(back, results_);
    }
    std::string xml;
    ASSERT_TRUE(DocumentToXml(doc, xml).succeeded());
    EXPECT_EQ(xml, original);  // byte-identical document at every step
  }
  EXPECT_EQ(Slurp(dir_ / "c.xml"), original);
  EXPECT_EQ(Slurp(dir_ / "e.XML"), original);
  // A target that is neither kind is refused and not created.
  EXPECT_TRUE(ConvertFile(Path("a.qvz"), Path("g.txt")).failed());
  EXPECT_FALSE(fs::exists(dir_ / "g.txt"));
}

}  // namespace
}  // namespace v7::files
