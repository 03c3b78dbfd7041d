// The drawing layer on a 200 x 100 recording canvas: area and units, colours,
// fill patterns, shapes, text, bitmaps and number formats.
#include "tests/toolkit/plot_fixture.h"
#include "toolkit/core/number_format.h"

using graphics = recorded_window<200, 100>;

// Each axis of the area is checked on its own; a bad one falls back to 0..1.
TEST_F(graphics, AreaChecksEachAxis) {
  const std::array<float, 9> rows[] = {
      // x low, y low, x high, y high, then what is kept, then the error
      {0.1f, 0.2f, 0.9f, 0.8f, 0.1f, 0.2f, 0.9f, 0.8f, 0},  {0.5f, 0.2f, 0.5f, 0.8f, 0.0f, 0.2f, 1.0f, 0.8f, 44},
      {-0.1f, 0.2f, 0.5f, 0.8f, 0.0f, 0.2f, 1.0f, 0.8f, 44}, {0.1f, 1.0f, 0.5f, 1.0f, 0.1f, 0.0f, 0.5f, 1.0f, 44},
      {0.1f, 0.2f, 0.5f, 1.5f, 0.1f, 0.0f, 0.5f, 1.0f, 44},  {0.6f, 0.7f, 0.5f, 0.2f, 0.0f, 0.0f, 1.0f, 1.0f, 44},
  };
  for (const auto& r : rows) {
    igrarea(r[0], r[1], r[2], r[3]);
    EXPECT_EQ((std::array{igrstate.xgamin, igrstate.ygamin, igrstate.xgamax, igrstate.ygamax}),
              (std::array{r[4], r[5], r[6], r[7]})) << r[0] << " " << r[1] << " " << r[2] << " " << r[3];
    EXPECT_EQ(winfoerror(1), static_cast<int>(r[8]));
  }
  igrunits(5, 10, -5, 30);  // x reversed: x becomes 0..1, y stays as given
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_EQ((std::array{igrstate.xmin, igrstate.xmax, igrstate.ymin, igrstate.ymax}), (std::array{0.f, 1.f, 10.f, 30.f}));
  igrunits(2, 3, 4, 3);  // equal y limits
  EXPECT_EQ((std::array{igrstate.xmin, igrstate.xmax, igrstate.ymin, igrstate.ymax}), (std::array{2.f, 4.f, 0.f, 1.f}));
}

// Units 0..10 by 0..5 on the whole window: one unit is 20 pixels each way;
// negative positions round down.
TEST_F(graphics, UnitsToPixelsAndBackByPixelCentres) {
  igrunits(0, 0, 10, 5);
  const std::array<float, 5> rows[] = {
      // x, y, pixel x, pixel y from the top, pixel y from the bottom
      {2.5f, 1.25f, 50, 75, 25}, {10, 0, 200, 100, 0},   {-0.01f, 2.5f, -1, 50, 50},
      {-0.05f, 5.2f, -1, -4, 104}, {-0.1f, 5.3f, -2, -6, 106}, {-0.11f, 2.5f, -3, 50, 50},
  };
  for (const auto& r : rows) {
    int ix = 0, iy = 0, iy_bottom = 0;
    igrunitstopixels(r[0], r[1], ix, iy);
    igrunitstopixels(r[0], r[1], ix, iy_bottom, true);
    EXPECT_EQ((std::array{ix, iy, iy_bottom}), (std::array<int, 3>{int(r[2]), int(r[3]), int(r[4])})) << r[0] << "," << r[1];
  }
  igrarea(0.5f, 0.0f, 1.0f, 0.5f);  // the lower right quarter: 100 x 50 pixels
  igrunits(0, 0, 1, 1);
  float x = 0, y = 0;
  igrunitsfrompixels(149, 0, x, y, true);
  EXPECT_NEAR(x, 0.495f, 1e-6);
  EXPECT_NEAR(y, 0.01f, 1e-6);
  for (int ix = 100; ix < 200; ix += 7)
    for (int iy = 50; iy < 100; iy += 5) {
      int jx = 0, jy = 0;
      igrunitsfrompixels(ix, iy, x, y);
      igrunitstopixels(x, y, jx, jy);
      EXPECT_EQ(std::pair(jx, jy), std::pair(ix, iy)) << "round trip of a pixel centre";
    }
}

