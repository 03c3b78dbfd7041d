#include <cmath>
#include <map>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/contour.h"

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
