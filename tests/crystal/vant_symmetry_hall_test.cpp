// Groups from Hall symbols, against cctbx's expansion of every symbol of the
// settings table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "tests/crystal/hall_reference_data.h"

namespace {

// The same fingerprint as the script's: sorted texts of the nine rotation
// elements and the translation in 24ths, joined by ";", hashed by FNV-1a.
std::uint64_t fingerprint(const symmetry_build_type& g) {
  std::vector<std::string> texts;
  for (std::size_t k = 0; k < g.ss.size(); ++k) {
    std::string t;
    for (const auto& row : g.ss[k])
      for (int v : row) t += std::to_string(v) + ",";
    for (int i = 0; i < 3; ++i) {
      const long v = ((std::lround(g.ts[k][i] * 24.0f) % 24) + 24) % 24;
      t += std::to_string(v) + (i < 2 ? "," : "");
    }
    texts.push_back(t);
  }
  std::sort(texts.begin(), texts.end());
  std::string all;
  for (std::size_t k = 0; k < texts.size(); ++k) all += (k ? ";" : "") + texts[k];
  std::uint64_t h = 0xcbf29ce484222325ull;
  for (unsigned char c : all) h = (h ^ c) * 0x100000001b3ull;
  return h;
}

TEST(HallSymbols, EveryTableSymbolGivesCctbxOperators) {
  int checked = 0;
  for (const auto& ref : hall_references) {
    symmetry_build_type g;
    get_so_from_hall(ref.hall, g);
    ASSERT_FALSE(err_symm) << ref.hall << ": " << err_symm_mess;
    EXPECT_EQ(static_cast<int>(g.ss.size()), ref.order) << ref.hall;
    EXPECT_EQ(fingerprint(g), ref.hash) << ref.hall;
    const int factor = g.centring_code == 1 ? 1 : 2;
    EXPECT_EQ(g.num_ops * factor * nlat, ref.order) << ref.hall;
    ++checked;
  }
  EXPECT_EQ(checked, 612);
}

struct HallCase {
  const char* symbol;
  int order;
  int centring_code;
  const char* latsy;
  vec3f co;
};

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

TEST(HallSymbols, GeneratorsAxesScrewsAndShifts) {
  symmetry_build_type g;
  get_so_from_hall("P 4W 2C", g);
  ASSERT_FALSE(err_symm);
  EXPECT_EQ(g.count, 2);
  EXPECT_EQ(g.ss[1], (mat3i{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}));  // z_4 first
  EXPECT_NEAR(g.ts[1][2], 0.25f, 1e-6);
  get_so_from_hall("P 3 2\"", g);
  bool z_2pp = false;
  for (const auto& r : g.ss) z_2pp = z_2pp || r == mat3i{{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}};
  EXPECT_TRUE(z_2pp);
  const std::pair<const char*, float> screws[] = {{"P 61", 2.0f / 12}, {"P 41", 3.0f / 12}, {"P 31", 4.0f / 12}};
  for (const auto& [symbol, t] : screws) {
    get_so_from_hall(symbol, g);
    ASSERT_FALSE(err_symm) << symbol;
    EXPECT_NEAR(g.ts[1][2], t, 1e-6) << symbol;
  }
  get_so_from_hall("P 2 (1 0 0)", g);
  ASSERT_FALSE(err_symm);
  EXPECT_NEAR(g.ts[1][0], 2.0f / 12, 1e-6);  // -x + 2/12: the shift of 1/12 conjugated
}

TEST(HallSymbols, Failures) {
  const std::pair<const char*, const char*> cases[] = {
      {"Q 1", " IBRAVL is Equal Zero"},
      {"", " IBRAVL is Equal Zero"},
      {"P 21", nullptr},
      {"P 2*", nullptr},
      {"P 5", nullptr},
      {"P 2q", nullptr},
  };
  for (const auto& [symbol, message] : cases) {
    symmetry_build_type g;
    get_so_from_hall(symbol, g);
    EXPECT_TRUE(err_symm) << symbol;
    if (message) {
      EXPECT_EQ(err_symm_mess, message) << symbol;
    }
    EXPECT_FALSE(err_symm_mess.empty()) << symbol;
  }
}

}  // namespace
