// The dialogs of the plot window driven as a user drives them: levels with
// their colour sets and line types, limits of the map, sums of sections, and
// the run through the sections.
#include "tests/plot/plot_fixture.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/wdialog.h"

namespace {

using strings = std::vector<std::string>;

// Dialogs of the commands: levels, colour sets, line types, isosurface level,
// limits, sums.
enum : int { levels_box = 114, colours_box = 112, lines_box = 117, isolevel_box = 120, limits_box = 110, sum_box = 108 };

float shown_real(int dialog, int field) {
  float v = 0.0f;
  wdialogselect(dialog);
  wdialoggetreal(field, v);
  return v;
}

// The command with the user's answers queued by `answers`, then leaving.
void run_command(int id, const std::function<void()>& answers) {
  headless::queue_menu(id);
  answers();
  PlotWindow::run_plot();
}

}  // namespace

// A fixed range shows as it is, and Cancel after a change of unit and
// count gives all back. Else the map's range shows, in density or sigma
// units; OK keeps sigma values in density units, and the picture uses the
// first rows of the colour table.
TEST_F(PlotWindow, LevelsInSigmaUnitsAndCancel) {
  load_nacl();
  // Plain names, not structured bindings: the looks below capture them.
  const auto extremes = std::minmax_element(qp::rhonew.data(), qp::rhonew.data() + qp::rhonew.size());
  const float* lo = extremes.first;
  const float* hi = extremes.second;
  const float sigma = qp::densigma;
  qp::klevel = 1;
  qp::den_min_show = -1.0f;
  qp::dens_min_show = 7.0f;
  run_command(cmd::levels, [&] {
    headless::queue_look([] { EXPECT_FLOAT_EQ(shown_real(levels_box, 1089), -1.0f); });
    headless::choose_radio(levels_box, 1180);
    headless::type_text(levels_box, 1088, "7");
    headless::press(levels_box, 2);
    headless::queue_look([] {
      EXPECT_TRUE(!qp::ksigma && qp::klevel == 1 && qp::n_contour == 20 && qp::dens_min_show == 7.0f);
      qp::klevel = 0;
    });
    headless::queue_menu(cmd::levels);
    headless::queue_look([&] {
      EXPECT_NEAR(shown_real(levels_box, 1089), *lo, 1e-5f);
      EXPECT_NEAR(shown_real(levels_box, 1183), (*hi - *lo) / 20.0f, 1e-5f);
    });
    headless::choose_radio(levels_box, 1180);
    headless::queue_look([&] { EXPECT_NEAR(shown_real(levels_box, 1090), *hi / sigma, 1e-4f); });
    headless::type_text(levels_box, 1088, "5");
    headless::type_text(levels_box, 1089, "0.5");
    headless::type_text(levels_box, 1090, "2.0");
    headless::press(levels_box, 1);
    headless::queue_look([] {
      EXPECT_GT(count(last_picture(), recorded_kind::polyline, 197, 201), 0u);
      EXPECT_EQ(count(last_picture(), recorded_kind::polyline, 202, 216), 0u);
    });
  });
  EXPECT_TRUE(qp::n_contour == 5 && qp::ksigma && qp::klevel == 1);
  EXPECT_FLOAT_EQ(qp::dens_min_show, 0.5f * sigma);
  EXPECT_FLOAT_EQ(qp::dens_max_show, 2.0f * sigma);
}

// With the isosurface view the level is asked for alone; only a new value
// builds a mesh and redraws.
TEST_F(PlotWindow, IsosurfaceLevel) {
  load_nacl();
  qp::boton_tg = 4;
  qp::isolev = 1.5f;
  qp::npoints = -1;
  const struct {
    const char* typed;
    std::size_t pictures;
    bool meshed;
  } rows[] = {{"1.5", 0, false}, {"2.0", 1, true}};
  for (const auto& r : rows) {
    std::size_t before = 0;
    run_command(cmd::levels, [&] {
      headless::queue_look([&] { before = pictures_shown(); });
      headless::type_text(isolevel_box, 1256, r.typed);
      headless::press(isolevel_box, 1);
      headless::queue_look([&] { EXPECT_EQ(pictures_shown() - before, r.pictures) << r.typed; });
    });
    EXPECT_FLOAT_EQ(qp::isolev, std::stof(r.typed));
    EXPECT_EQ(qp::npoints > 0, r.meshed) << r.typed;
  }
}

