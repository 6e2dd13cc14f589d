#include "V7Doc/core/UndoHistory.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {
namespace {

// A stored-ID record that follows the undo contract; UndoEquality ignores
// `scratch`, and UndoFreeMemory is counted.
struct Item {
  GID id = 0;
  std::string name;
  int scratch = 0;
  static inline int freed = 0;
  std::int32_t UndoEquality(const Item& o) const { return name == o.name; }
  void UndoAssignment(const Item& o) { name = o.name, scratch = o.scratch; }
  std::int32_t UndoFreeMemory() { return ++freed, 0; }
  friend bool operator==(const Item&, const Item&) = default;
};
using ItemPolicy = QVContainerStoredIDPolicy<Item, &Item::id>;
using Items = QVContainerTable<Item, ItemPolicy, QVContainerOpUndoPolicy<Item>>;

// Hears the notices of container 1.
class Listener : public IQVContainer, public IQVChangeListener {
 public:
  void Clear() override {}
  void OnRegistration() override { Manager().Subscribe(this, 1); }
  void OnAdd(GID, const std::vector<GID>& ids) override { Log(L"add", ids); }
  void OnDelete(GID, const std::vector<GID>& ids) override { Log(L"del", ids); }
  void OnIDUpdate(GID, const std::vector<GID>& map) override { Log(L"map", map); }
  std::wstring heard;

 private:
  void Log(const wchar_t* what, const std::vector<GID>& ids) {
    heard += what;
    for (GID id : ids) heard += L" " + std::to_wstring(id);
    heard += L";";
  }
};

struct Fixture {
  QVContainerManager m;
  Items items;
  Listener listener;
  Fixture() {
    m.Register(&items, L"Items", 1);
    m.Register(&listener, L"Listener", 2);
  }
  UndoHistory& h() { return m.History(); }
  void Fill(std::initializer_list<const char*> names) {
    h().Suspend();
    for (const char* n : names) items.Add(Item{0, n});
    h().Resume();
    listener.heard.clear();
  }
};

// Every table operation is undone and redone exactly, slots and stored IDs
// included, and the replay sends the opposite / the same notices.
TEST(UndoHistory, TableOperationsUndoAndRedoExactly) {
  struct Case {
    const char* what;
    std::function<void(Items&)> edit;
    const wchar_t* notices;       // sent by the edit (and by its redo)
    const wchar_t* undoNotices;   // sent by its undo
  } cases[] = {
      {"add", [](Items& t) { t.Add(Item{0, "d"}); }, L"add 4;", L"del 4;"},
      {"delete middle", [](Items& t) { t.Delete({2}); }, L"del 2;", L"add 2;"},
      {"delete last trims", [](Items& t) { t.Delete({3, 2}); }, L"del 2 3;", L"add 2 3;"},
      {"delete then add reuses", [](Items& t) { t.Delete({3}), t.Add(Item{0, "x"}); },
       L"del 3;add 3;", L"del 3;add 3;"},
      {"change", [](Items& t) { t.Change(2, Item{0, "B"}); }, L"", L""},
      {"full compaction", [](Items& t) { t.Delete({1}); std::vector<GID> map; t.FullCompact(map); },
       L"del 1;map 0 0 1 2;", L"map 0 2 3;add 1;"},
      {"reserve and trim", [](Items& t) { t.Reserve(6), t.Add(Item{0, "e"}); }, L"add 4;", L"del 4;"},
      {"resize", [](Items& t) { t.Resize(5); }, L"add 4 5;", L"del 4 5;"},
      {"clear", [](Items& t) { t.Clear(); }, L"del 1 2 3;", L"add 1 2 3;"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Fixture f;
    f.Fill({"a", "b", "c"});
    const auto before = f.items.Slots();
    f.h().Begin();
    c.edit(f.items);
    f.h().Commit(L"edit");
    const auto after = f.items.Slots();
    EXPECT_EQ(f.listener.heard, c.notices);
    EXPECT_EQ(f.h().UndoSteps(), 1u);
    f.listener.heard.clear();
    ASSERT_TRUE(f.h().Undo());
    EXPECT_EQ(f.items.Slots(), before);
    EXPECT_EQ(f.listener.heard, c.undoNotices);
    f.listener.heard.clear();
    ASSERT_TRUE(f.h().Redo());
    EXPECT_EQ(f.items.Slots(), after);
    EXPECT_EQ(f.listener.heard, c.notices);
  }
}

// The bound on steps and bytes drops the oldest steps; freeing memory drops
// everything and calls the records' UndoFreeMemory on the images.
TEST(UndoHistory, BoundsAndFreeMemoryReleaseImages) {
  Fixture f;
  f.Fill({"a", "b", "c", "d"});
  UndoHistory& h = f.h();
  h.SetLimits({3, std::size_t{1} << 30});
  for (int i = 0; i < 5; ++i) f.items.Change(1, Item{0, "v" + std::to_string(i)});
  EXPECT_EQ(h.UndoSteps(), 3u);

  h.SetLimits({100, 1});  // bytes: only the newest step survives
  EXPECT_EQ(h.UndoSteps(), 1u);
  EXPECT_GT(h.Bytes(), 0u);

  h.SetLimits({});
  f.items.Delete({2, 3});
  Item::freed = 0;
  EXPECT_EQ(f.m.UndoFreeMemory(), 0);  // no cleanup actions registered
  EXPECT_GE(Item::freed, 3);           // the change's image and the two deleted records
  EXPECT_FALSE(h.CanUndo());
  EXPECT_EQ(h.Bytes(), 0u);
}

// A plain table records nothing; repairing a reference from a plain edit
// drops the history, which could no longer restore.
TEST(UndoHistory, PlainTablesRecordNothing) {
  QVContainerManager m;
  QVContainerTable<Item, ItemPolicy> plain;
  m.Register(&plain, L"Plain", 1);
  plain.Add(Item{0, "a"});
  plain.Delete({1});
  EXPECT_FALSE(m.History().CanUndo());

  Items items;
  m.Register(&items, L"Items", 2);
  items.Add(Item{0, "a"});
  EXPECT_TRUE(m.History().CanUndo());
  m.History().Unrestorable();
  EXPECT_FALSE(m.History().CanUndo());
}

}  // namespace
}  // namespace v7
