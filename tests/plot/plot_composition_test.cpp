// One picture at a time: skewed sections of a monoclinic cell, sums of
// layers, the level ranges, the plot area's proportions and the state line.
#include <algorithm>
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

bool near(plot_point a, plot_point b, float tolerance) {
  return std::fabs(a.x - b.x) <= tolerance && std::fabs(a.y - b.y) <= tolerance;
}

// Whether a polygon has the three corners, in any order.
bool is_triangle(const recorded_primitive& p, const std::vector<plot_point>& corners, float tolerance) {
  if (p.points.size() < 3) return false;
  for (const plot_point& c : corners) {
    const bool found = std::any_of(p.points.begin(), p.points.end(), [&](const pixel_point& px) {
      return near(PlotWindow::in_plot_units(px), c, tolerance);
    });
    if (!found) return false;
  }
  return true;
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
  ASSERT_EQ(qp::jpg, (std::array<std::int32_t, 3>{0, 0, 1}));
  qp::imap = 3;
  draw_once();

  const float expected_edge[] = {0.0f, 0.0f, -2.05212f, 5.63816f, 5.94788f, 5.63816f, 8.0f, 0.0f};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_NEAR(qp::EDGE[i], expected_edge[i], 1e-4f) << i;
  EXPECT_NEAR(qp::u_min, -2.05212f, 1e-4f);
  EXPECT_NEAR(qp::u_max, 8.0f, 1e-4f);
  EXPECT_NEAR(qp::v_max, 5.63816f, 1e-4f);
  // The resampled grid: 2 nu - 1 by 2 nv - 1, nu = 17 along z, nv = 13 along x.
  EXPECT_EQ(qp::dmap.extent(1), 33);
  EXPECT_EQ(qp::dmap.extent(2), 25);
  EXPECT_EQ(qp::NVALUE, (std::array<std::int32_t, 2>{33, 25}));

  const auto picture = last_picture();
  constexpr float tolerance = 0.06f;  // about 3 pixels
  const std::vector<plot_point> corners = {{0.0f, 0.0f}, {-2.05212f, 5.63816f}, {5.94788f, 5.63816f}, {8.0f, 0.0f}};

  // The frame is the parallelogram, closed at its first corner, in the
  // foreground colour; there is no rectangle of the plain frame.
  int parallelograms = 0, rectangles = 0;
  for (const auto& p : picture) {
    if (p.kind != recorded_kind::polyline || p.colour.number != 120 || p.points.size() != 5) continue;
    bool all = true;
    for (std::size_t c = 0; c < 4; ++c) all = all && near(in_plot_units(p.points[c]), corners[c], tolerance);
    parallelograms += all && near(in_plot_units(p.points[4]), corners[0], tolerance);
    rectangles += !all;
  }
  EXPECT_EQ(parallelograms, 1);
  EXPECT_EQ(rectangles, 0);

  // Corners 1 and 4 lie on one height (code 2): the overhang is left of side
  // 1-2 and right of side 3-4, blanked in the background colour after the
  // contours and before the frame.
  std::size_t first_blank = picture.size(), last_contour = 0, frame = 0;
  int blanks = 0;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const auto& p = picture[i];
    if (p.kind == recorded_kind::polyline && p.colour.number >= 197) last_contour = i;
    if (p.kind == recorded_kind::polyline && p.colour.number == 120 && p.points.size() == 5) frame = i;
    if (p.kind == recorded_kind::polygon && p.colour.number == 0 && p.fill.style == 4) {
      first_blank = std::min(first_blank, i);
      blanks += is_triangle(p, {corners[0], corners[1], {-2.05212f, 0.0f}}, tolerance) ||
                is_triangle(p, {corners[2], corners[3], {8.0f, 5.63816f}}, tolerance);
    }
  }
  EXPECT_EQ(blanks, 2);
  EXPECT_LT(last_contour, first_blank);
  EXPECT_LT(first_blank, frame);
  // Eleven ticks of 4 pixels along each side from corner 1: downward on the
  // lower side 1-4, leftward on the slanted side 1-2.
  int down = 0, left = 0;
  for (const auto& p : picture) {
    if (p.kind != recorded_kind::polyline || p.colour.number != 120 || p.points.size() != 2) continue;
    const float dx = p.points[1].x - p.points[0].x, dy = p.points[1].y - p.points[0].y;
    down += std::fabs(dx) < 1.0f && std::fabs(dy - 4.0f) < 1.0f;
    left += std::fabs(dx + 4.0f) < 1.0f && std::fabs(dy) < 1.0f;
  }
  EXPECT_EQ(down, 11);
  EXPECT_EQ(left, 11);
  // Labels of family 3 but no scale numbers on a skewed frame.
  auto t = texts(picture);
  std::sort(t.begin(), t.end());
  EXPECT_EQ(t, (std::vector<std::string>{"x/a", "z/c"}));
}

