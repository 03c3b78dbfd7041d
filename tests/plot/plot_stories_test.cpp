// The plot window as a user meets it: the example map opens as contours,
// sections are stepped to the top and past it, the direction goes round,
// the kind changes, the view is reset, the window is left and entered again.
#include <cmath>

#include "tests/plot/plot_fixture.h"
#include "toolkit/messages/child_window.h"

namespace {

using strings = std::vector<std::string>;
using ints = std::vector<int>;

// The highest level (1 to 20) whose line lies wholly within 0.1 of the site,
// in fractions of the cell; 0 when none does.
int top_level_at(const std::vector<recorded_primitive>& picture, plot_point site) {
  int top = 0;
  for (const auto& p : picture) {
    if (p.kind != recorded_kind::polyline || p.colour.number < 197 || p.colour.number > 216) continue;
    const bool near = std::all_of(p.points.begin(), p.points.end(), [&](const pixel_point& px) {
      const plot_point q = PlotWindow::in_plot_units(px);
      return std::hypot(q.x - site.x, q.y - site.y) <= 0.1f;
    });
    if (near) top = std::max(top, p.colour.number - 196);
  }
  return top;
}

TEST_F(PlotWindow, ExampleMapOpensAsContoursWithTheAtomsWhereTheyBelong) {
  load_nacl();
  headless::queue_look([] {
    EXPECT_EQ(window_caption(), "Graphic Quelmora Program: NaCl rock salt: Na and Cl as Gaussian densities");
    EXPECT_EQ((ints{shown_menu(), shown_toolbar(1), shown_toolbar(2)}), (ints{0, 30102, 30103}));
    EXPECT_EQ(menu_states(1, {cmd::perspective, cmd::probe}), (ints{0, 1}));
    EXPECT_EQ(menu_states(2, {cmd::contours, cmd::filled}), (ints{1, 0}));
    EXPECT_EQ((ints{palette_colour(0).value, palette_colour(120).value}), (ints{0, 0xFFFFFF}));
    EXPECT_EQ(status_text(1), " Layer Z:   1/ 49           Z:  0.0000");
    const auto picture = last_picture();
    EXPECT_EQ(text_count(picture, "x/a") + text_count(picture, "y/b"), 2);
    // Layer z = 0 of rock salt: Na at (0, 0) and (1/2, 1/2), Cl at (1/2, 0)
    // and (0, 1/2). A Gaussian of 10 electrons and 0.40 A peaks at
    // 10 / (2 pi 0.16)^1.5 = 9.92, between level 13 (9.55) and 14 (10.28);
    // Cl (18 electrons, 0.42 A) peaks at the map's maximum, above level 20.
    for (plot_point na : {plot_point{0.5f, 0.5f}, plot_point{0.0f, 0.0f}, plot_point{1.0f, 1.0f}})
      EXPECT_EQ(top_level_at(picture, na), 13) << na.x << " " << na.y;
    for (plot_point cl : {plot_point{0.5f, 0.0f}, plot_point{0.0f, 0.5f}, plot_point{1.0f, 0.5f}})
      EXPECT_EQ(top_level_at(picture, cl), 20) << cl.x << " " << cl.y;
  });
  run_plot();
  EXPECT_EQ(pictures_shown(), 1u);
}

// Each turn of the direction ends a running sum, shows the new axes and
// steps its own section index; three turns bring back the first, whose
// sections stop at the top and at the bottom of the axis.
TEST_F(PlotWindow, SectionsStepInTheirDirectionAndStayWithinTheAxis) {
  load_nacl();
  for (const auto& row : data_table("plot/directions.txt", 4)) {
    headless::queue_look([] {
      qp::boton_add = true;
      qp::nadd = 2;
      qp::sum_all = false;
    });
    headless::queue_menu(cmd::direction);
    headless::queue_look([] { EXPECT_TRUE(!qp::boton_add && qp::nadd == 1 && qp::sum_all); });
    headless::queue_menu(cmd::section_up);
    headless::queue_menu(cmd::section_up);
    headless::queue_look([row] {
      EXPECT_EQ(qp::imap, std::stoi(row[0]));
      EXPECT_EQ(text_count(last_picture(), row[1]) + text_count(last_picture(), row[2]), 2) << row[0];
      EXPECT_EQ(status_text(1), row[3]);
    });
  }
  for (int i = 0; i < 50; ++i) headless::queue_menu(cmd::section_up);
  headless::queue_look([] { EXPECT_EQ(status_text(1), " Layer Z:  49/ 49           Z:  1.0000"); });
  headless::queue_menu(cmd::section_down);
  headless::queue_look([] { EXPECT_EQ(status_text(1), " Layer Z:  48/ 49           Z:  0.9792"); });
  for (int i = 0; i < 60; ++i) headless::queue_menu(cmd::section_down);
  run_plot();
  EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{3, 3, 1}));
  // The first picture, and one for every command: 9, 50 up and 61 down.
  EXPECT_EQ(pictures_shown(), 1u + 9u + 50u + 61u);
}

