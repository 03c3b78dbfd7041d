// The whole binary map file, built byte by byte: every field lands in its
// global, every cut of the file gives exactly the message of its block, and
// the writers reproduce the fixture.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"
#include "tests/crystal/byte_fixture.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

// Offsets of the block boundaries of a built file.
struct layout {
  std::size_t version, cell, group, atoms, files, variables, grid, summary, density, peaks, end;
};

byte_fixture atom(const std::string& label, float x, float occ) {
  byte_fixture f;
  f.text(label, 20).text("Na", 2).text("NA", 4).i32(-1).i32(11).i32(1);
  f.f32(x).f32(0.25f).f32(0.5f);
  for (int n = 0; n < 6; ++n) f.f32(0.0f);
  f.i32(0).i32(0).i32(0).f32(occ).f32(0).f32(0).i32(0).f32(1.5f).f32(0).f32(0).i32(0);
  f.text("none", 4).text("isotr", 5);
  for (int n = 0; n < 19; ++n) f.f32(0.0f);
  for (int n = 0; n < 6; ++n) f.i32(0);
  f.f32(0).f32(0);
  for (int n = 0; n < 6; ++n) f.i32(0);
  for (int n = 0; n < 50; ++n) f.f32(0.0f);
  for (int n = 0; n < 25; ++n) f.i32(0);
  f.text("None", 80);
  return f;
}

// A 2 x 3 x 2 map with two atoms and, when npeaks > 0, a peak list of
// peak_count entries.
byte_fixture map_file(layout& at, const std::string& version = "04.06", std::int32_t npeaks = 1,
                      std::int32_t peak_count = 1, std::array<std::int32_t, 3> ngrid = {2, 3, 2}) {
  byte_fixture f;
  f.text("NaCl test map", 80);
  at.version = f.size();
  f.text(version, 5);
  at.cell = f.size();
  const float cell_values[6] = {5.64f, 5.64f, 5.64f, 90.0f, 90.0f, 90.0f};
  for (float v : cell_values) f.f32(v);
  for (int n = 6; n < 74; ++n) f.f32(static_cast<float>(n));
  f.text("BL", 2);
  at.group = f.size();
  f.i32(225).text("F m -3 m", 20).text("-F 4 2 3", 16).text("Cubic", 12).text("m-3m", 5).text("m-3m", 5);
  f.text("", 5).text("", 90).i32(0).text("F", 1).text("cF", 2).i32(0);
  f.text("", 51).text("", 80).i32(2).f32(0).f32(0).f32(0).i32(1).i32(1).i32(0);
  for (int n = 0; n < 9; ++n) f.i32(n % 4 == 0 ? 1 : 0);
  f.f32(0).f32(0).f32(0).text("x,y,z", 50);
  for (int n = 0; n < 6; ++n) f.f32(n < 3 ? 0.0f : 1.0f);
  f.i32(0);
  at.atoms = f.size();
  f.i32(2).append(atom("Na1", 0.0f, 1.0f)).append(atom("Cl1", 0.5f, 1.0f));
  at.files = f.size();
  f.text("nacl.inp", 150).text("nacl.bin", 150).text("nacl.fou", 150).text("nacl.atm", 150);
  for (int n = 1; n <= 9; ++n) f.i32(n);
  f.i32(1).f32(3.5f).f32(2.0f).f32(120.0f);
  at.variables = f.size();
  f.f32(112.0f).f32(0.5f).i32(3).f32(0.0f).f32(0.7f).f32(2.5f).i32(npeaks);
  at.grid = f.size();
  f.i32(ngrid[0]).i32(ngrid[1]).i32(ngrid[2]).f32(-1.0f).f32(99.0f);
  f.f32(0).f32(1).f32(0).f32(1).f32(0).f32(1).f32(0.5f).f32(1.0f / 3.0f).f32(0.5f);
  at.summary = f.size();
  f.f32(1.25f).f32(3.5f);
  at.density = f.size();
  for (int n = 0; n < 12; ++n) f.f32(static_cast<float>(n));  // value n at point n, x fastest
  at.peaks = f.size();
  if (npeaks > 0) {
    f.i32(peak_count);
    for (int n = 0; n < peak_count; ++n) f.append(atom("Q" + std::to_string(n + 1), 0.25f, 7.5f));
  }
  at.end = f.size();
  return f;
}

