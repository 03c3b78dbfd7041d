#include "crystal/vant_symmetry_tables.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "crystal/fixed_text.h"

namespace {

const spgr_info_type& row(int r) { return spgr_info.at(static_cast<std::size_t>(r - 1)); }

TEST(SymmetryTables, SettingsAreOrderedByNumberWithContiguousRows) {
  set_spgr_info();
  ASSERT_EQ(spgr_info.size(), 612u);
  EXPECT_EQ(row(1).n, 1);
  EXPECT_EQ(row(612).n, 230);
  std::set<int> seen;
  for (int r = 2; r <= 612; ++r) {
    const int step = row(r).n - row(r - 1).n;
    EXPECT_TRUE(step == 0 || step == 1) << "row " << r;
    seen.insert(row(r).n);
  }
  EXPECT_EQ(seen.size(), 230u);  // every number has a row
  int rows_of[231] = {};
  for (const auto& s : spgr_info) ++rows_of[s.n];
  EXPECT_EQ(rows_of[9], 24);
  EXPECT_EQ(rows_of[15], 24);
  EXPECT_EQ(rows_of[12], 14);
  EXPECT_EQ(rows_of[13], 14);
  EXPECT_EQ(rows_of[14], 14);
}

TEST(SymmetryTables, ColumnsAreInRangeAndFitTheirFields) {
  set_spgr_info();
  for (const auto& s : spgr_info) {
    EXPECT_LE(s.hm.size(), 12u) << s.hm;
    EXPECT_LE(s.hall.size(), 16u) << s.hm;
    EXPECT_LE(s.inf_extra.size(), 5u) << s.hm;
    EXPECT_GE(s.laue, 1) << s.hm;
    EXPECT_LE(s.laue, 16) << s.hm;
    EXPECT_GE(s.pg, 1) << s.hm;
    EXPECT_LE(s.pg, 41) << s.hm;
    for (int i = 0; i < 3; ++i) {
      EXPECT_GE(s.asu[i], 0) << s.hm;
      EXPECT_LT(s.asu[i], s.asu[i + 3]) << s.hm;
      EXPECT_LE(s.asu[i + 3], 24) << s.hm;
    }
  }
}

// The first row of a number is its standard setting: never a second origin
// choice nor rhombohedral axes, and the first of an origin pair is ":1".
TEST(SymmetryTables, OriginChoicePairsAreAdjacentAndFirstRowIsStandard) {
  set_spgr_info();
  for (int r = 1; r <= 612; ++r) {
    const std::string& hm = row(r).hm;
    const bool first_of_number = r == 1 || row(r - 1).n != row(r).n;
    if (first_of_number) {
      EXPECT_EQ(hm.find(":R"), std::string::npos) << hm;
    }
    const auto colon = hm.find(":1");
    if (colon != std::string::npos && hm.size() == colon + 2) {
      ASSERT_LT(r, 612);
      const std::string base = hm.substr(0, colon);
      // The second origin follows, without a suffix, under the same number;
      // the few settings that exist only in origin 1 follow their partner.
      const bool pair_after = row(r + 1).hm == base && row(r + 1).n == row(r).n;
      const bool pair_before = r > 1 && row(r - 1).hm == base && row(r - 1).n == row(r).n;
      EXPECT_TRUE(pair_after || pair_before) << hm;
    }
  }
}

struct TellingRow {
  int r, n;
  const char *hm, *hall;
  int laue, pg;
  std::array<std::int32_t, 6> asu;
  const char* inf_extra;
};

TEST(SymmetryTables, TellingRows) {
  set_spgr_info();
  const TellingRow cases[] = {
      {1, 1, "P 1", "P 1", 1, 1, {0, 0, 0, 24, 24, 24}, ""},
      {8, 2, "P -1", "-P 1", 1, 2, {0, 0, 0, 12, 24, 24}, ""},
      {125, 14, "P 1 21/C 1", "-P 2ybc", 2, 5, {0, 0, 0, 24, 6, 24}, "b1"},
      {126, 14, "P 21/C", "-P 2ybc", 2, 5, {0, 0, 0, 24, 6, 24}, "b1"},
      {129, 14, "P 1 21/N 1", "-P 2yn", 2, 5, {0, 0, 0, 24, 6, 24}, "b2"},
      {133, 14, "P 1 1 21/A", "-P 2ac", 2, 5, {0, 0, 0, 24, 24, 6}, "c1"},
      {283, 48, "P N N N:1", "P 2 2 -1n", 3, 10, {0, 0, 0, 6, 12, 24}, "1"},
      {390, 68, "B B C B:1", "B 2 2 -1bc", 3, 10, {0, 0, 0, 12, 12, 6}, "1bca"},
      {422, 86, "P 42/N:1", "P 4n -1n", 4, 13, {0, 0, 0, 12, 24, 6}, "1"},
      {464, 123, "P 4/M M M", "-P 4 2", 5, 18, {0, 0, 0, 12, 12, 12}, ""},
      {466, 125, "P 4/N B M:1", "P 4 2 -1ab", 5, 18, {0, 0, 0, 12, 12, 12}, "1"},
  };
  for (const auto& c : cases) {
    const auto& s = row(c.r);
    EXPECT_EQ(s.n, c.n) << c.r;
    EXPECT_EQ(s.hm, c.hm) << c.r;
    EXPECT_EQ(s.hall, c.hall) << c.r;
    EXPECT_EQ(s.laue, c.laue) << c.r;
    EXPECT_EQ(s.pg, c.pg) << c.r;
    EXPECT_EQ(s.asu, c.asu) << c.r;
    EXPECT_EQ(s.inf_extra, c.inf_extra) << c.r;
  }
  // The settings that go by Hall symbol only.
  const std::pair<int, const char*> hall_only[] = {{211, "P N M 21"}, {213, "P 21 N M"},
                                                   {215, "P M 21 N"}, {375, "B A M B"},
                                                   {429, "C 4 2 21"}, {457, "C -4 B 2"},
                                                   {463, "F -4 D 2"}};
  for (const auto& [r, hm] : hall_only) EXPECT_EQ(row(r).hm, hm) << r;
}

TEST(SymmetryTables, LaueAndPointGroupFollowTheNumber) {
  set_spgr_info();
  for (const auto& s : spgr_info) {
    std::string by_number;
    get_laue_class(by_number, s.n);
    const std::string& laue = laue_class[s.laue - 1];
    // get_laue_class knows only the P-lattice names of the trigonal classes.
    if (s.n >= 143 && s.n <= 167) {
      EXPECT_EQ(laue.substr(0, 2), "-3") << s.hm;
    } else if (laue == "m3" || laue == "m3m") {
      EXPECT_EQ(by_number, laue == "m3" ? "m-3" : "m-3m") << s.hm;
    } else {
      EXPECT_EQ(laue, by_number) << s.hm;
    }
  }
}

TEST(SymmetryTables, RemovedTableIsRebuiltTheSame) {
  set_spgr_info();
  const auto before = spgr_info;
  remove_spgr_info();
  EXPECT_TRUE(spgr_info.empty());
  set_spgr_info();
  ASSERT_EQ(spgr_info.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(spgr_info[i].hm, before[i].hm);
    EXPECT_EQ(spgr_info[i].asu, before[i].asu);
  }
}

TEST(SymmetryTables, WyckoffRowsNameSettingsOfTheTable) {
  set_spgr_info();
  set_wyckoff_info();
  ASSERT_EQ(wyckoff_info.size(), 273u);
  std::set<std::string> settings;
  for (const auto& s : spgr_info) settings.insert(s.hm);
  std::set<std::string> names;
  for (const auto& w : wyckoff_info) {
    EXPECT_TRUE(settings.count(w.hm)) << w.hm;
    EXPECT_TRUE(names.insert(w.hm).second) << "twice: " << w.hm;
    EXPECT_GE(w.orbits, 0);
    EXPECT_LE(w.orbits, 26);
    for (int i = 0; i < 26; ++i) {
      EXPECT_EQ(w.orbit[i].empty(), i >= w.orbits) << w.hm << " " << i;
      EXPECT_LE(w.orbit[i].size(), 15u) << w.hm;
      EXPECT_EQ(w.orbit[i].find(' '), std::string::npos) << w.hm;
    }
  }
  // P m m m has 26 special positions, P 1 none.
  for (const auto& w : wyckoff_info) {
    if (w.hm == "P M M M") {
      EXPECT_EQ(w.orbits, 26);
    }
    if (w.hm == "P 1") {
      EXPECT_EQ(w.orbits, 0);
    }
  }
  EXPECT_TRUE(names.count("P 21/C"));
  EXPECT_TRUE(names.count("F D -3 M:1"));
  EXPECT_TRUE(names.count("F D -3 M"));
  EXPECT_TRUE(names.count("R -3 M:R"));
}

struct GeneratorCase {
  const char* spg;
  const char* gener;  // empty: the failure
  bool error;
};

TEST(SymmetryTables, GeneratorsByNumberOrSymbol) {
  const GeneratorCase cases[] = {
      {"1", " x,y,z", false},
      {"14", " -x,y+1/2,-z+1/2; -x,-y,-z", false},
      {" 191", " -y,x-y,z; -x,-y,z; y,x,-z; -x,-y,-z", false},
      {"P 6/M M M", " -y,x-y,z; -x,-y,z; y,x,-z; -x,-y,-z", false},
      {"p 6/m m m", " -y,x-y,z; -x,-y,z; y,x,-z; -x,-y,-z", false},
      {"230", " x+1/2,y+1/2,z+1/2; -x+1/2,-y,z+1/2; -x,y+1/2,-z+1/2; z,x,y; y+3/4,x+1/4,-z+1/4; -x,-y,-z",
       false},
      {"999", " x,y,z", true},
      {"0", " x,y,z", true},
  };
  for (const auto& c : cases) {
    std::string gener = "untouched";
    get_generators(c.spg, gener);
    EXPECT_EQ(err_symtab, c.error) << c.spg;
    EXPECT_EQ(gener, c.gener) << c.spg;
  }
  std::string gener = "untouched";
  get_generators("Q 7", gener);
  EXPECT_TRUE(err_symtab);
  EXPECT_EQ(err_symtab_mess, " Error in the symbol or number");
  EXPECT_EQ(gener, "untouched");
  EXPECT_TRUE(it_set);
  EXPECT_EQ(spg_gen[0], "P 1       : x,y,z");
  for (const auto& g : spg_gen) {
    EXPECT_LE(g.size(), 120u);
    EXPECT_EQ(g[10], ':') << g;
  }
}

TEST(SymmetryTables, LaueClassRangesOfNumbers) {
  const std::pair<int, const char*> cases[] = {
      {1, "-1"},     {2, "-1"},     {3, "2/m"},    {15, "2/m"},   {16, "mmm"},  {74, "mmm"},
      {75, "4/m"},   {88, "4/m"},   {89, "4/mmm"}, {142, "4/mmm"}, {143, "-3"}, {148, "-3"},
      {149, "-3m1"}, {156, "-3m1"}, {157, "-31m"}, {167, "-31m"}, {168, "6/m"}, {176, "6/m"},
      {177, "6/mmm"}, {194, "6/mmm"}, {195, "m-3"}, {206, "m-3"}, {207, "m-3m"}, {230, "m-3m"},
      {0, "-1"},     {231, "-1"},
  };
  for (const auto& [n, laue] : cases) {
    std::string out;
    get_laue_class(out, n);
    EXPECT_EQ(out, laue) << n;
  }
}

}  // namespace
