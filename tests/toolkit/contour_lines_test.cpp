#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/contour_spiral.h"

namespace {

// Values of f at the nodes of an n1 x n2 grid whose node (i, j) stands at
// plot position (i, j), first index fastest.
template <class F>
std::vector<float> sample(int n1, int n2, F f) {
  std::vector<float> z;
  for (int j = 1; j <= n2; ++j)
    for (int i = 1; i <= n1; ++i) z.push_back(static_cast<float>(f(i, j)));
  return z;
}

void open_grid_plot(int n1, int n2, int sets) {
  const int nvals[2] = {n1, n2};
  ipgnewplot2(8, sets, nvals);
  ipgunits(1, 1, static_cast<float>(n1), static_cast<float>(n2));
  for (int L = 1; L <= sets; ++L) ipgstyle(L, 0, 0, 0, 196 + L, 0);
}

}  // namespace

using contour_lines = recorded_plot;

// A cone: the contour at level r is the circle of radius r around the apex.
// Every point lies on it within the error of linear interpolation, and each
// circle is one closed line whose last point repeats its first.
TEST_F(contour_lines, ConeGivesClosedCircles) {
  const double cx = 20.3, cy = 19.6;
  const auto z = sample(41, 41, [&](int i, int j) { return std::hypot(i - cx, j - cy); });
  open_grid_plot(41, 41, 4);
  const float levels[4] = {4, 8, 12, 16};
  ipgcontour2(z, 41, 41, levels);
  EXPECT_EQ(winfoerror(1), 0);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 4u);
  std::set<int> colours;
  for (const auto* line : lines) {
    const int L = line->colour.number - 196;
    colours.insert(L);
    const double r = levels[L - 1];
    EXPECT_GT(line->points.size(), 8u);
    for (const auto& p : line->points) {
      const plot_point q = in_plot_units(p);
      EXPECT_NEAR(std::hypot(q.x - cx, q.y - cy), r, 0.03) << "level " << r;
    }
    EXPECT_FLOAT_EQ(line->points.front().x, line->points.back().x);
    EXPECT_FLOAT_EQ(line->points.front().y, line->points.back().y);
  }
  EXPECT_EQ(colours, (std::set<int>{1, 2, 3, 4}));
}

// A plane: linear interpolation is exact, lines are straight and open, and
// they end on the border.
TEST_F(contour_lines, PlaneGivesStraightOpenLines) {
  const auto z = sample(12, 9, [](int i, int j) { return 0.5 * i + j; });
  open_grid_plot(12, 9, 3);
  const float levels[3] = {3.3f, 6.0f, 9.7f};
  ipgcontour2(z, 12, 9, levels);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 3u);
  for (const auto* line : lines) {
    const double level = levels[line->colour.number - 197];
    for (const auto& p : line->points) {
      const plot_point q = in_plot_units(p);
      EXPECT_NEAR(0.5 * q.x + q.y, level, 1e-3);
    }
    auto on_border = [](plot_point q) {
      return std::fabs(q.x - 1) < 1e-3 || std::fabs(q.x - 12) < 1e-3 || std::fabs(q.y - 1) < 1e-3 ||
             std::fabs(q.y - 9) < 1e-3;
    };
    EXPECT_TRUE(on_border(in_plot_units(line->points.front())));
    EXPECT_TRUE(on_border(in_plot_units(line->points.back())));
  }
}

