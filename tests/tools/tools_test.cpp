// The companion programs as a user runs them: the example generator
// reproduces the committed example map, the map holds the rock-salt
// structure, and quelmora-info summarises a map or a space group, or says
// what is wrong.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <vector>
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;
namespace fs = std::filesystem;

namespace {

const std::string tools_dir = std::string(QUELMORA_BINARY_DIR) + "/tools/";
const std::string example = std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.bin";

std::string read_file(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Exit status and output (stdout and stderr) of a companion program.
std::pair<int, std::string> run(const std::string& command) {
  std::string out;
  FILE* pipe = popen((tools_dir + command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return {-1, out};
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
  const int status = pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

TEST(ExampleMap, GeneratorReproducesTheCommittedFile) {
  const fs::path out = fs::temp_directory_path() / ("quelmora_example_test_" + std::to_string(getpid()) + ".bin");
  ASSERT_EQ(run("quelmora-example " + out.string()).first, 0);
  const std::string made = read_file(out.string());
  fs::remove(out);
  EXPECT_LT(made.size(), 1000000u);
  EXPECT_EQ(made, read_file(example)) << "examples/nacl.bin is not what the generator writes";
}

// The density of the example loaded as File, Open does: Cl (18 electrons)
// outweighs Na (10) at its site, both sites are maxima of their
// neighbourhood, and the cell holds 4 x (10 + 18) = 112 electrons.
TEST(ExampleMap, HoldsRockSalt) {
  headless::install();
  qp::kerror = false;
  ASSERT_TRUE(open_filebin(example));
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  close_filebin();
  ASSERT_FALSE(qp::kerror);
  ASSERT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{48, 48, 48}));
  const float na = qp::rho(1, 1, 1), cl = qp::rho(25, 25, 25), between = qp::rho(13, 1, 1);
  EXPECT_GT(cl, na);
  EXPECT_GT(na, 10 * between);
  EXPECT_GT(na, qp::rho(2, 1, 1));
  EXPECT_GT(cl, qp::rho(25, 26, 25));
  EXPECT_FLOAT_EQ(qp::rho(25, 1, 1), cl);  // Cl at (1/2,1/2,1/2) + (0,1/2,1/2) lies at (1/2,0,0)
  double sum = 0.0;
  for (std::size_t i = 0; i < qp::rho.size(); ++i) sum += qp::rho.data()[i];
  EXPECT_NEAR(sum * qp::celda.cell_vol / static_cast<double>(qp::rho.size()), 112.0, 0.5);
  EXPECT_EQ(qp::grp_espacial.multip, 192);
}

// Listings of the example map and of space groups, as text and as JSON: the
// lines a crystallographer checks against the tables.
TEST(QuelmoraInfo, Listings) {
  struct row {
    std::string arguments;
    std::vector<std::string> lines;
  };
  const row rows[] = {
      {example, {"Title:        NaCl rock salt", "Version:      04.06", "Space group:  225  F m -3 m",
                 "Operators:    192 (reduced 24)", "Wyckoff:      11 positions", "Grid:         48 48 48", "  Cl1 ",
                 "Volume:       179.4061", "Reciprocal:   0.177305 0.177305 0.177305  90.000 90.000 90.000"}},
      {"--json " + example, {"\"title\": \"NaCl", "\"cell\": [5.63999987, 5.63999987, 5.63999987, 90, 90, 90]",
                             "\"ngrid\": [48, 48, 48]", "\"denmin\": ", "\"denmax\": ", "\"denave\": ", "\"densigma\": ",
                             "\"peaks\": []",
                             "\"number\": 225", "\"hall\": \"-F 4 2 3\"", "\"operators\": [\"x,y,z\", \"-y,x,z\"",
                             "{\"label\": \"Na1\", \"symbol\": \"Na\", \"x\": 0,"}},
      {"--json --group 'p 21/c'", {"\"number\": 14", "\"symbol\": \"P 21/c\"", "\"hall\": \"-P 2ybc\"",
                                   "\"multiplicity\": 4",
                                   "\"operators\": [\"x,y,z\", \"-x,y+1/2,-z+1/2\", \"-x,-y,-z\", \"x,-y+1/2,z+1/2\"]",
                                   "{\"multiplicity\": 2, \"origin\": \"1/2,0,1/2\"}"}},
      {"--group 230", {"I a -3 d", "Multiplicity: 96", "Wyckoff positions: 7"}},
  };
  for (const row& r : rows) {
    const auto [status, out] = run("quelmora-info " + r.arguments);
    EXPECT_EQ(status, 0) << r.arguments;
    for (const std::string& line : r.lines) EXPECT_NE(out.find(line), std::string::npos) << r.arguments << ": " << line;
  }
}

// A cut map names the block that failed; a missing map and a text that
// names no group are refused too, each with status 1.
TEST(QuelmoraInfo, Refusals) {
  const std::string bytes = read_file(example);
  const fs::path cut = fs::temp_directory_path() / ("quelmora_info_cut_" + std::to_string(getpid()) + ".bin");
  struct row {
    std::size_t cut;
    std::string arguments, message;
  };
  const row rows[] = {{0, cut.string(), "Error reading the binary file...(Title)\n"},
                      {85, cut.string(), "Error reading the binary file...(Cell...)\n"},
                      {bytes.size() - 1, cut.string(), "Error reading the binary file...(Density Map...)\n"},
                      {0, "/no/such/map.bin", "Error opening the binary file\n"}};
  for (const row& r : rows) {
    std::ofstream(cut, std::ios::binary | std::ios::trunc) << bytes.substr(0, r.cut);
    EXPECT_EQ(run("quelmora-info " + r.arguments), std::make_pair(1, r.message)) << r.cut;
  }
  fs::remove(cut);
  const auto [status, out] = run("quelmora-info --group 'Q 7'");
  EXPECT_EQ(status, 1);
  EXPECT_NE(out.find("IBRAVL is Equal Zero"), std::string::npos) << out;
}

// The isosurface summary gives densigma x SIGMA + denave and counts whole
// primitives of each type, and its OBJ file reads back as a mesh viewer
// reads it: one vertex per record, in Angstrom across the 5.64 A cell, faces
// of three or four vertices in range, and the lines of types 5 and 6.
TEST(QuelmoraInfo, IsosurfaceAndItsObjFile) {
  const fs::path obj = fs::temp_directory_path() / ("quelmora_info_" + std::to_string(getpid()) + ".obj");
  const auto [status, out] = run("quelmora-info --json " + example + " --isosurface 1.5 --obj " + obj.string());
  ASSERT_EQ(status, 0) << out;
  float level = 0;
  std::array<int, 7> n{};
  ASSERT_EQ(std::sscanf(out.c_str(), "{\"level\": %f, \"records\": %d, \"by_type\": {\"1\": %d, \"2\": %d, "
                                     "\"3\": %d, \"4\": %d, \"5\": %d, \"6\": %d}}",
                        &level, &n[0], &n[1], &n[2], &n[3], &n[4], &n[5], &n[6]),
            8)
      << out;
  const std::string listing = run("quelmora-info --json " + example).second;
  const auto after = [&](const std::string& key) { return std::stof(listing.substr(listing.find(key) + key.size())); };
  EXPECT_NEAR(level, 1.5f * after("\"densigma\": ") + after("\"denave\": "), 1e-5f);

  // Records per primitive, faces and lines per primitive, by type.
  const int reads[7] = {0, 3, 4, 7, 10, 4, 7}, faces_of[7] = {0, 1, 1, 2, 3, 1, 2}, lines_of[7] = {0, 0, 0, 0, 0, 1, 1};
  int records = 0, faces = 0, lines = 0;
  for (int t = 1; t <= 6; ++t) {
    EXPECT_EQ(n[t] % reads[t], 0) << "type " << t;
    records += n[t];
    faces += n[t] / reads[t] * faces_of[t];
    lines += n[t] / reads[t] * lines_of[t];
  }
  EXPECT_EQ(records, n[0]);
  EXPECT_GT(n[5] + n[6], 0);

  std::ifstream in(obj);
  ASSERT_TRUE(in) << "no OBJ file at " << obj;
  std::map<std::string, int> kinds;  // lines of each kind: v, f, l
  int bad = 0;
  double widest = 0;
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    const std::vector<double> values{std::istream_iterator<double>(words), std::istream_iterator<double>()};
    ++kinds[kind];
    if (kind == "v") widest = std::max({widest, std::fabs(values.at(0)), std::fabs(values.at(1)), std::fabs(values.at(2))});
    if (kind == "f") bad += values.size() != 3 && values.size() != 4;
    if (kind == "l") bad += values.size() != 2;
    if (kind != "v") for (const double v : values) bad += v < 1 || v > kinds["v"] || v != std::floor(v);
  }
  fs::remove(obj);
  EXPECT_EQ(kinds["v"], n[0]);
  EXPECT_EQ(kinds["f"], faces);
  EXPECT_EQ(kinds["l"], lines);
  EXPECT_EQ(bad, 0);
  EXPECT_TRUE(widest > 5.0 && widest < 6.0) << widest;

  const struct {
    std::string arguments;
    int status;
    std::string message;
  } refusals[] = {
      {example + " --isosurface many", 2, "--isosurface wants a number of sigmas, not \"many\""},
      {example + " --isosurface 1 --obj /no/such/folder/m.obj", 1, "Cannot write the OBJ file: /no/such/folder/m.obj"},
  };
  for (const auto& r : refusals) {
    const auto [code, text] = run("quelmora-info " + r.arguments);
    EXPECT_EQ(code, r.status) << r.arguments;
    EXPECT_NE(text.find(r.message), std::string::npos) << r.arguments << ": " << text;
  }
}

}  // namespace
