#pragma once
// Where an undo log keeps the records it took out of a table: a list that
// grows in chunks and never moves a record once it is in. The first chunk
// holds one record, since most steps change or delete one; the others hold
// kChunk each, so that a step that takes out thousands (a large delete, a
// transaction) allocates once per kChunk records rather than once per
// record, and memory is touched in runs.
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace v7::undo_detail {

template <class T>
class ImageStore {
 public:
  // Room for one record.
  struct Raw {
    alignas(T) unsigned char bytes[sizeof(T)];
  };

  ImageStore() = default;
  ImageStore(const ImageStore&) = delete;
  ImageStore& operator=(const ImageStore&) = delete;
  ~ImageStore() { Clear(); }

  // Room for the first record that the store's owner keeps beside it
  // (one allocation for a log and its one record); it must outlive the
  // records in the store.
  void LendFirst(Raw* room) { lent_ = room; }

  // Moves `rec` in; returns its index.
  std::uint32_t Push(T&& rec) {
    const std::uint32_t i = size_;
    if (i == 0) {
      if (!lent_ && !first_) first_ = std::make_unique_for_overwrite<Raw[]>(1);
    } else if ((i - 1) % kChunk == 0 && rest_.size() <= (i - 1) / kChunk) {
      rest_.push_back(std::make_unique_for_overwrite<Raw[]>(kChunk));
    }
    ::new (static_cast<void*>(Slot(i))) T(std::move(rec));
    ++size_;
    return i;
  }
  T& operator[](std::uint32_t i) { return *std::launder(reinterpret_cast<T*>(Slot(i))); }
  std::uint32_t Size() const { return size_; }
  // Bytes allocated for records, used or not.
  std::size_t Capacity() const { return ((lent_ || first_ ? 1 : 0) + rest_.size() * kChunk) * sizeof(T); }

  template <class F>
  void ForEach(F&& f) {
    for (std::uint32_t i = 0; i < size_; ++i) f((*this)[i]);
  }
  // Destroys every record and releases the chunks.
  void Clear() {
    for (std::uint32_t i = size_; i > 0; --i) (*this)[i - 1].~T();
    size_ = 0;
    first_.reset();
    rest_.clear();
    rest_.shrink_to_fit();
  }

 private:
  static constexpr std::uint32_t kChunk = 64;
  Raw* Slot(std::uint32_t i) {
    if (i == 0) return lent_ ? lent_ : &first_[0];
    return &rest_[(i - 1) / kChunk][(i - 1) % kChunk];
  }

  Raw* lent_ = nullptr;
  std::unique_ptr<Raw[]> first_;
  std::vector<std::unique_ptr<Raw[]>> rest_;
  std::uint32_t size_ = 0;
};

}  // namespace v7::undo_detail
