// Text maps (.map) turned into binary maps: the values come back through the
// normal load, on an orthogonal and on a skewed cell, and a file cut or
// spoiled at each place gets that place's message and leaves the old .bin.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "maps/binary_map.h"
#include "maps/text_map.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;
namespace fs = std::filesystem;

namespace {

const fs::path stem = fs::temp_directory_path() / ("quelmora_text_map_" + std::to_string(getpid()));

// The text map and the map made of it go with the test that wrote them.
struct remove_files_at_end {
  ~remove_files_at_end() {
    fs::remove(stem.string() + ".map");
    fs::remove(stem.string() + ".bin");
  }
};

// The value of grid point (i, j, k), counted from 1.
float value(int i, int j, int k) { return static_cast<float>(i + 10 * j + 100 * k) - 0.5f; }

// A 4 x 3 x 2 map of value(), four numbers a line.
std::string text_map(const std::string& cell, const std::string& grid = "GRID  4 3 2  0 0 0 0 0 0") {
  std::string text = "MAP written by a test\nFour by three by two\n" + cell + "\nSpgr P 1\natom O1 O 0.1 0.2 0.3\n  " +
                     grid + "\nDENSITY_MAP\n";
  int n = 0;
  for (int k = 1; k <= 2; ++k)
    for (int j = 1; j <= 3; ++j)
      for (int i = 1; i <= 4; ++i) text += std::to_string(value(i, j, k)) + (++n % 4 ? " " : "\n");
  return text;
}

// map2bin on the text, then the load of the .bin it made; the boxes shown.
std::vector<std::string> convert(const std::string& text) {
  std::ofstream(stem.string() + ".map", std::ios::binary | std::ios::trunc) << text;
  headless::install();
  qp::kerror = false;
  qp::filasc = stem.string() + ".map";
  qp::filbin = stem.string() + ".bin";
  map2bin();
  if (!qp::kerror && open_filebin(qp::filbin)) {
    read_filebin(false);
    close_filebin();
  }
  return headless::box_texts();
}

}  // namespace

TEST(TextMap, ValuesComeBackThroughTheLoad) {
  const remove_files_at_end cleanup;
  for (const auto& [cell, beta] : {std::pair{"Cell 5 6 7 90 90 90", 90.0f}, std::pair{"Cell 5 6 7 90 110 90", 110.0f}}) {
    ASSERT_EQ(convert(text_map(cell)), std::vector<std::string>{}) << cell;
    EXPECT_EQ(qp::titulo, "Four by three by two") << cell;
    EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{4, 3, 2})) << cell;
    EXPECT_EQ(std::tuple(qp::npeaks, qp::xlim[1], qp::zinc, qp::atomos.natoms, qp::grp_espacial.multip),
              std::tuple(0, 1.0f, 0.5f, 1, 1)) << cell;
    EXPECT_EQ(qp::celda.ang[1], beta);
    for (int k = 1; k <= 2; ++k)
      for (int j = 1; j <= 3; ++j)
        for (int i = 1; i <= 4; ++i) ASSERT_EQ(qp::rho(i, j, k), value(i, j, k)) << cell << " " << i << j << k;
    // The whole cell closes periodically: the plane x = 1 is the plane x = 0.
    EXPECT_EQ(qp::rhonew(5, 2, 3), value(1, 2, 1)) << cell;
    EXPECT_NEAR(qp::denave, (value(1, 1, 1) + value(4, 3, 2)) / 2.0f, 1e-3f) << cell;
  }
}

TEST(TextMap, EachFaultGetsItsMessage) {
  const remove_files_at_end cleanup;
  const std::string good = text_map("Cell 5 6 7 90 90 90");
  const std::string grid = "Opening the Ascii File in MAP format (Grid Dimensions)";
  const std::string data = "Error reading the Ascii File in MAP format (data)";
  const struct {
    const char* what;
    std::string text;
    std::string message;
  } cases[] = {
      {"structure part", text_map("Cell 5 6 7 90 90"), " Bad Cell Parameters..."},
      {"cut before GRID", good.substr(0, good.find("GRID")), grid},
      {"grid in lower case", text_map("Cell 5 6 7 90 90 90", "grid 4 3 2 0 0 0 0 0 0"), grid},
      {"eight grid numbers", text_map("Cell 5 6 7 90 90 90", "GRID 4 3 2 0 0 0 0 0"), grid},
      {"a zero extent", text_map("Cell 5 6 7 90 90 90", "GRID 4 0 2 0 0 0 0 0 0"), grid},
      {"cut before the keyword", good.substr(0, good.find("DENSITY_MAP")), "Keyword DENSITY_MAP not provided!"},
      {"keyword not in column 1", good.substr(0, good.find("DENSITY_MAP")) + " " + good.substr(good.find("DENSITY_MAP")),
       "Keyword DENSITY_MAP not provided!"},
      {"a value short", good.substr(0, good.rfind(' ')), data},
      {"garbage among the values", good.substr(0, good.find("DENSITY_MAP") + 12) + "1 2 x 4\n", data},
      {"a grid the file cannot hold", text_map("Cell 5 6 7 90 90 90", "GRID 100000 100000 100000 0 0 0 0 0 0"), data},
  };
  for (const auto& c : cases) {
    std::ofstream(stem.string() + ".bin", std::ios::binary | std::ios::trunc) << "old";
    EXPECT_EQ(convert(c.text), std::vector<std::string>{c.message}) << c.what;
    EXPECT_TRUE(qp::kerror) << c.what;
    std::ifstream old(stem.string() + ".bin", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(old), {}), "old") << c.what;
  }
}
