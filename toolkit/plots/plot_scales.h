// Scales of the plot axes: the automatic tick values, the number texts, and
// the drawing of ticks and numbers along the x and y edges.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Ticks of an axis: count values first, first + step, ...; exponent is the
// decimal exponent that the range was normalised by, and decides the look
// of the numbers.
struct scale_ticks {
  float first = 0;
  float step = 1;
  int count = 0;
  int exponent = 0;
};

// The automatic ticks between low and high (low < high). The z axis never
// takes a step factor of 1.
scale_ticks yypgautoscale(float low, float high, bool z_axis = false);

// The tick values of axis 0 (x), 1 (y) or 2 (z) between its ascending
// limits: the user's values that lie in the range, or the automatic ones;
// `ticks` receives the automatic scale, whose exponent sets the number look.
std::vector<float> yypgscalevalues(int axis, scale_ticks& ticks);

// A tick value as text: "0" for zero, a fixed, integer or scientific form by
// the exponent, trimmed; "0.5" shows as ".5" and "-0.5" as "-.5", and a
// trailing ".0" is cut unless ndecpl is 1.
std::string yypgrealtostring(float value, int exponent);

// Ticks and numbers along the lower x edge and the left y edge. Options: "T"
// ticks, "N" numbers, "I" ticks inward, "B" ticks both ways; blank draws
// nothing. A user scale (ipgxuserscale, ipgyuserscale) replaces the
// automatic values. In a three-dimensional layout the scales run along the
// base edges nearest the viewer.
void ipgxscale(std::string_view options);
void ipgyscaleleft(std::string_view options);
// The z scale of a three-dimensional layout, up the box's left corner;
// nothing in a flat layout.
void ipgzscale(std::string_view options);
