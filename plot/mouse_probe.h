// The mouse over the plot: coordinates and density under the cursor for a
// section, turning of the surface plot.
#pragma once

#include <string>

// Handles a mouse move (the position in mensaje) by plot kind.
void proc_mousemove();

// The probe's line: "X:", "Y:", "Z:" each with a number in width 7 and 3
// decimals and 3 blanks after it, then "Density:" in width 9, 3 decimals.
std::string probe_line(float x, float y, float z, float density);
