// The drawing area of the target, its graphics units, and the conversions
// between graphics units and pixels.
#pragma once

#include <optional>
#include <span>

#include "toolkit/graphics/canvas.h"

// The area as fractions of the target. Each axis needs 0 <= low < 1,
// 0 < high <= 1 and low < high; an axis that fails becomes 0 to 1 and error
// 44 is reported.
void igrarea(float xlow, float ylow, float xhigh, float yhigh);
// The graphics units of the area. Each axis needs high > low; an axis that
// fails becomes 0 to 1 and error 16 is reported.
void igrunits(float xlow, float ylow, float xhigh, float yhigh);
// Fills the area with the background, colour number 0.
void igrareaclear();

// The pixel of a point. Negative positions round down (0.999 is taken off
// before truncation); with `from_bottom` true y counts up from the bottom row.
void igrunitstopixels(float x, float y, int& ix, int& iy, std::optional<bool> from_bottom = std::nullopt);
// The point at the centre of a pixel.
void igrunitsfrompixels(int ix, int iy, float& x, float& y, std::optional<bool> from_bottom = std::nullopt);

// The position of a point on the canvas in pixels, with fractions, y downward.
pixel_point units_to_canvas(float x, float y);
// The same for each of the points, given in graphics units, in place.
void units_to_canvas(std::span<pixel_point> points);
// A length along x in graphics units as pixels.
float x_units_to_pixels(float length);
