// The umbrella header stands first, so that it must compile on its own.
#include "V7Doc/QVV7.h"
#include "V7Doc/document/QVDocument.h"

#include <gtest/gtest.h>

namespace v7 {
namespace {

GID AddAnalysis(QVDocument& doc, AnalysisKind kind = AnalysisKind::Hydro) {
  ANALYSIS a;
  a.DataInit(kind);
  return doc.Analyses().Add(a).ID();
}

TEST(Document, RegistersEveryCollectionInOrder) {
  QVDocument doc;
  const auto& m = doc.ContainerManager();
  std::vector<GID> ids;
  for (IQVContainer* c : m) ids.push_back(c->ID());
  std::vector<GID> expected;
  for (GID id = 1; id <= 70; ++id)
    if (id != 9 && id != 21) expected.push_back(id);
  expected.push_back(73);
  EXPECT_EQ(ids, expected);

  EXPECT_EQ(m.GetContainer(std::wstring(L"Analyses")), m.GetContainer(GID{8}));
  EXPECT_EQ(doc.FunctionList(21), nullptr);
  EXPECT_EQ(doc.FunctionList(14), m.GetContainer(GID{14}));
}

TEST(Sessions, FollowAnalysesThroughDeleteAndCompaction) {
  QVDocument doc;
  doc.DataInit();
  EXPECT_EQ(doc.AnalysisIDBySessionID(0), 0u);
  EXPECT_EQ(doc.AnalysisIDBySessionID(1), 0u);
  EXPECT_EQ(AddAnalysis(doc), 1u);
  EXPECT_EQ(AddAnalysis(doc), 2u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(1), 1u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(2), 2u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(7), 0u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(0), 0u);

  doc.Analyses().Delete({1});
  EXPECT_EQ(doc.AnalysisIDBySessionID(1), 0u);
  EXPECT_EQ(doc.AnalysisIDBySessionID(2), 2u);

  doc.ContainerManager().FullCompact();
  EXPECT_EQ(doc.AnalysisIDBySessionID(2), 1u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(1), 2u);

  // Session IDs are never reused: the next analysis gets session 3.
  const GID a = AddAnalysis(doc);
  EXPECT_EQ(a, 2u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(a), 3u);
}

TEST(Sessions, CurrentResultContourFollowsItsRecord) {
  QVDocument doc;
  doc.DataInit();
  auto& contours = doc.ResultContours();
  for (int i = 0; i < 3; ++i) contours.Add({});
  doc.SetCurrentResultContour(3);
  contours.Delete({1});
  doc.ContainerManager().FullCompact();
  EXPECT_EQ(doc.CurrentResultContour(), 2u);
  contours.Delete({2});
  EXPECT_EQ(doc.CurrentResultContour(), 0u);
}

TEST(PerKindData, FollowsAnalysesAndAnswersUsage) {
  QVDocument doc;
  doc.DataInit();
  AddAnalysis(doc);
  AddAnalysis(doc);
  AddAnalysis(doc, AnalysisKind::Stab);
  doc.HydroItems().Get(1);
  doc.HydroItems().Get(2);
  doc.StabItems().Get(3);

  UsageList usage;
  doc.ContainerManager().GetUsageOf(container::Analyses, usage);
  ASSERT_EQ(usage.size(), 4u);
  EXPECT_EQ(usage[2], (std::vector<GGID>{{container::HydroItems, 2}}));
  EXPECT_EQ(usage[3], (std::vector<GGID>{{container::StabItems, 3}}));

  doc.Analyses().Delete({2});
  EXPECT_EQ(doc.HydroItems().Find(2), nullptr) << "a deleted analysis loses its data";
  doc.ContainerManager().FullCompact();
  EXPECT_NE(doc.StabItems().Find(2), nullptr) << "data re-keyed to the new analysis ID";
  EXPECT_EQ(doc.StabItems().Find(3), nullptr);
}

TEST(Lifecycle, DataInitOnAnInitialisedDocumentStartsOver) {
  QVDocument doc;
  EXPECT_FALSE(doc.IsInitialized());
  EXPECT_TRUE(doc.DataInit());
  AddAnalysis(doc);
  doc.FunctionList(11)->Add(Func2D(L"k"));
  doc.HydroItems().Get(1);
  EXPECT_TRUE(doc.DataInit());
  EXPECT_TRUE(doc.IsInitialized());
  EXPECT_EQ(doc.AnalysisIDBySessionID(1), 0u);
  EXPECT_EQ(AddAnalysis(doc), 1u);
  EXPECT_EQ(doc.SessionIDByAnalysisID(1), 1u) << "a cleared document hands out sessions anew";

  EXPECT_TRUE(doc.DataFree());
  EXPECT_FALSE(doc.IsInitialized());
  EXPECT_TRUE(doc.Analyses().IsEmpty());
}

TEST(Lifecycle, ValidityVectorMarksLiveAnalyses) {
  QVDocument doc;
  doc.DataInit();
  for (int i = 0; i < 3; ++i) AddAnalysis(doc);
  doc.Analyses().Delete({2});
  doc.ContainerManager().NotifyAllUpdateCalculatedValues();
  EXPECT_EQ(doc.ValidAnalyses(), (std::vector<GID>{0, 1, 0, 3}));
}

}  // namespace
}  // namespace v7
