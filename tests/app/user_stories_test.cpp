// Whole runs of the program through the headless face: a scripted user
// starts it, opens files, cancels, and closes it.
#include <gtest/gtest.h>

#include "app/quelmora_initialize.h"
#include "app/menu_help.h"
#include "app/quelmora_main.h"
#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"
#include "tests/data_files.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/graphics/graphics_colour.h"

namespace qp = quelmora_parametros;

namespace {

using calls = std::vector<std::string>;

// Pictures the plot window copied to the screen.
std::size_t plot_pictures() {
  std::size_t n = 0;
  for (const auto& p : headless::root_canvas().primitives()) n += p.kind == recorded_kind::bitmap;
  return n;
}

std::size_t header_texts() {
  std::size_t n = 0;
  for (const auto& p : headless::root_canvas().primitives())
    n += p.kind == recorded_kind::text && p.text == "A graphical tool for Fourier Maps";
  return n;
}

TEST_F(Shell, StartWithoutAFileShowsTheEmptyShell) {
  start({});
  EXPECT_EQ(shown_menu(), 30001);
  std::int32_t y = 0, m = 0, d = 0;
  iosdate(y, m, d);
  EXPECT_EQ(status_text(3), status_date(y, m, d));
  EXPECT_EQ(file_states(), no_file_states);
  for (int id : {40025, 40026, 40007, 40024, 40029, 40016}) EXPECT_EQ(wmenugetstate(id, 1), 1) << id;
  // Contour colours of set 1 on palette entries 197 to 216.
  EXPECT_EQ(palette_colour(216).value, wrgb(qp::set1_rojo[19], qp::set1_verde[19], qp::set1_azul[19]));
  EXPECT_EQ(header_texts(), 1u);
  EXPECT_FALSE(window_is_open());
}

// A file named on the command line. The example map is plotted, and the main
// menu comes back fresh from the plot window (Output Fourier, which nothing
// enabled, is on). A control file runs Sintrel (here one that does nothing,
// the map being there) and plots the map of its stem, Sintrel Program off.
// A failure shows one box over the header and leaves the menus as they were.
TEST_F(Shell, StartWithAFileArgument) {
  for (const char* name : {"cu.map", "cu.asc", "empty.inp"}) touch(name);
  std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.inp", dir_ / "nacl.inp");
  fake_program("sintrel", "exit 0\n");
  std::filesystem::create_directories(dir_ / "elsewhere");
  std::map<int, int> all_on = {{40005, 1}, {40008, 1}, {40011, 1}, {40021, 1}, {40022, 1}, {40027, 1}, {40028, 1}};
  std::map<int, int> no_sintrel = all_on;
  no_sintrel[40005] = 0;
  std::map<int, int> plot_on = no_file_states;  // a run of Sintrel turns Plot on, map or not
  plot_on[40022] = 1;
  struct row {
    const char *argument, *in, *box;
    std::map<int, int> states;
  };
  const row rows[] = {
      {"nacl.bin", "", "", all_on},
      {"nacl.inp", "", "", no_sintrel},
      {"empty.inp", "", "Error opening the binary file", plot_on},  // Sintrel made no map
      {"nothere.bin", "", "Input Control File Not Found.", no_file_states},
      {"cu.map", "", "Error opening the binary file", no_file_states},
      {"cu.asc", "", "Opening the Ascii File", no_file_states},
      // The program is meant to be started in the data directory: a file
      // named with another directory is found, then looked for by its bare name.
      {"../nacl.bin", "elsewhere", "Error opening the binary file", no_file_states},
  };
  for (const row& r : rows) {
    headless::install();
    iosdirchange((dir_ / r.in).string());
    EXPECT_EQ(start({r.argument}), 0);
    const bool failed = *r.box != '\0';
    EXPECT_EQ(headless::box_texts(), failed ? calls{r.box} : calls{}) << r.argument;
    for (const auto& box : headless::boxes()) EXPECT_EQ(box.title, "Error Message");
    EXPECT_EQ(qp::ngrid[0], failed ? 0 : 48) << r.argument;
    EXPECT_EQ(plot_pictures(), failed ? 0u : 1u) << r.argument;
    EXPECT_EQ(file_states(), r.states) << r.argument;
    EXPECT_EQ(header_texts(), 1u) << r.argument;
  }
}

// Opening the example control file loads its data and stops there: no plot;
// Calculations on, Plot off until Sintrel has made the map. Opening the map
// then plots it, and Calculations goes off.
TEST_F(Shell, FileOpenOfAControlFileThenOfTheMap) {
  std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.inp", dir_ / "nacl.inp");
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "nacl.inp").string());
  headless::queue_look([this] {
    EXPECT_EQ(plot_pictures(), 0u);
    EXPECT_EQ(status_text(2), "File: nacl.inp");
    EXPECT_EQ(file_states(), (std::map<int, int>{{40005, 1}, {40008, 0}, {40011, 1}, {40021, 1},
                                                 {40022, 0}, {40027, 0}, {40028, 1}}));
    EXPECT_EQ(std::tuple(qp::input_file, qp::titulo, qp::atomos.natoms),
              std::tuple(0, "nacl rock salt: na and cl as gaussian densities", 2));
  });
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "nacl.bin").string());
  start({});
  EXPECT_TRUE(headless::boxes().empty());
  ASSERT_EQ(headless::selectors().size(), 2u);
  EXPECT_EQ(std::tuple(headless::selectors()[0].title, headless::selectors()[0].start_name), std::tuple("Load Input File", "/"));
  EXPECT_EQ(plot_pictures(), 1u);
  EXPECT_EQ(status_text(2), "File: nacl.bin");
  EXPECT_EQ(file_states(), (std::map<int, int>{{40005, 0}, {40008, 1}, {40011, 1}, {40021, 1},
                                               {40022, 1}, {40027, 0}, {40028, 1}}));
  EXPECT_EQ(qp::grp_espacial.multip, 192);
}

