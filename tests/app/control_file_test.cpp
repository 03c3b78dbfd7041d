// The control file: hand-written files read directive by directive, the
// writer's text against hand-written text, the round trip and its known
// differences, damaged files, and the save dialogue.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "app/file_units.h"
#include "app/quelmora_fourier.h"
#include "app/quelmora_initialize.h"
#include "state/quelmora_parametros.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"

namespace qp = quelmora_parametros;

namespace {

using texts = std::vector<std::string>;

// Decimals read from text may differ from the literal in the last bit.
void expect_float3(const vec3f& got, const vec3f& want) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_FLOAT_EQ(got[i], want[i]) << i;
}

class ControlFile : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    winitialise();
    iosdirname(start_dir_);
    dir_ = std::filesystem::temp_directory_path() / ("quelmora_inp_" + std::to_string(getpid()));
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
    init_var_prog();
  }
  void TearDown() override {
    close_unit(unit_control_file);
    iosdirchange(start_dir_);
    std::filesystem::remove_all(dir_);
  }

  // Writes the text as a file and reads it with lee_datos.
  void read_text(const std::string& text) {
    const auto path = dir_ / "in.inp";
    std::ofstream(path) << text;
    read_file(path);
  }
  static void read_file(const std::filesystem::path& path) {
    ASSERT_TRUE(open_unit(unit_control_file, path.string()));
    lee_datos();
    close_unit(unit_control_file);
  }
  // Saves through the dialogue, the selector answered with the name.
  std::string save_as(const std::string& name) {
    headless::answer_file((dir_ / name).string());
    fourier_filesave();
    return contents(dir_ / name);
  }
  static std::string contents(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }

  std::filesystem::path dir_;
  std::string start_dir_;
};

// Every directive once, with comments, blank lines, mixed case, a matrix on
// three lines and a line behind "end".
const char* const every_directive =
    "! copper sulphate, triclinic\n"
    "\n"
    "   TITLE  Copper Sulphate  Pentahydrate\n"
    "Cell 6.1 10.7 5.97 82.3 107.4 102.6\n"
    "F000 54.5 0.9\n"
    "SpGr P -1 extra words beyond twelve\n"
    "atom Cu1a2 0.0 0.0 0.0 0.5\n"
    "Atom S1 0.0123 0.2867 0.6243\n"
    "atom O11 0.1 0.2 0.3 1 2\n"
    "Fourier patterson fcsq\n"
    "Tran matr 1 0 0\n"
    "0 1 0\n"
    "  0 0 -1\n"
    "Refl sran 0.6 0.05\n"
    "refl sigma 2.5\n"
    "grid 24 36 30\n"
    "Form h k l fobs sigma phi\n"
    "File fou CuSO4.fou\n"
    "file atom cuso4.atm\n"
    "File BIN cuso4\n"
    "scan 12\n"
    "List Atom\n"
    "List dist 3.0 1.2 2.8\n"
    "End\n"
    "cell 1 1 1 90 90 90\n";