std::string write_temp(const std::string& bytes, const std::string& name = "quelmora_map_test.bin") {
  // Named after the process too: several builds may run their tests at once.
  const auto path = std::filesystem::temp_directory_path() / (std::to_string(getpid()) + "_" + name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path.string();
}

// The load chain as the shell runs it for a .bin.
void load(const std::string& path) {
  qp::kerror = false;
  ASSERT_TRUE(open_filebin(path));
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  if (!qp::kerror) read_filebin_atm_pks();
  close_filebin();
}

class BinaryMap : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    qp::rho.release();
    qp::rhonew.release();
    qp::atomos = {};
    qp::kerror = false;
  }
};

TEST_F(BinaryMap, EveryFieldLandsInItsGlobal) {
  layout at{};
  load(write_temp(map_file(at).bytes));
  ASSERT_FALSE(qp::kerror);
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_EQ(qp::titulo, "NaCl test map");
  EXPECT_EQ(qp::celda.cell[0], 5.64f);
  EXPECT_EQ(qp::celda.cart_type, "BL");
  EXPECT_EQ(qp::grp_espacial.numspg, 225);
  EXPECT_EQ(qp::grp_espacial.sym_op_symb[0], "x,y,z");
  EXPECT_EQ(qp::filinp, "nacl.inp");
  EXPECT_EQ(qp::filbin, "nacl.bin");
  EXPECT_EQ(qp::filfou, "nacl.fou");
  EXPECT_EQ(qp::filatm, "nacl.atm");
  EXPECT_EQ(qp::lugar, (std::array<std::int32_t, 9>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(qp::jlist, 1);
  EXPECT_EQ(qp::dist3, 120.0f);
  EXPECT_EQ(qp::f000, 112.0f);
  EXPECT_EQ(qp::f000s, 0.5f);
  EXPECT_EQ(qp::ntype, 3);
  EXPECT_EQ(qp::smax, 0.7f);
  EXPECT_EQ(qp::sigm, 2.5f);
  EXPECT_EQ(qp::npeaks, 1);
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{2, 3, 2}));
  EXPECT_EQ(qp::yinc, 1.0f / 3.0f);
  EXPECT_EQ(qp::denave, 1.25f);
  EXPECT_EQ(qp::densigma, 3.5f);
  // x fastest: point (i, j, k) is element (i-1) + 2((j-1) + 3(k-1)).
  EXPECT_EQ(qp::rho(2, 1, 1), 1.0f);
  EXPECT_EQ(qp::rho(1, 2, 1), 2.0f);
  EXPECT_EQ(qp::rho(1, 1, 2), 6.0f);
  EXPECT_EQ(qp::rho(2, 3, 2), 11.0f);
  // The provisional range of the file is replaced from the loaded map.
  EXPECT_EQ(qp::denmin, 0.0f);
  EXPECT_EQ(qp::denmax, 11.0f);
  // Peaks replace the atoms.
  ASSERT_EQ(qp::atomos.natoms, 1);
  EXPECT_EQ(qp::atomos.atom[0].lab, "Q1");
  EXPECT_EQ(qp::atomos.atom[0].occ, 7.5f);
}

TEST_F(BinaryMap, WritersReproduceTheFile) {
  layout at{};
  const byte_fixture f = map_file(at);
  ASSERT_TRUE(open_filebin(write_temp(f.bytes)));
  read_filebin_head();
  ASSERT_FALSE(qp::kerror);
  const atom_list_type structure = qp::atomos;
  memory_maps();
  read_filebin_rho();
  read_filebin_atm_pks();
  close_filebin();
  qp::denmin = -1.0f;  // the file's provisional range, replaced by the load
  qp::denmax = 99.0f;
  qp::atomos = structure;
  std::ostringstream out;
  write_filebin_head(out);
  EXPECT_EQ(out.str().size(), at.density);
  write_filebin_rho(out);
  atom_list_type peaks;
  allocate_atom_list(1, peaks);
  std::istringstream peak_bytes(f.bytes.substr(at.peaks));
  bool ok = false;
  read_bin_atom_list(peaks, peak_bytes, ok);
  write_filebin_peaks(out, peaks);
  EXPECT_EQ(out.str(), f.bytes);
}

