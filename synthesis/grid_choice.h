// The grid of a map when the control file gives none: fine enough for the
// data, with sizes the FFT handles fast and the group's translations land on.
#pragma once

#include <array>
#include <cstdint>

#include "crystal/vant_crystallographic_symmetry.h"

// The largest map sintrel makes, in grid points (512 MB of density), and the
// largest size along one axis.
constexpr std::int64_t max_grid_points = std::int64_t{1} << 27;
constexpr std::int32_t max_grid_size = 2048;

// Along each axis: spacing at most d_min/3 (so at least 3 a / d_min points,
// and never fewer than 4), a multiple of 2 and of the denominators of the
// group's translations along the axis, with no prime factor but 2, 3 and 5.
// A d_min of 0 or below means no reflection: the smallest grid.
std::array<std::int32_t, 3> automatic_grid(const vec3f& cell, double d_min, const space_group_type& group);
