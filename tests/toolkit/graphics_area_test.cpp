#include <cmath>

#include "tests/toolkit/graphics_fixture.h"

using graphics_area = recorded_window;

// Each axis of the area is checked on its own; a bad one falls back to 0..1.
TEST_F(graphics_area, AreaChecksEachAxis) {
  struct row {
    float xl, yl, xh, yh;
    float want_xl, want_yl, want_xh, want_yh;
    int error;
  };
  const row rows[] = {
      {0.1f, 0.2f, 0.9f, 0.8f, 0.1f, 0.2f, 0.9f, 0.8f, 0},
      {0.0f, 0.0f, 1.0f, 1.0f, 0.0f, 0.0f, 1.0f, 1.0f, 0},
      {0.5f, 0.2f, 0.5f, 0.8f, 0.0f, 0.2f, 1.0f, 0.8f, 44},   // low == high
      {-0.1f, 0.2f, 0.5f, 0.8f, 0.0f, 0.2f, 1.0f, 0.8f, 44},  // low below 0
      {0.1f, 1.0f, 0.5f, 1.0f, 0.1f, 0.0f, 0.5f, 1.0f, 44},   // low of 1
      {0.1f, 0.2f, 0.5f, 1.5f, 0.1f, 0.0f, 0.5f, 1.0f, 44},   // high above 1
      {0.6f, 0.7f, 0.5f, 0.2f, 0.0f, 0.0f, 1.0f, 1.0f, 44},   // both reversed
  };
  for (const row& r : rows) {
    igrarea(0.3f, 0.3f, 0.4f, 0.4f);
    igrarea(r.xl, r.yl, r.xh, r.yh);
    EXPECT_FLOAT_EQ(igrstate.xgamin, r.want_xl) << r.xl;
    EXPECT_FLOAT_EQ(igrstate.ygamin, r.want_yl) << r.yl;
    EXPECT_FLOAT_EQ(igrstate.xgamax, r.want_xh) << r.xh;
    EXPECT_FLOAT_EQ(igrstate.ygamax, r.want_yh) << r.yh;
    EXPECT_EQ(winfoerror(1), r.error) << r.xl << " " << r.yl;
  }
}

TEST_F(graphics_area, UnitsNeedHighAboveLow) {
  igrunits(-5, 10, 5, 30);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_FLOAT_EQ(igrstate.xunlen, 10);
  EXPECT_FLOAT_EQ(igrstate.yunlen, 20);

  igrunits(5, 10, -5, 30);  // x reversed: x becomes 0..1, y stays as given
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_EQ(yyerror_routine(), "IGrUnits");
  EXPECT_FLOAT_EQ(igrstate.xmin, 0);
  EXPECT_FLOAT_EQ(igrstate.xmax, 1);
  EXPECT_FLOAT_EQ(igrstate.ymin, 10);
  EXPECT_FLOAT_EQ(igrstate.yunlen, 20);

  igrunits(2, 3, 4, 3);  // equal y limits
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_FLOAT_EQ(igrstate.ymin, 0);
  EXPECT_FLOAT_EQ(igrstate.ymax, 1);
}

// 200 x 100 pixels, units 0..10 by 0..5 on the whole window: one unit is
// 20 pixels across and 20 pixels up.
TEST_F(graphics_area, UnitsToPixelsRounding) {
  igrunits(0, 0, 10, 5);
  struct row {
    float x, y;
    int ix, iy_top, iy_bottom;
  };
  const row rows[] = {
      {2.5f, 1.25f, 50, 75, 25},
      {0.0f, 5.0f, 0, 0, 100},
      {10.0f, 0.0f, 200, 100, 0},
      {-0.01f, 2.5f, -1, 50, 50},   // -0.2 px rounds down to -1
      {-0.05f, 5.2f, -1, -4, 104},  // -1 px exactly: -1.999 truncates to -1
      {-0.1f, 5.3f, -2, -6, 106},   // -2 px: -2.999 gives -2
      {-0.11f, 2.5f, -3, 50, 50},   // -2.2 px: -3.199 gives -3
  };
  for (const row& r : rows) {
    int ix = 0, iy = 0;
    igrunitstopixels(r.x, r.y, ix, iy);
    EXPECT_EQ(ix, r.ix) << r.x;
    EXPECT_EQ(iy, r.iy_top) << r.y;
    igrunitstopixels(r.x, r.y, ix, iy, true);
    EXPECT_EQ(iy, r.iy_bottom) << r.y;
  }
}

TEST_F(graphics_area, PixelsToUnitsTakePixelCentres) {
  igrarea(0.5f, 0.0f, 1.0f, 0.5f);  // the lower right quarter: 100 x 50 pixels
  igrunits(0, 0, 1, 1);
  float x = 0, y = 0;
  igrunitsfrompixels(100, 99, x, y);
  EXPECT_NEAR(x, 0.005f, 1e-6);  // centre of the first pixel of the area
  EXPECT_NEAR(y, 0.01f, 1e-6);   // centre of the bottom row
  igrunitsfrompixels(149, 0, x, y, true);
  EXPECT_NEAR(x, 0.495f, 1e-6);
  EXPECT_NEAR(y, 0.01f, 1e-6);
  // Round trip: every pixel centre maps back to its own pixel.
  for (int ix = 100; ix < 200; ix += 7)
    for (int iy = 50; iy < 100; iy += 5) {
      int jx = 0, jy = 0;
      igrunitsfrompixels(ix, iy, x, y);
      igrunitstopixels(x, y, jx, jy);
      EXPECT_EQ(jx, ix);
      EXPECT_EQ(jy, iy);
    }
}

TEST_F(graphics_area, AreaClearFillsTheAreaWithColourZero) {
  igrpalette(0, wrgb(10, 20, 30));
  igrarea(0.25f, 0.5f, 0.75f, 1.0f);
  igrareaclear();
  ASSERT_EQ(drawn().size(), 1u);
  const auto& p = drawn()[0];
  EXPECT_EQ(p.kind, recorded_kind::clear);
  EXPECT_FLOAT_EQ(p.points[0].x, 50);
  EXPECT_FLOAT_EQ(p.points[0].y, 0);
  EXPECT_FLOAT_EQ(p.points[1].x, 150);
  EXPECT_FLOAT_EQ(p.points[1].y, 50);
  EXPECT_EQ(p.colour.number, 0);
  EXPECT_EQ(p.colour.value, 10 + 256 * 20 + 65536 * 30);
}
