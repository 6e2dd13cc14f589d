#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/KindByExt.h"
#include "V7Doc/qvifile/ResultFileNames.h"
#include "V7Doc/qvifile/V5Extensions.h"

namespace v7::qvifile {
namespace {

using K = AnalysisKind;
const K kKinds[] = {K::Solute, K::Shake, K::Hydro, K::Deform, K::Stab, K::Thermo, K::Evapo};

TEST(KindByExt, EveryEntryFindsItsKindInAnyCase) {
  const auto entries = ext::KindByExtEntries();
  ASSERT_EQ(entries.size(), 89u);
  std::set<std::wstring> seen;
  for (const auto& e : entries) {  // keys are unique, so each entry's own kind comes back
    EXPECT_TRUE(seen.insert(str::to_lower(e.ext)).second) << str::to_utf8(e.ext) << " twice";
    EXPECT_EQ(ext::KindByExt(e.ext), e.kind) << str::to_utf8(e.ext);
  }
}

TEST(KindByExt, FallbackBranches) {
  struct { const wchar_t* ext; K kind; const char* why; } cases[] = {
      {L".STABXML", K::Stab, "case is ignored"},
      {L".fac", K::Stab, "single stability file"},
      {L".cnq", K::Shake, "shake convergence"},
      {L".h12", K::Hydro, "head before the first digit"},
      {L".vh3", K::Evapo, "three-letter head"},
      {L".en14", K::Thermo, "two-letter head"},
      {L".t1", K::Thermo, "shortest numbered name"},
      {L".x", K::None, "too short for a head"},
      {L".qqq", K::None, "no digit: head is the whole name, matches nothing"},
      {L".zz9", K::None, "head .zz* is no pattern"},
      {L".h2in", K::Hydro, "ends in \"in\": step 3 skipped, step 4 finds .h*"},
      {L".x*", K::Shake, "a pattern itself is an entry"},
      {L".s*1", K::Deform, "step 4 cuts at the star"},
      {L"", K::None, "empty"},
  };
  for (const auto& c : cases) EXPECT_EQ(ext::KindByExt(c.ext), c.kind) << c.why;
}

// Every extension a function returns is recognised as its kind's own, so that
// the reader of older projects finds the files the writer named.
TEST(V5Extensions, EveryReturnedExtensionMapsBackToItsKind) {
  using Fn = std::wstring (*)(AnalysisKind);
  const Fn functions[] = {
      ext::v5::Archive, ext::v5::Data, ext::v5::Secondary, ext::v5::ContourOptions,
      ext::v5::Convergence, ext::v5::Concentration, ext::v5::Mass, ext::v5::Dispersion,
      ext::v5::Particle, ext::v5::ParticleVelocity, ext::v5::Displacement, ext::v5::Stress,
      ext::v5::Strain, ext::v5::PWP, ext::v5::PWPOrHead, ext::v5::Head, ext::v5::Flux,
      ext::v5::Velocity, ext::v5::MatlProp};
  int cells = 0;
  for (auto f : functions)
    for (K k : kKinds) {
      const auto e = f(k);
      if (e.empty()) continue;
      ++cells;
      EXPECT_EQ(ext::KindByExt(e), k) << str::to_utf8(e);
      if (e.back() == L'*') {
        std::wstring numbered = e.substr(0, e.size() - 1) + L"12";
        EXPECT_EQ(ext::KindByExt(numbered), k) << str::to_utf8(numbered);
      }
    }
  EXPECT_EQ(cells, 7 * 4 + 6 + 5 + 2 * 4 + 4 + 3 + 4 + 3 + 6);
}

TEST(V5Extensions, PrimaryResultsDependOnKindAndMethod) {
  struct { K kind; AnlsMethod method; const wchar_t* ext; } cases[] = {
      {K::Hydro, AnlsMethod::Transient, L".h*"},        {K::Hydro, AnlsMethod::Undefined, L".h*"},
      {K::Stab, AnlsMethod::MorgensternPrice, L".fac"}, {K::Hydro, AnlsMethod::MorgensternPrice, L""},
      {K::Thermo, AnlsMethod::SteadyState, L".t*"},     {K::None, AnlsMethod::Undefined, L""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(ext::v5::PriResults(c.kind, c.method), c.ext) << static_cast<int>(c.kind);
  const doc::file::Name project(L"dam.hyz");
  EXPECT_EQ(result::NamePrimary(project, K::Hydro, AnlsMethod::Transient, 3), L"dam.h03");
  EXPECT_EQ(result::NamePrimary(project, K::Hydro, AnlsMethod::Transient, 120), L"dam.h120");
  EXPECT_EQ(result::NamePrimary(project, K::Stab, AnlsMethod::Spencer, 3), L"dam.fac");
  EXPECT_EQ(result::NamePrimary(project, K::Hydro, AnlsMethod::Spencer, 3), L"");
}

TEST(ResultNames, CurrentGenerationFolders) {
  const doc::file::Name folder(result::FName(7) + L"/");
  struct { std::wstring got; const wchar_t* expected; } cases[] = {
      {result::FName(7), L"007"}, {result::FName(1234), L"1234"},
      {result::NameNode(folder, 3), L"007/003/node.csv"},
      {result::NameGauss(folder, 1), L"007/001/gauss.csv"},
      {result::NameSurfaceLayer(folder, 2), L"007/002/surface_layer.csv"},
      {result::NameSlice(folder, 3, 0), L"007/000/slice_3.csv"},
      {result::NameInterSlice(folder, 12, 0), L"007/000/interslice_12.csv"},
      {result::NameLambdaFOS(folder, 1, 0), L"007/000/lambdafos_1.csv"},
      {result::NameTime(folder), L"007/time.csv"},
      {result::NameHistoryPoint(folder, 4), L"007/history_4.csv"},
      {result::NameData(L"summary"), L"summary.csv"},
      {result::NameData(folder, L"profile", 86400.5), L"007/profile_86400.5.csv"},
      {result::NameNode(doc::file::Name(L"007"), 3), L"007/003/node.csv"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.got, c.expected);
}

TEST(ResultNames, EarlierGenerationStabilityFiles) {
  const doc::file::Name project(L"C:\\p\\slope.stz");
  struct { std::wstring got; const wchar_t* expected; } cases[] = {
      {result::NameFofS(project, 0), L"C:\\p\\slope.fac"},
      {result::NameFofS(project, 4), L"C:\\p\\slope_4.fac"},
      {result::NameForces(project, 3, 0), L"C:\\p\\slope03.frc"},
      {result::NameForces(project, 0, 0), L"C:\\p\\slope.optfrc"},
      {result::NameForces(project, 12, 2), L"C:\\p\\slope_212.frc"},
      {result::NameProbability(project, 7, 0), L"C:\\p\\slope07.pro"},
      {result::NameMark(project), L"C:\\p\\slope.mrk"},
      {result::NameNewmark(project), L"C:\\p\\slope.new"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.got, c.expected);
  for (const auto& c : cases) {
    const doc::file::Name n(c.expected);
    if (n.Ext() == L".mrk") continue;  // the marker is not in the map
    EXPECT_EQ(ext::KindByExt(n.Ext()), K::Stab) << str::to_utf8(c.expected);
  }
}

// Every (step, surface) pair has a name of its own, beyond 99 surfaces too,
// and surfaces 1 to 99 keep the earlier generation's "%02d" names.
TEST(ResultNames, NumberedStabilityFilesNeverCollide) {
  const doc::file::Name project(L"C:\\p\\slope.stz");
  std::set<std::wstring> seen;
  for (int step = 0; step <= 30; ++step)
    for (int surface = 0; surface <= 1200; ++surface) {
      const std::wstring forces = result::NameForces(project, surface, step);
      EXPECT_TRUE(seen.insert(forces).second) << "step " << step << " surface " << surface << ": "
                                              << str::to_utf8(forces);
      EXPECT_EQ(ext::KindByExt(doc::file::Name(forces).Ext()), K::Stab) << str::to_utf8(forces);
      if (surface >= 1 && surface <= 99) {
        wchar_t two[8];
        std::swprintf(two, 8, L"%02d", surface);
        const std::wstring stem = step > 0 ? L"slope_" + std::to_wstring(step) : L"slope";
        EXPECT_EQ(forces, L"C:\\p\\" + stem + two + L".frc");
      }
    }
  EXPECT_NE(result::NameForces(project, 101, 2), result::NameForces(project, 1, 21));
  EXPECT_EQ(result::NameProbability(project, 101, 2), L"C:\\p\\slope_2-101.pro");
}

TEST(FileName, SplitsFolderStemAndExtension) {
  struct { const wchar_t* path; const wchar_t *folder, *stem, *ext; } cases[] = {
      {L"C:/p/slope.hyz", L"C:/p/", L"slope", L".hyz"},
      {L"slope", L"", L"slope", L""},
      {L"a.b/c", L"a.b/", L"c", L""},
      {L"dir\\x.tar.gz", L"dir\\", L"x.tar", L".gz"},
      {L".base", L"", L".base", L""},
      {L"out/", L"out/", L"", L""},
  };
  for (const auto& c : cases) {
    const doc::file::Name n(c.path);
    EXPECT_EQ(n.Folder(), c.folder) << str::to_utf8(c.path);
    EXPECT_EQ(n.Stem(), c.stem) << str::to_utf8(c.path);
    EXPECT_EQ(n.Ext(), c.ext) << str::to_utf8(c.path);
    EXPECT_EQ(n.Path(), c.path);
  }
}

}  // namespace
}  // namespace v7::qvifile
