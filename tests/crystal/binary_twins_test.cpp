// The three structured blocks of the binary map file, against fixtures built
// byte by byte: fields read at their offsets, writer output equal to the
// fixture, every cut of a block a failed read, and the file's counts kept in
// bounds.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <tuple>

#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "tests/crystal/byte_fixture.h"

namespace {

// Cell block: 74 reals numbered in file order (value n + 0.25 for the n-th),
// then cart_type.
byte_fixture cell_fixture() {
  byte_fixture f;
  for (int n = 0; n < 74; ++n) f.f32(static_cast<float>(n) + 0.25f);
  return f.text("BL", 2);
}

// A group block with two centring vectors, three operators and two Wyckoff
// positions of 2 and 1 orbits.
byte_fixture group_fixture(std::int32_t nl = 2, std::int32_t ns = 3, std::int32_t nw = 2) {
  byte_fixture f;
  f.i32(225).text("F m -3 m", 20).text("-F 4 2 3", 16).text("Cubic", 12).text("m-3m", 5);
  f.text("m-3m", 5).text("", 5).text("standard setting", 90).i32(-1).text("F", 1).text("cF", 2);
  f.i32(nl);
  for (int i = 0; i < nl && i < 2; ++i) f.f32(0.0f).f32(0.5f * static_cast<float>(i)).f32(0.5f);
  f.text("cubic F", 51).text("Centrosymmetric", 80).i32(2).f32(0.125f).f32(0.25f).f32(0.375f);
  f.i32(24).i32(ns).i32(4);
  for (int k = 0; k < ns && k < 3; ++k) {
    for (int n = 0; n < 9; ++n) f.i32(10 * k + n);  // rot(1,1), rot(2,1), ...
    f.f32(0.5f * static_cast<float>(k)).f32(0.25f).f32(0.0f).text("op" + std::to_string(k), 50);
  }
  for (int n = 0; n < 6; ++n) f.f32(0.1f * static_cast<float>(n));
  f.i32(nw);
  if (nw == 2) {
    f.i32(2).text("0,0,0", 40).text("x,y,z", 40).text("-x,-y,-z", 40);
    f.i32(1).text("1/2,1/2,1/2", 40).text("y,x,z", 40);
  }
  return f;
}

// One atom of 639 bytes; every value differs so a shifted field shows.
byte_fixture atom_fixture(const std::string& label, float base) {
  byte_fixture f;
  f.text(label, 20).text("Na", 2).text("NA+1", 4).i32(-1).i32(11).i32(4);
  for (int n = 0; n < 9; ++n) f.f32(base + static_cast<float>(n));  // x, x_sigma, x_mult
  f.i32(1).i32(2).i32(3);                                            // x_code
  f.f32(base + 10).f32(base + 11).f32(base + 12).i32(13);            // occ group
  f.f32(base + 14).f32(base + 15).f32(base + 16).i32(17);            // biso group
  f.text("beta", 4).text("aniso", 5);
  for (int n = 0; n < 13; ++n) f.f32(base + 20 + static_cast<float>(n));  // u, u_sigma, u_eq
  for (int n = 0; n < 6; ++n) f.f32(base + 40 + static_cast<float>(n));   // u_mult
  for (int n = 0; n < 6; ++n) f.i32(50 + n);                               // u_code
  f.f32(base + 60).f32(base + 61);                                        // charge, moment
  for (int n = 0; n < 5; ++n) f.i32(70 + n);                               // ind
  f.i32(25);                                                               // nvar
  for (int n = 0; n < 50; ++n) f.f32(base + 100 + static_cast<float>(n));  // var, var_mult
  for (int n = 0; n < 25; ++n) f.i32(200 + n);                             // var_code
  return f.text("free text", 80);
}

byte_fixture atom_list_fixture() {
  return byte_fixture().i32(2).append(atom_fixture("Na1", 1000.0f)).append(atom_fixture("Cl1", 2000.0f));
}

// Reads the block from the fixture into r, checks that the writer gives the
// fixture back and that every shorter cut of the block fails to read.
template <typename Record>
void read_block(const byte_fixture& f, Record& r, void (*read)(Record&, std::istream&, bool&),
                void (*write)(const Record&, std::ostream&)) {
  auto in = f.stream();
  bool ok = false;
  read(r, in, ok);
  ASSERT_TRUE(ok);
  std::ostringstream out;
  write(r, out);
  EXPECT_EQ(out.str(), f.bytes);
  for (std::size_t cut = 0; cut < f.size(); ++cut) {
    Record partial;
    auto part = f.stream(cut);
    read(partial, part, ok = true);
    EXPECT_FALSE(ok) << "cut at " << cut << " of " << f.size();
  }
}

TEST(CellBlock, EveryFieldAtItsOffset) {
  const byte_fixture f = cell_fixture();
  ASSERT_EQ(f.size(), 298u);
  cell_metrics_type c;
  c.reserved[2] = 7.0f;
  c.cell_vol_sigma = 3.0f;
  read_block(f, c, read_bin_crystal_cell, write_bin_crystal_cell);
  // {field, its number in the file}; matrices run first index fastest, so
  // the second real of gd is gd(2,1).
  const std::pair<float, int> fields[] = {
      {c.cell[0], 0},       {c.ang[2], 5},       {c.cell_sigma[1], 7},  {c.ang_sigma[0], 9},  {c.rcell[2], 14},
      {c.rang[0], 15},      {c.gd[0][0], 18},    {c.gd[1][0], 19},      {c.gd[0][1], 21},     {c.gd[2][2], 26},
      {c.gr[0][2], 33},     {c.cr_orth[2][0], 38}, {c.orth_cr[1][1], 49}, {c.bl_m[0][0], 54}, {c.bl_minv[2][2], 71},
      {c.cell_vol, 72},     {c.rcell_vol, 73},
  };
  for (const auto& [value, n] : fields) EXPECT_EQ(value, static_cast<float>(n) + 0.25f) << "real " << n;
  EXPECT_EQ(c.cart_type, "BL");
  // Not in the file: kept as they were.
  EXPECT_EQ(c.reserved[2], 7.0f);
  EXPECT_EQ(c.cell_vol_sigma, 3.0f);
}

TEST(SpaceGroupBlock, EveryFieldAtItsOffset) {
  const byte_fixture f = group_fixture();
  space_group_type g;
  g.gen_hall = "left over";
  g.wyckoff.pos[5].origin = "left over";
  read_block(f, g, read_bin_spacegroup, write_bin_spacegroup);
  ASSERT_EQ(g.sym_op.size(), 3u);
  ASSERT_EQ(g.latt_trans.size(), 2u);
  const std::pair<std::string, const char*> texts[] = {
      {g.spg_symb, "F m -3 m"}, {g.hall, "-F 4 2 3"}, {g.info, ""}, {g.sg_setting, "standard setting"},
      {g.spg_latsy, "cF"}, {g.bravais, "cubic F"}, {g.centre, "Centrosymmetric"}, {g.sym_op_symb[1], "op1"},
      {g.wyckoff.pos[0].orbit[1], "-x,-y,-z"}, {g.wyckoff.pos[1].origin, "1/2,1/2,1/2"},
      {g.wyckoff.pos[1].orbit[0], "y,x,z"}, {g.gen_hall, ""},  // the reader starts from a default record
      {g.wyckoff.pos[5].origin, ""},
  };
  for (const auto& [value, expected] : texts) EXPECT_EQ(value, expected);
  // rot(2,1) is the second integer of an operator
  const std::pair<int, int> numbers[] = {
      {g.numspg, 225}, {g.centred, 2},           {g.num_ops, 24},          {g.multip, 3},
      {g.num_gen, 4},  {g.wyckoff.count, 2},     {g.wyckoff.pos[0].orbit_count, 2},
      {g.sym_op[2].rot[0][0], 20}, {g.sym_op[2].rot[1][0], 21}, {g.sym_op[2].rot[0][1], 23},
  };
  for (const auto& [value, expected] : numbers) EXPECT_EQ(value, expected);
  EXPECT_TRUE(g.hexa);
  EXPECT_EQ(g.latt_trans[1], (vec3f{0.0f, 0.5f, 0.5f}));
  EXPECT_EQ(g.centre_coord[2], 0.375f);
  EXPECT_EQ(g.sym_op[2].tr[0], 1.0f);
  // Asymmetric unit: three lower limits, then three upper limits.
  EXPECT_FLOAT_EQ(g.r_asym_unit[1][0], 0.1f);
  EXPECT_FLOAT_EQ(g.r_asym_unit[0][1], 0.3f);
}

TEST(AtomListBlock, EveryFieldAtItsOffset) {
  ASSERT_EQ(atom_fixture("x", 0.0f).size(), 639u);
  const byte_fixture f = atom_list_fixture();
  atom_list_type list;
  read_block(f, list, read_bin_atom_list, write_bin_atom_list);
  ASSERT_EQ(list.natoms, 2);
  const atom_type& a = list.atom[1];
  const std::pair<std::string, const char*> texts[] = {
      {list.atom[0].lab, "Na1"}, {a.lab, "Cl1"},     {a.chem_symb, "Na"}, {a.sf_symb, "NA+1"},
      {a.u_type, "beta"},        {a.th_type, "aniso"}, {a.info, "free text"},
  };
  for (const auto& [value, expected] : texts) EXPECT_EQ(value, expected);
  const std::pair<float, float> reals[] = {
      {a.x[2], 2002},   {a.x_sigma[0], 2003}, {a.x_mult[2], 2008}, {a.occ, 2010},     {a.biso, 2014},
      {a.u[5], 2025},   {a.u_sigma[0], 2026}, {a.u_eq, 2032},      {a.u_mult[5], 2045}, {a.charge, 2060},
      {a.moment, 2061}, {a.var[24], 2124},    {a.var_mult[0], 2125},
  };
  for (const auto& [value, expected] : reals) EXPECT_EQ(value, expected);
  const std::pair<int, int> integers[] = {
      {a.z, 11},         {a.mult, 4}, {a.occ_code, 13},       {a.biso_code, 17},
      {a.u_code[5], 55}, {a.ind[4], 74}, {a.nvar, 25},   {a.var_code[24], 224},
  };
  for (const auto& [value, expected] : integers) EXPECT_EQ(value, expected);
  EXPECT_EQ(a.x_code, (vec3i{1, 2, 3}));
  EXPECT_TRUE(a.active);
}

// Counts taken from the file: what is accepted, and what fails cleanly.
TEST(SpaceGroupBlock, CountsFromTheFile) {
  const auto with_orbits = [](int n) {
    byte_fixture f = group_fixture(2, 3, 1).i32(n).text("", 40);
    for (int i = 0; i < n; ++i) f.text("x,y,z", 40);
    return f;
  };
  const std::tuple<const char*, byte_fixture, bool> rows[] = {
      {"no Wyckoff positions: the block ends at the count", group_fixture(2, 3, 0), true},
      {"negative Wyckoff count", group_fixture(2, 3, -4), true},
      {"negative centring count", group_fixture(-1, 3, 0), true},
      {"negative operator count", group_fixture(2, -7, 0), true},
      {"a centring count the file cannot hold", group_fixture(100000000, 0, 0), false},
      {"an operator count the file cannot hold", group_fixture(2, 2000000000, 0), false},
      {"27 Wyckoff positions exceed the record", group_fixture(2, 3, 27).i32(0).text("", 40), false},
      {"49 orbits exceed the record", with_orbits(49), false},
      {"48 orbits fill the record", with_orbits(48), true},
  };
  for (const auto& [what, bytes, expected] : rows) {
    space_group_type g;
    auto in = bytes.stream();
    bool ok = !expected;
    read_bin_spacegroup(g, in, ok);
    EXPECT_EQ(ok, expected) << what;
    EXPECT_LE(g.wyckoff.count, wyckoff_type::max_positions) << what;
    EXPECT_LE(g.sym_op.size(), 3u) << what;
  }
}

// Count 0 keeps the earlier entries while the count says 0; a negative count
// allocates nothing; a count the file cannot hold fails without allocating.
TEST(AtomListBlock, CountsFromTheFile) {
  // {count, read ok, natoms after, entries after}
  const std::tuple<std::int32_t, bool, std::int32_t, std::size_t> rows[] = {
      {0, true, 0, 3}, {-5, true, -5, 0}, {1, false, 0, 3}, {2000000000, false, 0, 3}};
  for (const auto& [count, expected, natoms, entries] : rows) {
    atom_list_type list;
    allocate_atom_list(3, list);
    auto in = byte_fixture().i32(count).text("tail", 4).stream();
    bool ok = !expected;
    read_bin_atom_list(list, in, ok);
    EXPECT_EQ(ok, expected) << count;
    EXPECT_EQ(list.natoms, natoms) << count;
    EXPECT_EQ(list.atom.size(), entries) << count;
    if (expected) {
      std::string rest(4, '\0');
      in.read(rest.data(), 4);
      EXPECT_EQ(rest, "tail") << "reading goes on at the next byte";
    }
  }
}

}  // namespace