TEST_F(PlotWindow, KindsSwitchAndASecondChoiceDrawsNothing) {
  load_nacl();
  headless::queue_menu(cmd::contours);  // already on
  headless::queue_menu(cmd::filled);
  headless::queue_menu(cmd::filled);
  headless::queue_look([] {
    EXPECT_EQ(pictures_shown(), 2u);
    EXPECT_EQ(menu_states(2, {cmd::contours, cmd::filled}), (ints{0, 1}));
    // Filled bands in the level colours; no level lines.
    EXPECT_GT(count(last_picture(), recorded_kind::polygon, 197, 216), 100u);
    EXPECT_EQ(count(last_picture(), recorded_kind::polyline, 197, 216), 0u);
  });
  headless::queue_menu(cmd::surface);
  headless::queue_look([] {
    const auto picture = last_picture();
    // One tile a grid cell in the level colours, each outlined in black; the
    // axis names swapped, as the surface runs v across and u in depth.
    EXPECT_EQ(count(picture, recorded_kind::polygon, 197, 216), 48u * 48u);
    EXPECT_EQ(count(picture, recorded_kind::polyline, -1, -1), 48u * 48u);
    EXPECT_GT(count(picture, recorded_kind::text, 60, 60), 3u);
    EXPECT_EQ(text_count(picture, "Density") + text_count(picture, "y/b") + text_count(picture, "x/a"), 3);
    EXPECT_EQ(wmenugetstate(cmd::probe, 1), 0);
    EXPECT_TRUE(message_enabled(msg_mouse_move));  // the mouse turns it
  });
  headless::queue_menu(cmd::contours);
  headless::queue_look([] {
    EXPECT_FALSE(message_enabled(msg_mouse_move));
    EXPECT_EQ(menu_states(2, {cmd::contours, cmd::filled, cmd::surface}), (ints{1, 0, 0}));
    EXPECT_EQ(wmenugetstate(cmd::probe, 1), 1);
  });
  run_plot();
}

// Probing takes the atoms command and the mouse, redrawing nothing. Reset
// brings back the z section, the whole cell and the commands, and takes the
// legend and the mouse away, though probing stays checked until it is
// pressed again.
TEST_F(PlotWindow, ProbingAndResetAfterIt) {
  load_nacl();
  qp::seccion = {7, 8, 9};
  qp::zlim = {0.25f, 0.75f};
  qp::zinc = 0.5f / 48.0f;
  proc_carga();
  headless::queue_menu(cmd::probe);
  headless::queue_look([] {
    EXPECT_EQ((ints{wmenugetstate(cmd::probe, 2), wmenugetstate(cmd::atoms, 1), cursor_shape()}), (ints{1, 0, 3}));
    EXPECT_TRUE(message_enabled(msg_mouse_move) && message_enabled(msg_mouse_up));
    EXPECT_EQ(pictures_shown(), 1u);
  });
  headless::queue_menu(cmd::legend);
  headless::queue_look([] { EXPECT_EQ(wmenugetstate(cmd::legend, 2), 1); });
  headless::queue_menu(cmd::reset);
  headless::queue_look([] {
    EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{7, 8, 1}));
    EXPECT_EQ(qp::zlim, (std::array<float, 2>{0.0f, 1.0f}));
    EXPECT_FLOAT_EQ(qp::zinc, 1.0f / 48.0f);
    EXPECT_EQ((ints{wmenugetstate(cmd::atoms, 1), wmenugetstate(cmd::legend, 2), wmenugetstate(cmd::probe, 2)}),
              (ints{1, 0, 1}));
    EXPECT_FALSE(message_enabled(msg_mouse_move));
    EXPECT_EQ(status_text(1), " Layer Z:   1/ 49           Z:  0.0000");
  });
  headless::queue_menu(cmd::probe);
  headless::queue_look([] {
    EXPECT_EQ((ints{wmenugetstate(cmd::probe, 2), wmenugetstate(cmd::atoms, 1), cursor_shape()}), (ints{0, 1, 0}));
    EXPECT_FALSE(message_enabled(msg_mouse_up));
  });
  run_plot();
}