// Families 1 and 2 of the same cell stay plain: rectangle, scales, no blanking.
TEST_F(PlotWindow, MonoclinicFamiliesOneAndTwoArePlain) {
  make_map({6.0f, 7.0f, 8.0f}, {90.0f, 110.0f, 90.0f}, {12, 14, 16},
           [](int i, int j, int) { return static_cast<float>(i * j); });
  for (int family : {1, 2}) {
    qp::imap = family;
    draw_once();
    const auto picture = last_picture();
    EXPECT_EQ(count(picture, recorded_kind::polygon, 0, 0), 0u) << family;
    const auto t = texts(picture);
    EXPECT_GE(std::count(t.begin(), t.end(), ".5"), 1) << family;
    EXPECT_EQ(qp::dmap.extent(1), qp::ngrid[family == 1 ? 0 : 1] + 1);
  }
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
  qp::view_layers = {0.25f, 0.75f};
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
  EXPECT_EQ(status_text(1), " Add Layers Z            0.2500 <-> 0.7500");
}

// The four ways of choosing the level range.
TEST_F(PlotWindow, LevelRanges) {
  make_map({5.0f, 5.0f, 5.0f}, {90.0f, 90.0f, 90.0f}, {4, 4, 4},
           [](int i, int j, int k) { return static_cast<float>(i + j + k) - 3.0f; });  // 0 .. 9
  qp::densigma = 3.0f;
  qp::den_min_show = 1.0f;
  qp::den_max_show = 5.0f;
  qp::dens_min_show = 2.0f;
  qp::dens_max_show = 8.0f;
  qp::n_contour = 2;
  struct row {
    bool ksigma;
    std::int32_t klevel;
    float first, second;
  };
  const row rows[] = {
      {false, 0, 3.0f, 6.0f},              // the map's 0 .. 9
      {false, 1, 1.0f + 4.0f / 3, 1.0f + 8.0f / 3},  // 1 .. 5
      {true, 1, 4.0f, 6.0f},               // 2 .. 8
      {true, 0, 1.0f, 2.0f},               // 0 .. 9 over sigma 3
  };
  for (const row& r : rows) {
    qp::ksigma = r.ksigma;
    qp::klevel = r.klevel;
    draw_once();
    EXPECT_FLOAT_EQ(qp::ZCOL[0], r.first) << r.ksigma << r.klevel;
    EXPECT_FLOAT_EQ(qp::ZCOL[1], r.second) << r.ksigma << r.klevel;
  }
}

// A flat map: all levels equal, which the contour engine refuses with its
// error 43, and the frame is drawn all the same. In sigma units with a sigma
// of 0 the levels are not numbers; the picture still gets its frame.
TEST_F(PlotWindow, FlatMapDrawsTheFrame) {
  make_map({5.0f, 5.0f, 5.0f}, {90.0f, 90.0f, 90.0f}, {4, 4, 4}, [](int, int, int) { return 0.0f; });
  qp::densigma = 0.0f;
  for (bool sigma : {false, true}) {
    for (int kind : {1, 2}) {
      qp::ksigma = sigma;
      qp::boton_tg = kind;
      winfoerror(1);
      draw_once();
      const auto picture = last_picture();
      const auto t = texts(picture);
      EXPECT_EQ(std::count(t.begin(), t.end(), "x/a"), 1) << sigma << kind;
      if (sigma) continue;
      EXPECT_EQ(winfoerror(1), 43) << kind;
      EXPECT_EQ(count(picture, recorded_kind::polyline, 197, 216) + count(picture, recorded_kind::polygon, 197, 216),
                0u)
          << kind;
    }
  }
}

