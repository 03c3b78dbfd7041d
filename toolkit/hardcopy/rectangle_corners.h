// The four corners of a pixel rectangle, for drivers that clear by filling.
#pragma once

#include <array>

#include "toolkit/graphics/canvas.h"

inline std::array<pixel_point, 4> rectangle_corners(int left, int top, int w, int h) {
  const auto x0 = static_cast<float>(left), y0 = static_cast<float>(top);
  const auto x1 = static_cast<float>(left + w), y1 = static_cast<float>(top + h);
  return {{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}};
}
