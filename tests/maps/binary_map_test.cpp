// The whole binary map file, built byte by byte from tests/data/maps: every
// field lands in its global, every cut of the file gives exactly the message
// of its block, and the writers reproduce the file.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include <unistd.h>

#include "maps/binary_map.h"
#include "maps/loading_progress.h"
#include "maps/map_memory.h"
#include "resources/quelmo_rc.h"
#include "state/quelmora_parametros.h"
#include "tests/crystal/byte_fixture.h"
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

// The bytes of the layout file, the offsets of its @ marks and, in file
// order, each mark's offset with the message of a cut before it.
struct map_fixture {
  std::string bytes;
  std::map<std::string, std::size_t> at;
  std::vector<std::pair<std::size_t, std::string>> blocks;
  void put(std::size_t offset, std::int32_t v) { std::memcpy(&bytes[offset], &v, 4); }
};

map_fixture read_layout() {
  byte_fixture b;
  map_fixture f;
  for (const std::string& line : data_lines("maps/nacl_map.layout")) {
    std::istringstream s(line);
    std::string kind, v;
    std::size_t width = 0;
    s >> kind;
    if (kind[0] == '@') {
      f.at[kind.substr(1)] = b.size();
      f.blocks.emplace_back(b.size(), std::getline(s >> std::ws, v) ? v : "");
    } else if (kind == "text" && s >> width) {
      std::getline(s >> std::ws, v);
      b.text(v, width);
    }
    while ((kind == "i32" || kind == "f32") && s >> v) {
      const auto star = v.find('*');
      const int count = star == std::string::npos ? 1 : std::stoi(v.substr(0, star));
      for (int n = 0; n < count; ++n)
        kind == "i32" ? b.i32(std::stoi(v.substr(star + 1))) : b.f32(std::stof(v.substr(star + 1)));
    }
  }
  f.bytes = b.bytes;
  return f;
}

// The load chain as the shell runs it for a .bin, from a clean state. The
// file is named after the process: several builds may run their tests at once.
void load(const std::string& bytes) {
  const auto path = std::filesystem::temp_directory_path() / (std::to_string(getpid()) + "_quelmora_map.bin");
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  headless::install();
  qp::rho.release();
  qp::rhonew.release();
  qp::atomos = {};
  qp::kerror = false;
  ASSERT_TRUE(open_filebin(path.string()));
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  if (!qp::kerror) read_filebin_atm_pks();
  close_filebin();
}

