// The frame of a three-dimensional layout: the box around the base, scales
// along the base edges nearest the viewer and up a corner, and labels that
// run along those edges.
#pragma once

#include <string_view>

// The base outline and the vertical edges at its three back corners, up to
// the top of the z range.
void yypgbox3();
// Ticks and numbers of axis 0 (x), 1 (y) or 2 (z); options as for the flat scales.
void yypgscale3(int axis, std::string_view options);
// The label of axis 0, 1 or 2 beside its scale, turned to run along the edge.
void yypglabel3(int axis, std::string_view text);
