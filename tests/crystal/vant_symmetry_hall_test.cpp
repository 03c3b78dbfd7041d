// Groups from Hall symbols (every symbol of the settings table is checked
// against cctbx, in upper case, in the set_spacegroup tests).
#include <gtest/gtest.h>

#include <string>

#include "crystal/vant_crystallographic_symmetry.h"

namespace {

struct HallCase { const char* symbol; int order, centring_code; const char* latsy; vec3f co; };

TEST(HallSymbols, CentresLatticesAndSystems) {
  const HallCase cases[] = {
      {"P 1", 1, 1, "aP", {0, 0, 0}},
      {"-P 1", 2, 2, "aP", {0, 0, 0}},
      {"P 2 -1n", 4, 0, "mP", {0.25f, 0.25f, 0.25f}},
      {"P 2 -1", 4, 2, "mP", {0, 0, 0}},
      {"-p 2ybc", 4, 2, "mP", {0, 0, 0}},
      {"F 4d 2 3 -1d", 192, 0, "cF", {0.125f, 0.125f, 0.125f}},
      {"-R 3 2\"", 36, 2, "hR", {0, 0, 0}},
      {"P 6c 2c", 12, 1, "hP", {0, 0, 0}},
      {"  i 4bw 2bw -1bw", 32, 0, "tI", {0, 0.25f, 0.125f}},
  };
  for (const auto& c : cases) {
    symmetry_build_type g;
    get_so_from_hall(c.symbol, g);
    ASSERT_FALSE(err_symm) << c.symbol << ": " << err_symm_mess;
    EXPECT_EQ(static_cast<int>(g.ss.size()), c.order) << c.symbol;
    EXPECT_EQ(g.centring_code, c.centring_code) << c.symbol;
    EXPECT_EQ(g.latsy, c.latsy) << c.symbol;
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(g.co[i], c.co[i], 1e-6) << c.symbol;
    EXPECT_EQ(g.ss[0], (mat3i{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}})) << c.symbol;
  }
}

TEST(HallSymbols, Failures) {
  const std::pair<const char*, const char*> cases[] = {
      {"Q 1", " IBRAVL is Equal Zero"}, {"", " IBRAVL is Equal Zero"}, {"P 21", nullptr},
      {"P 2*", nullptr},                {"P 5", nullptr},               {"P 2q", nullptr},
  };
  for (const auto& [symbol, message] : cases) {
    symmetry_build_type g;
    get_so_from_hall(symbol, g);
    EXPECT_TRUE(err_symm) << symbol;
    if (message) { EXPECT_EQ(err_symm_mess, message) << symbol; }
    EXPECT_FALSE(err_symm_mess.empty()) << symbol;
  }
}

}  // namespace
