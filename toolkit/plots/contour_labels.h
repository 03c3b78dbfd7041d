// Labels along contour lines: where a line is straightest, far enough from
// the labels already placed, the line is broken and the label (a number, a
// letter, a marker or the level value) is drawn in the gap along the line.
// Choosing the place is kept apart from drawing: `lay_out_contour_line`
// only reads the plot and text state, `draw_contour_line` draws.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "toolkit/graphics/canvas.h"

// The gaps placed so far in one contour drawing: their two end points, in
// pixels, for at most four labels a set.
struct contour_label_gaps {
  std::vector<pixel_point> ends;
};

// A label standing in the gap of its line: a text, or (text empty) a marker,
// at x, y (graphics units). A text runs at `angle` degrees from there, and
// ends there instead when `alignment` is 2 (turned so as not to read upside
// down); a marker is centred there.
struct placed_label {
  std::string text;
  int marker = 0;
  float x = 0, y = 0;
  int alignment = 0;
  float angle = 0;
  pixel_point gap_start, gap_end;  // the gap's ends, for the clearance of later labels
};

// How one contour line is drawn: whole when it keeps no label, else in two
// pieces (graphics units), from its first point to the gap's start and from
// the gap's end to its last point, with the label in the gap.
struct contour_line_layout {
  std::optional<placed_label> label;
  std::vector<float> before_x, before_y;
  std::vector<float> after_x, after_y;
};

// The layout of a contour line of set L at `level` through the points x, y
// (graphics units), with a label when the set's label type (ipgstyl(2,L))
// asks for one and the line has room for it: 1 the number ipgmark(L) or L,
// 2 the letter of that number, 3 or 4 the marker ipgmark(L) or ipgstyl(3,L),
// 5 the level value. Type 6, a text of the caller, has no source here and
// keeps the line whole.
contour_line_layout lay_out_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                                         const contour_label_gaps& gaps);

// Draws that line with its label, and adds the label's gap to `gaps`.
void draw_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                       contour_label_gaps& gaps);
