// Probing under the mouse and the plane of three points, as a user does it:
// a picture, a mouse move queued at a place of the plot, the status bar read.
#include "tests/plot/plot_fixture.h"

namespace {

// rho = i + j + k on a 10-point grid: at fractions (x, y, z) inside the
// cell the density is 3 + 10 (x + y + z).
void linear_map(vec3f cell, vec3f angles) {
  qp::jpg = {};
  PlotWindow::make_map(cell, angles, {10, 10, 10}, [](int i, int j, int k) { return static_cast<float>(i + j + k); });
  PlotWindow::fresh_screen();
}

// With probing on, moves the mouse to the plot point (p, q) of the picture
// shown then and reads the status bar; the script ends there, so the plot
// window closes after the look.
void probe_at(float p, float q, const std::string& expected) {
  qp::boton_show = false;
  headless::queue_menu(cmd::probe);
  headless::queue_look([p, q, expected] {
    float gx = 0, gy = 0;
    ipgunitstogrunits(p, q, gx, gy);
    headless::queue_mouse(msg_mouse_move, 0, gx, gy);
    headless::queue_look([expected] { EXPECT_EQ(status_text(1), expected); });
  });
  menu_plotting();
}

// The plane dialog with three points typed, then each half size typed
// with OK (one that is no number keeps the dialog open); no size: Cancel.
void type_plane(const std::vector<std::string>& points, const std::vector<std::string>& sizes) {
  headless::queue_menu(cmd::plane);
  for (int k = 0; k < 3; ++k) headless::type_text(101, 1095 + k, points[static_cast<std::size_t>(k)]);
  for (const std::string& size : sizes) {
    headless::type_text(101, 1059, size);
    headless::press(101, 1);
  }
  if (sizes.empty()) headless::press(101, 2);
}

}  // namespace

TEST_F(PlotWindow, DensityUnderTheMouse) {
  for (const auto& row : data_table("plot/probes.txt", 2)) {
    const auto in = numbers(row[0]);  // gamma, direction, section, p, q
    linear_map({10, 10, 10}, {90, 90, in[0]});
    qp::imap = static_cast<std::int32_t>(in[1]);
    qp::seccion.fill(static_cast<std::int32_t>(in[2]));
    probe_at(in[3], in[4], row[1]);
  }
}

// A press and a release; button 1 on the surface turns it a degree a move
// and tilts it 0.75 degrees within 0 and 45.
TEST_F(PlotWindow, SurfaceTurnsWithinItsElevation) {
  linear_map({10, 10, 10}, {90, 90, 90});
  for (float start : {44.5f, 0.5f}) {
    const float dy = start > 1.0f ? 0.1f : -0.1f;
    qp::anglerot_pg3d = -90.0f;
    qp::angleele_pg3d = start;
    headless::queue_menu(cmd::surface);
    headless::queue_mouse(msg_mouse_down, 1, 0.5f, 0.5f);
    headless::queue_look([] { EXPECT_EQ(qp::boton_mouse, 1); });
    headless::queue_mouse(msg_mouse_move, 0, 0.6f, 0.5f + dy);
    headless::queue_mouse(msg_mouse_move, 0, 0.7f, 0.5f + 2 * dy);
    headless::queue_mouse(msg_mouse_up, 1, 0.7f, 0.5f + 2 * dy);
    run_plot();
    EXPECT_FLOAT_EQ(qp::anglerot_pg3d, -88.0f);
    EXPECT_FLOAT_EQ(qp::angleele_pg3d, start > 1.0f ? 45.0f : 0.0f);
    EXPECT_EQ(qp::boton_mouse, 0);
  }
}

// The plane through three points: the normal's angles, the window around
// the points, and the density at its middle against the map's value there.
TEST_F(PlotWindow, PlaneOfThreePoints) {
  for (const auto& row : data_table("plot/planes.txt", 6)) {
    const auto cell = numbers(row[0]), want = numbers(row[4]);  // theta phi xl1 xl2 yl1 yl2
    linear_map({cell[0], cell[1], cell[2]}, {cell[3], cell[4], cell[5]});
    type_plane({row[1], row[2], row[3]}, {"5"});
    headless::queue_look([want] {
      EXPECT_TRUE(qp::plane_def);
      const float got[] = {qp::theta, qp::phi, qp::xl1, qp::xl2, qp::yl1, qp::yl2, qp::zt};
      for (std::size_t i = 0; i < 7; ++i) EXPECT_NEAR(got[i], i < 6 ? want[i] : 0.0f, i < 2 ? 1e-3f : 1e-4f) << i;
    });
    probe_at((want[2] + want[3]) / 2, (want[4] + want[5]) / 2, row[5]);
  }
}

// Points that give no plane get their message (the two read against their
// cases) and leave the section as it was; a line without three numbers is
// the origin; Cancel changes nothing.
TEST_F(PlotWindow, PointsThatGiveNoPlane) {
  const std::string odd = "\xEF\xBF\xBD";
  const struct {
    std::vector<std::string> points, sizes;
    std::string message;
  } rows[] = {
      {{"0 0 0", "1 1 1", "0.5 0.5 0.5"}, {"5"}, "For these points you don" + odd + "t need define a plane"},
      {{"0 0 0.5", "1 0 0.5", "0 1 0.5"}, {"5"}, "The points aren" + odd + "t defining a plane"},
      {{"0.5 0.5", "1 1 garbage", "x y z"}, {"5"}, "For these points you don" + odd + "t need define a plane"},
      {{"1 1", "1 1 0", "0 0 1"}, {"abc", "5"}, ""},
      {{"0 0 0", "1 1 0", "0 0 1"}, {}, ""},  // cancelled
  };
  for (const auto& r : rows) {
    linear_map({10, 10, 10}, {90, 90, 90});
    qp::plane_def = false;
    qp::plane_points = {"", "", ""};
    type_plane(r.points, r.sizes);
    run_plot();
    const bool made = r.message.empty() && !r.sizes.empty();
    EXPECT_EQ(qp::plane_def, made) << r.points[0];
    EXPECT_EQ(qp::plane_points[0], made ? "0.0000   0.0000   0.0000" : "") << r.points[0];
    EXPECT_EQ(qp::plane_points[2], made ? "0.0000   0.0000   1.0000" : "") << r.points[0];
    EXPECT_EQ(headless::box_texts(), r.message.empty() ? std::vector<std::string>{} : std::vector{r.message});
  }
}