// A CCP4 map named .map (written by ccp4_map_test's writer) is known by its
// content: File, Open loads it as a map and plots it, not as a text map.
TEST_F(Shell, FileOpenOfACcp4MapNamedMap) {
  std::filesystem::copy_file(data_path("maps/ccp4_p21_asu.map"), dir_ / "p21.map");
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "p21.map").string());
  start({});
  EXPECT_EQ(headless::box_texts(), calls{});
  EXPECT_EQ(std::tuple(qp::input_file, qp::titulo, qp::ngrid[2]), std::tuple(4, "P 21 asu", 12));
  EXPECT_EQ(plot_pictures(), 1u);
  EXPECT_EQ(status_text(2), "File: p21.map");
}

TEST_F(Shell, OpenCancelledForgetsTheDirectory) {
  headless::queue_menu(40026);
  headless::answer_file_cancel();
  headless::queue_menu(40026);
  headless::answer_file_cancel();
  headless::queue_menu(40005);  // Calculations: the cancel left over stops the run
  start({});
  EXPECT_TRUE(headless::boxes().empty());
  ASSERT_EQ(headless::selectors().size(), 2u);
  EXPECT_EQ(headless::selectors()[1].start_name, "/");
  EXPECT_TRUE(qp::kcancel);
  EXPECT_EQ(qp::filedir, "");
  EXPECT_EQ(file_states(), no_file_states);
  EXPECT_FALSE(qp::kfourier);
  EXPECT_EQ(header_texts(), 3u);  // at start and after each cancel
}

TEST_F(Shell, OpenOfAMissingFileLosesThePreviousFile) {
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "nacl.bin").string());
  headless::queue_menu(40033);  // back from the plot window
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "gone.bin").string());
  start({});
  EXPECT_EQ(headless::box_texts(), calls{"Input Control File Not Found."});
  EXPECT_EQ(qp::filbin, "");
  EXPECT_EQ(qp::titulo, "****---- Graphic Quelmora Program ----****");
  // No menu change on a failed open: the states of the first map stay.
  EXPECT_EQ(wmenugetstate(40022, 1), 1);
}

