#include "V7Doc/core/UndoHistory.h"

#include <algorithm>

#include "V7Doc/core/TableUndoLog.h"

#include <utility>

namespace v7 {
namespace {
// Marks a replay for the time of one call, so that what the replay changes
// is not recorded again.
class Replay {
 public:
  explicit Replay(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
  ~Replay() { flag_ = was_; }
  Replay(const Replay&) = delete;
  Replay& operator=(const Replay&) = delete;

 private:
  bool& flag_;
  bool was_;
};
}  // namespace

UndoHistory::UndoHistory() = default;
UndoHistory::~UndoHistory() { FreeMemory(); }

void UndoHistory::SetLimits(const Limits& limits) {
  limits_ = limits;
  Trim();
}

void UndoHistory::Begin() { marks_.push_back(open_.size()); }

bool UndoHistory::Commit(const std::wstring& label) {
  if (marks_.empty()) return false;
  marks_.pop_back();
  if (!marks_.empty()) return true;
  if (unrestorable_) {
    unrestorable_ = false;
    FreeMemory();
    return true;
  }
  if (open_.empty()) return true;
  Step step;
  step.label = label;
  if (open_.size() == 1) {
    step.single = std::move(open_.front());
    open_.clear();  // keeps its room for the next step
    step.bytes = step.single->Bytes();
  } else {
    step.entries = std::move(open_);
    open_.clear();
    for (const auto& e : step.entries) step.bytes += e->Bytes();
  }
  step.bytes += sizeof(Step) + step.entries.capacity() * sizeof(void*) + label.capacity() * sizeof(wchar_t);
  DropRedo();
  bytes_ += step.bytes;
  undo_.push_back(std::move(step));
  Trim();
  return true;
}

bool UndoHistory::Abort() {
  if (marks_.empty()) return false;
  const std::size_t mark = marks_.back();
  marks_.pop_back();
  {
    Replay replay(replaying_);
    for (std::size_t i = open_.size(); i > mark; --i) open_[i - 1]->Undo();
  }
  for (std::size_t i = mark; i < open_.size(); ++i) open_[i]->FreeMemory();
  open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(mark), open_.end());
  return true;
}

bool UndoHistory::Undo() {
  if (!CanUndo()) return false;
  Step step = std::move(undo_.back());
  undo_.pop_back();
  {
    Replay replay(replaying_);
    if (step.single) step.single->Undo();
    for (std::size_t i = step.entries.size(); i > 0; --i) step.entries[i - 1]->Undo();
  }
  redo_.push_back(std::move(step));
  return true;
}

bool UndoHistory::Redo() {
  if (!CanRedo()) return false;
  Step step = std::move(redo_.back());
  redo_.pop_back();
  {
    Replay replay(replaying_);
    if (step.single) step.single->Redo();
    for (auto& e : step.entries) e->Redo();
  }
  undo_.push_back(std::move(step));
  return true;
}

std::wstring UndoHistory::UndoLabel() const { return undo_.empty() ? std::wstring() : undo_.back().label; }
std::wstring UndoHistory::RedoLabel() const { return redo_.empty() ? std::wstring() : redo_.back().label; }

void UndoHistory::Drop(Step& step) {
  if (step.single) step.single->FreeMemory();
  step.single.reset();
  for (auto& e : step.entries) e->FreeMemory();
  step.entries.clear();
}

void UndoHistory::DropRedo() {
  for (Step& s : redo_) {
    bytes_ -= s.bytes;
    Drop(s);
  }
  redo_.clear();
}

void UndoHistory::Trim() {
  // The newest step always stays: an edit too big for the bound can still
  // be taken back at once.
  while (undo_.size() > limits_.maxSteps ||
         (undo_.size() > 1 && bytes_ - undo_.back().bytes > limits_.maxBytes)) {
    bytes_ -= undo_.front().bytes;
    Drop(undo_.front());
    undo_.pop_front();
  }
}

int UndoHistory::FreeMemory() {
  const int dropped = static_cast<int>(undo_.size() + redo_.size());
  for (Step& s : undo_) Drop(s);
  undo_.clear();
  DropRedo();
  for (auto& e : open_) e->FreeMemory();
  open_.clear();
  for (std::size_t& m : marks_) m = 0;
  bytes_ = 0;
  return dropped;
}

void UndoHistory::Record(std::unique_ptr<UndoEntry> entry) { open_.push_back(std::move(entry)); }

void UndoHistory::Invalidate() { FreeMemory(); }

void UndoHistory::Unrestorable() {
  if (marks_.empty()) FreeMemory();
  else unrestorable_ = true;
}

namespace undo_detail {
std::vector<GID> InvertMap(const std::vector<GID>& renumber) {
  GID size = 0;
  for (GID n : renumber) size = std::max(size, n);
  std::vector<GID> inverse(static_cast<std::size_t>(size) + 1, 0);
  for (std::size_t old = 1; old < renumber.size(); ++old)
    if (renumber[old] != 0) inverse[renumber[old]] = static_cast<GID>(old);
  return inverse;
}
}  // namespace undo_detail

}  // namespace v7
