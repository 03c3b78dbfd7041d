// The isosurface walk. Every cube of the box, one beyond each bound, is read
// afresh and its primitives are written straight into the flat vertex array:
// nothing is shared between neighbours, no vertex is merged, and the array
// is allocated once, so that a new level or box allocates nothing.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "crystal/vant_maps_calculations.h"
#include "crystal/vant_maps_mesh.h"

namespace {

// Along one axis, the cubes from one below the low bound to one above the
// high bound: each cube's two grid planes (1-based) and its base position.
// Indices are taken modulo the grid, and a plane 0 reads plane 1: plane 1
// serves for 0, 1 and n alike, which is why the walk reaches one cube beyond
// each bound.
struct axis_walk {
  std::vector<std::int32_t> lower, upper;
  std::vector<float> base;
  float size = 0.0f;  // cell size along the axis, step / n
};

std::int32_t plane(std::int64_t i, std::int32_t n) {
  const auto m = static_cast<std::int32_t>(((i % n) + n) % n);
  return m == 0 ? 1 : m;
}

axis_walk walk_along(float low, float high, std::int32_t n, std::int32_t step) {
  axis_walk w;
  const std::int64_t first = std::lround(low * static_cast<float>(n)) - 1;
  const std::int64_t last = std::lround(high * static_cast<float>(n)) + 1;
  for (std::int64_t i = first; i <= last; i += step) {
    w.lower.push_back(plane(i, n));
    w.upper.push_back(plane(i + step, n));
    w.base.push_back(static_cast<float>(i - 1) / static_cast<float>(n));
  }
  w.size = static_cast<float>(step) / static_cast<float>(n);
  return w;
}

// mc_method is read left-adjusted, to two characters.
bool triangle_half(std::string_view method) {
  const std::size_t first = method.find_first_not_of(' ');
  const std::string_view two = first == std::string_view::npos ? "" : method.substr(first, 2);
  return two == "TR" || two == "tr";
}

// A box reaching beyond four cells either way only repeats the cell; the
// bound keeps the walk finite on any limits, NaN included.
float within_reach(float limit) { return limit >= -4.0f ? std::min(limit, 5.0f) : -4.0f; }

// Writes the primitives of one cube from p on; false when xyz is full.
bool write_cube(const cube_row& row, float x0, float y0, float z0, const vec3f& size, float* xyz,
                std::int32_t& p) {
  const std::int32_t per = cube_edges_read(row[1]);
  const auto type = static_cast<float>(row[1]);
  for (std::int32_t prim = 0; prim < row[0]; ++prim) {
    if (p + per > max_points) {
      err_maps = true;
      err_maps_mess = "The number of points (ntr+" + std::to_string(per) + ") is higher than Max_Points: 500000!";
      return false;
    }
    for (std::int32_t k = 0; k < per; ++k) {
      const std::int32_t edge = row[static_cast<std::size_t>(2 + prim * per + k)];
      const vec3f& mid = cube_edge_mid[edge >= 1 && edge <= 12 ? edge : 0];
      float* v = xyz + 4 * static_cast<std::size_t>(p++);
      v[0] = x0 + mid[0] * size[0];
      v[1] = y0 + mid[1] * size[1];
      v[2] = z0 + mid[2] * size[2];
      v[3] = type;
    }
  }
  return true;
}

// A cube that the surface cuts: its place in the chunk's walk along x and
// in the walk along y and z, and its index, one bit per corner at or above
// the level.
struct cut_cube {
  std::uint32_t j, k;
  std::uint16_t i;
  std::uint8_t index;
};

// The walk along x is taken a chunk of cubes at a time. Within a chunk the
// eight corners of each cube come from short runs of four grid rows, which
// stay in the cache, instead of from eight places a plane apart; the cubes
// found cut are then put in the walk's order, x slowest and z fastest.
constexpr std::size_t chunk = 128;
std::vector<cut_cube> cut;  // kept from call to call, so that it grows once

void find_cut_cubes(const farray3<float>& rho, const std::array<axis_walk, 3>& axes, std::size_t i0,
                    std::size_t i1, float level) {
  const auto& [x, y, z] = axes;
  const auto row = [&](std::int32_t j, std::int32_t k) { return &rho(1, j, k); };
  cut.clear();
  for (std::size_t j = 0; j < y.base.size(); ++j) {
    for (std::size_t k = 0; k < z.base.size(); ++k) {
      const float* low_near = row(y.lower[j], z.lower[k]);
      const float* high_near = row(y.upper[j], z.lower[k]);
      const float* low_far = row(y.lower[j], z.upper[k]);
      const float* high_far = row(y.upper[j], z.upper[k]);
      for (std::size_t i = i0; i < i1; ++i) {
        const std::int32_t a = x.lower[i] - 1, b = x.upper[i] - 1;  // from 0 along the row
        const std::int32_t index = (low_near[a] >= level) | (low_near[b] >= level) << 1 |
                                   (high_near[b] >= level) << 2 | (high_near[a] >= level) << 3 |
                                   (low_far[a] >= level) << 4 | (low_far[b] >= level) << 5 |
                                   (high_far[b] >= level) << 6 | (high_far[a] >= level) << 7;
        // A cube wholly above or below the level, as most are, holds nothing.
        if (index == 0 || index == 255) continue;
        cut.push_back({static_cast<std::uint32_t>(j), static_cast<std::uint32_t>(k),
                       static_cast<std::uint16_t>(i - i0), static_cast<std::uint8_t>(index)});
      }
    }
  }
  std::stable_sort(cut.begin(), cut.end(), [](const cut_cube& u, const cut_cube& v) { return u.i < v.i; });
}

}  // namespace

