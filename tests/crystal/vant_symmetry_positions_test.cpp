// Rotations, lattices, multiplicities and Wyckoff orbits.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_symmetry_tables.h"
#include "tests/crystal/wyckoff_reference_data.h"

namespace {

mat3i rotation_of(const char* text) {
  mat3i rot;
  read_xsym(text, 1, rot, nullptr, false);
  return rot;
}

TEST(SymmetryOperations, ModuloLatFoldsOnlyDownToMinusTen) {
  const vec3f v = modulo_lat({-0.25f, 1.0f, 0.99999f});
  EXPECT_FLOAT_EQ(v[0], 0.75f);
  EXPECT_FLOAT_EQ(v[1], 0.0f);
  EXPECT_NEAR(v[2], 0.99999f, 1e-6);
  EXPECT_LT(modulo_lat({-10.5f, 0, 0})[0], 0.0f);
  std::vector<vec3f> t = {{1.5f, -0.5f, 2.0f}, {-0.25f, 0, 0}, {3.5f, 0, 0}};
  std::int32_t out = 0;
  mod_trans(2, t, 1, &out);
  EXPECT_FLOAT_EQ(t[0][0], 0.5f);
  EXPECT_FLOAT_EQ(t[0][1], 0.5f);
  EXPECT_FLOAT_EQ(t[1][0], 0.75f);
  EXPECT_FLOAT_EQ(t[2][0], 3.5f);  // beyond n: untouched
  EXPECT_EQ(out, 1);
}

TEST(SymmetryOperations, ApplysoSumsWithoutReduction) {
  sym_oper_type op;
  op.rot = rotation_of("-y,x-y,z");
  op.tr = {0, 0, 1.0f / 3};
  const vec3f v = applyso(op, {0.9f, 0.2f, 0.8f});
  EXPECT_FLOAT_EQ(v[0], -0.2f);
  EXPECT_FLOAT_EQ(v[1], 0.7f);
  EXPECT_NEAR(v[2], 0.8f + 1.0f / 3, 1e-6);
}

TEST(SymmetryOperations, AxesRotationByTraceAndDeterminant) {
  const std::pair<const char*, int> cases[] = {
      {"x,y,z", 1},    {"-x,-y,-z", -1}, {"-x,-y,z", 2},   {"x,y,-z", -2},  {"z,x,y", 3},
      {"-z,-x,-y", -3}, {"-y,x,z", 4},   {"y,-x,-z", -4},  {"x-y,x,z", 6},  {"-x+y,-x,-z", -6},
      {"-y,x-y,z", 3}, {"x,x,z", 0},    {"2x,y,z", 0},    {"2x,2y,2z", 0},
  };
  for (const auto& [text, order] : cases) EXPECT_EQ(axes_rotation(rotation_of(text)), order) << text;
}

TEST(SymmetryOperations, SearchopFindsRowsAndNegatives) {
  std::int32_t found = 99;
  searchop(rotation_of("y,x,-z"), 1, 24, found);
  EXPECT_EQ(found, 13);
  EXPECT_FALSE(err_symm);
  searchop(rotation_of("-y,-x,z"), 1, 24, found);  // minus row 13
  EXPECT_EQ(found, -13);
  EXPECT_FALSE(err_symm);
  searchop(rotation_of("y,x,-z"), 25, 36, found);
  EXPECT_EQ(found, 31);
  const std::tuple<int, int, const char*> failures[] = {
      {1, 24, " identical to a S.O. of the space group P m -3 m"},
      {25, 36, " identical to a S.O. of the space group P 6/m m m"},
      {1, 36, " identical to a S.O. of the space group P m -3 m or P 6/m m m"},
  };
  for (const auto& [i1, i2, ending] : failures) {
    found = 5;
    searchop(rotation_of("2x,y,z"), i1, i2, found);
    EXPECT_EQ(found, 0);
    EXPECT_TRUE(err_symm);
    EXPECT_EQ(err_symm_mess, std::string(" Try to re-write your S.O. using a rotational part") + ending);
  }
  found = 0;
  searchop(rotation_of("z,x,y"), 25, 36, found);
  EXPECT_TRUE(err_symm);
  EXPECT_EQ(err_symm_mess, " Try to re-write your S.O. using a rotational part"
                           " identical to a S.O. of the space group P 6/m m m");
  // An empty range keeps a found row and reports nothing, or reports a zero one.
  found = 7;
  searchop(rotation_of("x,y,z"), 5, 4, found);
  EXPECT_EQ(found, 7);
  EXPECT_FALSE(err_symm);
  found = 0;
  searchop(rotation_of("x,y,z"), 5, 4, found);
  EXPECT_TRUE(err_symm);
}

TEST(SymmetryOperations, LatticeVectorsByLetter) {
  const char* letters[] = {"P", "A", "B", "C", "I", "R", "F", "c", "Q"};
  for (const char* l : letters) {
    EXPECT_TRUE(lattice_trans({1, 1, 1}, l)) << l;
    EXPECT_TRUE(lattice_trans({-2, 0, 3}, l)) << l;
    const bool c_like = std::string("CFc").find(l[0]) != std::string::npos;
    EXPECT_EQ(lattice_trans({0.5f, 0.5f, 0}, l), c_like) << l;
    EXPECT_EQ(lattice_trans({0.5f, -0.5f, 1}, l), c_like) << l;
  }
  EXPECT_TRUE(lattice_trans({1.5f, 0.5f, 0.5f}, "I"));
  EXPECT_TRUE(lattice_trans({1.0f / 3, 2.0f / 3, 2.0f / 3}, "R"));
  EXPECT_FALSE(lattice_trans({1.0f / 3, 1.0f / 3, 2.0f / 3}, "R"));
}

TEST(SymmetryOperations, LatsymDecodesLettersAndZLattices) {
  latsym("-p 2ybc");
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(nlat, 1);
  EXPECT_EQ(inlat, 1);
  EXPECT_EQ(lat_ch, "P");
  latsym("F");
  EXPECT_EQ(nlat, 4);
  EXPECT_EQ(inlat, 7);
  EXPECT_FLOAT_EQ(ltr[3][1], 0.5f);
  latsym("q");
  EXPECT_TRUE(err_symm);
  EXPECT_EQ(err_symm_mess, "Wrong Lattice Symbol Q");
  EXPECT_EQ(nlat, 1);
  latsym("Z");
  EXPECT_TRUE(err_symm);
  EXPECT_EQ(err_symm_mess, "Unconventional Lattice Symbol Z needs centring vectors");
  const std::vector<vec3f> vectors = {{0.25f, 0.25f, 0}, {0.5f, 0.5f, 0}};
  latsym("x", 2, &vectors);
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(nlat, 3);
  EXPECT_EQ(inlat, 8);
  EXPECT_EQ(lat_ch, "Z");
  // the "Z" test reads the lattice last decoded
  EXPECT_TRUE(lattice_trans({0.25f, 0.25f, 0}, "Z"));
  EXPECT_FALSE(lattice_trans({0.25f, 0.5f, 0}, "Z"));
  latsym("P");
  EXPECT_FALSE(lattice_trans({0.25f, 0.25f, 0}, "Z"));
}

TEST(SymmetryOperations, CrystalSystemFromRotations) {
  const std::tuple<std::vector<const char*>, int, const char*> cases[] = {
      {{"x,y,z"}, 1, "a"},
      {{"x,y,z", "-x,y,-z"}, 2, "m"},
      {{"x,y,z", "-x,-y,z", "-x,y,-z", "x,-y,-z"}, 3, "o"},
      {{"x,y,z", "-y,x,z", "-x,-y,z", "y,-x,z"}, 4, "t"},
      {{"x,y,z", "-y,x-y,z", "-x+y,-x,z"}, 5, "h"},
      {{"x,y,z", "-y,x-y,z", "-x+y,-x,z", "-x,-y,z", "y,-x+y,z", "x-y,x,z"}, 6, "h"},
      {{"x,y,z", "-x,-y,z", "-x,y,-z", "x,-y,-z", "z,x,y", "z,-x,-y", "-z,-x,y", "-z,x,-y", "y,z,x",
        "-y,z,-x", "y,-z,-x", "-y,-z,x"},
       7,
       "c"},
  };
  for (const auto& [texts, code, letter] : cases) {
    std::vector<mat3i> ops;
    for (const char* t : texts) ops.push_back(rotation_of(t));
    std::int32_t system_code = 0;
    std::string system_letter;
    get_crystal_system_r_op(ops, static_cast<std::int32_t>(ops.size()), system_code, system_letter);
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(system_code, code);
    EXPECT_EQ(system_letter, letter);
    EXPECT_EQ(sys_cry[code - 1].empty(), false);
  }
  std::int32_t system_code = 0;
  std::string system_letter;
  get_crystal_system_r_op({rotation_of("x,y,z"), rotation_of("x,x,z")}, 2, system_code, system_letter);
  EXPECT_TRUE(err_symm);
  EXPECT_EQ(err_symm_mess, " Axes rotation wrong");
}

// ------------------------------------------------ records built by hand

struct op_t {
  mat3i rot;
  vec3f tr;
};

op_t product(const op_t& a, const op_t& b) {
  op_t p{};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      for (int k = 0; k < 3; ++k) p.rot[i][j] += a.rot[i][k] * b.rot[k][j];
      p.tr[i] += static_cast<float>(a.rot[i][j]) * b.tr[j];
    }
    p.tr[i] += a.tr[i];
    p.tr[i] -= std::floor(p.tr[i] + 1e-4f);
  }
  return p;
}

