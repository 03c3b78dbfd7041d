#include "tests/toolkit/graphics_fixture.h"
#include "toolkit/graphics/number_format.h"

using graphics_drawing = recorded_window;

TEST(graphics_colour, RgbValuesAndSplit) {
  struct row {
    int r, g, b;
    int value;
  };
  const row rows[] = {{0, 0, 0, 0}, {255, 0, 0, 255}, {0, 255, 0, 65280}, {0, 0, 255, 16711680},
                      {1, 2, 3, 197121}, {255, 255, 255, 16777215}};
  for (const row& r : rows) {
    EXPECT_EQ(wrgb(r.r, r.g, r.b), r.value);
    int red = -1, green = -1, blue = -1;
    wrgbsplit(r.value, red, green, blue);
    EXPECT_EQ(red, r.r);
    EXPECT_EQ(green, r.g);
    EXPECT_EQ(blue, r.b);
  }
}

// The depth ramp 83 (near) to 95 (far) must fade: each step darker than the last.
TEST(graphics_colour, DepthRampFadesWithDistance) {
  const auto p = standard_palette();
  auto brightness = [](std::int32_t v) {
    int r, g, b;
    wrgbsplit(v, r, g, b);
    return 0.3 * r + 0.59 * g + 0.11 * b;
  };
  for (int n = 84; n <= 95; ++n) EXPECT_LT(brightness(p[n]), brightness(p[n - 1])) << n;
  EXPECT_GT(brightness(p[95]), 40);  // the farthest still shows on a black ground
  EXPECT_EQ(p[0], 0);
  EXPECT_EQ(p[255], wrgb(255, 255, 255));
}

TEST_F(graphics_drawing, ColourByName) {
  struct row {
    const char* name;
    int value;  // -1: an error, the colour stays
  };
  const row rows[] = {{"Black", 0},           {"BLUE", 16711680},  {"blu", 16711680},
                      {"bLaCk", 0},           {"Red", 255},        {"white", 16777215},
                      {"Yellow", 65535},      {"Magenta", 16711935}, {"Cyan", 16776960},
                      {"Grey", wrgb(0, 200, 0)},  // by its first letter only
                      {"Orange", -1},         {"", -1},            {"BL", -1}};
  for (const row& r : rows) {
    igrcolourn(7);
    igrcolour(r.name);
    if (r.value < 0) {
      EXPECT_EQ(winfoerror(1), 1015) << r.name;
      EXPECT_EQ(yyerror_routine(), "IGrColour");
      EXPECT_EQ(current_colour().number, 7) << r.name;
    } else {
      EXPECT_EQ(winfoerror(1), 0) << r.name;
      EXPECT_EQ(current_colour().value, r.value) << r.name;
    }
  }
}

TEST_F(graphics_drawing, ColourNumbersComeFromThePalette) {
  igrpalette(200, wrgb(1, 2, 3));
  igrpalette(10, wrgb(9, 9, 9), 12);
  igrcolourn(200);
  igrjoin(0, 0, 1, 1);
  igrcolourn(256);  // no such number: error, colour stays
  EXPECT_EQ(winfoerror(1), 1015);
  EXPECT_EQ(yyerror_routine(), "IGrColourN");
  igrcolourn(11);
  igrjoin(0, 0, 1, 1);
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_EQ(drawn()[0].colour.number, 200);
  EXPECT_EQ(drawn()[0].colour.value, wrgb(1, 2, 3));
  EXPECT_EQ(drawn()[1].colour.value, wrgb(9, 9, 9));
  EXPECT_EQ(igrstate.irgb256[13], standard_palette()[13]);

  igrstate.icmodel = 2;  // 24-bit model: the value is the colour itself
  igrcolourn(wrgb(5, 6, 7));
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_EQ(current_colour().value, wrgb(5, 6, 7));
}

TEST_F(graphics_drawing, FillPatternRules) {
  struct row {
    int style, density, angle;  // 0: missing
    int ifstyl, ifbord, ifdens, ifangl;
  };
  const row rows[] = {{4, 3, 1, 4, 1, 3, 1}, {-2, 5, 4, 2, 0, 5, 4}, {0, 0, 0, 0, 1, 2, 3},
                      {5, 6, 5, 0, 1, 2, 3}, {-3, 1, 2, 0, 1, 1, 2}, {-1, 0, 0, 1, 0, 2, 3}};
  for (const row& r : rows) {
    if (r.density == 0)
      igrfillpattern(r.style);
    else
      igrfillpattern(r.style, r.density, r.angle);
    EXPECT_EQ(igrstate.ifstyl, r.ifstyl) << r.style;
    EXPECT_EQ(igrstate.ifbord, r.ifbord) << r.style;
    EXPECT_EQ(igrstate.ifdens, r.ifdens) << r.style;
    EXPECT_EQ(igrstate.ifangl, r.ifangl) << r.style;
  }
}

