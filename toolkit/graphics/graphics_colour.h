// Colours: the palette of 256 colour numbers, colour values
// red + 256*green + 65536*blue, and the current drawing colour.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "toolkit/graphics/canvas.h"

// The colour value of three components 0 to 255 (each is cut to that range).
std::int32_t wrgb(int red, int green, int blue);
// The components of a colour value.
void wrgbsplit(std::int32_t value, int& red, int& green, int& blue);

// The palette every colour number starts with: eight ramps of 32 (red,
// orange, yellow, green, cyan, blue, magenta, grey) running from dark to
// light, black at 0, and at 83 to 95 a depth ramp from near (bright, warm) to
// far (dim, cool).
std::array<std::int32_t, 256> standard_palette();

// Gives colour number `number` the colour value `value`; with `last_number`
// every number from `number` to `last_number` gets it. Numbers outside 0..255
// are left out.
void igrpalette(int number, std::int32_t value, std::optional<int> last_number = std::nullopt);

// Sets the current colour by number (palette model) or value (24-bit model).
void igrcolourn(std::int32_t colour);
// Sets the current colour by name: "BLA"ck and "BLU"e by three letters, then
// Green, Cyan, Red, Magenta, Yellow, White by the first letter, in any case.
void igrcolour(std::string_view name);

// The colour the next primitive will be drawn in.
canvas_colour current_colour();
// The colour of a colour number, 0 being the background.
canvas_colour palette_colour(int number);
