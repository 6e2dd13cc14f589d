#include "V7Doc/core/QVContainerTable.h"

#include <gtest/gtest.h>

#include <string>

namespace v7 {
namespace {

// A record that knows its own tombstone (no stored ID).
struct Rec {
  int value = 0;
  bool dead = false;
  friend bool operator==(const Rec&, const Rec&) = default;
};
bool IsMissing(const Rec& r) { return r.dead; }
void SetMissing(Rec& r) { r = Rec{-1, true}; }

// A record with its ID stored in its first field.
struct Stored {
  GID id = 0;
  std::string payload = "default";
  friend bool operator==(const Stored&, const Stored&) = default;
};
using StoredPolicy = QVContainerStoredIDPolicy<Stored, &Stored::id>;

using Plain = QVContainerTable<Rec>;
using WithIDs = QVContainerTable<Stored, StoredPolicy>;
using Undoable = QVContainerTable<Rec, QVContainerNoStoredIDPolicy<Rec>, QVContainerOpUndoPolicy<Rec>>;

template <class Table>
std::vector<GID> LiveIDs(const Table& t) {
  std::vector<GID> ids;
  for (auto it = t.begin(); it != t.end(); ++it) ids.push_back(it.ID());
  return ids;
}

template <class Table>
Table WithRecords(int n) {
  Table t;
  for (int i = 1; i <= n; ++i) t.Add(typename Table::value_type{});
  return t;
}

// The ID rules hold alike for every policy combination.
template <class Table>
class TableIDRules : public ::testing::Test {};
using Tables = ::testing::Types<Plain, WithIDs, Undoable>;
TYPED_TEST_SUITE(TableIDRules, Tables);

TYPED_TEST(TableIDRules, DeletesReserveMiddleIDsAndReuseTrailingOnes) {
  struct Case {
    const char* what;
    int records;
    std::vector<GID> deleted;
    std::size_t sizeAfter;
    std::vector<GID> liveAfter;
    GID nextAdd;
  } cases[] = {
      {"middle delete keeps its ID reserved", 3, {2}, 3, {1, 3}, 4},
      {"last delete frees its ID", 3, {3}, 2, {1, 2}, 3},
      {"trailing run trims back to the last live", 5, {5, 3, 4}, 2, {1, 2}, 3},
      {"delete everything empties the slots", 3, {1, 2, 3}, 0, {}, 1},
      {"invalid and repeated IDs change nothing", 3, {0, 7, 2, 2}, 3, {1, 3}, 4},
      {"empty table", 0, {1}, 0, {}, 1},
  };
  for (const auto& c : cases) {
    auto t = WithRecords<TypeParam>(c.records);
    t.Delete(c.deleted);
    EXPECT_EQ(t.Size(), c.sizeAfter) << c.what;
    EXPECT_EQ(LiveIDs(t), c.liveAfter) << c.what;
    for (GID d : c.deleted) {
      EXPECT_FALSE(t.IsValidID(d)) << c.what << " id " << d;
      EXPECT_TRUE(t.Find(d) == t.end()) << c.what << " id " << d;
    }
    EXPECT_EQ(t.Add(typename TypeParam::value_type{}).ID(), c.nextAdd) << c.what;
  }
}

TYPED_TEST(TableIDRules, FullCompactMapsOldToNew) {
  struct Case {
    int records;
    std::vector<GID> deleted;
    std::vector<GID> map;
  } cases[] = {
      {0, {}, {0}},
      {3, {}, {0, 1, 2, 3}},
      {4, {2}, {0, 1, 0, 2, 3}},
      {5, {1, 2}, {0, 0, 0, 1, 2, 3}},
      {6, {2, 4, 5}, {0, 1, 0, 2, 0, 0, 3}},
  };
  for (const auto& c : cases) {
    auto t = WithRecords<TypeParam>(c.records);
    t.Delete(c.deleted);
    std::vector<GID> map{99, 99};
    t.FullCompact(map);
    EXPECT_EQ(map, c.map) << "records " << c.records;
    // Survivors are dense and in their old order.
    std::vector<GID> expectedLive;
    for (GID id = 1; id <= t.Size(); ++id) expectedLive.push_back(id);
    EXPECT_EQ(LiveIDs(t), expectedLive);
  }
}

TEST(TableIDRules, FullCompactOfTrailingTombstonesReportsTheirSlots) {
  // {1, tombstone, 3, tombstone}: built through Reserve so that the trailing
  // tombstone is not trimmed by Delete.
  Plain t;
  t.Reserve(4);
  t.At(1) = Rec{10};
  t.At(3) = Rec{30};
  std::vector<GID> map;
  t.FullCompact(map);
  EXPECT_EQ(map, (std::vector<GID>{0, 1, 0, 2, 0}));
  ASSERT_EQ(t.Size(), 2u);
  EXPECT_EQ(t.At(1).value, 10);
  EXPECT_EQ(t.At(2).value, 30);
}

TEST(StoredIDs, InvariantHoldsThroughEveryOperation) {
  auto check = [](const WithIDs& t, const char* when) {
    for (GID id = 1; id <= t.Size(); ++id) {
      const GID stored = t.At(id).id;
      const GID expected = t.IsValidID(id) ? id : 0;
      EXPECT_EQ(stored, expected) << when << " slot " << id;
    }
  };
  WithIDs t;
  Stored s;
  s.id = 42;  // whatever the caller wrote is overwritten
  s.payload = "a";
  t.Add(s);
  t.Add(s);
  t.Add(s);
  t.Add(s);
  check(t, "after adds");
  t.Delete({2});
  EXPECT_EQ(t.At(2).payload, "default") << "a tombstone is reset to the default record";
  check(t, "after delete");
  std::vector<GID> map;
  t.FullCompact(map);
  check(t, "after full compaction");
  t.Resize(6);
  check(t, "after resize");
  t.Reserve(8);
  check(t, "after reserve");
  EXPECT_EQ(LiveIDs(t), (std::vector<GID>{1, 2, 3, 4, 5, 6}));
}

TEST(ReserveAndResize, ReserveMakesTombstonesResizeMakesLiveRecords) {
  Plain t;
  t.Reserve(3);
  EXPECT_EQ(t.Size(), 3u);
  EXPECT_FALSE(t.IsEmpty()) << "a table of tombstones is not empty until compacted";
  EXPECT_TRUE(LiveIDs(t).empty());
  t.Resize(5);
  EXPECT_EQ(LiveIDs(t), (std::vector<GID>{4, 5}));
  t.Compact();
  EXPECT_EQ(t.Size(), 5u) << "Compact trims only trailing tombstones";
  t.Resize(1);
  EXPECT_EQ(t.Size(), 1u);
  t.Clear();
  EXPECT_TRUE(t.IsEmpty());
}

TEST(Find, ByPointerAndIteration) {
  auto t = WithRecords<Plain>(3);
  EXPECT_EQ(t.Find(&t.At(2)).ID(), 2u);
  Rec outside;
  EXPECT_TRUE(t.Find(&outside) == t.end());
  t.At(1).value = 5;
  const Plain& ct = t;
  EXPECT_EQ(ct.Find(GID{1})->value, 5);
  Plain::const_iterator ci = t.begin();  // mutable converts to constant
  EXPECT_EQ(ci.ID(), 1u);
}

TEST(Add, CopyOfARecordOfTheSameTable) {
  auto t = WithRecords<Plain>(2);
  t.At(2).value = 7;
  // Adding a copy of a live record of the same table must copy it before the
  // vector grows.
  for (int i = 0; i < 20; ++i) t.Add(t.At(2));
  EXPECT_EQ(t.At(22).value, 7);
}

}  // namespace
}  // namespace v7
