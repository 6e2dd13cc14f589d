#pragma once
// The record table: a growable array of records in which a record's GID is its
// one-based position. Deleting leaves a tombstone in the slot, so other
// records keep their IDs; only FullCompact renumbers, and it hands back the
// old-to-new map.
//
// Registered tables send change notices (IQVChangeListener) to their
// subscribers: Add and Resize report the new IDs, Delete, Reserve/Resize
// shrinking and Clear report the live IDs they removed, FullCompact reports
// its renumbering map when it moved anything.
//
// Under QVContainerOpUndoPolicy a registered table records each operation
// into its manager's undo history (TableUndoLog.h), one step per operation
// unless a transaction is open; so does a table inside another container's
// records once that container attaches it (NestedTableOwner.h). A record is
// changed undoably through Change; writing through At or operator[] is not
// recorded. Assigning other records to such a table is not recorded
// either: it drops the history, which could no longer restore the table.
#include <algorithm>
#include <cassert>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#include "V7Doc/core/CompressedIterator.h"
#include "V7Doc/core/IQVContainer.h"
#include "V7Doc/core/NestedTableOwner.h"
#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/TableUndoLog.h"

namespace v7 {

template <class T, class IDPolicy = QVContainerNoStoredIDPolicy<T>,
          class OpPolicy = QVContainerOpPolicy<T>,
          class StoragePolicy = QVContainerVectorStoragePolicy<T>, class Base = IQVContainer>
class QVContainerTable : public Base {
 public:
  using value_type = T;
  using id_policy = IDPolicy;
  using op_policy = OpPolicy;
  using storage_type = typename StoragePolicy::container_type;
  using traits_type = CompressedIteratorTraits<IDPolicy>;
  using iterator = CompressedIterator<storage_type, traits_type>;
  using const_iterator = CompressedIterator<const storage_type, traits_type>;

  QVContainerTable() = default;
  QVContainerTable(const QVContainerTable&) = default;
  QVContainerTable(QVContainerTable&&) = default;
  // Assigning keeps the table's own registration and attachment.
  QVContainerTable& operator=(const QVContainerTable& o) {
    if (this != &o) {
      Replacing(o.slots_);
      Base::operator=(o);
      slots_ = o.slots_;
    }
    return *this;
  }
  QVContainerTable& operator=(QVContainerTable&& o) {
    if (this != &o) {
      Replacing(o.slots_);
      Base::operator=(o);
      slots_ = std::move(o.slots_);
    }
    return *this;
  }

  // Records this table's edits into the history of `owner`, whose records
  // hold it (null: records nothing). For undoable tables that are not
  // registered; the owner calls it.
  void AttachTo(NestedTableOwner* owner) { link_.owner = owner; }

  // Trims trailing tombstones, then appends a copy of `rec` as the last slot.
  // The new record's ID is the slot count after the append.
  iterator Add(const T& rec) {
    const std::less<const T*> before;
    if (!slots_.empty() && !before(&rec, slots_.data()) && before(&rec, slots_.data() + slots_.size()))
      return Add(T(rec));  // `rec` lives in a slot that Compact may destroy
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    Trim(log);
    slots_.push_back(rec);
    return Added(log);
  }
  iterator Add(T&& rec) {
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    Trim(log);
    slots_.push_back(std::move(rec));
    return Added(log);
  }

  // Replaces live record `id` by `rec` (through the record's undo
  // assignment; a stored ID stays). A record equal to `rec` for undo is left
  // alone and costs nothing. False when `id` names no live record.
  bool Change(const GID& id, const T& rec) {
    if (!IsLiveSlot(id)) return false;
    T& slot = slots_[id - 1];
    if (undo_detail::Equal(slot, rec)) return true;
    UndoHistory* h = History();
    op_scope scope(h);
    // `rec` is not the slot itself here (that would have been equal).
    if (undo_log* log = Log(h, true)) log->Replace(id - 1);
    undo_detail::Assign(slot, rec);
    IDPolicy::SetID(slot, id);
    return true;
  }

