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
// numbers back and puts dropped list elements back (newest first), redo
// does the repair again. A site is found again by its way from the
// collection; replaying in order keeps that valid, each entry finding the
// document as the repair left it (or found it). List positions are kept as
// they are once the repair is done, so that the elements a repair drops
// from a list go back one by one in reverse.
class RepairLog final : public UndoEntry {
 public:
  using Frames = std::vector<oc::RefVisitor::Frame>;
  // `m` is the collection whose elements the walk went through, at
  // `field`; null when the walk went through the references of the record
  // at `field` itself (a document's own settings).
  RepairLog(const oc::Member* m, void* field) : m_(m), field_(field) {}

  // Records the change of the reference that `frames` lead to (during the
  // walk, before the change is written). False when it cannot be put back.
  bool Add(const oc::RefSite& site, const Frames& frames, std::uint32_t before, std::uint32_t after) {
    if (!NumberAt(frames)) return AddWhole(frames);
    const std::size_t list = InnermostList(frames);
    const bool dropped = after == 0 && list != kNone &&
                         (list + 1 == frames.size() ||
                          (site.member->traits.flags & meta::MetaDataTraits::DropWhenGone) != 0);
    Site rec{Settled(frames), before, after, dropped ? list + 1 : 0, 0, {}};
    if (dropped) {
      // Several references of one element may go: the element drops once.
      for (const Drop& d : drops_)
        if (d.list == list && SamePrefix(d.frames, frames, list + 1)) return true;
      const oc::Member& lm = *frames[list].member;
      void* elem = Target(frames, list + 1);
      if (lm.element_type == oc::ValueType::Struct && lm.record) {
        rec.image = oc::OCObject(lm.record());
        lm.record().Ops().copy(rec.image.get(), elem);
      } else {
        rec.number = *static_cast<const std::uint32_t*>(elem);
      }
      drops_.push_back({frames, list});
    }
    sites_.push_back(std::move(rec));
    return true;
  }
  bool Empty() const { return sites_.empty(); }

  // A reference without a field of its own (a hook's): the whole table
  // record that holds it is kept, once, as it was before the repair.
  bool AddWhole(const Frames& frames) {
    if (!m_ || frames.empty() || !frames[0].member || !frames[0].member->table || !frames[0].member->record)
      return false;
    for (const Site& s : sites_)
      if (s.whole && s.frames[0].index == frames[0].index) return true;
    const oc::RecordType& type = frames[0].member->record();
    Site rec{{frames[0]}, 0, 0, 0, 0, oc::OCObject(type)};
    rec.whole = true;
    type.Ops().copy(rec.image.get(), Target(frames, 1));
    sites_.push_back(std::move(rec));
    return true;
  }