TEST(BinaryMap, EveryFieldLandsInItsGlobal) {
  load(read_layout().bytes);
  ASSERT_FALSE(qp::kerror);
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_EQ((std::vector<std::string>{qp::titulo, qp::filinp, qp::filbin, qp::filfou, qp::filatm}),
            (std::vector<std::string>{"NaCl test map", "nacl.inp", "nacl.bin", "nacl.fou", "nacl.atm"}));
  EXPECT_EQ(qp::lugar, (std::array<std::int32_t, 9>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ((std::vector<std::int32_t>{qp::jlist, qp::ntype, qp::npeaks, qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]}),
            (std::vector<std::int32_t>{1, 3, 1, 2, 3, 2}));
  EXPECT_EQ((std::vector<float>{qp::dist1, qp::dist2, qp::dist3, qp::f000, qp::f000s, qp::smin, qp::smax, qp::sigm,
                                qp::xinc, qp::yinc, qp::zinc, qp::denave, qp::densigma}),
            (std::vector<float>{3.5f, 2, 120, 112, 0.5f, 0, 0.7f, 2.5f, 0.5f, 1.0f / 3, 0.5f, 1.25f, 3.5f}));
  EXPECT_EQ(qp::rho(2, 3, 2), 11.0f);
  // The provisional range of the file is replaced from the loaded map; the
  // peaks replace the atoms.
  EXPECT_EQ(qp::denmin, 0.0f);
  EXPECT_EQ(qp::denmax, 11.0f);
  ASSERT_EQ(qp::atomos.natoms, 1);
  EXPECT_EQ(qp::atomos.atom[0].lab, "Q1");
}

TEST(BinaryMap, WritersReproduceTheFile) {
  const map_fixture f = read_layout();
  auto atoms_at = [&](const char* mark) {
    atom_list_type list;
    std::istringstream bytes(f.bytes.substr(f.at.at(mark)));
    bool ok = false;
    read_bin_atom_list(list, bytes, ok);
    return list;
  };
  load(f.bytes);
  ASSERT_FALSE(qp::kerror);
  qp::atomos = atoms_at("atoms");  // the structure, which the peaks replaced
  qp::denmin = -1.0f;              // the file's provisional range, replaced by the load
  qp::denmax = 99.0f;
  std::ostringstream out;
  write_filebin_head(out);
  EXPECT_EQ(out.str().size(), f.at.at("density"));
  write_filebin_rho(out);
  write_filebin_peaks(out, atoms_at("peaks"));
  EXPECT_EQ(out.str(), f.bytes);
}

// Cut the file at every byte: the message is that of the block the cut
// falls in, and only one box is shown.
TEST(BinaryMap, EveryCutGivesTheMessageOfItsBlock) {
  const map_fixture f = read_layout();
  ASSERT_EQ(f.at.at("cell"), 85u);  // an 85-byte file fails at the cell, not at the version
  auto block = f.blocks.begin();
  for (std::size_t cut = 0; cut < f.bytes.size(); ++cut) {
    while (cut >= block->first) ++block;
    load(f.bytes.substr(0, cut));
    EXPECT_TRUE(qp::kerror) << "cut at " << cut;
    const auto expected = block->second.empty() ? std::vector<std::string>{} : std::vector{block->second};
    ASSERT_EQ(headless::box_texts(), expected) << "cut at " << cut;
  }
}

// A load that looks long shows "Loading..." after its first chunk, the bar
// following the bytes read, and takes it down at the end; a quick load
// shows nothing.
TEST(BinaryMap, LongLoadsShowTheirProgress) {
  register_quelmo_rc();
  const std::vector<std::string> shown{"show 111", "111 1048 33", "111 1048 66", "111 1048 100", "unload 111"};
  for (const int long_load : {0, 60}) {
    loading_pace = {std::chrono::seconds(long_load), 16};  // 48 bytes of density: three chunks
    load(read_layout().bytes);
    EXPECT_EQ(headless::dialog_trace(), long_load == 0 ? shown : std::vector<std::string>{}) << long_load << " s";
  }
  loading_pace = {};
}

// Any five bytes of version; npeaks 0 ends the file at the density and keeps
// the atoms; a peak count of 0 empties the atom list; bytes past the last
// block are not looked at.
TEST(BinaryMap, OddButValidFiles) {
  map_fixture f = read_layout();
  const std::string whole = f.bytes, up_to_peaks = whole.substr(0, f.at.at("peaks"));
  f.bytes.replace(f.at.at("version"), 5, "zz\x01?!");
  load(f.bytes);
  EXPECT_FALSE(qp::kerror);
  f.bytes = up_to_peaks;
  const std::size_t npeaks = f.at.at("grid") - 4;  // the last of the run variables
  f.put(npeaks, 0);
  load(f.bytes);
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::atomos.natoms, 2);
  EXPECT_EQ(qp::atomos.atom[1].lab, "Cl1");
  f.put(npeaks, 3);
  load(f.bytes + std::string(4, '\0'));
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::atomos.natoms, 0);
  load(whole + "trailing bytes");
  EXPECT_FALSE(qp::kerror);
  EXPECT_TRUE(headless::boxes().empty());
}

// Hostile headers are refused with a message before the arrays are sized:
// a grid the file cannot hold (its point count overflowing too), a grid with
// no points, a cell whose angle is 0 or NaN.
TEST(BinaryMap, HostileHeadersAreRefused) {
  const std::string density = "Error reading the binary file...(Density Map...)";
  const struct {
    const char* what;
    std::vector<std::int32_t> grid;  // ngrid, when changed
    float gamma;                     // the cell's gamma
    std::string message;
  } cases[] = {
      {"grid beyond the file", {2000000000, 2, 2}, 90, density},
      {"grid count overflowing", {2147483647, 2147483647, 2147483647}, 90, density},
      {"empty grid", {0, 20000, 20000}, 90, "The binary file holds an empty map: a grid extent is 0"},
      {"angle of 0", {}, 0, "Bad cell parameters in the binary file: 5.64 5.64 5.64 90 90 0"},
      {"NaN angle", {}, std::nanf(""), "Bad cell parameters in the binary file: 5.64 5.64 5.64 90 90 nan"},
  };
  for (const auto& c : cases) {
    map_fixture f = read_layout();
    for (std::size_t k = 0; k < c.grid.size(); ++k) f.put(f.at.at("grid") + 4 * k, c.grid[k]);
    std::memcpy(&f.bytes[f.at.at("cell") + 20], &c.gamma, 4);
    load(f.bytes);
    EXPECT_TRUE(qp::kerror) << c.what;
    EXPECT_EQ(headless::box_texts(), std::vector<std::string>{c.message}) << c.what;
    EXPECT_FALSE(qp::rho.allocated() && qp::rho.size() > 1000) << c.what;
    EXPECT_FALSE(qp::rhonew.allocated() && qp::rhonew.size() > 1000) << c.what;
  }
  EXPECT_FALSE(open_filebin("/no/such/dir/map.bin"));
}

}  // namespace
