#include "toolkit/graphics/graphics_colour.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_state.h"

namespace {

std::int32_t channel(int v) { return std::clamp(v, 0, 255); }

// A colour of a hue ramp: the hue's full colour mixed toward black for the
// first half of the ramp and toward white for the second.
std::int32_t ramp_colour(int r, int g, int b, int step, int steps) {
  const double t = 0.25 + 0.6 * step / (steps - 1);  // 0.25 dark .. 0.85 light
  auto mix = [t](int c) {
    const double v = t <= 0.5 ? c * (t / 0.5) : c + (255 - c) * ((t - 0.5) / 0.5);
    return static_cast<int>(std::lround(v));
  };
  return wrgb(mix(r), mix(g), mix(b));
}

int upper(char c) { return std::toupper(static_cast<unsigned char>(c)); }

}  // namespace

std::int32_t wrgb(int red, int green, int blue) {
  return channel(red) + 256 * channel(green) + 65536 * channel(blue);
}

void wrgbsplit(std::int32_t value, int& red, int& green, int& blue) {
  red = value & 0xFF;
  green = (value >> 8) & 0xFF;
  blue = (value >> 16) & 0xFF;
}

std::array<std::int32_t, 256> standard_palette() {
  static const int hues[8][3] = {{255, 0, 0},   {255, 128, 0}, {255, 255, 0}, {0, 200, 0},
                                 {0, 255, 255}, {0, 64, 255},  {255, 0, 255}, {255, 255, 255}};
  std::array<std::int32_t, 256> p{};
  for (int band = 0; band < 8; ++band)
    for (int k = 0; k < 32; ++k)
      p[band * 32 + k] = ramp_colour(hues[band][0], hues[band][1], hues[band][2], k, 32);
  // The grey ramp runs the whole way from black to white.
  for (int k = 0; k < 32; ++k) {
    const int v = static_cast<int>(std::lround(255.0 * k / 31));
    p[224 + k] = wrgb(v, v, v);
  }
  // Depth of the isosurface: 83 nearest, bright yellow, through orange and
  // red to a dim violet at 95, the farthest.
  static const int depth[4][3] = {{255, 240, 120}, {255, 150, 40}, {200, 40, 60}, {70, 40, 140}};
  for (int k = 0; k <= 12; ++k) {
    const double pos = k * 3.0 / 12.0;
    const int i = std::min(static_cast<int>(pos), 2);
    const double f = pos - i;
    auto lerp = [&](int c) {
      return static_cast<int>(std::lround(depth[i][c] + (depth[i + 1][c] - depth[i][c]) * f));
    };
    p[83 + k] = wrgb(lerp(0), lerp(1), lerp(2));
  }
  p[0] = wrgb(0, 0, 0);
  return p;
}

void igrpalette(int number, std::int32_t value, std::optional<int> last_number) {
  const int last = last_number.value_or(number);
  for (int n = std::max(number, 0); n <= std::min(last, 255); ++n)
    igrstate.irgb256[n] = value & 0xFFFFFF;
}

void igrcolourn(std::int32_t colour) {
  if (igrstate.icmodel == 1) {
    if (colour < 0 || colour > 255) {
      yyerror(1015, "IGrColourN");
      return;
    }
    igrstate.icolnum = colour;
    return;
  }
  if (colour < 0 || colour > 0xFFFFFF) {
    yyerror(1015, "IGrColourN");
    return;
  }
  igrstate.icolnum = -1;
  igrstate.icolvalue = colour;
}

void igrcolour(std::string_view name) {
  std::string key;
  for (char c : name.substr(0, 3)) key += static_cast<char>(upper(c));
  std::int32_t value = -1;
  if (key == "BLA") {
    value = wrgb(0, 0, 0);
  } else if (key == "BLU") {
    value = wrgb(0, 0, 255);
  } else if (!key.empty()) {
    switch (key[0]) {
      case 'G': value = wrgb(0, 200, 0); break;
      case 'C': value = wrgb(0, 255, 255); break;
      case 'R': value = wrgb(255, 0, 0); break;
      case 'M': value = wrgb(255, 0, 255); break;
      case 'Y': value = wrgb(255, 255, 0); break;
      case 'W': value = wrgb(255, 255, 255); break;
      default: break;
    }
  }
  if (value < 0) {
    yyerror(1015, "IGrColour");
    return;
  }
  igrstate.icolnum = -1;
  igrstate.icolvalue = value;
}

canvas_colour palette_colour(int number) {
  const int n = std::clamp(number, 0, 255);
  return {n, igrstate.irgb256[n]};
}

canvas_colour current_colour() {
  if (igrstate.icolnum >= 0) return palette_colour(igrstate.icolnum);
  return {-1, igrstate.icolvalue};
}
