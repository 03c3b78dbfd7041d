#include "toolkit/graphics/graphics_area.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/graphics/graphics_wires.h"

namespace {

bool area_axis_valid(float low, float high) {
  return low >= 0 && low < 1 && high > 0 && high <= 1 && low < high;
}

// Fraction of the target (0 at the left or bottom edge) of a point.
float x_fraction(float x) {
  const auto& s = igrstate;
  return s.xgamin + (x - s.xmin) / s.xunlen * (s.xgamax - s.xgamin);
}
float y_fraction(float y) {
  const auto& s = igrstate;
  return s.ygamin + (y - s.ymin) / s.yunlen * (s.ygamax - s.ygamin);
}

// Stores the limits of one axis when they are valid, else 0 to 1.
bool take_axis(bool valid, float low, float high, float& min, float& max) {
  min = valid ? low : 0;
  max = valid ? high : 1;
  return valid;
}

// Two points, x, y, x, y, worked on at once. GCC's vector type is used
// rather than a loop left to the compiler, which at -O2 would divide one
// value at a time; each lane does the very operations of its coordinate as
// written out in x_fraction and y_fraction, so a point comes out the same to
// the last bit however it is converted.
typedef float four __attribute__((vector_size(4 * sizeof(float))));
typedef int four_mask __attribute__((vector_size(4 * sizeof(int))));

// The state that turns graphics units into pixels, in lanes, taken once for
// many points: read inside the loop, it would be read again for each pair,
// since the points written might, for all the compiler knows, be it.
struct pair_conversion {
  four low, length, area_low, area_span, size;
};

pair_conversion pair_conversion_now() {
  const auto& s = igrstate;
  const auto nx = static_cast<float>(s.nxgraf), ny = static_cast<float>(s.nygraf);
  const float xspan = s.xgamax - s.xgamin, yspan = s.ygamax - s.ygamin;
  return {four{s.xmin, s.ymin, s.xmin, s.ymin}, four{s.xunlen, s.yunlen, s.xunlen, s.yunlen},
          four{s.xgamin, s.ygamin, s.xgamin, s.ygamin}, four{xspan, yspan, xspan, yspan}, four{nx, ny, nx, ny}};
}

four pair_to_canvas(four v, const pair_conversion& c) {
  const four fraction = c.area_low + (v - c.low) / c.length * c.area_span;
  // y counts down from the top of the canvas.
  const four_mask y_lane{0, -1, 0, -1};
  return (y_lane ? 1 - fraction : fraction) * c.size;
}

int pixel_of(float position) {
  if (position < 0) position -= 0.999f;
  return static_cast<int>(position);
}

float pixel_count(int n) { return static_cast<float>(std::max(n, 1)); }

}  // namespace

void igrarea(float xlow, float ylow, float xhigh, float yhigh) {
  igrwiresflush();
  auto& s = igrstate;
  const bool x_ok = take_axis(area_axis_valid(xlow, xhigh), xlow, xhigh, s.xgamin, s.xgamax);
  const bool y_ok = take_axis(area_axis_valid(ylow, yhigh), ylow, yhigh, s.ygamin, s.ygamax);
  if (!x_ok || !y_ok) yyerror(44, "IGrArea");
}

void igrunits(float xlow, float ylow, float xhigh, float yhigh) {
  igrwiresflush();
  auto& s = igrstate;
  const bool x_ok = take_axis(xhigh > xlow, xlow, xhigh, s.xmin, s.xmax);
  const bool y_ok = take_axis(yhigh > ylow, ylow, yhigh, s.ymin, s.ymax);
  s.xunlen = s.xmax - s.xmin;
  s.yunlen = s.ymax - s.ymin;
  if (!x_ok || !y_ok) yyerror(16, "IGrUnits");
}

void igrareaclear() {
  canvas* c = current_canvas();
  if (!c) return;
  const auto& s = igrstate;
  const int left = static_cast<int>(std::floor(s.xgamin * static_cast<float>(s.nxgraf)));
  const int right = static_cast<int>(std::ceil(s.xgamax * static_cast<float>(s.nxgraf)));
  const int top = static_cast<int>(std::floor((1 - s.ygamax) * static_cast<float>(s.nygraf)));
  const int bottom = static_cast<int>(std::ceil((1 - s.ygamin) * static_cast<float>(s.nygraf)));
  c->clear(left, top, right - left, bottom - top, palette_colour(0));
}

pixel_point units_to_canvas(float x, float y) {
  return {x_fraction(x) * static_cast<float>(igrstate.nxgraf), (1 - y_fraction(y)) * static_cast<float>(igrstate.nygraf)};
}

void units_to_canvas(std::span<pixel_point> points) {
  const pair_conversion c = pair_conversion_now();
  const std::size_t pairs = points.size() / 2;
  for (std::size_t i = 0; i < pairs; ++i) {
    four v;
    std::memcpy(&v, &points[2 * i], sizeof v);
    v = pair_to_canvas(v, c);
    std::memcpy(static_cast<void*>(&points[2 * i]), &v, sizeof v);
  }
  if (points.size() % 2 != 0) points.back() = units_to_canvas(points.back().x, points.back().y);
}

float x_units_to_pixels(float length) {
  const auto& s = igrstate;
  return length / s.xunlen * (s.xgamax - s.xgamin) * static_cast<float>(s.nxgraf);
}

void igrunitstopixels(float x, float y, int& ix, int& iy, std::optional<bool> from_bottom) {
  const float ny = static_cast<float>(igrstate.nygraf);
  ix = pixel_of(x_fraction(x) * static_cast<float>(igrstate.nxgraf));
  iy = from_bottom.value_or(false) ? pixel_of(y_fraction(y) * ny) : pixel_of((1 - y_fraction(y)) * ny);
}

void igrunitsfrompixels(int ix, int iy, float& x, float& y, std::optional<bool> from_bottom) {
  const auto& s = igrstate;
  const float fx = (static_cast<float>(ix) + 0.5f) / pixel_count(s.nxgraf);
  float fy = (static_cast<float>(iy) + 0.5f) / pixel_count(s.nygraf);
  if (!from_bottom.value_or(false)) fy = 1 - fy;
  x = s.xmin + (fx - s.xgamin) / (s.xgamax - s.xgamin) * s.xunlen;
  y = s.ymin + (fy - s.ygamin) / (s.ygamax - s.ygamin) * s.yunlen;
}
