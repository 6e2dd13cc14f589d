#include <gtest/gtest.h>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/external/ExternalFile.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSchema.h"

namespace v7 {
namespace {

TEST(ExternalFile, PairsAreTheTablesExpressionsWithTheAnalysisFilledIn) {
  struct Case {
    ExternalFileType type;
    const wchar_t* option;
    const wchar_t* path;
  } cases[] = {
      {ExternalFileType::AirFlow, L"initAirFlowCondOption_", L"inputFiles_.pathAirFlow"},
      {ExternalFileType::DynamicStress, L"dynStressOption_", L"inputFiles_.pathStress"},
      {ExternalFileType::VolChangePWPStart, L"initVolChangePWPCondOption_", L"inputFiles_.pathPWP"},
      {ExternalFileType::VolChangePWPFinal, L"finalPWPCondOption_", L"inputFiles_.pathPWPFinal"},
      {ExternalFileType::PWPChange, L"transPWPCondOption_", L"inputFiles_.pathPWPChange"},
      {ExternalFileType::Thermal, L"InitThermCondOption_", L"inputFiles_.pathThermo"},
      {ExternalFileType::PWP, L"InitPWPCondOption_", L"inputFiles_.pathPWP"},
      {ExternalFileType::Concentration, L"initConcentrationCondOption_", L"inputFiles_.pathConc"},
      {ExternalFileType::HydroResult, L"hydroResultCondOption_", L"inputFiles_.pathHydro"},
      {ExternalFileType::Particle, L"initParticleCondOption_", L"inputFiles_.pathPart"},
      {ExternalFileType::InitialStress, L"initStressOption_", L"inputFiles_.pathStress"},
  };
  ASSERT_EQ(std::size(cases), static_cast<std::size_t>(kNumExternalFileTypes));
  QVDocument doc;
  doc.Analyses().Add(ANALYSIS());
  ANALYSIS stab;
  stab.DataInit(AnalysisKind::Stab);
  doc.Analyses().Add(stab);
  for (const Case& c : cases) {
    ExternalFile f(doc.Analyses(), 1, c.type);
    EXPECT_EQ(f.AnlsId(), 1u);
    EXPECT_EQ(f.ExtType(), c.type);
    const auto [option, path] = f.GetValues();
    EXPECT_EQ(option, std::wstring(L"doc::Analyses()[1].") + c.option);
    EXPECT_EQ(path, std::wstring(L"doc::Analyses()[1].") + c.path);
    EXPECT_EQ(ExternalFile::Patterns(c.type, AnalysisKind::Hydro).first,
              std::wstring(L"doc::Analyses()[OC_INDEX1].") + c.option);
  }
  EXPECT_EQ(ExternalFile(doc.Analyses(), 2, ExternalFileType::PWP).GetValues().first,
            L"doc::Analyses()[2].GetStabPWPCondOption()");
}

TEST(ExternalFile, ExpressionsResolveToTheMembersTheAccessorsAddress) {
  QVDocument doc;
  doc.Analyses().Add(ANALYSIS());
  ANALYSIS stab;
  stab.DataInit(AnalysisKind::Stab);
  doc.Analyses().Add(stab);
  const oc::IODS store = files::DocumentStore(doc);
  for (GID id : {GID(1), GID(2)})
    for (int t = 0; t < kNumExternalFileTypes; ++t) {
      ExternalFile f(doc.Analyses(), id, static_cast<ExternalFileType>(t));
      const auto [optionPath, filePath] = f.GetValues();
      SCOPED_TRACE(str::to_utf8(optionPath));
      oc::IOC option, file;
      ASSERT_TRUE(oc::Find(store, optionPath, option).succeeded());
      ASSERT_TRUE(oc::Find(store, filePath + L".strFile_", file).succeeded());
      // The patterns, placeholder and all, resolve through the document's
      // expression reader to the same members.
      oc::IOC viaPattern;
      const auto patterns = ExternalFile::Patterns(f.ExtType(), doc.Analyses().At(id).kind);
      ASSERT_TRUE(doc::FindInDocument(doc, patterns.first, viaPattern, id).succeeded());
      EXPECT_TRUE(viaPattern == option);

      *f.PtrInitialCondOption() = InitialCondOption::Other;
      std::wstring text;
      ASSERT_TRUE(option.Get(text).succeeded());
      EXPECT_EQ(text, L"Other");
      EXPECT_TRUE(f.InUse());
      ASSERT_TRUE(option.Set(std::wstring_view(L"Parent")).succeeded());
      EXPECT_EQ(f.NormInitialCondOption(), InitialCondOption::Parent);
      EXPECT_FALSE(f.InUse());
      EXPECT_EQ(f.UseParentFirstStep(), f.ExtType() == ExternalFileType::VolChangePWPStart);

      const std::wstring name = L"results-" + std::to_wstring(t) + L".csv";
      f.PtrResultPath()->SetFile(name);
      ASSERT_TRUE(file.Get(text).succeeded());
      EXPECT_EQ(text, name);
      EXPECT_EQ(f.NormResultPath().File(), name);
      *f.PtrInitialCondOption() = InitialCondOption::None;
    }
}

TEST(ExternalFile, AMissingAnalysisAddressesNothing) {
  QVDocument doc;
  doc.Analyses().Add(ANALYSIS());
  doc.Analyses().Delete({1});
  for (GID id : {GID(0), GID(1), GID(9)}) {
    ExternalFile f(doc.Analyses(), id, ExternalFileType::Thermal);
    EXPECT_EQ(f.PtrInitialCondOption(), nullptr);
    EXPECT_EQ(f.PtrResultPath(), nullptr);
    EXPECT_EQ(f.NormInitialCondOption(), InitialCondOption::Undefined);
    EXPECT_TRUE(f.NormResultPath().IsEmpty());
    EXPECT_FALSE(f.InUse());
    EXPECT_FALSE(f.UseParentFirstStep());
  }
  std::vector<ExternalFileType> required;
  for (int t = 0; t < kNumExternalFileTypes; ++t)
    if (!ExternalFile(doc.Analyses(), 1, static_cast<ExternalFileType>(t)).IsNoneAllowed())
      required.push_back(static_cast<ExternalFileType>(t));
  EXPECT_EQ(required, (std::vector<ExternalFileType>{ExternalFileType::VolChangePWPFinal, ExternalFileType::PWPChange,
                                                      ExternalFileType::HydroResult}));
}

}  // namespace
}  // namespace v7
