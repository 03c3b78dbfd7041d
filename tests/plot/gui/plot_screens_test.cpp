// The example map on a real display: contour lines and filled contours in
// the three directions, read back from the window's pixels. Each picture is
// also written as a PPM file under the build folder (plot_screens/) to be
// looked at. Layer 1 of every direction of rock salt holds Na at (0, 0) and
// (1/2, 1/2) and Cl at (1/2, 0) and (0, 1/2); Cl, with 18 electrons against
// 10, reaches the top level and Na stops at level 13 (see the headless test
// of the same map).
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "plot/draw_plot_pg.h"
#include "tests/plot/plot_fixture.h"
#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

struct rgb {
  int r, g, b;
  bool operator==(const rgb&) const = default;
};

rgb level_colour(int level) {
  const auto k = static_cast<std::size_t>(level - 1);
  return {qp::set1_rojo[k], qp::set1_verde[k], qp::set1_azul[k]};
}

struct image_release {
  void operator()(XImage* image) const { XDestroyImage(image); }
};

// The client area as the screen shows it.
struct screen_image {
  std::unique_ptr<XImage, image_release> image;
  int width = 0, height = 0;

  rgb at(int x, int y) const {
    const unsigned long p = XGetPixel(image.get(), x, y);
    return {static_cast<int>((p & image->red_mask) >> 16), static_cast<int>((p & image->green_mask) >> 8),
            static_cast<int>(p & image->blue_mask)};
  }

  // Pixels of the colour within `half` pixels of (x, y).
  int count_near(int x, int y, int half, rgb colour) const {
    int n = 0;
    for (int j = y - half; j <= y + half; ++j)
      for (int i = x - half; i <= x + half; ++i)
        n += i >= 0 && j >= 0 && i < width && j < height && at(i, j) == colour;
    return n;
  }

  void write_ppm(const std::filesystem::path& path) const {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) return;
    std::fprintf(f, "P6\n%d %d\n255\n", width, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) {
        const rgb c = at(x, y);
        const unsigned char bytes[] = {static_cast<unsigned char>(c.r), static_cast<unsigned char>(c.g),
                                       static_cast<unsigned char>(c.b)};
        std::fwrite(bytes, 1, 3, f);
      }
    std::fclose(f);
  }
};

screen_image grab_client_area() {
  XSync(x11_display(), False);
  screen_image s;
  int w = 0, h = 0;
  x11_root_client_size(w, h);
  s.width = w;
  s.height = h;
  s.image.reset(XGetImage(x11_display(), XtWindow(x11_root_client_area()), 0, 0, static_cast<unsigned>(w),
                          static_cast<unsigned>(h), AllPlanes, ZPixmap));
  return s;
}

// The pixel of a point of the picture given in fractions of the cell.
void pixel_of(float u, float v, int& x, int& y) {
  float gx = 0, gy = 0;
  ipgunitstogrunits(u, v, gx, gy);
  igrunitstopixels(gx, gy, x, y);
}

// Draws the example map's first layer of a direction in a kind, as the plot
// window does on entry: black ground, white frame, colour set 1.
screen_image draw_example(int kind, int direction) {
  PlotWindow::reset_plot_state();
  qp::boton_tg = kind;
  qp::imap = direction;
  windowselect(0);
  igrinit();
  ipginit();
  igrpalette(0, wrgb(0, 0, 0));
  igrpalette(120, wrgb(255, 255, 255));
  for (int level = 1; level <= 20; ++level) {
    const rgb c = level_colour(level);
    igrpalette(196 + level, wrgb(c.r, c.g, c.b));
  }
  wbitmapget(qp::ibmp1, 0);
  draw_plot_pg();
  screen_image s = grab_client_area();
  wbitmapdestroy(qp::ibmp1);
  return s;
}

class PlotScreens : public ::testing::TestWithParam<std::pair<int, int>> {
 protected:
  static void SetUpTestSuite() {
    available = open_program_window();
    if (available) PlotWindow::load_nacl();
    std::filesystem::create_directories(shots);
  }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
  }
  static bool available;
  static inline const std::filesystem::path shots = std::filesystem::path(QUELMORA_BINARY_DIR) / "plot_screens";
};

bool PlotScreens::available = false;

TEST_P(PlotScreens, AtomsShowAsPeaksAtTheirSites) {
  const auto [kind, direction] = GetParam();
  const screen_image s = draw_example(kind, direction);
  ASSERT_TRUE(s.image);
  s.write_ppm(shots / ("nacl_kind" + std::to_string(kind) + "_direction" + std::to_string(direction) + ".ppm"));

  int cl_x = 0, cl_y = 0, na_x = 0, na_y = 0, hole_x = 0, hole_y = 0;
  pixel_of(0.5f, 0.0f, cl_x, cl_y);
  pixel_of(0.5f, 0.5f, na_x, na_y);
  pixel_of(0.25f, 0.25f, hole_x, hole_y);
  const rgb top = level_colour(20);
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
  int edge_x = 0, edge_y = 0;
  pixel_of(0.25f, 0.0f, edge_x, edge_y);
  EXPECT_GT(s.count_near(edge_x, edge_y, 2, rgb{255, 255, 255}), 0);
}

INSTANTIATE_TEST_SUITE_P(KindsAndDirections, PlotScreens,
                         ::testing::Values(std::pair{1, 1}, std::pair{1, 2}, std::pair{1, 3}, std::pair{2, 1},
                                           std::pair{2, 2}, std::pair{2, 3}),
                         [](const auto& info) {
                           return std::string(info.param.first == 1 ? "Contours" : "Filled") + "Direction" +
                                  std::to_string(info.param.second);
                         });

}  // namespace

namespace {

// The surface of the first z layer as the plot window shows it first (from
// rotation -90, elevation 22.5): Cl's peaks reach the top band, the white
// box and scales stand around it, and the density numbers are drawn.
TEST(PlotSurfaceScreen, PeaksRiseInTheTopBandInsideTheBox) {
  if (!open_program_window()) GTEST_SKIP() << "no X display";
  PlotWindow::load_nacl();
  const screen_image s = draw_example(3, 1);
  ASSERT_TRUE(s.image);
  const auto shots = std::filesystem::path(QUELMORA_BINARY_DIR) / "plot_screens";
  std::filesystem::create_directories(shots);
  s.write_ppm(shots / "nacl_kind3_direction1.ppm");
  const int half = std::min(s.width, s.height) / 2;
  EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half - 1, level_colour(20)), 0);
  EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half - 1, level_colour(1)), 0);
  EXPECT_GT(s.count_near(s.width / 2, s.height / 2, half - 1, rgb{255, 255, 255}), 100);
}

}  // namespace
