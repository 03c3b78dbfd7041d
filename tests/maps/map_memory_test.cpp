#include <gtest/gtest.h>

#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

void start_clean() {
  qp::rho.release();
  qp::rhonew.release();
  qp::kerror = false;
}

void expect_extents(const farray3<float>& a, int n1, int n2, int n3) {
  EXPECT_TRUE(a.allocated());
  EXPECT_EQ(a.extent(1), n1);
  EXPECT_EQ(a.extent(2), n2);
  EXPECT_EQ(a.extent(3), n3);
}

}  // namespace

TEST(MemoryMaps, SizesFromTheGrid) {
  struct Case {
    std::array<std::int32_t, 3> ngrid;
    std::array<int, 3> rho, rhonew;
  };
  const Case cases[] = {
      {{4, 5, 6}, {4, 5, 6}, {5, 6, 7}},
      {{1, 1, 1}, {1, 1, 1}, {2, 2, 2}},
      {{0, 10, 10}, {0, 10, 10}, {1, 11, 11}},   // rho holds nothing
      {{-3, 2, 2}, {0, 2, 2}, {0, 3, 3}},        // below zero counts as an empty axis
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.ngrid[0] << "," << c.ngrid[1] << "," << c.ngrid[2]);
    start_clean();
    qp::ngrid = c.ngrid;
    memory_maps();
    EXPECT_FALSE(qp::kerror);
    expect_extents(qp::rho, c.rho[0], c.rho[1], c.rho[2]);
    expect_extents(qp::rhonew, c.rhonew[0], c.rhonew[1], c.rhonew[2]);
  }
}

TEST(MemoryMaps, SameGridKeepsArraysAndContents) {
  start_clean();
  qp::ngrid = {3, 4, 5};
  memory_maps();
  qp::rho(2, 3, 4) = 7.5f;
  qp::rhonew(4, 5, 6) = -2.25f;
  const float* rho_block = qp::rho.data();
  const float* rhonew_block = qp::rhonew.data();
  memory_maps();
  EXPECT_EQ(qp::rho.data(), rho_block);
  EXPECT_EQ(qp::rhonew.data(), rhonew_block);
  EXPECT_EQ(qp::rho(2, 3, 4), 7.5f);
  EXPECT_EQ(qp::rhonew(4, 5, 6), -2.25f);

  qp::ngrid = {3, 4, 6};  // another grid: both arrays change
  memory_maps();
  expect_extents(qp::rho, 3, 4, 6);
  expect_extents(qp::rhonew, 4, 5, 7);
  EXPECT_FALSE(qp::kerror);
}

// A grid whose rhonew cannot be held: rho (with no element) stays allocated,
// the earlier rhonew is released and kerror is raised.
TEST(MemoryMaps, FailedAllocationOfRhonew) {
  start_clean();
  qp::ngrid = {2, 2, 2};
  memory_maps();
  qp::ngrid = {0, 2147483646, 2147483646};
  memory_maps();
  EXPECT_TRUE(qp::kerror);
  expect_extents(qp::rho, 0, 2147483646, 2147483646);
  EXPECT_EQ(qp::rho.size(), 0u);
  EXPECT_FALSE(qp::rhonew.allocated());
}

// A grid from a damaged header that would overflow the index type or the
// byte count is refused without trying to allocate it.
TEST(MemoryMaps, RefusesGridsBeyondAnyMemory) {
  const std::array<std::int32_t, 3> grids[] = {
      {0, 2, 2147483647},            // rhonew's extent would not fit 32 bits
      {2000000000, 2000000000, 8},   // bytes overflow 64 bits
      {1000000, 1000000, 1000000},   // fits 64 bits, not memory
  };
  for (const auto& g : grids) {
    start_clean();
    qp::ngrid = g;
    memory_maps();
    EXPECT_TRUE(qp::kerror);
    EXPECT_FALSE(qp::rhonew.allocated());
  }
}
