#include <cmath>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/surface.h"
#include "toolkit/plots/surface_view.h"

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