// A record of the standard setting of a group, from its row of spg_gen: the
// operators without centring closed under products (identity first), then
// the list repeated for each centring vector.
space_group_type record_from_generators(int number) {
  set_it_gen();
  const std::string& row = spg_gen[static_cast<std::size_t>(number - 1)];
  std::vector<op_t> gens;
  std::vector<vec3f> centring = {{0, 0, 0}};
  std::string rest = row.substr(11);
  for (std::size_t start = 0; start < rest.size();) {
    auto end = rest.find(';', start);
    if (end == std::string::npos) end = rest.size();
    op_t g;
    read_xsym(rest.substr(start, end - start), 1, g.rot, &g.tr);
    start = end + 1;
    if (g.rot == mat3i{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}) {
      if (g.tr != vec3f{0, 0, 0}) centring.push_back(modulo_lat(g.tr));
    } else {
      gens.push_back(g);
    }
  }
  // centring vectors closed under sums
  for (std::size_t i = 0; i < centring.size(); ++i) {
    for (std::size_t j = 0; j < centring.size(); ++j) {
      const vec3f s = modulo_lat({centring[i][0] + centring[j][0], centring[i][1] + centring[j][1],
                                  centring[i][2] + centring[j][2]});
      bool known = false;
      for (const auto& c : centring) known = known || zbelongv({c[0] - s[0], c[1] - s[1], c[2] - s[2]});
      if (!known) centring.push_back(s);
    }
  }
  std::vector<op_t> ops = {{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}}};
  const auto add = [&ops](const op_t& p) {
    for (const auto& o : ops) {
      if (o.rot == p.rot) return;  // one operator per rotation, modulo the lattice
    }
    ops.push_back(p);
  };
  for (const auto& g : gens) add(g);
  for (std::size_t i = 0; i < ops.size(); ++i) {
    for (std::size_t j = 0; j < ops.size(); ++j) add(product(ops[i], ops[j]));
  }
  space_group_type spg;
  spg.spg_lat = row.substr(0, 1);
  spg.num_lat = static_cast<std::int32_t>(centring.size());
  spg.latt_trans = centring;
  for (const auto& c : centring) {
    for (const auto& o : ops) {
      sym_oper_type s;
      s.rot = o.rot;
      s.tr = modulo_lat({o.tr[0] + c[0], o.tr[1] + c[1], o.tr[2] + c[2]});
      spg.sym_op.push_back(s);
    }
  }
  spg.multip = static_cast<std::int32_t>(spg.sym_op.size());
  return spg;
}