  // Turns each listed live record into a tombstone; invalid or already
  // deleted IDs are skipped. Then trims trailing tombstones.
  void Delete(const std::vector<GID>& ids) {
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h, ids.size() == 1);
    std::vector<GID> deleted;
    for (GID id : ids) {
      if (Find(id) == end()) continue;
      if (log) log->Replace(id - 1);
      IDPolicy::SetMissing(slots_[id - 1]);
      deleted.push_back(id);
    }
    Trim(log);
    if (!deleted.empty()) {
      std::sort(deleted.begin(), deleted.end());
      if (log) log->Notice(undo_log::Kind::Delete, deleted);
      NotifyDelete(*this, deleted);
    }
  }

  // Destroys trailing tombstones. Never renumbers.
  virtual void Compact() {
    UndoHistory* h = History();
    op_scope scope(h);
    Trim(Log(h));
  }

  // Squeezes out every tombstone, keeping order. `renumber[old]` is the new
  // ID of each old record and 0 for a deleted one; renumber[0] is 0.
  void FullCompact(std::vector<GID>& renumber) override {
    renumber.assign(slots_.size() + 1, 0);
    std::size_t w = 0;
    bool anyMissing = false;
    for (const T& rec : slots_) anyMissing = anyMissing || IDPolicy::IsMissing(rec);
    if (!anyMissing) {
      for (std::size_t i = 0; i < slots_.size(); ++i) renumber[i + 1] = static_cast<GID>(i + 1);
      return;
    }
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    // Swapping (rather than moving) keeps every slot whole, so that the
    // log can swap back: the slots between w and i are all tombstones.
    for (std::size_t i = 0; i < slots_.size(); ++i) {
      if (IDPolicy::IsMissing(slots_[i])) continue;
      if (i != w) {
        std::swap(slots_[w], slots_[i]);
        IDPolicy::SetID(slots_[w], static_cast<GID>(w + 1));
        if (log) log->Swap(w, i);
      }
      ++w;
      renumber[i + 1] = static_cast<GID>(w);
    }
    while (slots_.size() > w) PopSlot(log);
    if (log) log->Notice(undo_log::Kind::Renumber, renumber);
    NotifyIDUpdate(*this, renumber);
  }

  // The live record with this ID, or end().
  iterator Find(const GID& id) {
    if (!IsLiveSlot(id)) return end();
    return iterator(&slots_, id - 1, false);
  }
  const_iterator Find(const GID& id) const {
    if (!IsLiveSlot(id)) return end();
    return const_iterator(&slots_, id - 1, false);
  }
  // The slot that `p` points into, or end() when it is outside the table.
  iterator Find(const T* p) {
    const std::less<const T*> before;
    if (slots_.empty() || before(p, slots_.data()) || !before(p, slots_.data() + slots_.size()))
      return end();
    return iterator(&slots_, static_cast<std::size_t>(p - slots_.data()), false);
  }

  // True for the ID of a live record.
  bool IsValidID(const GID& id) const {
    if (id == 0 || id > slots_.size()) return false;
    return Find(id) != end();
  }

  // Unchecked access by ID (one-based) and by slot (zero-based).
  T& At(const GID& id) {
    assert(id >= 1 && id <= slots_.size());
    return slots_[id - 1];
  }
  const T& At(const GID& id) const {
    assert(id >= 1 && id <= slots_.size());
    return slots_[id - 1];
  }
  T& operator[](unsigned i) {
    assert(i < slots_.size());
    return slots_[i];
  }
  const T& operator[](unsigned i) const {
    assert(i < slots_.size());
    return slots_[i];
  }

  // The slot count, tombstones included: the highest ID in use.
  std::size_t Size() const { return slots_.size(); }
  // True when there are no slots at all, not even tombstones.
  bool IsEmpty() const { return slots_.empty(); }

  // Sets the slot count to `n`; new slots are tombstones. For loading records
  // with known IDs: reserve up to the highest ID, then fill the live slots.
  void Reserve(std::size_t n) {
    if (n < slots_.size()) return Shrink(n);
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    const std::size_t old = slots_.size();
    slots_.resize(n);
    for (std::size_t i = old; i < n; ++i) {
      IDPolicy::SetMissing(slots_[i]);
      if (log) log->Push();
    }
  }

