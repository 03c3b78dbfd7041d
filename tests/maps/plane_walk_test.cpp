#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "maps/plane_walk.h"

// The shortened search must give the cell of the plain walk from the origin
// for every coordinate it can see: on grid points, at the tolerance on both
// sides (and one float step past it), between grid points, at the ends of the
// cell, outside it, and not a number.
TEST(PlaneWalk, ShortenedSearchGivesTheWalksCell) {
  std::mt19937 random(12345);
  std::uniform_real_distribution<float> anywhere(0.0f, 1.0f);
  for (const std::int32_t n : {1, 2, 3, 7, 24, 100, 128, 1000, 4096}) {
    const float du = 1.0f / static_cast<float>(n);
    std::vector<float> points = {0.0f, 1.0f, std::nextafter(1.0f, 0.0f), 1e-7f, -0.5f, 1.5f,
                                 std::numeric_limits<float>::quiet_NaN()};
    for (std::int32_t k = 0; k <= n; ++k) {
      const float lo = static_cast<float>(k) * du;
      for (const float d : {0.0f, 0.0001f, -0.0001f, 0.00015f, -0.00015f, 0.5f * du, du, -du}) {
        const float p = lo + d;
        points.insert(points.end(), {p, std::nextafter(p, 2.0f), std::nextafter(p, -2.0f)});
      }
    }
    for (int r = 0; r < 2000; ++r) points.push_back(anywhere(random));
    for (const float a : points) {
      const plane_cell walk = walk_plane_cells(a, n, 1);
      const plane_cell fast = locate_in_plane(a, n);
      ASSERT_EQ(fast.i1, walk.i1) << "n " << n << " a " << a;
      ASSERT_EQ(fast.i2, walk.i2) << "n " << n << " a " << a;
      ASSERT_EQ(fast.lo, walk.lo) << "n " << n << " a " << a;
      ASSERT_EQ(fast.hi, walk.hi) << "n " << n << " a " << a;
    }
  }
}

// Hand-worked cells of a 4-point axis (du = 0.25).
TEST(PlaneWalk, CellsOfAFourPointAxis) {
  struct Case {
    float a;
    std::int32_t i1, i2;
  };
  const Case cases[] = {
      {0.0f, 1, 2},     {0.1f, 1, 2},   {0.25f, 1, 2},     // on a grid point: the step below holds it
      {0.25005f, 2, 3},                                    // within the tolerance of lo = 0.25
      {0.26f, 2, 3},    {0.74f, 3, 4},  {0.8f, 4, 1},      // the last step wraps to index 1
      {0.99999f, 4, 1}, {1.2f, 4, 1},                      // beyond the walk: the last step
  };
  for (const Case& c : cases) {
    const plane_cell cell = locate_in_plane(c.a, 4);
    EXPECT_EQ(cell.i1, c.i1) << c.a;
    EXPECT_EQ(cell.i2, c.i2) << c.a;
  }
}
