#include "V7Doc/core/QVContainerManager.h"

#include <gtest/gtest.h>

#include "V7Doc/core/QVContainerAssoc.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {
namespace {

struct Rec {
  GID ref = 0;  // a reference to a record of the container the test names
  bool dead = false;
  friend bool operator==(const Rec&, const Rec&) = default;
};
bool IsMissing(const Rec& r) { return r.dead; }
void SetMissing(Rec& r) { r = Rec{0, true}; }

// A table whose records refer to records of container `target`.
class Referrer : public QVContainerTable<Rec>, public IQVChangeListener {
 public:
  explicit Referrer(GID target) : target_(target) {}
  void OnRegistration() override { Manager().Subscribe(this, target_); }
  void OnGetUsageOf(GID c, UsageList& usage) override {
    QVContainerTable<Rec>::OnGetUsageOf(c, usage);
    if (c != target_) return;
    for (auto it = begin(); it != end(); ++it)
      if (it->ref) usage[it->ref].push_back(GGID(ID(), it.ID()));
  }
  void OnIDUpdate(GID c, const std::vector<GID>& map) override {
    log.push_back("update " + std::to_string(c));
    for (auto& r : *this) r.ref = r.ref < map.size() ? map[r.ref] : 0;
  }
  void OnDelete(GID c, const std::vector<GID>& ids) override {
    log.push_back("delete " + std::to_string(c) + ":" + std::to_string(ids.size()));
  }
  void OnAdd(GID c, const std::vector<GID>& ids) override {
    log.push_back("add " + std::to_string(c) + ":" + std::to_string(ids.front()));
  }
  std::vector<std::string> log;

