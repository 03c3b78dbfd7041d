// The asymmetric unit expanded to one cell, checked against positions worked
// out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystallographic_symmetry.h"

namespace {

atom_list_type expanded(const std::string& group, std::vector<atom_type> atoms) {
  space_group_type g;
  set_spacegroup(group, g);
  atom_list_type source, cell;
  source.natoms = static_cast<std::int32_t>(atoms.size());
  source.atom = std::move(atoms);
  atlist1_extencell_atlist2(g, source, cell, true);
  return cell;
}

atom_type atom(const std::string& lab, vec3f x, bool active = true) {
  atom_type a;
  a.lab = lab;
  a.x = x;
  a.occ = 1.0f;
  a.active = active;
  return a;
}

TEST(AtomCellExpansion, RockSaltGivesFourSodiumAndFourChlorine) {
  const atom_list_type c = expanded("F m -3 m", {atom("Na", {0, 0, 0}), atom("Cl", {0.5f, 0.5f, 0.5f})});
  ASSERT_EQ(c.natoms, 8);
  ASSERT_EQ(c.atom.size(), 8u);
  const std::pair<std::string, vec3f> sites[] = {
      {"Na", {0, 0, 0}},          {"Na", {0, 0.5f, 0.5f}}, {"Na", {0.5f, 0, 0.5f}}, {"Na", {0.5f, 0.5f, 0}},
      {"Cl", {0.5f, 0.5f, 0.5f}}, {"Cl", {0.5f, 0, 0}},    {"Cl", {0, 0.5f, 0}},    {"Cl", {0, 0, 0.5f}},
  };
  for (const auto& site : sites) {
    const std::string& element = site.first;
    const vec3f& x = site.second;
    EXPECT_TRUE(std::any_of(c.atom.begin(), c.atom.end(), [&](const atom_type& a) {
      return a.lab.rfind(element, 0) == 0 && std::fabs(a.x[0] - x[0]) < 1e-5f && std::fabs(a.x[1] - x[1]) < 1e-5f &&
             std::fabs(a.x[2] - x[2]) < 1e-5f;
    })) << element << " at " << x[0] << " " << x[1] << " " << x[2];
  }
  // Copies are labelled in the order of the source; 192 operators over 4
  // sites reach each site 48 times.
  const char* labels[] = {"Na", "Na_2", "Na_3", "Na_4", "Cl", "Cl_2", "Cl_3", "Cl_4"};
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(c.atom[i].lab, labels[i]);
    EXPECT_FLOAT_EQ(c.atom[i].occ, 48.0f) << labels[i];
  }
}

TEST(AtomCellExpansion, CentrosymmetricCasesLabelsAndInactiveAtoms) {
  const std::string long_label = "ABCDEFGHIJKLMNOPQRST";
  const std::tuple<atom_type, std::vector<std::string>, float> rows[] = {
      {atom("O1", {0, 0, 0}), {"O1"}, 2.0f},
      {atom("C1", {0.1f, 0.2f, 0.3f}), {"C1", "C1_2"}, 1.0f},
      {atom(long_label, {0.1f, 0.2f, 0.3f}), {long_label, long_label}, 1.0f},  // no room for a suffix
      {atom(long_label.substr(0, 19), {0.1f, 0.2f, 0.3f}), {long_label.substr(0, 19), "ABCDEFGHIJKLMNOPQRS_"}, 1.0f},
      {atom("X", {0.1f, 0.2f, 0.3f}, false), {}, 1.0f},
  };
  for (const auto& [source, labels, occ] : rows) {
    const atom_list_type c = expanded("P -1", {source});
    ASSERT_EQ(c.atom.size(), labels.size()) << source.lab;
    for (std::size_t i = 0; i < c.atom.size(); ++i) {
      EXPECT_EQ(c.atom[i].lab, labels[i]);
      EXPECT_FLOAT_EQ(c.atom[i].occ, occ) << labels[i];
    }
  }
  // The copies of (-0.1, 1.2, 0.3) folded into the cell, and their mult.
  atom_type general = atom("C1", {-0.1f, 1.2f, 0.3f});
  general.mult = 2;
  const atom_list_type c = expanded("P -1", {general});
  ASSERT_EQ(c.atom.size(), 2u);
  const vec3f x0 = {0.9f, 0.2f, 0.3f}, x1 = {0.1f, 0.8f, 0.7f};
  for (int i = 0; i < 3; ++i) {
    EXPECT_NEAR(c.atom[0].x[i], x0[i], 1e-5f);
    EXPECT_NEAR(c.atom[1].x[i], x1[i], 1e-5f);
  }
  EXPECT_EQ(c.atom[0].mult, 2);
  EXPECT_EQ(c.atom[1].mult, 1);
}

}  // namespace
