// The isosurface mesh: a marching cubes of the program's own. Its table
// holds polygons rather than the usual triangles, and every vertex stands on
// the middle of a cube edge, so that a surface on a coarse grid is faceted.
//
// Cube corners carry bit values 1 (0,0,0), 2 (1,0,0), 4 (1,1,0), 8 (0,1,0),
// and 16, 32, 64, 128 at the same places one step up in z. A cube's index is
// the sum of the bits of the corners at or above the level.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "crystal/farray.h"
#include "crystal/vector_types.h"

// Records the mesh array holds: x, y, z and the primitive's type each.
constexpr std::int32_t max_points = 500000;

// One row of the cube table: the number of primitives n, their type t and
// twelve edge numbers (1 to 12, unused slots 0). Types, with the edges each
// primitive reads: 1 triangle (3); 2 four-sided polygon (4); 3 triangle and
// four-sided polygon (7); 4 two triangles and a four-sided polygon (10);
// 5 triangle and a line to the fourth point (4); 6 two triangles and a line
// to the seventh point (7).
using cube_row = std::array<std::int32_t, 14>;

// Rows 1 to 127 cover a cube with polygons; rows 128 to 254 hold the same
// surfaces in triangles, row 255 - i for row i. Rows 0 and 255 are empty.
inline std::array<cube_row, 256> cube_info{};

// Edge midpoints within the cube, for edges 0 (none: the origin) to 12.
extern const std::array<vec3f, 13> cube_edge_mid;

// Number of edge numbers one primitive of type t reads; 0 outside 1 to 6.
std::int32_t cube_edges_read(std::int32_t t);

// Fills cube_info, clearing each row before its values are set.
void set_cube_info();

// The surfaces of the given levels over rho (extents ngrid), one behind the
// other in xyz (4 x max_points, allocated on the first call): per vertex the
// fractional x, y, z, unfolded, and the primitive's type. npoints(l) gets
// the count of level l. mc_method "TR" (or "tr") takes the triangle half of
// the table, anything else the polygon half. limits are the low and high
// fractional bounds along x, y, z (default the cell); step the grid steps.
// A primitive that would overflow xyz sets err_maps and is left out; the
// walk goes on.
void calculate_mesh(const farray3<float>& rho, const std::array<std::int32_t, 3>& ngrid,
                    std::span<const float> levels, std::string_view mc_method,
                    std::span<std::int32_t> npoints, farray2<float>& xyz,
                    const std::optional<std::array<float, 6>>& limits = std::nullopt,
                    const std::optional<std::array<std::int32_t, 3>>& step = std::nullopt);
