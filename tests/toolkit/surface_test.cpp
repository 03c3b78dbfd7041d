#include <cmath>
#include <string>
#include <vector>

#include "tests/toolkit/plot_fixture.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/surface.h"
#include "toolkit/plots/surface_view.h"

namespace {

// A surface plot over the unit square and z 0..1, n x n nodes, at the given view.
void open_surface(int n, float rotation, float elevation, int sets = 2) {
  const int nvals[] = {n, n};
  ipgnewplot2(8, sets, nvals, 33);
  ipgunits(0, 0, 1, 1);
  ipgunitsz(0, 1);
  ipgelevation(elevation);
  ipgrotation(rotation);
}

// A drawn pixel in the unit square that all these plots span.
plot_point unit(const pixel_point& p) { return {p.x / 400.0, 1 - p.y / 400.0}; }

// Even-odd test of a point against a drawn polygon, in plot units.
bool inside(const recorded_primitive& polygon, plot_point p) {
  bool in = false;
  const auto& v = polygon.points;
  for (std::size_t a = 0, b = v.size() - 1; a < v.size(); b = a++) {
    const plot_point pa = unit(v[a]), pb = unit(v[b]);
    if ((pa.y > p.y) != (pb.y > p.y) && p.x < (pb.x - pa.x) * (p.y - pa.y) / (pb.y - pa.y) + pa.x) in = !in;
  }
  return in;
}

bool has_vertex(const recorded_primitive& shape, plot_point p) {
  for (const auto& v : shape.points) {
    const plot_point q = unit(v);
    if (std::fabs(q.x - p.x) < 0.006 && std::fabs(q.y - p.y) < 0.006) return true;
  }
  return false;
}

}  // namespace

using surface_plot = recorded_plot;

TEST_F(surface_plot, ElevationAndRotationAreKeptInRange) {
  ipgelevation(50);
  EXPECT_FLOAT_EQ(ipgstate.elev3d, 1);
  ipgelevation(22.5f);
  EXPECT_FLOAT_EQ(ipgstate.elev3d, 0.5f);
  ipgelevation(-3);
  EXPECT_FLOAT_EQ(ipgstate.elev3d, 0);
  ipgrotation(-90);
  EXPECT_FLOAT_EQ(ipgstate.rota3d, 270);
  EXPECT_NEAR(ipgstate.cosr3d1, -0.70710677, 1e-5);  // cos 225
  EXPECT_NEAR(ipgstate.cosr3d2, 0.70710677, 1e-5);   // cos 315
  ipgrotation(360);
  EXPECT_FLOAT_EQ(ipgstate.rota3d, 0);
  ipgrotation(-400);
  EXPECT_FLOAT_EQ(ipgstate.rota3d, 0);
}

// Corners of the unit box worked out by hand. At elevation 22.5 the base
// spreads over half the height and the z range takes the other half; at 0
// the base is seen edge on and the z range is centred.
TEST_F(surface_plot, ProjectionOfTheBoxCorners) {
  struct row {
    float rotation, elevation, x, y, z, gx, gy;
  };
  const row rows[] = {
      {0, 22.5f, 0, 0, 0, 0, 0.25f},     {0, 22.5f, 1, 0, 0, 0.5f, 0.5f},  {0, 22.5f, 0, 1, 0, 0.5f, 0},
      {0, 22.5f, 1, 1, 1, 1, 0.75f},     {0, 22.5f, 1, 1, 5, 1, 0.75f},    {0, 22.5f, 0, 0, -2, 0, 0.25f},
      {90, 22.5f, 0, 0, 0, 0.5f, 0.5f},  {90, 22.5f, 1, 0, 0, 1, 0.25f},   {90, 22.5f, 0, 1, 0, 0, 0.25f},
      {90, 22.5f, 1, 1, 0, 0.5f, 0},     {0, 0, 0, 1, 0, 0.5f, 0.25f},     {0, 0, 1, 0, 1, 0.5f, 0.75f},
  };
  for (const row& r : rows) {
    open_surface(3, r.rotation, r.elevation);
    float gx = 0, gy = 0;
    ipgunitstogrunits3(r.x, r.y, r.z, gx, gy);
    EXPECT_NEAR(gx, r.gx, 1e-4) << r.rotation << " " << r.x << "," << r.y << "," << r.z;
    EXPECT_NEAR(gy, r.gy, 1e-4) << r.rotation << " " << r.x << "," << r.y << "," << r.z;
  }
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
  const float boundary[] = {0.2f};
  ipgsurf3datacont(z, 5, 5, boundary);
  const auto tiles = drawn_of(recorded_kind::polygon);
  ASSERT_EQ(tiles.size(), 16u);
  EXPECT_EQ(drawn_of(recorded_kind::polyline).size(), 16u);  // one grid outline a tile

  // The far tile's base centre, a little off the peak's vertical.
  const plot_point behind{0.51, 0.4375};
  const plot_point apex{0.5, 0.75};
  std::size_t far_tile = tiles.size(), last_cover = tiles.size();
  for (std::size_t k = 0; k < tiles.size(); ++k) {
    if (!inside(*tiles[k], behind)) continue;
    if (has_vertex(*tiles[k], {0.5, 0.5})) far_tile = k;  // its far corner, node (5, 1)
    last_cover = k;
  }
  ASSERT_LT(far_tile, tiles.size());
  EXPECT_GT(last_cover, far_tile);
  EXPECT_TRUE(has_vertex(*tiles[last_cover], apex));
  EXPECT_EQ(tiles[last_cover]->fill.colour.number, 20);  // mean 0.25: the upper band
  EXPECT_EQ(tiles[far_tile]->fill.colour.number, 10);
}