// A colour set refills palette slots 197 to 216 and leaves level_lines; a
// colour picked in the user's set goes to its level.
TEST_F(PlotWindow, ColourSetsFillTheLevelSlots) {
  const struct {
    int radio, set, picked;  // picked for level 3 of the user's set, or -1
  } rows[] = {{1221, 2, -1}, {1198, 1, -1}, {1242, 3, -1}, {1242, 3, wrgb(10, 20, 30)}};
  const std::array<std::int32_t, 20>* sets[3][3] = {{&qp::set1_rojo, &qp::set1_verde, &qp::set1_azul},
                                                    {&qp::set2_rojo, &qp::set2_verde, &qp::set2_azul},
                                                    {&qp::set3_rojo, &qp::set3_verde, &qp::set3_azul}};
  load_nacl();
  for (const auto& r : rows) {
    qp::kset3 = false;
    qp::set3_rojo = qp::set3_verde = qp::set3_azul = {};
    run_command(cmd::levels, [&] {
      headless::press(levels_box, 1243);
      headless::choose_radio(colours_box, r.radio);
      if (r.picked >= 0) {
        headless::answer_colour(r.picked);
        headless::click_field(colours_box, 1224);
      }
      headless::press(colours_box, 1);
      headless::press(levels_box, 2);
    });
    EXPECT_EQ(qp::set_color, r.set);
    EXPECT_EQ(qp::kset3, r.set == 3);
    const auto& set = sets[r.set - 1];
    for (std::size_t k = 0; k < 20; ++k) {
      const int expected = r.picked >= 0 && k == 2 ? r.picked : wrgb((*set[0])[k], (*set[1])[k], (*set[2])[k]);
      EXPECT_EQ(palette_colour(197 + static_cast<int>(k)).value, expected) << r.set << " level " << k + 1;
      EXPECT_EQ(qp::level_lines[k].colour, 197 + static_cast<int>(k));
    }
  }
  EXPECT_EQ(qp::set3_verde[2], 20);
}

// Widths and types stored with OK apply even when Cancel closes; Finish
// stores its own; a level left alone keeps its line. Styles belong to the
// contour lines only.
TEST_F(PlotWindow, LineTypesPerLevel) {
  load_nacl();
  run_command(cmd::levels, [] {
    headless::press(levels_box, 1244);
    headless::type_text(lines_box, 1246, "3");
    headless::type_text(lines_box, 1245, "4");
    headless::choose_radio(lines_box, 1249);
    headless::press(lines_box, 1);
    headless::type_text(lines_box, 1246, "5");
    headless::type_text(lines_box, 1245, "9");  // out of range: refused, width stays 4
    headless::choose_radio(lines_box, 1250);
    headless::press(lines_box, 1254);
    headless::press(levels_box, 1);
  });
  EXPECT_EQ(headless::refused(), strings{"117 1245"});
  const struct { int level, style, width; } rows[] = {{3, 2, 4}, {5, 3, 4}, {4, 0, 1}};
  for (const auto& r : rows) {
    EXPECT_EQ(qp::level_lines[static_cast<std::size_t>(r.level - 1)].style, r.style) << r.level;
    EXPECT_EQ(qp::level_lines[static_cast<std::size_t>(r.level - 1)].width, r.width) << r.level;
  }
  EXPECT_TRUE(qp::ksettings);
  qp::boton_tg = 2;
  run_command(cmd::levels, [] {
    headless::press(levels_box, 1244);
    headless::press(levels_box, 2);
  });
  EXPECT_EQ(headless::refused().back(), "114 1244");
}

