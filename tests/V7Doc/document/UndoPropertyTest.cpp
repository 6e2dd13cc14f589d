// Random edits of a generated document against a reference model: the
// model keeps the saved bytes of every state the history should be able to
// return to, and a cursor; undo, redo and new edits move both, and after
// every action the document must save exactly as the model says.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "V7Doc/document/DocumentTransaction.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tests/V7Doc/document/GeneratedDocument.h"

namespace v7 {
namespace {

std::string Saved(const QVDocument& doc) {
  std::string xml;
  EXPECT_TRUE(files::DocumentToXml(doc, xml).succeeded());
  return xml;
}

// Equal saves, or where they first differ (a line of each, with its number).
::testing::AssertionResult SameSave(const std::string& got, const std::string& want) {
  if (got == want) return ::testing::AssertionSuccess();
  std::size_t line = 1, start = 0, i = 0;
  for (; i < got.size() && i < want.size() && got[i] == want[i]; ++i)
    if (got[i] == '\n') ++line, start = i + 1;
  auto lineAt = [&](const std::string& s) { return s.substr(start, s.find('\n', start) - start); };
  return ::testing::AssertionFailure() << "saves differ at line " << line << ": got \"" << lineAt(got)
                                       << "\", want \"" << lineAt(want) << "\"";
}

class Editor {
 public:
  Editor(QVDocument& doc, Rng& rng) : doc_(doc), rng_(rng) {}

  // One random edit of an undoable table; every edit changes what is saved.
  // The tables inside an analysis's stability data are reached through
  // Get, as a user's edit reaches them.
  void Edit() {
    const GID a = 1 + rng_() % 5;
    switch (rng_() % 8) {
      case 5: EditTable(doc_.StabItems().Get(a).vSurcharges_, [](SurchargeLoad& s, std::wstring n) { s.name_ = n; }); break;
      case 6: EditTable(doc_.StabItems().Get(a).reinforcements_, [](ReinforcementLoad& r, std::wstring n) { r.name_ = n; }); break;
      case 7: EditTable(doc_.StabItems().Get(a).slipSurfaces_, [](SLIP& s, std::wstring n) { s.name_ = n; }); break;
      case 0: EditTable(doc_.Materials(), [](MATL& m, std::wstring n) { m.sDescription() = n; }); break;
      case 1: EditTable(doc_.BCs(), [](BC& b, std::wstring n) { b.name = n; }); break;
      case 2: EditTable(doc_.ClimateData(), [](CLIMATE_INFO& c, std::wstring n) { c.wsTitle = n; }); break;
      case 3: EditTable(doc_.Thermosyphons(), [](THERMOSYPHON_INFO& t, std::wstring n) { t.wsName = n; }); break;
      default: EditTable(doc_.ConvectiveSurfaces(), [](PIPESURF_INFO& p, std::wstring n) { p.wsName = n; });
    }
  }
  bool AnyTombstone() {
    for (const auto& [a, d] : doc_.StabItems().Entries())
      if (HasTombstone(d.vSurcharges_) || HasTombstone(d.reinforcements_) || HasTombstone(d.slipSurfaces_))
        return true;
    return HasTombstone(doc_.Materials()) || HasTombstone(doc_.BCs()) || HasTombstone(doc_.ClimateData()) ||
           HasTombstone(doc_.Thermosyphons()) || HasTombstone(doc_.ConvectiveSurfaces());
  }