// A point of the position "x,1/4,z" with general values for its variables.
vec3f point_of(const std::string& origin) {
  mat3i rot;
  vec3f tr;
  read_xsym(origin, 1, rot, &tr, false);
  const vec3f free = {0.1234f, 0.2718f, 0.0577f};
  vec3f p;
  for (int i = 0; i < 3; ++i) {
    p[i] = tr[i];
    for (int j = 0; j < 3; ++j) p[i] += static_cast<float>(rot[i][j]) * free[j];
  }
  return p;
}

const wyckoff_info_type* wyckoff_row(const std::string& hm) {
  set_wyckoff_info();
  for (const auto& w : wyckoff_info) {
    if (w.hm == hm) return &w;
  }
  return nullptr;
}

// The multiplicities of the Wyckoff positions, by orbit and by point,
// against the published ones. The groups in their standard settings are
// built from spg_gen, the other settings wait for the group builder.
TEST(WyckoffPositions, MultiplicitiesOfADozenGroups) {
  set_spgr_info();
  int groups = 0;
  for (const auto& ref : wyckoff_references()) {
    const spgr_info_type* setting = nullptr;
    for (const auto& s : spgr_info) {
      if (s.hm == ref.hm) setting = &s;
    }
    ASSERT_NE(setting, nullptr) << ref.hm;
    const std::string hm = ref.hm;
    if (hm.find(':') != std::string::npos) continue;
    ++groups;
    const space_group_type spg = record_from_generators(setting->n);
    const wyckoff_info_type* w = wyckoff_row(hm);
    ASSERT_NE(w, nullptr) << hm;
    ASSERT_EQ(w->orbits, static_cast<int>(ref.multiplicity.size())) << hm;
    for (int k = 0; k < w->orbits; ++k) {
      std::int32_t count = 0;
      std::array<std::string, 48> orbit;
      wyckoff_orbit(spg, w->orbit[k], count, orbit);
      EXPECT_FALSE(err_symm) << hm;
      EXPECT_EQ(orbit[0], w->orbit[k]);
      EXPECT_EQ(count * spg.num_lat, ref.multiplicity[k]) << hm << " " << w->orbit[k];
      EXPECT_EQ(get_multip_pos_crys(point_of(w->orbit[k]), spg), ref.multiplicity[k])
          << hm << " " << w->orbit[k];
      // the orbit's points are all distinct positions of the site
      for (int a = 1; a < count; ++a) EXPECT_NE(orbit[a], orbit[0]);
    }
    // the general position has the full multiplicity, and epss is restored
    EXPECT_EQ(get_multip_pos_crys({0.1234f, 0.2718f, 0.0577f}, spg), spg.multip) << hm;
    EXPECT_FLOAT_EQ(epss_val(), 1.0e-5f);
  }
  EXPECT_EQ(groups, 9);
}

