#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"

namespace {

// Values of f at the nodes of an n1 x n2 grid whose node (i, j) stands at
// plot position (i, j), first index fastest.
std::vector<float> sample(int n1, int n2, const std::function<double(int, int)>& f) {
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

// On a cone the contour at level r is the circle of radius r around the apex:
// one closed line a level whose last point repeats its first. On a plane
// linear interpolation is exact, and the lines are open and end on the border.
TEST_F(contour_lines, LinesLieOnTheLevelOfConeAndPlane) {
  struct row {
    const char* name;
    std::function<double(double, double)> f;
    std::vector<float> levels;
    double tolerance;
    bool closed;
  };
  const row rows[] = {{"cone", [](double x, double y) { return std::hypot(x - 20.3, y - 19.6); }, {4, 8, 12, 16}, 0.03, true},
                      {"plane", [](double x, double y) { return 0.5 * x + y; }, {3.3f, 6, 9.7f}, 1e-3, false}};
  for (const row& r : rows) {
    screen.forget();
    open_grid_plot(41, 41, static_cast<int>(r.levels.size()));
    ipgcontour2(sample(41, 41, [&](int i, int j) { return r.f(i, j); }), 41, 41, r.levels);
    const auto lines = drawn_of(recorded_kind::polyline);
    ASSERT_EQ(lines.size(), r.levels.size()) << r.name;
    for (const auto* line : lines) {
      const double level = r.levels[static_cast<std::size_t>(line->colour.number - 197)];
      for (const auto& p : line->points)
        EXPECT_NEAR(r.f(in_plot_units(p).x, in_plot_units(p).y), level, r.tolerance) << r.name;
      const plot_point a = in_plot_units(line->points.front()), b = in_plot_units(line->points.back());
      auto on_border = [](plot_point q) { return std::min({q.x - 1, 41 - q.x, q.y - 1, 41 - q.y}) < 1e-3; };
      if (r.closed)
        EXPECT_TRUE(a.x == b.x && a.y == b.y) << r.name << " " << level;
      else
        EXPECT_TRUE(on_border(a) && on_border(b)) << r.name << " " << level;
    }
  }
}

// A saddle cell: the sides are paired by comparing the crossings on the top
// and bottom sides. The grid turned by 180 degrees gives the same picture turned.
TEST_F(contour_lines, SaddleCellPairsSidesConsistently) {
  using segment = std::set<std::pair<long, long>>;
  auto seg = [](double x1, double y1, double x2, double y2) {
    return segment{{std::lround(x1 * 1e4), std::lround(y1 * 1e4)}, {std::lround(x2 * 1e4), std::lround(y2 * 1e4)}};
  };
  const std::pair<std::array<float, 4>, std::set<segment>> rows[] = {
      // top crossing (1/6) left of the bottom one (1/2): bottom pairs with right, left with top
      {{1, 0, 0, 3}, {seg(1.5, 1, 2, 1 + 1.0 / 6), seg(1, 1.5, 1 + 1.0 / 6, 2)}},
      {{3, 0, 0, 1}, {seg(1 + 5.0 / 6, 1, 2, 1.5), seg(1, 1 + 5.0 / 6, 1.5, 2)}},
      // equal crossings: bottom pairs with left, top with right
      {{1, 0, 0, 1}, {seg(1.5, 1, 1, 1.5), seg(1.5, 2, 2, 1.5)}},
  };
  for (const auto& [z, want] : rows) {
    screen.forget();
    open_grid_plot(2, 2, 1);
    ipgcontour2(z, 2, 2, std::vector<float>{0.5f});
    std::set<segment> got;
    for (const auto* line : drawn_of(recorded_kind::polyline)) {
      const plot_point a = in_plot_units(line->points[0]), b = in_plot_units(line->points.back());
      got.insert(seg(a.x, a.y, b.x, b.y));
    }
    EXPECT_EQ(got, want) << z[0] << " " << z[3];
  }
}

// A level equal to a plateau: edges lying flat in the level are no crossing,
// so the line runs along the plateau's rim and never inside it.
TEST_F(contour_lines, PlateauAtTheLevelIsNotCrossed) {
  open_grid_plot(7, 7, 1);
  ipgcontour2(sample(7, 7, [](int i, int j) { return std::max(std::abs(i - 4), std::abs(j - 4)) <= 1 ? 1 : 0; }), 7, 7,
              std::vector<float>{1});
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
  open_grid_plot(40, 40, 1);
  ipgcontour2(sample(40, 40, f), 40, 40, std::vector<float>{20.5f});
  std::set<std::pair<long, long>> crossings, traced;
  for (int j = 1; j <= 40; ++j)
    for (int i = 1; i <= 40; ++i)
      for (const auto& [i2, j2] : {std::pair{i + 1, j}, std::pair{i, j + 1}}) {
        if (i2 > 40 || j2 > 40) continue;
        const double a = f(i, j), b = f(i2, j2), t = (20.5 - a) / (b - a);
        if (std::min(a, b) < 20.5 && 20.5 <= std::max(a, b))
          crossings.insert({std::lround((i + t * (i2 - i)) * 1000), std::lround((j + t * (j2 - j)) * 1000)});
      }
  ASSERT_GT(crossings.size(), 1000u);
  for (const auto* line : drawn_of(recorded_kind::polyline)) {
    EXPECT_LE(line->points.size(), 500u);
    for (const auto& p : line->points)
      traced.insert({std::lround(in_plot_units(p).x * 1000), std::lround(in_plot_units(p).y * 1000)});
  }
  EXPECT_EQ(traced, crossings);
}

// Levels taken from the z units when none are given: L * zplen / npset + zpmin;
// the style's width factor applies to its lines, and the style is restored after.
TEST_F(contour_lines, DefaultLevelsSpreadOverZUnitsAndStyleIsRestored) {
  open_grid_plot(5, 5, 4);
  ipgunitsz(1, 5);
  ipgstyle(1, 2, 0, 0, 30, 0, 3);
  igrcolourn(120);
  ipgcontour2(sample(5, 5, [](int i, int) { return i; }), 5, 5);
  std::set<long> xs;
  for (const auto* line : drawn_of(recorded_kind::polyline))
    for (const auto& p : line->points) xs.insert(std::lround(in_plot_units(p).x * 1000));
  EXPECT_EQ(xs, (std::set<long>{2000, 3000, 4000, 5000}));
  EXPECT_EQ(drawn_of(recorded_kind::polyline)[0]->pen.width, 3);
  EXPECT_EQ(drawn_of(recorded_kind::polyline)[1]->pen.width, 1);
  EXPECT_EQ(igrstate.icolnum, 120);
  EXPECT_EQ(igrstate.linwid, 1);
}

// With node positions given, each cell is cut into triangles: on a plane the
// segments still lie exactly on the level line, at the given positions.
TEST_F(contour_lines, CellMethodWithPositions) {
  open_grid_plot(4, 3, 1);
  ipgunits(0, 0, 8, 3);
  const float xpos[4] = {0, 2, 5, 8};
  ipgcontour2(sample(4, 3, [](int i, int j) { return i + 2.0 * j; }), 4, 3, std::vector<float>{5.5f}, xpos);
  ASSERT_FALSE(drawn().empty());
  for (const auto* line : drawn_of(recorded_kind::polyline))
    for (const auto& p : line->points) {
      const plot_point q = in_plot_units(p);
      // i runs 1..4 over xpos piecewise linearly, j 1..3 evenly over y 0..3.
      const double i = q.x <= 2 ? 1 + q.x / 2 : 2 + (q.x - 2) / 3;
      EXPECT_NEAR(i + 2 * (1 + q.y * 2 / 3), 5.5, 1e-3);
    }
}

// A labelled circle of a cone: broken once for the label's length, the
// label tangent to the circle and upright, showing what the label type asks
// for. A small circle of fewer than w + 3 points (w = 20 / 5) keeps no label.
TEST_F(contour_lines, LabelsBreakTheLineAlongItsDirection) {
  const double cx = 10.2, cy = 9.7;
  const auto z = sample(20, 20, [&](int i, int j) { return std::hypot(i - cx, j - cy) / 4; });
  struct row {
    int type, mark;
    const char* text;
    float level;
  };
  const row rows[] = {{5, -1, "1.5", 1.5f}, {1, -1, "1", 1.5f}, {1, 12, "12", 1.5f},
                      {2, 3, "C", 1.5f},    {2, 27, "a", 1.5f}, {1, -1, "", 0.2f}};
  for (const row& r : rows) {
    screen.forget();
    open_grid_plot(20, 20, 1);
    ipgunitsz(0, 4);
    ipgstyle(1, 0, r.type, 0, 197, 0);
    ipgstate.ipgmark[1] = r.mark;
    ipgcontour2(z, 20, 20, std::vector<float>{r.level});
    const auto lines = drawn_of(recorded_kind::polyline);
    const auto texts = drawn_of(recorded_kind::text);
    ASSERT_EQ(texts.size(), *r.text ? 1u : 0u) << r.text;
    ASSERT_EQ(lines.size(), texts.size() + 1) << r.text;
    if (texts.empty()) continue;
    EXPECT_EQ(texts[0]->text, r.text);
    const float angle = texts[0]->text_style.angle;
    EXPECT_TRUE(angle <= 90 || angle >= 270 || angle < 0) << angle;  // never upside down
    const pixel_point a = lines[0]->points.back(), b = lines[1]->points.front();
    const float length = texts[0]->text_style.char_width * static_cast<float>(std::string(r.text).size());
    EXPECT_NEAR(std::hypot(a.x - b.x, a.y - b.y), length, 0.05 * length) << r.text;  // a chord of the arc
    // The text runs along the gap, square to the radius at its middle.
    const plot_point mid = in_plot_units({(a.x + b.x) / 2, (a.y + b.y) / 2});
    const double radial = std::atan2(mid.y - cy, mid.x - cx) * 180 / 3.14159265;
    EXPECT_NEAR(std::fabs(std::remainder(angle - radial, 180.0)), 90, 3) << r.text;
  }
}

// Marked missing values: no line enters a cell with a missing node, so a
// circle cut by a hole in the data becomes an open line ending at the hole.
TEST_F(contour_lines, MissingValuesCutLines) {
  auto missing = [](int i, int j) { return i >= 15 && i <= 17 && j >= 9 && j <= 12; };
  open_grid_plot(21, 21, 1);
  ipgstate.bmissing[2] = true;
  ipgstate.rmissing = -999;
  ipgcontour2(sample(21, 21, [&](int i, int j) { return missing(i, j) ? -999.0 : std::hypot(i - 11, j - 11); }), 21, 21,
              std::vector<float>{5});
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 1u);
  const auto& p = lines[0]->points;
  EXPECT_GT(std::hypot(p.front().x - p.back().x, p.front().y - p.back().y), 10.0);  // open
  for (std::size_t k = 1; k < p.size(); ++k) {
    const plot_point q = in_plot_units(p[k]), r = in_plot_units(p[k - 1]);
    EXPECT_NEAR(std::hypot(q.x - 11, q.y - 11), 5, 0.05);
    // The cell holding the segment's middle has all four nodes.
    const int i = static_cast<int>(std::floor((q.x + r.x) / 2)), j = static_cast<int>(std::floor((q.y + r.y) / 2));
    EXPECT_FALSE(missing(i, j) || missing(i + 1, j) || missing(i, j + 1) || missing(i + 1, j + 1)) << i << "," << j;
  }
}
