#include <gtest/gtest.h>

#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

using extents = std::array<int, 3>;

extents extents_of(const farray3<float>& a) { return {a.extent(1), a.extent(2), a.extent(3)}; }

// Sizes a fresh pair of arrays for the grid.
void size_for(const std::array<std::int32_t, 3>& ngrid) {
  qp::rho.release();
  qp::rhonew.release();
  qp::kerror = false;
  qp::ngrid = ngrid;
  memory_maps();
}

}  // namespace

// rho holds the grid, rhonew one more plane each way; an axis below zero
// counts as empty.
TEST(MemoryMaps, SizesFromTheGrid) {
  const std::array<extents, 3> rows[] = {
      {{{4, 5, 6}, {4, 5, 6}, {5, 6, 7}}},
      {{{0, 10, 10}, {0, 10, 10}, {1, 11, 11}}},
      {{{-3, 2, 2}, {0, 2, 2}, {0, 3, 3}}},
  };
  for (const auto& [ngrid, rho, rhonew] : rows) {
    size_for(ngrid);
    EXPECT_FALSE(qp::kerror) << ngrid[0] << "," << ngrid[1] << "," << ngrid[2];
    EXPECT_EQ(extents_of(qp::rho), rho) << ngrid[0] << "," << ngrid[1] << "," << ngrid[2];
    EXPECT_EQ(extents_of(qp::rhonew), rhonew) << ngrid[0] << "," << ngrid[1] << "," << ngrid[2];
  }
}

// The same grid again keeps both arrays as they are, contents and all.
TEST(MemoryMaps, SameGridKeepsArraysAndContents) {
  size_for({3, 4, 5});
  qp::rho(2, 3, 4) = 7.5f;
  qp::rhonew(4, 5, 6) = -2.25f;
  memory_maps();
  EXPECT_EQ(qp::rho(2, 3, 4), 7.5f);
  EXPECT_EQ(qp::rhonew(4, 5, 6), -2.25f);
  qp::ngrid = {3, 4, 6};  // another grid: both arrays change
  memory_maps();
  EXPECT_EQ(extents_of(qp::rho), (extents{3, 4, 6}));
  EXPECT_EQ(extents_of(qp::rhonew), (extents{4, 5, 7}));
}

// The address sanitizer ends the process on an allocation beyond memory
// instead of throwing bad_alloc, so the rows that need a failed allocation
// are left out under it; the refusals by arithmetic still run.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool allocations_may_fail = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool allocations_may_fail = false;
#else
constexpr bool allocations_may_fail = true;
#endif
#else
constexpr bool allocations_may_fail = true;
#endif

// A grid from a damaged header that cannot be held, whose extents overflow
// the index type or whose bytes overflow 64 bits is refused with kerror. rho
// is kept when it has no element to hold, and then the earlier rhonew is
// released; a refused rho stops the sizing there.
TEST(MemoryMaps, RefusesGridsBeyondAnyMemory) {
  const struct {
    std::array<std::int32_t, 3> ngrid;
    bool rho_kept;
    bool allocation_fails;  // refused by a failed allocation, not by arithmetic
  } rows[] = {
      {{0, 2147483646, 2147483646}, true, true},   // rhonew fits the counts, not memory
      {{0, 2, 2147483647}, true, false},           // rhonew's extent would not fit 32 bits
      {{2000000000, 2000000000, 8}, false, false}, // bytes overflow 64 bits
      {{1000000, 1000000, 1000000}, false, true},  // fits 64 bits, not memory
  };
  for (const auto& r : rows) {
    if (r.allocation_fails && !allocations_may_fail) continue;
    size_for({2, 2, 2});
    qp::ngrid = r.ngrid;
    memory_maps();
    EXPECT_TRUE(qp::kerror) << r.ngrid[2];
    EXPECT_EQ(qp::rho.allocated(), r.rho_kept) << r.ngrid[2];
    if (r.rho_kept) {
      EXPECT_FALSE(qp::rhonew.allocated()) << r.ngrid[2];
    }
  }
}
