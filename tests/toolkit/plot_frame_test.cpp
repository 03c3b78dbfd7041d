#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_key.h"
#include "toolkit/plots/plot_scales.h"

using plot_frame = recorded_plot;

TEST(plot_scales, AutomaticTicks) {
  struct row {
    float low, high;
    bool z_axis;
    float first, step;
    int count, exponent;
  };
  const row rows[] = {
      {0, 1, false, 0, 0.1f, 11, 0},           {0, 10, false, 0, 1, 11, 1},
      {-0.93f, 0.2f, false, -0.9f, 0.1f, 12, 0}, {0.45f, 1.35f, false, 0.5f, 0.1f, 9, -1},
      {0, 5, false, 0, 0.5f, 11, 0},           {-250, -20, false, -240, 20, 12, 2},
      {0, 0.003f, false, 0, 0.0005f, 7, -3},   {0, 1, true, 0, 0.2f, 6, 0},
      {1e6f, 3e6f, false, 1e6f, 2e5f, 11, 6},  {0.25f, 1.25f, false, 0.3f, 0.1f, 10, 0},
      // In single precision 1.05 - 0.05 falls just below 1: one decade lower.
      {0.05f, 1.05f, false, 0.1f, 0.1f, 10, -1},
  };
  for (const row& r : rows) {
    const scale_ticks t = yypgautoscale(r.low, r.high, r.z_axis);
    EXPECT_NEAR(t.first, r.first, 1e-4 * std::fabs(r.step)) << r.low << ".." << r.high;
    EXPECT_NEAR(t.step, r.step, 1e-6 * std::fabs(r.step)) << r.low << ".." << r.high;
    EXPECT_EQ(t.count, r.count) << r.low << ".." << r.high;
    EXPECT_EQ(t.exponent, r.exponent) << r.low << ".." << r.high;
  }
}

TEST(plot_scales, NumberTexts) {
  struct row {
    float value;
    int exponent, ndecpl;
    const char* text;
  };
  const row rows[] = {
      {0.5f, 0, -1, ".5"},      {-0.5f, 0, -1, "-.5"},     {1.0f, 0, -1, "1"},       {0, 0, -1, "0"},
      {1.5f, 0, -1, "1.5"},     {0.05f, -1, -1, ".05"},    {-0.9f, 0, -1, "-.9"},    {1e-7f, 0, -1, "0"},
      {20, 2, -1, "20"},        {-240, 2, -1, "-240"},     {0.0005f, -3, -1, ".0005"}, {2e5f, 6, -1, ".2E+06"},
      {3e-6f, -6, -1, ".3E-05"}, {1.0f, 0, 1, "1.0"},     {2.0f, 3, 1, "2.0"},      {0.5f, 0, 2, ".50"},
      {-10, 1, -1, "-10"},      {12.0f, 1, 0, "12"},
  };
  for (const row& r : rows) {
    ipgstate.ndecpl = r.ndecpl;
    EXPECT_EQ(yypgrealtostring(r.value, r.exponent), r.text) << r.value << " e" << r.exponent;
  }
  ipgstate.ndecpl = -1;
}

TEST_F(plot_frame, BorderIsOneClosedLine) {
  ipgarea(0.25f, 0.5f, 0.75f, 1.0f);
  ipgborder();
  ASSERT_EQ(drawn().size(), 1u);
  const auto& p = drawn()[0].points;
  ASSERT_EQ(p.size(), 5u);
  EXPECT_FLOAT_EQ(p[0].x, 100);
  EXPECT_FLOAT_EQ(p[0].y, 200);
  EXPECT_FLOAT_EQ(p[2].x, 300);
  EXPECT_FLOAT_EQ(p[2].y, 0);
  EXPECT_FLOAT_EQ(p[4].x, p[0].x);
  EXPECT_FLOAT_EQ(p[4].y, p[0].y);
}

std::vector<std::string> texts_of(const std::vector<recorded_primitive>& drawn) {
  std::vector<std::string> out;
  for (const auto& p : drawn)
    if (p.kind == recorded_kind::text) out.push_back(p.text);
  return out;
}

