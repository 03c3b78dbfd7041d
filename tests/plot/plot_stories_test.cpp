// The plot window as a user meets it: the example map opens as contours,
// sections are stepped to the top and past it, the direction goes round,
// the kind changes, the view is reset, the window is left and entered again.
#include <algorithm>
#include <cmath>

#include "plot/draw_plot_pg.h"
#include "plot/menu_plot.h"
#include "tests/plot/plot_fixture.h"
#include "toolkit/messages/child_window.h"

namespace {

using strings = std::vector<std::string>;

const std::string nacl_caption = "Graphic Quelmora Program: NaCl rock salt: Na and Cl as Gaussian densities";

bool has_text(const std::vector<recorded_primitive>& picture, const std::string& text) {
  const strings t = PlotWindow::texts(picture);
  return std::find(t.begin(), t.end(), text) != t.end();
}

// The highest level (1 to 20) whose line lies wholly within `radius` of the
// site, in fractions of the cell; 0 when none does.
int top_level_at(const std::vector<recorded_primitive>& picture, plot_point site, float radius) {
  int top = 0;
  for (const auto& p : picture) {
    if (p.kind != recorded_kind::polyline || p.colour.number < 197 || p.colour.number > 216) continue;
    const bool near = std::all_of(p.points.begin(), p.points.end(), [&](const pixel_point& px) {
      const plot_point q = PlotWindow::in_plot_units(px);
      return std::hypot(q.x - site.x, q.y - site.y) <= radius;
    });
    if (near) top = std::max(top, p.colour.number - 196);
  }
  return top;
}

TEST_F(PlotWindow, ExampleMapOpensAsContoursWithTheAtomsWhereTheyBelong) {
  load_nacl();
  headless::queue_look([] {
    EXPECT_EQ(window_caption(), nacl_caption);
    EXPECT_EQ(shown_menu(), 0);
    EXPECT_EQ(shown_toolbar(1), 30102);
    EXPECT_EQ(shown_toolbar(2), 30103);
    EXPECT_EQ(wmenugetstate(40006, 1), 0);
    EXPECT_EQ(wmenugetstate(40072, 2), 1);
    EXPECT_EQ(wmenugetstate(40074, 2), 0);
    EXPECT_EQ(palette_colour(0).value, 0);
    EXPECT_EQ(palette_colour(120).value, 0xFFFFFF);
    EXPECT_EQ(status_text(1), " Layer Z:   1/ 49           Z:  0.0000");

    const auto picture = last_picture();
    EXPECT_TRUE(has_text(picture, "x/a"));
    EXPECT_TRUE(has_text(picture, "y/b"));
    // Scales from 0 to 1 along both axes.
    EXPECT_TRUE(has_text(picture, ".5"));
    // Twenty levels strictly inside the map's range: 0 .. 15.4261 in 21 steps.
    EXPECT_NEAR(qp::ZCOL[0], 15.4261f / 21.0f, 1e-3f);
    EXPECT_NEAR(qp::ZCOL[19], 20.0f * 15.4261f / 21.0f, 1e-3f);
    for (int level = 197; level <= 216; ++level) EXPECT_GT(count(picture, recorded_kind::polyline, level, level), 0u);

    // Layer z = 0 of rock salt: Na at (0, 0) and (1/2, 1/2), Cl at (1/2, 0)
    // and (0, 1/2). A Gaussian of 10 electrons and 0.40 A peaks at
    // 10 / (2 pi 0.16)^1.5 = 9.92, between level 13 (9.55) and 14 (10.28);
    // Cl (18 electrons, 0.42 A) peaks at the map's maximum, above level 20.
    for (plot_point na : {plot_point{0.5f, 0.5f}, plot_point{0.0f, 0.0f}, plot_point{1.0f, 1.0f}})
      EXPECT_EQ(top_level_at(picture, na, 0.1f), 13) << na.x << " " << na.y;
    for (plot_point cl : {plot_point{0.5f, 0.0f}, plot_point{0.0f, 0.5f}, plot_point{1.0f, 0.5f}})
      EXPECT_EQ(top_level_at(picture, cl, 0.1f), 20) << cl.x << " " << cl.y;
  });
  menu_plotting();
  EXPECT_EQ(pictures_shown(), 1u);
}

TEST_F(PlotWindow, SectionsStepToTheTopAndStayThere) {
  load_nacl();
  for (int i = 0; i < 48; ++i) headless::queue_menu(40036);
  headless::queue_look([] {
    EXPECT_EQ(qp::seccion[2], 49);
    EXPECT_EQ(status_text(1), " Layer Z:  49/ 49           Z:  1.0000");
  });
  headless::queue_menu(40036);
  headless::queue_menu(40036);
  headless::queue_look([] { EXPECT_EQ(qp::seccion[2], 49); });
  headless::queue_menu(40037);
  headless::queue_look([] {
    EXPECT_EQ(status_text(1), " Layer Z:  48/ 49           Z:  0.9792");
  });
  for (int i = 0; i < 60; ++i) headless::queue_menu(40037);
  headless::queue_look([] {
    EXPECT_EQ(qp::seccion[2], 1);
    EXPECT_EQ(qp::seccion[0], 1);
    EXPECT_EQ(qp::seccion[1], 1);
  });
  headless::queue_menu(40033);
  menu_plotting();
  // The first picture, 50 steps up and 61 down: every command redraws.
  EXPECT_EQ(pictures_shown(), 1u + 50u + 61u);
}

// With an oriented plane the steps move its height by 0.1 and leave the
// sections alone; the next direction ends the plane.
TEST_F(PlotWindow, StepsOfAnOrientedPlane) {
  load_nacl();
  qp::plane_def = true;
  qp::zt = 1.0f;
  qp::xl1 = qp::yl1 = -2.0f;
  qp::xl2 = qp::yl2 = 2.0f;
  headless::queue_menu(40036);
  headless::queue_menu(40036);
  headless::queue_menu(40037);
  headless::queue_look([] {
    EXPECT_NEAR(qp::zt, 1.1f, 1e-6f);
    EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{1, 1, 1}));
    EXPECT_EQ(qp::NVALUE, (std::array<std::int32_t, 2>{50, 50}));
    EXPECT_EQ(qp::EDGE, (std::array<float, 8>{-2.0f, -2.0f, -2.0f, 2.0f, 2.0f, 2.0f, 2.0f, -2.0f}));
    EXPECT_TRUE(status_text(1).starts_with("Plane "));
  });
  headless::queue_menu(40034);
  headless::queue_look([] {
    EXPECT_FALSE(qp::plane_def);
    EXPECT_EQ(qp::imap, 2);
  });
  headless::queue_menu(40033);
  menu_plotting();
}

