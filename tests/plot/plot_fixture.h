// The plot window's tests start from the headless face with the root window
// open as the shell leaves it (main menu, toolbar, three status parts), the
// plot state at its start values and maps made in memory or read from the
// example file. Helpers read the last picture back in plot units.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "crystal/vant_crystal_metrics.h"
#include "maps/binary_map.h"
#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "plot/menu_plot.h"
#include "resources/quelmo_rc.h"
#include "state/quelmora_parametros.h"
#include "tests/data_files.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"

namespace qp = quelmora_parametros;

// The commands of the plot window's toolbars, and the main menu's commands
// the plot window disables or gives back.
namespace cmd {
enum : int {
  background = 40002, foreground = 40003, run_through = 40004, sintrel = 40005, perspective = 40006,
  plot = 40022, save = 40027, probe = 40030, atoms = 40032, leave = 40033, direction = 40034,
  limits = 40035, section_up = 40036, section_down = 40037, plane = 40038, print = 40040,
  metafile = 40041, postscript = 40042, text_map = 40043, reset = 40044, levels = 40047, sum = 40048,
  legend = 40049, contours = 40072, filled = 40074, surface = 40075, isosurface = 40076,
};
}

struct plot_point {
  float x, y;
};

class PlotWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    winitialise();
    register_quelmo_rc();
    window_options_type how;
    how.options = 39;
    how.menu = 30001;
    how.toolbars = {30101, 0, 0, 0};
    how.caption = "Graphic Quelmora Program";
    windowopen2(how);
    wmenu(30001);
    wmenutoolbar(30101, 0, 1);
    windowstatusbarparts(3, {5000, 3000, -1});
    igrinit();
    ipginit();
    igrselect(igr_window, 0);
    reset_plot_state();
  }
  // A look queued after the window was left would never run.
  void TearDown() override { EXPECT_EQ(headless::events_left(), 0u) << "events the plot window never read"; }

 public:
  static void reset_plot_state() {
    qp::var_system = "UNIX";
    qp::kerror = qp::ksettings = false;
    qp::boton_tg = 1;
    qp::boton_add = qp::boton_legend = qp::boton_show = qp::boton_atom = false;
    qp::ksigma = qp::plane_def = false;
    qp::klevel = qp::klimits = 0;
    qp::nadd = qp::imap = 1;
    qp::seccion = {1, 1, 1};
    qp::jpg = {};
    qp::n_contour = 20;
    qp::sum_all = true;
    qp::sum_positive = qp::sum_negative = false;
    qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
    for (int k = 0; k < 20; ++k) qp::level_lines[static_cast<std::size_t>(k)] = {197 + k, 0, 1};
  }

  // The example map, loaded as the shell loads it.
  static void load_nacl() { load_example("nacl"); }
  static void load_example(const std::string& stem) {
    ASSERT_TRUE(open_filebin(std::string(QUELMORA_SOURCE_DIR) + "/examples/" + stem + ".bin"));
    read_filebin_head();
    memory_maps();
    read_filebin_rho();
    close_filebin();
    ASSERT_FALSE(qp::kerror);
  }

  // A whole-cell map of the given cell and grid with rho(i, j, k) = f(i, j, k).
  static void make_map(vec3f cell, vec3f angles, std::array<std::int32_t, 3> grid,
                       const std::function<float(int, int, int)>& f) {
    qp::celda = cell_metrics_type{};
    set_crystal_cell(cell, angles, qp::celda);
    qp::ngrid = grid;
    qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
    qp::xinc = 1.0f / static_cast<float>(grid[0]);
    qp::yinc = 1.0f / static_cast<float>(grid[1]);
    qp::zinc = 1.0f / static_cast<float>(grid[2]);
    qp::rho.release();
    qp::rhonew.release();
    memory_maps();
    for (int k = 1; k <= grid[2]; ++k)
      for (int j = 1; j <= grid[1]; ++j)
        for (int i = 1; i <= grid[0]; ++i) qp::rho(i, j, k) = f(i, j, k);
    proc_carga();
  }

  // The plot window serves the events queued so far, then is left.
  static void run_plot() {
    headless::queue_menu(cmd::leave);
    menu_plotting();
  }

  // A new scripted user and an empty record of the screen, the window left
  // open as it is.
  static void fresh_screen() {
    headless::install();
    attach_target(igr_window, 0, &headless::root_canvas());
  }

  // What the window showed last: the primitives of the last copy of the
  // bitmap, from the bitmap's last clear on.
  static std::vector<recorded_primitive> last_picture() {
    const auto& all = headless::root_canvas().primitives();
    std::size_t start = all.size();
    for (std::size_t i = all.size(); i-- > 0;)
      if (all[i].kind == recorded_kind::bitmap) {
        start = i + 1;
        break;
      }
    std::size_t from = start;
    for (std::size_t i = start; i < all.size(); ++i)
      if (all[i].kind == recorded_kind::clear) from = i;
    return {all.begin() + static_cast<std::ptrdiff_t>(from), all.end()};
  }

  static std::size_t pictures_shown() {
    std::size_t n = 0;
    for (const auto& p : headless::root_canvas().primitives()) n += p.kind == recorded_kind::bitmap;
    return n;
  }

  static std::vector<std::string> texts(const std::vector<recorded_primitive>& picture) {
    std::vector<std::string> out;
    for (const auto& p : picture)
      if (p.kind == recorded_kind::text) out.push_back(p.text);
    return out;
  }

  // How often the text stands in the picture.
  static long text_count(const std::vector<recorded_primitive>& picture, const std::string& text) {
    const auto t = texts(picture);
    return std::count(t.begin(), t.end(), text);
  }

  static std::size_t count(const std::vector<recorded_primitive>& picture, recorded_kind kind, int colour_low,
                           int colour_high) {
    std::size_t n = 0;
    for (const auto& p : picture)
      n += p.kind == kind && p.colour.number >= colour_low && p.colour.number <= colour_high;
    return n;
  }

  // The states (option 1 enabled, 2 checked) of the commands, in order.
  static std::vector<int> menu_states(int option, std::initializer_list<int> ids) {
    std::vector<int> out;
    for (int id : ids) out.push_back(wmenugetstate(id, option));
    return out;
  }

  // A pixel of the 800 x 600 window in the plot units of the last picture.
  static plot_point in_plot_units(const pixel_point& p) {
    plot_point out{};
    ipgunitsfromgrunits(p.x / 800.0f, 1.0f - p.y / 600.0f, out.x, out.y);
    return out;
  }
};