// Ticks and numbers of the x scale of 0..1, also when the axis runs backwards:
// the numbers then stand from right to left.
TEST_F(plot_frame, XScaleTicksAndNumbers) {
  ipgarea(0.1f, 0.2f, 0.9f, 0.8f);
  for (bool backwards : {false, true}) {
    screen.forget();
    if (backwards)
      ipgunits(1, 0, 0, 1);
    else
      ipgunits(0, 0, 1, 1);
    ipgxscale("TN");
    const std::vector<std::string> want = {"0", ".1", ".2", ".3", ".4", ".5", ".6", ".7", ".8", ".9", "1"};
    EXPECT_EQ(texts_of(drawn()), want);
    int ticks = 0;
    for (const auto& p : drawn()) {
      if (p.kind == recorded_kind::polyline) {
        ++ticks;
        EXPECT_FLOAT_EQ(p.points[0].y - p.points[1].y, 0.6f * 400 / 80);  // outward by height / 80
        EXPECT_FLOAT_EQ(p.points[1].y, 320);                            // from the lower edge
      }
      if (p.kind == recorded_kind::text) {
        const float value = p.text == "0" ? 0 : std::stof(p.text);
        const float x = 40 + 320 * (backwards ? 1 - value : value);
        EXPECT_NEAR(p.points[0].x, x, 1e-3) << p.text;
        EXPECT_EQ(p.text_style.alignment, 1);
      }
    }
    EXPECT_EQ(ticks, 11);
  }
  screen.forget();
  ipgxscale(" ");
  ipgxscale("T");
  EXPECT_TRUE(texts_of(drawn()).empty());
  EXPECT_EQ(drawn().size(), 11u);
}

TEST_F(plot_frame, YScaleNumbersEndAtTheTicksAndUserScale) {
  ipgarea(0.2f, 0.1f, 0.9f, 0.9f);
  ipgunits(0, -250, 1, -20);
  ipgyscaleleft("TN");
  const auto texts = texts_of(drawn());
  ASSERT_EQ(texts.size(), 12u);
  EXPECT_EQ(texts.front(), "-240");
  EXPECT_EQ(texts.back(), "-20");
  for (const auto& p : drawn())
    if (p.kind == recorded_kind::text) {
      EXPECT_EQ(p.text_style.alignment, 2);
      EXPECT_LT(p.points[0].x, 80);  // left of the plot's edge
    }
  screen.forget();
  const float user[3] = {-30, -200, 999};  // 999 lies outside the axis
  ipgyuserscale(user, 3);
  ipgyscaleleft("N");
  EXPECT_EQ(texts_of(drawn()), (std::vector<std::string>{"-200", "-30"}));
}

TEST_F(plot_frame, LabelsAndTitleKeepTheTextState) {
  ipgarea(0.2f, 0.2f, 0.8f, 0.8f);
  wgrtextfont(101, 0, 0.02f, 0.04f);
  wgrtextorientation(0, 0);
  ipgxlabelpos(0.65f);
  ipgxlabel("x/a", "");
  ipgylabelleft("y/b", "9");
  ipgtitle("Title", "L");
  ipgxlabel("   ", "");
  const auto& d = drawn();
  ASSERT_EQ(d.size(), 3u);
  // x label: centred under the plot, 0.65 of the gap up from the bottom edge.
  EXPECT_FLOAT_EQ(d[0].points[0].x, 200);
  EXPECT_NEAR(d[0].points[0].y, 400 - 0.65 * 80, 1e-3);
  EXPECT_EQ(d[0].text_style.alignment, 1);
  // y label: turned, centred along the left edge.
  EXPECT_FLOAT_EQ(d[1].text_style.angle, 90);
  EXPECT_FLOAT_EQ(d[1].points[0].y, 200);
  EXPECT_NEAR(d[1].points[0].x, 0.8 * 80, 1e-3);
  // title: left aligned at the plot's left edge, half way up the top gap.
  EXPECT_EQ(d[2].text_style.alignment, 0);
  EXPECT_FLOAT_EQ(d[2].points[0].x, 80);
  EXPECT_NEAR(d[2].points[0].y, 40, 1e-3);
  EXPECT_EQ(igrstate.ichali, 0);
  EXPECT_FLOAT_EQ(igrstate.chrotar, 0);
  EXPECT_FLOAT_EQ(igrstate.chsizx, 0.02f);
}

// A label wider than the plot is drawn smaller, never larger.
TEST_F(plot_frame, WideLabelShrinks) {
  ipgarea(0.4f, 0.2f, 0.6f, 0.8f);  // 80 pixels wide
  wgrtextfont(101, 0, 0.02f, 0.04f);  // 8 pixels a character
  ipgxlabel("abcdefghijklmnopqrst");  // 160 pixels at this size
  ipgxlabel("abc");
  ASSERT_EQ(drawn().size(), 2u);
  EXPECT_NEAR(drawn()[0].text_style.char_width, 4, 1e-4);
  EXPECT_NEAR(drawn()[0].text_style.char_height, 8, 1e-4);
  EXPECT_FLOAT_EQ(drawn()[1].text_style.char_width, 8);
}

