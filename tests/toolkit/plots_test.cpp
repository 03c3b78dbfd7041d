// The plots: contour lines, filled contours and surfaces, read back from a
// recording canvas and checked against fields whose contours are known.
#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/contour_labels.h"
#include "toolkit/plots/contour_spiral.h"
#include "toolkit/plots/surface.h"
#include "toolkit/plots/surface_view.h"

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

// A line turning evenly for 20 steps of 8 pixels, then straight 20 degrees below leftward: the label's gap, as
// long as its text, is centred on point 20 (the first whose window of w = 20 / 5 steps does not turn), or with an
// earlier gap end there on the first point a character diagonal off; text upright. Under w + 3 points, no label.
TEST_F(contour_lines, LabelGoesOnTheFirstStraightStretchClearOfEarlierGaps) {
  open_grid_plot(20, 20, 1);
  std::vector<float> x{0.8f}, y{0.8f};
  for (int s = 0; s < 39; ++s) {
    const double angle = (200 + 1.5 * std::max(19 - s, 0)) * 3.14159265 / 180;
    x.push_back(x.back() + 0.02f * static_cast<float>(std::cos(angle)));
    y.push_back(y.back() + 0.02f * static_cast<float>(std::sin(angle)));
  }
  const pixel_point p20 = units_to_canvas(x[20], y[20]);
  const canvas_text_style style = current_text_style();
  const float first_clear = 8 * std::ceil(1.01f * std::hypot(style.char_width, style.char_height) / 8);
  struct row { int type, mark; float level; long points; bool earlier_gap; const char* text; };
  const row rows[] = {{5, -1, 1.5f, 40, false, "1.5"}, {1, -1, 0, 40, true, "1"}, {1, 12, 0, 40, false, "12"},
                      {2, 3, 0, 40, true, "C"},        {2, 27, 0, 40, false, "a"}, {1, -1, 0, 6, false, ""}};
  for (const row& r : rows) {
    ipgstyle(1, 0, r.type, 0, 197, 0);
    ipgstate.ipgmark[1] = r.mark;
    const std::vector<float> lx(x.begin(), x.begin() + r.points), ly(y.begin(), y.begin() + r.points);
    contour_label_gaps gaps{r.earlier_gap ? std::vector{p20} : std::vector<pixel_point>{}};
    const std::optional<placed_label> label = lay_out_contour_line(lx, ly, 1, r.level, gaps).label;
    screen.forget();
    draw_contour_line(lx, ly, 1, r.level, gaps);
    EXPECT_EQ(drawn_of(recorded_kind::polyline).size(), *r.text ? 2u : 1u) << r.text;
    if (!label) continue;
    const pixel_point a = label->gap_start, b = label->gap_end;
    EXPECT_NEAR(std::hypot((a.x + b.x) / 2 - p20.x, (a.y + b.y) / 2 - p20.y), r.earlier_gap ? first_clear : 0, 0.5);
    EXPECT_NEAR(std::hypot(a.x - b.x, a.y - b.y), style.char_width * static_cast<float>(label->text.size()), 0.2);
    EXPECT_TRUE(label->text == r.text && label->alignment == 2 && std::fabs(label->angle - 20) < 0.1f) << r.text;
    EXPECT_TRUE(gaps.ends.back().x == b.x && drawn().back().text_style.angle == label->angle) << r.text;
  }
  ipgcontour2(sample(20, 20, [](int i, int j) { return std::hypot(i - 10.2, j - 9.7); }), 20, 20, std::vector{6.0f});
  EXPECT_EQ(drawn_of(recorded_kind::text).size(), 1u);  // a circle of the contour lines gets its label too
}

