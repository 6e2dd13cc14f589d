#include "V7Doc/analysis/ANALYSISTable.h"

#include <gtest/gtest.h>

#include "V7Doc/document/QVDocument.h"

namespace {

using namespace v7;

TEST(AnalysisRecord, DataInitGivesEachKindItsDefaults) {
  using K = AnalysisKind;
  using M = AnlsMethod;
  using T = TimeStepMode;
  using P = InitialCondOption;
  struct { K kind; M method; GID parent; M expectMethod; T expectMode; P expectPWP; } cases[] = {
      {K::Stab, M::Undefined, 0, M::MorgensternPrice, T::None, P::PiezoLine},
      {K::Stab, M::Spencer, 2, M::Spencer, T::None, P::Parent},
      {K::Stab, M::Transient, 0, M::MorgensternPrice, T::None, P::PiezoLine},
      {K::Hydro, M::Undefined, 0, M::SteadyState, T::None, P::None},
      {K::Hydro, M::Transient, 0, M::Transient, T::Duration, P::InitialWaterTable},
      {K::Hydro, M::Transient, 1, M::Transient, T::Duration, P::Parent},
      {K::Shake, M::Undefined, 1, M::Dynamic, T::Dynamic, P::Parent},
      {K::Deform, M::Undefined, 0, M::Insitu, T::None, P::InitialWaterTable},
      {K::Solute, M::Undefined, 0, M::AdvectionDispersion, T::Duration, P::None},
      {K::Evapo, M::Undefined, 0, M::Transient, T::Duration, P::InitialWaterTable},
      {K::Thermo, M::Undefined, 0, M::SteadyState, T::None, P::None},
  };
  for (const auto& c : cases) {
    ANALYSIS a;
    a.name = L"old";
    a.nNumSlices_ = 3;
    a.DataInit(c.kind, c.method, c.parent);
    const auto what = str::to_utf8(meta::ToName(c.kind)) + " " + str::to_utf8(meta::ToName(c.method));
    EXPECT_EQ(a.Method(), c.expectMethod) << what;
    EXPECT_EQ(a.TimeInc().Mode(), c.expectMode) << what;
    EXPECT_EQ(a.InitPWPCondOption(), c.expectPWP) << what;
    EXPECT_TRUE(a.name.empty()) << what << ": everything is reset";
    EXPECT_EQ(a.NumSlices(), 30) << what;
    // Whatever the kind, the defaults generate time steps without error.
    ANALYSIS copy = a;
    EXPECT_TRUE(copy.TimeInc().GenerateTimeSteps().succeeded()) << what;
    EXPECT_EQ(copy.TimeInc().TimeIncs().empty(), c.expectMode == TimeStepMode::None) << what;
  }
}

TEST(AnalysisRecord, DeletionMarkAndRevival) {
  ANALYSIS a;
  a.DataInit(AnalysisKind::Stab);
  EXPECT_FALSE(IsMissing(a));
  SetMissing(a);
  EXPECT_TRUE(IsMissing(a));
  a.DataInit(AnalysisKind::Hydro);
  EXPECT_FALSE(IsMissing(a)) << "re-initialising with a real kind makes it live";
}

// Parents and children; a parent link that would make a cycle, name the
// analysis itself or one that does not exist is refused. (The link follows
// its parent through deletion and compaction like every declared reference.)
TEST(AnalysisTable, ParentLinks) {
  QVDocument doc;
  doc.DataInit();
  auto& t = doc.Analyses();
  for (int i = 0; i < 4; ++i) t.Add(ANALYSIS{});
  ASSERT_TRUE(t.SetParent(2, 1).succeeded());
  ASSERT_TRUE(t.SetParent(3, 2).succeeded());
  ASSERT_TRUE(t.SetParent(4, 2).succeeded());
  EXPECT_EQ(t.Children(2), (std::vector<GID>{3, 4}));
  EXPECT_EQ(t.Ancestors(4), (std::vector<GID>{2, 1}));
  EXPECT_TRUE(t.SetParent(1, 4).failed());
  EXPECT_TRUE(t.SetParent(2, 2).failed());
  EXPECT_TRUE(t.SetParent(9, 1).failed());
  EXPECT_TRUE(t.SetParent(1, 9).failed());
  EXPECT_EQ(t.At(1).parent, 0u);
}

}  // namespace