  // Makes room for `n` slots without adding any, so that a load placing
  // records one by one does not move the earlier ones each time it grows.
  void ReserveCapacity(std::size_t n) {
    if constexpr (requires(storage_type& s, std::size_t k) { s.reserve(k); }) slots_.reserve(n);
  }

  // Sets the slot count to `n`; new slots are default live records (stored
  // IDs set to position + 1).
  void Resize(std::size_t n) {
    if (n < slots_.size()) return Shrink(n);
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    const std::size_t old = slots_.size();
    slots_.resize(n);
    std::vector<GID> added;
    for (std::size_t i = old; i < n; ++i) {
      IDPolicy::SetID(slots_[i], static_cast<GID>(i + 1));
      if (log) log->Push();
      if (this->IsRegistered()) added.push_back(static_cast<GID>(i + 1));
    }
    if (!added.empty()) {
      if (log) log->Notice(undo_log::Kind::Add, added);
      NotifyAdd(*this, added);
    }
  }

  // Destroys every slot.
  void Clear() override { Shrink(0); }

  // The live records in ID order.
  iterator begin() { return iterator(&slots_, 0); }
  iterator end() { return iterator(&slots_, slots_.size(), false); }
  const_iterator begin() const { return const_iterator(&slots_, 0); }
  const_iterator end() const { return const_iterator(&slots_, slots_.size(), false); }

  // Answers the manager's self-query (MaxID) by sizing the list to the highest
  // ID plus one, so that a usage query can index it by any ID of this table.
  void OnGetUsageOf(GID container, UsageList& usage) override {
    if (container == this->ID() && usage.size() < slots_.size() + 1) usage.resize(slots_.size() + 1);
  }

  // Overrides IQVContainer::HoldsRecord when the base is a container.
  bool HoldsRecord(GID id) const { return IsLiveSlot(id); }

  // Whether slot `id` holds a tombstone (for readers of the raw slots).
  bool IsMissingSlot(const GID& id) const { return !IsLiveSlot(id); }
  // The raw slots, tombstones included.
  const storage_type& Slots() const { return slots_; }

  friend bool operator==(const QVContainerTable& a, const QVContainerTable& b) {
    return a.slots_ == b.slots_;
  }

 private:
  bool IsLiveSlot(const GID& id) const {
    return id != 0 && id - 1 < slots_.size() && !IDPolicy::IsMissing(slots_[id - 1]);
  }

  // Undoable tables log into their manager's history; plain ones have a
  // log type that does nothing and is never made.
  struct NoUndoLog {
    enum class Kind { Add, Delete, Renumber };
    void Replace(std::size_t) {}
    void Push() {}
    void Pop() {}
    void Swap(std::size_t, std::size_t) {}
    void Notice(Kind, GID) {}
    void Notice(Kind, const std::vector<GID>&) {}
  };
  using undo_log =
      std::conditional_t<OpPolicy::kRecordsUndo, TableUndoLog<T, IDPolicy>, NoUndoLog>;
  struct NoScope {
    explicit NoScope(UndoHistory*) {}
  };
  using op_scope = std::conditional_t<OpPolicy::kRecordsUndo, UndoHistory::Scope, NoScope>;