TEST_F(ControlFile, ReadsEveryDirective) {
  read_text(every_directive);
  EXPECT_FALSE(qp::kerror);
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_EQ(qp::titulo, "copper sulphate  pentahydrate");
  expect_float3(qp::celda.cell, {6.1f, 10.7f, 5.97f});
  expect_float3(qp::celda.ang, {82.3f, 107.4f, 102.6f});
  EXPECT_FLOAT_EQ(qp::f000, 54.5f);
  EXPECT_FLOAT_EQ(qp::f000s, 0.9f);
  EXPECT_EQ(qp::spgr, "P -1 EXTRA W");
  ASSERT_EQ(qp::atomos.natoms, 3);
  const struct {
    const char* lab;
    const char* symbol;
    vec3f x;
    float occ;
  } atoms[] = {{"cu1a", "Cu", {0, 0, 0}, 0.5f}, {"s1", "S", {0.0123f, 0.2867f, 0.6243f}, 0}, {"o11", "O", {0.1f, 0.2f, 0.3f}, 0}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(qp::atomos.atom[i].lab, atoms[i].lab);
    EXPECT_EQ(qp::atomos.atom[i].chem_symb, atoms[i].symbol);
    expect_float3(qp::atomos.atom[i].x, atoms[i].x);
    EXPECT_EQ(qp::atomos.atom[i].occ, atoms[i].occ);
    EXPECT_TRUE(qp::atomos.atom[i].active);
  }
  EXPECT_EQ(qp::ntype, 5);
  EXPECT_EQ(qp::trans, (mat3f{vec3f{1, 0, 0}, vec3f{0, 1, 0}, vec3f{0, 0, -1}}));
  expect_float3({qp::smin, qp::smax, qp::sigm}, {0.05f, 0.6f, 2.5f});
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{24, 36, 30}));
  EXPECT_EQ(qp::lugar, (std::array<std::int32_t, 9>{1, 2, 3, 4, 0, 5, 6, 0, 0}));
  EXPECT_EQ(qp::filfou, "cuso4.fou");
  EXPECT_EQ(qp::filatm, "cuso4.atm");
  EXPECT_EQ(qp::filbin, "cuso4.bin");
  EXPECT_EQ(qp::npeaks, 12);
  EXPECT_EQ(qp::jlist, 3);
  expect_float3({qp::dist1, qp::dist2, qp::dist3}, {1.2f, 3.0f, 2.8f});
  EXPECT_EQ(qp::jfiles, 3);  // fou, then atom
  for (std::int32_t j : {qp::jtitle, qp::jcell, qp::jspace, qp::jgrid, qp::jatoms, qp::jfourier, qp::jtrans, qp::jreflim,
                         qp::jpeaks, qp::jbin, qp::jform})
    EXPECT_EQ(j, 1);
}