// Three turns of the direction bring back the first; each shows its axes and
// steps its own section index.
TEST_F(PlotWindow, DirectionGoesRoundWithItsLabelsAndSection) {
  load_nacl();
  struct row {
    int imap;
    std::string x_label, y_label, status;
  };
  const row rows[] = {
      {2, "y/b", "z/c", " Layer X:   3/ 49           X:  0.0417"},
      {3, "z/c", "x/a", " Layer Y:   3/ 49           Y:  0.0417"},
      {1, "x/a", "y/b", " Layer Z:   3/ 49           Z:  0.0417"},
  };
  // A running sum ends with the turn.
  qp::boton_add = true;
  qp::nadd = 2;
  for (const row& r : rows) {
    headless::queue_menu(40034);
    headless::queue_menu(40036);
    headless::queue_menu(40036);
    headless::queue_look([r] {
      EXPECT_EQ(qp::imap, r.imap);
      EXPECT_FALSE(qp::boton_add);
      EXPECT_EQ(qp::nadd, 1);
      EXPECT_TRUE(qp::sum_all);
      const auto picture = last_picture();
      EXPECT_TRUE(has_text(picture, r.x_label)) << r.imap;
      EXPECT_TRUE(has_text(picture, r.y_label)) << r.imap;
      EXPECT_EQ(status_text(1), r.status);
    });
  }
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{3, 3, 3}));
}