// A spiral that starts at a later ring and passes over closed blocks meets
// the nodes of the open blocks in the order of the plain spiral.
TEST(contour_spiral, SkippingKeepsTheOrderOfThePlainSpiral) {
  struct row { int n1, n2, ci, cj, ring, size; };
  for (const row r : {row{9, 7, 5, 4, 0, 2}, row{20, 33, 1, 1, 3, 4}, row{33, 20, 33, 20, 1, 5}, row{17, 17, 12, 3, 6, 3}}) {
    auto open = [&](int i, int j) { return ((i - 1) / r.size * 7 + (j - 1) / r.size * 3) % 5 < 2; };
    std::vector<std::pair<int, int>> plain, skipping;
    spiral_scan scan(r.n1, r.n2);
    scan.centre_on(r.ci, r.cj);
    int i = 0, j = 0;
    while (scan.next(i, j))
      if (open(i, j) && std::max(std::abs(i - r.ci), std::abs(j - r.cj)) >= r.ring) plain.emplace_back(i, j);
    scan.centre_on(r.ci, r.cj, r.ring);
    while (scan.next(i, j))
      if (!open(i, j))
        scan.skip_block(r.size);
      else
        skipping.emplace_back(i, j);
    EXPECT_EQ(skipping, plain) << r.n1 << " x " << r.n2 << " around " << r.ci << "," << r.cj;
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

namespace {

void open_fill_plot(int n1, int n2, int bands, int layer = 8) {
  const int nvals[2] = {n1, n2};
  ipgnewplot2(8, bands, nvals, layer);
  ipgunits(0, 0, 1, 1);
  for (int L = 1; L <= bands; ++L) ipgstyle(L, 4, 3, 3, 196 + L, 196 + L);
}

// Painted area per band (by colour number) as a share of the whole plot.
std::map<int, double> band_shares(const std::vector<recorded_primitive>& drawn) {
  std::map<int, double> share;
  for (const auto& p : drawn) {
    double area = 0;  // shoelace
    for (std::size_t k = 0; k < p.points.size(); ++k) {
      const auto &a = p.points[k], &b = p.points[(k + 1) % p.points.size()];
      area += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
    }
    share[p.colour.number - 196] += std::fabs(area) / 2 / (400.0 * 400.0);
  }
  return share;
}

}  // namespace

using contour_fill = recorded_plot;

// Linear ramps over the unit square with boundaries 0.25, 0.5, 0.75: the
// painted share of each band is its analytic area, within the box size.
TEST_F(contour_fill, BandAreasOfLinearRamps) {
  struct row {
    const char* name;
    double (*f)(double x, double y);
    std::map<int, double> share;
    double tolerance;
  };
  const row rows[] = {
      {"along y", [](double, double y) { return y; }, {{1, 0.25}, {2, 0.25}, {3, 0.25}, {4, 0.25}}, 1e-4},
      // (x + y) / 2 below 0.25 is the triangle x + y < 0.5, and so on.
      {"diagonal", [](double x, double y) { return (x + y) / 2; }, {{1, 0.125}, {2, 0.375}, {3, 0.375}, {4, 0.125}}, 4e-3},
      {"steep", [](double x, double) { return 3 * x - 1; }, {{1, 5.0 / 12}, {2, 1.0 / 12}, {3, 1.0 / 12}, {4, 5.0 / 12}}, 5e-3},
  };
  for (const row& r : rows) {
    screen.forget();
    std::vector<float> z;
    for (int j = 0; j <= 10; ++j)
      for (int i = 0; i <= 10; ++i) z.push_back(static_cast<float>(r.f(i / 10.0, j / 10.0)));
    open_fill_plot(11, 11, 4);
    ipgconfill2granul(10);
    ipgconfill2(z, 11, 11, std::vector<float>{0.25f, 0.5f, 0.75f});
    for (const auto& [band, share] : band_shares(drawn())) EXPECT_NEAR(share, r.share.at(band), r.tolerance) << r.name << " band " << band;
  }
}

// Uniform cells merge into one rectangle per row; one band needs no
// boundaries; a value equal to a boundary takes the band above it; a cell
// divided 10 x 10 merges its boxes along each sub-row, 20 and not 100.
TEST_F(contour_fill, RunsMergeAlongRows) {
  struct row {
    std::vector<float> z;
    int n1, bands;
    std::vector<float> boundaries;
    int granul;
    std::size_t boxes;
    std::map<int, double> share;
  };
  std::vector<float> ramp(6 * 4);
  for (std::size_t k = 0; k < ramp.size(); ++k) ramp[k] = static_cast<float>(k % 6);
  const row rows[] = {{ramp, 6, 2, {100}, 1, 3, {{1, 1.0}}},
                      {{0, 1, 2, 3, 4, 5, 6, 7, 8}, 3, 1, {}, 1, 2, {{1, 1.0}}},
                      {{0.5f, 0.5f, 0.5f, 0.5f}, 2, 3, {0.5f, 0.9f}, 1, 1, {{2, 1.0}}},
                      {{0, 1, 0, 1}, 2, 2, {0.5f}, 10, 20, {{1, 0.5}, {2, 0.5}}}};
  for (const row& r : rows) {
    screen.forget();
    const int n2 = static_cast<int>(r.z.size()) / r.n1;
    open_fill_plot(r.n1, n2, r.bands);
    ipgunits(0, 0, 1, 1);
    ipgconfill2granul(r.granul);
    ipgconfill2granul(0);  // not positive: ignored
    ipgconfill2(r.z, r.n1, n2, r.boundaries);
    EXPECT_EQ(winfoerror(1), 0);
    EXPECT_EQ(drawn_of(recorded_kind::polygon).size(), r.boxes) << r.boxes;
    EXPECT_EQ(drawn().size(), r.boxes) << "fills have no outline";
    for (const auto& [band, share] : band_shares(drawn())) EXPECT_NEAR(share, r.share.at(band), 1e-5) << r.boxes;
  }
}

// A cell with one missing corner is filled as the triangle of the other
// three: in the band of its smallest corner, or across a boundary only when
// cells are not divided, in the band of the corners' mean.
TEST_F(contour_fill, CellWithAMissingCornerIsATriangle) {
  struct row {
    std::array<float, 4> z;
    int granul, band;  // band 0: nothing drawn
  };
  const row rows[] = {{{0.1f, 0.2f, 0.3f, -999}, 10, 1},
                      {{0.1f, 0.2f, 0.9f, -999}, 10, 0},
                      {{0.1f, 0.2f, 0.9f, -999}, 1, 2},  // mean 0.4 above 0.35
                      {{0.1f, -999, 0.9f, -999}, 1, 0}};  // two corners: nothing
  for (const row& r : rows) {
    screen.forget();
    open_fill_plot(2, 2, 2);
    ipgstate.bmissing[2] = true;
    ipgstate.rmissing = -999;
    ipgstate.igranul = r.granul;
    ipgconfill2(r.z, 2, 2, std::vector<float>{0.35f});
    ASSERT_EQ(drawn().size(), r.band ? 1u : 0u) << r.z[2] << " " << r.granul;
    if (r.band == 0) continue;
    EXPECT_EQ(drawn()[0].points.size(), 3u);
    EXPECT_NEAR(band_shares(drawn())[r.band], 0.5, 1e-5);
  }
}

namespace {

// A surface plot over the unit square and z 0..1, n x n nodes, at the given view.
void open_surface(int n, float rotation, float elevation, int sets = 2, int layer = 33) {
  const int nvals[] = {n, n};
  ipgnewplot2(8, sets, nvals, layer);
  ipgunits(0, 0, 1, 1);
  ipgunitsz(0, 1);
  ipgelevation(elevation);
  ipgrotation(rotation);
}

// Whether a drawn shape has a corner at p, in the unit square the plots span.
bool has_vertex(const recorded_primitive& shape, double x, double y) {
  for (const auto& v : shape.points)
    if (std::fabs(v.x / 400.0 - x) < 0.006 && std::fabs(1 - v.y / 400.0 - y) < 0.006) return true;
  return false;
}

}  // namespace

using surface_plot = recorded_plot;

// Corners of the unit box worked out by hand. At elevation 22.5 the base
// spreads over half the height and the z range takes the other half; at 0
// the base is seen edge on; z beyond its range is flattened; elevation is
// kept in 0..45 degrees, rotation in 0..360.
TEST_F(surface_plot, ProjectionOfTheBoxCorners) {
  const std::array<float, 7> rows[] = {
      // rotation, elevation, x, y, z, screen x, screen y
      {0, 22.5f, 1, 0, 0, 0.5f, 0.5f},   {0, 22.5f, 0, 1, 0, 0.5f, 0},     {0, 22.5f, 1, 1, 5, 1, 0.75f},
      {0, 22.5f, 0, 0, -2, 0, 0.25f},    {-270, 22.5f, 0, 0, 0, 0.5f, 0.5f}, {90, 22.5f, 1, 0, 0, 1, 0.25f},
      {-400, 22.5f, 0, 1, 0, 0.5f, 0},  {0, -3, 0, 1, 0, 0.5f, 0.25f},     {360, 0, 1, 0, 1, 0.5f, 0.75f},
  };
  for (const auto& r : rows) {
    open_surface(3, r[0], r[1]);
    float gx = 0, gy = 0;
    ipgunitstogrunits3(r[2], r[3], r[4], gx, gy);
    EXPECT_NEAR(gx, r[5], 1e-4) << r[0] << " " << r[1] << ": " << r[2] << "," << r[3] << "," << r[4];
    EXPECT_NEAR(gy, r[6], 1e-4) << r[0] << " " << r[1] << ": " << r[2] << "," << r[3] << "," << r[4];
  }
  ipgelevation(50);
  EXPECT_FLOAT_EQ(ipgstate.elev3d, 1);
}

// Contour lines of a three-dimensional layout lie on its base: at rotation 0
// and elevation 22.5 the base point (x, y) shows at ((x + y) / 2, (1 + x - y) / 4),
// as the box corners above give, so the line x = c of the field x runs along
// screen x + 2 y = c + 1/2 (a flat picture would draw it upright at x = c).
TEST_F(surface_plot, ContourLinesOfAThreeDimensionalLayoutLieOnItsBase) {
  const std::vector<float> levels = {0.25f, 0.5f, 0.75f};
  open_surface(11, 0, 22.5f, 3);
  ipgcontour2(sample(11, 11, [](int i, int) { return (i - 1) / 10.0; }), 11, 11, levels);
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), levels.size());
  std::set<float> found;
  for (const auto* line : lines) {
    const auto along = [](const pixel_point& p) { return p.x / 400.0 + 2 * (1 - p.y / 400.0) - 0.5; };
    for (const auto& p : line->points) EXPECT_NEAR(along(p), along(line->points.front()), 0.006);
    found.insert(std::round(static_cast<float>(along(line->points.front())) * 4) / 4);
  }
  EXPECT_EQ(found, std::set<float>(levels.begin(), levels.end()));
}

