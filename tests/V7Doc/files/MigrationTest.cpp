#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "OC/Path.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/files/MigrationTable.h"

namespace v7::files {
namespace {
namespace fs = std::filesystem;

fs::path DataDir() {
  const char* d = std::getenv("QVV7_TEST_DATA");
  return fs::path(d ? d : "tests/data") / "migration";
}
std::string Slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
std::string Narrow(const std::wstring& w) { return std::string(w.begin(), w.end()); }

// Loads `xml` and saves it again; fails the test on a failed load.
std::string Resave(const std::string& xml, LoadReport* report = nullptr, QVDocument* into = nullptr) {
  QVDocument local;
  QVDocument& doc = into ? *into : local;
  const gtl::status s = DocumentFromXml(xml, doc, L"test", report);
  EXPECT_TRUE(s.succeeded()) << Narrow(s.message());
  std::string out;
  EXPECT_TRUE(DocumentToXml(doc, out).succeeded());
  return out;
}

std::wstring ValueAt(QVDocument& doc, const wchar_t* path) {
  oc::IOC node;
  if (oc::FindTag(DocumentStore(doc), path, node).failed()) return L"(none)";
  std::wstring v;
  if (node.Get(v).failed()) return L"(no value)";
  return v;
}

// The documents of tests/data/migration exercise every entry of the table
// (each entry takes at least one value from one of them): each old document,
// loaded and saved, gives exactly the current form stored beside it, which
// was built from the replacement paths and never went through the
// migration; that form itself loads as current, with no unknown element.
TEST(Migration, StoredOldDocumentsBecomeTheirCurrentForm) {
  std::set<std::wstring> exercised;
  std::size_t documents = 0;
  for (const auto& file : fs::directory_iterator(DataDir())) {
    const std::string name = file.path().filename().string();
    if (name.find(".current.") != std::string::npos) continue;
    SCOPED_TRACE(name);
    ++documents;
    const std::string current = Slurp(DataDir() / (file.path().stem().string() + ".current.xml"));
    LoadReport current_report;
    EXPECT_EQ(Resave(current, &current_report), current);
    EXPECT_FALSE(current_report.migrated);
    for (const auto& w : current_report.warnings)
      EXPECT_EQ(Narrow(w.message()).find("Unknown element"), std::string::npos) << Narrow(w.message());
    LoadReport report;
    EXPECT_EQ(Resave(Slurp(file.path()), &report), current);
    EXPECT_TRUE(report.migrated);
    EXPECT_EQ(report.version, L"0.9");
    for (const auto& m : report.migration)
      if (m.values > 0) exercised.insert(m.key);
  }
  EXPECT_EQ(documents, 7u);
  // An entry below a dropped one is reached only through it: the dropped
  // entry takes all the values beneath it.
  std::vector<std::wstring> dropped;
  for (const auto& e : migration::Entries())
    if (e.Dropped() && exercised.count(e.key)) dropped.push_back(e.key);
  for (const auto& e : migration::Entries()) {
    const bool below_dropped = std::any_of(dropped.begin(), dropped.end(), [&](const std::wstring& d) {
      return e.key.starts_with(d + L"[") || e.key.starts_with(d + L".");
    });
    EXPECT_TRUE(exercised.count(e.key) || below_dropped) << Narrow(e.key);
  }
}

struct EdgeCase {
  const char* what;
  const char* body;     // inside <QVDocument Version="0.9">
  const wchar_t* path;  // then holds
  const wchar_t* value;
};

TEST(Migration, EdgeCasesLandWhereTheyBelong) {
  const EdgeCase cases[] = {
      {"the misspelt member of the third analysis reaches that analysis's member",
       "<Analyses><Analysis><ID>1</ID></Analysis><Analysis><ID>2</ID></Analysis>"
       "<Analysis><ID>3</ID><NumCritialSlipSurfaces>17</NumCritialSlipSurfaces></Analysis></Analyses>",
       L"Analyses[3].NumCriticalSlipSurfaces", L"17"},
      {"the first analysis's unit water weight read last wins",
       "<CurrentAnalysis><UnitWaterWeight>9.5</UnitWaterWeight></CurrentAnalysis>"
       "<Analyses><Analysis><ID>1</ID><UnitWaterWeight>9.75</UnitWaterWeight></Analysis></Analyses>",
       L"Coordinates.EngCoords.UnitWaterWeight", L"9.75"},
      {"the current analysis's unit water weight read last wins",
       "<Analyses><Analysis><ID>1</ID><UnitWaterWeight>9.75</UnitWaterWeight></Analysis></Analyses>"
       "<CurrentAnalysis><UnitWaterWeight>9.5</UnitWaterWeight></CurrentAnalysis>",
       L"Coordinates.EngCoords.UnitWaterWeight", L"9.5"},
      {"an enumerator and its member are renamed together, once",
       "<CurrentAnalysis><PWPInitialOption>Initial PWP from Result</PWPInitialOption></CurrentAnalysis>",
       L"CurrentAnalysis.InitialCondOption", L"PreviousAnalysis"},
      {"the first stability item's entry lands under the current analysis's objects",
       "<Analyses><Analysis><ID>1</ID></Analysis></Analyses><StabItems><StabItem><ID>1</ID><Entry>"
       "<NumTrials>250</NumTrials><PressureLines><PressureLine><Name>Pond</Name></PressureLine></PressureLines>"
       "</Entry></StabItem></StabItems>",
       L"CurrentAnalysis.Objects.PressureLines[0].Name", L"Pond"},
      {"... all of it", "<StabItems><StabItem><ID>1</ID><Entry><NumTrials>250</NumTrials></Entry></StabItem></StabItems>",
       L"CurrentAnalysis.Objects.NumTrials", L"250"},
      {"grain-size functions are dropped with their points, and nothing else",
       "<Functions><Material><Hydraulic><GrainSizeFns><GrainSizeFn><ID>1</ID><Name>Sand</Name>"
       "<Points><Point><ID>1</ID><X>0.1</X><Y>20</Y></Point></Points></GrainSizeFn></GrainSizeFns>"
       "<KFns><KFn><ID>1</ID><Description>Clay</Description></KFn></KFns></Hydraulic></Material></Functions>",
       L"Functions.Material.Hydraulic.KFns[1].Name", L"Clay"},
      {"a record holding the text of a \".*\" key's last step is no enumerator, and the rest loads",
       "<StabItems><StabItem><ID>1</ID><Entry>*</Entry></StabItem></StabItems>"
       "<CurrentAnalysis><NumCritialSlipSurfaces>7</NumCritialSlipSurfaces></CurrentAnalysis>",
       L"CurrentAnalysis.NumCriticalSlipSurfaces", L"7"},
      {"an element name holding a dot is read as the path it spells",
       "<Analyses><Analysis><ID>1</ID><PWPOption.PhreaticCorrection>true</PWPOption.PhreaticCorrection>"
       "</Analysis></Analyses>",
       L"Analyses[1].PhreaticCorrection", L"true"},
      {"records far apart in number each take their own values",
       "<Materials><Material><ID>300</ID><Description>Far</Description></Material>"
       "<Material><ID>1</ID><Description>Near</Description></Material></Materials>",
       L"Materials[300].Name", L"Far"},
      {"crosswise bounds of a surface",
       "<Functions><Func3Ds><Fn3D><ID>2</ID><UserMin>4</UserMin></Fn3D></Func3Ds></Functions>",
       L"Functions.Func3Ds[2].SpecifiedMax", L"4"},
  };
  for (const EdgeCase& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    LoadReport report;
    Resave(std::string("<QVDocument Version=\"0.9\">") + c.body + "</QVDocument>", &report, &doc);
    EXPECT_EQ(ValueAt(doc, c.path), c.value);
    for (const auto& w : report.warnings)
      EXPECT_EQ(Narrow(w.message()).find("Unknown element"), std::string::npos) << Narrow(w.message());
  }
}

TEST(Migration, ReportCountsValuesByEntry) {
  LoadReport report;
  Resave("<QVDocument Version=\"0.9\"><Functions><Material><Hydraulic><GrainSizeFns><GrainSizeFn><ID>1</ID>"
         "<Points><Point><ID>1</ID><X>0.1</X><Y>20</Y></Point><Point><ID>2</ID><X>1</X><Y>90</Y></Point></Points>"
         "</GrainSizeFn></GrainSizeFns></Hydraulic></Material></Functions>"
         "<Analyses><Analysis><ID>1</ID><NumCritialSlipSurfaces>3</NumCritialSlipSurfaces></Analysis></Analyses>"
         "<CutLines><CutLine><ID>1</ID><Name>A</Name></CutLine></CutLines></QVDocument>",
         &report);
  ASSERT_EQ(report.migration.size(), 3u);
  // In the table's order.
  EXPECT_EQ(report.migration[0].key, L"Analyses[$1].NumCritialSlipSurfaces");
  EXPECT_EQ(report.migration[0].action, MigrationAction::Renamed);
  EXPECT_EQ(report.migration[0].values, 1u);
  EXPECT_EQ(report.migration[1].key, L"CutLines");
  EXPECT_EQ(report.migration[1].action, MigrationAction::Moved);
  EXPECT_EQ(report.migration[1].values, 2u);  // ID and Name
  EXPECT_EQ(report.migration[2].key, L"Functions.Material.Hydraulic.GrainSizeFns");
  EXPECT_EQ(report.migration[2].action, MigrationAction::Dropped);
  EXPECT_EQ(report.migration[2].values, 7u);
}

// A document of this generation, or one without a version, is read as it
// is: an old-looking path in it is not migrated.
TEST(Migration, CurrentDocumentsAreNotMigrated) {
  for (const char* root : {"<QVDocument Version=\"1.0\">", "<QVDocument>", "<QVDocument Version=\"1.3\">"}) {
    SCOPED_TRACE(root);
    QVDocument doc;
    LoadReport report;
    Resave(std::string(root) +
               "<Analyses><Analysis><ID>1</ID><NumCritialSlipSurfaces>3</NumCritialSlipSurfaces></Analysis></Analyses>"
               "</QVDocument>",
           &report, &doc);
    EXPECT_FALSE(report.migrated);
    EXPECT_EQ(ValueAt(doc, L"Analyses[1].NumCriticalSlipSurfaces"), L"100");
    ASSERT_FALSE(report.warnings.empty());
    EXPECT_NE(Narrow(report.warnings[0].message()).find("Unknown element \"NumCritialSlipSurfaces\""), std::string::npos);
  }
}

struct Malformed {
  const char* what;
  const char* body;
  bool fails;
  const char* message;  // part of the first problem
};

TEST(Migration, MalformedOldDocumentsNameOldAndNewPathAndLine) {
  const Malformed cases[] = {
      {"an index that is no record number where a pattern binds it",
       "<Analyses>\n<Analysis><ID>x</ID><CapSuction>3</CapSuction></Analysis></Analyses>", true,
       "Index \"x\" of Analyses[x].CapSuction, line 3, is no record number; UpgradeList[1].Values[$1] cannot be reached."},
      {"an ID taken as a list position far beyond the document's size",
       "<Analyses>\n<Analysis><ID>99999999</ID><CapSuction>3</CapSuction></Analysis></Analyses>", true,
       "Index 99999999 of Analyses[99999999].CapSuction, line 3, lies beyond all a document of this size can "
       "hold; UpgradeList[1].Values[99999999] is not made."},
      {"an enumerator text that names no value: kept, with a warning",
       "<CurrentAnalysis>\n<PWPInitialOption>From the moon</PWPInitialOption></CurrentAnalysis>", false,
       "\"From the moon\" at CurrentAnalysis.PWPInitialOption, line 3, names no value of CurrentInitialCondOption "
       "(now CurrentAnalysis.InitialCondOption); kept as read."},
      {"a value of the wrong type at its new path",
       "<Analyses><Analysis><ID>2</ID>\n\n<UnitWaterWeight>heavy</UnitWaterWeight></Analysis></Analyses>", true,
       "Value \"heavy\" at Analyses[2].UnitWaterWeight, line 4, is not a valid"},
  };
  for (const Malformed& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    LoadReport report;
    const std::string xml = std::string("<QVDocument Version=\"0.9\">\n") + c.body + "</QVDocument>";
    const gtl::status s = DocumentFromXml(xml, doc, L"old.xml", &report);
    EXPECT_EQ(s.failed(), c.fails);
    const std::string first = Narrow(c.fails ? s.message() : report.warnings.at(0).message());
    EXPECT_NE(first.find(c.message), std::string::npos) << first;
    if (!c.fails) {
      // Nothing lost: the text is written back as read.
      std::string out;
      ASSERT_TRUE(DocumentToXml(doc, out).succeeded());
      EXPECT_NE(out.find("<InitialCondOption>From the moon</InitialCondOption>"), std::string::npos) << out;
    }
  }
}

}  // namespace
}  // namespace v7::files
