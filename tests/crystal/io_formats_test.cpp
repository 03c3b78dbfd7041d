// The structure readers on small files: each row is a file, the reader it
// goes to, and what must come out (the reader's message, or the group and
// the first atom). -1 and NaN mark what a row does not look at.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "crystal/vant_io_formats.h"

namespace {

constexpr float no = NAN;

struct reader_case {
  const char* name;
  const char* mode;
  const char* text;
  const char* message;  // err_form_mess, "" when the file must be read
  int numspg, multip, natoms;
  const char* chem;     // first atom
  float charge, occ, biso;
  int mult;
};

const reader_case cases[] = {
    {"vtl without atoms", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\n", "", 1, 1, 0, "", no, no, no, -1},
    {"vtl five cell numbers", "vtl", "Cell 5.0 5.0 5.0 90 90\nspgr P 1\n", " Bad Cell Parameters...", -1, -1, -1, "",
     no, no, no, -1},
    {"charge from Fe3+, origin of P m -3 m", "vtl", "cell 4 4 4 90 90 90\nspgr P m -3 m\natom Fe1 Fe3+ 0 0 0\n", "",
     221, 48, 1, "Fe", 3.0f, 1.0f / 48.0f, 0.0f, 1},
    {"O2- and an occupation left out on a site of 4 in a group of 8", "vtl",
     "cell 4 5 6 90 90 90\nspgr P m m m\natom O1 O2- 0.1 0.2 0 1.5 0.0\n", "", 47, 8, 1, "O", -2.0f, 0.5f, 1.5f,
     4},
    {"Spaceg 14 as Spgr 14", "vtl", "cell 5 6 7 90 100 90\nSpaceg 14\n", "", 14, 4, 0, "", no, no, no, -1},
    {"symm lines before gen lines", "vtl", "cell 5 6 7 90 90 90\ngen -x,-y,-z\nsymm x,y,z\nsymm -x,-y,z\n", "", -1, 2,
     0, "", no, no, no, -1},
    {"no group at all", "vtl", "cell 5 6 7 90 90 90\natom C1 C 0 0 0\n",
     " Problems reading the Space Group symbol/number", -1, -1, -1, "", no, no, no, -1},
    {"magnetic atom without J or M", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natom Fe1 Fe 0 0 0 Moment: 1 0 0\n",
     " Error reading the magnetic form factor of ATOM: Fe1", -1, -1, -1, "", no, no, no, -1},
    {"magnetic moment of two components", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natom Fe1 MFE3 0 0 0 Moment: 1 0\n",
     "Error reading magnetic moment components of atom:Fe1", -1, -1, -1, "", no, no, no, -1},
    {"two coordinates", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natom Fe1 Fe 0 0\n",
     "Error reading Coordinates of atom:Fe1", -1, -1, -1, "", no, no, no, -1},
    {"no numbers", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natom Fe1 Fe\n", "Error reading parameters of atom:Fe1", -1,
     -1, -1, "", no, no, no, -1},
    {"keyword cut short", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natomic Fe1 Fe 0 0 0\n",
     " Error reading the ATOM keyword", -1, -1, -1, "", no, no, no, -1},
    {"five U values", "vtl", "cell 5 5 5 90 90 90\nspgr P 1\natom Fe1 Fe 0 0 0\nu_ij 1 2 3 4 5\n",
     " Error reading the anisotropic thermal parameters of atom:Fe1", -1, -1, -1, "", no, no, no, -1},
    {"quoted H-M symbol", "cif", "data_a\n_cell_length_a 5\n_cell_length_b 6\n_cell_length_c 7\n_cell_angle_alpha 90\n"
     "_cell_angle_beta 100\n_cell_angle_gamma 90\n_symmetry_space_group_name_H-M 'P 21/c'\nloop_\n_atom_site_label\n"
     "_atom_site_fract_x\n_atom_site_fract_y\n_atom_site_fract_z\n_atom_site_U_iso_or_equiv\nFe1 0.1 0.2 0.3 0.01\n",
     "", 14, 4, 1, "Fe", 0.0f, 1.0f, 0.78956835f, 4},
    {"unquoted H-M symbol on the next line", "cif", "data_a\n_cell_length_a 5\n_cell_length_b 6\n_cell_length_c 7\n"
     "_cell_angle_alpha 90\n_cell_angle_beta 100\n_cell_angle_gamma 90\n_symmetry_space_group_name_H-M\n P 21/c\n",
     "", 14, 4, 0, "", no, no, no, -1},
    {"? goes on to the Hall symbol", "cif", "data_a\n_cell_length_a 5\n_cell_length_b 6\n_cell_length_c 7\n"
     "_cell_angle_alpha 90\n_cell_angle_beta 100\n_cell_angle_gamma 90\n_symmetry_space_group_name_H-M ?\n"
     "_symmetry_space_group_name_Hall '-P 2ybc'\n", "", 14, 4, 0, "", no, no, no, -1},
    {"two data blocks", "cif", "data_a\n_cell_length_a 5\ndata_b\n_cell_length_a 5\n",
     " => Too many phases in this file ", -1, -1, -1, "", no, no, no, -1},
    {"no symmetry", "cif", "data_a\n_cell_length_a 5\n_cell_length_b 6\n_cell_length_c 7\n_cell_angle_alpha 90\n"
     "_cell_angle_beta 100\n_cell_angle_gamma 90\n", " => No Space Group/No Symmetry information in this file ", -1,
     -1, -1, "", no, no, no, -1},
    {"atom row cut short", "cif", "data_a\n_cell_length_a 5\n_cell_length_b 6\n_cell_length_c 7\n"
     "_cell_angle_alpha 90\n_cell_angle_beta 90\n_cell_angle_gamma 90\nloop_\n_atom_site_label\n_atom_site_fract_x\n"
     "_atom_site_fract_y\n_atom_site_fract_z\nO1 0.1 0.2\n", " Error reading atoms", -1, -1, -1, "", no, no, no, -1},
    {"LATT -1: no inversion", "shx", "CELL 0.7 5 6 7 90 100 90\nLATT -1\nSYMM -X,Y+1/2,-Z\nSFAC C O\n"
     "C1 1 0.1 0.2 0.3 11.0 0.05\nHKLF 4\n", "", -1, 2, 1, "C", 0.0f, 1.0f, 3.9478418f, 2},
    {"LATT 1: P 21/m", "shx", "CELL 0.7 5 6 7 90 100 90\nLATT 1\nSYMM -X,Y+1/2,-Z\nSFAC C O\nFVAR 1.0 0.25\n"
     "O1 2 0.1 0.25 0.3 21.0 0.02 0.03 0.04 0 0 0\nEND\n", "", -1, 4, 1, "O", 0.0f, 0.25f, no, 2},
    {"LATT 0", "shx", "CELL 0.7 5 6 7 90 100 90\nLATT 0\n", " Wrong LATT instruction in the SHELX file", -1, -1, -1,
     "", no, no, no, -1},
    {"KDC of one phase", "kdc", "!Nph Nba\n 1 0\n!  Data for PHASE number: 1\nSi\n!Nat Dis\n 1 0\n"
     "F d -3 m        <--Space group symbol\n!Atom Typ X Y Z Biso Occ In Fin N_t\n"
     "Si SI 0.125 0.125 0.125 0.5 0.0 0 0 0\n 0 0 0 0 0\n!  a  b  c  alpha  beta  gamma\n 5.43 5.43 5.43 90 90 90\n",
     "", 227, 192, 1, "Si", 0.0f, 8.0f / 192.0f, 0.5f, 8},
    {"KDC without phases", "kdc", "!Nph\n 1\n", " No Phase information was found in this KDC file. Please, check it!",
     -1, -1, -1, "", no, no, no, -1},
    {"KDC with a phase fewer than declared", "kdc", "!Nph\n 2\n! Data for PHASE 1\n",
     " Locating Phases failed in this KDC. Please, check it!", -1, -1, -1, "", no, no, no, -1},
    {"KDC without group", "kdc", "! Data for PHASE 1\n!  a  b  c  alpha  beta  gamma\n 5 5 5 90 90 90\n",
     " => Problems reading Space group on KDC file ", -1, -1, -1, "", no, no, no, -1},
    {"KDC with five cell numbers", "kdc", "! Data for PHASE 1\nP 1   <--Space\n! a b c alpha beta gamma\n 5 5 5 90 90\n",
     " => Problems reading Cell Parameters on KDC file ", -1, -1, -1, "", no, no, no, -1},
    {"empty file", "vtl", "", "The file %s contains nothing", -1, -1, -1, "", no, no, no, -1},
};

void expect_near(float want, float got, const char* what, const char* row) {
  if (!std::isnan(want)) {
    EXPECT_NEAR(got, want, 1e-4f) << what << ": " << row;
  }
}

}  // namespace

TEST(StructureReaders, SmallFiles) {
  const std::string name =
      (std::filesystem::temp_directory_path() / ("quelmora_reader_" + std::to_string(getpid()))).string();
  for (const auto& c : cases) {
    std::ofstream(name) << c.text;
    cell_metrics_type cell;
    space_group_type spg;
    atom_list_type atoms;
    readn_set_xtal_structure_split(name, cell, spg, atoms, c.mode);
    std::string message = c.message;
    if (const auto at = message.find("%s"); at != std::string::npos) message.replace(at, 2, name);
    EXPECT_EQ(err_form_mess, message) << c.name;
    if (!message.empty()) continue;
    EXPECT_FALSE(err_symm) << err_symm_mess << ": " << c.name;
    if (c.numspg >= 0) {
      EXPECT_EQ(spg.numspg, c.numspg) << c.name;
    }
    EXPECT_EQ(spg.multip, c.multip) << c.name;
    ASSERT_EQ(atoms.natoms, c.natoms) << c.name;
    if (c.natoms == 0) continue;
    const atom_type& a = atoms.atom[0];
    EXPECT_EQ(a.chem_symb, c.chem) << c.name;
    expect_near(c.charge, a.charge, "charge", c.name);
    expect_near(c.occ, a.occ, "occ", c.name);
    expect_near(c.biso, a.biso, "biso", c.name);
    EXPECT_EQ(a.mult, c.mult) << c.name;
  }
  std::filesystem::remove(name);
}
