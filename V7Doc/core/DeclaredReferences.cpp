#include "V7Doc/core/DeclaredReferences.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "OC/RecordType.h"
#include "OC/References.h"
#include "V7Doc/core/UndoHistory.h"

namespace v7 {
namespace {

// One use: record `used` of the queried container is named by `holder`.
struct Use {
  GID used;
  GID holder;
};

class UsageCollector final : public oc::RefVisitor {
 public:
  UsageCollector(GID container, std::vector<Use>& uses) : container_(container), uses_(uses) {}
  bool Wants(std::uint32_t c) const override { return c == container_; }
  void OnElement(std::uint32_t holder) override { holder_ = holder; }
  std::uint32_t Visit(const oc::RefSite&, std::uint32_t value) override {
    uses_.push_back({value, holder_});
    return value;
  }

 private:
  GID container_;
  GID holder_ = 0;
  std::vector<Use>& uses_;
};

// Orders the uses by the record used, stably (each record's holders stay in
// table order), by a least-significant-digit radix sort: the list is then
// filled front to back. Appending to the lists in the random order of the
// references instead costs a cache miss per use once the list outgrows
// the cache, which made a query on a million records several times dearer
// per record than one on a thousand.
void SortByUsed(std::vector<Use>& uses, GID max_used) {
  constexpr unsigned kBits = 11;
  constexpr std::size_t kBuckets = std::size_t{1} << kBits;
  std::vector<Use> tmp(uses.size());
  std::vector<std::size_t> count(kBuckets);
  for (unsigned shift = 0; shift < 32 && (max_used >> shift) != 0; shift += kBits) {
    std::fill(count.begin(), count.end(), 0);
    for (const Use& u : uses) ++count[(u.used >> shift) & (kBuckets - 1)];
    std::size_t sum = 0;
    for (auto& c : count) sum += std::exchange(c, sum);
    for (const Use& u : uses) tmp[count[(u.used >> shift) & (kBuckets - 1)]++] = u;
    uses.swap(tmp);
  }
}

// The references one repair changed, site by site: undo writes the old
// numbers back (newest first), redo the new ones. A site is found again by
// its way from the collection, which the replay order keeps valid: each
// entry finds the document as the repair left it (or found it).
class RepairLog final : public UndoEntry {
 public:
  RepairLog(const oc::Member& m, void* field) : m_(m), field_(field) {}
  // False when the site cannot be found again by its way.
  bool Add(const std::vector<oc::RefVisitor::Frame>& frames, std::uint32_t before, std::uint32_t after) {
    if (!oc::RefAt(m_, field_, frames)) return false;
    sites_.push_back({frames, before, after});
    return true;
  }
  bool Empty() const { return sites_.empty(); }
  void Undo() override {
    for (std::size_t i = sites_.size(); i > 0; --i) Write(sites_[i - 1], sites_[i - 1].before);
  }
  void Redo() override {
    for (const Site& s : sites_) Write(s, s.after);
  }
  std::size_t Bytes() const override {
    std::size_t n = sizeof(*this) + sites_.capacity() * sizeof(Site);
    for (const Site& s : sites_) n += s.frames.capacity() * sizeof(oc::RefVisitor::Frame);
    return n;
  }

 private:
  struct Site {
    std::vector<oc::RefVisitor::Frame> frames;
    std::uint32_t before, after;
  };
  void Write(const Site& s, std::uint32_t value) {
    if (std::uint32_t* p = oc::RefAt(m_, field_, s.frames)) *p = value;
  }
  const oc::Member& m_;
  void* field_;
  std::vector<Site> sites_;
};

// Gives every reference a new number through `map`, recording each change
// into `log` when there is one.
template <class Map>
class Remapper final : public oc::RefVisitor {
 public:
  Remapper(GID container, Map map, RepairLog* log) : container_(container), map_(map), log_(log) {
    TrackPath(log != nullptr);
  }
  bool Wants(std::uint32_t c) const override { return c == container_; }
  std::uint32_t Visit(const oc::RefSite&, std::uint32_t value) override {
    const std::uint32_t now = map_(value);
    if (now == value) return value;
    repair.changed = true;
    if (!log_) {
      repair.restorable = false;
    } else if (now == 0 && InList()) {
      // A cleared number in a list may take its element out of the list,
      // which a site-by-site record cannot put back.
      repair.restorable = false;
    } else if (!log_->Add(Frames(), value, now)) {
      repair.restorable = false;
    }
    return now;
  }
  DeclaredReferences::Repair repair;

