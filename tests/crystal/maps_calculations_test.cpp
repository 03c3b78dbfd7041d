#include <gtest/gtest.h>

#include <array>

#include "crystal/vant_maps_calculations.h"

namespace {

farray3<float> grid_of(int n1, int n2, int n3, float (*value)(int)) {
  farray3<float> m(n1, n2, n3);
  for (std::size_t k = 0; k < m.size(); ++k) m.data()[k] = value(static_cast<int>(k));
  return m;
}

// Hand-computed population statistics (divisor N); a variance not above
// 0.0001 gives a sigma of 0.
TEST(StatisticMap, SummaryNumbers) {
  struct Case { const char* name; farray3<float> map; float max, min, ave, sigma; };
  const Case cases[] = {
      // 1..8: mean 4.5, variance 21/4
      {"ramp", grid_of(2, 2, 2, [](int k) { return float(k + 1); }), 8, 1, 4.5f, 2.2912878f},
      {"one point", grid_of(1, 1, 1, [](int) { return -3.25f; }), -3.25f, -3.25f, -3.25f, 0},
      {"constant", grid_of(3, 4, 5, [](int) { return 7.0f; }), 7, 7, 7, 0},
      {"at the floor", grid_of(2, 1, 1, [](int k) { return k == 0 ? 0.01f : -0.01f; }), 0.01f, -0.01f, 0, 0},
      {"above the floor", grid_of(2, 1, 1, [](int k) { return k == 0 ? 0.0104881f : -0.0104881f; }), 0.0104881f,
       -0.0104881f, 0, 0.0104881f},
  };
  for (const Case& c : cases) {
    float mx = 0, mn = 0, ave = 0, sigma = -1;
    statistic_map(c.map, mx, mn, ave, sigma);
    EXPECT_FALSE(err_maps) << c.name;
    EXPECT_EQ(mx, c.max) << c.name;
    EXPECT_EQ(mn, c.min) << c.name;
    EXPECT_NEAR(ave, c.ave, 1e-6) << c.name;
    EXPECT_NEAR(sigma, c.sigma, 2e-6) << c.name;
  }
  // An empty grid is an error and leaves the outputs alone.
  float mx = 1, mn = 2, ave = 3, sigma = 4;
  statistic_map(farray3<float>(0, 10, 10), mx, mn, ave, sigma);
  EXPECT_TRUE(err_maps);
  EXPECT_EQ(err_maps_mess, "Some dimension on Rho is zero");
  EXPECT_EQ((std::array{mx, mn, ave, sigma}), (std::array{1.0f, 2.0f, 3.0f, 4.0f}));
}

}  // namespace
