#pragma once
// Enumeration names a document was read with that this version does not
// know (a member renamed or added by another version). Such a member reads
// as undefined; its text is kept here so that a save writes it back and a
// load and a save lose nothing.
//
// A text inside a record of a registered table is kept by the table and the
// record's ID, not by a path: it follows the record when a compaction
// renumbers it and goes with it when it is deleted, so that it never lands
// on another record that happens to take the same position.
//
// Undo. What the texts forget or renumber in an edit the history records
// (UndoHistory::InRecordedEdit) is recorded with it, so that undoing the
// deletion of a record brings its text back and redoing it takes the text
// away again. The notices a replay sends change nothing here: the record
// replays them exactly, as the references' repairs are replayed.
#include <string>
#include <vector>

#include "V7Doc/core/IQVContainer.h"

namespace v7 {

class UndoHistory;

struct KeptText {
  GID container = 0;    // the table of the record; 0 for a text outside any table
  GID record = 0;       // the record's ID in it
  std::wstring member;  // the rest of the path: ".Method" after the record, or the whole path
  std::string text;     // as read (UTF-8)
  bool operator==(const KeptText&) const = default;
};

class KeptTexts final : public IQVChangeListener {
 public:
  std::vector<KeptText>& Entries() { return entries_; }
  const std::vector<KeptText>& Entries() const { return entries_; }
  void Clear() { entries_.clear(); }
  // The history of the document whose notices these texts follow; null:
  // nothing is recorded.
  void SetHistory(UndoHistory* history) { history_ = history; }

  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
  void OnDelete(GID container, const std::vector<GID>& ids) override;
  void OnAdd(GID, const std::vector<GID>&) override {}

  // Follows a renumbering or a deletion of records of `container` (`ids`
  // ascending); appends the texts that go to `gone`. True when any text
  // changed.
  bool Renumber(GID container, const std::vector<GID>& renumber, std::vector<KeptText>& gone);
  bool Forget(GID container, const std::vector<GID>& ids, std::vector<KeptText>& gone);

 private:
  class Log;
  std::vector<KeptText> entries_;
  UndoHistory* history_ = nullptr;
};

}  // namespace v7
