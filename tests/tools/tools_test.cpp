// The companion programs as a user runs them: the example generator
// reproduces the committed example files, the map holds the rock-salt
// structure, sintrel makes the map again from the example's reflections and
// refuses bad input, and quelmora-info summarises a map or a space group, or
// says what is wrong.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
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
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;
namespace fs = std::filesystem;

namespace {

const std::string tools_dir = std::string(QUELMORA_BINARY_DIR) + "/tools/";
const std::string example = std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.bin";
const std::string nacl_structure = std::string(QUELMORA_SOURCE_DIR) + "/tests/data/tools/nacl.txt";

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

// A scratch folder holding the example's map, control file and reflections
// as the generator writes them.
fs::path example_folder(const std::string& name) {
  const fs::path dir = fs::temp_directory_path() / ("quelmora_" + name + "_" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir);
  EXPECT_EQ(run("quelmora-example " + (dir / "nacl.bin").string()).first, 0);
  return dir;
}

// Loads a map as File, Open does, peaks included; false when it is refused.
bool load_map(const std::string& path) {
  headless::install();
  qp::kerror = false;
  if (!open_filebin(path)) return false;
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  if (!qp::kerror) read_filebin_atm_pks();
  close_filebin();
  return !qp::kerror;
}

TEST(ExampleMap, GeneratorReproducesTheCommittedFiles) {
  const fs::path dir = example_folder("example");
  EXPECT_EQ(run("quelmora-example --molecule " + (dir / "hmt.bin").string()).first, 0);
  for (const char* name : {"nacl.bin", "nacl.inp", "nacl.fou", "hmt.bin", "hmt.enl"})
    EXPECT_EQ(read_file((dir / name).string()), read_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/" + name))
        << "examples/" << name << " is not what the generator writes";
  EXPECT_LT(fs::file_size(dir / "nacl.bin"), 1000000u);
  fs::remove_all(dir);
}

// The density of the example loaded as File, Open does: Cl (18 electrons)
// outweighs Na (10) at its site, both sites are maxima of their
// neighbourhood, and the cell holds 4 x (10 + 18) = 112 electrons.
TEST(ExampleMap, HoldsRockSalt) {
  ASSERT_TRUE(load_map(example));
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

// The example's reflections, as nacl.fou and as a SHELXL LIST 6 file, give
// back the example map within the error of cutting the series at
// sin(theta)/lambda 0.7; a reflection that F centring forbids is left out;
// with Scan 2 the two peaks are Cl (an odd number of halves among its
// coordinates, F centring) and then Na, of the map's heights.
TEST(Sintrel, GivesBackTheExampleMap) {
  const fs::path dir = example_folder("sintrel");
  fs::rename(dir / "nacl.bin", dir / "reference.bin");
  ASSERT_TRUE(load_map((dir / "reference.bin").string()));
  const std::vector<float> reference(qp::rho.data(), qp::rho.data() + qp::rho.size());
  const float cl = qp::rho(25, 25, 25), na = qp::rho(1, 1, 1);
  std::string fcf = "data_nacl\n_shelx_refln_list_code 6\nloop_\n _refln_index_h\n _refln_index_k\n _refln_index_l\n"
                    " _refln_F_squared_meas\n _refln_F_squared_sigma\n _refln_F_calc\n _refln_phase_calc\n";
  std::ofstream(dir / "nacl.fou", std::ios::app) << "1 0 0 50.0 0.5 0.0\n";
  std::ifstream fou(dir / "nacl.fou");
  for (std::string line; std::getline(fou, line);) {
    int h, k, l;
    double fo, sigma, phase;
    if (std::sscanf(line.c_str(), "%d %d %d %lf %lf %lf", &h, &k, &l, &fo, &sigma, &phase) == 6)
      fcf += std::to_string(h) + " " + std::to_string(k) + " " + std::to_string(l) + " " + std::to_string(fo * fo) +
             " " + std::to_string(2 * fo * sigma) + " " + std::to_string(fo) + " " + std::to_string(phase) + "\n";
  }
  std::ofstream(dir / "nacl.fcf") << fcf;
  const std::string control = read_file((dir / "nacl.inp").string());
  for (const char* reflections : {"nacl.fou", "nacl.fcf"}) {
    std::ofstream(dir / "nacl.inp") << " Scan 2\n File fou " << reflections << "\n" << control;
    ASSERT_EQ(run("sintrel " + (dir / "nacl.inp").string()).first, 0) << reflections;
    ASSERT_TRUE(load_map((dir / "nacl.bin").string())) << reflections;
    ASSERT_EQ(qp::rho.size(), reference.size());
    for (std::size_t i = 0; i < reference.size(); ++i)
      ASSERT_NEAR(qp::rho.data()[i], reference[i], 0.01f * cl) << reflections << " at point " << i;
    ASSERT_EQ(qp::atomos.natoms, 2) << reflections;
    for (std::size_t p = 0; p < 2; ++p) {
      const atom_type& peak = qp::atomos.atom[p];
      int halves = 0, others = 0;
      for (float x : peak.x) {
        const float r = std::fabs(std::remainder(x, 1.0f));
        halves += r > 0.49f;
        others += r > 0.01f && r < 0.49f;
      }
      EXPECT_EQ(halves % 2 + 2 * others, p == 0 ? 1 : 0) << reflections << ": " << peak.lab;
      EXPECT_NEAR(peak.var[0], p == 0 ? cl : na, 0.01f * cl) << reflections << ": " << peak.lab;
    }
    EXPECT_EQ(read_file((dir / "nacl.pks").string()).substr(0, 2), "! ") << reflections;
  }
  fs::remove_all(dir);
}

// Map coefficients of an MTZ file written by gemmi (tests/data/synthesis,
// made by scripts/mtz_reference.py) give the map of the same coefficients as
// text, or of the pair named (FC at half the amplitude: half the map about its
// mean); a file whose crystal is not the control file's, or cut short, is refused.
TEST(Sintrel, MapCoefficientsFromAnMtzFile) {
  const fs::path dir = fs::temp_directory_path() / ("quelmora_mtz_" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir);
  for (const char* name : {"p21.inp", "p21.mtz", "p21.fou"})
    fs::copy_file(data_path(std::string("synthesis/") + name), dir / name);
  fs::copy_file(dir / "p21.mtz", dir / "cut.mtz");
  fs::resize_file(dir / "cut.mtz", 4000);
  const std::string control = read_file((dir / "p21.inp").string());
  const auto changed = [&](const std::string& from, const std::string& to) {
    std::string text = control;
    return text.replace(text.find(from), from.size(), to);
  };
  const struct {
    const char* what;
    std::string inp, options;
    float scale;  // of the map about its mean against the text file's; 0: refused
    const char* says;
  } rows[] = {
      {"text", changed("p21.mtz", "p21.fou"), "", 1.0f, "h(1) k(2) l(3) fo(4) ph(5)"},
      {"usual pair", control, "", 1.0f, "MTZ columns FWT, PHWT; 1 reflections with a missing value left out"},
      {"named pair", control, " --columns FC,PHIC", 0.5f, "MTZ columns FC, PHIC; 1 reflections"},
      {"unknown column", control, " --columns F,PHI", 0.0f, "p21.mtz: no column named F"},
      {"wrong cell", changed(" 7.0000", " 7.2000"), "", 0.0f, "The cell of the MTZ file"},
      {"wrong group", changed("Spgr P 21", "Spgr P 2"), "", 0.0f, "The space group of the MTZ file"},
      {"cut short", changed("p21.mtz", "cut.mtz"), "", 0.0f, "cut.mtz: truncated"},
  };
  std::vector<float> text;
  float mean = 0.0f;
  for (const auto& r : rows) {
    std::ofstream(dir / "p21.inp") << r.inp;
    const auto [status, out] = run("sintrel " + (dir / "p21.inp").string() + r.options);
    EXPECT_EQ(status, r.scale > 0.0f ? 0 : 1) << r.what << ": " << out;
    EXPECT_NE(read_file((dir / "p21.out").string()).find(r.says), std::string::npos) << r.what << ": " << out;
    if (status != 0 || !load_map((dir / "p21.bin").string())) continue;
    if (text.empty()) text.assign(qp::rho.data(), qp::rho.data() + qp::rho.size()), mean = qp::denave;
    ASSERT_EQ(qp::rho.size(), text.size()) << r.what;
    for (std::size_t i = 0; i < text.size(); ++i)
      ASSERT_NEAR(qp::rho.data()[i], mean + r.scale * (text[i] - mean), 1e-4f) << r.what << " at point " << i;
  }
  fs::remove_all(dir);
}

// Bad input: a clear message on standard error and in the listing, status
// 1, and no map left behind.
TEST(Sintrel, Refusals) {
  const fs::path dir = example_folder("sintrel_refusals");
  const std::string control = read_file((dir / "nacl.inp").string()), fou = read_file((dir / "nacl.fou").string());
  const auto changed = [&](const std::string& from, const std::string& to) {
    std::string text = control;
    return text.replace(text.find(from), from.size(), to);
  };
  struct row {
    const char* what;
    std::string inp, fou, message;
  };
  const row rows[] = {
      {"garbage", control, fou + "1 1 x1 2 3 4\n", "nacl.fou, line 27: the l column holds 'x1', not a number"},
      {"short line", control, "1 1 1 22.1\n", "nacl.fou, line 1: 4 columns, where h(1) k(2) l(3) fo(4) ph(6) si(5) needs 6"},
      {"fraction", control, "1 1 0.5 1 1 0\n", "nacl.fou, line 1: the index l is '0.5', not a whole number"},
      {"no reflection file", control, "", "Cannot read the reflection file"},
      {"no phase", changed("Form h k l fo si ph", "Form h k l fo si"), fou, "The Form line names no column ph"},
      {"bad directive", " Grid 48 48\n" + control, fou, "Wrong arguments on line 1 of the control file: grid 48 48"},
      {"no cell", " Cell 5.64 5.64\n Cell 0 5 5 90 90 90\n" + control.substr(control.find("Spgr") - 1), fou,
       "no usable cell"},
      {"fcf without phase", control, "data_x\nloop_\n_refln_index_h\n_refln_index_k\n_refln_index_l\n"
                                     "_refln_F_squared_meas\n1 1 1 4\n", "lacks an item"},
      {"huge grid", changed("Grid   48  48  48", "Grid 2000 2000 2000"), fou, "cannot be made"},
  };
  for (const row& r : rows) {
    fs::remove(dir / "nacl.bin");
    std::ofstream(dir / "nacl.inp") << r.inp;
    fs::remove(dir / "nacl.fou");
    if (!r.fou.empty()) std::ofstream(dir / "nacl.fou") << r.fou;
    const auto [status, out] = run("sintrel " + (dir / "nacl.inp").string());
    EXPECT_EQ(status, 1) << r.what;
    EXPECT_NE(out.find(r.message), std::string::npos) << r.what << ": " << out;
    EXPECT_NE(read_file((dir / "nacl.out").string()).find(r.message), std::string::npos) << r.what;
    EXPECT_FALSE(fs::exists(dir / "nacl.bin")) << r.what;
  }
  EXPECT_EQ(run("sintrel " + (dir / "none.inp").string()).second,
            "sintrel: Cannot open the control file " + (dir / "none.inp").string() + "\n");
  fs::remove_all(dir);
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
      {"--json --format vtl --structure " + nacl_structure,
       {"{\"cell\": [5.63999987, 5.63999987, 5.63999987, 90, 90, 90], \"spacegroup\": {\"number\": 225",
        "\"multiplicity\": 192", "{\"label\": \"Cl1\", \"symbol\": \"Cl\", \"x\": 0.5, \"y\": 0.5, \"z\": 0.5, "
        "\"occ\": 0.020833334, \"biso\": 0, \"mult\": 4}]}"}},
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
  EXPECT_EQ(run("quelmora-info --structure /no/such.vtl"),
            std::make_pair(1, std::string("The file /no/such.vtl contains nothing\n")));
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
