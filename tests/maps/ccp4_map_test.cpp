// CCP4 maps of parts of a P 21 cell, written with the columns along z, the
// rows along x and the sections along y: the whole cell's grid the load makes,
// point by point, against gemmi's reading of the same files
// (tests/data/maps/ccp4_p21.txt, made by scripts/ccp4_reference.py).
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <sstream>

#include <cmaplib.h>

#include "maps/ccp4_map.h"
#include "state/quelmora_parametros.h"
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

struct map_case {
  std::string name;
  std::array<int, 3> start, dim;  // along columns (z), rows (x), sections (y)
  std::string note;               // the start of the box telling what stays unreached
  std::array<float, 2> ylim;
};

// The map of a case, as the test's own writer makes it through cmaplib
// (checked once against gemmi): the value of the n-th point in the file is n.
// The file is left in the build folder for scripts/ccp4_reference.py; each
// test writes its own, as ctest may run them side by side.
// A map file of a test in the temporary folder, removed when it goes out of
// scope; the process id keeps tests run side by side apart.
struct scratch_file {
  explicit scratch_file(const std::string& name)
      : path((std::filesystem::temp_directory_path() / ("quelmora-" + std::to_string(getpid()) + "-" + name)).string()) {}
  ~scratch_file() { std::filesystem::remove(path); }
  const std::string path;
};

std::string write_map(const map_case& c, const std::string& path) {
  auto* f = static_cast<CMap_io::CMMFile*>(CMap_io::ccp4_cmap_open(path.c_str(), O_WRONLY));
  const float cell[6] = {7.0f, 9.0f, 11.0f, 90.0f, 104.0f, 90.0f};
  const int grid[3] = {8, 10, 12}, order[3] = {3, 1, 2};
  CMap_io::ccp4_cmap_set_cell(f, cell);
  CMap_io::ccp4_cmap_set_grid(f, grid);
  CMap_io::ccp4_cmap_set_order(f, order);
  CMap_io::ccp4_cmap_set_origin(f, c.start.data());
  CMap_io::ccp4_cmap_set_dim(f, c.dim.data());
  CMap_io::ccp4_cmap_set_spacegroup(f, 4);
  CMap_io::ccp4_cmap_set_datamode(f, 2);
  CMap_io::ccp4_cmap_set_title(f, ("P 21 " + c.name).c_str());
  std::vector<float> section(static_cast<std::size_t>(c.dim[0] * c.dim[1]));
  for (int s = 0, n = 0; s < c.dim[2]; ++s) {
    for (float& v : section) v = static_cast<float>(n++);
    CMap_io::ccp4_cmap_write_section(f, section.data());
  }
  CMap_io::ccp4_cmap_close(f);
  return path;
}

void load(const std::string& path) {
  headless::install();
  qp::kerror = false;
  read_ccp4_map(path);
}

const map_case cases[] = {
    // One asymmetric unit, started below the cell in y and inside it in x.
    {"asu", {0, 3, -2}, {12, 8, 5}, "", {-0.2f, 0.2f}},
    // One plane short of it in y: y = 0.4 and its image 0.9 stay unreached.
    {"short", {0, 0, 0}, {12, 8, 4}, "20.0% of the cell", {0.0f, 0.3f}},
};

}  // namespace

TEST(Ccp4Map, PartsOfAP21CellFillTheCellAsGemmiDoes) {
  std::map<std::string, std::vector<std::array<float, 4>>> reference;  // i j k value, nan unreached
  for (const std::string& line : data_lines("maps/ccp4_p21.txt")) {
    std::istringstream in(line);
    std::string name, value;  // "nan" is no number to operator>>
    std::array<float, 4> p{};
    in >> name >> p[0] >> p[1] >> p[2] >> value;
    p[3] = std::stof(value);
    reference[name].push_back(p);
  }
  for (const map_case& c : cases) {
    SCOPED_TRACE(c.name);
    const scratch_file file("ccp4_p21_" + c.name + ".map");
    load(write_map(c, file.path));
    ASSERT_FALSE(qp::kerror) << testing::PrintToString(headless::box_texts());
    EXPECT_EQ(qp::titulo, "P 21 " + c.name);
    EXPECT_EQ(qp::grp_espacial.numspg, 4);
    EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{8, 10, 12}));
    EXPECT_EQ(qp::ylim, c.ylim);
    EXPECT_EQ((std::array<float, 4>{qp::xlim[0], qp::xlim[1], qp::zlim[0], qp::zlim[1]}),
              (std::array<float, 4>{0.0f, 1.0f, 0.0f, 1.0f}));
    const auto boxes = headless::box_texts();
    EXPECT_EQ(boxes.size(), c.note.empty() ? 0u : 1u);
    for (const std::string& box : boxes) EXPECT_EQ(box.rfind(c.note, 0), 0u) << box;
    const float mean = static_cast<float>(c.dim[0] * c.dim[1] * c.dim[2] - 1) / 2.0f;
    EXPECT_EQ(std::pair(qp::denmin, qp::denmax), std::pair(0.0f, 2 * mean));  // of the whole cell
    EXPECT_FLOAT_EQ(qp::denave, mean);
    ASSERT_EQ(reference[c.name].size(), qp::rho.size());
    for (const auto& [i, j, k, v] : reference[c.name])
      ASSERT_EQ(qp::rho(static_cast<int>(i) + 1, static_cast<int>(j) + 1, static_cast<int>(k) + 1),
                std::isnan(v) ? mean : v)
          << "grid point " << i << " " << j << " " << k;
  }
}

TEST(Ccp4Map, DamagedFilesAreRefusedNamingTheFile) {
  const scratch_file whole("ccp4_whole.map"), cut_file("ccp4_cut.map");
  write_map(cases[0], whole.path);
  const struct {
    std::uintmax_t size;
    const char* says;
  } cuts[] = {{1023, "shorter than the 1024 bytes"}, {1024 + 4 * 12 * 8 * 5 - 1, "truncated"}};
  for (const auto& cut : cuts) {
    const std::string& path = cut_file.path;
    std::filesystem::copy_file(whole.path, path, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(path, cut.size);
    load(path);
    EXPECT_TRUE(qp::kerror);
    ASSERT_EQ(headless::box_texts().size(), 1u);
    EXPECT_NE(headless::box_texts()[0].find("ccp4_cut.map: "), std::string::npos);
    EXPECT_NE(headless::box_texts()[0].find(cut.says), std::string::npos) << headless::box_texts()[0];
  }
}
