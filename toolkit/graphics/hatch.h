// The hatch of fill styles 1 to 3, the same on the screen and on paper. The
// lines lie `spacing` pixels apart by density (1 to 5: 4, 6, 8, 12, 16) and
// run in the fill's direction (angle 1 horizontal, 2 rising, 3 vertical,
// 4 falling); style 2 adds the crossing direction, style 3 does so at half
// the spacing. Any other style fills solid and has no hatch (count 0).
#pragma once

#include <array>

#include "toolkit/graphics/canvas.h"

struct hatch_type {
  int spacing = 0;
  std::array<int, 2> directions{};  // 1 horizontal, 2 rising, 3 vertical, 4 falling
  int count = 0;                    // directions in use
};

hatch_type hatch_of(const canvas_fill& fill);

// Whether pixel (x, y), y counted downwards, lies on a line of the hatch.
bool on_hatch(const hatch_type& hatch, int x, int y);