// Small files, each with what it must leave behind. A failed directive sets
// kerror without a box and stops the reading.
TEST_F(ControlFile, DirectivesOneByOne) {
  const std::string cut_cell = "cell 1 2 3 90 90" + std::string(104, ' ');  // 120 characters
  struct row {
    std::string text;
    bool kerror;
    std::function<void()> check;
  };
  const row rows[] = {
      {"end\n", false,
       [] { EXPECT_EQ(qp::titulo, "kept"); EXPECT_EQ(qp::ntype, 1); EXPECT_EQ(qp::atomos.natoms, 0); }},
      {"cell 1 2 3 90 90\n", false, [] { EXPECT_EQ(qp::celda.cell, (vec3f{})); EXPECT_EQ(qp::jcell, 1); }},
      {cut_cell + "95\n", false, [] { EXPECT_EQ(qp::celda.cell, (vec3f{})); }},
      {cut_cell.substr(0, 118) + "95\n", false, [] { EXPECT_EQ(qp::celda.ang, (vec3f{90, 90, 95})); }},
      {"atom c1 0.1 0.2 0.3\natom 12 0 0 0\ngrid 8 8 8\n", true,
       [] { EXPECT_EQ(qp::atomos.natoms, 1); EXPECT_EQ(qp::ngrid[0], 0); }},
      {"atom C1 0.1 0.2\n", true, [] { EXPECT_EQ(qp::atomos.natoms, 0); }},
      {"grid 64 64\ncell 1 2 3 90 90 90\n", true, [] { EXPECT_EQ(qp::celda.cell, (vec3f{})); }},
      {"unknown 1 2 3\ncellar 1 2 3 90 90 90\nTitles Abc\n", false,
       [] { EXPECT_EQ(qp::celda.cell, (vec3f{1, 2, 3})); EXPECT_EQ(qp::titulo, "abc"); }},
      {"titl\n", false, [] { EXPECT_EQ(qp::titulo, " !****  Fourier Maps Calculations Program ****!"); }},
      {"f000 1 2 3\n", false, [] { EXPECT_EQ(qp::f000, 0.0f); EXPECT_EQ(qp::f000s, 1.0f); }},
      {"f000 7\n", false, [] { EXPECT_EQ(qp::f000, 7.0f); EXPECT_EQ(qp::f000s, 1.0f); }},
      {"four fcalc\nfour patt xxxx\n", false, [] { EXPECT_EQ(qp::ntype, 2); EXPECT_EQ(qp::jfourier, 1); }},
      {"four user\nfour fo\n", false, [] { EXPECT_EQ(qp::ntype, 6); }},
      {"tran matr\n1 2 3\n4 5 6\n7 8 9\n", false,
       [] { EXPECT_EQ(qp::trans, (mat3f{vec3f{1, 2, 3}, vec3f{4, 5, 6}, vec3f{7, 8, 9}})); }},
      {"tran matr 1 2 3 4\n", false, [] { EXPECT_EQ(qp::trans[0][0], 5.0f); EXPECT_EQ(qp::jtrans, 1); }},
      {"tran mat 1 2 3 4 5 6 7 8 9\n", false, [] { EXPECT_EQ(qp::trans[0][0], 5.0f); EXPECT_EQ(qp::jtrans, 1); }},
      {"tran matr 1 0 0\n0 1\n0 0 1\n", true, [] { EXPECT_EQ(qp::trans[0], (vec3f{1, 0, 0})); }},
      {"tran matr\n1 0 0\n0 1 0\n", true, [] {}},  // the file ends inside the matrix
      {"refl smax 1 2\n", true, [] {}},
      {"refl smin 0.1\nrefl smax 0.9\nrefl other 1\n", false,
       [] { EXPECT_FLOAT_EQ(qp::smin, 0.1f); EXPECT_FLOAT_EQ(qp::smax, 0.9f); EXPECT_EQ(qp::jreflim, 1); }},
      {"form\n", true, [] {}},
      {"form h k l xx a b\n", false,
       [] { EXPECT_EQ(qp::lugar, (std::array<std::int32_t, 9>{1, 2, 3, 0, 0, 0, 0, 5, 6})); }},
      {"file bin\nfile atom a.atm\nfile fou b.fou\nfile four c\n", false,
       [] { EXPECT_EQ(qp::filbin, ""); EXPECT_EQ(qp::jbin, 1); EXPECT_EQ(qp::jfiles, 1); }},  // atom, then fou
      {"scan\n", true, [] {}},
      {"list dist 2.5\n", true, [] {}},
      {"list dist\n", false, [] { EXPECT_EQ(qp::jlist, 2); EXPECT_EQ(qp::dist2, 0.0f); }},
      {"list dist 1 2\nlist atom\n", false,
       [] { EXPECT_EQ(qp::jlist, 3); EXPECT_EQ(qp::dist1, 1.0f); EXPECT_EQ(qp::dist3, 2.0f); }},
      {"\x01\xff garbage \x7f\r\nspgr\r\n", false, [] { EXPECT_EQ(qp::spgr, ""); EXPECT_EQ(qp::jspace, 1); }},
  };
  for (const row& r : rows) {
    qp::titulo = "kept";
    qp::trans = {vec3f{5, 5, 5}, vec3f{5, 5, 5}, vec3f{5, 5, 5}};
    qp::celda.cell = {9, 9, 9};
    read_text(r.text);
    EXPECT_EQ(qp::kerror, r.kerror) << r.text;
    r.check();
    EXPECT_TRUE(headless::boxes().empty()) << r.text;
  }
}

TEST_F(ControlFile, AtomsBeyondTheTableAreDropped) {
  std::string text;
  for (int i = 1; i <= 801; ++i) text += "atom c" + std::to_string(i % 100) + " 0.1 0.2 0.3\n";
  read_text(text + "atom n1 0.1\n");
  EXPECT_TRUE(qp::kerror);  // the 802nd line is still checked
  EXPECT_EQ(qp::atomos.natoms, 800);
  EXPECT_EQ(qp::atomos.atom.size(), 800u);
}