// Cut the file at every byte: the message is that of the block the cut
// falls in, and only one box is shown.
TEST_F(BinaryMap, EveryCutGivesTheMessageOfItsBlock) {
  layout at{};
  const byte_fixture f = map_file(at);
  struct block {
    std::size_t end;
    const char* message;  // "" for no message
  };
  const block blocks[] = {
      {at.version, "Error reading the binary file...(Title)"},
      {at.cell, "Version of Sintrel-Quelmora NOT FOUND in the binary file"},
      {at.group, "Error reading the binary file...(Cell...)"},
      {at.atoms, "Error reading the binary file...(Symmetry...)"},
      {at.files, "Error reading the binary file...(Number of Atoms ...)"},
      {at.variables, "Error reading the binary file...(Files...)"},
      {at.grid, "Error reading the binary file...(Variables...)"},
      {at.summary, "Error reading the binary file...(Grid size of FFT...)"},
      {at.density, ""},
      {at.peaks, "Error reading the binary file...(Density Map...)"},
      {at.end, "Error reading the binary file...( Peaks data...)"},
  };
  const std::string path = write_temp("", "quelmora_cut_test.bin");
  std::size_t b = 0;
  for (std::size_t cut = 0; cut < f.size(); ++cut) {
    while (cut >= blocks[b].end) ++b;
    headless::install();
    std::ofstream(path, std::ios::binary | std::ios::trunc) << f.bytes.substr(0, cut);
    load(path);
    EXPECT_TRUE(qp::kerror) << "cut at " << cut;
    const std::vector<std::string> expected =
        *blocks[b].message ? std::vector<std::string>{blocks[b].message} : std::vector<std::string>{};
    ASSERT_EQ(headless::box_texts(), expected) << "cut at " << cut;
  }
  EXPECT_EQ(at.cell, 85u);  // an 85-byte file fails at the cell, not at the version
}

TEST_F(BinaryMap, OddButValidFiles) {
  layout at{};
  // Any five bytes in the version field.
  load(write_temp(map_file(at, "zz\x01?!").bytes));
  EXPECT_FALSE(qp::kerror);
  // npeaks 0: the file ends with the density grid.
  qp::atomos = {};
  load(write_temp(map_file(at, "04.06", 0).bytes));
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::atomos.natoms, 2);
  EXPECT_EQ(qp::atomos.atom[1].lab, "Cl1");
  // npeaks above 0 with a peak count of 0: atomos says 0.
  load(write_temp(map_file(at, "04.06", 3, 0).bytes));
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::atomos.natoms, 0);
  EXPECT_TRUE(headless::boxes().empty());
  // Bytes behind the last block are not looked at.
  load(write_temp(map_file(at).bytes + "trailing bytes"));
  EXPECT_FALSE(qp::kerror);
}

// A grid count the file cannot hold is refused before the arrays are sized.
TEST_F(BinaryMap, AbsurdGridFailsAtTheDensityMap) {
  layout at{};
  for (const std::array<std::int32_t, 3> ngrid : {std::array<std::int32_t, 3>{2000, 2000, 2000},
                                                  std::array<std::int32_t, 3>{2147483647, 2, 1}}) {
    headless::install();
    load(write_temp(map_file(at, "04.06", 0, 0, ngrid).bytes));
    EXPECT_TRUE(qp::kerror);
    EXPECT_EQ(headless::box_texts(), std::vector<std::string>{"Error reading the binary file...(Density Map...)"});
    EXPECT_FALSE(qp::rho.allocated() && qp::rho.size() > 1000);
  }
}

TEST_F(BinaryMap, MissingFileDoesNotOpen) { EXPECT_FALSE(open_filebin("/no/such/dir/map.bin")); }

}  // namespace
