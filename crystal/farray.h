// Arrays of map data: indexed from 1, the first index running fastest, all
// elements in one contiguous block (so that a whole grid is one transfer).
#pragma once

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>
#include <vector>

// Memory for map data. A block of 2 MB or more is aligned on 2 MB and the
// kernel is asked for pages of that size: a fresh grid of millions of points
// is then first filled with a few page faults instead of thousands, which
// otherwise cost as much as computing it.
template <typename T>
struct map_allocator {
  using value_type = T;
  static constexpr std::size_t huge_page = std::size_t{1} << 21;

  map_allocator() = default;
  template <typename U>
  map_allocator(const map_allocator<U>&) {}

  // As std::allocator's, so that a vector refuses the same counts.
  std::size_t max_size() const noexcept { return static_cast<std::size_t>(PTRDIFF_MAX) / sizeof(T); }

  T* allocate(std::size_t n) {
    if (n > max_size()) throw std::bad_alloc();
    const std::size_t bytes = n * sizeof(T);
    if (bytes < huge_page) return static_cast<T*>(::operator new(bytes));
    const std::size_t rounded = (bytes + huge_page - 1) / huge_page * huge_page;
    void* p = std::aligned_alloc(huge_page, rounded);
    if (p == nullptr) throw std::bad_alloc();
    madvise(p, rounded, MADV_HUGEPAGE);
    return static_cast<T*>(p);
  }
  void deallocate(T* p, std::size_t n) {
    if (n * sizeof(T) < huge_page)
      ::operator delete(p);
    else
      std::free(p);
  }
  // An element made without a value is left as the memory holds it, so that
  // resize() does not write a grid that a read or a copy fills next.
  template <typename U>
  void construct(U* p) noexcept {
    ::new (static_cast<void*>(p)) U;
  }
  template <typename U, typename... Args>
  void construct(U* p, Args&&... args) {
    ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
  }
  friend bool operator==(const map_allocator&, const map_allocator&) { return true; }
};

template <typename T>
class farray2 {
 public:
  farray2() = default;
  farray2(std::int32_t n1, std::int32_t n2) { allocate(n1, n2); }

  void allocate(std::int32_t n1, std::int32_t n2) {
    n1_ = n1 > 0 ? n1 : 0;
    n2_ = n2 > 0 ? n2 : 0;
    data_.assign(static_cast<std::size_t>(n1_) * static_cast<std::size_t>(n2_), T{});
    allocated_ = true;
  }
  void release() {
    data_.clear();
    data_.shrink_to_fit();
    n1_ = n2_ = 0;
    allocated_ = false;
  }
  bool allocated() const { return allocated_; }
  std::int32_t extent(int dim) const { return dim == 1 ? n1_ : n2_; }
  std::size_t size() const { return data_.size(); }

  T& operator()(std::int32_t i, std::int32_t j) { return data_[offset(i, j)]; }
  const T& operator()(std::int32_t i, std::int32_t j) const { return data_[offset(i, j)]; }
  T* data() { return data_.data(); }
  const T* data() const { return data_.data(); }

 private:
  std::size_t offset(std::int32_t i, std::int32_t j) const {
    return static_cast<std::size_t>(i - 1) + static_cast<std::size_t>(n1_) * static_cast<std::size_t>(j - 1);
  }
  std::int32_t n1_ = 0, n2_ = 0;
  bool allocated_ = false;
  std::vector<T, map_allocator<T>> data_;
};

template <typename T>
class farray3 {
 public:
  farray3() = default;
  farray3(std::int32_t n1, std::int32_t n2, std::int32_t n3) { allocate(n1, n2, n3); }

  // Extents below 0 count as 0: the array exists and holds no element.
  void allocate(std::int32_t n1, std::int32_t n2, std::int32_t n3) {
    allocate_unset(n1, n2, n3);
    std::fill(data_.begin(), data_.end(), T{});
  }
  // As allocate, but the elements are not set: for a grid that is filled
  // whole right after, where clearing it first would be one more pass over it.
  void allocate_unset(std::int32_t n1, std::int32_t n2, std::int32_t n3) {
    n_ = {n1 > 0 ? n1 : 0, n2 > 0 ? n2 : 0, n3 > 0 ? n3 : 0};
    data_.clear();
    data_.resize(static_cast<std::size_t>(n_[0]) * static_cast<std::size_t>(n_[1]) *
                 static_cast<std::size_t>(n_[2]));
    allocated_ = true;
  }
  void release() {
    data_.clear();
    data_.shrink_to_fit();
    n_ = {0, 0, 0};
    allocated_ = false;
  }
  bool allocated() const { return allocated_; }
  std::int32_t extent(int dim) const { return n_[static_cast<std::size_t>(dim - 1)]; }
  std::size_t size() const { return data_.size(); }

  T& operator()(std::int32_t i, std::int32_t j, std::int32_t k) { return data_[offset(i, j, k)]; }
  const T& operator()(std::int32_t i, std::int32_t j, std::int32_t k) const {
    return data_[offset(i, j, k)];
  }
  T* data() { return data_.data(); }
  const T* data() const { return data_.data(); }

 private:
  std::size_t offset(std::int32_t i, std::int32_t j, std::int32_t k) const {
    return static_cast<std::size_t>(i - 1) +
           static_cast<std::size_t>(n_[0]) *
               (static_cast<std::size_t>(j - 1) + static_cast<std::size_t>(n_[1]) * static_cast<std::size_t>(k - 1));
  }
  std::array<std::int32_t, 3> n_{0, 0, 0};
  bool allocated_ = false;
  std::vector<T, map_allocator<T>> data_;
};