// A saddle cell: the sides are paired by comparing the crossings on the top
// and bottom sides. The grid turned by 180 degrees gives the same picture turned.
TEST_F(contour_lines, SaddleCellPairsSidesConsistently) {
  struct row {
    float z11, z21, z12, z22;
    std::set<std::pair<std::pair<double, double>, std::pair<double, double>>> segments;
  };
  auto seg = [](double x1, double y1, double x2, double y2) {
    std::pair<double, double> a{std::round(x1 * 1e4) / 1e4, std::round(y1 * 1e4) / 1e4};
    std::pair<double, double> b{std::round(x2 * 1e4) / 1e4, std::round(y2 * 1e4) / 1e4};
    return a < b ? std::make_pair(a, b) : std::make_pair(b, a);
  };
  const row rows[] = {
      // top crossing (1/6) left of the bottom one (1/2): bottom pairs with right, left with top
      {1, 0, 0, 3, {seg(1.5, 1, 2, 1 + 1.0 / 6), seg(1, 1.5, 1 + 1.0 / 6, 2)}},
      {3, 0, 0, 1, {seg(1 + 5.0 / 6, 1, 2, 1.5), seg(1, 1 + 5.0 / 6, 1.5, 2)}},
      // equal crossings: bottom pairs with left, top with right
      {1, 0, 0, 1, {seg(1.5, 1, 1, 1.5), seg(1.5, 2, 2, 1.5)}},
  };
  for (const row& r : rows) {
    screen.forget();
    const float z[4] = {r.z11, r.z21, r.z12, r.z22};
    open_grid_plot(2, 2, 1);
    const float level[1] = {0.5f};
    ipgcontour2(z, 2, 2, level);
    std::set<std::pair<std::pair<double, double>, std::pair<double, double>>> got;
    for (const auto* line : drawn_of(recorded_kind::polyline)) {
      ASSERT_EQ(line->points.size(), 2u);
      const plot_point a = in_plot_units(line->points[0]), b = in_plot_units(line->points[1]);
      got.insert(seg(a.x, a.y, b.x, b.y));
    }
    EXPECT_EQ(got, r.segments) << r.z11 << " " << r.z22;
  }
}

// A level equal to a plateau: edges lying flat in the level are no crossing,
// so the line runs along the plateau's rim and never inside it.
TEST_F(contour_lines, PlateauAtTheLevelIsNotCrossed) {
  const auto z = sample(7, 7, [](int i, int j) { return std::abs(i - 4) <= 1 && std::abs(j - 4) <= 1 ? 1.0 : 0.0; });
  open_grid_plot(7, 7, 1);
  const float level[1] = {1.0f};
  ipgcontour2(z, 7, 7, level);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 1u);
  // 12 edges run from the rim outward (two at each corner node), the first repeated.
  EXPECT_EQ(lines[0]->points.size(), 13u);
  for (const auto& p : lines[0]->points) {
    const plot_point q = in_plot_units(p);
    EXPECT_NEAR(std::max(std::fabs(q.x - 4), std::fabs(q.y - 4)), 1.0, 1e-4);
  }
}

// A zigzag field on 40 x 40 whose one contour crosses about 1400 edges: it is
// drawn in pieces of at most 500 points that together visit every crossed edge.
TEST_F(contour_lines, LongLineIsDrawnInPieces) {
  auto f = [](int i, int j) { return j + (i % 2 == 0 ? 17.0 : -17.0); };
  const auto z = sample(40, 40, f);
  open_grid_plot(40, 40, 1);
  const float level[1] = {20.5f};
  ipgcontour2(z, 40, 40, level);
  std::set<std::pair<long, long>> crossings;
  for (int j = 1; j <= 40; ++j)
    for (int i = 1; i <= 40; ++i) {
      auto add = [&](int i2, int j2) {
        const double a = f(i, j), b = f(i2, j2);
        if (std::min(a, b) < 20.5 && 20.5 <= std::max(a, b)) {
          const double t = (20.5 - a) / (b - a);
          crossings.insert({std::lround((i + t * (i2 - i)) * 1000), std::lround((j + t * (j2 - j)) * 1000)});
        }
      };
      if (i < 40) add(i + 1, j);
      if (j < 40) add(i, j + 1);
    }
  ASSERT_GT(crossings.size(), 1000u);
  std::set<std::pair<long, long>> traced;
  const auto lines = drawn_of(recorded_kind::polyline);
  EXPECT_GE(lines.size(), 3u);
  for (const auto* line : lines) {
    EXPECT_LE(line->points.size(), 500u);
    for (const auto& p : line->points) {
      const plot_point q = in_plot_units(p);
      traced.insert({std::lround(q.x * 1000), std::lround(q.y * 1000)});
    }
  }
  EXPECT_EQ(traced, crossings);
}

// Levels taken from the z units when none are given: L * zplen / npset + zpmin.
TEST_F(contour_lines, DefaultLevelsSpreadOverZUnits) {
  const auto z = sample(5, 5, [](int i, int) { return i; });
  open_grid_plot(5, 5, 4);
  ipgunitsz(1, 5);
  ipgcontour2(z, 5, 5);
  std::set<long> xs;
  for (const auto* line : drawn_of(recorded_kind::polyline))
    for (const auto& p : line->points) xs.insert(std::lround(in_plot_units(p).x * 1000));
  EXPECT_EQ(xs, (std::set<long>{2000, 3000, 4000, 5000}));
}

