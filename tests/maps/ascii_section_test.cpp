// The .asc table of a section, read back line by line against rows worked
// out by hand for a map whose every value says where it stands.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "maps/ascii_section.h"
#include "state/quelmora_parametros.h"
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"

namespace qp = quelmora_parametros;

TEST(AsciiSection, EachFamilyWritesItsClosedSection) {
  const auto folder = std::filesystem::temp_directory_path() / ("quelmora-asc-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  qp::ngrid = {10, 10, 10};
  qp::rhonew.allocate(11, 11, 11);
  for (int k = 1; k <= 11; ++k)
    for (int j = 1; j <= 11; ++j)
      for (int i = 1; i <= 11; ++i) qp::rhonew(i, j, k) = float(i + 100 * j + 10000 * k);
  qp::rhonew(2, 3, 4) = -12345.678f;
  qp::rhonew(4, 2, 3) = 1e12f;
  qp::rmax = {0.5f, 0.0f, 0.0f, 1.5f, 1.0f, 1.0f};
  qp::rinc = {0.1f, 0.1f, 0.1f};
  qp::titulo = "Test map";
  qp::celda.cell = {5.0f, 6.0f, 7.0f};
  qp::celda.ang = {90.0f, 100.0f, 90.0f};
  qp::filasc = (folder / "section.asc").string();
  for (const auto& r : data_table("maps/ascii_sections.txt", 6)) {
    qp::imap = std::stoi(r[0]);
    const auto s = numbers<int>(r[1]);
    qp::seccion = {s.at(0), s.at(1), s.at(2)};
    fourier_masciisave();
    std::ifstream in(qp::filasc);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), std::stoul(r[2])) << r[0] << " | " << r[1];
    EXPECT_EQ(lines.at(std::stoul(r[3]) - 1), r[4]) << r[0] << " | " << r[1] << " | line " << r[3];
  }
  headless::install();  // a folder that is not there: the box
  qp::filasc = (folder / "missing" / "section.asc").string();
  fourier_masciisave();
  EXPECT_EQ(headless::box_texts(), std::vector<std::string>{"Opening the Ascii File"});
  std::filesystem::remove_all(folder);
}
