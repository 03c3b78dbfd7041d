// Small pieces of map geometry shared by the section routines: the
// tolerance of 0.0001 (limit included), the wrap of closed-grid indices, the
// matrix product with its snap to zero, bilinear interpolation.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "crystal/farray.h"
#include "crystal/vector_types.h"

namespace map_geometry {

// Absolute tolerance of map geometry, limit included.
constexpr float tolerance = 0.0001f;

inline bool near(float a, float b) { return std::fabs(a - b) <= tolerance; }

inline float snap_zero(float v) { return std::fabs(v) <= tolerance ? 0.0f : v; }

// Index i of the closed grid (1 to n+1) taken back to the n planes of rho:
// i modulo (n+1), with 0 read as 1, so that plane n+1 repeats plane 1.
inline std::int32_t wrap_index(std::int32_t i, std::int32_t n) {
  const std::int32_t m = n + 1;
  const std::int32_t r = ((i % m) + m) % m;
  return r == 0 ? 1 : r;
}

// Extents of a section along an axis of ngrid points: the closed grid,
// ngrid + 1, and the doubled grid of a skewed family, 2 (ngrid + 1) - 1.
// A grid too large for them (only a damaged file has one) gives 0.
inline std::int32_t closed_extent(std::int32_t ngrid) {
  return ngrid < std::numeric_limits<std::int32_t>::max() ? ngrid + 1 : 0;
}
inline std::int32_t doubled_extent(std::int32_t ngrid) {
  return ngrid < (std::numeric_limits<std::int32_t>::max() - 1) / 2 ? 2 * (ngrid + 1) - 1 : 0;
}

inline bool shape_is(const farray3<float>& a, std::int32_t n1, std::int32_t n2, std::int32_t n3) {
  return a.allocated() && a.extent(1) == n1 && a.extent(2) == n2 && a.extent(3) == n3;
}

// The two grid planes of rho around a coordinate along one axis, and the
// weight of the second one.
struct axis_cell {
  std::int32_t i1 = 1, i2 = 1;
  float t = 0.0f;
};

// Walks the n grid steps of size d = 1/n from the origin and stops at the
// first that holds c. The grid of rho is taken to cover the whole cell at
// that step, whatever the step of the box. A c beyond the last step (by
// rounding, or beyond the one period a fold handles) runs off the walk:
// both corners then come out as plane 1.
inline axis_cell locate_on_axis(float c, std::int32_t n, float d) {
  std::int32_t ii = n + 1;
  for (std::int32_t k = 1; k <= n; ++k) {
    const float lo = static_cast<float>(k - 1) * d;
    const float hi = static_cast<float>(k) * d;
    if (near(lo, c) || (c > lo && !(hi < c))) {
      ii = k;
      break;
    }
  }
  axis_cell cell;
  cell.i1 = wrap_index(ii, n);
  cell.i2 = wrap_index(ii + 1, n);
  cell.t = snap_zero((c - static_cast<float>(cell.i1 - 1) * d) * static_cast<float>(n));
  return cell;
}

// The bilinear values over the lower (z.i1) and the upper (z.i2) plane of
// the grid cell given by x, y, z; each caller weighs the two by z.t.
struct layer_pair {
  float lower, upper;
};
inline layer_pair layer_values(const farray3<float>& rho, const axis_cell& x, const axis_cell& y,
                               const axis_cell& z) {
  const float tx = x.t, ty = y.t;
  auto plane = [&](std::int32_t k) {
    return (1.0f - ty) * (1.0f - tx) * rho(x.i1, y.i1, k) + (1.0f - ty) * tx * rho(x.i2, y.i1, k) +
           tx * ty * rho(x.i2, y.i2, k) + (1.0f - tx) * ty * rho(x.i1, y.i2, k);
  };
  return {plane(z.i1), plane(z.i2)};
}

// m . v, each result of absolute value 0.0001 or less set to 0.
inline vec3f times(const mat3f& m, const vec3f& v) {
  vec3f out{};
  for (std::size_t r = 0; r < 3; ++r) out[r] = snap_zero(m[r][0] * v[0] + m[r][1] * v[1] + m[r][2] * v[2]);
  return out;
}

// f00 + (f10 - f00) t + ((f00 - f10 - f01 + f11) t + (f01 - f00)) s.
inline float bilinear(float f00, float f10, float f01, float f11, float t, float s) {
  return f00 + (f10 - f00) * t + ((f00 - f10 - f01 + f11) * t + (f01 - f00)) * s;
}

}  // namespace map_geometry
