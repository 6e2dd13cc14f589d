#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>

#include "OC/References.h"
#include "OC/Schema.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/V7Doc/document/GeneratedDocument.h"

namespace v7 {
namespace {

struct Site {
  GID holderContainer, holder;
  const oc::Member* member;
  GID target, value;
};

std::vector<Site> Sites(QVDocument& doc) {
  struct Collect final : oc::RefVisitor {
    GID container = 0, holder = 0;
    std::vector<Site> out;
    void OnElement(std::uint32_t h) override { holder = h; }
    std::uint32_t Visit(const oc::RefSite& s, std::uint32_t v) override {
      out.push_back({container, holder, s.member, s.collection, v});
      return v;
    }
  } collect;
  for (const auto& m : oc::TypeOf<QVDocument>().Members())
    if (m->traits.collection != 0) {
      collect.container = m->traits.collection;
      oc::ForEachRefIn(*m, m->access->Field(&doc), collect);
    }
  collect.container = container::Document;
  collect.holder = 0;
  oc::ForEachRef(oc::OwnRefPlanOf(oc::TypeOf<QVDocument>()), &doc, collect);
  return collect.out;
}

// Follows every container's deletions and renumberings from the start:
// Now(c, id) is the current GID of what was record `id` of c, 0 when gone.
class Tracker : public IQVContainer, public IQVChangeListener {
 public:
  void Watch(QVContainerManager& m) {
    for (IQVContainer* c : m)
      if (c != this) m.Subscribe(this, c->ID());
  }
  GID Now(GID c, GID id) const {
    GID at = id;
    auto it = history_.find(c);
    if (it == history_.end()) return at;
    for (const auto& step : it->second) {
      if (at == 0) break;
      if (step.renumber) at = at < step.ids.size() ? step.ids[at] : 0;
      else if (std::binary_search(step.ids.begin(), step.ids.end(), at)) at = 0;
    }
    return at;
  }
  void Clear() override {}
  void OnIDUpdate(GID c, const std::vector<GID>& renumber) override { history_[c].push_back({true, renumber}); }
  void OnDelete(GID c, const std::vector<GID>& ids) override { history_[c].push_back({false, ids}); }
  void OnAdd(GID, const std::vector<GID>&) override {}

 private:
  struct Step {
    bool renumber;
    std::vector<GID> ids;
  };
  std::map<GID, std::vector<Step>> history_;
};

struct GeneratedDocument : ::testing::Test {
  void SetUp() override {
    ASSERT_TRUE(files::RegisterDocumentSchema().succeeded());
    pools = GenerateDocument(doc);
    auto& m = doc.ContainerManager();
    m.Register(&tracker, L"", 9);  // GID 9 is free in a document
    tracker.Watch(m);
    before = Sites(doc);
  }

  // Every reference names a live record.
  void ExpectSound(const char* when) {
    for (const Site& s : Sites(doc)) {
      IQVContainer* c = doc.ContainerManager().GetContainer(s.target);
      ASSERT_TRUE(c && c->HoldsRecord(s.value))
          << when << ": " << Narrow(s.member->name) << " of container "
          << s.holderContainer << " record " << s.holder << " names " << s.value << " of " << s.target;
    }
  }

  // Where a holder of the start is now.
  GID HolderNow(GID holderContainer, GID holder) const {
    if (holderContainer >= container::SoluteItems && holderContainer <= container::EvapoItems)
      return tracker.Now(container::Analyses, holder);  // the items are known by their analysis
    if (holderContainer == container::AnlsIDBySkTextID || holderContainer == container::Document)
      return holder;
    return tracker.Now(holderContainer, holder);
  }

  // Each reference of the start follows its record (renumbered) or is gone.
  void ExpectFollowed() {
    using Key = std::tuple<GID, GID, const oc::Member*>;
    std::map<Key, std::vector<GID>> then, now;
    std::set<std::pair<GID, GID>> touched;  // holders that lost a reference
    for (const Site& s : before) {
      const GID h = HolderNow(s.holderContainer, s.holder);
      if (h == 0 && s.holderContainer != container::Document) continue;
      const GID v = tracker.Now(s.target, s.value);
      then[{s.holderContainer, h, s.member}].push_back(v);
      if (v == 0) touched.insert({s.holderContainer, h});
    }
    for (const Site& s : Sites(doc)) now[{s.holderContainer, s.holder, s.member}].push_back(s.value);
    for (const auto& [key, values] : now) {
      auto it = then.find(key);
      ASSERT_NE(it, then.end()) << "a reference appeared from nowhere in container " << std::get<0>(key);
      const std::vector<GID>& was = it->second;
      if (!touched.count({std::get<0>(key), std::get<1>(key)})) {
        EXPECT_EQ(values, was) << Narrow(std::get<2>(key)->name);
        continue;
      }
      std::size_t j = 0;
      for (GID v : values) {
        while (j < was.size() && was[j] != v) ++j;
        ASSERT_LT(j, was.size()) << "reference " << v << " in container " << std::get<0>(key)
                                 << " record " << std::get<1>(key) << " is not one of the start's";
        ++j;
      }
    }
  }

