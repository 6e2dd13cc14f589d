#pragma once
// Association containers: links from records of one container to records of
// another, reported to usage queries.
#include <tuple>
#include <utility>
#include <vector>

#include "V7Doc/core/IQVContainer.h"

namespace v7 {

// A map from keys (records of the key container) to values, kept as a vector
// sorted by key with unique keys. Instances: V = int, GID, GGID.
template <class V>
class QVContainerAssoc : public IQVContainer {
 public:
  using value_type = std::pair<GID, V>;
  using storage_type = std::vector<value_type>;
  using iterator = typename storage_type::iterator;
  using const_iterator = typename storage_type::const_iterator;

  // Replaces the value of an existing key, else inserts in key order.
  iterator Insert(const GID& key, const V& value);
  // The entry with `key`, or end().
  iterator Find(const GID& key);
  const_iterator Find(const GID& key) const;
  // The entry holding the value `v` points at, or end().
  iterator Find(const V* v);
  // The entry `p` points at, or end().
  iterator Find(const value_type* p);
  // Null when absent.
  V* Get(const GID& key);
  const V* Get(const GID& key) const;
  // Unchecked: the key must exist.
  V& At(const GID& key) { return Find(key)->second; }
  bool Exists(const GID& key) const { return Find(key) != entries_.end(); }
  // Removes the entry with `key`; returns the iterator after it.
  iterator Erase(const GID& key);
  // Removes every entry whose key is listed (and any entry holding key 0).
  void Erase(const std::vector<GID>& keys);

  std::size_t Size() const { return entries_.size(); }
  bool IsEmpty() const { return entries_.empty(); }
  // The stored entries, for a reader that refills them in bulk; it must call
  // Normalize() afterwards.
  storage_type& MutableEntries() { return entries_; }
  // Restores key order after a bulk refill: a stable sort by key, then of
  // each repeated key only the last entry is kept (as repeated Insert calls
  // would), and entries with key 0 (no record) are dropped. Returns how many
  // entries were dropped.
  std::size_t Normalize();
  void Clear() override { entries_.clear(); }

  // The container whose records the keys are.
  void SetKeyContainerID(const GID& id) { key_container_ = id; }
  GID KeyContainerID() const { return key_container_; }

  // Same type, same key container, same entries in the same order.
  bool Equals(const IQVContainer* other) const;

  // For a query about the key container: each entry's key record is used by
  // the entry (GGID of this container and the key).
  void OnGetUsageOf(GID container, UsageList& usage) override;

  iterator begin() { return entries_.begin(); }
  iterator end() { return entries_.end(); }
  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }

 private:
  storage_type entries_;
  GID key_container_ = 0;
};

extern template class QVContainerAssoc<int>;
extern template class QVContainerAssoc<GID>;
extern template class QVContainerAssoc<GGID>;

// Links from each of its records to a record of any container: triples of
// (own record, target container, target record).
class QVContainerAssocGGID : public IQVContainer {
 public:
  struct Entry {
    GID record = 0;
    GGID target;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  void Insert(GID record, GGID target) { entries_.push_back({record, target}); }
  // Removes every link of `record`.
  void Erase(GID record);
  const std::vector<Entry>& Entries() const { return entries_; }
  std::size_t Size() const { return entries_.size(); }
  void Clear() override { entries_.clear(); }

  // For a query about container c: every link into c is a use of its target.
  void OnGetUsageOf(GID container, UsageList& usage) override;

 private:
  std::vector<Entry> entries_;
};

// Links from each of its records to a record of one target container:
// pairs of (own record, target record), target 0 meaning no link.
class QVContainerAssocGID : public IQVContainer {
 public:
  QVContainerAssocGID(GID own, GID target_container) : own_(own), target_(target_container) {}

  // Sets (or, with target 0, clears) the link of `record`.
  void Set(GID record, GID target);
  // The target of `record`, 0 when none.
  GID Get(GID record) const;
  const std::vector<std::pair<GID, GID>>& Entries() const { return entries_; }
  GID OwnID() const { return own_; }
  GID TargetContainerID() const { return target_; }
  void Clear() override { entries_.clear(); }

  void OnGetUsageOf(GID container, UsageList& usage) override;

 private:
  GID own_;
  GID target_;
  std::vector<std::pair<GID, GID>> entries_;  // sorted by own record
};

namespace detail {
// Appends `user` to usage[index], growing the list when a container answered
// the size query too small: a stale reference must not crash a query.
inline void AppendUse(UsageList& usage, GID index, GGID user) {
  if (index >= usage.size()) usage.resize(static_cast<std::size_t>(index) + 1);
  usage[index].push_back(user);
}
}  // namespace detail

}  // namespace v7
