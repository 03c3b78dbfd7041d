// The presentation plot's set-up and frame: sets, layers, units, areas,
// styles, scales, labels and the key.
#include <cmath>
#include <string>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_key.h"
#include "toolkit/plots/plot_scales.h"

using plot_frame = recorded_plot;

namespace {

std::vector<std::string> texts_of(const std::vector<recorded_primitive>& drawn) {
  std::vector<std::string> out;
  for (const auto& p : drawn)
    if (p.kind == recorded_kind::text) out.push_back(p.text);
  return out;
}

}  // namespace

TEST_F(plot_frame, NewPlotClampsSetsAndDecodesTheLayerWord) {
  struct row {
    int igtype, nsets, nval1, nval2, layer;
    std::array<int, 4> shape;        // igtype, npset, npval1, npval2
    std::array<int, 8> layers;       // laydim, layfil, laycol, layhgt, laygrd, laylab, layshd, bplot3d
  };
  const row rows[] = {{8, 600, 30, 40, 0, {8, 500, 30, 40}, {0, 0, 0, 0, 0, 0, 0, 0}},
                      {8, 0, 1, 0, 8, {8, 1, 2, 2}, {0, 1, 0, 0, 0, 0, 0, 0}},  // grid types need 2 values each way
                      {8, 3, 5, 9, 33, {8, 3, 5, 9}, {1, 0, 0, 1, 0, 0, 0, 1}},
                      {0, -4, 0, 9, 16, {4, 1, 1, 9}, {0, 0, 3, 0, 0, 0, 0, 0}},  // unknown types become 4
                      {12, 2, 10, 9, 16 + 4, {4, 2, 10, 9}, {0, 0, 1, 0, 0, 0, 0, 0}},
                      {8, 2, 10, 20, 16 + 256, {8, 2, 10, 20}, {0, 0, 2, 0, 0, 0, 0, 0}},
                      {8, 2, 10, 20, 512, {8, 2, 10, 20}, {0, 0, 0, 0, 1, 1, 0, 0}},
                      {8, 2, 10, 20, 512 + 2048, {8, 2, 10, 20}, {0, 0, 0, 0, 1, 2, 1, 0}}};
  for (const row& r : rows) {
    const int nvals[2] = {r.nval1, r.nval2};
    ipgnewplot2(r.igtype, r.nsets, nvals, r.layer);
    const auto& s = ipgstate;
    EXPECT_EQ((std::array{s.igtype, s.npset, s.npval1, s.npval2}), r.shape) << r.igtype << " " << r.nsets;
    EXPECT_EQ((std::array{s.laydim, s.layfil, s.laycol, s.layhgt, s.laygrd, s.laylab, s.layshd, int(s.bplot3d)}), r.layers)
        << r.layer;
  }
  // A three-dimensional grid layout splits the base by the grid's proportions.
  const int tall[2] = {10, 20}, wide[2] = {30, 10};
  ipgnewplot2(8, 2, tall, 1 + 512);
  EXPECT_FLOAT_EQ(ipgstate.skew3d, 0.25f);
  ipgnewplot2(8, 2, wide, 1 + 512);
  EXPECT_FLOAT_EQ(ipgstate.skew3d, 1 - 0.5f * 10 / 30);
  EXPECT_FLOAT_EQ(ipgstate.hb3d, 0.6f / 30);
}

