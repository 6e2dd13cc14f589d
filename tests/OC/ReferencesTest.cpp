#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "OC/References.h"
#include "OC/Schema.h"

namespace reftest {

struct Link {
  std::uint32_t to_ = 0;      // collection named by `to_`
  std::uint32_t id_ = 0;
  std::uint32_t weight_ = 0;  // not a reference
  friend bool operator==(const Link&, const Link&) = default;
};

struct Holder {
  std::uint32_t fn_ = 0;            // collection 11
  std::vector<std::uint32_t> pts_;  // collection 1, each element
  std::vector<Link> links_;         // dropped when their record goes
  Link kept_;                       // cleared, never dropped
  bool deleted_ = false;
  friend bool operator==(const Holder&, const Holder&) = default;
};

}  // namespace reftest

template <>
const oc::RecordType& oc::TypeOf<reftest::Link>() {
  using T = reftest::Link;
  static const RecordType& t =
      Schema<T>(L"Link")
          .Add(&T::to_, L"to_", L"To")
          .Add(&T::id_, L"id_", L"ID", meta::MetaDataTraits{}.RefVia(L"to_").Flag(meta::MetaDataTraits::DropWhenGone))
          .Add(&T::weight_, L"weight_", L"Weight")
          .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<reftest::Holder>() {
  using T = reftest::Holder;
  static const RecordType& t =
      Schema<T>(L"Holder")
          .Add(&T::fn_, L"fn_", L"Group.FnNum", meta::MetaDataTraits{}.Ref(11))
          .Add(&T::pts_, L"pts_", L"Points[ID]", meta::MetaDataTraits{}.Ref(1))
          .Add(&T::links_, L"links_", L"Links[Link]")
          .Add(&T::kept_, L"kept_", L"Kept")
          .Add(&T::deleted_, L"deleted_", L"Deleted", meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::Deleted))
          .Done();
  return t;
}

namespace reftest {
namespace {

// Maps every reference through `map[collection]` (absent: kept) and notes
// where it met each.
struct Mapper final : oc::RefVisitor {
  std::map<std::uint32_t, std::map<std::uint32_t, std::uint32_t>> map;
  std::vector<std::wstring> paths;
  std::uint32_t Visit(const oc::RefSite& s, std::uint32_t v) override {
    paths.push_back(Path());
    auto c = map.find(s.collection);
    if (c == map.end()) return v;
    auto r = c->second.find(v);
    return r == c->second.end() ? v : r->second;
  }
};

Holder Sample() {
  Holder h;
  h.fn_ = 3;
  h.pts_ = {4, 5, 4};
  h.links_ = {{1, 5, 9}, {8, 2, 7}, {0, 6, 1}};  // the last names no collection
  h.kept_ = {8, 2, 3};
  return h;
}

TEST(References, PlanListsTargetsAndWalkMeetsEveryReference) {
  const oc::RefPlan& plan = oc::RefPlanOf(oc::TypeOf<Holder>());
  ASSERT_TRUE(oc::HasRefs(plan));
  bool any = false;
  EXPECT_EQ(oc::RefTargets(plan, any), (std::vector<std::uint32_t>{1, 11}));
  EXPECT_TRUE(any) << "links name their collection themselves";

  Holder h = Sample();
  Mapper m;
  m.TrackPath(true);
  EXPECT_FALSE(oc::ForEachRef(plan, &h, m));
  EXPECT_EQ(m.paths, (std::vector<std::wstring>{L"Group.FnNum", L"Points[0]", L"Points[1]", L"Points[2]",
                                                L"Links[0].ID", L"Links[1].ID", L"Kept.ID"}));
  EXPECT_EQ(h, Sample()) << "a visitor that keeps every number changes nothing";
}

TEST(References, ClearedReferencesClearOrDropByDeclaration) {
  const oc::RefPlan& plan = oc::RefPlanOf(oc::TypeOf<Holder>());
  Holder h = Sample();
  Mapper m;
  m.map[11][3] = 2;          // renumbered
  m.map[1][4] = 0;           // a point gone: both of its list elements leave
  m.map[1][5] = 1;           // ... and one renumbered, the link to it too
  m.map[8][2] = 0;           // the record both links of collection 8 name is gone
  oc::ForEachRef(plan, &h, m);
  EXPECT_EQ(h.fn_, 2u);
  EXPECT_EQ(h.pts_, (std::vector<std::uint32_t>{1}));
  ASSERT_EQ(h.links_.size(), 2u) << "the link to the gone record left its list";
  EXPECT_EQ(h.links_[0], (Link{1, 1, 9}));
  EXPECT_EQ(h.links_[1], (Link{0, 6, 1})) << "a link naming no collection is not a reference";
  EXPECT_EQ(h.kept_, (Link{8, 0, 3})) << "outside a list the reference is cleared, the record stays";

  Holder gone = Sample();
  gone.deleted_ = true;
  Mapper all;
  all.map[11][3] = 0;
  oc::ForEachRef(plan, &gone, all);
  EXPECT_TRUE(all.paths.empty()) << "a deleted record's references count for nothing";
  EXPECT_EQ(gone.fn_, 3u);
}

}  // namespace
}  // namespace reftest
