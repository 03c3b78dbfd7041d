// The companion programs as a user runs them: the example generator
// reproduces the committed example map, the map holds the rock-salt
// structure, and quelmora-info summarises it or reports a bad file.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <unistd.h>

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

struct run_result {
  int status = -1;
  std::string out;
};

// Runs a command; stdout, and stderr when asked, are captured.
run_result run(const std::string& command, bool with_stderr = false) {
  run_result r;
  FILE* pipe = popen((command + (with_stderr ? " 2>&1" : " 2>/dev/null")).c_str(), "r");
  if (!pipe) return r;
  char buf[4096];
  std::size_t n = 0;
  while ((n = std::fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, n);
  const int status = pclose(pipe);
  r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

TEST(ExampleMap, GeneratorReproducesTheCommittedFile) {
  const fs::path out = fs::temp_directory_path() / ("quelmora_example_test_" + std::to_string(getpid()) + ".bin");
  ASSERT_EQ(run(tools_dir + "quelmora-example " + out.string()).status, 0);
  const std::string made = read_file(out.string());
  EXPECT_LT(made.size(), 1000000u);
  EXPECT_EQ(made, read_file(example)) << "examples/nacl.bin is not what the generator writes";
}

// Loads the example map as File, Open does; false when it failed.
bool load_example() {
  headless::install();
  qp::kerror = false;
  if (!open_filebin(example)) return false;
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  close_filebin();
  return !qp::kerror;
}

// The density of the example: Cl (18 electrons) outweighs Na (10) at its
// site, both sites are maxima of their neighbourhood, and the cell holds
// 4 x (10 + 18) = 112 electrons.
TEST(ExampleMap, HoldsRockSalt) {
  ASSERT_TRUE(load_example());
  ASSERT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{48, 48, 48}));
  const float na = qp::rho(1, 1, 1), cl = qp::rho(25, 25, 25), between = qp::rho(13, 1, 1);
  EXPECT_GT(cl, na);
  EXPECT_GT(na, 10 * between);
  EXPECT_GT(na, qp::rho(2, 1, 1));
  EXPECT_GT(cl, qp::rho(25, 26, 25));
  EXPECT_FLOAT_EQ(qp::rho(25, 1, 1), cl);  // Cl at (1/2,1/2,1/2) + (0,1/2,1/2) lies at (1/2,0,0)
  double sum = 0.0;
  for (std::size_t i = 0; i < qp::rho.size(); ++i) sum += qp::rho.data()[i];
  const double electrons = sum * qp::celda.cell_vol / static_cast<double>(qp::rho.size());
  EXPECT_NEAR(electrons, 112.0, 0.5);
  EXPECT_EQ(qp::grp_espacial.multip, 192);
  EXPECT_EQ(qp::grp_espacial.sym_op_symb[0], "x,y,z");
}

// The example's 192 operators are distinct and form a group: the product of
// any two is one of them, up to a whole lattice translation.
TEST(ExampleMap, OperatorsFormAGroup) {
  ASSERT_TRUE(load_example());
  const auto& ops = qp::grp_espacial.sym_op;
  ASSERT_EQ(ops.size(), 192u);
  // An operator as integers: rotation, and translation in halves modulo 2.
  auto key = [](const mat3i& r, const vec3f& t) {
    std::vector<int> k;
    for (const auto& row : r) k.insert(k.end(), row.begin(), row.end());
    for (float v : t) k.push_back(((static_cast<int>(std::lround(2.0f * v)) % 2) + 2) % 2);
    return k;
  };
  std::set<std::vector<int>> all;
  for (const auto& op : ops) all.insert(key(op.rot, op.tr));
  EXPECT_EQ(all.size(), 192u);
  for (const auto& a : ops)
    for (const auto& b : ops) {
      mat3i r{};
      vec3f t{};
      for (int i = 0; i < 3; ++i) {
        t[i] = a.tr[i];
        for (int j = 0; j < 3; ++j) {
          t[i] += static_cast<float>(a.rot[i][j]) * b.tr[j];
          for (int k = 0; k < 3; ++k) r[i][j] += a.rot[i][k] * b.rot[k][j];
        }
      }
      ASSERT_TRUE(all.contains(key(r, t)));
    }
}

TEST(QuelmoraInfo, SummaryOfTheExample) {
  const run_result text = run(tools_dir + "quelmora-info " + example);
  EXPECT_EQ(text.status, 0);
  for (const char* line : {"Title:        NaCl rock salt", "Version:      04.06", "Space group:  225  F m -3 m",
                           "Operators:    192 (reduced 24)", "Wyckoff:      11 positions", "Grid:         48 48 48", "  Cl1 ",
                           "Volume:       179.4061", "Reciprocal:   0.177305 0.177305 0.177305  90.000 90.000 90.000"})
    EXPECT_NE(text.out.find(line), std::string::npos) << line;
  const run_result json = run(tools_dir + "quelmora-info --json " + example);
  EXPECT_EQ(json.status, 0);
  for (const char* key : {"\"title\": \"NaCl", "\"cell\": [5.63999987, 5.63999987, 5.63999987, 90, 90, 90]",
                          "\"ngrid\": [48, 48, 48]", "\"denmin\": ", "\"denmax\": ", "\"denave\": ",
                          "\"densigma\": ", "\"peaks\": []", "\"number\": 225", "\"hall\": \"-F 4 2 3\"",
                          "\"operators\": [\"x,y,z\", \"-y,x,z\"", "{\"label\": \"Na1\", \"symbol\": \"Na\", \"x\": 0,"})
    EXPECT_NE(json.out.find(key), std::string::npos) << key;
}

// A cut file: the message of the failing block on stderr, exit status 1.
TEST(QuelmoraInfo, BadFiles) {
  const std::string bytes = read_file(example);
  struct row {
    std::size_t cut;
    const char* message;
  };
  const row rows[] = {{0, "Error reading the binary file...(Title)"},
                      {85, "Error reading the binary file...(Cell...)"},
                      {bytes.size() - 1, "Error reading the binary file...(Density Map...)"}};
  const fs::path cut = fs::temp_directory_path() / ("quelmora_info_cut_" + std::to_string(getpid()) + ".bin");
  for (const row& r : rows) {
    std::ofstream(cut, std::ios::binary | std::ios::trunc) << bytes.substr(0, r.cut);
    const run_result got = run(tools_dir + "quelmora-info " + cut.string(), true);
    EXPECT_EQ(got.status, 1) << r.cut;
    EXPECT_EQ(got.out, std::string(r.message) + "\n") << r.cut;
  }
  const run_result missing = run(tools_dir + "quelmora-info /no/such/map.bin", true);
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.out, "Error opening the binary file\n");
}

}  // namespace
