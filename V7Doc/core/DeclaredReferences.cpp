#include "V7Doc/core/DeclaredReferences.h"

#include <algorithm>
#include <utility>

#include "OC/RecordType.h"
#include "OC/References.h"

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

// Gives every reference a new number through `map`.
template <class Map>
class Remapper final : public oc::RefVisitor {
 public:
  Remapper(GID container, Map map) : container_(container), map_(map) {}
  bool Wants(std::uint32_t c) const override { return c == container_; }
  std::uint32_t Visit(const oc::RefSite&, std::uint32_t value) override { return map_(value); }

 private:
  GID container_;
  Map map_;
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

void DeclaredReferences::Renumber(GID container, const std::vector<GID>& renumber) {
  auto map = [&renumber](std::uint32_t v) -> std::uint32_t {
    return v < renumber.size() ? renumber[v] : 0;
  };
  Remapper<decltype(map)> r(container, map);
  Walk(r);
}

void DeclaredReferences::Forget(GID container, const std::vector<GID>& ids) {
  auto map = [&ids](std::uint32_t v) -> std::uint32_t {
    return std::binary_search(ids.begin(), ids.end(), v) ? 0 : v;
  };
  Remapper<decltype(map)> r(container, map);
  Walk(r);
}

}  // namespace v7
