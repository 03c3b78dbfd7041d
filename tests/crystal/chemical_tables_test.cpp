#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>
#include <tuple>

#include "crystal/vant_scattering_chemical_tables.h"

// Elements in order of atomic number, then boron-11, the zero scatterer and
// deuterium.
TEST(ChemInfo, RowsInOrder) {
  remove_chem_info();
  EXPECT_TRUE(chem_info.empty());
  set_chem_info();
  ASSERT_EQ(chem_info.size(), 108u);
  std::istringstream symbols(
      "H HE LI BE B C N O F NE NA MG AL SI P S CL AR K CA SC TI V CR MN FE CO NI CU ZN GA GE AS SE BR KR "
      "RB SR Y ZR NB MO TC RU RH PD AG CD IN SN SB TE I XE CS BA LA CE PR ND PM SM EU GD TB DY HO ER TM "
      "YB LU HF TA W RE OS IR PT AU HG TL PB BI PO AT RN FR RA AC TH PA U NP PU AM CM BK CF ES FM MD NO "
      "LR KU HA BS ZE D");
  const std::int32_t extra_z[] = {5, 1, 1};
  std::string s;
  for (std::size_t row = 0; symbols >> s; ++row) {
    EXPECT_EQ(chem_info[row].symb, s) << row + 1;
    EXPECT_EQ(chem_info[row].z, row < 105 ? static_cast<std::int32_t>(row + 1) : extra_z[row - 105]) << s;
  }
  EXPECT_EQ(chem_info[107].name, "Deuterium");
}

// Standard atomic weights and thermal-neutron data as tabulated in the
// literature (IUPAC; Sears 1992), ionic radii (Shannon 1976); hydrogen's row
// in full.
TEST(ChemInfo, PublishedValues) {
  set_chem_info();
  // {row, atomic weight, scattering length (fm), absorption cross-section (barn)}
  const std::tuple<std::size_t, float, float, float> known[] = {
      {5, 12.0107f, 0.6646f, 0.0035f}, {7, 15.9994f, 0.5803f, 0.00019f}, {25, 55.845f, 0.945f, 2.56f},
      {27, 58.6934f, 1.03f, 4.49f},    {47, 112.411f, 0.487f, 2520.0f},  {24, 54.938f, -0.373f, 13.3f},
      {107, 2.0141f, 0.6671f, 0.000519f},
  };
  for (const auto& [row, atwe, sctf, sea] : known) {
    EXPECT_NEAR(chem_info[row].atwe, atwe, 2e-3) << chem_info[row].symb;
    EXPECT_NEAR(chem_info[row].sctf, sctf, 0.02) << chem_info[row].symb;
    EXPECT_NEAR(chem_info[row].sea, sea, 0.01 * sea) << chem_info[row].symb;
  }
  const chem_info_type& h = chem_info[0];
  // Oxidation states with Shannon's ionic radii for six-fold coordination
  // (high spin): Na+ 1.02, Fe2+ 0.78, Fe3+ 0.645, O2- 1.40, Cl- 1.81.
  const std::tuple<std::size_t, std::int32_t, float> ions[] = {
      {10, 1, 1.02f}, {25, 2, 0.78f}, {25, 3, 0.645f}, {7, -2, 1.40f}, {16, -1, 1.81f}};
  for (const auto& [r, charge, radius] : ions) {
    const chem_info_type& row = chem_info[r];
    std::size_t k = 0;
    while (k < 5 && row.oxid[k] != charge) ++k;
    ASSERT_LT(k, 5u) << row.symb << " " << charge;
    EXPECT_FLOAT_EQ(row.rion[k], radius) << row.symb << " " << charge;
  }
  EXPECT_EQ(h.name, "Hydrogen");
  EXPECT_EQ((std::array{h.atwe, h.rcov, h.rwaals, h.vatm, h.sctf, h.sedinc, h.sea}),
            (std::array{1.00797f, 0.32f, 1.33f, 14.1f, -0.3739f, 80.26f, 0.3326f}));
}

TEST(GetChemsymb, LabelsToSymbols) {
  const std::tuple<const char*, const char*, std::int32_t> cases[] = {
      {"H", "H", 1},      {"H1", "H", 1},     {"h+", "H", 1},     {" Fe", "Fe", 26},  {"FE3+", "Fe", 26},
      {"Fe12", "Fe", 26}, {"O2-", "O", 8},    {"Cl1", "Cl", 17},  {"C1", "C", 6},     {"c.5", "C", 6},
      {"D1", "D", 1},     {"BS", "Bs", 5},    {"ze", "Ze", 1},    {"Ku", "Ku", 104},  {"Xx", "**", 0},
      {"", "**", 0},      {"   ", "**", 0},   {"1H", "**", 0},    {"Q", "**", 0},
  };
  remove_chem_info();
  for (const auto& [label, symbol, z] : cases) {
    std::string found = "junk";
    std::int32_t found_z = -1;
    get_chemsymb(label, found, &found_z);
    EXPECT_EQ(found, symbol) << "[" << label << "]";
    EXPECT_EQ(found_z, z) << "[" << label << "]";
  }
  EXPECT_EQ(chem_info.size(), 108u);  // made ready on first use
}
