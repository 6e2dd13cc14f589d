#pragma once
// A forward iterator over a slot vector that steps over tombstones, so that
// a table's begin()..end() visits live records only, in ID order.
#include <cstddef>
#include <iterator>
#include <type_traits>

#include "V7Doc/core/GID.h"

namespace v7 {

// Traits: which slots are tombstones. `IDPolicy` supplies IsMissing.
template <class IDPolicy>
struct CompressedIteratorTraits {
  template <class T>
  static bool IsMissing(const T& rec) {
    return IDPolicy::IsMissing(rec);
  }
};

template <class Vector, class Traits>
class CompressedIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = std::remove_const_t<typename std::remove_reference_t<
      decltype(std::declval<Vector&>()[0])>>;
  using difference_type = std::ptrdiff_t;
  using reference = decltype(std::declval<Vector&>()[0]);
  using pointer = std::add_pointer_t<reference>;

  CompressedIterator() = default;
  // Positioned at `pos`, or at the first live slot after it when `skip`.
  CompressedIterator(Vector* slots, std::size_t pos, bool skip = true) : slots_(slots), pos_(pos) {
    if (skip) SkipMissing();
  }
  // A mutable iterator converts to a constant one.
  template <class V>
    requires(std::is_const_v<Vector> && std::is_same_v<std::remove_const_t<Vector>, V>)
  CompressedIterator(const CompressedIterator<V, Traits>& o)
      : slots_(o.Slots()), pos_(o.Position()) {}

  reference operator*() const { return (*slots_)[pos_]; }
  pointer operator->() const { return &(*slots_)[pos_]; }
  CompressedIterator& operator++() {
    ++pos_;
    SkipMissing();
    return *this;
  }
  CompressedIterator operator++(int) {
    auto copy = *this;
    ++*this;
    return copy;
  }
  friend bool operator==(const CompressedIterator& a, const CompressedIterator& b) {
    return a.pos_ == b.pos_ && a.slots_ == b.slots_;
  }

  // The record's ID: its one-based slot.
  GID ID() const { return static_cast<GID>(pos_ + 1); }
  std::size_t Position() const { return pos_; }
  Vector* Slots() const { return slots_; }

 private:
  void SkipMissing() {
    while (slots_ && pos_ < slots_->size() && Traits::IsMissing((*slots_)[pos_])) ++pos_;
  }
  Vector* slots_ = nullptr;
  std::size_t pos_ = 0;
};

}  // namespace v7
