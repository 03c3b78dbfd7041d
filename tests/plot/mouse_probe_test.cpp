// Probing under the mouse and the plane of three points, as a user does it:
// a picture, a mouse move queued at a place of the plot, the status bar read.
#include <cmath>

#include "plot/menu_plot.h"
#include "plot_fixture.h"
#include "toolkit/dialogs/message_box.h"

namespace {

// rho = i + j + k on a 10-point grid: at fractions (x, y, z) inside the
// cell the density is 3 + 10 (x + y + z).
void linear_map(vec3f cell, vec3f angles) {
  qp::jpg = {};
  PlotWindow::make_map(cell, angles, {10, 10, 10}, [](int i, int j, int k) { return static_cast<float>(i + j + k); });
}

// With probing on, moves the mouse to the plot point (p, q) of the picture
// shown then and reads the status bar; the script ends there, so the plot
// window closes after the look.
void probe_at(float p, float q, std::function<void()> look) {
  qp::boton_show = false;
  headless::queue_menu(40030);
  headless::queue_look([p, q, look] {
    float gx = 0, gy = 0;
    ipgunitstogrunits(p, q, gx, gy);
    headless::queue_mouse(msg_mouse_move, 0, gx, gy);
    headless::queue_look(look);
  });
}

TEST_F(PlotWindow, DensityUnderTheMouse) {
  struct row {
    vec3f angles;
    int imap;
    int section;
    float p, q;
    const char* line;
  };
  const row rows[] = {
      {{90, 90, 90}, 1, 1, 0.25f, 0.35f, "X:  0.250   Y:  0.350   Z:  0.000   Density:    9.000"},
      {{90, 90, 90}, 2, 3, 0.25f, 0.35f, "X:  0.200   Y:  0.250   Z:  0.350   Density:   11.000"},
      {{90, 90, 90}, 3, 6, 0.40f, 0.10f, "X:  0.100   Y:  0.500   Z:  0.400   Density:   13.000"},
      // gamma 120: a = (8.660, -5, 0), b = (0, 10, 0); fractions (0.3, 0.4) lie at (2.598, 2.5).
      {{90, 90, 120}, 1, 1, 2.598076f, 2.5f, "X:  0.300   Y:  0.400   Z:  0.000   Density:   10.000"},
      // Outside the section: the layer line stays.
      {{90, 90, 90}, 1, 1, 1.2f, 0.5f, " Layer Z:   1/ 11           Z:  0.0000"},
  };
  for (const row& r : rows) {
    linear_map({10, 10, 10}, r.angles);
    qp::imap = r.imap;
    qp::seccion = {r.section, r.section, r.section};
    fresh_screen();
    probe_at(r.p, r.q, [&r] { EXPECT_EQ(status_text(1), r.line) << r.imap; });
    menu_plotting();
  }
}

// Button 1 on the surface turns it a degree a move and tilts it 0.75 degrees
// within 0 and 45.
TEST_F(PlotWindow, SurfaceTurnsWithinItsElevation) {
  linear_map({10, 10, 10}, {90, 90, 90});
  struct row {
    float start, rot_after, ele_after;
    float dy;
  };
  for (const row& r : {row{44.5f, -88.0f, 45.0f, 0.1f}, row{0.5f, -88.0f, 0.0f, -0.1f}}) {
    qp::anglerot_pg3d = -90.0f;
    qp::angleele_pg3d = r.start;
    headless::queue_menu(40075);
    headless::queue_mouse(msg_mouse_down, 1, 0.5f, 0.5f);
    headless::queue_mouse(msg_mouse_move, 0, 0.6f, 0.5f + r.dy);
    headless::queue_mouse(msg_mouse_move, 0, 0.7f, 0.5f + 2 * r.dy);
    headless::queue_menu(40033);
    menu_plotting();
    EXPECT_FLOAT_EQ(qp::anglerot_pg3d, r.rot_after);
    EXPECT_FLOAT_EQ(qp::angleele_pg3d, r.ele_after);
  }
}

// The plane through three points of a cubic and of a monoclinic cell: the
// normal's angles, the window around the points, and the density at its
// middle against the map's value there.
TEST_F(PlotWindow, PlaneOfThreePoints) {
  struct row {
    vec3f cell, angles;
    const char* points[3];
    float theta, phi, xl1, xl2, yl1, yl2;
    const char* probe;
  };
  const row rows[] = {
      // (0,0,0), (10,10,0), (0,0,10) A: normal (100, -100, 0).
      {{10, 10, 10}, {90, 90, 90}, {"0 0 0", "1 1 0", "0 0 1"}, 90.0f, 315.0f, -10.0f, 0.0f, 2.071068f,
       12.071068f, "X:  0.500   Y:  0.500   Z:  0.500   Density:   18.000"},
      // beta 110: a = (7.518, 0, -2.736), b = (0, 9, 0); the a-b plane leans 20 degrees.
      {{8, 9, 10}, {90, 110, 90}, {"0 0 0", "1 0 0", "0 1 0"}, 20.0f, 0.0f, -1.0f, 9.0f, -0.5f, 9.5f,
       "X:  0.500   Y:  0.500   Z:  0.000   Density:   13.000"},
  };
  for (const row& r : rows) {
    linear_map(r.cell, r.angles);
    qp::plane_points = {"", "", ""};
    fresh_screen();
    headless::queue_menu(40038);
    for (int k = 0; k < 3; ++k) headless::type_text(101, 1095 + k, r.points[k]);
    headless::press(101, 1);
    headless::queue_look([&r] {
      EXPECT_TRUE(qp::plane_def);
      EXPECT_NEAR(qp::theta, r.theta, 1e-3f);
      EXPECT_NEAR(qp::phi, r.phi, 1e-3f);
      EXPECT_NEAR(qp::xl1, r.xl1, 1e-4f);
      EXPECT_NEAR(qp::xl2, r.xl2, 1e-4f);
      EXPECT_NEAR(qp::yl1, r.yl1, 1e-4f);
      EXPECT_NEAR(qp::yl2, r.yl2, 1e-4f);
      EXPECT_NEAR(qp::zt, 0.0f, 1e-4f);
      EXPECT_TRUE(status_text(1).starts_with("Plane "));
    });
    probe_at((r.xl1 + r.xl2) / 2, (r.yl1 + r.yl2) / 2, [&r] { EXPECT_EQ(status_text(1), r.probe); });
    menu_plotting();
  }
}

// Points that give no plane get their message (the two read against their
// cases) and leave the section as it was; a line without three numbers is
// the origin; a size that is no number keeps the dialog open.
TEST_F(PlotWindow, PointsThatGiveNoPlane) {
  const std::string odd = "\xEF\xBF\xBD";
  struct row {
    const char* points[3];
    const char* sizes[2];
    std::string message;
  };
  const row rows[] = {
      {{"0 0 0", "1 1 1", "0.5 0.5 0.5"}, {"5", ""}, "For these points you don" + odd + "t need define a plane"},
      {{"0 0 0.5", "1 0 0.5", "0 1 0.5"}, {"5", ""}, "The points aren" + odd + "t defining a plane"},
      {{"0.5 0.5", "1 1 garbage", "x y z"}, {"5", ""}, "For these points you don" + odd + "t need define a plane"},
      {{"1 1", "1 1 0", "0 0 1"}, {"abc", "5"}, ""},
  };
  for (const row& r : rows) {
    linear_map({10, 10, 10}, {90, 90, 90});
    qp::plane_def = false;
    fresh_screen();
    headless::queue_menu(40038);
    for (int k = 0; k < 3; ++k) headless::type_text(101, 1095 + k, r.points[k]);
    for (const char* size : r.sizes) {
      if (*size == 0) continue;
      headless::type_text(101, 1059, size);
      headless::press(101, 1);
    }
    headless::queue_menu(40033);
    menu_plotting();
    if (r.message.empty()) {
      EXPECT_TRUE(headless::box_texts().empty());
      EXPECT_TRUE(qp::plane_def);
      EXPECT_EQ(qp::plane_points[0], "0.0000   0.0000   0.0000");
      EXPECT_EQ(qp::plane_points[2], "0.0000   0.0000   1.0000");
    } else {
      EXPECT_EQ(headless::box_texts(), std::vector<std::string>{r.message});
      EXPECT_FALSE(qp::plane_def);
    }
  }
}

// Cancel changes nothing.
TEST_F(PlotWindow, CancelledPlaneChangesNothing) {
  linear_map({10, 10, 10}, {90, 90, 90});
  qp::plane_points = {"0 0 0", "1 1 0", "0 0 1"};
  headless::queue_menu(40038);
  headless::press(101, 2);
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_FALSE(qp::plane_def);
  EXPECT_EQ(qp::plane_points[1], "1 1 0");
}

}  // namespace
