// The control file: hand-written files read directive by directive, the
// writer's text against hand-written text, the round trip and its known
// differences, damaged files, and the save dialogue.
#include <gtest/gtest.h>

#include <functional>

#include "app/file_units.h"
#include "app/quelmora_fourier.h"
#include "app/quelmora_initialize.h"
#include "state/quelmora_parametros.h"
#include "tests/app/control_state.h"
#include "tests/app/shell_fixture.h"

namespace qp = quelmora_parametros;

namespace {

using texts = std::vector<std::string>;

class ControlFile : public Shell {
 protected:
  void SetUp() override {
    Shell::SetUp();
    init_var_prog();
  }
  void TearDown() override {
    close_unit(unit_control_file);
    Shell::TearDown();
  }
  // Writes the text as a file and reads it with lee_datos.
  void read_text(const std::string& text) {
    std::ofstream(dir_ / "in.inp") << text;
    read_file(dir_ / "in.inp");
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
    return text_of(dir_ / name);
  }
};

// Each case of the data file read on a state whose title, matrix and cell
// show whether the reading touched them; no case shows a box.
TEST_F(ControlFile, ReadsTheDirectivesOfEachCase) {
  for (const data_case& c : data_cases("app/control_directives.txt")) {
    qp::titulo = "kept";
    qp::trans = {vec3f{5, 5, 5}, vec3f{5, 5, 5}, vec3f{5, 5, 5}};
    qp::celda.cell = {9, 9, 9};
    read_text(c.input);
    for (const auto& [name, want] : c.values) EXPECT_EQ(value_of(name), want) << c.name << ": " << name;
    EXPECT_TRUE(headless::boxes().empty()) << c.name;
  }
}

TEST_F(ControlFile, ForeignBytesAndLineEndsArePassedOver) {
  read_text("\x01\xff garbage \x7f\r\nspgr\r\n");
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::spgr, "");
  EXPECT_EQ(qp::jspace, 1);
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
  qp::f000 = 54.5f, qp::f000s = 0.9f;
  qp::smin = 0.05f, qp::smax = 0.6f, qp::sigm = 2.5f;
  qp::filfou = "cuso4.fou";
  qp::filbin = "other.bin";
  qp::lugar = {1, 2, 3, 5, 0, 6, 4, 0, 0};
  qp::jlist = 3;
  qp::dist1 = 1.2f, qp::dist2 = 3.0f, qp::dist3 = 2.8f;
  qp::npeaks = 12;
  qp::trans = {vec3f{1, 0, 0}, vec3f{0, 1, 0}, vec3f{0, 0, 1}};
}

// The full state, then a sparse one: an atoms file replaces the list,
// optional lines drop out, the column line falls back to its default.
TEST_F(ControlFile, WriterLayout) {
  set_full_state();
  EXPECT_EQ(save_as("full.inp"), data_text("app/written_full.inp"));
  EXPECT_FALSE(qp::kerror);
  qp::filatm = "cuso4.atm";
  qp::ntype = 0;
  qp::ngrid = {24, 0, 30};
  qp::smin = qp::smax = 0.00005f;
  qp::sigm = -0.00005f;
  qp::lugar = {};
  qp::jlist = 2;
  qp::npeaks = 0;
  EXPECT_EQ(save_as("sparse.inp"), data_text("app/written_sparse.inp"));
}

// The writer's text read back: what it carries comes back, what it never
// writes (matrix, map name) does not, texts come back lower-cased, the group
// in upper case, and a second save writes the same text.
TEST_F(ControlFile, RoundTrip) {
  set_full_state();
  qp::titulo = "Abc";
  qp::spgr = "P 21/c";
  qp::smin = 0.0f;  // a range with only its top set is still written
  const std::string first = save_as("first.inp");
  qp::trans = {};
  read_file(dir_ / "first.inp");
  EXPECT_FALSE(qp::kerror);
  EXPECT_EQ(qp::atomos.atom[1].lab, "s123");
  EXPECT_EQ(qp::filbin, "");
  EXPECT_EQ(qp::trans, mat3f{});
  EXPECT_FLOAT_EQ(qp::smax, 0.6f);
  std::string expected = first;
  expected.replace(expected.find("Title  Abc"), 10, "Title  abc");
  expected.replace(expected.find("P 21/c"), 6, "P 21/C");
  EXPECT_EQ(save_as("second.inp"), expected);
}

// The save dialogue: the name proposed for a map, a cancel, the extensions,
// the second selector for a missing reflection file, and a file that cannot
// be made.
TEST_F(ControlFile, SaveDialogue) {
  qp::input_file = 1;
  qp::filbin = "maps.d/nacl.bin";
  qp::kedit = true;
  headless::answer_file_cancel();
  fourier_filesave();
  EXPECT_TRUE(qp::kcancel);
  EXPECT_FALSE(qp::kedit);
  ASSERT_EQ(headless::selectors().size(), 1u);
  EXPECT_EQ(headless::selectors()[0].start_name, "maps.inp");
  EXPECT_EQ(headless::selectors()[0].title, "Save Input Data");

  qp::input_file = 0;
  qp::filinp = "given.inp";
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

  // The reflection selector cancelled still gives a name.
  qp::filfou.clear();
  headless::answer_file((dir_ / "b.inp").string());
  fourier_filesave();
  EXPECT_EQ(qp::filfou, ".fou");

  std::filesystem::create_directories(dir_ / "taken.inp");
  headless::answer_file((dir_ / "taken.inp").string());
  fourier_filesave();
  EXPECT_TRUE(qp::kerror);
  EXPECT_EQ(headless::box_texts(), texts{"Cannot open the input file"});
}

}  // namespace
