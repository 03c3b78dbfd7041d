#include "crystal/vant_symmetry_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

const spgr_info_type& row(int r) { return spgr_info.at(static_cast<std::size_t>(r - 1)); }

// Rows run through the numbers 1 to 230 without a gap; the asymmetric unit
// lies inside the cell and the texts fit their fields.
TEST(SymmetryTables, SettingsAreOrderedByNumberAndFitTheirFields) {
  set_spgr_info();
  remove_spgr_info();
  EXPECT_TRUE(spgr_info.empty());
  set_spgr_info();  // built again after a removal
  ASSERT_EQ(spgr_info.size(), 612u);
  EXPECT_EQ(std::make_pair(row(1).n, row(612).n), std::make_pair(1, 230));
  for (int r = 2; r <= 612; ++r) EXPECT_TRUE(row(r).n == row(r - 1).n || row(r).n == row(r - 1).n + 1) << "row " << r;
  for (const spgr_info_type& s : spgr_info) {
    EXPECT_LE(s.hm.size(), 12u) << s.hm;
    EXPECT_LE(s.hall.size(), 16u) << s.hm;
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(0 <= s.asu[i] && s.asu[i] < s.asu[i + 3] && s.asu[i + 3] <= 24) << s.hm;
  }
}

TEST(SymmetryTables, GeneratorsByNumberOrSymbol) {
  const char* p6mmm = " -y,x-y,z; -x,-y,z; y,x,-z; -x,-y,-z";
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"1", " x,y,z", false},
      {"14", " -x,y+1/2,-z+1/2; -x,-y,-z", false},
      {" 191", p6mmm, false},
      {"P 6/M M M", p6mmm, false},
      {"p 6/m m m", p6mmm, false},
      {"230", " x+1/2,y+1/2,z+1/2; -x+1/2,-y,z+1/2; -x,y+1/2,-z+1/2; z,x,y; y+3/4,x+1/4,-z+1/4; -x,-y,-z", false},
      {"999", " x,y,z", true},
      {"0", " x,y,z", true},
      {"Q 7", "untouched", true},
  };
  for (const auto& [spg, expected, error] : cases) {
    std::string gener = "untouched";
    get_generators(spg, gener);
    EXPECT_EQ(err_symtab, error) << spg;
    EXPECT_EQ(gener, expected) << spg;
  }
  EXPECT_EQ(err_symtab_mess, " Error in the symbol or number");
  EXPECT_TRUE(it_set);
  for (const auto& g : spg_gen) EXPECT_EQ(g[10], ':') << g;
}

TEST(SymmetryTables, LaueClassRangesOfNumbers) {
  const std::pair<int, const char*> cases[] = {
      {1, "-1"},      {2, "-1"},      {3, "2/m"},    {15, "2/m"},    {16, "mmm"},   {74, "mmm"},   {75, "4/m"},
      {88, "4/m"},    {89, "4/mmm"},  {142, "4/mmm"}, {143, "-3"},   {148, "-3"},   {149, "-3m1"}, {156, "-3m1"},
      {157, "-31m"},  {167, "-31m"},  {168, "6/m"},  {176, "6/m"},   {177, "6/mmm"}, {194, "6/mmm"}, {195, "m-3"},
      {206, "m-3"},   {207, "m-3m"},  {230, "m-3m"}, {0, "-1"},      {231, "-1"},
  };
  for (const auto& [n, laue] : cases) {
    std::string out;
    get_laue_class(out, n);
    EXPECT_EQ(out, laue) << n;
  }
}

}  // namespace