TEST_F(PlotWindow, KindsSwitchAndASecondChoiceDrawsNothing) {
  load_nacl();
  std::size_t before = 0;
  headless::queue_look([&] { before = pictures_shown(); });
  headless::queue_menu(40072);  // contours already on
  headless::queue_look([&] { EXPECT_EQ(pictures_shown(), before); });
  headless::queue_menu(40074);
  headless::queue_look([&] {
    EXPECT_EQ(pictures_shown(), before + 1);
    EXPECT_EQ(qp::boton_tg, 2);
    EXPECT_EQ(wmenugetstate(40072, 2), 0);
    EXPECT_EQ(wmenugetstate(40074, 2), 1);
    EXPECT_EQ(wmenugetstate(40030, 1), 1);
    const auto picture = last_picture();
    // Filled bands in the level colours, solid; no level lines.
    EXPECT_GT(count(picture, recorded_kind::polygon, 197, 216), 100u);
    EXPECT_EQ(count(picture, recorded_kind::polyline, 197, 216), 0u);
    EXPECT_TRUE(has_text(picture, "x/a"));
  });
  headless::queue_menu(40074);
  headless::queue_look([&] { EXPECT_EQ(pictures_shown(), before + 1); });
  headless::queue_menu(40075);  // surface: the mouse turns it
  headless::queue_look([&] {
    EXPECT_EQ(qp::boton_tg, 3);
    const auto picture = last_picture();
    // One tile a grid cell in the level colours, each outlined; the box; the
    // scales with the density numbers in their own colour; the axis names
    // swapped, as the surface runs v across and u in depth.
    EXPECT_EQ(count(picture, recorded_kind::polygon, 197, 216), 48u * 48u);
    EXPECT_EQ(count(picture, recorded_kind::polyline, -1, -1), 48u * 48u);  // black by value
    EXPECT_GE(count(picture, recorded_kind::polyline, 0, 255), 4u);
    EXPECT_GT(count(picture, recorded_kind::text, 60, 60), 3u);
    EXPECT_TRUE(has_text(picture, "Density"));
    EXPECT_TRUE(has_text(picture, "y/b"));
    EXPECT_TRUE(has_text(picture, "x/a"));
    EXPECT_EQ(wmenugetstate(40030, 1), 0);
    EXPECT_TRUE(message_enabled(msg_mouse_move));
    EXPECT_TRUE(message_enabled(msg_mouse_up));
  });
  headless::queue_menu(40072);  // back from the surface: no dragging any more
  headless::queue_look([] {
    EXPECT_EQ(qp::boton_tg, 1);
    EXPECT_FALSE(message_enabled(msg_mouse_move));
    EXPECT_EQ(wmenugetstate(40075, 2), 0);
    EXPECT_EQ(wmenugetstate(40072, 2), 1);
  });
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_EQ(plot_stand_in_calls(), strings{});
}

TEST_F(PlotWindow, ClearGoesBackToTheFirstZSectionAndTheWholeCell) {
  load_nacl();
  qp::seccion = {7, 8, 9};
  qp::zlim = {0.25f, 0.75f};
  qp::zinc = 0.5f / 48.0f;
  proc_carga();
  headless::queue_menu(40030);  // probing on
  headless::queue_look([] {
    EXPECT_TRUE(qp::boton_show);
    EXPECT_EQ(wmenugetstate(40030, 2), 1);
    EXPECT_EQ(wmenugetstate(40032, 1), 0);
    EXPECT_TRUE(message_enabled(msg_mouse_move));
    EXPECT_EQ(cursor_shape(), 3);
  });
  headless::queue_menu(40049);  // legend on
  headless::queue_look([] { EXPECT_EQ(wmenugetstate(40049, 2), 1); });
  headless::queue_menu(40044);
  headless::queue_look([] {
    EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{7, 8, 1}));
    EXPECT_EQ(qp::zlim, (std::array<float, 2>{0.0f, 1.0f}));
    EXPECT_FLOAT_EQ(qp::zinc, 1.0f / 48.0f);
    EXPECT_EQ(wmenugetstate(40032, 1), 1);
    EXPECT_EQ(wmenugetstate(40049, 2), 0);
    // The mouse messages go off, while the probing flag and its check stay.
    EXPECT_FALSE(message_enabled(msg_mouse_move));
    EXPECT_TRUE(qp::boton_show);
    EXPECT_EQ(status_text(1), " Layer Z:   1/ 49           Z:  0.0000");
  });
  headless::queue_menu(40033);
  menu_plotting();
}

