#pragma once
// What an undoable record table records: one log per table and step, a list
// of slot operations each of which is its own inverse.
//
// - Replace: the slot's other version is kept in an image; undo and redo
//   swap the two (a changed or deleted record).
// - Push, Pop: a slot appended at the end or removed from it; the slot that
//   is out of the table waits in an image.
// - Swap: two slots exchanged by a full compaction (stored IDs follow their
//   slot).
// - Add, Delete, Renumber: the change notice the operation sent. Undo sends
//   the opposite notice (a delete for an add, the inverted map for a
//   renumbering), redo the same one, so that subscribers follow.
//
// Records are moved in and out of images, not copied, so that recording
// costs little more than the edit. Records that follow the undo contract
// (UndoEquality, UndoAssignment, UndoFreeMemory) are compared, assigned and
// released through it.
//
// The log finds its table again at replay: a registered table by its slots
// (a registered table stays where it is while it is registered, and its
// history goes when it leaves), a nested table by its place in its owner
// (NestedTableOwner.h). A nested table that is no longer there leaves the
// replay nothing to do; its owner has dropped the history by then.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "V7Doc/core/IQVContainer.h"
#include "V7Doc/core/NestedTableOwner.h"
#include "V7Doc/core/UndoHistory.h"
#include "V7Doc/core/UndoImageStore.h"

namespace v7 {

namespace undo_detail {
// Equal for undo: through UndoEquality when the record has one.
template <class T>
bool Equal(const T& a, const T& b) {
  if constexpr (requires { a.UndoEquality(b); }) return a.UndoEquality(b) != 0;
  else return a == b;
}
// Assigns for undo: through UndoAssignment when the record has one.
template <class T>
void Assign(T& to, const T& from) {
  if constexpr (requires { to.UndoAssignment(from); }) to.UndoAssignment(from);
  else to = from;
}
template <class T>
void Free(T& rec) {
  if constexpr (requires { rec.UndoFreeMemory(); }) (void)rec.UndoFreeMemory();
}
// The inverse of a compaction map: new ID -> old ID.
std::vector<GID> InvertMap(const std::vector<GID>& renumber);
}  // namespace undo_detail

template <class T, class IDPolicy>
class TableUndoLog : public UndoEntry {
 public:
  enum class Kind : std::uint8_t { Replace, Push, Pop, Swap, Add, Delete, Renumber };

  // Where the table is found at replay.
  struct Where {
    std::vector<T>* slots = nullptr;      // a registered table's slots
    const IQVContainer* table = nullptr;  // and the table, for its notices
    NestedTableOwner* owner = nullptr;    // or a nested table's owner,
    NestedTableOwner::Place place;        // its place there,
    std::vector<T>& (*slotsOf)(IQVContainer&) = nullptr;  // and how to reach its slots
    bool operator==(const Where&) const = default;
  };

  explicit TableUndoLog(const Where& where) : where_(where) {}
  // A log for an operation that takes one record out (a change, a
  // deletion): the record's room comes with the log, one allocation.
  static std::unique_ptr<TableUndoLog> Make(const Where& where, bool takesOne);

  // What the log's owner is for UndoHistory::LastEntry: a registered
  // table's slots; for every nested table of this record type one tag,
  // after which Logs tells the tables apart.
  static const void* NestedTag() { return &kNestedTag; }
  bool Logs(const Where& where) const { return where_ == where; }
  // The table's slots as they are now, for the operations recorded next
  // (a nested table may have moved since the log was made).
  TableUndoLog* Open(std::vector<T>& slots) {
    slots_ = &slots;
    return this;
  }

  // The slot's content before a change, moved out of it.
  void Replace(std::size_t slot) {
    Append({Kind::Replace, static_cast<std::uint32_t>(slot), images_.Push(std::move((*slots_)[slot]))});
  }
  // The appended slot gets an image only when it is first taken out (by
  // an undo), so that recording an add costs no record.
  void Push() { Append({Kind::Push, 0, kNoImage}); }
  // Call before the last slot is destroyed: it moves into the log.
  void Pop() { Append({Kind::Pop, 0, images_.Push(std::move(slots_->back()))}); }
  void Swap(std::size_t a, std::size_t b) {
    Append({Kind::Swap, static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b)});
  }
  // A notice of one record keeps its ID in the operation itself.
  void Notice(Kind kind, GID id) { Append({kind, id, 1}); }
  void Notice(Kind kind, const std::vector<GID>& ids) {
    if (ids.size() == 1 && kind != Kind::Renumber) return Notice(kind, ids[0]);
    Append({kind, static_cast<std::uint32_t>(ids_.size()), static_cast<std::uint32_t>(ids.size())});
    ids_.insert(ids_.end(), ids.begin(), ids.end());
  }

