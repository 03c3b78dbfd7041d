// Labels along contour lines: where a line is straightest, far enough from
// the labels already placed, the line is broken and the label (a number, a
// letter, a marker or the level value) is drawn in the gap along the line.
#pragma once

#include <vector>

#include "toolkit/graphics/canvas.h"

// The gaps placed so far in one contour drawing: their two end points, in
// pixels, for at most four labels a set.
struct contour_label_gaps {
  std::vector<pixel_point> ends;
};

// Draws a contour line of set L at `level` through the points x, y (graphics
// units), with its label when the set's label type (ipgstyl(2,L)) asks for
// one: 1 the number ipgmark(L) or L, 2 the letter of that number, 3 or 4 the
// marker ipgmark(L) or ipgstyl(3,L), 5 the level value. Type 6, a text of the
// caller, has no source here and draws the plain line.
void draw_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                       contour_label_gaps& gaps);