// A single peak in the middle of a flat 5 x 5 grid, seen at rotation 0: the
// far tile behind the peak lies under the peak's near flank on the screen,
// so the flank must be painted after it.
TEST_F(surface_plot, PeakHidesWhatLiesBehindIt) {
  std::vector<float> z(25, 0.0f);
  z[2 * 5 + 2] = 1;
  open_surface(5, 0, 22.5f);
  ipgstyle(1, 4, 0, 0, 10, 10);
  ipgstyle(2, 4, 0, 0, 20, 20);
  ipgsurf3datacont(z, 5, 5, std::vector<float>{0.2f});
  const auto tiles = drawn_of(recorded_kind::polygon);
  ASSERT_EQ(tiles.size(), 16u);
  // Tiles over the far tile's base centre (0.51, 0.4375), a little off the peak's vertical.
  std::vector<std::size_t> cover;
  for (std::size_t k = 0; k < tiles.size(); ++k) {
    bool in = false;
    const auto& v = tiles[k]->points;
    for (std::size_t a = 0, b = v.size() - 1; a < v.size(); b = a++) {
      const double ya = 1 - v[a].y / 400.0, yb = 1 - v[b].y / 400.0;
      if ((ya > 0.4375) != (yb > 0.4375) && 0.51 < (v[b].x - v[a].x) / 400.0 * (0.4375 - ya) / (yb - ya) + v[a].x / 400.0)
        in = !in;
    }
    if (in) cover.push_back(k);
  }
  ASSERT_GE(cover.size(), 2u);
  EXPECT_TRUE(has_vertex(*tiles[cover.front()], 0.5, 0.5)) << "the far tile, painted first";
  EXPECT_EQ(tiles[cover.front()]->fill.colour.number, 10);
  EXPECT_TRUE(has_vertex(*tiles[cover.back()], 0.5, 0.75)) << "the flank, with the apex, painted last";
  EXPECT_EQ(tiles[cover.back()]->fill.colour.number, 20);  // mean 0.25: the upper band
}