// The key of three contour sets with option "R": set 1 at the bottom, each
// row a sample line in its set's colour and the text after it, all inside
// the key area.
TEST_F(plot_frame, KeyRowsFromTheBottom) {
  const int nvals[2] = {5, 5};
  ipgnewplot2(8, 3, nvals);
  for (int L = 1; L <= 3; ++L) ipgstyle(L, 0, 0, 0, 196 + L, 0);
  ipgkeyarea(0.85f, 0.1f, 0.98f, 0.9f);
  const std::vector<std::string> texts = {"   -1.000     ", "    0.000     ", "    1.000     "};
  ipgkeyall(texts, "R");
  float last_y = 1e9;
  int rows = 0;
  for (const auto& p : drawn()) {
    for (const auto& q : p.points) {
      EXPECT_GE(q.x, 0.85f * 400 - 1e-3);
      EXPECT_LE(q.x, 0.98f * 400 + 1e-3);
    }
    if (p.kind == recorded_kind::polyline) {
      ++rows;
      EXPECT_EQ(p.colour.number, 196 + rows);
      EXPECT_LT(p.points[0].y, last_y);  // each row above the one before
      last_y = p.points[0].y;
    }
    if (p.kind == recorded_kind::text) {
      EXPECT_FLOAT_EQ(p.points[0].y, last_y);
      EXPECT_EQ(p.text_style.alignment, 0);
    }
  }
  EXPECT_EQ(rows, 3);
  // Trailing blanks are dropped, leading ones are part of the text.
  EXPECT_EQ(texts_of(drawn()), (std::vector<std::string>{"   -1.000", "    0.000", "    1.000"}));
  screen.forget();
  ipgkeyarea(1, 0, 0, 1);  // no key area: nothing
  ipgkeyall(texts, "R");
  EXPECT_TRUE(drawn().empty());
}

// The road of a redraw: everything goes into a bitmap, which is copied to the
// window in one step. A flat section makes all levels equal: the contours
// report error 43 and draw nothing, the frame is drawn all the same.
TEST_F(plot_frame, RedrawThroughABitmap) {
  struct row {
    bool flat;
    int error;
  };
  for (const row r : {row{false, 0}, row{true, 43}}) {
    screen.forget();
    int bitmap = 0;
    wbitmapget(bitmap, 0);
    igrselect(igr_bitmap, bitmap);
    igrareaclear();
    std::vector<float> z(25);
    for (int k = 0; k < 25; ++k) z[k] = r.flat ? 2.0f : static_cast<float>(k % 5 + k / 5);
    const float low = r.flat ? 2.0f : 0.0f, high = r.flat ? 2.0f : 8.0f;
    std::vector<float> levels;
    for (int L = 1; L <= 3; ++L) levels.push_back(static_cast<float>(L) * (high - low) / 4 + low);
    ipgarea(0.2f, 0.2f, 0.8f, 0.8f);
    const int nvals[2] = {5, 5};
    ipgnewplot2(8, 3, nvals);
    for (int L = 1; L <= 3; ++L) ipgstyle(L, 0, 0, 0, 196 + L, 0);
    ipgunits(0, 0, 1, 1);
    ipgcontour2(z, 5, 5, levels);
    EXPECT_EQ(winfoerror(1), r.error);
    igrcolourn(120);
    ipgborder();
    ipgxscale("TN");
    ipgyscaleleft("TN");
    ipgxlabel("x/a");
    ipgylabelleft("y/b", "9");
    EXPECT_TRUE(drawn().empty());  // nothing reached the window yet
    igrselect(igr_window);
    wbitmapput(bitmap, 0, 0);
    wbitmapdestroy(bitmap);
    ASSERT_FALSE(drawn().empty());
    EXPECT_EQ(drawn()[0].kind, recorded_kind::bitmap);
    int level_lines = 0;
    for (const auto& p : drawn())
      if (p.kind == recorded_kind::polyline && p.colour.number >= 197 && p.colour.number <= 199) ++level_lines;
    EXPECT_EQ(level_lines, r.flat ? 0 : 3);
    const auto texts = texts_of(drawn());
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "x/a"), 1);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), ".5"), 2);  // on both scales
  }
}
