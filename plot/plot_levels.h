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

// A density in sigma units: density / densigma, and 0 on a flat map, whose
// sigma is 0 (the levels of a flat map then coincide and nothing is drawn).
float sigma_units(float density);

// A colour per level, 0 to 255 each component.
struct colour_set_type {
  std::array<std::int32_t, 20> red{}, green{}, blue{};
};

// Palette slots 197 to 216 take the colours of the levels 1 to 20.
void use_colour_set(const colour_set_type& set);
