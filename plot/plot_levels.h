// The levels of a contour picture: how many, over which range (density or
// sigma units), the colour set they take and the line type of each.
#pragma once

#include <array>
#include <cstdint>

// The levels dialog; with the isosurface view, the isolevel dialog.
void proc_levels();
// The colour set dialog.
void proc_lcolor();
// The line type and width dialog.
void proc_ltype();

// A colour per level, 0 to 255 each component.
struct colour_set_type {
  std::array<std::int32_t, 20> red{}, green{}, blue{};
};

// Palette slots 197 to 216 take the colours of the levels 1 to 20.
void use_colour_set(const colour_set_type& set);
