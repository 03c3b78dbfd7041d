#include <gtest/gtest.h>

#include <sstream>

#include "crystal/vant_scattering_chemical_tables.h"

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
  std::string s;
  for (std::size_t row = 0; symbols >> s; ++row) {
    ASSERT_LT(row, chem_info.size());
    EXPECT_EQ(chem_info[row].symb, s) << row + 1;
    if (row < 105) {
      EXPECT_EQ(chem_info[row].z, static_cast<std::int32_t>(row + 1)) << s;
    }
    EXPECT_LE(chem_info[row].name.size(), 12u) << s;
  }
  EXPECT_EQ(chem_info[103].name, "");
  EXPECT_EQ(chem_info[104].name, "");
  struct Tail {
    std::size_t row;
    const char* name;
    std::int32_t z;
  };
  for (const Tail& t : {Tail{105, "Boron-11", 5}, Tail{106, "Zero-scatter", 1}, Tail{107, "Deuterium", 1}}) {
    EXPECT_EQ(chem_info[t.row].name, t.name);
    EXPECT_EQ(chem_info[t.row].z, t.z);
  }
}

TEST(ChemInfo, HydrogenRowAndPublishedValues) {
  set_chem_info();
  const chem_info_type& h = chem_info[0];
  EXPECT_EQ(h.symb, "H");
  EXPECT_EQ(h.name, "Hydrogen");
  EXPECT_EQ(h.z, 1);
  EXPECT_FLOAT_EQ(h.atwe, 1.00797f);
  EXPECT_FLOAT_EQ(h.rcov, 0.32f);
  EXPECT_FLOAT_EQ(h.rwaals, 1.33f);
  EXPECT_FLOAT_EQ(h.vatm, 14.1f);
  EXPECT_FLOAT_EQ(h.sctf, -0.3739f);
  EXPECT_FLOAT_EQ(h.sedinc, 80.26f);
  EXPECT_FLOAT_EQ(h.sea, 0.3326f);

  // Standard atomic weights and thermal-neutron data as tabulated in the
  // literature (IUPAC; Sears 1992).
  struct Known {
    std::size_t row;
    float atwe, sctf, sea;
  };
  const Known known[] = {
      {5, 12.0107f, 0.6646f, 0.0035f},   // C
      {7, 15.9994f, 0.5803f, 0.00019f},  // O
      {25, 55.845f, 0.945f, 2.56f},      // Fe
      {27, 58.6934f, 1.03f, 4.49f},      // Ni
      {47, 112.411f, 0.487f, 2520.0f},   // Cd
      {24, 54.938f, -0.373f, 13.3f},     // Mn
      {107, 2.0141f, 0.6671f, 0.000519f},  // D
  };
  for (const Known& k : known) {
    SCOPED_TRACE(chem_info[k.row].symb);
    EXPECT_NEAR(chem_info[k.row].atwe, k.atwe, 2e-3);
    EXPECT_NEAR(chem_info[k.row].sctf, k.sctf, 0.02);
    EXPECT_NEAR(chem_info[k.row].sea, k.sea, 0.01 * k.sea);
  }
}

// Oxidation states with Shannon's ionic radii for six-fold coordination
// (high spin): Na+ 1.02, Fe2+ 0.78, Fe3+ 0.645, O2- 1.40, Cl- 1.81.
TEST(ChemInfo, IonicRadiiOfTheOxidationStates) {
  set_chem_info();
  struct Ion {
    std::size_t row;
    std::int32_t charge;
    float radius;
  };
  const Ion ions[] = {{10, 1, 1.02f}, {25, 2, 0.78f}, {25, 3, 0.645f}, {7, -2, 1.40f}, {16, -1, 1.81f}};
  for (const Ion& ion : ions) {
    const chem_info_type& row = chem_info[ion.row];
    std::size_t k = 0;
    while (k < 5 && row.oxid[k] != ion.charge) ++k;
    ASSERT_LT(k, 5u) << row.symb << " " << ion.charge;
    EXPECT_FLOAT_EQ(row.rion[k], ion.radius) << row.symb << " " << ion.charge;
  }
}

TEST(GetChemsymb, LabelsToSymbols) {
  struct Case {
    const char* label;
    const char* symbol;
    std::int32_t z;
  };
  const Case cases[] = {
      {"H", "H", 1},      {"H1", "H", 1},     {"h+", "H", 1},     {" Fe", "Fe", 26},  {"FE3+", "Fe", 26},
      {"Fe12", "Fe", 26}, {"O2-", "O", 8},    {"Cl1", "Cl", 17},  {"C1", "C", 6},     {"c.5", "C", 6},
      {"D1", "D", 1},     {"BS", "Bs", 5},    {"ze", "Ze", 1},    {"Ku", "Ku", 104},  {"Xx", "**", 0},
      {"", "**", 0},      {"   ", "**", 0},   {"1H", "**", 0},    {"Q", "**", 0},
  };
  remove_chem_info();
  for (const Case& c : cases) {
    std::string symbol = "junk";
    std::int32_t z = -1;
    get_chemsymb(c.label, symbol, &z);
    EXPECT_EQ(symbol, c.symbol) << "[" << c.label << "]";
    EXPECT_EQ(z, c.z) << "[" << c.label << "]";
  }
  EXPECT_EQ(chem_info.size(), 108u);  // made ready on first use
}