// File, Open of a text map converts it to the .bin beside it and plots it;
// a text map without its grid line shows the message and makes no .bin.
TEST_F(Shell, FileOpenOfTextMaps) {
  std::ofstream(dir_ / "cu.map") << "MAP\nCopper\nCell 3.6 3.6 3.6 90 90 90\nSpgr F m -3 m\natom Cu Cu 0 0 0\n"
                                    "GRID 2 2 2 0 0 0 0 0 0\nDENSITY_MAP\n1 2 3 4\n5 6 7 8\n";
  std::ofstream(dir_ / "bad.map") << "MAP\nNo grid\nCell 3.6 3.6 3.6 90 90 90\nSpgr F m -3 m\n";
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "cu.map").string());
  headless::queue_menu(40033);
  headless::queue_menu(40026);
  headless::answer_file((dir_ / "bad.map").string());
  start({});
  EXPECT_EQ(headless::box_texts(), calls{"Opening the Ascii File in MAP format (Grid Dimensions)"});
  EXPECT_EQ(plot_pictures(), 1u);
  EXPECT_EQ(qp::titulo, "No grid");
  EXPECT_TRUE(std::filesystem::exists(dir_ / "cu.bin"));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "bad.bin"));
}

TEST_F(Shell, NewWithTheDialogCancelledSavesNothing) {
  headless::queue_menu(40025);
  start({});
  EXPECT_TRUE(headless::selectors().empty());  // no save selector
  EXPECT_EQ(file_states(), no_file_states);
  EXPECT_EQ(status_text(2), "");
}

// The closing sequence: two questions at most, in order, and no way to stop.
TEST_F(Shell, ClosingSequenceAsksInOrder) {
  struct row {
    bool kedit, ksettings;
    std::vector<int> answers;
    calls questions;
    std::size_t save_selectors;
    bool settings_saved;
  };
  const std::string q1 = "Do you want to save the last modifications?";
  const std::string q2 = "Do you want to save the present settings?";
  const row rows[] = {
      {true, true, {1, 1}, {q1, q2}, 1, true}, {true, true, {2, 2}, {q1, q2}, 0, false},
      {true, true, {2, 1}, {q1, q2}, 0, true}, {false, true, {1}, {q2}, 0, true},
      {true, false, {1}, {q1}, 1, false},     {false, false, {}, {}, 0, false},
  };
  init_var_prog();
  for (const row& r : rows) {
    std::filesystem::remove_all(home_ / ".ksu");
    std::filesystem::remove(home_ / ".quelmora_dir");
    headless::install();
    qp::kedit = r.kedit;
    qp::ksettings = r.ksettings;
    window_options_type how;
    windowopen2(how);
    for (int a : r.answers) headless::answer_box(a);
    closing_sequence();
    EXPECT_EQ(headless::box_texts(), r.questions);
    // Yes to the first question brings up the save selector (cancelled here).
    EXPECT_EQ(headless::selectors().size(), r.save_selectors);
    for (const auto& run : headless::selectors()) EXPECT_EQ(run.title, "Save Input Data");
    EXPECT_EQ(std::filesystem::exists(home_ / ".ksu" / "quelmora.set"), r.settings_saved);
    // The directory is written whatever the answers.
    EXPECT_TRUE(std::filesystem::exists(home_ / ".quelmora_dir"));
    EXPECT_FALSE(window_is_open());
  }
}

// Each menu command of the main loop: only Plot shows a picture.
TEST_F(Shell, MenuTable) {
  for (const int id : {40027, 40028, 40005, 40008, 40022, 40016, 40029 /* no suite directory: no help */, 40006,
                       40011, 40018, 40021, 40023, 40004, 40030}) {
    headless::install();
    headless::queue_menu(id);
    start({});
    // Plot enters the plot window even with no map loaded: one empty picture.
    // Calculations without a sintrel on the search path says so and shows none.
    EXPECT_EQ(plot_pictures(), id == 40022 ? 1u : 0u) << id;
  }
}

TEST_F(Shell, AboutBoxShowsTheVersionsUntilOk) {
  headless::queue_menu(40016);
  headless::press(113, 1);
  headless::queue_menu(40007);
  start({});
  const loaded_dialog_type* about = yyfind_dialog(113);
  ASSERT_NE(about, nullptr);
  EXPECT_FALSE(about->shown);
  EXPECT_EQ(yyfind_field(*yyfind_dialog(113), 1033)->text, "04.06");
  EXPECT_EQ(yyfind_field(*yyfind_dialog(113), 1058)->text, "March - 2007");
  EXPECT_EQ(headless::refused(), std::vector<std::string>{});
  EXPECT_EQ(headless::events_left(), 0u) << "Exit after OK ended the loop";
}

