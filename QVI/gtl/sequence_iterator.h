#pragma once
// An input iterator over a sequence given by an index: the value at position i
// is `Step::at(source, i)`. Used to walk a function's natural input points
// without building a vector of them.
#include <cstddef>
#include <iterator>

namespace gtl {

// `Step` supplies `static value_type at(const Source&, int index)`.
template <class Source, class Step>
class sequence_iterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = decltype(Step::at(std::declval<const Source&>(), 0));
  using difference_type = std::ptrdiff_t;
  using pointer = void;
  using reference = value_type;

  sequence_iterator() = default;
  // Position `index` of the sequence over `source`.
  sequence_iterator(const Source* source, int index) : source_(source), index_(index) {}

  value_type operator*() const { return Step::at(*source_, index_); }
  sequence_iterator& operator++() {
    ++index_;
    return *this;
  }
  sequence_iterator operator++(int) {
    sequence_iterator old = *this;
    ++index_;
    return old;
  }
  // The position in the sequence.
  int index() const { return index_; }

  friend bool operator==(const sequence_iterator& a, const sequence_iterator& b) {
    return a.source_ == b.source_ && a.index_ == b.index_;
  }

 private:
  const Source* source_ = nullptr;
  int index_ = 0;
};

}  // namespace gtl