TEST_F(contour_lines, BadCallsDrawNothing) {
  const auto z = sample(5, 5, [](int i, int j) { return i + j; });
  struct row {
    int igtype, nx, ny;
    std::vector<float> levels;
    int error;
    const char* routine;
  };
  const row rows[] = {
      {8, 4, 5, {3, 5}, 1143, "IPgContour2"},     // row stride below npval1
      {8, 5, 4, {3, 5}, 1143, "IPgContour2"},     // too few rows
      {8, 5, 5, {3, 3}, 43, "IPgContour2"},       // equal levels, as a flat section gives
      {8, 5, 5, {5, 3}, 43, "IPgContour2"},       // descending
      {4, 5, 5, {3, 5}, 0, ""},                   // not a grid plot: silently nothing
  };
  for (const row& r : rows) {
    screen.forget();
    const int nvals[2] = {5, 5};
    ipgnewplot2(r.igtype, 2, nvals);
    ipgcontour2(z, r.nx, r.ny, r.levels);
    EXPECT_EQ(winfoerror(1), r.error) << r.nx << " " << r.ny;
    if (r.error) {
      EXPECT_EQ(yyerror_routine(), r.routine);
    }
    EXPECT_TRUE(drawn().empty());
  }
}

// The graphics style is the same after the call as before it.
TEST_F(contour_lines, StyleIsRestored) {
  const auto z = sample(5, 5, [](int i, int j) { return i * j; });
  open_grid_plot(5, 5, 2);
  ipgstyle(1, 2, 0, 0, 30, 0, 3);
  igrcolourn(120);
  igrlinetype(1);
  const float levels[2] = {4, 9};
  ipgcontour2(z, 5, 5, levels);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]->pen.type, 2);
  EXPECT_EQ(lines[0]->pen.width, 3);  // width factor of set 1
  EXPECT_EQ(lines[1]->pen.width, 1);
  EXPECT_EQ(igrstate.icolnum, 120);
  EXPECT_EQ(igrstate.lintyp, 1);
  EXPECT_EQ(igrstate.linwid, 1);
}

// With node positions given, each cell is cut into triangles: on a plane the
// segments still lie exactly on the level line, at the given positions.
TEST_F(contour_lines, CellMethodWithPositions) {
  const auto z = sample(4, 3, [](int i, int j) { return i + 2.0 * j; });
  open_grid_plot(4, 3, 1);
  ipgunits(0, 0, 8, 3);
  const float xpos[4] = {0, 2, 5, 8};
  const float level[1] = {5.5f};
  ipgcontour2(z, 4, 3, level, xpos);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_FALSE(lines.empty());
  for (const auto* line : lines)
    for (const auto& p : line->points) {
      const plot_point q = in_plot_units(p);
      // i runs 1..4 over xpos piecewise linearly, j 1..3 evenly over y 0..3.
      const double i = q.x <= 2 ? 1 + q.x / 2 : q.x <= 5 ? 2 + (q.x - 2) / 3 : 3 + (q.x - 5) / 3;
      const double j = 1 + q.y * 2 / 3;
      EXPECT_NEAR(i + 2 * j, 5.5, 1e-3);
    }
}

// The spiral visits every node of the grid once, starting at its centre and
// moving outward ring by ring, for every centre of grids of many shapes.
TEST(contour_spiral, VisitsEveryNodeOnceOutward) {
  const int shapes[][2] = {{1, 1}, {2, 2}, {2, 5}, {5, 2}, {6, 6}, {40, 3}, {7, 11}};
  for (const auto& shape : shapes) {
    const int n1 = shape[0], n2 = shape[1];
    spiral_scan scan(n1, n2);
    for (int cj = 1; cj <= n2; ++cj)
      for (int ci = 1; ci <= n1; ++ci) {
        scan.centre_on(ci, cj);
        std::vector<int> seen(static_cast<std::size_t>(n1 * n2), 0);
        int i = 0, j = 0, last_ring = 0, count = 0;
        while (scan.next(i, j)) {
          ASSERT_TRUE(i >= 1 && i <= n1 && j >= 1 && j <= n2);
          if (count++ == 0) {
            EXPECT_TRUE(i == ci && j == cj);
          }
          const int ring = std::max(std::abs(i - ci), std::abs(j - cj));
          EXPECT_GE(ring, last_ring);
          last_ring = ring;
          ++seen[static_cast<std::size_t>((j - 1) * n1 + (i - 1))];
        }
        EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), n1 * n2) << n1 << "x" << n2 << " at " << ci << "," << cj;
      }
  }
}