TEST_F(graphics_drawing, LinesFollowThePen) {
  igrunits(0, 0, 10, 5);
  igrlinetype(2);
  igrlinewidth(3);
  igrmoveto(1, 1);
  igrlineto(2, 2);
  igrlineto(3, 1);
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_FLOAT_EQ(drawn()[1].points[0].x, 40);
  EXPECT_FLOAT_EQ(drawn()[1].points[0].y, 60);
  EXPECT_FLOAT_EQ(drawn()[1].points[1].x, 60);
  EXPECT_FLOAT_EQ(drawn()[1].points[1].y, 80);
  EXPECT_EQ(drawn()[1].pen.type, 2);
  EXPECT_EQ(drawn()[1].pen.width, 3);
  EXPECT_FLOAT_EQ(igrstate.xcur, 3);
}

// Style 0 outlines a shape, style 4 fills it and adds an outline only with border.
TEST_F(graphics_drawing, ShapesFillByStyle) {
  igrunits(0, 0, 10, 5);
  igrrectangle(1, 1, 3, 2);
  igrfillpattern(4);
  igrtriangle(0, 0, 1, 0, 0, 1);
  igrfillpattern(-2);  // hatched, no border
  igrcircle(5, 2.5f, 1);
  igrfillpattern(-4);  // out of range: an outline
  igrcircle(5, 2.5f, 1);
  ASSERT_EQ(drawn().size(), 5u);
  EXPECT_EQ(drawn()[0].kind, recorded_kind::polyline);
  EXPECT_EQ(drawn()[0].points.size(), 5u);  // closed on its first corner
  EXPECT_EQ(drawn()[1].kind, recorded_kind::polygon);
  EXPECT_EQ(drawn()[1].fill.style, 4);
  EXPECT_EQ(drawn()[2].kind, recorded_kind::polyline);
  EXPECT_EQ(drawn()[3].kind, recorded_kind::circle);
  EXPECT_TRUE(drawn()[3].filled);
  EXPECT_FALSE(drawn()[3].outlined);
  EXPECT_EQ(drawn()[3].fill.style, 2);
  EXPECT_FLOAT_EQ(drawn()[3].radius, 20);  // 1 x unit is 20 pixels
  EXPECT_FALSE(drawn()[4].filled);
  EXPECT_TRUE(drawn()[4].outlined);
}

TEST_F(graphics_drawing, ShadedPolygonBlendsCornerColours) {
  igrpalette(1, wrgb(0, 0, 0));
  igrpalette(2, wrgb(240, 0, 0));
  const float x[3] = {0, 1, 0};
  const float y[3] = {0, 0, 1};
  const int colours[3] = {1, 2, 1};
  igrpolygonshaded(x, y, colours, 3);
  ASSERT_FALSE(drawn().empty());
  // Every small triangle carries the red of its centre: red grows with x.
  for (const auto& p : drawn()) {
    int r, g, b;
    wrgbsplit(p.colour.value, r, g, b);
    const float cx = (p.points[0].x + p.points[1].x + p.points[2].x) / 3 / 200;
    EXPECT_NEAR(r, 240 * cx, 1.0);
  }
}