  // The history this table's edits go to, recording or not; null when none.
  UndoHistory* AnyHistory() const {
    if constexpr (OpPolicy::kRecordsUndo) {
      if (this->IsRegistered()) return HistoryOf(*this);
      return link_.owner ? link_.owner->History() : nullptr;
    } else {
      return nullptr;
    }
  }
  UndoHistory* History() const {
    if constexpr (OpPolicy::kRecordsUndo) {
      if (this->IsRegistered()) return RecordingHistoryOf(*this);
      UndoHistory* h = link_.owner ? link_.owner->History() : nullptr;
      return h && h->Recording() ? h : nullptr;
    } else {
      return nullptr;
    }
  }
  // This operation's log: the one the open step already has for this table,
  // or a new one; null when nothing is recorded (a nested table that its
  // owner does not hold: a copy). `takesOne`: the operation takes one
  // record out (a change, the deletion of one).
  undo_log* Log(UndoHistory* h, bool takesOne = false) {
    if constexpr (OpPolicy::kRecordsUndo) {
      if (!h) return nullptr;
      typename undo_log::Where where;
      if (this->IsRegistered()) {
        where.slots = &slots_;
        where.table = this;
      } else if (link_.owner && link_.owner->PlaceOf(*this, where.place)) {
        where.owner = link_.owner;
        where.slotsOf = &SlotsOf;
      } else {
        return nullptr;
      }
      if (UndoEntry* e = h->LastEntry(where.owner ? undo_log::NestedTag() : &slots_))
        if (auto* log = static_cast<undo_log*>(e); log->Logs(where)) return log->Open(slots_);
      auto log = undo_log::Make(where, takesOne);
      undo_log* raw = log.get();
      h->Record(std::move(log));
      return raw->Open(slots_);
    } else {
      (void)h, (void)takesOne;
      return nullptr;
    }
  }
  static storage_type& SlotsOf(IQVContainer& table) { return static_cast<QVContainerTable&>(table).slots_; }

  // An undoable table that records is given other records without a
  // record of it: its history could no longer put it back.
  void Replacing(const storage_type& next) {
    if constexpr (OpPolicy::kRecordsUndo) {
      UndoHistory* h = AnyHistory();
      if (!h || h->Replaying()) return;
      if (next.size() == slots_.size() &&
          std::equal(next.begin(), next.end(), slots_.begin(),
                     [](const T& a, const T& b) { return undo_detail::Equal(a, b); }))
        return;
      h->Unrestorable();
    } else {
      (void)next;
    }
  }

  // A nested table's attachment: per object, as a registration is.
  struct NestedLink {
    NestedTableOwner* owner = nullptr;
    NestedLink() = default;
    NestedLink(const NestedLink&) {}
    NestedLink& operator=(const NestedLink&) { return *this; }
  };

  void PopSlot(undo_log* log) {
    if (log) log->Pop();
    slots_.pop_back();
  }
  // Destroys trailing tombstones.
  void Trim(undo_log* log) {
    while (!slots_.empty() && IDPolicy::IsMissing(slots_.back())) PopSlot(log);
  }

  iterator Added(undo_log* log) {
    const auto id = static_cast<GID>(slots_.size());
    if constexpr (IDPolicy::kStoresID) {
      IDPolicy::SetID(slots_.back(), 0);
      IDPolicy::SetID(slots_.back(), id);
    }
    if (log) log->Push();
    if (this->IsRegistered()) {
      if (log) log->Notice(undo_log::Kind::Add, id);
      NotifyAdd(*this, {id});
    }
    return iterator(&slots_, slots_.size() - 1, false);
  }

  void Shrink(std::size_t n) {
    UndoHistory* h = History();
    op_scope scope(h);
    undo_log* log = Log(h);
    std::vector<GID> removed;
    if (this->IsRegistered())
      for (std::size_t i = n; i < slots_.size(); ++i)
        if (!IDPolicy::IsMissing(slots_[i])) removed.push_back(static_cast<GID>(i + 1));
    while (slots_.size() > n) PopSlot(log);
    if (!removed.empty()) {
      if (log) log->Notice(undo_log::Kind::Delete, removed);
      NotifyDelete(*this, removed);
    }
  }

  storage_type slots_;
  NestedLink link_;
};

// The named table kinds that record families derive from: the ID is the
// record's slot, not stored in the record; edits are plain, or (CustomUndo)
// recorded in the undo history of the table's manager.
template <class T>
class TQVContainerTableNoStoredID : public QVContainerTable<T> {
 public:
  TQVContainerTableNoStoredID() = default;
};

template <class T>
class TQVContainerTableNoStoredIDCustomUndo
    : public QVContainerTable<T, QVContainerNoStoredIDPolicy<T>, QVContainerOpUndoPolicy<T>> {
 public:
  TQVContainerTableNoStoredIDCustomUndo() = default;
};

}  // namespace v7