void calculate_mesh(const farray3<float>& rho, const std::array<std::int32_t, 3>& ngrid,
                    std::span<const float> levels, std::string_view mc_method,
                    std::span<std::int32_t> npoints, farray2<float>& xyz,
                    const std::optional<std::array<float, 6>>& limits,
                    const std::optional<std::array<std::int32_t, 3>>& step) {
  set_cube_info();
  std::fill(npoints.begin(), npoints.end(), 0);
  const std::size_t nlevels = std::min(levels.size(), npoints.size());
  // Without a grid there are no cubes; a rho of other extents than ngrid
  // would be read out of bounds.
  for (int a = 1; a <= 3; ++a) {
    if (ngrid[a - 1] < 1 || rho.extent(a) != ngrid[a - 1]) return;
  }
  if (nlevels < 1) return;
  if (xyz.extent(1) != 4 || xyz.extent(2) != max_points) xyz.allocate(4, max_points);

  std::array<axis_walk, 3> axes;
  for (int a = 0; a < 3; ++a) {
    const float l1 = limits ? (*limits)[2 * a] : 0.0f, l2 = limits ? (*limits)[2 * a + 1] : 1.0f;
    const std::int32_t by = step ? std::max((*step)[a], 1) : 1;
    axes[a] = walk_along(within_reach(std::min(l1, l2)), within_reach(std::max(l1, l2)), ngrid[a], by);
  }
  const vec3f size{axes[0].size, axes[1].size, axes[2].size};
  const bool triangles = triangle_half(mc_method);
  const auto& [x, y, z] = axes;

  std::int32_t p = 0;
  for (std::size_t l = 0; l < nlevels; ++l) {
    const std::int32_t start = p;
    for (std::size_t i0 = 0; i0 < x.base.size(); i0 += chunk) {
      find_cut_cubes(rho, axes, i0, std::min(i0 + chunk, x.base.size()), levels[l]);
      for (const cut_cube& c : cut) {
        // The complement of a cube has the same surface: each half of the
        // table serves both.
        const bool in_half = triangles ? c.index > 127 : c.index <= 127;
        const cube_row& row = cube_info[in_half ? c.index : 255 - c.index];
        if (row[0] == 0 || cube_edges_read(row[1]) == 0) continue;
        write_cube(row, x.base[i0 + c.i], y.base[c.j], z.base[c.k], size, xyz.data(), p);
      }
    }
    npoints[l] = p - start;
  }
}
