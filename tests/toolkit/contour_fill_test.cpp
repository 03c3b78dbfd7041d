#include <cmath>
#include <map>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"

namespace {

void open_fill_plot(int n1, int n2, int bands) {
  const int nvals[2] = {n1, n2};
  ipgnewplot2(8, bands, nvals, 8);
  ipgunits(0, 0, 1, 1);
  for (int L = 1; L <= bands; ++L) ipgstyle(L, 4, 3, 3, 196 + L, 196 + L);
}

// Painted area per band (by colour number) as a share of the whole plot.
std::map<int, double> band_shares(const std::vector<recorded_primitive>& drawn) {
  std::map<int, double> share;
  for (const auto& p : drawn) {
    if (p.kind != recorded_kind::polygon) continue;
    double area = 0;  // shoelace
    for (std::size_t k = 0; k < p.points.size(); ++k) {
      const auto& a = p.points[k];
      const auto& b = p.points[(k + 1) % p.points.size()];
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
    double share[4];
    double tolerance;
  };
  const row rows[] = {
      {"along x", [](double x, double) { return x; }, {0.25, 0.25, 0.25, 0.25}, 1e-4},
      {"along y", [](double, double y) { return y; }, {0.25, 0.25, 0.25, 0.25}, 1e-4},
      // (x + y) / 2 below 0.25 is the triangle x + y < 0.5, and so on.
      {"diagonal", [](double x, double y) { return (x + y) / 2; }, {0.125, 0.375, 0.375, 0.125}, 4e-3},
      {"steep", [](double x, double) { return 3 * x - 1; }, {5.0 / 12, 1.0 / 12, 1.0 / 12, 5.0 / 12}, 5e-3},
  };
  for (const row& r : rows) {
    screen.forget();
    const int n = 11;
    std::vector<float> z;
    for (int j = 1; j <= n; ++j)
      for (int i = 1; i <= n; ++i) z.push_back(static_cast<float>(r.f((i - 1) / 10.0, (j - 1) / 10.0)));
    open_fill_plot(n, n, 4);
    ipgconfill2granul(10);
    const float boundaries[3] = {0.25f, 0.5f, 0.75f};
    ipgconfill2(z, n, n, boundaries);
    const auto shares = band_shares(drawn());
    for (int band = 1; band <= 4; ++band)
      EXPECT_NEAR(shares.count(band) ? shares.at(band) : 0.0, r.share[band - 1], r.tolerance)
          << r.name << " band " << band;
  }
}

// Uniform cells merge into one rectangle per row; a boundary that no value
// reaches leaves one run per row.
TEST_F(contour_fill, UniformRowsAreOneRectangle) {
  std::vector<float> z(6 * 4);
  for (std::size_t k = 0; k < z.size(); ++k) z[k] = static_cast<float>(k % 6);
  open_fill_plot(6, 4, 2);
  const float boundary[1] = {100};
  ipgconfill2(z, 6, 4, boundary);
  const auto boxes = drawn_of(recorded_kind::polygon);
  ASSERT_EQ(boxes.size(), 3u);  // three rows of cells
  for (const auto* b : boxes) {
    EXPECT_EQ(b->colour.number, 197);
    EXPECT_EQ(b->fill.style, 4);
  }
  EXPECT_TRUE(drawn_of(recorded_kind::polyline).empty());  // fills have no outline
}

// One band only: no boundaries at all, every run in the style of set 1.
TEST_F(contour_fill, SingleBand) {
  const float z[9] = {0, 1, 2, 3, 4, 5, 6, 7, 8};
  open_fill_plot(3, 3, 1);
  ipgconfill2(z, 3, 3);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_EQ(drawn_of(recorded_kind::polygon).size(), 2u);
  EXPECT_NEAR(band_shares(drawn())[1], 1.0, 1e-5);
}

// A value equal to a boundary belongs to the band above it.
TEST_F(contour_fill, ValueOnBoundaryTakesTheBandAbove) {
  const float z[4] = {0.5f, 0.5f, 0.5f, 0.5f};
  open_fill_plot(2, 2, 3);
  const float boundaries[2] = {0.5f, 0.9f};
  ipgconfill2(z, 2, 2, boundaries);
  const auto boxes = drawn_of(recorded_kind::polygon);
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]->colour.number, 198);
}

// A single cell crossed by a boundary, divided 10 x 10: each sub-row merges
// its boxes into one run per band, so 20 rectangles and not 100.
TEST_F(contour_fill, DividedCellMergesAlongSubRows) {
  const float z[4] = {0, 1, 0, 1};
  open_fill_plot(2, 2, 2);
  ipgconfill2granul(10);
  ipgconfill2granul(0);  // not positive: ignored
  EXPECT_EQ(ipgstate.igranul, 10);
  const float boundary[1] = {0.5f};
  ipgconfill2(z, 2, 2, boundary);
  const auto boxes = drawn_of(recorded_kind::polygon);
  EXPECT_EQ(boxes.size(), 20u);
  const auto shares = band_shares(drawn());
  EXPECT_NEAR(shares.at(1), 0.5, 1e-5);
  EXPECT_NEAR(shares.at(2), 0.5, 1e-5);
}

TEST_F(contour_fill, BadCalls) {
  const float z[4] = {0, 1, 2, 3};
  struct row {
    int layer, nx, ny;
    std::vector<float> levels;
    int error;
  };
  const row rows[] = {{8, 1, 2, {1, 2}, 1143},  // stride below npval1
                      {8, 2, 2, {2, 1}, 43},    // boundaries not ascending
                      {8, 2, 2, {1, 1}, 43},
                      {8 + 4, 2, 2, {1, 2}, 0},  // a colour mode is set: nothing, no message
                      {8, 2, 2, {1, 2, -5}, 0}};  // an extra entry is ignored
  for (const row& r : rows) {
    screen.forget();
    const int nvals[2] = {2, 2};
    ipgnewplot2(8, 3, nvals, r.layer);
    for (int L = 1; L <= 3; ++L) ipgstyle(L, 4, 3, 3, 196 + L, 196 + L);
    ipgconfill2(z, r.nx, 2, r.levels);
    EXPECT_EQ(winfoerror(1), r.error) << r.nx;
    if (r.error) {
      EXPECT_EQ(yyerror_routine(), "IPgConFill2");
    }
    EXPECT_EQ(drawn().empty(), r.error != 0 || r.layer != 8);
  }
}

// A cell with one missing corner is filled as the triangle of the other
// three: in the band of its smallest corner, or across a boundary only when
// cells are not divided, in the band of the corners' mean.
TEST_F(contour_fill, CellWithAMissingCornerIsATriangle) {
  struct row {
    float z[4];
    int granul;
    int band;  // 0: nothing drawn
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
    const float boundary[1] = {0.35f};
    ipgconfill2(r.z, 2, 2, boundary);
    const auto shapes = drawn_of(recorded_kind::polygon);
    if (r.band == 0) {
      EXPECT_TRUE(shapes.empty());
      continue;
    }
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_EQ(shapes[0]->points.size(), 3u);
    EXPECT_EQ(shapes[0]->colour.number, 196 + r.band);
    EXPECT_NEAR(band_shares(drawn())[r.band], 0.5, 1e-5);
  }
}
