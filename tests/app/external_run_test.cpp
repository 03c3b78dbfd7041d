// The run of Sintrel from the Calculations menu, with a fake sintrel on the
// search path that notes its arguments and leaves a map and a listing.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "app/menu_calc.h"
#include "app/quelmora_initialize.h"
#include "app/quelmora_main.h"
#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"
#include "toolkit/messages/child_window.h"

namespace qp = quelmora_parametros;

namespace {

using texts = std::vector<std::string>;

class Run : public Shell {
 protected:
  // A program that notes its arguments, one run a line, then runs `more`.
  void noting_program(const std::string& program, const std::string& more) {
    fake_program(program, "printf '%s|' \"$@\" >> '" + runs_file() + "'\necho >> '" + runs_file() + "'\n" + more);
  }
  std::string runs_file() const { return (dir_ / "runs.txt").string(); }
  texts runs() const {
    texts lines;
    std::ifstream in(runs_file());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
  void open_control_file(const std::string& name) {
    std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.inp", dir_ / name);
    headless::queue_menu(40026);
    headless::answer_file((dir_ / name).string());
  }
  // The shell as after start-up, without its main loop.
  static void fresh_shell() {
    headless::install();
    winitialise();
    register_quelmo_rc();
    init_var_prog();
    init_graf();
  }
};

// Open the example control file, then Calculations: Sintrel runs twice, and
// the map it left under the stem of its argument is loaded and plotted. Back
// in the shell, Output Fourier shows Sintrel's listing.
TEST_F(Run, ControlFileToMapThroughSintrel) {
  std::filesystem::remove(dir_ / "nacl.bin");
  noting_program("sintrel", "stem=\"${1%.*}\"\ncp '" + std::string(QUELMORA_SOURCE_DIR) +
                                "/examples/nacl.bin' \"$stem.bin\"\necho \"Listing of $1\" > \"$stem.out\"\n");
  open_control_file("nacl.inp");
  headless::queue_menu(40005);
  headless::queue_menu(40033);
  headless::queue_menu(40008);
  start();
  ASSERT_EQ(headless::files_shown().size(), 1u);
  EXPECT_EQ(headless::files_shown()[0].path, "nacl.out");
  EXPECT_EQ(headless::files_shown()[0].text, "Listing of nacl.inp\n");
  EXPECT_EQ(headless::files_shown()[0].window, qp::ichild);
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_EQ(runs(), (texts{"nacl.inp|", "nacl.inp|"}));
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{48, 48, 48}));
  EXPECT_TRUE(qp::kfourier);
  EXPECT_FALSE(qp::kedit || qp::kerror);
  EXPECT_EQ(status_text(1), "");
  EXPECT_EQ(status_text(2), "File: nacl.inp");
  EXPECT_EQ(cursor_shape(), 0);
}

// The whole road with the real sintrel on the search path: File, Open of the
// example control file, Calculations, Sintrel Program, and the map sintrel
// made from nacl.fou is on the screen, the Cl top (15.37 e/A^3) with it.
TEST_F(Run, TheRealSintrelMakesTheMap) {
  std::filesystem::remove(dir_ / "nacl.bin");
  std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.fou", dir_ / "nacl.fou");
  std::filesystem::create_directories(dir_ / "bin");
  std::filesystem::create_symlink(std::string(QUELMORA_BINARY_DIR) + "/tools/sintrel", dir_ / "bin" / "sintrel");
  open_control_file("nacl.inp");
  headless::queue_menu(40005);
  headless::queue_menu(40033);
  start();
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_TRUE(std::filesystem::exists(dir_ / "nacl.out"));
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{48, 48, 48}));
  EXPECT_NEAR(qp::denmax, 15.37f, 0.01f);
  const auto& drawn = headless::root_canvas().primitives();
  EXPECT_TRUE(std::any_of(drawn.begin(), drawn.end(), [](const auto& p) { return p.kind == recorded_kind::bitmap; }));
}