TEST_F(graphics_drawing, TextTakesSizeAlignmentAndTrim) {
  igrarea(0, 0, 0.5f, 1);
  wgrtextfont(103, 3, 0.04f, 0.1f);
  wgrtextorientation(2, 90);
  igrcolour("Blue");
  wgrtextstring(0.5f, 0.6f, "Quelmora   ");
  wgrtextfont(std::nullopt, 2);  // width and height stay
  wgrtextreal(0.5f, 0.5f, -0.25f, "(F6.2)");
  wgrtextreal(0.5f, 0.5f, 1, "(Q6)");
  EXPECT_EQ(winfoerror(1), 1015);
  ASSERT_EQ(drawn().size(), 2u);
  const auto& t = drawn()[0];
  EXPECT_EQ(t.text, "Quelmora");
  EXPECT_FLOAT_EQ(t.points[0].x, 50);
  EXPECT_FLOAT_EQ(t.points[0].y, 40);
  EXPECT_FLOAT_EQ(t.text_style.char_width, 4);    // 0.04 of 100 pixels
  EXPECT_FLOAT_EQ(t.text_style.char_height, 10);  // 0.1 of 100 pixels
  EXPECT_EQ(t.text_style.alignment, 2);
  EXPECT_FLOAT_EQ(t.text_style.angle, 90);
  EXPECT_EQ(t.text_style.style, 3);
  EXPECT_EQ(t.colour.value, wrgb(0, 0, 255));
  EXPECT_EQ(drawn()[1].text, "-0.25");
  EXPECT_EQ(drawn()[1].text_style.style, 2);
  EXPECT_FLOAT_EQ(drawn()[1].text_style.char_width, 4);
  EXPECT_FLOAT_EQ(wgrtextlength("abc  "), 3);
}

// Drawing into a bitmap, then copying it to the window, shows the bitmap's
// contents in the window's record at the place it was put.
TEST_F(graphics_drawing, BitmapsTakeDrawingAndCopyBack) {
  int bitmap = 0;
  wbitmapget(bitmap, 0);
  ASSERT_GT(bitmap, 0);
  igrselect(igr_bitmap, bitmap);
  EXPECT_EQ(igrstate.nxgraf, 200);
  igrunits(0, 0, 10, 5);
  igrjoin(0, 0, 10, 5);
  EXPECT_TRUE(drawn().empty());
  igrselect(igr_window);
  wbitmapput(bitmap, 0, 0);
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_EQ(drawn()[0].kind, recorded_kind::bitmap);
  EXPECT_EQ(drawn()[0].handle, bitmap);
  EXPECT_EQ(drawn()[1].kind, recorded_kind::polyline);
  EXPECT_FLOAT_EQ(drawn()[1].points[1].x, 200);

  igrselect(igr_bitmap, bitmap);
  wbitmapdestroy(bitmap);
  EXPECT_EQ(igrstate.itarg, igr_window);  // the bitmap's drawing falls back to the window
  wbitmapput(bitmap, 0, 0);
  EXPECT_EQ(winfoerror(1), 1003);
  igrselect(7, 1);
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_EQ(igrstate.itarg, igr_window);
}

TEST_F(graphics_drawing, NothingAttachedDrawsNothingAndKeepsState) {
  attach_target(igr_window, 0, nullptr);
  igrjoin(0, 0, 1, 1);
  igrareaclear();
  wgrtextstring(0.5f, 0.5f, "x");
  windowclear();
  int bitmap = 5;
  wbitmapget(bitmap, 0);
  EXPECT_EQ(bitmap, 0);
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_FLOAT_EQ(igrstate.xcur, 1);
  EXPECT_TRUE(drawn().empty());
}

TEST(number_format, FortranEditDescriptors) {
  struct row {
    const char* format;
    double value;
    const char* text;
  };
  const row rows[] = {
      {"(F9.1)", 0.5, "      0.5"},   {"(F9.2)", -0.5, "    -0.50"}, {"F4.2", -0.5, "-.50"},
      {"(F3.2)", 12.3, "***"},        {"(f6.3)", 1.0005, " 1.000"},  {"(F5.1)", -0.04, "  0.0"},
      {"(I9)", 2.5, "        3"},     {"(I2)", -150, "**"},          {"(i3)", -7, " -7"},
      {"(E9.2)", 1.5e-6, " 0.15E-05"}, {"(E9.2)", -1.5e-6, "-0.15E-05"}, {"(E8.2)", -1.5e-6, "-.15E-05"},
      {"(E10.3)", 123456, " 0.123E+06"}, {"(E8.1)", 0, " 0.0E+00"}, {"(E9.2)", 0.996, " 0.10E+01"},
  };
  for (const row& r : rows) {
    std::string text;
    EXPECT_TRUE(format_real(r.value, r.format, text)) << r.format;
    EXPECT_EQ(text, r.text) << r.format << " " << r.value;
  }
  std::string text;
  for (const char* bad : {"", "(X5)", "(F)", "(F9)", "(F9.2x)", "(I3.1)"}) EXPECT_FALSE(format_real(1, bad, text)) << bad;
}
