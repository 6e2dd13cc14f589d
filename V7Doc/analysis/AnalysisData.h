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
};

// One entry per analysis: the analysis GID and its data, sorted by GID. In a
// document it follows the analyses table through the declaration of its
// entries: deleted analyses lose their entry, renumbered ones are re-keyed
// (order kept), and the references the data declares are repaired.
template <class T>
class AnalysisDataByAnalysisID : public IQVContainer {
 public:
  using Entry = std::pair<GID, T>;

  // The data of `analysis`, created with its defaults when absent. Creating
  // an entry moves the others: a reference from an earlier Get is then stale.
  T& Get(GID analysis) {
    auto it = LowerBound(analysis);
    if (it == entries_.end() || it->first != analysis) {
      T data;
      data.DataInit();
      it = entries_.insert(it, {analysis, std::move(data)});
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
    if (it != entries_.end() && it->first == analysis) entries_.erase(it);
  }
  const std::vector<Entry>& Entries() const { return entries_; }
  // For the persistence declaration, which fills the list wholesale; a list
  // so filled is put back in order by OnUpdateCalculatedValues.
  std::vector<Entry>& Entries() { return entries_; }
  std::size_t Size() const { return entries_.size(); }

  void Clear() override { entries_.clear(); }

  // Entries in ascending analysis order, one per analysis (the last of
  // duplicates wins, as it would have on a second Get), none for analysis 0.
  void OnUpdateCalculatedValues() override {
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const Entry& a, const Entry& b) { return a.first < b.first; });
    std::vector<Entry> kept;
    kept.reserve(entries_.size());
    for (auto& e : entries_) {
      if (e.first == 0) continue;
      if (!kept.empty() && kept.back().first == e.first) kept.back() = std::move(e);
      else kept.push_back(std::move(e));
    }
    entries_ = std::move(kept);
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

 private:
  typename std::vector<Entry>::iterator LowerBound(GID a) {
    return std::lower_bound(entries_.begin(), entries_.end(), a,
                            [](const Entry& e, GID x) { return e.first < x; });
  }
  std::vector<Entry> entries_;
};

}  // namespace v7