// The run on its own, from a given state and file name.
TEST_F(Run, RunOutcomes) {
  struct row {
    const char* what;
    std::string filinp;
    bool error_before, cancel_before;
    texts runs, boxes;
    bool kfourier, kerror;
    bool sintrel_installed = true;
    bool old_map_left = false;  // a salt.bin older than the run lies there
  };
  const row rows[] = {
      {"plain", "salt.inp", false, false, {"salt.inp|"}, {}, true, false},
      {"blank in the name", "rock salt.inp", false, false, {"rock salt.inp|"}, {}, true, false},
      {"error left over", "salt.inp", true, false, {}, {}, false, true},
      {"cancel left over", "salt.inp", false, true, {}, {}, false, false},
      // The closing quote falls off the buffer: the shell refuses the
      // command, which is not a failure of the shell.
      {"long name", std::string(137, 'a') + ".inp", false, false, {}, {}, true, false},
      // A name that ends the quote and, after the run, kills its shell.
      {"killed shell", "x\"; kill -KILL $$; \"", false, false, {"x|"}, {"Error executing Fourier Calculations"}, false, true},
      {"no sintrel", "salt.inp", false, false, {}, {"The program sintrel could not be started: it is not on the search path"},
       false, true, false},
      {"no new map", "salt.inp", false, false, {"salt.inp|"}, {"Sintrel made no new map: salt.bin is older than the run"},
       false, true, true, true},
  };
  for (const row& r : rows) {
    fresh_shell();
    std::filesystem::remove(runs_file());
    std::filesystem::remove(dir_ / "bin" / "sintrel");
    if (r.sintrel_installed) noting_program("sintrel", "");
    std::filesystem::remove(dir_ / "salt.bin");
    if (r.old_map_left) {
      touch("salt.bin");
      std::filesystem::last_write_time(dir_ / "salt.bin",
                                       std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    }
    qp::filinp = r.filinp;
    qp::kerror = r.error_before;
    qp::kcancel = r.cancel_before;
    qp::kedit = true;
    menu_c_fourier();
    EXPECT_EQ(runs(), r.runs) << r.what;
    EXPECT_EQ(headless::box_texts(), r.boxes) << r.what;
    EXPECT_EQ(qp::kfourier, r.kfourier) << r.what;
    EXPECT_EQ(qp::kerror, r.kerror) << r.what;
    // Only a run that took place ends the edit and enables Plot.
    EXPECT_EQ(qp::kedit, !r.kfourier) << r.what;
    EXPECT_EQ(wmenugetstate(40022, 1), r.kfourier ? 1 : 0) << r.what;
  }
}

// Which listing Output Fourier shows, by the files beside the control file
// and the user's answer to the selector; each is shown twice in one child.
TEST_F(Run, ListingShown) {
  struct row {
    const char* what;
    std::string filinp;
    texts files;
    std::optional<std::string> chosen;  // none: Cancel in the selector
    std::size_t selectors;
    std::string shown;  // blank: nothing
    texts boxes;
  };
  const row rows[] = {
      {"both", "salt.inp", {"salt.fout", "salt.out"}, {}, 0, "salt.fout", {}},
      {"out only", "salt.inp", {"salt.out"}, {}, 0, "salt.out", {}},
      {"no dot", "salt", {"fout", "salt.out"}, {}, 0, "fout", {}},
      {"none, chosen", "salt.inp", {"other.out"}, "other.out", 2, "other.out", {}},
      {"none, cancelled", "salt.inp", {}, std::nullopt, 2, "", {}},
      {"chosen folder", "salt.inp", {}, "listings", 2, "", texts(2, "The listing cannot be shown: listings")},
  };
  std::filesystem::create_directories(dir_ / "listings");
  for (const row& r : rows) {
    fresh_shell();
    for (const auto& f : {"salt.fout", "salt.out", "fout", "other.out"}) std::filesystem::remove(dir_ / f);
    for (const auto& f : r.files) std::ofstream(dir_ / f) << f;
    qp::filinp = r.filinp;
    qp::ichild = 0;
    for (int time = 0; time < 2; ++time) {
      if (r.chosen) headless::answer_file(*r.chosen);
      menu_c_visual();
    }
    EXPECT_EQ(headless::box_texts(), r.boxes) << r.what;
    ASSERT_EQ(headless::selectors().size(), r.selectors) << r.what;
    for (const auto& selector : headless::selectors()) EXPECT_EQ(selector.title, "Load Output Fourier File");
    const std::size_t times = r.shown.empty() ? 0 : 2;
    ASSERT_EQ(headless::files_shown().size(), times) << r.what;
    for (const auto& shown : headless::files_shown()) {
      EXPECT_EQ(shown.path, r.shown) << r.what;
      EXPECT_EQ(shown.text, r.shown) << r.what;
      EXPECT_EQ(shown.window, qp::ichild) << r.what;
    }
    EXPECT_TRUE(times == 0 || child_is_open(qp::ichild)) << r.what;
  }
}

// File, Print File: the chosen file goes to the print command only when
// both the selector and the print options are answered with OK. A fake lp
// notes what it was given.
TEST_F(Run, PrintFile) {
  noting_program("lp", "");
  const std::string listing = (dir_ / "it's a.out").string();
  std::ofstream(listing) << "listing";
  struct row {
    const char* what;
    std::optional<std::string> chosen;
    bool options_ok;
    texts printed;
  };
  const row rows[] = {
      {"printed", listing, true, {"--|" + listing + "|"}},
      {"options cancelled", listing, false, {}},
      {"selector cancelled", std::nullopt, true, {}},
      {"file gone", (dir_ / "gone.out").string(), true, {}},
  };
  for (const row& r : rows) {
    headless::install();
    std::filesystem::remove(runs_file());
    if (r.chosen) headless::answer_file(*r.chosen);
    headless::answer_print_options(r.options_ok);
    menu_f_printfile();
    EXPECT_EQ(runs(), r.printed) << r.what;
    ASSERT_EQ(headless::selectors().size(), 1u);
    EXPECT_EQ(headless::selectors()[0].title, "Print Fourier Files");
  }
}

}  // namespace
