// Limits of the map shown, sums of sections and the run through the
// sections, driven from the plot window's commands.

#include "plot/menu_plot.h"
#include "plot_fixture.h"
#include "toolkit/dialogs/dialog_model.h"

namespace {

using strings = std::vector<std::string>;

void run_command(int id, const std::function<void()>& answers) {
  headless::queue_menu(id);
  answers();
  headless::queue_menu(40033);
  menu_plotting();
}

}  // namespace

// New limits give new steps (equal limits a step of 1) and a new rhonew; an
// empty field keeps the dialog on the screen.
TEST_F(PlotWindow, LimitsDialog) {
  load_nacl();
  const float nx = static_cast<float>(qp::ngrid[0]);
  run_command(40035, [] {
    headless::type_text(110, 1071, "0.25");
    headless::type_text(110, 1074, "0.75");
    headless::type_text(110, 1072, "0.5");
    headless::type_text(110, 1075, "0.5");
    headless::type_text(110, 1076, "");
    headless::press(110, 1);
    headless::queue_look([] { EXPECT_TRUE(yydialog_visible(110)); });
    headless::type_text(110, 1076, "1.0");
    headless::press(110, 1);
  });
  EXPECT_FLOAT_EQ(qp::xlim[0], 0.25f);
  EXPECT_FLOAT_EQ(qp::xlim[1], 0.75f);
  EXPECT_FLOAT_EQ(qp::xinc, 0.5f / nx);
  EXPECT_FLOAT_EQ(qp::yinc, 1.0f);
  EXPECT_FLOAT_EQ(qp::zinc, 1.0f / static_cast<float>(qp::ngrid[2]));
  EXPECT_FALSE(yydialog_visible(110));
}

// The two limits typed become one or two ranges of sections, or a message.
TEST_F(PlotWindow, SumRanges) {
  struct row {
    const char *l1, *l2;
    int nadd;
    float from1, to1, from2, to2;
    const char* message;
  };
  const row rows[] = {
      {"0.2", "1.3", 2, 0.2f, 1.0f, 0.0f, 0.3f, nullptr},
      {"-0.4", "0.3", 2, 0.0f, 0.3f, 0.6f, 1.0f, nullptr},
      {"-0.6", "-0.2", 1, 0.4f, 0.8f, 0.0f, 0.0f, nullptr},
      {"1.5", "1.2", 1, 0.2f, 0.5f, 0.0f, 0.0f, nullptr},
      {"-0.5", "1.8", 1, 0.0f, 0.0f, 0.0f, 0.0f, "Interval exceedes 2 units"},
      {"-0.1", "1.5", 1, 0.0f, 0.0f, 0.0f, 0.0f, "Upper conditions exceedes the unit"},
  };
  load_nacl();
  for (const row& r : rows) {
    fresh_screen();
    qp::nadd = 1;
    run_command(40048, [&] {
      headless::choose_radio(108, 1099);
      headless::type_text(108, 1115, r.l1);
      headless::type_text(108, 1173, r.l2);
      headless::press(108, 1);
    });
    EXPECT_TRUE(qp::boton_add) << r.l1;
    EXPECT_TRUE(qp::sum_positive && !qp::sum_all) << r.l1;
    EXPECT_EQ(qp::nadd, r.nadd) << r.l1;
    EXPECT_NEAR(qp::xd_add[0][0], r.from1, 1e-6f) << r.l1;
    EXPECT_NEAR(qp::xd_add[0][1], r.to1, 1e-6f) << r.l1;
    EXPECT_NEAR(qp::xd_add[1][0], r.from2, 1e-6f) << r.l1;
    EXPECT_NEAR(qp::xd_add[1][1], r.to2, 1e-6f) << r.l1;
    EXPECT_EQ(headless::box_texts(), r.message ? strings{r.message} : strings{}) << r.l1;
    EXPECT_EQ(pictures_shown(), r.message ? 1u : 2u) << r.l1;
  }
  // Cancel: no sum and no redraw.
  fresh_screen();
  run_command(40048, [] { headless::press(108, 2); });
  EXPECT_FALSE(qp::boton_add);
  EXPECT_EQ(pictures_shown(), 1u);
}

// The run draws every section of the stepping axis, stays on the last and
// ends a sum; through an oriented section it draws 21 planes and keeps zt.
TEST_F(PlotWindow, RunThroughTheSections) {
  load_nacl();
  qp::boton_add = true;
  run_command(40004, [] {});
  EXPECT_EQ(pictures_shown(), static_cast<std::size_t>(qp::ngrid[2] + 2));
  EXPECT_EQ(qp::seccion[2], qp::ngrid[2] + 1);
  EXPECT_FALSE(qp::boton_add);

  fresh_screen();
  qp::plane_def = true;
  qp::zt = 0.3f;
  qp::xl1 = qp::yl1 = -2.0f;
  qp::xl2 = qp::yl2 = 2.0f;
  run_command(40004, [] {});
  EXPECT_EQ(pictures_shown(), 22u);
  EXPECT_FLOAT_EQ(qp::zt, 0.3f);
}
