// The molecule of the connection file: points, links, their centre and the
// view window, and damaged files refused without a crash.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "maps/molecular_bonds.h"
#include "state/quelmora_parametros.h"
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

namespace {

// A cubic cell of 10 A in P-1 with two atoms, bonds not yet read, and the
// connection file <codefil>.enl holding the text given (none for nullptr).
void molecule_with_file(const char* text) {
  headless::install();
  qp::codefil = (std::filesystem::temp_directory_path() / ("quelmora_bonds_" + std::to_string(getpid()))).string();
  std::filesystem::remove(qp::codefil + ".enl");
  if (text) std::ofstream(qp::codefil + ".enl") << text;
  qp::celda = cell_metrics_type{};
  set_crystal_cell({10, 10, 10}, {90, 90, 90}, qp::celda);
  qp::grp_espacial = space_group_type{};
  set_spacegroup("P -1", qp::grp_espacial);
  allocate_atom_list(2, qp::atomos);
  qp::atomos.atom[0].x = {0.1f, 0.2f, 0.3f};
  qp::atomos.atom[1].x = {0.2f, 0.2f, 0.3f};
  qp::kbonds = false;
  qp::nbonds = 7;
  calculate_bonds();
}

}  // namespace

// Point 1 is atom 1, point 2 its inverse (not folded back), point 3 atom 2.
// In Angstrom (1,2,3), (-1,-2,-3), (2,2,3): centre (2/3, 2/3, 1); x spreads
// over 3 A and y over 4 A, each widened by a fifth on either side.
TEST(MolecularBonds, ThreePointsAboutTheirCentre) {
  molecule_with_file("! a small chain\n1 1 1 2\n  1 2 2 1 3\n2 1 1 2\n");
  ASSERT_TRUE(qp::kbonds);
  ASSERT_EQ(qp::nbonds, 3);
  EXPECT_EQ(qp::bonds[1], (std::array<std::int32_t, 12>{1, 2, 1, 3}));
  EXPECT_NEAR(qp::at_bonds[1][0], -0.1f, 1e-6f);
  const float expected[] = {2.0f / 3, 1.0f, -8.0f / 3, 4.0f / 3, -5.0f / 3 - 0.6f, 4.0f / 3 + 0.6f,
                            -8.0f / 3 - 0.8f, 4.0f / 3 + 0.8f};
  const float got[] = {qp::baric[0], qp::baric[2], qp::at_bonds_o[1][1], qp::at_bonds_o[2][0],
                       qp::u_min, qp::u_max, qp::v_min, qp::v_max};
  for (int n = 0; n < 8; ++n) EXPECT_NEAR(got[n], expected[n], 1e-5f) << n;
  EXPECT_TRUE(headless::boxes().empty());
  std::filesystem::remove(qp::codefil + ".enl");
}

TEST(MolecularBonds, ShortMissingAndDamagedFiles) {
  for (const std::string& row : data_lines("maps/connection_files.txt")) {
    std::istringstream in(row);
    bool read = false;
    std::int32_t nbonds = 0;
    std::size_t boxes = 0;
    std::string text;
    std::getline(in >> read >> nbonds >> boxes >> std::ws, text);
    ASSERT_FALSE(in.fail()) << "unreadable row: " << row;
    std::replace(text.begin(), text.end(), '/', '\n');
    molecule_with_file(text == "-" ? nullptr : text.c_str());
    EXPECT_EQ(qp::kbonds, read) << row;
    EXPECT_EQ(qp::nbonds, nbonds) << row;
    EXPECT_EQ(headless::boxes().size(), boxes) << row;
  }
  std::filesystem::remove(qp::codefil + ".enl");
}