TEST(WyckoffPositions, OrbitOfAMirrorSiteInP21m) {
  const space_group_type spg = record_from_generators(11);
  ASSERT_EQ(spg.multip, 4);
  std::int32_t count = 0;
  std::array<std::string, 48> orbit;
  wyckoff_orbit(spg, "  x,1/4,z", count, orbit);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(orbit[0], "x,1/4,z");
  EXPECT_EQ(orbit[1], "-x,3/4,-z");
  wyckoff_orbit(spg, "   ", count, orbit);
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(orbit[0].empty());
  EXPECT_EQ(get_multip_pos_crys({0, 0, 0}, spg), 2);
  EXPECT_EQ(get_multip_pos_crys({1, -1, 0}, spg), 2);
}

}  // namespace

namespace {

// The records set_spacegroup builds carry the published multiplicities, in
// every setting of the reference list (origin choices, rhombohedral axes).
TEST(WyckoffPositions, RecordsOfSetSpacegroupCarryThePublishedMultiplicities) {
  for (const auto& ref : wyckoff_references()) {
    space_group_type g;
    set_spacegroup(ref.hm, g);
    ASSERT_FALSE(err_symm) << ref.hm << ": " << err_symm_mess;
    ASSERT_EQ(g.wyckoff.count, static_cast<int>(ref.multiplicity.size())) << ref.hm;
    for (int k = 0; k < g.wyckoff.count; ++k) {
      const wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(k)];
      EXPECT_EQ(p.origin, ref.origin[static_cast<std::size_t>(k)]) << ref.hm;
      EXPECT_EQ(p.multiplicity, ref.multiplicity[static_cast<std::size_t>(k)]) << ref.hm << " " << p.origin;
    }
  }
}

// In every tabulated setting, the orbit of each position and the
// multiplicity of one of its points agree, and divide the general one.
TEST(WyckoffPositions, OrbitsAndPointsAgreeInEveryTabulatedSetting) {
  set_wyckoff_info();
  const auto rows = wyckoff_info;
  for (const auto& w : rows) {
    space_group_type g;
    set_spacegroup(w.hm, g);
    ASSERT_FALSE(err_symm) << w.hm << ": " << err_symm_mess;
    ASSERT_EQ(g.wyckoff.count, w.orbits) << w.hm;
    for (int k = 0; k < w.orbits; ++k) {
      const wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(k)];
      EXPECT_EQ(get_multip_pos_crys(point_of(p.origin), g), p.multiplicity) << w.hm << " " << p.origin;
      EXPECT_LT(p.multiplicity, g.multip) << w.hm << " " << p.origin;
      EXPECT_EQ(g.multip % p.multiplicity, 0) << w.hm << " " << p.origin;
    }
  }
}

}  // namespace
