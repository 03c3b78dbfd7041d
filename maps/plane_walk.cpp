#include "maps/plane_walk.h"

#include <cmath>

#include "maps/map_geometry.h"

using map_geometry::tolerance;

plane_cell walk_plane_cells(float a, std::int32_t n, std::int32_t first) {
  const float du = 1.0f / static_cast<float>(n);
  plane_cell cell;
  for (std::int32_t iu = first; iu <= n; ++iu) {
    cell.i1 = iu;
    cell.lo = std::fmod(static_cast<float>(iu - 1) * du, 1.0f);
    cell.hi = cell.lo + du;
    if (std::fabs(cell.lo - a) <= tolerance || (cell.lo < a && a <= cell.hi)) break;
  }
  cell.i2 = cell.i1 + 1 == n + 1 ? 1 : cell.i1 + 1;
  return cell;
}

plane_cell locate_in_plane(float a, std::int32_t n) {
  // Steps up to index floor((a - du - 2 tol) n) - 2 end more than 2 tol
  // below a, so the walk passes them by; a coordinate outside the cell (or
  // not a number) takes the whole walk.
  std::int32_t first = 1;
  if (a >= 0.0f && a <= 1.0f) {
    const float du = 1.0f / static_cast<float>(n);
    const auto below = static_cast<std::int32_t>(std::floor((a - du - 2.0f * tolerance) * static_cast<float>(n)));
    if (below - 1 > first) first = below - 1;
  }
  return walk_plane_cells(a, n, first);
}
