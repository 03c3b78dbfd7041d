// The levels dialog and its two sub-dialogs, driven as a user drives them
// from the plot window's Levels command.
#include <algorithm>

#include "plot/menu_plot.h"
#include "plot_fixture.h"
#include "toolkit/dialogs/wdialog.h"

namespace {

using strings = std::vector<std::string>;

float shown_real(int dialog, int field) {
  float v = 0.0f;
  wdialogselect(dialog);
  wdialoggetreal(field, v);
  return v;
}

void run_levels(const std::function<void()>& answers) {
  headless::queue_menu(40047);
  answers();
  headless::queue_menu(40033);
  menu_plotting();
}

}  // namespace

// The range shows in density or sigma units; OK keeps sigma values in
// density units, and the picture uses the first rows of the colour table.
TEST_F(PlotWindow, LevelsInSigmaUnits) {
  load_nacl();
  const auto [lo, hi] = std::minmax_element(qp::rhonew.data(), qp::rhonew.data() + qp::rhonew.size());
  const float sigma = qp::densigma;
  run_levels([&] {
    headless::queue_look([&] {
      EXPECT_NEAR(shown_real(114, 1089), *lo, 1e-5f);
      EXPECT_NEAR(shown_real(114, 1183), (*hi - *lo) / 20.0f, 1e-5f);
    });
    headless::choose_radio(114, 1180);
    headless::queue_look([&] { EXPECT_NEAR(shown_real(114, 1090), *hi / sigma, 1e-4f); });
    headless::type_text(114, 1088, "5");
    headless::type_text(114, 1089, "0.5");
    headless::type_text(114, 1090, "2.0");
    headless::press(114, 1);
    headless::queue_look([] {
      const auto picture = last_picture();
      EXPECT_GT(count(picture, recorded_kind::polyline, 197, 201), 0u);
      EXPECT_EQ(count(picture, recorded_kind::polyline, 202, 216), 0u);
    });
  });
  EXPECT_EQ(qp::n_contour, 5);
  EXPECT_TRUE(qp::ksigma);
  EXPECT_EQ(qp::klevel, 1);
  EXPECT_FLOAT_EQ(qp::dens_min_show, 0.5f * sigma);
  EXPECT_FLOAT_EQ(qp::dens_max_show, 2.0f * sigma);
}

// The dialog shows a fixed range, else the map's; Cancel after a change of
// unit gives back the unit, the count and the range.
TEST_F(PlotWindow, LevelsCancelRestores) {
  load_nacl();
  const float map_min = *std::min_element(qp::rhonew.data(), qp::rhonew.data() + qp::rhonew.size());
  for (int fixed : {1, 0}) {
    qp::klevel = fixed;
    qp::den_min_show = -1.0f;
    qp::den_max_show = 3.0f;
    run_levels([&] {
      headless::queue_look([&] { EXPECT_NEAR(shown_real(114, 1089), fixed ? -1.0f : map_min, 1e-6f); });
      headless::choose_radio(114, 1180);
      headless::type_text(114, 1088, "7");
      headless::press(114, 2);
    });
    EXPECT_FALSE(qp::ksigma);
    EXPECT_EQ(qp::klevel, fixed);
    EXPECT_EQ(qp::n_contour, 20);
    EXPECT_FLOAT_EQ(qp::den_min_show, -1.0f);
    EXPECT_FLOAT_EQ(qp::den_max_show, 3.0f);
  }
}

// With the isosurface view the level is asked for alone; only a new value
// rebuilds the mesh.
TEST_F(PlotWindow, IsosurfaceLevel) {
  load_nacl();
  qp::boton_tg = 4;
  qp::isolev = 1.5f;
  const struct {
    const char* typed;
    float isolev;
    strings calls;
  } rows[] = {{"1.5", 1.5f, {}}, {"2.0", 2.0f, {"build_isosurface_mesh", "draw_isosurface"}}};
  for (const auto& r : rows) {
    run_levels([&] {
      headless::queue_look([] { clear_plot_stand_in_calls(); });
      headless::type_text(120, 1256, r.typed);
      headless::press(120, 1);
      headless::queue_look([&] { EXPECT_EQ(plot_stand_in_calls(), r.calls) << r.typed; });
    });
    EXPECT_FLOAT_EQ(qp::isolev, r.isolev);
  }
}

// A colour set refills palette slots 197 to 216 and leaves level_lines.
TEST_F(PlotWindow, ColourSetsFillTheLevelSlots) {
  struct row {
    int radio;
    int set;
    int picked;  // a colour picked for level 3 of the user's set, or -1
  };
  const row rows[] = {{1221, 2, -1}, {1198, 1, -1}, {1242, 3, -1}, {1242, 3, wrgb(10, 20, 30)}};
  load_nacl();
  for (const row& r : rows) {
    qp::kset3 = false;
    qp::set3_rojo = qp::set3_verde = qp::set3_azul = {};
    run_levels([&] {
      headless::press(114, 1243);
      headless::choose_radio(112, r.radio);
      if (r.picked >= 0) {
        headless::answer_colour(r.picked);
        headless::click_field(112, 1224);
      }
      headless::press(112, 1);
      headless::press(114, 2);
    });
    EXPECT_EQ(qp::set_color, r.set);
    const std::array<std::int32_t, 20>* sets[3][3] = {{&qp::set1_rojo, &qp::set1_verde, &qp::set1_azul},
                                                      {&qp::set2_rojo, &qp::set2_verde, &qp::set2_azul},
                                                      {&qp::set3_rojo, &qp::set3_verde, &qp::set3_azul}};
    const auto& set = sets[r.set - 1];
    for (std::size_t k = 0; k < 20; ++k) {
      const int expected = r.picked >= 0 && k == 2 ? r.picked : wrgb((*set[0])[k], (*set[1])[k], (*set[2])[k]);
      EXPECT_EQ(palette_colour(197 + static_cast<int>(k)).value, expected) << r.set << " level " << k + 1;
      EXPECT_EQ(qp::level_lines[k].colour, 197 + static_cast<int>(k));
    }
    EXPECT_EQ(qp::kset3, r.set == 3);
  }
  EXPECT_EQ(qp::set3_verde[2], 20);
}

// Widths and types stored with OK apply even when Cancel closes; Finish
// stores its own; a level left alone keeps its line.
TEST_F(PlotWindow, LineTypesPerLevel) {
  load_nacl();
  run_levels([] {
    headless::press(114, 1244);
    headless::type_text(117, 1246, "3");
    headless::type_text(117, 1245, "4");
    headless::choose_radio(117, 1249);
    headless::press(117, 1);
    headless::type_text(117, 1246, "5");
    headless::type_text(117, 1245, "9");  // out of range: refused, width stays 4
    headless::choose_radio(117, 1250);
    headless::press(117, 1254);
    headless::press(114, 1);
  });
  EXPECT_EQ(headless::refused(), std::vector<std::string>{"117 1245"});
  const struct { int level, style, width; } rows[] = {{3, 2, 4}, {5, 3, 4}, {4, 0, 1}};
  for (const auto& r : rows) {
    EXPECT_EQ(qp::level_lines[static_cast<std::size_t>(r.level - 1)].style, r.style) << r.level;
    EXPECT_EQ(qp::level_lines[static_cast<std::size_t>(r.level - 1)].width, r.width) << r.level;
  }
  EXPECT_TRUE(qp::ksettings);

  // Styles belong to the contour lines only.
  qp::boton_tg = 2;
  run_levels([] {
    headless::press(114, 1244);
    headless::press(114, 2);
  });
  EXPECT_EQ(headless::refused().back(), "114 1244");
}
