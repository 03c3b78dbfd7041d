// The asymmetric unit expanded to one cell, checked against positions worked
// out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystallographic_symmetry.h"

namespace {

atom_type atom(const std::string& lab, vec3f x, float occ = 1.0f, bool active = true) {
  atom_type a;
  a.lab = lab;
  a.x = x;
  a.occ = occ;
  a.active = active;
  return a;
}

atom_list_type list_of(std::vector<atom_type> atoms) {
  atom_list_type l;
  l.natoms = static_cast<std::int32_t>(atoms.size());
  l.atom = std::move(atoms);
  return l;
}

space_group_type group(const std::string& symbol) {
  space_group_type g;
  set_spacegroup(symbol, g);
  return g;
}

bool has_position(const atom_list_type& c, const std::string& lab_prefix, vec3f p) {
  return std::any_of(c.atom.begin(), c.atom.end(), [&](const atom_type& a) {
    return a.lab.rfind(lab_prefix, 0) == 0 && std::fabs(a.x[0] - p[0]) < 1e-5f && std::fabs(a.x[1] - p[1]) < 1e-5f &&
           std::fabs(a.x[2] - p[2]) < 1e-5f;
  });
}

}  // namespace

TEST(AtomCellExpansion, RockSaltGivesFourSodiumAndFourChlorine) {
  atom_list_type c;
  atlist1_extencell_atlist2(group("F m -3 m"),
                            list_of({atom("Na", {0, 0, 0}), atom("Cl", {0.5f, 0.5f, 0.5f})}), c, true);
  ASSERT_EQ(c.natoms, 8);
  ASSERT_EQ(c.atom.size(), 8u);
  const std::vector<vec3f> na = {{0, 0, 0}, {0, 0.5f, 0.5f}, {0.5f, 0, 0.5f}, {0.5f, 0.5f, 0}};
  const std::vector<vec3f> cl = {{0.5f, 0.5f, 0.5f}, {0.5f, 0, 0}, {0, 0.5f, 0}, {0, 0, 0.5f}};
  for (const vec3f& p : na) EXPECT_TRUE(has_position(c, "Na", p)) << p[0] << " " << p[1] << " " << p[2];
  for (const vec3f& p : cl) EXPECT_TRUE(has_position(c, "Cl", p)) << p[0] << " " << p[1] << " " << p[2];
  // 192 operators over 4 sites: each site is reached 48 times.
  for (const atom_type& a : c.atom) EXPECT_FLOAT_EQ(a.occ, 48.0f) << a.lab;
  EXPECT_EQ(c.atom[0].lab, "Na");
  EXPECT_EQ(c.atom[1].lab, "Na_2");
  EXPECT_EQ(c.atom[4].lab, "Cl");
  EXPECT_EQ(c.atom[7].lab, "Cl_4");
}

TEST(AtomCellExpansion, CentrosymmetricCasesLabelsAndInactiveAtoms) {
  const space_group_type p1bar = group("P -1");
  struct row {
    atom_type source;
    std::vector<std::string> labels;
    std::vector<float> occ;
  } const rows[] = {
      {atom("O1", {0, 0, 0}), {"O1"}, {2.0f}},
      {atom("C1", {0.1f, 0.2f, 0.3f}), {"C1", "C1_2"}, {1.0f, 1.0f}},
      {atom("C1", {-0.1f, 1.2f, 0.3f}), {"C1", "C1_2"}, {1.0f, 1.0f}},
      {atom("ABCDEFGHIJKLMNOPQRST", {0.1f, 0.2f, 0.3f}), {"ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKLMNOPQRST"}, {1, 1}},
      {atom("ABCDEFGHIJKLMNOPQRS", {0.1f, 0.2f, 0.3f}), {"ABCDEFGHIJKLMNOPQRS", "ABCDEFGHIJKLMNOPQRS_"}, {1, 1}},
      {atom("X", {0.1f, 0.2f, 0.3f}, 1.0f, false), {}, {}},
  };
  for (const row& r : rows) {
    atom_list_type c;
    atlist1_extencell_atlist2(p1bar, list_of({r.source}), c, true);
    ASSERT_EQ(c.atom.size(), r.labels.size()) << r.source.lab;
    for (std::size_t i = 0; i < c.atom.size(); ++i) {
      EXPECT_EQ(c.atom[i].lab, r.labels[i]);
      EXPECT_FLOAT_EQ(c.atom[i].occ, r.occ[i]);
    }
  }
  // The folded copy of (0.1, 0.2, 0.3) under the inversion, and its new mult.
  atom_list_type c;
  atom_type general = atom("C1", {-0.1f, 1.2f, 0.3f});
  general.mult = 2;
  atlist1_extencell_atlist2(p1bar, list_of({general}), c, true);
  ASSERT_EQ(c.atom.size(), 2u);
  EXPECT_NEAR(c.atom[0].x[0], 0.9f, 1e-5f);
  EXPECT_NEAR(c.atom[0].x[1], 0.2f, 1e-5f);
  EXPECT_NEAR(c.atom[1].x[0], 0.1f, 1e-5f);
  EXPECT_NEAR(c.atom[1].x[1], 0.8f, 1e-5f);
  EXPECT_NEAR(c.atom[1].x[2], 0.7f, 1e-5f);
  EXPECT_EQ(c.atom[0].mult, 2);
  EXPECT_EQ(c.atom[1].mult, 1);
}