// The depth ramp 83 (near) to 95 (far) must fade: each step darker than the last.
TEST(graphics_colour, DepthRampFadesWithDistance) {
  const auto p = standard_palette();
  auto brightness = [](std::int32_t v) {
    int red, green, blue;
    wrgbsplit(v, red, green, blue);
    return 0.3 * red + 0.59 * green + 0.11 * blue;
  };
  for (int n = 84; n <= 95; ++n) EXPECT_LT(brightness(p[n]), brightness(p[n - 1])) << n;
  EXPECT_GT(brightness(p[95]), 40);  // the farthest still shows on a black ground
}

TEST_F(graphics, ColourByNameNumberAndValue) {
  struct row {
    const char* name;
    int value;  // -1: an error, the colour stays
  };
  const row rows[] = {{"BLUE", 16711680}, {"blu", 16711680}, {"bLaCk", 0},        {"Red", 255},
                      {"white", 16777215}, {"Yellow", 65535}, {"Magenta", 16711935}, {"Cyan", 16776960},
                      {"Grey", wrgb(0, 200, 0)},  // by its first letter only
                      {"Orange", -1},     {"", -1},         {"BL", -1}};
  for (const row& r : rows) {
    igrcolourn(7);
    igrcolour(r.name);
    EXPECT_EQ(winfoerror(1), r.value < 0 ? 1015 : 0) << r.name;
    EXPECT_EQ(current_colour().value, r.value < 0 ? standard_palette()[7] : r.value) << r.name;
  }
  igrpalette(10, wrgb(9, 9, 9), 12);
  igrcolourn(11);
  igrcolourn(256);  // no such number: error, colour stays
  EXPECT_EQ(winfoerror(1), 1015);
  EXPECT_EQ(current_colour().value, wrgb(9, 9, 9));
  EXPECT_EQ(igrstate.irgb256[13], standard_palette()[13]);
  igrstate.icmodel = 2;  // 24-bit model: the value is the colour itself
  igrcolourn(wrgb(5, 6, 7));
  EXPECT_EQ(current_colour().value, wrgb(5, 6, 7));
  igrcolourn(-1);
  EXPECT_EQ(winfoerror(1), 1015);
}

// Style 0 outlines a shape, style 4 fills it, hatches (negative) fill
// without border, and a style out of range outlines again.
TEST_F(graphics, ShapesFillByPattern) {
  struct row {
    int style, density, angle;  // density 0: not given
    int ifstyl, ifbord, ifdens, ifangl;
  };
  const row rows[] = {{4, 3, 1, 4, 1, 3, 1}, {-2, 5, 4, 2, 0, 5, 4}, {0, 0, 0, 0, 1, 2, 3}, {-4, 6, 5, 0, 1, 2, 3}, {5, 1, 2, 0, 1, 1, 2}};
  igrunits(0, 0, 10, 5);
  igrlinewidth(3);
  for (const row& r : rows) {
    r.density ? igrfillpattern(r.style, r.density, r.angle) : igrfillpattern(r.style);
    EXPECT_EQ((std::array{igrstate.ifstyl, igrstate.ifbord, igrstate.ifdens, igrstate.ifangl}),
              (std::array{r.ifstyl, r.ifbord, r.ifdens, r.ifangl})) << r.style;
    screen.forget();
    igrrectangle(1, 1, 3, 2);
    igrcircle(5, 2.5f, 1);
    EXPECT_EQ(drawn_of(recorded_kind::polygon).size(), r.ifstyl != 0 ? 1u : 0u) << r.style;
    EXPECT_EQ(drawn_of(recorded_kind::polyline).size(), r.ifbord) << r.style;
    EXPECT_EQ(drawn().back().filled, r.ifstyl != 0) << r.style;
    EXPECT_EQ(drawn().back().outlined, r.ifbord == 1) << r.style;
    EXPECT_FLOAT_EQ(drawn().back().radius, 20);  // 1 x unit is 20 pixels
  }
  igrmoveto(1, 1);
  igrlineto(2, 2);
  EXPECT_EQ(drawn().back().pen.width, 3);
  EXPECT_FLOAT_EQ(drawn().back().points[1].y, 60);
}

