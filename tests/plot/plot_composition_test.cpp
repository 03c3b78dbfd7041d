// One picture at a time: skewed sections of a monoclinic cell, sums of
// layers, the level ranges, the plot area's proportions, the legend's room
// and the state line.
#include <cmath>

#include "plot/draw_plot_pg.h"
#include "plot/message_bar.h"
#include "tests/plot/plot_fixture.h"
#include "toolkit/core/werror.h"

namespace {

// Draws one picture as the plot window does: into a bitmap of the window.
void draw_once() {
  wbitmapget(qp::ibmp1, 0);
  draw_plot_pg();
}

bool near(plot_point a, plot_point b) { return std::fabs(a.x - b.x) <= 0.06f && std::fabs(a.y - b.y) <= 0.06f; }

// Whether a polygon has the three corners, in any order, within about 3 pixels.
bool is_triangle(const recorded_primitive& p, const std::vector<plot_point>& corners) {
  return std::all_of(corners.begin(), corners.end(), [&](const plot_point& c) {
    return std::any_of(p.points.begin(), p.points.end(),
                       [&](const pixel_point& px) { return near(PlotWindow::in_plot_units(px), c); });
  });
}

// Monoclinic, beta = 110 degrees: family 3 (z across, x up) is skewed. With c
// along Z and a* along X, a is (a sin beta, 0, a cos beta) = (5.63816, 0,
// -2.05212) and c is (0, 0, 8); the section's corners (Z, X) are then
// (0, 0), (-2.05212, 5.63816), (5.94788, 5.63816), (8, 0).
TEST_F(PlotWindow, MonoclinicFamilyThreeIsSkewedWithItsOverhangBlanked) {
  make_map({6.0f, 7.0f, 8.0f}, {90.0f, 110.0f, 90.0f}, {12, 14, 16}, [](int i, int j, int k) {
    return static_cast<float>(std::cos(6.2831853 * (i - 1) / 12.0) * std::cos(6.2831853 * (k - 1) / 16.0) +
                              0.1 * j);
  });
  qp::imap = 3;
  draw_once();
  const std::vector<plot_point> corners = {{0.0f, 0.0f}, {-2.05212f, 5.63816f}, {5.94788f, 5.63816f}, {8.0f, 0.0f}};
  for (std::size_t i = 0; i < 8; ++i)
    EXPECT_NEAR(qp::EDGE[i], i % 2 ? corners[i / 2].y : corners[i / 2].x, 1e-4f) << i;
  // The resampled grid: 2 nu - 1 by 2 nv - 1, nu = 17 along z, nv = 13 along x.
  EXPECT_EQ(qp::NVALUE, (std::array<std::int32_t, 2>{33, 25}));

  // The frame is the parallelogram in the foreground colour, drawn after the
  // overhang: left of side 1-2 and right of side 3-4, blanked in the
  // background colour after the contours.
  const auto picture = last_picture();
  std::size_t first_blank = picture.size(), last_contour = 0, frame = 0;
  int blanks = 0, frames = 0, outlines = 0, down = 0, left = 0;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const auto& p = picture[i];
    if (p.kind == recorded_kind::polyline && p.colour.number >= 197) last_contour = i;
    if (p.kind == recorded_kind::polygon && p.colour.number == 0 && p.fill.style == 4) {
      first_blank = std::min(first_blank, i);
      blanks += is_triangle(p, {corners[0], corners[1], {-2.05212f, 0.0f}}) ||
                is_triangle(p, {corners[2], corners[3], {8.0f, 5.63816f}});
    }
    if (p.kind != recorded_kind::polyline || p.colour.number != 120) continue;
    if (p.points.size() == 5) {
      frame = i;
      ++outlines;
      frames += is_triangle(p, corners) && near(in_plot_units(p.points[0]), corners[0]);
    }
    // Eleven ticks of 4 pixels from corner 1: down on side 1-4, left on side 1-2.
    const float dx = p.points[1].x - p.points[0].x, dy = p.points[1].y - p.points[0].y;
    down += p.points.size() == 2 && std::fabs(dx) < 1.0f && std::fabs(dy - 4.0f) < 1.0f;
    left += p.points.size() == 2 && std::fabs(dx + 4.0f) < 1.0f && std::fabs(dy) < 1.0f;
  }
  EXPECT_EQ(blanks, 2);
  EXPECT_EQ(frames, 1);
  EXPECT_EQ(outlines, 1);
  EXPECT_LT(last_contour, first_blank);
  EXPECT_LT(first_blank, frame);
  EXPECT_EQ(down, 11);
  EXPECT_EQ(left, 11);
  // Labels of family 3 but no scale numbers on a skewed frame.
  EXPECT_EQ(texts(picture), (std::vector<std::string>{"z/c", "x/a"}));
}