// Units keep their direction but refuse empty ranges (and z may not run
// backwards); plot units map into the plot area of the graphics units.
TEST_F(plot_frame, UnitsAreasAndConversion) {
  ipgunits(10, -1, 2, 3);
  EXPECT_EQ((std::array{ipgstate.xplen, ipgstate.xplow, ipgstate.xphigh}), (std::array{-8.f, 2.f, 10.f}));
  for (float bad : {5.f, std::nanf("")}) {
    ipgunits(5, 1, bad, 2);
    EXPECT_EQ(winfoerror(1), 16);
    EXPECT_EQ((std::array{ipgstate.xpmin, ipgstate.xpmax, ipgstate.ypmax}), (std::array{0.f, 1.f, 2.f}));
  }
  for (const auto& [low, high, error] : {std::tuple{3.f, 3.f, 16}, {4, -2, 16}, {-2, 4, 0}}) {
    ipgunitsz(low, high);
    EXPECT_EQ(winfoerror(1), error) << low << " " << high;
  }
  EXPECT_FLOAT_EQ(ipgstate.zplen, 6);
  ipgarea(0.1f, 0.2f, 0.6f, 0.7f);
  ipgarea(-1, 1.0f, 1.5f, 0.7f);  // only the last value is in range
  EXPECT_EQ((std::array{ipgstate.xpgamn, ipgstate.ypgamn, ipgstate.xpgamx, ipgstate.ypgamx}), (std::array{0.1f, 0.2f, 0.6f, 0.7f}));
  ipgkeyarea(0.5f, 0.1f, 0.5f, 0.9f);
  EXPECT_EQ((std::array{ipgstate.xpgkmn, ipgstate.xpgkmx, ipgstate.ypgkmn, ipgstate.ypgkmx}), (std::array{1.f, 0.f, 1.f, 0.f}));
  ipgxlabelpos(1.5f);
  ipgylabelpos(-0.2f);
  EXPECT_EQ(ipgstate.rlabpos[0], 1.0f);
  EXPECT_EQ(ipgstate.rlabpos[1], 0.0f);
  igrunits(0, 0, 200, 100);
  ipgunits(10, 0, 0, 5);  // x runs backwards
  float gx = 0, gy = 0, x = 0, y = 0;
  ipgunitstogrunits(2.5f, 5, gx, gy);
  EXPECT_EQ(std::pair(gx, gy), std::pair(95.f, 70.f));
  ipgunitsfromgrunits(95, 70, x, y);
  EXPECT_NEAR(x, 2.5f, 1e-5);
  EXPECT_NEAR(y, 5, 1e-5);
}

TEST_F(plot_frame, StylesAndUserScales) {
  ipgstyle(3, 1, 0, 0, 200, 201, 2);
  ipgstyle(3, std::nullopt, std::nullopt, 5, std::nullopt, std::nullopt, -1);
  ipgstyle(501, 9);  // no such set: ignored
  ipgstyle(0, 9);
  EXPECT_EQ(ipgstate.ipgstyl[3], (std::array{1, 0, 5}));
  EXPECT_EQ(ipgstate.ipgthick[3], 2);
  const float values[5] = {3, -1, 2, 2, 0.5f};
  ipgxuserscale(values, 5);
  EXPECT_EQ(ipgstate.userscalex, (std::vector<float>{-1, 0.5f, 2, 2, 3}));
  ipgxuserscale(values, 0);
  EXPECT_EQ(ipgstate.iuslen[0], 0);
}

TEST(plot_scales, AutomaticTicks) {
  struct row {
    float low, high;
    bool z_axis;
    float first, step;
    int count, exponent;
  };
  const row rows[] = {
      {0, 10, false, 0, 1, 11, 1},               {-0.93f, 0.2f, false, -0.9f, 0.1f, 12, 0},
      {0.45f, 1.35f, false, 0.5f, 0.1f, 9, -1},  {0, 5, false, 0, 0.5f, 11, 0},
      {-250, -20, false, -240, 20, 12, 2},       {0, 0.003f, false, 0, 0.0005f, 7, -3},
      {0, 1, true, 0, 0.2f, 6, 0},               {1e6f, 3e6f, false, 1e6f, 2e5f, 11, 6},
      // In single precision 1.05 - 0.05 falls just below 1: one decade lower.
      {0.05f, 1.05f, false, 0.1f, 0.1f, 10, -1},
  };
  for (const row& r : rows) {
    const scale_ticks t = yypgautoscale(r.low, r.high, r.z_axis);
    EXPECT_NEAR(t.first, r.first, 1e-4 * std::fabs(r.step)) << r.low << ".." << r.high;
    EXPECT_NEAR(t.step, r.step, 1e-6 * std::fabs(r.step)) << r.low << ".." << r.high;
    EXPECT_EQ(std::pair(t.count, t.exponent), std::pair(r.count, r.exponent)) << r.low << ".." << r.high;
  }
}