// A labelled circle of a cone: broken once for the label's length, the
// label tangent to the circle and upright, showing what the label type asks for.
TEST_F(contour_lines, LabelsBreakTheLineAlongItsDirection) {
  const double cx = 10.2, cy = 9.7;
  const auto z = sample(20, 20, [&](int i, int j) { return std::hypot(i - cx, j - cy) / 4; });
  struct row {
    int type, mark;
    const char* text;
  };
  const row rows[] = {{5, -1, "1.5"}, {1, -1, "1"}, {1, 12, "12"}, {2, 3, "C"}, {2, 27, "a"}};
  for (const row& r : rows) {
    screen.forget();
    open_grid_plot(20, 20, 1);
    ipgunitsz(0, 4);
    ipgstyle(1, 0, r.type, 0, 197, 0);
    ipgstate.ipgmark[1] = r.mark;
    const float level[1] = {1.5f};  // radius 6
    ipgcontour2(z, 20, 20, level);
    const auto lines = drawn_of(recorded_kind::polyline);
    const auto texts = drawn_of(recorded_kind::text);
    ASSERT_EQ(lines.size(), 2u) << r.text;
    ASSERT_EQ(texts.size(), 1u) << r.text;
    EXPECT_EQ(texts[0]->text, r.text);
    const float angle = texts[0]->text_style.angle;
    EXPECT_TRUE(angle <= 90 || angle >= 270 || angle < 0) << angle;  // never upside down
    const pixel_point a = lines[0]->points.back(), b = lines[1]->points.front();
    const float gap = std::hypot(a.x - b.x, a.y - b.y);
    const float length = texts[0]->text_style.char_width * static_cast<float>(std::string(r.text).size());
    EXPECT_NEAR(gap, length, 0.05 * length) << r.text;  // a chord of the arc
    // The text runs along the gap, square to the radius at its middle.
    const plot_point mid = in_plot_units({(a.x + b.x) / 2, (a.y + b.y) / 2});
    const double radial = std::atan2(mid.y - cy, mid.x - cx) * 180 / 3.14159265;
    EXPECT_NEAR(std::fabs(std::remainder(angle - radial, 180.0)), 90, 3) << r.text;
    for (const auto* line : lines)
      for (const auto& p : line->points) EXPECT_NEAR(std::hypot(in_plot_units(p).x - cx, in_plot_units(p).y - cy), 6, 0.05);
  }
  // A small circle of fewer than w + 3 points (w = 20 / 5 = 4) keeps no label.
  screen.forget();
  const float small[1] = {0.2f};
  ipgcontour2(z, 20, 20, small);
  EXPECT_TRUE(drawn_of(recorded_kind::text).empty());
  EXPECT_EQ(drawn_of(recorded_kind::polyline).size(), 1u);
}

// Marked missing values: no line enters a cell with a missing node, so a
// circle cut by a hole in the data becomes an open line ending at the hole.
TEST_F(contour_lines, MissingValuesCutLines) {
  const double cx = 11, cy = 11;
  auto missing = [](int i, int j) { return i >= 15 && i <= 17 && j >= 9 && j <= 12; };
  const auto z = sample(21, 21, [&](int i, int j) { return missing(i, j) ? -999.0 : std::hypot(i - cx, j - cy); });
  open_grid_plot(21, 21, 1);
  ipgstate.bmissing[2] = true;
  ipgstate.rmissing = -999;
  const float level[1] = {5};
  ipgcontour2(z, 21, 21, level);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 1u);
  const auto& p = lines[0]->points;
  const plot_point first = in_plot_units(p.front()), last = in_plot_units(p.back());
  EXPECT_GT(std::hypot(first.x - last.x, first.y - last.y), 1.0);  // open
  for (std::size_t k = 0; k < p.size(); ++k) {
    const plot_point q = in_plot_units(p[k]);
    EXPECT_NEAR(std::hypot(q.x - cx, q.y - cy), 5, 0.05);
    if (k == 0) continue;
    // The cell holding the segment's middle has all four nodes.
    const plot_point r = in_plot_units(p[k - 1]);
    const int i = static_cast<int>(std::floor((q.x + r.x) / 2)), j = static_cast<int>(std::floor((q.y + r.y) / 2));
    EXPECT_FALSE(missing(i, j) || missing(i + 1, j) || missing(i, j + 1) || missing(i + 1, j + 1)) << i << "," << j;
  }
}
