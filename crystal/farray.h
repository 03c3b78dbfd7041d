// Arrays of map data: indexed from 1, the first index running fastest, all
// elements in one contiguous block (so that a whole grid is one transfer).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

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
  std::vector<T> data_;
};

template <typename T>
class farray3 {
 public:
  farray3() = default;
  farray3(std::int32_t n1, std::int32_t n2, std::int32_t n3) { allocate(n1, n2, n3); }

  // Extents below 0 count as 0: the array exists and holds no element.
  void allocate(std::int32_t n1, std::int32_t n2, std::int32_t n3) {
    n_ = {n1 > 0 ? n1 : 0, n2 > 0 ? n2 : 0, n3 > 0 ? n3 : 0};
    data_.assign(static_cast<std::size_t>(n_[0]) * static_cast<std::size_t>(n_[1]) *
                     static_cast<std::size_t>(n_[2]),
                 T{});
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
  std::vector<T> data_;
};