TEST_F(graphics, ShadedPolygonBlendsCornerColours) {
  igrpalette(1, wrgb(0, 0, 0));
  igrpalette(2, wrgb(240, 0, 0));
  const float x[3] = {0, 1, 0}, y[3] = {0, 0, 1};
  const int colours[3] = {1, 2, 1};
  igrpolygonshaded(x, y, colours, 3);
  ASSERT_FALSE(drawn().empty());
  // Every small triangle carries the red of its centre: red grows with x.
  for (const auto& p : drawn()) {
    int r, g, b;
    wrgbsplit(p.colour.value, r, g, b);
    EXPECT_NEAR(r, 240 * (p.points[0].x + p.points[1].x + p.points[2].x) / 3 / 200, 1.0);
  }
}

TEST_F(graphics, TextTakesSizeAndTrim) {
  igrarea(0, 0, 0.5f, 1);
  wgrtextfont(103, 3, 0.04f, 0.1f);
  wgrtextstring(0.5f, 0.6f, "Quelmora   ");
  wgrtextfont(std::nullopt, 2);  // width and height stay
  wgrtextreal(0.5f, 0.5f, -0.25f, "(F6.2)");
  wgrtextreal(0.5f, 0.5f, 1, "(Q6)");
  EXPECT_EQ(winfoerror(1), 1015);
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_EQ(drawn()[0].text, "Quelmora");
  EXPECT_NEAR(drawn()[0].points[0].x, 50, 1e-4);
  EXPECT_NEAR(drawn()[0].points[0].y, 40, 1e-4);
  EXPECT_FLOAT_EQ(drawn()[0].text_style.char_width, 4);    // 0.04 of 100 pixels
  EXPECT_FLOAT_EQ(drawn()[0].text_style.char_height, 10);  // 0.1 of 100 pixels
  EXPECT_EQ(drawn()[1].text, "-0.25");
  EXPECT_FLOAT_EQ(drawn()[1].text_style.char_width, 4);
}

TEST_F(graphics, BitmapsTakeDrawingAndCopyBack) {
  int bitmap = 0;
  wbitmapget(bitmap, 0);
  igrselect(igr_bitmap, bitmap);
  igrunits(0, 0, 10, 5);
  igrjoin(0, 0, 10, 5);
  EXPECT_TRUE(drawn().empty());
  igrselect(igr_window);
  wbitmapput(bitmap, 0, 0);
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_EQ(drawn()[0].handle, bitmap);
  EXPECT_FLOAT_EQ(drawn()[1].points[1].x, 200);
  igrselect(igr_bitmap, bitmap);
  wbitmapdestroy(bitmap);
  EXPECT_EQ(igrstate.itarg, igr_window);  // the bitmap's drawing falls back to the window
  wbitmapput(bitmap, 0, 0);
  EXPECT_EQ(winfoerror(1), 1003);
  igrselect(7, 1);
  EXPECT_EQ(winfoerror(1), 1003);
  screen.forget();
  attach_target(igr_window, 0, nullptr);  // nothing attached: nothing drawn
  igrjoin(0, 0, 1, 1);
  igrareaclear();
  wgrtextstring(0.5f, 0.5f, "x");
  EXPECT_TRUE(drawn().empty());
  wbitmapget(bitmap, 0);
  EXPECT_EQ(bitmap, 0);
  EXPECT_EQ(winfoerror(1), 1003);
}

TEST(number_format, FortranEditDescriptors) {
  struct row {
    const char* format;
    double value;
    const char* text;
  };
  const row rows[] = {
      {"(F9.2)", -0.5, "    -0.50"},   {"F4.2", -0.5, "-.50"},          {"(F3.2)", 12.3, "***"},
      {"(F5.1)", -0.04, "  0.0"},      {"(I9)", 2.5, "        3"},      {"(I2)", -150, "**"},
      {"(E9.2)", -1.5e-6, "-0.15E-05"}, {"(E8.2)", -1.5e-6, "-.15E-05"}, {"(E10.3)", 123456, " 0.123E+06"},
      {"(E8.1)", 0, " 0.0E+00"},       {"(E9.2)", 0.996, " 0.10E+01"},
  };
  for (const row& r : rows) {
    std::string text;
    EXPECT_TRUE(format_real(r.value, r.format, text)) << r.format;
    EXPECT_EQ(text, r.text) << r.format << " " << r.value;
  }
  std::string text;
  for (const char* bad : {"", "(X5)", "(F)", "(F9)", "(F9.2x)", "(I3.1)"}) EXPECT_FALSE(format_real(1, bad, text)) << bad;
}
