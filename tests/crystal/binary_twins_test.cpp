// The three structured blocks of the binary map file, against fixtures built
// byte by byte: every field read back, writer output equal to the fixture,
// every cut of a block a failed read, and the file's counts kept in bounds.
#include <gtest/gtest.h>

#include <sstream>

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
  f.text("BL", 2);
  return f;
}

float nth(int n) { return static_cast<float>(n) + 0.25f; }

TEST(CellBlock, EveryFieldAtItsOffset) {
  const byte_fixture f = cell_fixture();
  ASSERT_EQ(f.size(), 298u);
  cell_metrics_type c;
  c.reserved[2] = 7.0f;
  c.cell_vol_sigma = 3.0f;
  auto in = f.stream();
  bool ok = false;
  read_bin_crystal_cell(c, in, ok);
  ASSERT_TRUE(ok);
  EXPECT_EQ(c.cell[0], nth(0));
  EXPECT_EQ(c.ang[2], nth(5));
  EXPECT_EQ(c.cell_sigma[1], nth(7));
  EXPECT_EQ(c.ang_sigma[0], nth(9));
  EXPECT_EQ(c.rcell[2], nth(14));
  EXPECT_EQ(c.rang[0], nth(15));
  // Matrices: first index fastest, so the second real of gd is gd(2,1).
  EXPECT_EQ(c.gd[0][0], nth(18));
  EXPECT_EQ(c.gd[1][0], nth(19));
  EXPECT_EQ(c.gd[0][1], nth(21));
  EXPECT_EQ(c.gd[2][2], nth(26));
  EXPECT_EQ(c.gr[0][2], nth(33));
  EXPECT_EQ(c.cr_orth[2][0], nth(38));
  EXPECT_EQ(c.orth_cr[1][1], nth(49));
  EXPECT_EQ(c.bl_m[0][0], nth(54));
  EXPECT_EQ(c.bl_minv[2][2], nth(71));
  EXPECT_EQ(c.cell_vol, nth(72));
  EXPECT_EQ(c.rcell_vol, nth(73));
  EXPECT_EQ(c.cart_type, "BL");
  // Not in the file: kept as they were.
  EXPECT_EQ(c.reserved[2], 7.0f);
  EXPECT_EQ(c.cell_vol_sigma, 3.0f);

  std::ostringstream out;
  write_bin_crystal_cell(c, out);
  EXPECT_EQ(out.str(), f.bytes);
}

