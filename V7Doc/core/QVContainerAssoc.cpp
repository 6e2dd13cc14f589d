#include "V7Doc/core/QVContainerAssoc.h"

#include <algorithm>

namespace v7 {
namespace {
template <class Entries>
auto LowerBound(Entries& entries, GID key) {
  return std::lower_bound(entries.begin(), entries.end(), key,
                          [](const auto& e, GID k) { return e.first < k; });
}
}  // namespace

template <class V>
typename QVContainerAssoc<V>::iterator QVContainerAssoc<V>::Insert(const GID& key, const V& value) {
  auto it = LowerBound(entries_, key);
  if (it != entries_.end() && it->first == key) {
    it->second = value;
    return it;
  }
  return entries_.insert(it, {key, value});
}

template <class V>
std::size_t QVContainerAssoc<V>::Normalize() {
  const std::size_t before = entries_.size();
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const value_type& a, const value_type& b) { return a.first < b.first; });
  // Walk backwards so that the last of each run of equal keys survives.
  storage_type kept;
  kept.reserve(entries_.size());
  for (auto it = entries_.rbegin(); it != entries_.rend(); ++it)
    if (it->first != 0 && (kept.empty() || kept.back().first != it->first)) kept.push_back(*it);
  std::reverse(kept.begin(), kept.end());
  entries_ = std::move(kept);
  return before - entries_.size();
}

template <class V>
typename QVContainerAssoc<V>::iterator QVContainerAssoc<V>::Find(const GID& key) {
  auto it = LowerBound(entries_, key);
  return it != entries_.end() && it->first == key ? it : entries_.end();
}

template <class V>
typename QVContainerAssoc<V>::const_iterator QVContainerAssoc<V>::Find(const GID& key) const {
  auto it = LowerBound(entries_, key);
  return it != entries_.end() && it->first == key ? it : entries_.end();
}

template <class V>
typename QVContainerAssoc<V>::iterator QVContainerAssoc<V>::Find(const V* v) {
  for (auto it = entries_.begin(); it != entries_.end(); ++it)
    if (&it->second == v) return it;
  return entries_.end();
}

template <class V>
typename QVContainerAssoc<V>::iterator QVContainerAssoc<V>::Find(const value_type* p) {
  for (auto it = entries_.begin(); it != entries_.end(); ++it)
    if (&*it == p) return it;
  return entries_.end();
}

template <class V>
V* QVContainerAssoc<V>::Get(const GID& key) {
  auto it = Find(key);
  return it == entries_.end() ? nullptr : &it->second;
}

template <class V>
const V* QVContainerAssoc<V>::Get(const GID& key) const {
  auto it = Find(key);
  return it == entries_.end() ? nullptr : &it->second;
}

template <class V>
typename QVContainerAssoc<V>::iterator QVContainerAssoc<V>::Erase(const GID& key) {
  auto it = Find(key);
  return it == entries_.end() ? it : entries_.erase(it);
}

template <class V>
void QVContainerAssoc<V>::Erase(const std::vector<GID>& keys) {
  for (auto& e : entries_)
    if (std::find(keys.begin(), keys.end(), e.first) != keys.end()) e.first = 0;
  std::erase_if(entries_, [](const value_type& e) { return e.first == 0; });
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const value_type& a, const value_type& b) { return a.first < b.first; });
}

template <class V>
bool QVContainerAssoc<V>::Equals(const IQVContainer* other) const {
  const auto* o = dynamic_cast<const QVContainerAssoc<V>*>(other);
  return o && o->key_container_ == key_container_ && o->entries_ == entries_;
}

template <class V>
void QVContainerAssoc<V>::OnGetUsageOf(GID container, UsageList& usage) {
  if (container != key_container_ || container == 0) return;
  for (const auto& e : entries_) detail::AppendUse(usage, e.first, GGID(ID(), e.first));
}

template class QVContainerAssoc<int>;
template class QVContainerAssoc<GID>;
template class QVContainerAssoc<GGID>;

void QVContainerAssocGGID::Erase(GID record) {
  std::erase_if(entries_, [record](const Entry& e) { return e.record == record; });
}

void QVContainerAssocGGID::OnGetUsageOf(GID container, UsageList& usage) {
  for (const auto& e : entries_)
    if (e.target.container == container && e.target.record != 0)
      detail::AppendUse(usage, e.target.record, GGID(ID(), e.record));
}

void QVContainerAssocGID::Set(GID record, GID target) {
  auto it = std::lower_bound(entries_.begin(), entries_.end(), record,
                             [](const auto& e, GID k) { return e.first < k; });
  if (it != entries_.end() && it->first == record) {
    if (target == 0)
      entries_.erase(it);
    else
      it->second = target;
  } else if (target != 0) {
    entries_.insert(it, {record, target});
  }
}

GID QVContainerAssocGID::Get(GID record) const {
  auto it = std::lower_bound(entries_.begin(), entries_.end(), record,
                             [](const auto& e, GID k) { return e.first < k; });
  return it != entries_.end() && it->first == record ? it->second : 0;
}

void QVContainerAssocGID::OnGetUsageOf(GID container, UsageList& usage) {
  if (container != target_) return;
  for (const auto& e : entries_)
    if (e.second != 0) detail::AppendUse(usage, e.second, GGID(ID(), e.first));
}

}  // namespace v7