  // Deletes `ids` of container `c`; false for a container with no way to.
  bool Delete(GID c, const std::vector<GID>& ids) {
    if (auto* fns = doc.FunctionList(c)) fns->Delete(ids);
    else if (c == container::Analyses) doc.Analyses().Delete(ids);
    else if (c == container::Materials) doc.Materials().Delete(ids);
    else if (c == container::BCs) doc.BCs().Delete(ids);
    else if (c == container::ResultContours) doc.ResultContours().Delete(ids);
    else if (c == container::ClimateData) doc.ClimateData().Delete(ids);
    else if (c == container::Thermosyphons) doc.Thermosyphons().Delete(ids);
    else if (c == container::ConvectiveSurfaces) doc.ConvectiveSurfaces().Delete(ids);
    else if (c == container::Points) doc.Geometry().Points().Delete(ids);
    else if (c == container::Regions) doc.Geometry().Regions().Delete(ids);
    else if (c == container::Lines) doc.Geometry().Lines().Delete(ids);
    else if (c == container::StructuralBarAttributes) doc.StructuralBarAttributes().Delete(ids);
    else if (c == container::StructuralBeamAttributes) doc.StructuralBeamAttributes().Delete(ids);
    else return false;
    return true;
  }

  QVDocument doc;
  Pools pools;
  Tracker tracker;
  std::vector<Site> before;
};

TEST_F(GeneratedDocument, EveryDeclaredReferenceAnswersUsageQueries) {
  std::set<GID> targets;
  for (const Site& s : before) targets.insert(s.target);
  for (GID c : {container::HydKFns, container::StressBFns, container::ClimateData, container::Thermosyphons,
                container::ConvectiveSurfaces, container::Analyses, container::ResultContours,
                container::Materials, container::BCs, container::Points, container::Regions,
                container::Lines, container::StructuralBarAttributes, container::StructuralBeamAttributes})
    EXPECT_TRUE(targets.count(c)) << "no reference to container " << c;
  ASSERT_GT(before.size(), 100u);
  // The document's own settings answer too (the view's analysis, labels).
  EXPECT_TRUE(std::any_of(before.begin(), before.end(),
                          [](const Site& s) { return s.holderContainer == container::Document; }));

  for (GID c : targets) {
    UsageList usage;
    doc.ContainerManager().GetUsageOf(c, usage);
    for (const Site& s : before) {
      if (s.target != c) continue;
      ASSERT_LT(s.value, usage.size());
      const auto& users = usage[s.value];
      EXPECT_EQ(std::count(users.begin(), users.end(), GGID(s.holderContainer, s.holder)), 1)
          << "record " << s.value << " of " << c << " is used by " << s.holderContainer << "/"
          << s.holder << " (" << Narrow(s.member->name) << ")";
    }
  }
}

// One record of every target container deleted (each container has a way
// to delete), then random deletions with compactions between them.
TEST_F(GeneratedDocument, DeletionsAndCompactionsKeepReferencesSound) {
  std::set<GID> targets;
  for (const Site& s : before) targets.insert(s.target);
  for (GID c : targets) {
    ASSERT_TRUE(Delete(c, {pools[c][pools[c].size() / 2]})) << "no way to delete from container " << c;
    ExpectSound("after a deletion");
  }
  doc.ContainerManager().FullCompact();
  ExpectSound("after the compaction");
  ExpectFollowed();
  Rng rng(77);
  const std::vector<GID> pool(targets.begin(), targets.end());
  for (int round = 0; round < 150; ++round) {
    const GID c = Pick(rng, pool);
    IQVContainer* t = doc.ContainerManager().GetContainer(c);
    std::vector<GID> live;
    for (GID id = 1; id < doc.ContainerManager().MaxID(c); ++id)
      if (t->HoldsRecord(id)) live.push_back(id);
    if (live.empty()) continue;
    ASSERT_TRUE(Delete(c, {Pick(rng, live)}));
    ExpectSound("during the sequence");
    if (rng() % 4 == 0) {
      doc.ContainerManager().FullCompact();
      ExpectFollowed();
    }
  }
  doc.ContainerManager().FullCompact();
  ExpectSound("at the end");
  ExpectFollowed();
}

TEST(DanglingReferences, ALoadReportsEachOnceAndKeepsItsNumber) {
  ASSERT_TRUE(files::RegisterDocumentSchema().succeeded());
  QVDocument doc;
  doc.DataInit();
  doc.Analyses().Add(ANALYSIS{});
  doc.Analyses().Add(ANALYSIS{});
  doc.Analyses().At(2).parent = 7;  // no analysis 7
  MATL m;
  m.Hydraulic().nHKFnNum() = 4;  // the conductivity list is empty
  doc.Materials().Add(m);
  ResultGraph g;
  g.SetSources({GGID(container::Analyses, 1), GGID(container::ResultContours, 2)});
  doc.ResultGraphs().Add(g);
  std::string xml;
  ASSERT_TRUE(files::DocumentToXml(doc, xml).succeeded());

  QVDocument loaded;
  files::LoadReport report;
  ASSERT_TRUE(files::DocumentFromXml(xml, loaded, L"mem", &report).succeeded());
  std::vector<std::wstring> found;
  for (const auto& w : report.warnings)
    if (w.id() == 31090) found.push_back(w.message());
  ASSERT_EQ(found.size(), 3u);
  auto mentions = [&](const std::wstring& path, const std::wstring& number) {
    for (const auto& f : found)
      if (f.find(path) != std::wstring::npos && f.find(L" " + number + L" ") != std::wstring::npos) return true;
    return false;
  };
  EXPECT_TRUE(mentions(L"Analyses[2].ParentAnalysisId", L"7"));
  EXPECT_TRUE(mentions(L"Materials[1].Hydraulic.KFnNum", L"4"));
  EXPECT_TRUE(mentions(L"Contour.ResultGraphs[1]", L"2"));

  EXPECT_EQ(loaded.Analyses().At(2).parent, 7u) << "kept as read";
  EXPECT_EQ(loaded.Materials().At(1).Hydraulic().nHKFnNum(), 4u);
  std::string again;
  ASSERT_TRUE(files::DocumentToXml(loaded, again).succeeded());
  EXPECT_EQ(again, xml) << "nothing lost: it saves back as it was";
}

}  // namespace
}  // namespace v7