// New limits give new steps (equal limits a step of 1); an empty field keeps
// the dialog on the screen.
TEST_F(PlotWindow, LimitsDialog) {
  load_nacl();
  run_command(cmd::limits, [] {
    headless::type_text(limits_box, 1071, "0.25");
    headless::type_text(limits_box, 1074, "0.75");
    headless::type_text(limits_box, 1072, "0.5");
    headless::type_text(limits_box, 1075, "0.5");
    headless::type_text(limits_box, 1076, "");
    headless::press(limits_box, 1);
    headless::queue_look([] { EXPECT_TRUE(yydialog_visible(limits_box)); });
    headless::type_text(limits_box, 1076, "1.0");
    headless::press(limits_box, 1);
  });
  EXPECT_EQ(qp::xlim, (std::array<float, 2>{0.25f, 0.75f}));
  EXPECT_FLOAT_EQ(qp::xinc, 0.5f / static_cast<float>(qp::ngrid[0]));
  EXPECT_FLOAT_EQ(qp::yinc, 1.0f);
  EXPECT_FLOAT_EQ(qp::zinc, 1.0f / static_cast<float>(qp::ngrid[2]));
  EXPECT_FALSE(yydialog_visible(limits_box));
}

// The two limits typed become one or two ranges of sections, or a message;
// Cancel sums nothing and draws nothing.
TEST_F(PlotWindow, SumRanges) {
  load_nacl();
  for (const auto& row : data_table("plot/sum_ranges.txt", 4)) {
    fresh_screen();
    qp::nadd = 1;
    run_command(cmd::sum, [&] {
      headless::choose_radio(sum_box, 1099);
      headless::type_text(sum_box, 1115, row[0]);
      headless::type_text(sum_box, 1173, row[1]);
      headless::press(sum_box, 1);
    });
    auto ranges = numbers(row[2]);
    EXPECT_EQ(qp::nadd, ranges.size() == 4 ? 2 : 1) << row[0];
    ranges.resize(4);
    EXPECT_TRUE(qp::boton_add && qp::sum_positive && !qp::sum_all) << row[0];
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(qp::xd_add[i / 2][i % 2], ranges[i], 1e-6f) << row[0] << " " << i;
    EXPECT_EQ(headless::box_texts(), row[3].empty() ? strings{} : strings{row[3]}) << row[0];
    EXPECT_EQ(pictures_shown(), row[3].empty() ? 2u : 1u) << row[0];
  }
  fresh_screen();
  run_command(cmd::sum, [] { headless::press(sum_box, 2); });
  EXPECT_FALSE(qp::boton_add);
  EXPECT_EQ(pictures_shown(), 1u);
}

// The run draws every section of the stepping axis, stays on the last and
// ends a sum. Through an oriented plane it draws 21 planes and keeps its
// height, which the steps move by 0.1 leaving the sections alone; the next
// direction ends the plane.
TEST_F(PlotWindow, RunThroughTheSectionsAndStepsOfAPlane) {
  load_nacl();
  qp::boton_add = true;
  run_command(cmd::run_through, [] {});
  EXPECT_EQ(pictures_shown(), static_cast<std::size_t>(qp::ngrid[2] + 2));
  EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{1, 1, qp::ngrid[2] + 1}));
  EXPECT_FALSE(qp::boton_add);

  fresh_screen();
  qp::plane_def = true;
  qp::zt = 0.3f;
  qp::xl1 = qp::yl1 = -2.0f;
  qp::xl2 = qp::yl2 = 2.0f;
  run_command(cmd::run_through, [] {
    headless::queue_look([] { EXPECT_EQ(pictures_shown(), 22u); });
    headless::queue_menu(cmd::section_up);
    headless::queue_menu(cmd::section_up);
    headless::queue_menu(cmd::section_down);
    headless::queue_look([] { EXPECT_NEAR(qp::zt, 0.4f, 1e-6f); });
    headless::queue_menu(cmd::direction);
  });
  EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{1, 1, qp::ngrid[2] + 1}));
  EXPECT_FALSE(qp::plane_def);
}
