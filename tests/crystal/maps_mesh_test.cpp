#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include "crystal/vant_maps_calculations.h"
#include "crystal/vant_maps_mesh.h"
#include "tests/data_files.h"

namespace {

using edge_set = std::set<std::int32_t>;

// Every table row uses exactly the edges whose two corners lie on opposite
// sides of the level; the triangle half holds only triangles, at most four,
// and tiles the pentagons and hexagons that types 5 and 6 outline: a side off
// the cube's faces is a diagonal, which two triangles share.
TEST(CubeTable, EveryRowUsesTheEdgesWhoseCornersDiffer) {
  // Corner bits go round the bottom face from the origin (0, 1, 2, 3), then
  // round the top face (4 to 7); an edge joins its midpoint's 0.5 put to 0 and 1.
  const auto bit_at = [](float x, float y, float z) { return 4 * int(z) + (y > 0 ? 3 - int(x) : int(x)); };
  std::vector<std::pair<int, int>> corners_of(13);
  std::vector<std::vector<float>> mid(13);
  for (const auto& r : data_table("crystal/cube_edges.txt", 2)) {
    const int e = std::stoi(r[0]);
    mid[e] = numbers(r[1]);
    const auto end = [&](int a) { return mid[e][a] == 0.5f ? 0.0f : mid[e][a]; };
    const auto other = [&](int a) { return mid[e][a] == 0.5f ? 1.0f : mid[e][a]; };
    corners_of[e] = {bit_at(end(0), end(1), end(2)), bit_at(other(0), other(1), other(2))};
    EXPECT_EQ(cube_edge_mid[e], (vec3f{mid[e][0], mid[e][1], mid[e][2]})) << "edge " << e;
  }
  set_cube_info();
  for (int index = 0; index < 256; ++index) {
    edge_set expected;
    for (int e = 1; e <= 12; ++e)
      if (((index >> corners_of[e].first) & 1) != ((index >> corners_of[e].second) & 1)) expected.insert(e);
    const cube_row& row = cube_info[index];
    EXPECT_EQ(edge_set(row.begin() + 2, row.begin() + 2 + row[0] * cube_edges_read(row[1])), expected) << index;
    if (index < 128 || index == 255) continue;
    EXPECT_TRUE(row[1] == 1 && row[0] <= 4) << "row " << index;
    std::map<std::pair<int, int>, int> sides;
    for (int k = 0; k < 3 * row[0]; ++k) {
      const int a = row[2 + k], b = row[2 + k - k % 3 + (k + 1) % 3];
      ++sides[{std::min(a, b), std::max(a, b)}];
    }
    for (const auto& [side, uses] : sides) {
      bool on_face = cube_info[255 - index][1] < 5;
      for (int a = 0; a < 3; ++a) on_face |= mid[side.first][a] != 0.5f && mid[side.first][a] == mid[side.second][a];
      EXPECT_TRUE(on_face || uses == 2) << "row " << index << ", side " << side.first << "-" << side.second;
    }
  }
}

// A 4 x 4 x 4 map of background values with one other point at (3, 3, 3).
farray3<float> one_point(float background, float point) {
  farray3<float> m(4, 4, 4);
  std::fill(m.data(), m.data() + m.size(), background);
  m(3, 3, 3) = point;
  return m;
}

std::vector<float> records(const farray2<float>& xyz, int from, int count) {
  return {xyz.data() + 4 * from, xyz.data() + 4 * (from + count)};
}

// The walk starts one cube below the cell, where plane -1 is plane 3: the
// first cube holding the point as its corner 1 is at (-1, -1, -1), with its
// vertices on the midpoints of edges 1, 4 and 9. Each of the 27 cubes that
// touch the point (three per axis) holds one triangle. The complement, index
// 254, is row 1 again; a constant map or a level outside the map gives none.
TEST(CalculateMesh, OnePointAndItsComplement) {
  const std::vector<float> corner_one{-0.375f, -0.5f, -0.5f, 1, -0.5f, -0.375f, -0.5f, 1, -0.5f, -0.5f, -0.375f, 1};
  const struct {
    const char* name;
    farray3<float> map;
    float level;
    const char* method;
    int npoints;
  } rows[] = {
      {"corner 1 alone", one_point(0, 1), 0.5f, "TT", 81},
      {"all but corner 1", one_point(1, 0), 0.5f, "TT", 81},
      {"corner 1 alone, triangles", one_point(0, 1), 0.5f, " tr", 81},
      {"all but corner 1, triangles", one_point(1, 0), 0.5f, "TR", 81},
      {"level above the maximum", one_point(0, 1), 1.01f, "TT", 0},
      {"level at the minimum", one_point(0, 1), 0.0f, "TT", 0},
      {"constant map at its value", one_point(2, 2), 2.0f, "TR", 0},
  };
  farray2<float> xyz;
  for (const auto& r : rows) {
    std::int32_t npoints = -1;
    calculate_mesh(r.map, {4, 4, 4}, std::span(&r.level, 1), r.method, std::span(&npoints, 1), xyz);
    EXPECT_EQ(npoints, r.npoints) << r.name;
    if (npoints > 0) {
      EXPECT_EQ(records(xyz, 0, 3), corner_one) << r.name;
    }
  }
}

// limits 0.25 to 0.5 over 24 points take cubes 5 to 13, whose vertices run
// from 4/24 to 13/24; a step of 2 over 8 points takes cubes -1, 1, ..., 9 of
// size 2/8. The map alternates along y and z, so that every cube is cut.
TEST(CalculateMesh, LimitsAndStepBoundTheWalk) {
  const struct {
    std::int32_t nx;
    std::optional<std::array<float, 6>> limits;
    std::optional<std::array<std::int32_t, 3>> step;
    float xmin, xmax;
  } rows[] = {
      {24, std::array<float, 6>{0.5f, 0.25f, 0, 1, 0, 1}, std::nullopt, 4.0f / 24, 13.0f / 24},
      {8, std::nullopt, std::array<std::int32_t, 3>{2, 1, 1}, -2.0f / 8, 10.0f / 8},
  };
  farray2<float> xyz;
  for (const auto& r : rows) {
    farray3<float> map(r.nx, 4, 4);
    for (int q = 0; q < 16 * r.nx; ++q) map.data()[q] = static_cast<float>((q / r.nx + q / (4 * r.nx)) % 2);
    const float level = 0.5f;
    std::int32_t npoints = 0;
    calculate_mesh(map, {r.nx, 4, 4}, std::span(&level, 1), "TT", std::span(&npoints, 1), xyz, r.limits, r.step);
    float lo = 1e9f, hi = -1e9f;
    for (int p = 1; p <= npoints; ++p) std::tie(lo, hi) = std::pair(std::min(lo, xyz(1, p)), std::max(hi, xyz(1, p)));
    EXPECT_FLOAT_EQ(lo, r.xmin) << "nx " << r.nx;
    EXPECT_FLOAT_EQ(hi, r.xmax) << "nx " << r.nx;
  }
}

// A noisy 64^3 map cut at its mean makes more than the array holds: the mesh
// stops just short of the end, the error pair tells it, and every record
// carries a type 1 to 6.
TEST(CalculateMesh, OverflowStopsShortOfTheEnd) {
  farray3<float> map(64, 64, 64);
  std::uint32_t seed = 12345;
  for (std::size_t k = 0; k < map.size(); ++k) {
    seed = seed * 1664525u + 1013904223u;
    map.data()[k] = static_cast<float>(seed >> 8) / 16777216.0f;
  }
  const float level = 0.5f;
  std::int32_t npoints = 0;
  farray2<float> xyz;
  err_maps = false;
  calculate_mesh(map, {64, 64, 64}, std::span(&level, 1), "TT", std::span(&npoints, 1), xyz);
  EXPECT_GE(npoints, 499991);
  EXPECT_LE(npoints, max_points);
  EXPECT_TRUE(err_maps);
  EXPECT_TRUE(err_maps_mess.starts_with("The number of points (ntr+") &&
              err_maps_mess.ends_with(") is higher than Max_Points: 500000!"))
      << err_maps_mess;
  int typed = 0;
  for (int p = 1; p <= npoints; ++p) typed += xyz(4, p) == std::round(xyz(4, p)) && xyz(4, p) >= 1 && xyz(4, p) <= 6;
  EXPECT_EQ(typed, npoints);
}

}  // namespace