TEST_F(surface_plot, WalkOrderTurnsAtFortyFiveDegrees) {
  const std::vector<float> z(9, 0.0f);
  struct row {
    float rotation, far_x, far_y;  // the far corner of the base, plot units
  };
  const row rows[] = {{44, 1, 0}, {46, 0, 0}, {136, 0, 1}, {226, 1, 1}};
  for (const row& r : rows) {
    screen.forget();
    open_surface(3, r.rotation, 22.5f, 1);
    ipgsurf3datacont(z, 3, 3);
    const auto tiles = drawn_of(recorded_kind::polygon);
    ASSERT_EQ(tiles.size(), 4u);
    // The first tile painted holds the far corner, the highest on the screen.
    float gx = 0, gy = 0;
    ipgunitstogrunits3(r.far_x, r.far_y, 0, gx, gy);
    EXPECT_TRUE(has_vertex(*tiles[0], {gx, gy})) << r.rotation;
    float top = -1;
    for (float cx : {0.0f, 1.0f})
      for (float cy : {0.0f, 1.0f}) {
        float x = 0, y = 0;
        ipgunitstogrunits3(cx, cy, 0, x, y);
        top = std::max(top, y);
      }
    EXPECT_NEAR(gy, top, 1e-4) << r.rotation;
  }
}

TEST_F(surface_plot, BadGridsAndLevelsDrawNothing) {
  const std::vector<float> z(9, 0.0f);
  const float descending[] = {0.6f, 0.4f};
  open_surface(3, 0, 22.5f, 3);
  ipgsurf3datacont(z, 2, 3);
  EXPECT_EQ(winfoerror(1), 1143);
  ipgsurf3datacont(z, 3, 3, descending);
  EXPECT_EQ(winfoerror(1), 43);
  const int nvals[] = {3, 3};
  ipgnewplot2(8, 3, nvals, 8);  // flat layout
  ipgsurf3datacont(z, 3, 3);
  EXPECT_TRUE(drawn().empty());
}

// At rotation 0 the near corner is (x 0, y 1): the box has vertical edges at
// the three other corners only, and the scales and labels run beside it.
TEST_F(surface_plot, BoxScalesAndLabels) {
  open_surface(3, 0, 22.5f);
  ipgaxes();
  const auto lines = drawn_of(recorded_kind::polyline);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0]->points.size(), 5u);
  for (plot_point c : {plot_point{0, 0.25}, plot_point{0.5, 0.5}, plot_point{0.5, 0}, plot_point{1, 0.25}})
    EXPECT_TRUE(has_vertex(*lines[0], c));
  for (std::size_t k = 1; k < 4; ++k) {
    EXPECT_FALSE(has_vertex(*lines[k], {0.5, 0})) << k;
    const plot_point a = in_plot_units(lines[k]->points[0]), b = in_plot_units(lines[k]->points[1]);
    EXPECT_NEAR(a.x, b.x, 0.003);
    EXPECT_NEAR(std::fabs(a.y - b.y), 0.5, 0.006);
  }

  screen.forget();
  ipgzscale("TN");
  ipgzlabelleft("Density");
  std::vector<std::string> texts;
  for (const auto* t : drawn_of(recorded_kind::text)) texts.push_back(t->text);
  EXPECT_EQ(texts, (std::vector<std::string>{"0", ".2", ".4", ".6", ".8", "1", "Density"}));
  EXPECT_FLOAT_EQ(drawn_of(recorded_kind::text).back()->text_style.angle, 90);

  screen.forget();
  const float ticks[] = {0, 0.5f, 1};
  ipgxuserscale(ticks, 3);
  ipgxscale("TN");
  ipgxlabel("y/b");
  const auto x_texts = drawn_of(recorded_kind::text);
  ASSERT_EQ(x_texts.size(), 4u);
  EXPECT_EQ(x_texts[1]->text, ".5");
  // The x edge at rotation 0 rises from (0.5, 0) to (1, 0.25): the label runs up along it.
  EXPECT_NEAR(x_texts[3]->text_style.angle, 26.565, 0.1);
  EXPECT_EQ(drawn_of(recorded_kind::polyline).size(), 3u);
}
