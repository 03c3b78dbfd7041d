// The example map on a real display: contour lines and filled contours in
// the three directions, and the surface, read back from the window's pixels.
// Layer 1 of every direction of rock salt holds Na at (0, 0) and (1/2, 1/2)
// and Cl at (1/2, 0) and (0, 1/2); Cl, with 18 electrons against 10, reaches
// the top level and Na stops at level 13 (see the headless test of the same
// map).
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>

#include "plot/draw_plot_pg.h"
#include "tests/plot/plot_fixture.h"
#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

// A colour as the screen's pixels hold it.
int rgb(int r, int g, int b) { return r << 16 | g << 8 | b; }

int level_colour(int level) {
  const auto k = static_cast<std::size_t>(level - 1);
  return rgb(qp::set1_rojo[k], qp::set1_verde[k], qp::set1_azul[k]);
}

struct image_release {
  void operator()(XImage* image) const { XDestroyImage(image); }
};

// The client area as the screen shows it.
struct screen_image {
  std::unique_ptr<XImage, image_release> image;
  int width = 0, height = 0;

  int at(int x, int y) const { return static_cast<int>(XGetPixel(image.get(), x, y) & 0xFFFFFF); }

  // Pixels of the colour within `half` pixels of (x, y).
  int count_near(int x, int y, int half, int colour) const {
    int n = 0;
    for (int j = std::max(y - half, 0); j <= std::min(y + half, height - 1); ++j)
      for (int i = std::max(x - half, 0); i <= std::min(x + half, width - 1); ++i) n += at(i, j) == colour;
    return n;
  }
};

// The pixel of a point of the picture given in fractions of the cell.
void pixel_of(float u, float v, int& x, int& y) {
  float gx = 0, gy = 0;
  ipgunitstogrunits(u, v, gx, gy);
  igrunitstopixels(gx, gy, x, y);
}

// Draws the example map's first layer of a direction in a kind, as the plot
// window does on entry (black ground, white frame, colour set 1), and grabs
// the client area.
screen_image draw_example(int kind, int direction) {
  PlotWindow::reset_plot_state();
  qp::boton_tg = kind;
  qp::imap = direction;
  windowselect(0);
  igrinit();
  ipginit();
  igrpalette(0, wrgb(0, 0, 0));
  igrpalette(120, wrgb(255, 255, 255));
  for (std::size_t k = 0; k < 20; ++k)
    igrpalette(197 + static_cast<int>(k), wrgb(qp::set1_rojo[k], qp::set1_verde[k], qp::set1_azul[k]));
  wbitmapget(qp::ibmp1, 0);
  draw_plot_pg();
  XSync(x11_display(), False);
  screen_image s;
  x11_root_client_size(s.width, s.height);
  s.image.reset(XGetImage(x11_display(), XtWindow(x11_root_client_area()), 0, 0, static_cast<unsigned>(s.width),
                          static_cast<unsigned>(s.height), AllPlanes, ZPixmap));
  wbitmapdestroy(qp::ibmp1);
  return s;
}

class PlotScreens : public ::testing::TestWithParam<std::pair<int, int>> {
 protected:
  static void SetUpTestSuite() {
    available = open_program_window();
    if (available) PlotWindow::load_nacl();
  }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
  }
  static inline bool available = false;
};

TEST_P(PlotScreens, AtomsShowAsPeaksAtTheirSites) {
  const auto [kind, direction] = GetParam();
  const screen_image s = draw_example(kind, direction);
  ASSERT_TRUE(s.image);
  const int top = level_colour(20), white = rgb(255, 255, 255);
  if (kind == 3) {
    // The surface from rotation -90, elevation 22.5: Cl's peaks reach the
    // top band, the lowest band shows, and the white box and scales stand
    // around it.
    const int half = std::min(s.width, s.height) / 2 - 1;
    EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half, top), 0);
    EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half, level_colour(1)), 0);
    EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half, white), 100);
    return;
  }
  int cl_x = 0, cl_y = 0, na_x = 0, na_y = 0, hole_x = 0, hole_y = 0, edge_x = 0, edge_y = 0;
  pixel_of(0.5f, 0.0f, cl_x, cl_y);
  pixel_of(0.5f, 0.5f, na_x, na_y);
  pixel_of(0.25f, 0.25f, hole_x, hole_y);
  pixel_of(0.25f, 0.0f, edge_x, edge_y);
  if (kind == 1) {
    // The top level rings Cl and never Na; level 13 rings Na, 14 does not.
    EXPECT_GT(s.count_near(cl_x, cl_y, 12, top), 0);
    EXPECT_EQ(s.count_near(na_x, na_y, 12, top), 0);
    EXPECT_GT(s.count_near(na_x, na_y, 12, level_colour(13)), 0);
    EXPECT_EQ(s.count_near(na_x, na_y, 12, level_colour(14)), 0);
  } else {
    // Filled: band L lies below level L, so Na's peak (between levels 13
    // and 14) shows band 14, Cl's the top band, and half way between the
    // atoms, below the first level, band 1.
    EXPECT_EQ(s.at(cl_x, cl_y - 2), top);
    EXPECT_EQ(s.at(na_x, na_y), level_colour(14));
    EXPECT_EQ(s.at(hole_x, hole_y), level_colour(1));
  }
  // The white frame along the bottom.
  EXPECT_GT(s.count_near(edge_x, edge_y, 2, white), 0);
}

std::string case_name(const ::testing::TestParamInfo<std::pair<int, int>>& info) {
  const char* names[] = {"", "Contours", "Filled", "Surface"};
  return names[info.param.first] + std::string("Direction") + std::to_string(info.param.second);
}

INSTANTIATE_TEST_SUITE_P(KindsAndDirections, PlotScreens,
                         ::testing::Values(std::pair{1, 1}, std::pair{1, 2}, std::pair{1, 3}, std::pair{2, 1},
                                           std::pair{2, 2}, std::pair{2, 3}, std::pair{3, 1}),
                         case_name);

}  // namespace