TEST_F(ControlFile, AnInputErrorShowsTheBox) {
  std::filesystem::create_directories(dir_ / "folder.inp");
  read_file(dir_ / "folder.inp");
  EXPECT_TRUE(qp::kerror);
  EXPECT_EQ(headless::box_texts(), texts{"Reading instructions on Input File"});
}

// A state with every optional line present.
void set_full_state() {
  qp::titulo = "cuso4 test";
  qp::celda.cell = {6.1f, 10.7f, 5.97f};
  qp::celda.ang = {82.3f, 107.4f, 102.6f};
  qp::spgr = "P -1";
  allocate_atom_list(2, qp::atomos);
  qp::atomos.atom[0].lab = "cu1";
  qp::atomos.atom[0].occ = 0.5f;
  qp::atomos.atom[1].lab = "s1234";
  qp::atomos.atom[1].x = {0.0123f, -0.2867f, 0.6243f};
  qp::ntype = 5;
  qp::ngrid = {24, 36, 30};
  qp::f000 = 54.5f;
  qp::f000s = 0.9f;
  qp::smin = 0.05f;
  qp::smax = 0.6f;
  qp::sigm = 2.5f;
  qp::filfou = "cuso4.fou";
  qp::filbin = "other.bin";
  qp::lugar = {1, 2, 3, 5, 0, 6, 4, 0, 0};
  qp::jlist = 3;
  qp::dist1 = 1.2f;
  qp::dist2 = 3.0f;
  qp::dist3 = 2.8f;
  qp::npeaks = 12;
  qp::trans = {vec3f{1, 0, 0}, vec3f{0, 1, 0}, vec3f{0, 0, 1}};
}

// The lines of the full state down to the space group.
const std::string full_state_head = " !---- Title ----!\n"
                                    " Title  cuso4 test" + std::string(70, ' ') + "\n"
                                    " \n"
                                    " !---- Cell Parameters ----!\n"
                                    " Cell   6.1000 10.7000  5.9700   82.30  107.40  102.60\n"
                                    " \n"
                                    " !---- Space Group ----!\n"
                                    " Spgr P -1" + std::string(16, ' ') + "\n \n";

TEST_F(ControlFile, WriterLayout) {
  set_full_state();
  EXPECT_EQ(save_as("full.inp"),
            full_state_head +
            " !---- Atoms list ----!\n"
            " Atom  cu1   0.0000  0.0000  0.0000   0.500\n"
            " Atom  s123  0.0123 -0.2867  0.6243\n"
            " \n"
            " !---- Fourier Calculations ----!\n"
            " Fourier patterson fcsq\n"
            " Grid   24  36  30\n"
            " F000    54.5000    0.9000\n"
            " Reflec Srange     0.0500    0.6000\n"
            " Reflec Sigma     2.5000\n"
            " \n"
            " !---- Files Information ----!\n"
            " File fou cuso4.fou\n"
            " File bin \n"
            " Form h k l ph fo si\n"
            " \n"
            " !---- Additional List ----!\n"
            " List atom\n"
            " List dist   1.200  3.000  2.800\n"
            " \n"
            " !---- Search Peaks ----!\n"
            " Scan     12\n"
            " \n"
            " !---- End of Directives ----!\n"
            " End \n");
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(headless::selectors().size(), 1u);
}

// An atoms file replaces the list; optional lines drop out; the column line
// falls back to its default.
TEST_F(ControlFile, WriterLayoutOfASparseState) {
  set_full_state();
  qp::filatm = "cuso4.atm";
  qp::ntype = 0;
  qp::ngrid = {24, 0, 30};
  qp::smin = qp::smax = 0.00005f;
  qp::sigm = -0.00005f;
  qp::lugar = {};
  qp::jlist = 2;
  qp::npeaks = 0;
  EXPECT_EQ(save_as("sparse.inp"),
            full_state_head +
            " !---- Atoms file ----!\n"
            " File atom cuso4.atm" + std::string(141, ' ') + "\n"
            " \n"
            " !---- Fourier Calculations ----!\n"
            " F000    54.5000    0.9000\n"
            " \n"
            " !---- Files Information ----!\n"
            " File fou cuso4.fou\n"
            " File bin \n"
            " Form h k l fo fc phase\n"
            " \n"
            " !---- Additional List ----!\n"
            " List dist   1.200  3.000  2.800\n"
            " \n"
            " !---- End of Directives ----!\n"
            " End \n");
}