TEST_F(PlotWindow, LeavingGivesTheWindowBackAndEnteringAgainKeepsTheView) {
  load_nacl();
  wmenusetstate(40027, 1, 0);
  wmenusetstate(40005, 1, 0);
  qp::atmcell.natoms = 3;
  qp::atmcell.atom.resize(3);
  qp::katom = true;
  headless::queue_menu(40074);
  headless::queue_menu(40036);
  headless::queue_menu(40033);
  headless::queue_menu(40036);  // read by nobody: the plot is left
  menu_plotting();
  EXPECT_EQ(headless::events_left(), 1u);
  EXPECT_EQ(window_caption(), "Graphic Quelmora Program");
  EXPECT_EQ(shown_menu(), 30001);
  EXPECT_EQ(shown_toolbar(1), 30101);
  EXPECT_EQ(shown_toolbar(2), 0);
  EXPECT_EQ(status_text(1), "");
  EXPECT_EQ(wmenugetstate(40027, 1), 0);
  EXPECT_EQ(wmenugetstate(40005, 1), 0);
  EXPECT_EQ(wmenugetstate(40022, 1), 1);
  EXPECT_FALSE(qp::katom);
  EXPECT_TRUE(qp::atmcell.atom.empty());
  EXPECT_EQ(qp::atmcell.natoms, 3);
  EXPECT_EQ(target_canvas(igr_bitmap, qp::ibmp1), nullptr);
  EXPECT_EQ(cursor_shape(), 0);

  fresh_screen();
  headless::queue_look([] {
    EXPECT_EQ(qp::boton_tg, 2);
    EXPECT_EQ(wmenugetstate(40074, 2), 1);
    EXPECT_EQ(status_text(1), " Layer Z:   2/ 49           Z:  0.0208");
    EXPECT_GT(count(last_picture(), recorded_kind::polygon, 197, 216), 0u);
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
    EXPECT_NE(qp::ibmp1, first_bitmap);
    EXPECT_EQ(target_canvas(igr_bitmap, first_bitmap), nullptr);
    EXPECT_EQ(pictures_shown(), 2u);
  });
  headless::queue_look([] {
    headless::root_canvas().resize(400, 300);
    windowopenchild2(qp::ichild, "Listing");
  });
  headless::queue_resize();
  headless::queue_look([] {
    EXPECT_EQ(target_canvas(igr_bitmap, qp::ibmp1)->width(), 400);
    EXPECT_EQ(pictures_shown(), 3u);
  });
  headless::queue_close(1);
  headless::queue_look([] {
    EXPECT_EQ(qp::ichild, -1);
    EXPECT_FALSE(child_is_open(1));
    EXPECT_EQ(shown_toolbar(1), 30102);
  });
  headless::queue_menu(40033);
  menu_plotting();
}

// Every command of the plot loop reaches its handler; commands of the main
// menu and unknown numbers do nothing.
TEST_F(PlotWindow, CommandTable) {
  load_nacl();
  struct row {
    int id;
    strings reached;
  };
  const row rows[] = {
      {40002, {}},              {40003, {}},
      {40043, {"proc_ascii"}},
      {40076, {"proc_iso"}},    {40026, {}},             {40007, {}},              {40001, {}},
      {40077, {}},
  };
  for (const row& r : rows) {
    fresh_screen();
    clear_plot_stand_in_calls();
    headless::queue_menu(r.id);
    headless::queue_menu(40033);
    menu_plotting();
    EXPECT_EQ(plot_stand_in_calls(), r.reached) << r.id;
    // Only the first picture: a cancelled colour selector changes nothing.
    EXPECT_EQ(pictures_shown(), 1u) << r.id;
    EXPECT_FALSE(qp::ksettings) << r.id;
  }
}

// With the isosurface on, its own drawing serves entry, resize and reset;
// contours taken up again re-enable the commands and forget the box.
TEST_F(PlotWindow, IsosurfaceKindKeepsItsOwnDrawing) {
  load_nacl();
  qp::boton_tg = 4;
  qp::klimits = 1;
  headless::queue_look([] {
    EXPECT_EQ(wmenugetstate(40076, 2), 1);
    for (int id : {40034, 40036, 40003}) wmenusetstate(id, 1, 0);  // as the isosurface view leaves them
  });
  headless::queue_resize();
  headless::queue_menu(40044);
  headless::queue_menu(40072);
  headless::queue_look([] {
    EXPECT_EQ(qp::boton_tg, 1);
    EXPECT_EQ(qp::klimits, 0);
    for (int id : {40034, 40036, 40003}) EXPECT_EQ(wmenugetstate(id, 1), 1) << id;
    EXPECT_EQ(wmenugetstate(40076, 2), 0);
    EXPECT_EQ(wmenugetstate(40072, 2), 1);
    EXPECT_GT(count(last_picture(), recorded_kind::polyline, 197, 216), 0u);
  });
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_EQ(plot_stand_in_calls(),
            (strings{"draw_isosurface", "draw_isosurface", "build_isosurface_mesh", "draw_isosurface"}));
}