// The first tile painted holds the far corner of the base, which turns at 45 degrees.
TEST_F(surface_plot, WalkOrderTurnsAtFortyFiveDegrees) {
  const std::vector<float> z(9, 0.0f);
  for (const auto& [rotation, far_x, far_y] : {std::array{44.f, 1.f, 0.f}, {46, 0, 0}, {136, 0, 1}, {226, 1, 1}}) {
    screen.forget();
    open_surface(3, rotation, 22.5f, 1);
    ipgsurf3datacont(z, 3, 3);
    float gx = 0, gy = 0;
    ipgunitstogrunits3(far_x, far_y, 0, gx, gy);
    ASSERT_EQ(drawn_of(recorded_kind::polygon).size(), 4u);
    EXPECT_TRUE(has_vertex(*drawn_of(recorded_kind::polygon)[0], gx, gy)) << rotation;
  }
  const float descending[] = {0.6f, 0.4f};
  open_surface(3, 0, 22.5f, 3);
  ipgsurf3datacont(z, 2, 3);
  EXPECT_EQ(winfoerror(1), 1143);
  ipgsurf3datacont(z, 3, 3, descending);
  EXPECT_EQ(winfoerror(1), 43);
  open_surface(3, 0, 22.5f, 3, 8);  // flat layout
  screen.forget();
  ipgsurf3datacont(z, 3, 3);
  EXPECT_TRUE(drawn().empty());
}
