// The run of Sintrel from the Calculations menu, with a fake sintrel on the
// search path that notes its arguments and leaves a map and a listing.
#include <gtest/gtest.h>

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
  // A sintrel that notes its arguments, one run a line, then runs `more`.
  void noting_sintrel(const std::string& more) {
    fake_sintrel("printf '%s|' \"$@\" >> '" + runs_file() + "'\necho >> '" + runs_file() + "'\n" + more);
  }
  // Leaves the example map under the stem of its argument, and a listing.
  void working_sintrel() {
    noting_sintrel("stem=\"${1%.*}\"\ncp '" + std::string(QUELMORA_SOURCE_DIR) +
                   "/examples/nacl.bin' \"$stem.bin\"\necho \"Listing of $1\" > \"$stem.out\"\n");
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
  static void run_program() {
    const char* argv[] = {"quelmora"};
    quelmora_main(1, argv);
  }
};

// Open a control file whose name holds a blank, then Calculations: Sintrel
// runs twice on the quoted name, and the map it left is loaded and plotted.
TEST_F(Run, ControlFileToMapThroughSintrel) {
  std::filesystem::remove(dir_ / "nacl.bin");
  working_sintrel();
  open_control_file("rock salt.inp");
  headless::queue_menu(40005);
  run_program();
  EXPECT_TRUE(headless::boxes().empty());
  EXPECT_EQ(runs(), (texts{"rock salt.inp|", "rock salt.inp|"}));
  EXPECT_TRUE(std::filesystem::exists(dir_ / "rock salt.bin"));
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{48, 48, 48}));
  EXPECT_TRUE(qp::kfourier);
  EXPECT_FALSE(qp::kedit || qp::kerror);
  EXPECT_EQ(status_text(1), "");
  EXPECT_EQ(status_text(2), "File: rock salt.inp");
  EXPECT_EQ(cursor_shape(), 0);
}

// Sintrel that fails, or none on the path: the run itself says nothing, the
// load after it finds no map.
TEST_F(Run, NoMapFromTheRunIsToldByTheLoad) {
  for (bool installed : {true, false}) {
    headless::install();
    std::filesystem::remove_all(dir_ / "bin");
    if (installed) noting_sintrel("exit 1\n");
    open_control_file(installed ? "failing.inp" : "missing.inp");
    headless::queue_menu(40005);
    run_program();
    EXPECT_EQ(headless::box_texts(), texts{"Error opening the binary file"}) << installed;
    EXPECT_TRUE(qp::kfourier && qp::kerror) << installed;
  }
  EXPECT_EQ(runs(), (texts{"failing.inp|", "failing.inp|"}));
}

// The run on its own, from a given state and file name.
TEST_F(Run, RunOutcomes) {
  struct row {
    const char* what;
    std::string filinp;
    bool error_before, cancel_before;
    texts runs, boxes;
    bool kfourier, kerror;
  };
  const std::string long_name = std::string(137, 'a') + ".inp";
  const row rows[] = {
      {"plain", "salt.inp", false, false, {"salt.inp|"}, {}, true, false},
      {"error left over", "salt.inp", true, false, {}, {}, false, true},
      {"cancel left over", "salt.inp", false, true, {}, {}, false, false},
      // The closing quote falls off the buffer: the shell refuses the
      // command, which is not a failure of the shell.
      {"long name", long_name, false, false, {}, {}, true, false},
      // A name that ends the quote and, after the run, kills its shell.
      {"killed shell", "x\"; kill -KILL $$; \"", false, false, {"x|"}, {"Error executing Fourier Calculations"}, false, true},
  };
  noting_sintrel("");
  for (const row& r : rows) {
    headless::install();
    winitialise();
    std::filesystem::remove(runs_file());
    init_var_prog();
    init_graf();
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

}  // namespace
