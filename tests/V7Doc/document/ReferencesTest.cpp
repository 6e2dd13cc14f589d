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

namespace v7 {
namespace {

using Rng = std::mt19937;

// Live IDs of the containers records may refer to.
using Pools = std::map<GID, std::vector<GID>>;

std::string Narrow(const std::wstring& w) { return std::string(w.begin(), w.end()); }

GID Pick(Rng& rng, const std::vector<GID>& from) {
  return from.empty() ? 0 : from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(rng)];
}

// Sets every reference `type` declares in `rec` to a random live record;
// `settingsOnly` leaves out the collections of a top-level object.
void FillRefs(const oc::RecordType& type, void* rec, Rng& rng, const Pools& pools,
              bool settingsOnly = false) {
  static const std::vector<GID> kViaTargets = {container::Points, container::Regions,
                                               container::Analyses};
  auto pool = [&](GID c) -> const std::vector<GID>& {
    static const std::vector<GID> none;
    auto it = pools.find(c);
    return it == pools.end() ? none : it->second;
  };
  for (const auto& mp : type.Members()) {
    const oc::Member& m = *mp;
    const auto& tr = m.traits;
    if (tr.IsLegacy() || (tr.flags & meta::MetaDataTraits::Key) != 0) continue;
    if (settingsOnly && (tr.collection != 0 || m.type == oc::ValueType::Table)) continue;
    void* field = m.access->Field(rec);
    if (!field) continue;  // accessor members (BC slots) are set by hand
    if (m.type == oc::ValueType::UInt32 && tr.ref != 0) {
      *static_cast<GID*>(field) = Pick(rng, pool(tr.ref));
    } else if (m.type == oc::ValueType::UInt32 && !tr.ref_via.empty()) {
      const GID c = kViaTargets[std::uniform_int_distribution<std::size_t>(0, 2)(rng)];
      *static_cast<GID*>(type.FindMember(tr.ref_via)->access->Field(rec)) = c;
      *static_cast<GID*>(field) = Pick(rng, pool(c));
    } else if (m.type == oc::ValueType::Struct) {
      FillRefs(m.record(), field, rng, pools);
    } else if (m.type == oc::ValueType::Table && !settingsOnly && m.table->Size(field) == 0 &&
               oc::HasRefs(oc::RefPlanOf(m.record()))) {
      // A table inside a record (an item's surcharges, slip surfaces): two.
      const oc::RecordType& rt = m.record();
      for (std::uint32_t id = 1; id <= 2; ++id) {
        void* r = rt.Ops().create();
        FillRefs(rt, r, rng, pools);
        m.table->Place(field, id, r);
        rt.Ops().destroy(r);
      }
    } else if (m.type == oc::ValueType::Array && m.seq->MaxSize() == static_cast<std::size_t>(-1)) {
      const bool numbers = m.element_type == oc::ValueType::UInt32 && tr.ref != 0;
      const bool records = m.element_type == oc::ValueType::Struct &&
                           oc::HasRefs(oc::RefPlanOf(m.record()));
      if (!numbers && !records) continue;
      const std::size_t n = std::uniform_int_distribution<std::size_t>(1, 3)(rng);
      m.seq->Resize(field, n);
      for (std::size_t i = 0; i < n; ++i) {
        if (numbers) *static_cast<GID*>(m.seq->At(field, i)) = Pick(rng, pool(tr.ref));
        else FillRefs(m.record(), m.seq->At(field, i), rng, pools);
      }
    }
  }
}

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
    doc.DataInit();
    auto& m = doc.ContainerManager();
      auto& geo = doc.Geometry();
    for (int i = 0; i < 6; ++i) geo.Points().Add(Geom::Point{double(i), double(i % 2)});
    for (int i = 0; i < 4; ++i) geo.Lines().Add(Geom::Line{GID(i + 1), GID(i + 2)});
    for (int i = 0; i < 3; ++i) {
      Geom::Region r;
      r.pointIDs_ = {GID(i + 1), GID(i + 2), GID(i + 3)};
      geo.Regions().Add(r);
    }
    for (GID list = container::FirstFunctionList; list <= container::LastFunctionList; ++list)
      if (Func2DTable* t = doc.FunctionList(list))
        for (int i = 0; i < 3; ++i) t->Add(Func2D(L"f" + std::to_wstring(i)));
    for (int i = 0; i < 5; ++i) doc.Analyses().Add(ANALYSIS{});
    for (int i = 0; i < 3; ++i) {
      doc.StructuralBarAttributes().Add(StructuralBarAttribute{});
      doc.StructuralBeamAttributes().Add(StructuralBeamAttribute{});
    }
    for (int i = 0; i < 4; ++i) doc.Materials().Add(MATL{});
    for (int i = 0; i < 4; ++i) {
      BC bc;
      bc.name = L"bc" + std::to_wstring(i);
      doc.BCs().Add(bc);
    }
    for (int i = 0; i < 3; ++i) {
      ResultContour rc;
      rc.nNumOfLevels_ = i + 2;
      doc.ResultContours().Add(rc);
      CLIMATE_INFO c;
      c.wsTitle = L"c" + std::to_wstring(i);
      doc.ClimateData().Add(c);
      doc.Thermosyphons().Add(THERMOSYPHON_INFO{L"t" + std::to_wstring(i)});
      doc.ConvectiveSurfaces().Add(PIPESURF_INFO{L"p" + std::to_wstring(i)});
    }
    for (IQVContainer* c : m) {
      const unsigned n = m.MaxID(c->ID());
      for (GID id = 1; id < n; ++id)
        if (c->HoldsRecord(id)) pools[c->ID()].push_back(id);
    }
      Rng rng(20240611);
    auto fill = [&](auto& table) {
      for (auto it = table.begin(); it != table.end(); ++it)
        FillRefs(oc::TypeOf<typename std::decay_t<decltype(table)>::value_type>(), &*it, rng, pools);
    };
    fill(doc.Materials());
    fill(doc.Analyses());
    for (int i = 0; i < 3; ++i) doc.ResultSets().Add(ResultSet{});
    fill(doc.ResultSets());
    for (int i = 0; i < 2; ++i) doc.ResultGraphs().Add(ResultGraph{});
    fill(doc.ResultGraphs());
    for (int i = 0; i < 3; ++i) doc.MeshConstraints().Add(MeshConstraint{container::Points});
    fill(doc.MeshConstraints());
    FillRefs(oc::TypeOf<QVDocument>(), &doc, rng, pools, true);
    for (GID a = 1; a <= 3; ++a) doc.Contexts().ContextFor(a);
    fill(doc.Contexts());
    for (GID a = 1; a <= 5; ++a) {
      auto kind = [&](auto& items) {
        using D = std::decay_t<decltype(items.Get(a))>;
        FillRefs(oc::TypeOf<D>(), &items.Get(a), rng, pools);
      };
      kind(doc.SoluteItems());
      kind(doc.HydroItems());
      kind(doc.DeformItems());
      kind(doc.StabItems());
      kind(doc.ThermoItems());
      kind(doc.EvapoItems());
    }
    for (GID text = 1; text <= 4; ++text) doc.ExclusiveAnlsIDBySkTextID().Insert(text, Pick(rng, pools[container::Analyses]));
    // Every slot kind that names a record; the thermal slot takes its three
    // in turn. (No rotation kind names a record.)
    const std::vector<std::pair<DOFType, std::wstring>> kSlots = {
        {DOFType::Hydraulic, L"Function(BType=8,HydBoundFnNum=%)"},
        {DOFType::Hydraulic, L"Climate(BType=1,ClimateDataSet=%)"},
        {DOFType::Air, L"Function(BType=1,AirBoundFnNum=%)"},
        {DOFType::Thermal, L"Climate(BType=1,ClimateDataSet=%)"},
        {DOFType::Thermal, L"ThermoSyphon(ThermoDataSet=%)"},
        {DOFType::Thermal, L"PipeSurface(ConvSurfDataSet=%)"},
        {DOFType::Contaminant, L"Function(BType=13,ContamBoundFnNum=%)"},
        {DOFType::Gas, L"Climate(BType=1,ClimateDataSet=%)"},
        {DOFType::Gas, L"Function(BType=27,GasBoundFnNum=%)"},
        {DOFType::XDisp, L"Function(BType=31,StressBoundFnNum=%)"},
        {DOFType::YDisp, L"Function(BType=32,StressBoundFnNum=%)"},
    };
    int turn = 0;
    for (auto it = doc.BCs().begin(); it != doc.BCs().end(); ++it)
      for (const auto& [dof, pattern] : kSlots) {
        if (turn++ % 2 != 0 && (dof == DOFType::Hydraulic || dof == DOFType::Gas)) continue;
        if (dof == DOFType::Thermal && turn % 3 != 0) continue;
        std::wstring text = pattern;
        text.replace(text.find(L'%'), 1, std::to_wstring(1 + rng() % 3));
        ASSERT_TRUE(it->SetSlot(dof, text).succeeded()) << Narrow(text);
      }
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

TEST_F(GeneratedDocument, DeletingEveryTargetOnceThenCompactingKeepsReferencesSound) {
  std::set<GID> targets;
  for (const Site& s : before) targets.insert(s.target);
  for (GID c : targets) {
    const GID victim = pools[c][pools[c].size() / 2];
    ASSERT_TRUE(Delete(c, {victim})) << "no way to delete from container " << c;
    ExpectSound("after a deletion");
  }
  doc.ContainerManager().FullCompact();
  ExpectSound("after the compaction");
  ExpectFollowed();
}

TEST_F(GeneratedDocument, RandomDeletionsAndCompactionsKeepReferencesSound) {
  Rng rng(77);
  std::vector<GID> targets;
  for (const auto& [c, ids] : pools)
    if (c != container::Document && c != 9) targets.push_back(c);
  for (int round = 0; round < 150; ++round) {
    const GID c = Pick(rng, targets);
    IQVContainer* t = doc.ContainerManager().GetContainer(c);
    std::vector<GID> live;
    for (GID id = 1; id < doc.ContainerManager().MaxID(c); ++id)
      if (t->HoldsRecord(id)) live.push_back(id);
    if (live.empty()) continue;
    const std::vector<GID> victims{Pick(rng, live)};
    if (!Delete(c, victims)) continue;
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