TEST(plot_scales, NumberTexts) {
  struct row {
    float value;
    int exponent, ndecpl;
    const char* text;
  };
  const row rows[] = {
      {-0.5f, 0, -1, "-.5"},  {1.0f, 0, -1, "1"},      {0, 0, -1, "0"},         {0.05f, -1, -1, ".05"},
      {1e-7f, 0, -1, "0"},    {-240, 2, -1, "-240"},   {0.0005f, -3, -1, ".0005"}, {2e5f, 6, -1, ".2E+06"},
      {3e-6f, -6, -1, ".3E-05"}, {2.0f, 3, 1, "2.0"},  {0.5f, 0, 2, ".50"},     {12.0f, 1, 0, "12"},
  };
  for (const row& r : rows) {
    ipgstate.ndecpl = r.ndecpl;
    EXPECT_EQ(yypgrealtostring(r.value, r.exponent), r.text) << r.value << " e" << r.exponent;
  }
  ipgstate.ndecpl = -1;
}

TEST_F(plot_frame, YScaleNumbersEndAtTheTicksAndUserScale) {
  ipgarea(0.2f, 0.1f, 0.9f, 0.9f);
  ipgunits(0, -250, 1, -20);
  ipgyscaleleft("TN");
  const auto texts = texts_of(drawn());
  ASSERT_EQ(texts.size(), 12u);
  EXPECT_EQ(texts.back(), "-20");
  for (const auto* p : drawn_of(recorded_kind::text)) EXPECT_LT(p->points[0].x, 80);  // left of the plot's edge
  screen.forget();
  const float user[3] = {-30, -200, 999};  // 999 lies outside the axis
  ipgyuserscale(user, 3);
  ipgyscaleleft("N");
  EXPECT_EQ(texts_of(drawn()), (std::vector<std::string>{"-200", "-30"}));
}

// Labels and title stand in the gaps around the plot and leave the text state
// as it was; a label wider than the plot is drawn smaller, never larger.
TEST_F(plot_frame, LabelsAndTitleKeepTheTextState) {
  ipgarea(0.2f, 0.2f, 0.8f, 0.8f);
  wgrtextfont(101, 0, 0.02f, 0.04f);
  const int alignment = igrstate.ichali;
  ipgxlabelpos(0.65f);
  ipgxlabel("x/a", "");
  ipgylabelleft("y/b", "9");
  ipgtitle("Title", "L");
  ipgxlabel("   ", "");
  ipgarea(0.4f, 0.2f, 0.6f, 0.8f);    // 80 pixels wide, 8 pixels a character
  ipgxlabel("abcdefghijklmnopqrst");  // 160 pixels at this size
  const auto& d = drawn();
  ASSERT_EQ(d.size(), 4u);
  // x label centred under the plot, 0.65 of the gap up; y label turned along
  // the left edge; title left aligned, half way up the top gap.
  const float want[3][3] = {{200, 400 - 0.65f * 80, 0}, {0.8f * 80, 200, 90}, {80, 40, 0}};
  for (int k = 0; k < 3; ++k) {
    EXPECT_NEAR(d[k].points[0].x, want[k][0], 1e-3) << d[k].text;
    EXPECT_NEAR(d[k].points[0].y, want[k][1], 1e-3) << d[k].text;
    EXPECT_FLOAT_EQ(d[k].text_style.angle, want[k][2]) << d[k].text;
  }
  EXPECT_EQ(d[2].text_style.alignment, 0);
  EXPECT_NEAR(d[3].text_style.char_width, 4, 1e-4);
  EXPECT_EQ(igrstate.ichali, alignment);
  EXPECT_FLOAT_EQ(igrstate.chrotar, 0);
  EXPECT_FLOAT_EQ(igrstate.chsizx, 0.02f);
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
    for (const auto& q : p.points) EXPECT_TRUE(q.x >= 0.85f * 400 - 1e-3 && q.x <= 0.98f * 400 + 1e-3) << q.x;
    if (p.kind == recorded_kind::polyline) {
      EXPECT_EQ(p.colour.number, 196 + ++rows);
      EXPECT_LT(p.points[0].y, last_y);  // each row above the one before
      last_y = p.points[0].y;
    } else {
      EXPECT_FLOAT_EQ(p.points[0].y, last_y);
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
