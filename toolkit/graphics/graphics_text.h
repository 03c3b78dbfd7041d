// Text: font, orientation, strings and numbers at a point, text length.
#pragma once

#include <optional>
#include <string_view>

#include "toolkit/graphics/canvas.h"

// The font: family (1 or 101 a scalable drawn font, 2 or 102 a system font;
// all are drawn with one legible font here), style (bit 1 italic, bit 2
// bold), character width and height as fractions of the area. A missing item
// keeps its present value; a size that is not positive is kept too.
void wgrtextfont(std::optional<int> family = std::nullopt, std::optional<int> style = std::nullopt,
                 std::optional<float> width = std::nullopt, std::optional<float> height = std::nullopt);
// Alignment at the anchor (0 left, 1 centre, 2 right) and angle in degrees.
// An alignment outside 0..2 is kept as it was.
void wgrtextorientation(int alignment, std::optional<float> angle = std::nullopt);
// Draws the text, trailing blanks ignored, at the point.
void wgrtextstring(float x, float y, std::string_view text);
// Draws a number written by a Fortran format such as "(F6.2)"; a format that
// cannot be read is error 1015 and draws nothing.
void wgrtextreal(float x, float y, float value, std::string_view format);
// The length of the text (trailing blanks ignored) in characters of the
// present width: the drawn width divided by the character width.
float wgrtextlength(std::string_view text);

// The text style of the present state, in pixels of the present target.
canvas_text_style current_text_style();