TEST_F(PlotWindow, LeavingGivesTheWindowBackAndEnteringAgainKeepsTheView) {
  load_nacl();
  wmenusetstate(cmd::save, 1, 0);
  wmenusetstate(cmd::sintrel, 1, 0);
  qp::atmcell.atom.resize(3);
  qp::katom = true;
  headless::queue_menu(cmd::filled);
  headless::queue_menu(cmd::section_up);
  headless::queue_menu(cmd::leave);
  headless::queue_menu(cmd::section_up);  // read by nobody: the plot is left
  menu_plotting();
  EXPECT_EQ(headless::events_left(), 1u);
  EXPECT_EQ(window_caption(), "Graphic Quelmora Program");
  EXPECT_EQ((ints{shown_menu(), shown_toolbar(1), shown_toolbar(2)}), (ints{30001, 30101, 0}));
  EXPECT_EQ(status_text(1), "");
  EXPECT_EQ(menu_states(1, {cmd::save, cmd::sintrel, cmd::plot}), (ints{0, 0, 1}));
  EXPECT_TRUE(!qp::katom && qp::atmcell.atom.empty());
  EXPECT_EQ(target_canvas(igr_bitmap, qp::ibmp1), nullptr);

  fresh_screen();
  headless::queue_look([] {
    EXPECT_EQ(wmenugetstate(cmd::filled, 2), 1);
    EXPECT_EQ(status_text(1), " Layer Z:   2/ 49           Z:  0.0208");
  });
  menu_plotting();  // the script runs out: the user closes the window
  EXPECT_EQ(shown_menu(), 30001);
}

// Expose and resize draw afresh into a new bitmap; a child's close box
// closes the child only.
TEST_F(PlotWindow, ExposeResizeAndAChildClose) {
  load_nacl();
  int first_bitmap = 0;
  headless::queue_look([&] { first_bitmap = qp::ibmp1; });
  headless::queue_expose();
  headless::queue_look([&] {
    EXPECT_EQ(target_canvas(igr_bitmap, first_bitmap), nullptr);
    headless::root_canvas().resize(400, 300);
    windowopenchild2(qp::ichild, "Listing");
  });
  headless::queue_resize();
  headless::queue_look([] { EXPECT_EQ(target_canvas(igr_bitmap, qp::ibmp1)->width(), 400); });
  headless::queue_close(1);
  headless::queue_look([] { EXPECT_TRUE(qp::ichild == -1 && !child_is_open(1)); });
  run_plot();
  EXPECT_EQ(pictures_shown(), 3u);
}

// A command of the main menu changes nothing and draws nothing.
TEST_F(PlotWindow, MainMenuCommandDrawsNothing) {
  load_nacl();
  fresh_screen();
  headless::queue_menu(40001);
  run_plot();
  EXPECT_EQ(pictures_shown(), 1u);
}

// With the isosurface on, its own drawing serves entry, resize and reset;
// contours taken up again re-enable the commands and forget the box. The
// reset builds the mesh anew.
TEST_F(PlotWindow, IsosurfaceKindKeepsItsOwnDrawing) {
  load_nacl();
  qp::boton_tg = 4;
  qp::klimits = 1;
  headless::queue_look([] {
    for (int id : {cmd::direction, cmd::section_up, cmd::foreground}) wmenusetstate(id, 1, 0);
  });
  headless::queue_resize();
  headless::queue_menu(cmd::reset);
  headless::queue_look([] { EXPECT_GT(count(last_picture(), recorded_kind::polyline, 83, 95), 0u); });
  headless::queue_menu(cmd::contours);
  headless::queue_look([] {
    EXPECT_EQ(menu_states(1, {cmd::direction, cmd::section_up, cmd::foreground}), (ints{1, 1, 1}));
    EXPECT_EQ(wmenugetstate(cmd::isosurface, 2), 0);
  });
  qp::npoints = -1;
  run_plot();
  EXPECT_EQ(qp::klimits, 0);
  EXPECT_EQ(pictures_shown(), 4u);
  EXPECT_GT(qp::npoints, 0);
}

// A cancelled colour selector changes and draws nothing. OK gives the colour
// to the palette, marks the settings changed and redraws; a later Cancel
// still redraws, since a setting has changed.
TEST_F(PlotWindow, WindowColours) {
  load_nacl();
  headless::queue_menu(cmd::background);
  headless::queue_look([] {
    EXPECT_TRUE(pictures_shown() == 1u && !qp::ksettings);
    headless::answer_colour(wrgb(0, 0, 96));
    headless::answer_colour(wrgb(255, 255, 0));
  });
  headless::queue_menu(cmd::background);
  headless::queue_menu(cmd::foreground);
  headless::queue_look([] {
    EXPECT_TRUE(qp::ksettings);
    const auto picture = last_picture();
    EXPECT_EQ(picture.front().colour.value, wrgb(0, 0, 96));  // cleared in the new background
    EXPECT_TRUE(std::any_of(picture.begin(), picture.end(), [](const recorded_primitive& p) {
      return p.kind == recorded_kind::text && p.text == "x/a" && p.colour.value == wrgb(255, 255, 0);
    }));
  });
  headless::queue_menu(cmd::foreground);  // cancelled
  run_plot();
  EXPECT_EQ(qp::fg_col, wrgb(255, 255, 0));
  EXPECT_EQ(pictures_shown(), 4u);
}

}  // namespace
