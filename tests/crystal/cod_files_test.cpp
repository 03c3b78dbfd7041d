// Every CIF file of the Crystallography Open Database that Debian ships in
// libavogadro-data: the reader takes it, or refuses it with the message that
// tests/data/crystal/cod_refusals.txt gives for that file. Of those read, the
// cell is the file's, the atoms are the rows of its atom loop, and the group
// of the file's operator loop alone has the operators of the group its symbol
// names, but for the files listed with "~" there, whose loop is another
// setting (origin, axes) of the group than the symbol.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "crystal/vant_io_formats.h"
#include "crystal/vant_string_utilities.h"
#include "tests/crystal/group_operators.h"
#include "tests/data_files.h"

namespace fs = std::filesystem;

namespace {

const fs::path crystals = "/usr/share/avogadro2/crystals";

std::vector<std::string> lines_of(const fs::path& p) {
  std::ifstream in(p);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    std::replace(line.begin(), line.end(), '\t', ' ');
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

std::string first_word(const std::string& line) {
  std::string rest = line, word;
  cutst(rest, nullptr, &word);
  return word;
}

// The number behind a key, uncertainty in brackets dropped.
float key_number(const std::vector<std::string>& lines, const std::string& key) {
  for (const auto& line : lines)
    if (first_word(line) == key) return std::strtof(line.c_str() + line.find(key) + key.size(), nullptr);
  return NAN;
}

// The value lines of the loop holding _atom_site_fract_x.
int atom_rows(const std::vector<std::string>& lines) {
  auto key = std::find_if(lines.begin(), lines.end(), [](const auto& l) { return first_word(l) == "_atom_site_fract_x"; });
  if (key == lines.end()) return 0;
  while (first_word(*key).starts_with("_")) ++key;
  int rows = 0;
  for (; key != lines.end(); ++key) {
    const std::string w = first_word(*key);
    if (w.starts_with("_") || w.starts_with("loop_") || w.starts_with("data_")) break;
    rows += !w.empty() && w[0] != '#';
  }
  return rows;
}

}  // namespace

TEST(CodFiles, EveryFileIsReadOrRefusedForItsReason) {
  if (!fs::exists(crystals)) GTEST_SKIP() << crystals << " is missing: install Debian's libavogadro-data";
  std::map<std::string, std::string> refusals;  // file name -> message
  for (const std::string& line : data_lines("crystal/cod_refusals.txt")) {
    const auto bar = line.find('|');
    refusals[line.substr(0, bar)] = line.substr(bar + 1);
  }
  std::vector<fs::path> files;
  for (const auto& e : fs::recursive_directory_iterator(crystals))
    if (e.path().extension() == ".cif") files.push_back(e.path());
  std::sort(files.begin(), files.end());
  std::size_t read = 0;
  for (const fs::path& file : files) {
    const std::string name = file.filename().string();
    cell_metrics_type cell;
    space_group_type g;
    atom_list_type atoms;
    readn_set_xtal_structure_split(file.string(), cell, g, atoms, "cif");
    const std::string why = err_form ? err_form_mess : err_symm ? err_symm_mess : "";
    const auto listed = refusals.find(name);
    const std::string note = listed == refusals.end() ? "" : listed->second;
    const bool other_setting = note.starts_with("~");
    EXPECT_EQ(why, other_setting ? "" : note) << name;
    if (!why.empty()) continue;
    ++read;

    const std::vector<std::string> lines = lines_of(file);
    static const char* const keys[] = {"_cell_length_a", "_cell_length_b", "_cell_length_c",
                                       "_cell_angle_alpha", "_cell_angle_beta", "_cell_angle_gamma"};
    for (int k = 0; k < 6; ++k)
      EXPECT_FLOAT_EQ(k < 3 ? cell.cell[k] : cell.ang[k - 3], key_number(lines, keys[k])) << name << " " << keys[k];
    EXPECT_EQ(atoms.natoms, atom_rows(lines)) << name;

    const std::vector<std::string> ops = read_cif_symm(lines, {1, static_cast<std::int32_t>(lines.size())});
    if (ops.empty()) continue;
    space_group_type from_ops;
    const auto n = static_cast<std::int32_t>(ops.size());
    const std::string mode = "GEN";
    set_spacegroup(" ", from_ops, &ops, &n, &mode);
    EXPECT_FALSE(err_symm) << name << ": " << err_symm_mess;
    if (other_setting) {
      EXPECT_NE(operator_set(from_ops), operator_set(g)) << name;
    } else {
      EXPECT_EQ(operator_set(from_ops), operator_set(g)) << name << " " << g.spg_symb;
    }
  }
  std::printf("%zu of %zu COD files read, %zu refused\n", read, files.size(), files.size() - read);
}
