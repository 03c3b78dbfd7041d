// The drawing layer on a real X display: solid and hatched fills and broken
// lines land as pixels in an X pixmap.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>
#include <tuple>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/x11/x11_canvas.h"

namespace {

class x11_drawing : public ::testing::Test {
 protected:
  // A pixmap of w x h pixels as window 0, selected for drawing.
  void SetUp() override {
    // One connection for all the tests: the font library keeps its state per
    // connection, and a closed one must not come back at the same address.
    static Display* shared = XOpenDisplay(nullptr);
    display = shared;
    if (!display) GTEST_SKIP() << "no X display (run under xvfb-run)";
    igrinit();
    winfoerror(1);
    surface = x11_canvas::pixmap(display, DefaultRootWindow(display), 200, 100);
    attach_target(igr_window, 0, surface.get());
    igrselect(igr_window, 0);
  }
  void TearDown() override { attach_target(igr_window, 0, nullptr); }
  // The colour of a pixel (24-bit true colour).
  std::int32_t rgb_at(int x, int y) {
    XImage* image = XGetImage(display, surface->drawable(), x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long p = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return wrgb(static_cast<int>((p >> 16) & 0xFF), static_cast<int>((p >> 8) & 0xFF), static_cast<int>(p & 0xFF));
  }
  Display* display = nullptr;
  std::unique_ptr<x11_canvas> surface;
};

// A rectangle from 0.1 to 0.4 across and 0.1 to 0.9 up covers pixels 20..80
// and 10..90: solid, or hatched every 4 pixels at density 1, along x for
// style 1, crossed by lines along y for style 2. A line along row 51 from x 0:
// solid, dots 1 on 3 off, dashes 8 on 4 off, dot-dash 8 on, 3 off, 1 on, 3 off.
TEST_F(x11_drawing, FillsAndLinesBecomePixels) {
  enum { fill, line };
  const bool on = true, off = false;
  for (const auto& [what, style, x, y, coloured] :
       {std::tuple{fill, 4, 21, 11, on}, {fill, 4, 79, 89, on}, {fill, 4, 10, 50, off}, {fill, 4, 90, 50, off},
        {fill, -1, 30, 28, on}, {fill, -1, 30, 29, off}, {fill, -1, 29, 30, off}, {fill, -2, 30, 28, on},
        {fill, -2, 28, 31, on}, {fill, -2, 29, 30, off}, {line, 0, 150, 51, on}, {line, 0, 150, 50, off},
        {line, 1, 4, 51, on}, {line, 1, 2, 51, off}, {line, 2, 7, 51, on}, {line, 2, 9, 51, off}, {line, 2, 12, 51, on},
        {line, 3, 9, 51, off}, {line, 3, 11, 51, on}, {line, 3, 13, 51, off}}) {
    igrareaclear();
    igrcolour("Red");
    igrfillpattern(what == fill ? style : 4, 1, 1);
    igrlinetype(what == line ? style : 0);
    what == fill ? igrrectangle(0.1f, 0.1f, 0.4f, 0.9f) : igrjoin(0, 0.49f, 1, 0.49f);
    EXPECT_EQ(rgb_at(x, y) == wrgb(255, 0, 0), coloured) << (what == fill ? "fill " : "line ") << style << " at " << x << "," << y;
  }
}

}  // namespace