// Background and foreground colours: OK gives the colour to the palette,
// marks the settings changed and redraws; a later Cancel still redraws,
// since a setting has changed.
TEST_F(PlotWindow, WindowColours) {
  load_nacl();
  headless::answer_colour(wrgb(0, 0, 96));
  headless::queue_menu(40002);
  headless::queue_look([] {
    EXPECT_EQ(qp::bg_col, wrgb(0, 0, 96));
    EXPECT_EQ(palette_colour(0).value, wrgb(0, 0, 96));
    EXPECT_TRUE(qp::ksettings);
    EXPECT_EQ(pictures_shown(), 2u);
    // The picture is cleared in the new background.
    EXPECT_EQ(last_picture().front().colour.value, wrgb(0, 0, 96));
  });
  headless::answer_colour(wrgb(255, 255, 0));
  headless::queue_menu(40003);
  headless::queue_look([] {
    EXPECT_EQ(palette_colour(120).value, wrgb(255, 255, 0));
    const auto picture = last_picture();
    const bool label_in_yellow = std::any_of(picture.begin(), picture.end(), [](const recorded_primitive& p) {
      return p.kind == recorded_kind::text && p.text == "x/a" && p.colour.value == wrgb(255, 255, 0);
    });
    EXPECT_TRUE(label_in_yellow);
  });
  headless::queue_menu(40003);  // cancelled
  headless::queue_look([] {
    EXPECT_EQ(qp::fg_col, wrgb(255, 255, 0));
    EXPECT_EQ(pictures_shown(), 4u);
  });
  headless::queue_menu(40033);
  menu_plotting();
}

// Probing on and off: the atoms command gives way to it only while no atoms
// are shown.
TEST_F(PlotWindow, ProbingOnAndOff) {
  load_nacl();
  struct row {
    bool atoms;
    int atoms_enabled_on, atoms_enabled_off;
  };
  const row rows[] = {{false, 0, 1}, {true, 1, 1}};
  for (const row& r : rows) {
    fresh_screen();
    qp::boton_atom = r.atoms;
    qp::boton_show = false;
    headless::queue_menu(40030);
    headless::queue_look([r] {
      EXPECT_TRUE(qp::boton_show);
      EXPECT_EQ(wmenugetstate(40030, 2), 1);
      EXPECT_EQ(wmenugetstate(40032, 1), r.atoms_enabled_on) << r.atoms;
      EXPECT_TRUE(message_enabled(msg_mouse_up));
      EXPECT_EQ(cursor_shape(), 3);
    });
    headless::queue_menu(40030);
    headless::queue_look([r] {
      EXPECT_FALSE(qp::boton_show);
      EXPECT_EQ(wmenugetstate(40030, 2), 0);
      EXPECT_EQ(wmenugetstate(40032, 1), r.atoms_enabled_off) << r.atoms;
      EXPECT_FALSE(message_enabled(msg_mouse_up));
      EXPECT_FALSE(message_enabled(msg_mouse_move));
      EXPECT_EQ(cursor_shape(), 0);
      // Nothing is redrawn by the probe switch.
      EXPECT_EQ(pictures_shown(), 1u);
    });
    headless::queue_menu(40033);
    menu_plotting();
  }
}

TEST_F(PlotWindow, MousePressesAndMoves) {
  load_nacl();
  headless::queue_mouse(msg_mouse_down, 3, 0.25f, 0.75f);
  headless::queue_look([] {
    EXPECT_FLOAT_EQ(qp::xm_mo, 0.25f);
    EXPECT_FLOAT_EQ(qp::ym_mo, 0.75f);
    EXPECT_EQ(qp::boton_mouse, 3);
  });
  headless::queue_menu(40030);
  headless::queue_mouse(msg_mouse_up, 3, 0.25f, 0.75f);
  headless::queue_mouse(msg_mouse_move, 0, 0.3f, 0.7f);
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_EQ(qp::boton_mouse, 0);
}

}  // namespace