 private:
  bool InList() const {
    for (const Frame& f : Frames())
      if (f.has_index && f.member && f.member->seq && !f.member->table) return true;
    return false;
  }
  GID container_;
  Map map_;
  RepairLog* log_;
};

}  // namespace

DeclaredReferences::DeclaredReferences(const oc::Member& collection, void* field)
    : member_(&collection), field_(field), plan_(&oc::ElementRefPlan(collection)) {}

DeclaredReferences::DeclaredReferences(const oc::RecordType& type, void* record)
    : member_(nullptr), field_(record), plan_(&oc::OwnRefPlanOf(type)) {}

void DeclaredReferences::Walk(oc::RefVisitor& visitor) const {
  if (member_) oc::ForEachRefIn(*member_, field_, visitor);
  else oc::ForEachRef(*plan_, field_, visitor);
}

const std::vector<GID>& DeclaredReferences::Targets(bool& any) const {
  return oc::RefTargets(*plan_, any);
}

bool DeclaredReferences::RefersTo(GID container) const {
  bool any = false;
  const auto& t = Targets(any);
  return any || std::binary_search(t.begin(), t.end(), container);
}

void DeclaredReferences::AppendUsage(GID self, GID container, UsageList& usage) const {
  std::vector<Use> uses;
  if (member_ && member_->table) uses.reserve(member_->table->Size(field_));  // usually one reference a record
  UsageCollector collect(container, uses);
  Walk(collect);
  if (uses.empty()) return;
  GID max_used = 0;
  for (const Use& u : uses) max_used = std::max(max_used, u.used);
  if (max_used >= usage.size()) usage.resize(static_cast<std::size_t>(max_used) + 1);
  SortByUsed(uses, max_used);
  for (std::size_t i = 0; i < uses.size();) {
    std::size_t j = i;
    while (j < uses.size() && uses[j].used == uses[i].used) ++j;
    auto& list = usage[uses[i].used];
    list.reserve(list.size() + (j - i));
    // A holder naming the record twice is one user: its uses are adjacent.
    for (std::size_t k = i; k < j; ++k)
      if (k == i || uses[k].holder != uses[k - 1].holder) list.push_back(GGID(self, uses[k].holder));
    i = j;
  }
}

template <class Map>
DeclaredReferences::Repair DeclaredReferences::Remap(GID container, Map map, UndoHistory* history) {
  // Only a collection's elements have a way to their references.
  std::unique_ptr<RepairLog> log;
  if (history && member_) log = std::make_unique<RepairLog>(*member_, field_);
  Remapper<Map> r(container, map, log.get());
  Walk(r);
  if (log && !log->Empty()) history->Record(std::move(log));
  return r.repair;
}

DeclaredReferences::Repair DeclaredReferences::Renumber(GID container, const std::vector<GID>& renumber,
                                                        UndoHistory* history) {
  auto map = [&renumber](std::uint32_t v) -> std::uint32_t {
    return v < renumber.size() ? renumber[v] : 0;
  };
  return Remap(container, map, history);
}

DeclaredReferences::Repair DeclaredReferences::Forget(GID container, const std::vector<GID>& ids,
                                                      UndoHistory* history) {
  auto map = [&ids](std::uint32_t v) -> std::uint32_t {
    return std::binary_search(ids.begin(), ids.end(), v) ? 0 : v;
  };
  return Remap(container, map, history);
}

}  // namespace v7
