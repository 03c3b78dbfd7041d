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
    std::vector<float> points = {1.0f, 1e-7f, -0.5f, 1.5f, std::numeric_limits<float>::quiet_NaN()};
    for (std::int32_t k = 0; k <= n; ++k)
      for (const float d : {0.0f, 0.0001f, -0.0001f, 0.00015f, -0.00015f, 0.5f * du, -du}) {
        const float p = static_cast<float>(k) * du + d;
        points.insert(points.end(), {p, std::nextafter(p, 2.0f), std::nextafter(p, -2.0f)});
      }
    for (int r = 0; r < 2000; ++r) points.push_back(anywhere(random));
    for (const float a : points) {
      const plane_cell walk = walk_plane_cells(a, n, 1), fast = locate_in_plane(a, n);
      ASSERT_TRUE(fast.i1 == walk.i1 && fast.i2 == walk.i2 && fast.lo == walk.lo && fast.hi == walk.hi)
          << "n " << n << " a " << a << ": " << fast.i1 << " against " << walk.i1;
    }
  }
}