// The writer's text read back: what it carries comes back, what it never
// writes (matrix, map name, markers) does not, texts come back lower-cased,
// the group in upper case, and a second save writes the same text.
TEST_F(ControlFile, RoundTrip) {
  set_full_state();
  qp::titulo = "Abc";
  qp::spgr = "P 21/c";
  const std::string first = save_as("first.inp");
  qp::trans = {};
  read_file(dir_ / "first.inp");
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::titulo, "abc");
  EXPECT_EQ(qp::spgr, "P 21/C");
  EXPECT_EQ(qp::atomos.atom[1].lab, "s123");
  EXPECT_EQ(qp::filbin, "");
  EXPECT_EQ(qp::trans, mat3f{});
  std::string expected = first;
  expected.replace(expected.find("Title  Abc"), 10, "Title  abc");
  expected.replace(expected.find("P 21/c"), 6, "P 21/C");
  EXPECT_EQ(save_as("second.inp"), expected);
}

TEST_F(ControlFile, ExampleFileRoundTrip) {
  read_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.inp");
  ASSERT_FALSE(qp::kerror);
  EXPECT_EQ(qp::lugar, (std::array<std::int32_t, 9>{1, 2, 3, 4, 0, 5, 0, 0, 0}));
  const std::string first = save_as("nacl.inp");
  read_file(dir_ / "nacl.inp");
  EXPECT_EQ(save_as("again.inp"), first);
}

// The save dialogue: the proposed name, a cancel, the extensions, the second
// selector for a missing reflection file, and a file that cannot be made.
TEST_F(ControlFile, SaveDialogue) {
  qp::input_file = 1;
  qp::filbin = "maps.d/nacl.bin";
  qp::filfou = "x.fou";
  qp::kedit = true;
  headless::answer_file_cancel();
  fourier_filesave();
  EXPECT_TRUE(qp::kcancel);
  EXPECT_FALSE(qp::kedit);
  ASSERT_EQ(headless::selectors().size(), 1u);
  EXPECT_EQ(headless::selectors()[0].start_name, "maps.inp");
  EXPECT_EQ(headless::selectors()[0].flags, 11);
  EXPECT_EQ(headless::selectors()[0].filter, "Fourier Input File|*.inp|");
  EXPECT_EQ(headless::selectors()[0].title, "Save Input Data");

  qp::input_file = 0;
  qp::filinp = "given.inp";
  qp::filfou.clear();
  qp::kedit = true;
  headless::answer_file((dir_ / "noext").string());
  headless::answer_file("refl");
  fourier_filesave();
  EXPECT_FALSE(qp::kcancel);
  EXPECT_TRUE(qp::kedit);
  EXPECT_EQ(qp::filinp, (dir_ / "noext.inp").string());
  EXPECT_EQ(qp::filfou, "refl.fou");
  EXPECT_TRUE(std::filesystem::exists(dir_ / "noext.inp"));
  ASSERT_EQ(headless::selectors().size(), 3u);
  EXPECT_EQ(headless::selectors()[1].start_name, "given.inp");
  EXPECT_EQ(headless::selectors()[2].title, "Load Reflections File");
  EXPECT_EQ(headless::selectors()[2].flags, 10);

  // The reflection selector cancelled still gives a name.
  qp::filfou.clear();
  headless::answer_file((dir_ / "b.inp").string());
  fourier_filesave();
  EXPECT_EQ(qp::filfou, ".fou");

  std::filesystem::create_directories(dir_ / "taken.inp");
  save_as("taken.inp");
  EXPECT_TRUE(qp::kerror);
  EXPECT_EQ(headless::box_texts(), texts{"Cannot open the input file"});
}

}  // namespace