  void Undo() override {
    for (std::size_t i = sites_.size(); i > 0; --i) {
      Site& s = sites_[i - 1];
      if (s.whole) SwapWhole(s);
      else if (s.drop) Insert(s);
      else Write(s, s.before);
    }
  }
  void Redo() override {
    for (Site& s : sites_) {
      if (s.whole) SwapWhole(s);
      else if (s.drop) Remove(s);
      else Write(s, s.after);
    }
  }
  std::size_t Bytes() const override {
    std::size_t n = sizeof(*this) + sites_.capacity() * sizeof(Site);
    for (const Site& s : sites_) n += s.frames.capacity() * sizeof(oc::RefVisitor::Frame);
    return n;
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  struct Site {
    Frames frames;  // list positions as the repair leaves them
    std::uint32_t before, after;
    std::size_t drop;      // 0, or the frame count of the dropped element
    std::uint32_t number;  // a dropped number
    oc::OCObject image;    // a dropped record, or the whole record
    bool whole = false;    // image is the table record frames[0] names
  };
  struct Drop {
    Frames frames;  // as the walk met them
    std::size_t list;
  };

  static bool IsList(const oc::RefVisitor::Frame& f) {
    return f.has_index && f.member && f.member->seq && !f.member->table &&
           f.member->seq->MaxSize() == static_cast<std::size_t>(-1);
  }
  static std::size_t InnermostList(const Frames& frames) {
    for (std::size_t k = frames.size(); k > 0; --k)
      if (IsList(frames[k - 1])) return k - 1;
    return kNone;
  }
  static bool SamePrefix(const Frames& a, const Frames& b, std::size_t n) {
    if (a.size() < n || b.size() < n) return false;
    for (std::size_t k = 0; k < n; ++k)
      if (a[k].member != b[k].member || a[k].index != b[k].index || a[k].has_index != b[k].has_index)
        return false;
    return true;
  }
  // The way as it will be once the walk has squeezed out the elements it
  // drops before this one.
  Frames Settled(const Frames& frames) const {
    Frames out = frames;
    for (std::size_t k = 0; k < frames.size(); ++k) {
      if (!IsList(frames[k])) continue;
      std::uint64_t before = 0;
      for (const Drop& d : drops_)
        if (d.list == k && SamePrefix(d.frames, frames, k) && d.frames[k].member == frames[k].member &&
            d.frames[k].index < frames[k].index)
          ++before;
      out[k].index -= before;
    }
    return out;
  }

  void SwapWhole(Site& s) {
    void* rec = Target(s.frames, 1);
    if (!rec) return;
    const oc::RecordOps& ops = s.image.type()->Ops();
    oc::OCObject now(*s.image.type());
    ops.copy(now.get(), rec);
    ops.copy(rec, s.image.get());
    s.image = std::move(now);
  }
  void Write(const Site& s, std::uint32_t value) {
    if (std::uint32_t* p = NumberAt(s.frames)) *p = value;
  }
  // The list the dropped element belongs to (null when it is gone), its
  // length and the element's position.
  struct DropList {
    void* list = nullptr;
    const oc::SequenceOps* seq = nullptr;
    std::size_t size = 0, pos = 0;
  };
  DropList ListOf(const Site& s) const {
    const std::size_t k = s.drop - 1;
    const oc::Member* lm = s.frames[k].member;
    DropList d;
    d.pos = static_cast<std::size_t>(s.frames[k].index);
    if (k == 0 && m_) d.list = field_;
    else if (void* owner = k == 0 ? field_ : Target(s.frames, k)) d.list = lm->access->Field(owner);
    if (!d.list) return d;
    d.seq = lm->seq.get();
    d.size = d.seq->Size(d.list);
    return d;
  }
  void Insert(const Site& s) {
    const DropList d = ListOf(s);
    if (!d.list || d.pos > d.size) return;
    d.seq->Resize(d.list, d.size + 1);
    for (std::size_t j = d.size; j > d.pos; --j) d.seq->MoveElement(d.list, j, j - 1);
    void* elem = d.seq->At(d.list, d.pos);
    if (s.image.get()) s.image.type()->Ops().copy(elem, s.image.get());
    else *static_cast<std::uint32_t*>(elem) = s.number;
  }
  void Remove(const Site& s) {
    const DropList d = ListOf(s);
    if (!d.list || d.pos >= d.size) return;
    for (std::size_t j = d.pos; j + 1 < d.size; ++j) d.seq->MoveElement(d.list, j, j + 1);
    d.seq->Resize(d.list, d.size - 1);
  }

  void* Target(const Frames& frames, std::size_t count) const {
    return m_ ? oc::RefTarget(*m_, field_, frames, count) : oc::RefTargetInRecord(field_, frames, count);
  }
  std::uint32_t* NumberAt(const Frames& frames) const {
    return m_ ? oc::RefAt(*m_, field_, frames) : oc::RefAtInRecord(field_, frames);
  }

  const oc::Member* m_;
  void* field_;
  std::vector<Site> sites_;
  std::vector<Drop> drops_;
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
  std::uint32_t Visit(const oc::RefSite& site, std::uint32_t value) override {
    const std::uint32_t now = map_(value);
    if (now == value) return value;
    repair.changed = true;
    if (!log_ || !log_->Add(site, Frames(), value, now)) repair.restorable = false;
    return now;
  }
  DeclaredReferences::Repair repair;

 private:
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
  std::unique_ptr<RepairLog> log;
  if (history) log = std::make_unique<RepairLog>(member_, field_);
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
