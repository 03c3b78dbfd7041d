#include "toolkit/graphics/hatch.h"

#include <algorithm>

hatch_type hatch_of(const canvas_fill& fill) {
  static const int spacing[5] = {4, 6, 8, 12, 16};
  hatch_type h;
  if (fill.style < 1 || fill.style > 3) return h;
  h.spacing = spacing[std::clamp(fill.density, 1, 5) - 1];
  if (fill.style == 3) h.spacing = std::max(h.spacing / 2, 3);
  const int angle = std::clamp(fill.angle, 1, 4);
  h.directions = {angle, angle <= 2 ? angle + 2 : angle - 2};
  h.count = fill.style >= 2 ? 2 : 1;
  return h;
}

bool on_hatch(const hatch_type& hatch, int x, int y) {
  const int s = hatch.spacing;
  for (int k = 0; k < hatch.count; ++k) {
    bool on = false;
    switch (hatch.directions[static_cast<std::size_t>(k)]) {
      case 1: on = y % s == 0; break;
      case 2: on = (x + y) % s == 0; break;
      case 3: on = x % s == 0; break;
      default: on = (x - y + 16 * s) % s == 0; break;
    }
    if (on) return true;
  }
  return false;
}