// Two ranges summed in positive mode. rho(i, j, k) = (i - 2.5) k on a 4^3
// grid: planes k = 1, 2 (range 0.25 to 0.5) and k = 3 (0.75 to 0.75) are
// added, negative values left out. Column i = 3 sums 0.5 (1 + 2 + 3) = 3,
// i = 4 sums 1.5 x 6 = 9, and i = 1, 2 and the closing i = 5 stay 0.
TEST_F(PlotWindow, SumOfTwoRangesInPositiveMode) {
  make_map({5.0f, 5.0f, 5.0f}, {90.0f, 90.0f, 90.0f}, {4, 4, 4},
           [](int i, int, int k) { return (static_cast<float>(i) - 2.5f) * static_cast<float>(k); });
  qp::boton_add = true;
  qp::nadd = 2;
  qp::xd_add = {{{0.25f, 0.5f}, {0.75f, 0.75f}}};
  qp::sum_all = false;
  qp::sum_positive = true;
  qp::n_contour = 2;
  draw_once();
  const float column[] = {0.0f, 0.0f, 3.0f, 9.0f, 0.0f};
  for (int j = 1; j <= 5; ++j)
    for (int i = 1; i <= 5; ++i) EXPECT_FLOAT_EQ(qp::dmap(i, j), column[i - 1]) << i << " " << j;
  // Levels from the sum's range 0 .. 9: 3 and 6.
  EXPECT_FLOAT_EQ(qp::ZCOL[0], 3.0f);
  EXPECT_FLOAT_EQ(qp::ZCOL[1], 6.0f);
}

// The four ways of choosing the level range; a flat map has its levels all
// equal, which the contour engine refuses with its error 43, and still gets
// its frame.
TEST_F(PlotWindow, LevelRanges) {
  for (const auto& row : data_table("plot/level_ranges.txt", 2)) {
    const auto in = numbers(row[0]), levels = numbers(row[1]);
    make_map({5.0f, 5.0f, 5.0f}, {90.0f, 90.0f, 90.0f}, {4, 4, 4},
             [&](int i, int j, int k) { return in[0] != 0 ? 0.0f : static_cast<float>(i + j + k) - 3.0f; });
    qp::densigma = in[0] != 0 ? 0.0f : 3.0f;
    qp::den_min_show = 1.0f;
    qp::den_max_show = 5.0f;
    qp::dens_min_show = 2.0f;
    qp::dens_max_show = 8.0f;
    qp::n_contour = in[0] != 0 ? 20 : 2;
    qp::ksigma = in[1] != 0;
    qp::klevel = static_cast<std::int32_t>(in[2]);
    qp::boton_tg = static_cast<std::int32_t>(in[3]);
    winfoerror(1);
    draw_once();
    EXPECT_EQ(winfoerror(1), in[0] != 0 ? 43 : 0) << row[0];
    EXPECT_FLOAT_EQ(qp::ZCOL[0], levels[0]) << row[0];
    EXPECT_FLOAT_EQ(qp::ZCOL[1], levels[1]) << row[0];
    EXPECT_EQ(text_count(last_picture(), "x/a"), 1) << row[0];
  }
}

TEST(PlotComposition, PlotAreaKeepsTrueProportions) {
  for (const auto& row : data_table("plot/plot_areas.txt", 2)) {
    const auto in = numbers(row[0]), area = numbers(row[1]);
    const auto a = proportional_plot_area(800.0f, 600.0f, in[0], in[1], in[2] != 0);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(a[i], area[i], 1e-5f) << row[0] << ", corner " << i;
  }
}

TEST_F(PlotWindow, StateLines) {
  qp::ngrid = {48, 32, 10};
  qp::xinc = 1.0f / 48;
  qp::yinc = 0.5f / 32;
  qp::zinc = 0.1f;
  qp::ylim = {0.5f, 1.0f};
  qp::seccion = {5, 33, 1000};
  qp::view_layers = {0.2f, 1.0f};
  qp::plane_a = qp::plane_b = 0.0f;
  qp::plane_c = 1.0f;
  qp::zt = 0.5f;
  qp::xl1 = qp::yl1 = -3.0f;
  for (const auto& row : data_table("plot/state_lines.txt", 2)) {
    const auto in = numbers(row[0]);
    qp::imap = static_cast<std::int32_t>(in[0]);
    qp::boton_add = in[1] != 0;
    qp::plane_def = in[2] != 0;
    EXPECT_EQ(message_bar_line(), row[1]) << row[0];
  }
}

// With the legend the plot moves left and narrows.
TEST_F(PlotWindow, LegendMovesThePlotLeft) {
  load_nacl();
  draw_once();
  const float right_without = ipgstate.xpgamx;
  qp::boton_legend = true;
  draw_once();
  EXPECT_NEAR(ipgstate.xpgamx + 0.05f, right_without, 1e-5f);
}

}  // namespace