  void Undo() override {
    if (!Locate()) return;
    for (std::size_t i = Count(); i > 0; --i) Apply(At(i - 1), true);
  }
  void Redo() override {
    if (!Locate()) return;
    for (std::size_t i = 0; i < Count(); ++i) Apply(At(i), false);
  }
  std::size_t Bytes() const override {
    return sizeof(*this) + more_.capacity() * sizeof(Op) + images_.Capacity() + ids_.capacity() * sizeof(GID);
  }
  void FreeMemory() override {
    images_.ForEach([](T& rec) { undo_detail::Free(rec); });
    images_.Clear();
    std::vector<Op>().swap(more_);
    std::vector<GID>().swap(ids_);
    any_ = false;
  }
  const void* Owner() const override { return where_.owner ? NestedTag() : where_.slots; }

 private:
  static constexpr std::uint32_t kNoImage = 0xFFFFFFFFu;
  struct Op {
    Kind kind;
    std::uint32_t a;  // slot (Replace, Swap), first notice ID (the ID itself when b is 1)
    std::uint32_t b;  // image (Replace, Push, Pop), second slot (Swap), notice ID count
  };

  // The first operation lives in the log itself: a step of one operation
  // (most are) allocates no list.
  void Append(const Op& op) {
    if (!any_) first_ = op, any_ = true;
    else more_.push_back(op);
  }
  std::size_t Count() const { return any_ ? 1 + more_.size() : 0; }
  Op& At(std::size_t i) { return i == 0 ? first_ : more_[i - 1]; }
  std::vector<GID> IDs(const Op& op) const {
    if (op.b == 1 && op.kind != Kind::Renumber) return {op.a};
    return std::vector<GID>(ids_.begin() + op.a, ids_.begin() + op.a + op.b);
  }

  static constexpr char kNestedTag = 0;

  // The table's slots and the table itself, as they are now.
  bool Locate() {
    if (!where_.owner) {
      slots_ = where_.slots;
      table_ = where_.table;
      return true;
    }
    IQVContainer* t = where_.owner->TableAt(where_.place);
    if (!t) return false;
    slots_ = &where_.slotsOf(*t);
    table_ = t;
    return true;
  }


  void Apply(Op& op, bool undo) {
    switch (op.kind) {
      case Kind::Replace: std::swap((*slots_)[op.a], images_[op.b]); break;
      case Kind::Push:
      case Kind::Pop:
        // Undoing a push and redoing a pop take the last slot out.
        if ((op.kind == Kind::Push) == undo) {
          if (op.b == kNoImage) op.b = images_.Push(std::move(slots_->back()));
          else images_[op.b] = std::move(slots_->back());
          slots_->pop_back();
        } else {
          slots_->push_back(std::move(images_[op.b]));
        }
        break;
      case Kind::Swap:
        std::swap((*slots_)[op.a], (*slots_)[op.b]);
        Renumbered(op.a);
        Renumbered(op.b);
        break;
      case Kind::Add:
      case Kind::Delete: {
        const std::vector<GID> ids = IDs(op);
        if ((op.kind == Kind::Add) == undo) NotifyDelete(*table_, Sorted(ids));
        else NotifyAdd(*table_, ids);
        break;
      }
      case Kind::Renumber: {
        const std::vector<GID> map = IDs(op);
        NotifyIDUpdate(*table_, undo ? undo_detail::InvertMap(map) : map);
        break;
      }
    }
  }

  // A live record keeps its stored ID equal to its position + 1.
  void Renumbered(std::uint32_t slot) {
    if constexpr (IDPolicy::kStoresID)
      if (!IDPolicy::IsMissing((*slots_)[slot])) IDPolicy::SetID((*slots_)[slot], slot + 1);
  }
  static std::vector<GID> Sorted(std::vector<GID> ids);

  Where where_;
  std::vector<T>* slots_ = nullptr;         // while recording or replaying
  const IQVContainer* table_ = nullptr;     // while replaying
  Op first_{};
  bool any_ = false;
  std::vector<Op> more_;
  undo_detail::ImageStore<T> images_;
  std::vector<GID> ids_;
};

template <class T, class IDPolicy>
std::unique_ptr<TableUndoLog<T, IDPolicy>> TableUndoLog<T, IDPolicy>::Make(const Where& where, bool takesOne) {
  class WithRoom final : public TableUndoLog {
   public:
    explicit WithRoom(const Where& w) : TableUndoLog(w) { this->images_.LendFirst(&room_); }
    ~WithRoom() override { this->images_.Clear(); }  // before the room goes

   private:
    typename undo_detail::ImageStore<T>::Raw room_;
  };
  if (takesOne) return std::make_unique<WithRoom>(where);
  return std::make_unique<TableUndoLog>(where);
}

template <class T, class IDPolicy>
std::vector<GID> TableUndoLog<T, IDPolicy>::Sorted(std::vector<GID> ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace v7
