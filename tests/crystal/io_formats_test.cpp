// The structure readers on the small files of tests/data/crystal/
// structure_files.txt: each case is a file, the reader it goes to, and what
// must come out (the reader's message, or the group and the first atom).
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "tests/data_files.h"

namespace {

struct reader_case {
  std::vector<std::string> head;  // name, mode, message, group, first atom
  std::string text;
};

std::vector<reader_case> cases() {
  std::istringstream in(data_text("crystal/structure_files.txt"));
  std::vector<reader_case> all;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("#")) continue;
    if (!line.starts_with("=== ")) {
      if (!all.empty()) all.back().text += line + "\n";
      continue;
    }
    all.emplace_back();
    std::istringstream fields(line.substr(4));
    for (std::string f; std::getline(fields, f, '|');) all.back().head.emplace_back(fixed_text::adjusted(f));
  }
  return all;
}

// The numbers of a column of the head; "-" for those not looked at.
std::vector<std::string> words(const std::string& field) {
  std::istringstream in(field);
  return {std::istream_iterator<std::string>(in), {}};
}

void expect_value(const std::string& want, double got, const std::string& what) {
  if (want != "-") {
    EXPECT_NEAR(got, std::stod(want), 1e-4) << what;
  }
}

}  // namespace

TEST(StructureReaders, SmallFiles) {
  const std::string file =
      (std::filesystem::temp_directory_path() / ("quelmora_reader_" + std::to_string(getpid()))).string();
  for (const reader_case& c : cases()) {
    ASSERT_EQ(c.head.size(), 5u) << c.head[0];
    const std::string& name = c.head[0];
    std::ofstream(file) << c.text;
    cell_metrics_type cell;
    space_group_type spg;
    atom_list_type atoms;
    readn_set_xtal_structure_split(file, cell, spg, atoms, c.head[1]);
    std::string message = c.head[2];
    if (const auto at = message.find("%s"); at != std::string::npos) message.replace(at, 2, file);
    EXPECT_EQ(fixed_text::adjusted(err_form_mess), message) << name;
    if (!message.empty()) continue;
    EXPECT_FALSE(err_symm) << err_symm_mess << ": " << name;
    const auto group = words(c.head[3]);
    expect_value(group[0], spg.numspg, name + ": group number");
    expect_value(group[1], spg.multip, name + ": multiplicity");
    ASSERT_EQ(atoms.natoms, std::stoi(group[2])) << name;
    const auto atom = words(c.head[4]);
    if (atoms.natoms == 0) continue;
    const atom_type& a = atoms.atom[0];
    EXPECT_EQ(a.chem_symb, atom[0]) << name;
    const char* const what[] = {"charge", "occ", "biso", "mult"};
    const double got[] = {a.charge, a.occ, a.biso, static_cast<double>(a.mult)};
    for (int k = 0; k < 4; ++k) expect_value(atom[static_cast<std::size_t>(k + 1)], got[k], name + ": " + what[k]);
  }
  std::filesystem::remove(file);
}
