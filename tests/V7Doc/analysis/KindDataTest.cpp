#include <gtest/gtest.h>

#include "V7Doc/analysis/AnalysisKindData.h"
#include "V7Doc/analysis/TIMEINCSTRUCT.h"
#include "V7Doc/document/QVDocument.h"

namespace {

using namespace v7;

struct KindDataInDocument : ::testing::Test {
  void SetUp() override {
    doc.DataInit();
    for (int i = 0; i < 3; ++i) doc.Analyses().Add(ANALYSIS{});
  }
  QVDocument doc;
};

// A full compaction squeezes the identified lists of the per-kind data; the
// flux labels follow their sections, and a label whose section is gone
// goes with it.
TEST_F(KindDataInDocument, CompactionSqueezesTheirOwnTablesAndLabelsFollow) {
  HydroData& hydro = doc.HydroItems().Get(1);
  for (const wchar_t* name : {L"toe", L"crest", L"drain"}) hydro.fluxSections_.Add(FLUX{0, name, {}});
  hydro.vFluxLabels_ = {{1, 0, 0}, {2, 1, 1}, {3, 2, 2}};
  hydro.fluxSections_.Delete({2});
  StabData& stab = doc.StabItems().Get(2);
  for (int i = 1; i <= 3; ++i) stab.slipSurfaces_.Add(SLIP{0, L"s" + std::to_wstring(i), {}});
  stab.slipSurfaces_.Delete({1});
  doc.ContainerManager().FullCompact();

  const HydroData& h = *doc.HydroItems().Find(1);
  ASSERT_EQ(h.fluxSections_.Size(), 2u);
  EXPECT_EQ(h.fluxSections_.At(2).name_, L"drain");
  EXPECT_EQ(h.fluxSections_.At(2).nID_, 2u);
  ASSERT_EQ(h.vFluxLabels_.size(), 2u);
  EXPECT_EQ(h.vFluxLabels_[0].nFluxID_, 1u);
  EXPECT_EQ(h.vFluxLabels_[1].nFluxID_, 2u) << "the drain's label follows it";
  EXPECT_EQ(h.vFluxLabels_[1].fX_, 2);
  const auto& slips = doc.StabItems().Find(2)->slipSurfaces_;
  ASSERT_EQ(slips.Size(), 2u);
  EXPECT_EQ(slips.At(1).name_, L"s2");
}

TEST(KindData, AssignAndIsEqualCompareByType) {
  StabData a, b;
  a.nNumTrials_ = 5;
  EXPECT_FALSE(a.IsEqual(b));
  b.Assign(a);
  EXPECT_TRUE(a.IsEqual(b));
  HydroData h;
  EXPECT_FALSE(h.IsEqual(a)) << "different kinds are never equal";
}

TEST(KindData, MotionRecordGivesTheTimeSteps) {
  ShakeData shake;
  auto& h = shake.earthquake_.horizontal_.vTimeHistory_;
  h = {{0, 0}, {0.02, 0.1}, {0.04, -0.2}, {0.06, 0.05}};
  shake.earthquake_.vertical_.vTimeHistory_ = {{0, 0}, {0.03, 0.01}};
  TIMEINCSTRUCT t;
  t.SetStartTime(1);
  t.SetSaveMult(2);
  ASSERT_TRUE(t.SetTimeSteps(shake.earthquake_.horizontal_).succeeded());
  ASSERT_EQ(t.TimeIncs().size(), 3u);
  EXPECT_DOUBLE_EQ(t.TimeIncs()[2].fElapsed, 1.06);
  EXPECT_DOUBLE_EQ(t.TimeIncs()[1].fIncSize, 0.02);
  EXPECT_EQ(t.TimeIncs()[0].nSave, 0);
  EXPECT_EQ(t.TimeIncs()[1].nSave, 1);
  ASSERT_TRUE(t.SetTimeSteps(shake.earthquake_).succeeded());
  EXPECT_EQ(t.TimeIncs().size(), 4u) << "0.02, 0.03, 0.04, 0.06";

  h[2].fTime = 0.01;  // goes back in time
  const auto s = t.SetTimeSteps(shake.earthquake_.horizontal_);
  EXPECT_TRUE(s.failed());
  EXPECT_NE(s.message().find(L"sample 3"), std::wstring::npos) << s.message_utf8();
}

}  // namespace