TEST(PlotComposition, LevelValuesLieStrictlyInsideTheRange) {
  const auto twenty = level_values(0.0f, 21.0f, 20);
  for (int k = 0; k < 20; ++k) EXPECT_FLOAT_EQ(twenty[static_cast<std::size_t>(k)], static_cast<float>(k + 1));
  const auto one = level_values(-1.0f, 3.0f, 1);
  EXPECT_FLOAT_EQ(one[0], 1.0f);
  EXPECT_FLOAT_EQ(one[1], 0.0f);
}

// W = 800, H = 600. Square 5.64 A: the height (408 px) limits, s = 72.34 px
// per A, half width 0.255. A 10 x 2 A window: the width limits, 600 / 10 =
// 60 px per A without legend, 544 / 10 = 54.4 with.
TEST(PlotComposition, PlotAreaKeepsTrueProportions) {
  struct row {
    float xe, ye;
    bool legend;
    std::array<float, 4> area;
  };
  const row rows[] = {
      {5.64f, 5.64f, false, {0.245f, 0.16f, 0.755f, 0.84f}},
      {5.64f, 5.64f, true, {0.195f, 0.16f, 0.705f, 0.84f}},
      {10.0f, 2.0f, false, {0.125f, 0.4f, 0.875f, 0.6f}},
      {10.0f, 2.0f, true, {0.11f, 0.5f - 0.090667f, 0.79f, 0.5f + 0.090667f}},
      {0.0f, 0.0f, false, {0.125f, 0.16f, 0.875f, 0.84f}},  // no cell: the usable area
  };
  for (const row& r : rows) {
    const auto a = proportional_plot_area(800.0f, 600.0f, r.xe, r.ye, r.legend);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(a[i], r.area[i], 1e-5f) << r.xe << " " << r.legend << " " << i;
  }
}

TEST_F(PlotWindow, StateLines) {
  qp::ngrid = {48, 32, 10};
  qp::xinc = 1.0f / 48;
  qp::yinc = 0.5f / 32;
  qp::zinc = 0.1f;
  qp::ylim = {0.5f, 1.0f};
  qp::seccion = {5, 33, 1000};
  struct row {
    int imap;
    bool add, plane;
    std::string line;
  };
  const row rows[] = {
      {1, false, false, " Layer Z: ***/ 11           Z: 99.9000"},
      {2, false, false, " Layer X:   5/ 49           X:  0.0833"},
      {3, false, false, " Layer Y:  33/ 33           Y:  1.0000"},
      {2, true, false, " Add Layers X            0.2000 <-> 1.0000"},
      {3, false, true, "Plane     0.000X+     0.000Y+     1.000Z      -0.500 = 0"},
  };
  qp::view_layers = {0.2f, 1.0f};
  qp::plane_a = qp::plane_b = 0.0f;
  qp::plane_c = 1.0f;
  qp::zt = 0.5f;
  qp::xl1 = qp::yl1 = -3.0f;
  for (const row& r : rows) {
    qp::imap = r.imap;
    qp::boton_add = r.add;
    qp::plane_def = r.plane;
    EXPECT_EQ(message_bar_line(), r.line) << r.imap;
  }
  EXPECT_FLOAT_EQ(qp::plane_d, -0.5f);
}

// With the legend the plot moves left and narrows; without a map at all the
// picture is still drawn, empty of levels.
TEST_F(PlotWindow, LegendMovesThePlotAndNoMapDrawsAnEmptyFrame) {
  load_nacl();
  draw_once();
  const float right_without = ipgstate.xpgamx;
  qp::boton_legend = true;
  draw_once();
  EXPECT_NEAR(ipgstate.xpgamx + 0.05f, right_without, 1e-5f);

  qp::boton_legend = false;
  qp::rho.release();
  qp::rhonew.release();
  qp::ngrid = {};
  qp::celda = cell_metrics_type{};
  draw_once();
  EXPECT_EQ(count(last_picture(), recorded_kind::polyline, 197, 216), 0u);
  const auto t = texts(last_picture());
  EXPECT_EQ(std::count(t.begin(), t.end(), "x/a"), 1);
}

}  // namespace