 private:
  GID target_;
};

TEST(Slots, BandsAndTheDeliberateSharedSlot) {
  struct Case {
    GID id;
    std::size_t slot;
  } cases[] = {{1, 1},     {73, 73},   {74, 0},  {0, 0},      {1000, 0}, {1010, 0},
               {1025, 0},  {5001, 75}, {5027, 101}, {5028, 0}, {4999, 0}};
  for (const auto& c : cases) EXPECT_EQ(QVContainerManager::SlotOf(c.id), c.slot) << c.id;
}

TEST(Manager, RegistrationByIDAndName) {
  QVContainerManager m;
  QVContainerTable<Rec> a, b;
  m.Register(&a, L"A", 4);
  m.Register(&b, L"", 60);
  EXPECT_EQ(m.GetContainer(GID{4}), &a);
  EXPECT_EQ(m.GetContainer(std::wstring(L"A")), &a);
  EXPECT_EQ(m.GetContainer(GID{60}), &b);
  EXPECT_EQ(m.GetContainer(std::wstring(L"")), nullptr) << "an unnamed container is never found by name";
  EXPECT_EQ(m.GetContainer(GID{5}), nullptr);
  m.UnRegister(&a);
  EXPECT_EQ(m.GetContainer(GID{4}), nullptr);
  EXPECT_FALSE(a.IsRegistered());
  {
    QVContainerTable<Rec> t;
    m.Register(&t, L"T", 4);
  }
  EXPECT_EQ(m.Count(), 1u) << "a container destroyed first unregisters itself";
  EXPECT_EQ(m.GetContainer(std::wstring(L"T")), nullptr);
}

TEST(Usage, QueryCollectsEverySubscriberAndNoticesReachThem) {
  QVContainerManager m;
  QVContainerTable<Rec> targets;
  Referrer users(4), others(5);
  m.Register(&targets, L"Targets", 4);
  m.Register(&users, L"Users", 8);
  m.Register(&others, L"Others", 9);
  for (int i = 0; i < 4; ++i) targets.Add(Rec{});
  users.Add(Rec{2});
  users.Add(Rec{2});
  users.Add(Rec{3});
  users.Add(Rec{4});
  others.Add(Rec{1});  // refers to container 5, not 4

  UsageList usage;
  m.GetUsageOf(4, usage);
  ASSERT_EQ(usage.size(), 5u) << "sized by the target's answer to MaxID";
  EXPECT_TRUE(usage[1].empty());
  EXPECT_EQ(usage[2], (std::vector<GGID>{{8, 1}, {8, 2}}));
  EXPECT_EQ(usage[3], (std::vector<GGID>{{8, 3}}));
  EXPECT_EQ(m.MaxID(4), 5u);
  EXPECT_EQ(m.MaxID(99), 0u);
  UsageList untouched{{GGID{1, 1}}};
  m.GetUsageOf(99, untouched);
  EXPECT_EQ(untouched.size(), 1u) << "an unregistered GID leaves the list as it was";

  users.log.clear();
  targets.Delete({2, 9});
  m.FullCompact();
  EXPECT_EQ(users.log, (std::vector<std::string>{"delete 4:1", "update 4"}));
  EXPECT_EQ(users.At(4).ref, 3u) << "the reference followed its record through compaction";
  EXPECT_EQ(users.At(1).ref, 0u) << "a reference to the deleted record is cleared";
}

TEST(Usage, SharedSlotZeroReachesSubscribersOfEveryUnbandedID) {
  QVContainerManager m;
  QVContainerTable<Rec> band1010, band1020;
  Referrer listener(1010);
  m.Register(&band1010, L"A", 1010);
  m.Register(&band1020, L"B", 1020);
  m.Register(&listener, L"L", 8);
  band1010.Add(Rec{});
  band1020.Add(Rec{});
  EXPECT_EQ(m.Subscribers(1010), m.Subscribers(0));
  EXPECT_EQ(m.Subscribers(1020).size(), 1u) << "subscribing to 1010 also hears about 1020";
  EXPECT_EQ(listener.log, (std::vector<std::string>{"add 1010:1", "add 1020:1"}));
}

TEST(Manager, WholeDocumentOperationsAndCleanupActions) {
  struct Action : QVContainerManager::INotifyCleanupAction {
    void OnCleanup(QVContainerManager&, Reason r) override { reasons.push_back(r); }
    std::vector<Reason> reasons;
  };
  auto action = gtl::make_handle<Action>();
  {
    QVContainerManager m;
    QVContainerTable<Rec> t;
    m.Register(&t, L"T", 4);
    t.Add(Rec{});
    m.RegisterCleanupAction(QVContainerManager::CleanupAction(action.get()));
    EXPECT_EQ(m.UndoFreeMemory(), 1);
    m.Clear();
    EXPECT_TRUE(t.IsEmpty());
    EXPECT_TRUE(m.UnregisterCleanupAction(QVContainerManager::CleanupAction(action.get())));
    EXPECT_FALSE(m.UnregisterCleanupAction(QVContainerManager::CleanupAction(action.get())));
    m.RegisterCleanupAction(QVContainerManager::CleanupAction(action.get()));
  }
  using R = QVContainerManager::INotifyCleanupAction::Reason;
  EXPECT_EQ(action->reasons, (std::vector<R>{R::UndoFreeMemory, R::Clear, R::Destroy}));
}

TEST(Assoc, KeysStaySortedAndUniqueThroughInsertAndErase) {
  QVContainerAssoc<GID> a;
  for (GID key : {5u, 1u, 3u}) a.Insert(key, key * 10);
  a.Insert(3, 99);
  EXPECT_EQ(a.Size(), 3u) << "an existing key has its value replaced";
  std::vector<std::pair<GID, GID>> expected{{1, 10}, {3, 99}, {5, 50}};
  EXPECT_TRUE(std::equal(a.begin(), a.end(), expected.begin(), expected.end()));
  EXPECT_EQ(*a.Get(5), 50u);
  EXPECT_EQ(a.Get(4), nullptr);
  EXPECT_EQ(a.Find(a.Get(3))->first, 3u);
  const struct {
    std::vector<GID> erase;
    std::vector<GID> remaining;
  } cases[] = {
      {{}, {1, 2, 3, 4}}, {{2, 4}, {1, 3}}, {{7, 8}, {1, 2, 3, 4}}, {{4, 3, 2, 1}, {}}, {{2, 2, 9}, {1, 3, 4}},
  };
  for (const auto& c : cases) {
    QVContainerAssoc<int> b;
    for (GID k : {4u, 2u, 1u, 3u}) b.Insert(k, static_cast<int>(k));
    b.Erase(c.erase);
    std::vector<GID> keys;
    for (const auto& e : b) {
      keys.push_back(e.first);
      EXPECT_EQ(e.second, static_cast<int>(e.first)) << "values stay with their keys";
    }
    EXPECT_EQ(keys, c.remaining);
  }
}

TEST(Assoc, EqualsNeedsSameTypeKeyContainerAndEntries) {
  QVContainerAssoc<int> a, b;
  QVContainerAssoc<GID> other;
  a.SetKeyContainerID(3);
  b.SetKeyContainerID(3);
  a.Insert(1, 2);
  b.Insert(1, 2);
  EXPECT_TRUE(a.Equals(&b));
  b.SetKeyContainerID(4);
  EXPECT_FALSE(a.Equals(&b));
  EXPECT_FALSE(a.Equals(&other));
  EXPECT_FALSE(a.Equals(nullptr));
}

TEST(Assoc, UsageOfEachAssociationKind) {
  QVContainerManager m;
  QVContainerTable<Rec> regions, materials;
  QVContainerAssoc<GID> keyed;  // region -> material, keys are regions
  QVContainerAssocGGID anyTarget;
  QVContainerAssocGID boundTo4(11, 4);
  m.Register(&regions, L"Regions", 3);
  m.Register(&materials, L"Materials", 4);
  m.Register(&keyed, L"Keyed", 10);
  m.Register(&anyTarget, L"Any", 11);
  m.Register(&boundTo4, L"Bound", 12);
  for (GID c : {3u, 4u}) {
    m.Subscribe(&keyed, c);
    m.Subscribe(&anyTarget, c);
    m.Subscribe(&boundTo4, c);
  }
  for (int i = 0; i < 3; ++i) regions.Add(Rec{}), materials.Add(Rec{});
  keyed.SetKeyContainerID(3);
  keyed.Insert(2, 1);
  anyTarget.Insert(7, GGID(4, 3));
  anyTarget.Insert(8, GGID(3, 1));
  boundTo4.Set(5, 2);
  boundTo4.Set(6, 0);  // no link

  UsageList ofRegions, ofMaterials;
  m.GetUsageOf(3, ofRegions);
  m.GetUsageOf(4, ofMaterials);
  EXPECT_EQ(ofRegions[1], (std::vector<GGID>{{11, 8}}));
  EXPECT_EQ(ofRegions[2], (std::vector<GGID>{{10, 2}}));
  EXPECT_EQ(ofMaterials[2], (std::vector<GGID>{{12, 5}}));
  EXPECT_EQ(ofMaterials[3], (std::vector<GGID>{{11, 7}}));
  EXPECT_TRUE(ofMaterials[1].empty());
}

}  // namespace
}  // namespace v7
