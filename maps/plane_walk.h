// The grid step of a section's plane that holds a fractional coordinate, for
// the resampling of skewed sections.
#pragma once

#include <cstdint>

struct plane_cell {
  std::int32_t i1 = 1, i2 = 1;  // the two grid indices around the point
  float lo = 0.0f, hi = 0.0f;   // fractional positions of the step's ends
};

// Walks the steps lo = fmod((i-1) du, 1), hi = lo + du, du = 1/n, for i from
// first to n and stops at the first one whose lo equals a within 0.0001 or
// that holds a (lo < a <= hi); without a stop it ends on step n. The second
// index is i + 1, or 1 after the last step.
plane_cell walk_plane_cells(float a, std::int32_t n, std::int32_t first);

// The same step as the walk from 1, found by starting the walk a few steps
// below a instead of at the origin: every step skipped lies wholly more than
// a step below a, where the walk cannot stop.
plane_cell locate_in_plane(float a, std::int32_t n);
