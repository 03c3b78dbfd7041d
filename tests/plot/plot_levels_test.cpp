// The levels dialog and its two sub-dialogs, driven as a user drives them
// from the plot window's Levels command.
#include <algorithm>

#include "plot/menu_plot.h"
#include "plot_fixture.h"
#include "toolkit/dialogs/wdialog.h"

namespace {

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

// A fixed range is what the dialog shows; Cancel after a change of unit
// gives back the unit and the range.
TEST_F(PlotWindow, LevelsCancelKeepsTheFixedRange) {
  load_nacl();
  qp::klevel = 1;
  qp::den_min_show = -1.0f;
  qp::den_max_show = 3.0f;
  run_levels([] {
    headless::queue_look([] { EXPECT_FLOAT_EQ(shown_real(114, 1089), -1.0f); });
    headless::choose_radio(114, 1180);
    headless::type_text(114, 1088, "7");
    headless::press(114, 2);
  });
  EXPECT_FALSE(qp::ksigma);
  EXPECT_EQ(qp::n_contour, 20);
  EXPECT_FLOAT_EQ(qp::den_min_show, -1.0f);
  EXPECT_FLOAT_EQ(qp::den_max_show, 3.0f);
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
