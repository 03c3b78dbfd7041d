// The drawing layer on a real X display: primitives land as pixels in an X
// pixmap, and a framed contour plot with filled bands, lines, scales, labels
// and key is drawn into a bitmap and copied to a window, as the plot mode does.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "tests/toolkit/peaks_field.h"
#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_key.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/x11/x11_canvas.h"

namespace {

class x11_drawing : public ::testing::Test {
 protected:
  void SetUp() override {
    // One connection for all the tests: the font library keeps its state per
    // connection, and a closed one must not come back at the same address.
    static Display* shared = XOpenDisplay(nullptr);
    display = shared;
    if (!display) GTEST_SKIP() << "no X display (run under xvfb-run)";
    igrinit();
    ipginit();
    winfoerror(1);
  }
  void TearDown() override {
    attach_target(igr_window, 0, nullptr);
    surface.reset();
    if (window) XDestroyWindow(display, window);
  }
  // The colour of a pixel of a drawable (24-bit true colour).
  std::int32_t rgb_at(Drawable d, int x, int y) {
    XImage* image = XGetImage(display, d, x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long p = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return wrgb(static_cast<int>((p >> 16) & 0xFF), static_cast<int>((p >> 8) & 0xFF), static_cast<int>(p & 0xFF));
  }
  // A pixmap of w x h pixels as window 0, selected for drawing.
  Drawable pixmap(int w, int h) {
    surface = x11_canvas::pixmap(display, DefaultRootWindow(display), w, h);
    attach_target(igr_window, 0, surface.get());
    igrselect(igr_window, 0);
    return surface->drawable();
  }
  Display* display = nullptr;
  Window window = 0;
  std::unique_ptr<x11_canvas> surface;
};

// One panel in the graphics area: twelve levels as filled bands or as lines
// (the lowest three labelled), framed, with scales, axis labels, title and key.
void draw_panel(const std::vector<float>& z, int n, bool filled) {
  const int levels = 12, styles = filled ? levels + 1 : levels;
  std::vector<float> boundary;
  std::vector<std::string> texts;
  for (int L = 1; L <= levels; ++L) boundary.push_back(-0.5f + 1.6f * static_cast<float>(L) / (levels + 1));
  const int nvals[2] = {n, n};
  ipgarea(0.16f, 0.14f, 0.78f, 0.86f);
  ipgnewplot2(8, styles, nvals, filled ? 8 : 0);
  for (int L = 1; L <= styles; ++L) {
    const int colour = 196 + std::min(L, 20);
    filled ? ipgstyle(L, 4, 3, 3, colour, colour) : ipgstyle(L, L <= 3 ? 2 : 0, 5, 0, colour, 0);
    char text[32];
    std::snprintf(text, sizeof text, "%7.3f", L <= levels ? boundary[L - 1] : 1.1f);
    texts.push_back(text);
  }
  ipgunits(0, 0, 1, 1);
  ipgunitsz(-0.5f, 1.1f);
  wgrtextfont(101, 0, 0.018f, 0.035f);
  if (filled) ipgconfill2granul(10);
  filled ? ipgconfill2(z, n, n, boundary) : ipgcontour2(z, n, n, boundary);
  igrcolourn(120);
  ipgborder();
  ipgxscale("TN");
  ipgyscaleleft("TN");
  ipgxlabelpos(0.3f);
  ipgylabelpos(0.45f);
  ipgxlabel("x/a");
  ipgylabelleft("y/b", "9");
  ipgtitle(filled ? "Filled bands" : "Contour lines", "L");
  ipgkeyarea(0.81f, 0.14f, 0.98f, 0.86f);
  ipgkeyall(texts, "R");
}

}  // namespace

TEST_F(x11_drawing, PrimitivesBecomePixels) {
  const Drawable d = pixmap(200, 100);
  igrpalette(0, wrgb(0, 0, 40));
  igrareaclear();
  igrpalette(5, wrgb(255, 0, 0));
  igrcolourn(5);
  igrfillpattern(4);
  igrrectangle(0.1f, 0.1f, 0.4f, 0.9f);  // pixels 20..80 across, 10..90 down
  igrcolour("White");
  igrjoin(0.5f, 0.5f, 0.9f, 0.5f);  // row 50 from 100 to 180
  igrcolour("Green");
  wgrtextfont(101, 0, 0.05f, 0.3f);
  wgrtextorientation(0, 0);
  wgrtextstring(0.5f, 0.2f, "HHH");  // left aligned at x 100, middle at row 80
  struct row {
    int x, y;
    std::int32_t rgb;
  };
  const row rows[] = {{21, 11, wrgb(255, 0, 0)}, {10, 50, wrgb(0, 0, 40)}, {90, 50, wrgb(0, 0, 40)},
                      {140, 50, wrgb(255, 255, 255)}, {140, 40, wrgb(0, 0, 40)}};
  for (const row& r : rows) EXPECT_EQ(rgb_at(d, r.x, r.y), r.rgb) << r.x << "," << r.y;
  // Glyph edges are smoothed: count the pixels that are clearly green.
  int green = 0;
  for (int x = 100; x < 130; ++x) {
    for (int y = 70; y < 90; ++y) {
      int r, g, b;
      wrgbsplit(rgb_at(d, x, y), r, g, b);
      green += g > 120 && r < 60 && b < 80 ? 1 : 0;
    }
  }
  EXPECT_GT(green, 20);  // the strokes of the H's
  EXPECT_GT(wgrtextlength("HHH"), 1.5f);
  EXPECT_LE(wgrtextlength("HHH"), 3.0f);
}

// Hatched fills: lines every 4 pixels at density 1, along x for style 1,
// crossed by lines along y for style 2.
TEST_F(x11_drawing, HatchedFills) {
  const Drawable d = pixmap(40, 40);
  struct row {
    int style, x, y;
    bool coloured;
  };
  const row rows[] = {{1, 10, 8, true}, {1, 10, 9, false}, {1, 9, 10, false},
                      {2, 10, 8, true}, {2, 8, 11, true},  {2, 9, 10, false}};
  for (const row& r : rows) {
    igrareaclear();
    igrcolour("Red");
    igrfillpattern(-r.style, 1, 1);
    igrrectangle(0, 0, 1, 1);
    EXPECT_EQ(rgb_at(d, r.x, r.y) == wrgb(255, 0, 0), r.coloured) << "style " << r.style << " at " << r.x << "," << r.y;
  }
}

// Two panels, filled bands and lines, drawn into a bitmap and copied to a
// window in one step.
TEST_F(x11_drawing, FramedContourPlotThroughABitmap) {
  const int w = 1000, h = 460;
  window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, w, h, 0, 0, 0);
  XSelectInput(display, window, ExposureMask);
  XMapWindow(display, window);
  XEvent event;
  XWindowEvent(display, window, ExposureMask, &event);
  surface = x11_canvas::on_window(display, window, w, h);
  attach_target(igr_window, 0, surface.get());
  igrselect(igr_window, 0);
  igrpalette(0, wrgb(0, 0, 0));
  igrpalette(120, wrgb(255, 255, 255));
  for (int k = 1; k <= 20; ++k) {
    const double t = (k - 1) / 19.0;
    igrpalette(196 + k, wrgb(static_cast<int>(40 + 215 * t), static_cast<int>(80 + 150 * std::sin(t * 3.14159)),
                             static_cast<int>(255 * (1 - t))));
  }
  igrareaclear();
  int bitmap = 0;
  wbitmapget(bitmap, 0);
  igrselect(igr_bitmap, bitmap);
  igrareaclear();
  const int n = 65;
  const std::vector<float> z = peaks_field(n);
  for (bool filled : {true, false}) {
    igrarea(filled ? 0 : 0.5f, 0, filled ? 0.5f : 1, 1);
    igrunits(0, 0, 1, 1);
    draw_panel(z, n, filled);
  }
  EXPECT_EQ(winfoerror(1), 0);
  igrselect(igr_window, 0);
  wbitmapput(bitmap, 0, 0);
  wbitmapdestroy(bitmap);

  // The border of the left panel: its lower left corner is at 0.16 of the
  // panel's 500 pixels across and 0.14 of 460 up.
  const int left = static_cast<int>(0.16 * 500), bottom = h - 1 - static_cast<int>(0.14 * h);
  EXPECT_EQ(rgb_at(window, left, bottom - 100), wrgb(255, 255, 255));
  EXPECT_EQ(rgb_at(window, left + 100, bottom + 1), wrgb(255, 255, 255));
  // Inside the filled panel every pixel has a band colour, none is background.
  int background = 0;
  for (int x = left + 5; x < 380; x += 7) {
    for (int y = 80; y < bottom - 5; y += 7) background += rgb_at(window, x, y) == 0 ? 1 : 0;
  }
  EXPECT_EQ(background, 0);
}
