#pragma once
// Data that only one analysis kind needs, held per analysis in the
// containers 61 to 67 ("SoluteItems" ... "EvapoItems").
#include <algorithm>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "V7Doc/core/IQVContainer.h"
#include "V7Doc/core/NestedTableOwner.h"
#include "V7Doc/core/QVContainerManager.h"

namespace v7 {

class AnalysisData {
 public:
  virtual ~AnalysisData() = default;
  // Resets to the defaults.
  virtual void DataInit() = 0;
  // Squeezes out deleted entries of the data's own lists.
  virtual void FullCompact() {}
  // Copies `other`, which is of the same type.
  virtual void Assign(const AnalysisData& other) = 0;
  virtual bool IsEqual(const AnalysisData& other) const = 0;
  // Appends, for the analysis `analysis`, the references this data holds to
  // records of `container` beyond those its declaration names (the
  // declared ones answer through the container manager by themselves).
  virtual void OnGetUsageOf(GID analysis, const GID& container, UsageList& usage) const {
    (void)analysis;
    (void)container;
    (void)usage;
  }
  // The undoable tables the data holds (NestedTableOwner.h): table `i`,
  // numbered from 0, null past the last; and attaching them to `owner`.
  virtual IQVContainer* NestedTable(std::uint32_t i) {
    (void)i;
    return nullptr;
  }
  virtual void AttachNested(NestedTableOwner* owner) { (void)owner; }
};

// One entry per analysis: the analysis GID and its data, sorted by GID. In a
// document it follows the analyses table through the declaration of its
// entries: deleted analyses lose their entry, renumbered ones are re-keyed
// (order kept), and the references the data declares are repaired.
//
// Undo. The entries themselves are not recorded (the analyses table, which
// they follow, is not either), but the undoable tables inside the data
// record their edits, known by analysis ID and table number
// (NestedTableOwner.h); the entries attach them whenever Get hands data
// out or the list changes. The recorded repairs of the data's references
// find their sites by the entry's position. So a change of the list that
// the history does not record and that moves or replaces an entry's data
// drops the history: an entry erased, put before others, the list
// cleared or refilled (a deleted or renumbered analysis drops it through
// the repair of the keys, and data assigned to an entry through its
// tables).
template <class T>
class AnalysisDataByAnalysisID : public IQVContainer, public NestedTableOwner {
 public:
  using Entry = std::pair<GID, T>;

  // The data of `analysis`, created with its defaults when absent. Creating
  // an entry moves the others: a reference from an earlier Get is then stale.
  T& Get(GID analysis) {
    auto it = LowerBound(analysis);
    if (it == entries_.end() || it->first != analysis) {
      if (it != entries_.end()) Unrecorded();
      T data;
      data.DataInit();
      it = entries_.insert(it, {analysis, std::move(data)});
      AttachAll();
    } else {
      it->second.AttachNested(this);
    }
    return it->second;
  }
  // Null when the analysis has no entry.
  const T* Find(GID analysis) const {
    auto it = std::lower_bound(entries_.begin(), entries_.end(), analysis,
                               [](const Entry& e, GID a) { return e.first < a; });
    return it != entries_.end() && it->first == analysis ? &it->second : nullptr;
  }
  void Erase(GID analysis) {
    auto it = LowerBound(analysis);
    if (it == entries_.end() || it->first != analysis) return;
    Unrecorded();
    entries_.erase(it);
    AttachAll();
  }
  const std::vector<Entry>& Entries() const { return entries_; }
  // For the persistence declaration, which fills the list wholesale; a list
  // so filled is put back in order by OnUpdateCalculatedValues. Every way
  // to the data that can change it (this, Get) attaches the tables first:
  // a list moved in from another owner brings their old attachment along.
  std::vector<Entry>& Entries() {
    AttachAll();
    return entries_;
  }
  std::size_t Size() const { return entries_.size(); }

  void Clear() override {
    if (!entries_.empty()) Unrecorded();
    entries_.clear();
  }

  // Entries in ascending analysis order, one per analysis (the last of
  // duplicates wins, as it would have on a second Get), none for analysis 0.
  void OnUpdateCalculatedValues() override {
    AttachAll();
    auto before = [](const Entry& a, const Entry& b) { return a.first < b.first; };
    if (std::adjacent_find(entries_.begin(), entries_.end(), std::not_fn(before)) == entries_.end() &&
        (entries_.empty() || entries_.front().first != 0))
      return;  // in order already (what a load of a saved document gives)
    Unrecorded();
    std::stable_sort(entries_.begin(), entries_.end(), before);
    std::vector<Entry> kept;
    kept.reserve(entries_.size());
    for (auto& e : entries_) {
      if (e.first == 0) continue;
      if (!kept.empty() && kept.back().first == e.first) kept.back() = std::move(e);
      else kept.push_back(std::move(e));
    }
    entries_ = std::move(kept);
    AttachAll();
  }

  // Nothing of its own is renumbered; every entry's data compacts its lists.
  void FullCompact(std::vector<GID>& renumber) override {
    renumber.clear();
    for (auto& e : entries_) e.second.FullCompact();
  }

  // What the entries' data hold beyond their declared references.
  void OnGetUsageOf(GID container, UsageList& usage) override {
    for (const auto& e : entries_) e.second.OnGetUsageOf(e.first, container, usage);
  }

  // NestedTableOwner: a table is placed by its analysis and its number in
  // the data.
  bool PlaceOf(const IQVContainer& table, Place& place) override {
    for (auto& e : entries_)
      for (std::uint32_t i = 0; IQVContainer* t = e.second.NestedTable(i); ++i)
        if (t == &table) {
          place = {e.first, i};
          return true;
        }
    return false;
  }
  IQVContainer* TableAt(const Place& place) override {
    auto it = LowerBound(place.key);
    return it != entries_.end() && it->first == place.key ? it->second.NestedTable(place.table) : nullptr;
  }
  UndoHistory* History() override { return IsRegistered() ? &Manager().History() : nullptr; }

 private:
  void AttachAll() {
    for (auto& e : entries_) e.second.AttachNested(this);
  }
  // An unrecorded change of the list that could mislead the history.
  void Unrecorded() {
    if (UndoHistory* h = History(); h && !h->Replaying()) h->Unrestorable();
  }

  typename std::vector<Entry>::iterator LowerBound(GID a) {
    return std::lower_bound(entries_.begin(), entries_.end(), a,
                            [](const Entry& e, GID x) { return e.first < x; });
  }
  std::vector<Entry> entries_;
};

}  // namespace v7