TEST(CellBlock, EveryCutFails) {
  const byte_fixture f = cell_fixture();
  for (std::size_t cut = 0; cut < f.size(); ++cut) {
    cell_metrics_type c;
    auto in = f.stream(cut);
    bool ok = true;
    read_bin_crystal_cell(c, in, ok);
    EXPECT_FALSE(ok) << "cut at " << cut;
  }
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

TEST(SpaceGroupBlock, EveryFieldAndWriterBytes) {
  const byte_fixture f = group_fixture();
  space_group_type g;
  g.gen_hall = "left over";
  g.wyckoff.pos[5].origin = "left over";
  auto in = f.stream();
  bool ok = false;
  read_bin_spacegroup(g, in, ok);
  ASSERT_TRUE(ok);
  EXPECT_EQ(g.numspg, 225);
  EXPECT_EQ(g.spg_symb, "F m -3 m");
  EXPECT_EQ(g.hall, "-F 4 2 3");
  EXPECT_EQ(g.crystalsys, "Cubic");
  EXPECT_EQ(g.laue, "m-3m");
  EXPECT_EQ(g.info, "");
  EXPECT_EQ(g.sg_setting, "standard setting");
  EXPECT_TRUE(g.hexa);
  EXPECT_EQ(g.spg_lat, "F");
  EXPECT_EQ(g.spg_latsy, "cF");
  ASSERT_EQ(g.latt_trans.size(), 2u);
  EXPECT_EQ(g.latt_trans[1], (vec3f{0.0f, 0.5f, 0.5f}));
  EXPECT_EQ(g.bravais, "cubic F");
  EXPECT_EQ(g.centre, "Centrosymmetric");
  EXPECT_EQ(g.centred, 2);
  EXPECT_EQ(g.centre_coord[2], 0.375f);
  EXPECT_EQ(g.num_ops, 24);
  EXPECT_EQ(g.multip, 3);
  EXPECT_EQ(g.num_gen, 4);
  ASSERT_EQ(g.sym_op.size(), 3u);
  EXPECT_EQ(g.sym_op[2].rot[0][0], 20);
  EXPECT_EQ(g.sym_op[2].rot[1][0], 21);  // rot(2,1) is the second integer
  EXPECT_EQ(g.sym_op[2].rot[0][1], 23);
  EXPECT_EQ(g.sym_op[2].tr[0], 1.0f);
  EXPECT_EQ(g.sym_op_symb[1], "op1");
  // Asymmetric unit: three lower limits, then three upper limits.
  EXPECT_FLOAT_EQ(g.r_asym_unit[1][0], 0.1f);
  EXPECT_FLOAT_EQ(g.r_asym_unit[0][1], 0.3f);
  EXPECT_EQ(g.wyckoff.count, 2);
  EXPECT_EQ(g.wyckoff.pos[0].orbit_count, 2);
  EXPECT_EQ(g.wyckoff.pos[0].orbit[1], "-x,-y,-z");
  EXPECT_EQ(g.wyckoff.pos[1].origin, "1/2,1/2,1/2");
  EXPECT_EQ(g.wyckoff.pos[1].orbit[0], "y,x,z");
  // The reader starts from a default record.
  EXPECT_EQ(g.gen_hall, "");
  EXPECT_EQ(g.wyckoff.pos[5].origin, "");

  std::ostringstream out;
  write_bin_spacegroup(g, out);
  EXPECT_EQ(out.str(), f.bytes);
}

TEST(SpaceGroupBlock, EveryCutFails) {
  const byte_fixture f = group_fixture();
  for (std::size_t cut = 0; cut < f.size(); ++cut) {
    space_group_type g;
    auto in = f.stream(cut);
    bool ok = true;
    read_bin_spacegroup(g, in, ok);
    EXPECT_FALSE(ok) << "cut at " << cut;
  }
}

// Counts taken from the file: what is accepted, and what fails cleanly.
TEST(SpaceGroupBlock, CountsFromTheFile) {
  struct row {
    const char* what;
    byte_fixture bytes;
    bool ok;
  };
  const byte_fixture positions_27 = byte_fixture(group_fixture(2, 3, 27)).i32(0).text("", 40);
  byte_fixture orbits_49 = group_fixture(2, 3, 1);
  orbits_49.i32(49).text("", 40);
  for (int i = 0; i < 49; ++i) orbits_49.text("x,y,z", 40);
  byte_fixture orbits_48 = group_fixture(2, 3, 1);
  orbits_48.i32(48).text("", 40);
  for (int i = 0; i < 48; ++i) orbits_48.text("x,y,z", 40);
  const row rows[] = {
      {"no Wyckoff positions: the block ends at the count", group_fixture(2, 3, 0), true},
      {"negative Wyckoff count", group_fixture(2, 3, -4), true},
      {"negative centring count", group_fixture(-1, 3, 0), true},
      {"negative operator count", group_fixture(2, -7, 0), true},
      {"a centring count the file cannot hold", group_fixture(100000000, 0, 0), false},
      {"an operator count the file cannot hold", group_fixture(2, 2000000000, 0), false},
      {"27 Wyckoff positions exceed the record", positions_27, false},
      {"49 orbits exceed the record", orbits_49, false},
      {"48 orbits fill the record", orbits_48, true},
  };
  for (const row& r : rows) {
    space_group_type g;
    auto in = r.bytes.stream();
    bool ok = !r.ok;
    read_bin_spacegroup(g, in, ok);
    EXPECT_EQ(ok, r.ok) << r.what;
    EXPECT_LE(g.wyckoff.count, wyckoff_type::max_positions) << r.what;
    EXPECT_LE(g.sym_op.size(), 3u) << r.what;
  }
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
  f.text("free text", 80);
  return f;
}

byte_fixture atom_list_fixture() {
  byte_fixture f;
  f.i32(2).append(atom_fixture("Na1", 1000.0f)).append(atom_fixture("Cl1", 2000.0f));
  return f;
}

TEST(AtomListBlock, EveryFieldAndWriterBytes) {
  ASSERT_EQ(atom_fixture("x", 0.0f).size(), 639u);
  const byte_fixture f = atom_list_fixture();
  atom_list_type list;
  auto in = f.stream();
  bool ok = false;
  read_bin_atom_list(list, in, ok);
  ASSERT_TRUE(ok);
  ASSERT_EQ(list.natoms, 2);
  const atom_type& a = list.atom[1];
  EXPECT_EQ(a.lab, "Cl1");
  EXPECT_EQ(a.chem_symb, "Na");
  EXPECT_EQ(a.sf_symb, "NA+1");
  EXPECT_TRUE(a.active);
  EXPECT_EQ(a.z, 11);
  EXPECT_EQ(a.mult, 4);
  EXPECT_EQ(a.x[2], 2002.0f);
  EXPECT_EQ(a.x_sigma[0], 2003.0f);
  EXPECT_EQ(a.x_mult[2], 2008.0f);
  EXPECT_EQ(a.x_code, (vec3i{1, 2, 3}));
  EXPECT_EQ(a.occ, 2010.0f);
  EXPECT_EQ(a.occ_code, 13);
  EXPECT_EQ(a.biso, 2014.0f);
  EXPECT_EQ(a.biso_code, 17);
  EXPECT_EQ(a.u_type, "beta");
  EXPECT_EQ(a.th_type, "aniso");
  EXPECT_EQ(a.u[5], 2025.0f);
  EXPECT_EQ(a.u_sigma[0], 2026.0f);
  EXPECT_EQ(a.u_eq, 2032.0f);
  EXPECT_EQ(a.u_mult[5], 2045.0f);
  EXPECT_EQ(a.u_code[5], 55);
  EXPECT_EQ(a.charge, 2060.0f);
  EXPECT_EQ(a.moment, 2061.0f);
  EXPECT_EQ(a.ind[4], 74);
  EXPECT_EQ(a.nvar, 25);
  EXPECT_EQ(a.var[24], 2124.0f);
  EXPECT_EQ(a.var_mult[0], 2125.0f);
  EXPECT_EQ(a.var_code[24], 224);
  EXPECT_EQ(a.info, "free text");
  EXPECT_EQ(list.atom[0].lab, "Na1");

  std::ostringstream out;
  write_bin_atom_list(list, out);
  EXPECT_EQ(out.str(), f.bytes);
}

TEST(AtomListBlock, EveryCutFails) {
  const byte_fixture f = atom_list_fixture();
  for (std::size_t cut = 0; cut < f.size(); ++cut) {
    atom_list_type list;
    auto in = f.stream(cut);
    bool ok = true;
    read_bin_atom_list(list, in, ok);
    EXPECT_FALSE(ok) << "cut at " << cut;
  }
}

// Count 0 keeps the earlier entries while the count says 0; a negative count
// allocates nothing; a count the file cannot hold fails without allocating.
TEST(AtomListBlock, CountsFromTheFile) {
  struct row {
    std::int32_t count;
    bool ok;
    std::int32_t natoms;
    std::size_t entries;
  };
  const row rows[] = {{0, true, 0, 3}, {-5, true, -5, 0}, {1, false, 0, 3}, {2000000000, false, 0, 3}};
  for (const row& r : rows) {
    atom_list_type list;
    allocate_atom_list(3, list);
    byte_fixture f;
    f.i32(r.count).text("tail", 4);
    auto in = f.stream();
    bool ok = !r.ok;
    read_bin_atom_list(list, in, ok);
    EXPECT_EQ(ok, r.ok) << r.count;
    EXPECT_EQ(list.natoms, r.natoms) << r.count;
    EXPECT_EQ(list.atom.size(), r.entries) << r.count;
    if (r.ok) {
      std::string rest(4, '\0');
      in.read(rest.data(), 4);
      EXPECT_EQ(rest, "tail") << "reading goes on at the next byte";
    }
  }
}

TEST(AtomListBlock, NewEntriesGetTheDefaults) {
  atom_list_type list;
  allocate_atom_list(2, list);
  ASSERT_EQ(list.atom.size(), 2u);
  EXPECT_EQ(list.atom[1].u_type, "none");
  EXPECT_EQ(list.atom[1].th_type, "isotr");
  EXPECT_EQ(list.atom[1].info, "None");
}

}  // namespace
