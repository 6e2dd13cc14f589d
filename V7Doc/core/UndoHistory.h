#pragma once
// The document's undo history: recorded edits grouped into steps.
//
// A step is what one press of Undo takes back. Edits made inside a
// transaction (Begin ... Commit(label)) form one step; transactions nest,
// and only the outermost commit closes the step (under the outermost
// label). An edit made outside any transaction is a step of its own. A step
// that recorded nothing is not kept. Committing a new step drops the steps
// that could have been redone: after an undo, a new edit starts a new branch.
//
// Which edits are recorded. The record tables whose op policy is
// QVContainerOpUndoPolicy record every table operation (add, delete,
// change, compaction, resize, clear) into the step that is open; the
// references that such an edit repairs in other containers (cleared after a
// deletion, renumbered after a compaction) are recorded with it, site by
// site, so that undoing the edit puts them back. Edits of the other tables
// are not recorded. When such an unrecorded edit repairs a reference, the
// history could no longer put the document back exactly, and it drops
// itself (Invalidate): a history that cannot restore must not pretend to.
// The same holds for an unrecorded change that would make a recorded edit
// find the wrong records at replay (the data holding undoable tables
// replaced or moved; NestedTableOwner.h).
//
// Memory. The history keeps at most Limits::maxSteps steps and, beyond the
// newest step, at most Limits::maxBytes bytes of recorded images; the oldest
// steps go first. Dropping a step calls FreeMemory on its entries, which
// calls the records' own UndoFreeMemory where they have one.
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace v7 {

// One recorded change. Undo takes the document from the state after the
// change to the state before it; Redo does the reverse. Entries are undone
// newest first and redone oldest first, so each finds the document exactly
// as the change left it (or found it).
class UndoEntry {
 public:
  virtual ~UndoEntry() = default;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  // Memory the entry holds (approximate; for the history's bound).
  virtual std::size_t Bytes() const = 0;
  // The entry is dropped for good: release what its images hold.
  virtual void FreeMemory() {}
  // Who appends to this entry (a table's log); see UndoHistory::LastEntry.
  virtual const void* Owner() const { return nullptr; }
};

class UndoHistory {
 public:
  struct Limits {
    std::size_t maxSteps = 500;               // undo steps kept
    std::size_t maxBytes = std::size_t{256} << 20;  // bytes kept beyond the newest step
  };

  UndoHistory();
  ~UndoHistory();
  UndoHistory(const UndoHistory&) = delete;
  UndoHistory& operator=(const UndoHistory&) = delete;

  void SetLimits(const Limits& limits);
  const Limits& GetLimits() const { return limits_; }

  // Opens a transaction (nested in the open one, if any).
  void Begin();
  // Closes the innermost transaction. Closing the outermost one keeps what
  // it recorded as one step named `label`. False when none is open.
  bool Commit(const std::wstring& label);
  // Takes back what the innermost transaction recorded, newest first, and
  // forgets it. False when none is open.
  bool Abort();
  // The number of open transactions.
  int Depth() const { return static_cast<int>(marks_.size()); }

  bool CanUndo() const { return marks_.empty() && !undo_.empty(); }
  bool CanRedo() const { return marks_.empty() && !redo_.empty(); }
  // Take back / redo one step. False when there is none or a transaction is
  // open (a half-made edit cannot be stepped over).
  bool Undo();
  bool Redo();
  // The labels of the steps Undo and Redo would take; empty when none.
  std::wstring UndoLabel() const;
  std::wstring RedoLabel() const;
  std::size_t UndoSteps() const { return undo_.size(); }
  std::size_t RedoSteps() const { return redo_.size(); }
  // Memory held by the kept steps (approximate).
  std::size_t Bytes() const { return bytes_; }

  // Drops every step, undo and redo, and the open transactions' records
  // (their edits stay made). Returns the number of steps dropped.
  int FreeMemory();

  // Recording, for the tables and the reference repairs.
  // True while edits are to be recorded: not while a step is being undone
  // or redone, and not while recording is suspended.
  bool Recording() const { return suspended_ == 0 && !replaying_; }
  // True while a recorded edit (inside a Scope) is being made: the
  // references it repairs are recorded with it.
  bool InRecordedEdit() const { return in_edit_ > 0; }
  // True while a step is being undone or redone.
  bool Replaying() const { return replaying_; }
  // Appends an entry to the open transaction (the caller holds a Scope).
  void Record(std::unique_ptr<UndoEntry> entry);
  // The newest entry of the open transaction when `owner` owns it, so that
  // a table appends its next operation to the log it already has; null else.
  // (Nested tables share one owner per record type and tell their logs
  // apart themselves.)
  UndoEntry* LastEntry(const void* owner) const {
    return !open_.empty() && open_.back()->Owner() == owner ? open_.back().get() : nullptr;
  }
  // An unrecorded change touched recorded state: drop the history (the
  // open transactions stay open; what they recorded is forgotten).
  void Invalidate();
  // The same, from inside an edit: the history is dropped when the
  // outermost transaction closes (an entry being written must not go away
  // under its writer).
  void Unrestorable();
  // While suspended nothing is recorded (a clear or load of the whole
  // document, which then drops the history anyway).
  void Suspend() { ++suspended_; }
  void Resume() { --suspended_; }

  // An edit's implicit transaction: one table operation is one step unless
  // a transaction is open. Does nothing for a null history. `recorded`
  // false only groups (a whole-document operation over tables that may
  // not record): what it repairs counts as recorded only inside the
  // operations of undoable tables.
  class Scope {
   public:
    explicit Scope(UndoHistory* h, bool recorded = true) : h_(h), recorded_(recorded) {
      if (h_) {
        h_->Begin();
        if (recorded_) ++h_->in_edit_;
      }
    }
    ~Scope() {
      if (h_) {
        if (recorded_) --h_->in_edit_;
        h_->Commit(std::wstring());
      }
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    UndoHistory* h_;
    bool recorded_;
  };

 private:
  struct Step {
    std::wstring label;
    // A step of one entry (most are) keeps it here and needs no list;
    // a longer one keeps them all in `entries`, oldest first.
    std::unique_ptr<UndoEntry> single;
    std::vector<std::unique_ptr<UndoEntry>> entries;
    std::size_t bytes = 0;
  };
  static void Drop(Step& step);
  void DropRedo();
  void Trim();

  Limits limits_;
  std::deque<Step> undo_;  // oldest first
  std::vector<Step> redo_;  // next to redo last
  std::vector<std::unique_ptr<UndoEntry>> open_;  // entries of the open transactions
  std::vector<std::size_t> marks_;  // open_.size() at each Begin
  std::size_t bytes_ = 0;
  int suspended_ = 0;
  int in_edit_ = 0;
  bool replaying_ = false;
  bool unrestorable_ = false;
};

}  // namespace v7
