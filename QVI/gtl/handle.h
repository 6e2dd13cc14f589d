#pragma once
// Intrusive reference-counted handles.
//
// handle_ref_counter is the base of shared objects (documents, functions). Its
// count is not atomic: an object belongs to one thread. Debug builds record
// the creating thread and check every count change against it; release
// builds record it too (one word), so that both share one layout.
#include <cassert>
#include <cstddef>
#include <thread>
#include <utility>

namespace gtl {

class handle_ref_counter {
 public:
  handle_ref_counter() = default;
  // A copy is a new object: it starts unshared.
  handle_ref_counter(const handle_ref_counter&) {}
  handle_ref_counter& operator=(const handle_ref_counter&) { return *this; }
  virtual ~handle_ref_counter() = default;

  void add_ref() const {
    check_thread();
    ++count_;
  }
  // Drops one reference; deletes the object when it was the last.
  void release() const {
    check_thread();
    assert(count_ > 0);
    if (--count_ == 0) delete this;
  }
  std::size_t ref_count() const { return count_; }

 private:
  void check_thread() const {
#ifndef NDEBUG
    assert(owner_ == std::this_thread::get_id() && "shared object used from a second thread");
#endif
  }
  mutable std::size_t count_ = 0;
  // Kept in every build, checked in debug builds only: the layout of a
  // shared object must not depend on how its user was compiled.
  std::thread::id owner_ = std::this_thread::get_id();
};

// Management tag: the pointee derives from handle_ref_counter.
struct handle_mgmt_refcounted {};

template <class T, class Mgmt = handle_mgmt_refcounted>
class handle {
 public:
  handle() = default;
  handle(std::nullptr_t) {}
  // Takes a reference to `p` (which may be null).
  explicit handle(T* p) : p_(p) {
    if (p_) p_->add_ref();
  }
  handle(const handle& o) : p_(o.p_) {
    if (p_) p_->add_ref();
  }
  handle(handle&& o) noexcept : p_(std::exchange(o.p_, nullptr)) {}
  template <class U>
    requires std::is_convertible_v<U*, T*>
  handle(const handle<U, Mgmt>& o) : handle(o.get()) {}
  ~handle() { reset(); }

  handle& operator=(handle o) noexcept {
    std::swap(p_, o.p_);
    return *this;
  }

  void reset() {
    if (T* p = std::exchange(p_, nullptr)) p->release();
  }

  T* get() const { return p_; }
  T* operator->() const { return p_; }
  T& operator*() const { return *p_; }
  explicit operator bool() const { return p_ != nullptr; }
  // True when no other handle shares the object.
  bool unique() const { return p_ && p_->ref_count() == 1; }

  friend bool operator==(const handle& a, const handle& b) { return a.p_ == b.p_; }

 private:
  T* p_ = nullptr;
};

// Makes a new object and the first handle to it.
template <class T, class... Args>
handle<T> make_handle(Args&&... args) {
  return handle<T>(new T(std::forward<Args>(args)...));
}

}  // namespace gtl
