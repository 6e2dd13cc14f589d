#pragma once
// A generated document for tests: records in every collection, and every
// declared reference set to a random live record.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "OC/References.h"
#include "OC/Schema.h"
#include "V7Doc/document/QVDocument.h"

namespace v7 {

using Rng = std::mt19937;

// Live IDs of the containers records may refer to.
using Pools = std::map<GID, std::vector<GID>>;

inline std::string Narrow(const std::wstring& w) { return std::string(w.begin(), w.end()); }

inline GID Pick(Rng& rng, const std::vector<GID>& from) {
  return from.empty() ? 0 : from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(rng)];
}

// Sets every reference `type` declares in `rec` to a random live record;
// `settingsOnly` leaves out the collections of a top-level object.
inline void FillRefs(const oc::RecordType& type, void* rec, Rng& rng, const Pools& pools,
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

// Fills `doc` (after DataInit) and returns the live IDs of every container.
inline Pools GenerateDocument(QVDocument& doc) {
doc.DataInit();
Pools pools;
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
      EXPECT_TRUE(it->SetSlot(dof, text).succeeded()) << Narrow(text);
    }
  return pools;
}

}  // namespace v7