 private:
  template <class Table>
  static bool HasTombstone(const Table& t) {
    for (GID id = 1; id <= t.Size(); ++id)
      if (t.IsMissingSlot(id)) return true;
    return false;
  }
  template <class Table, class Rename>
  void EditTable(Table& t, Rename rename) {
    std::vector<GID> live;
    for (auto it = t.begin(); it != t.end(); ++it) live.push_back(it.ID());
    const std::wstring name = L"edit" + std::to_wstring(++count_);
    const unsigned what = live.size() < 2 ? 0 : rng_() % 3;
    if (what == 0) {  // add a copy of a live record under a new name, or a new one
      typename Table::value_type rec = live.empty() ? typename Table::value_type{} : t.At(Pick(rng_, live));
      rename(rec, name);
      t.Add(rec);
    } else if (what == 1) {  // delete one or two
      std::vector<GID> ids{Pick(rng_, live)};
      if (rng_() % 2) ids.push_back(Pick(rng_, live));
      t.Delete(ids);
    } else {  // change
      const GID id = Pick(rng_, live);
      typename Table::value_type rec = t.At(id);
      rename(rec, name);
      t.Change(id, rec);
    }
  }
  QVDocument& doc_;
  Rng& rng_;
  int count_ = 0;
};

TEST(UndoProperty, RandomEditsUndoRedoAgainstModel) {
  ASSERT_TRUE(files::RegisterDocumentSchema().succeeded());
  QVDocument doc;
  GenerateDocument(doc);
  doc.UndoFreeMemory();  // the generation itself is no step to undo
  Rng rng(4242);
  Editor editor(doc, rng);
  std::vector<std::string> states{Saved(doc)};
  std::size_t cur = 0;
  auto stepDone = [&] {
    states.resize(cur + 1);
    states.push_back(Saved(doc));
    ++cur;
  };

  for (int action = 0; action < 400; ++action) {
    SCOPED_TRACE(action);
    const unsigned roll = rng() % 10;
    if (roll < 4) {
      editor.Edit();
      stepDone();
    } else if (roll == 4 && editor.AnyTombstone()) {
      doc.ContainerManager().FullCompact();
      stepDone();
    } else if (roll == 5) {  // a transaction, with a nested one, committed or aborted
      doc.BeginTransaction();
      const int n = 1 + static_cast<int>(rng() % 3);
      for (int i = 0; i < n; ++i) editor.Edit();
      doc.BeginTransaction();
      editor.Edit();
      if (editor.AnyTombstone() && rng() % 2) doc.ContainerManager().FullCompact();
      ASSERT_TRUE(doc.CommitTransaction(L"inner"));
      if (rng() % 3 == 0) {
        ASSERT_TRUE(doc.AbortTransaction());
        ASSERT_TRUE(SameSave(Saved(doc), states[cur])) << "abort leaves a trace";
      } else {
        ASSERT_TRUE(doc.CommitTransaction(L"outer"));
        stepDone();
        EXPECT_EQ(doc.History().UndoLabel(), L"outer");
      }
    } else if (roll < 8) {
      ASSERT_EQ(doc.Undo(), cur > 0);
      if (cur > 0) --cur;
    } else {
      ASSERT_EQ(doc.Redo(), cur + 1 < states.size());
      if (cur + 1 < states.size()) ++cur;
    }
    ASSERT_TRUE(SameSave(Saved(doc), states[cur]));
  }

  while (doc.Undo()) {
  }
  EXPECT_TRUE(SameSave(Saved(doc), states.front())) << "undoing everything gives the original";
  while (doc.Redo()) {
  }
  EXPECT_TRUE(SameSave(Saved(doc), states.back())) << "redoing everything gives the last state";
}

// A recorded edit of an analysis's surcharges survives what leaves its
// data where the history finds it (by analysis), and the history goes with
// every unrecorded change that could make it find the wrong data.
TEST(UndoProperty, NestedTablesFollowTheirAnalysis) {
  ASSERT_TRUE(files::RegisterDocumentSchema().succeeded());
  struct Case {
    const char* what;
    std::function<void(QVDocument&)> change;
    bool kept;
  } cases[] = {
      {"data of a new analysis appended (the list grows and moves)", [](QVDocument& d) { d.StabItems().Get(9); }, true},
      {"the same data assigned", [](QVDocument& d) { d.StabItems().Get(2) = StabData(d.StabItems().Get(2)); }, true},
      {"data put between others", [](QVDocument& d) { d.StabItems().Get(6); }, false},
      {"other data assigned", [](QVDocument& d) { d.StabItems().Get(2) = StabData(d.StabItems().Get(3)); }, false},
      {"data reset", [](QVDocument& d) { d.StabItems().Get(2).DataInit(); }, false},
      {"an entry erased", [](QVDocument& d) { d.StabItems().Erase(1); }, false},
      {"the analysis deleted", [](QVDocument& d) { d.Analyses().Delete({2}); }, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QVDocument doc;
    GenerateDocument(doc);
    doc.StabItems().Get(7);
    doc.UndoFreeMemory();
    const SurchargeLoadTable before = doc.StabItems().Get(2).vSurcharges_;
    doc.StabItems().Get(2).vSurcharges_.Add(SurchargeLoad{0, L"added"});
    ASSERT_TRUE(doc.CanUndo());
    c.change(doc);
    EXPECT_EQ(doc.CanUndo(), c.kept);
    if (c.kept) {
      EXPECT_TRUE(doc.Undo());
      EXPECT_TRUE(doc.StabItems().Find(2)->vSurcharges_ == before);
      EXPECT_TRUE(doc.Redo());
      EXPECT_EQ(doc.StabItems().Find(2)->vSurcharges_.Size(), before.Size() + 1);
    }
  }
}

// An edit that fails halfway, by a status or by an exception, is taken back.
TEST(UndoProperty, FailedEditRollsBack) {
  ASSERT_TRUE(files::RegisterDocumentSchema().succeeded());
  QVDocument doc;
  GenerateDocument(doc);
  doc.UndoFreeMemory();
  const std::string before = Saved(doc);
  const std::size_t steps = doc.History().UndoSteps();
  struct Case {
    const char* what;
    bool fails, throws;
  } cases[] = {{"status error", true, false}, {"exception", false, true}, {"success", false, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const gtl::status s = EditDocument(doc, L"edit", [&](QVDocument& d) {
      d.Materials().Delete({1, 2});
      d.Thermosyphons().Add(THERMOSYPHON_INFO{L"new"});
      if (c.throws) throw std::runtime_error("disk full");
      return c.fails ? gtl::status::error(30003, L"halfway") : gtl::status::success();
    });
    EXPECT_EQ(s.failed(), c.fails || c.throws);
    if (s.failed()) {
      EXPECT_TRUE(SameSave(Saved(doc), before));
      EXPECT_EQ(doc.History().UndoSteps(), steps);
    } else {
      EXPECT_NE(Saved(doc), before);
      EXPECT_EQ(doc.History().UndoLabel(), L"edit");
      EXPECT_TRUE(doc.Undo());
      EXPECT_TRUE(SameSave(Saved(doc), before));
    }
  }
}

}  // namespace
}  // namespace v7