TEST_F(Shell, ExitAndQuitEndTheLoopAlike) {
  for (int id : {40007, 40024}) {
    headless::install();
    qp::kedit = true;
    headless::queue_menu(id);
    headless::queue_menu(40022);  // never read
    start({});
    EXPECT_EQ(headless::events_left(), 1u) << id;
    EXPECT_FALSE(window_is_open());
  }
}

TEST_F(Shell, OtherMessagesOfTheMainLoop) {
  message_record child;
  child.win = 3;
  headless::queue_event(msg_close_request, child);
  message_record negative;
  negative.win = -2;
  headless::queue_event(msg_close_request, negative);  // ignored
  headless::queue_push_button(9);
  headless::queue_push_button(4);  // nothing
  headless::queue_mouse(msg_mouse_down, 1, 0.5f, 0.5f);
  headless::queue_expose();
  headless::queue_resize();
  qp::ichild = 3;
  start({});
  // The help button looks for the file without asking for the suite.
  ASSERT_EQ(headless::box_texts().size(), 1u);
  EXPECT_EQ(headless::box_texts()[0].rfind("The help file /Html/sintrel.html is not there", 0), 0u);
  EXPECT_EQ(qp::ichild, -1);
  EXPECT_EQ(header_texts(), 3u);  // start, expose, resize
  EXPECT_EQ(file_states(), no_file_states);
}

TEST_F(Shell, HelpFilePath) {
  qp::var_sep = "/";
  qp::var_system = "UNIX";
  qp::var_suite = "/opt/keldrane";
  EXPECT_EQ(help_file_path(512), "/opt/keldrane/Html/sintrel.html");
  EXPECT_EQ(help_file_path(10), "/opt/keldr");
  qp::var_system = "WIND";
  EXPECT_EQ(help_file_path(512), "/opt/keldrane/Help/sintrel.chm");
  qp::var_suite = "";
}

// Help, Help starts the browser of the settings (xdg-open when none is set)
// in the background on the manual; a missing manual or browser is said.
TEST_F(Shell, HelpOpensTheManualInTheBrowser) {
  struct row {
    const char* suite;
    const char* browser;
    bool manual;
    const char* note;  // what the browser was started with, @ for the manual's path
    const char* box;   // the start of the box shown
  };
  const row rows[] = {
      {"suite", "browse --new-window", true, "browse --new-window @", ""},
      {"suite", "", true, "xdg-open @", ""},
      {"suite", "nosuch-browser", true, "", "The browser \"nosuch-browser\" cannot be started"},
      {"suite", "browse", false, "", "The help file "},
      {"", "browse", true, "", ""},
  };
  for (const char* program : {"browse", "xdg-open"})
    fake_program(program, "echo \"" + std::string(program) + " $*\" > \"" + (dir_ / "opened").string() + "\"\n");
  for (const row& r : rows) {
    headless::install();
    std::filesystem::remove_all(dir_ / "suite");
    std::filesystem::remove(dir_ / "opened");
    if (r.manual) touch("suite/Html/sintrel.html");
    set_env("KELDRANE", *r.suite ? (dir_ / r.suite).string() : "");
    std::filesystem::create_directories(home_ / ".ksu");
    std::ofstream(home_ / ".ksu" / "quelmora.set") << "0 16777215\n0\n  Browser = " << r.browser << "\n";
    headless::queue_menu(40029);
    start({});
    std::string note = r.note;
    if (const auto at = note.find('@'); at != std::string::npos)
      note.replace(at, 1, (dir_ / "suite" / "Html" / "sintrel.html").string() + "\n");
    // The browser runs on by itself: give it a few seconds to leave its note.
    for (int i = 0; i < 100 && !note.empty() && text_of(dir_ / "opened") != note; ++i) usleep(50000);
    EXPECT_EQ(text_of(dir_ / "opened"), note) << r.browser;
    const auto texts = headless::box_texts();
    EXPECT_EQ(texts.empty() ? "" : texts[0].substr(0, std::string(r.box).size()), r.box) << r.browser;
  }
}

}  // namespace
