#include "toolkit/plots/plot_scales.h"

#include <algorithm>

#include <cmath>
#include <vector>

#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/core/number_format.h"
#include "toolkit/plots/plot_geometry.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"
#include "toolkit/plots/surface_frame.h"

namespace {

bool has(std::string_view options, char letter) {
  for (char c : options)
    if (c == letter || c == letter + ('a' - 'A')) return true;
  return false;
}

// Where a tick runs from the edge: outward by default, inward with "I",
// across with "B". Returned as the extents outward and inward.
void tick_extent(std::string_view options, float length, float& outward, float& inward) {
  outward = has(options, 'I') ? 0 : length;
  inward = has(options, 'I') || has(options, 'B') ? length : 0;
}

// Ticks and numbers of axis 0 (x, along the lower edge, numbers centred
// below) or 1 (y, along the left edge, numbers ending left of the ticks).
void draw_scale(int axis, std::string_view options) {
  const auto& s = ipgstate;
  if (!has(options, 'T') && !has(options, 'N')) return;
  if (s.laydim == 1) {
    yypgscale3(axis, options);
    return;
  }
  const bool is_x = axis == 0;
  const graphics_style_type saved = yypgsaverestore();
  const plot_frame_box box = plot_box();
  scale_ticks ticks;
  const std::vector<float> values = yypgscalevalues(axis, ticks);
  const float across = is_x ? box.top - box.bottom : box.right - box.left;
  float outward = 0, inward = 0;
  tick_extent(options, across * static_cast<float>(s.nresn[axis]) * s.ticklen[axis] / 80, outward, inward);
  const float gap = is_x ? (s.rscpos[0] + 0.5f) * text_height_in_y_units()
                         : 0.5f * s.rscpos[1] * text_width_in_x_units();
  wgrtextorientation(is_x ? 1 : 2, s.strangle[axis]);
  float widest = 0;
  for (float v : values) {
    float gx = 0, gy = 0;
    ipgunitstogrunits(is_x ? v : s.xplow, is_x ? s.yplow : v, gx, gy);
    const std::string text = yypgrealtostring(v, ticks.exponent);
    if (is_x) {
      if (has(options, 'T')) igrjoin(gx, box.bottom - outward, gx, box.bottom + inward);
      if (has(options, 'N')) wgrtextstring(gx, box.bottom - outward - gap, text);
    } else {
      if (has(options, 'T')) igrjoin(box.left - outward, gy, box.left + inward, gy);
      if (has(options, 'N')) wgrtextstring(box.left - outward - gap, gy, text);
    }
    widest = std::max(widest, wgrtextlength(text));
  }
  if (has(options, 'N'))
    ipgstate.number_reach[static_cast<std::size_t>(axis)] =
        outward + gap + (is_x ? 0.5f * text_height_in_y_units() : widest);
  yypgsaverestore(saved);
}

}  // namespace

std::vector<float> yypgscalevalues(int axis, scale_ticks& ticks) {
  const auto& s = ipgstate;
  const float low = axis == 0 ? s.xplow : axis == 1 ? s.yplow : s.zpmin;
  const float high = axis == 0 ? s.xphigh : axis == 1 ? s.yphigh : s.zpmax;
  ticks = yypgautoscale(low, high, axis == 2);
  std::vector<float> values;
  const int user_count = axis == 2 ? 0 : s.iuslen[axis];
  if (user_count > 0) {
    const auto& user = axis == 0 ? s.userscalex : s.userscaley;
    const float tolerance = (high - low) / 100000;
    for (int k = 0; k < user_count && k < static_cast<int>(user.size()); ++k)
      if (user[k] >= low - tolerance && user[k] <= high + tolerance) values.push_back(user[k]);
    return values;
  }
  for (int k = 0; k < ticks.count; ++k) values.push_back(ticks.first + static_cast<float>(k) * ticks.step);
  return values;
}

scale_ticks yypgautoscale(float low, float high, bool z_axis) {
  scale_ticks t;
  const float r = high - low;
  float n = r;
  int e = 0;
  while (std::fabs(n) >= 10 && e < 39) {
    n /= 10;
    ++e;
  }
  while (std::fabs(n) < 1 && e > -45) {
    n *= 10;
    --e;
  }
  float factor = 10;
  if (std::fabs(n) < 1.3f) factor = z_axis ? 2 : 1;
  else if (std::fabs(n) < 2.6f) factor = 2;
  else if (std::fabs(n) < 6.5f) factor = 5;
  t.exponent = e;
  t.step = factor * static_cast<float>(std::pow(10.0, e - 1));
  if (!(t.step > 0) || !std::isfinite(t.step)) return t;
  const float tolerance = t.step / 100000;
  const float m = std::fmod(std::fabs(low), t.step);
  if (m <= tolerance || t.step - m <= tolerance) t.first = low;
  else if (low < 0) t.first = low + m;
  else t.first = t.step + (low - m);
  const double count = (r + tolerance) / t.step;
  t.count = count < 1e6 ? static_cast<int>(count) : 0;
  if (t.first + static_cast<float>(t.count) * t.step <= high + tolerance) ++t.count;
  return t;
}

std::string yypgrealtostring(float value, int exponent) {
  if (value == 0) return "0";
  const int ndecpl = ipgstate.ndecpl;
  std::string text;
  if (exponent >= -4 && exponent <= 0) {
    text = format_fixed(value, 9, ndecpl >= 0 ? ndecpl : std::abs(exponent) + 1);
  } else if (exponent >= 1 && exponent <= 5) {
    text = ndecpl < 1 ? format_integer(value, 9) : format_fixed(value, 9, ndecpl);
  } else {
    int d = 1;
    if (exponent < 0)
      d = std::min(static_cast<int>(std::fabs(std::log10(std::fabs(value)) - static_cast<float>(exponent))) + 1, 6);
    if (ndecpl >= 0) d = ndecpl;
    text = format_exponent(value, d + 7, d);
  }
  const auto first = text.find_first_not_of(' ');
  text = first == std::string::npos ? std::string{} : text.substr(first);
  if (text == "0.0") text = "0";
  if (text.size() > 1 && text[0] == '0') text.erase(0, 1);
  else if (text.size() > 2 && text[0] == '-' && text[1] == '0') text.erase(1, 1);
  if (ndecpl != 1 && text.size() >= 2 && text.compare(text.size() - 2, 2, ".0") == 0) text.resize(text.size() - 2);
  return text;
}

void ipgxscale(std::string_view options) { draw_scale(0, options); }

void ipgyscaleleft(std::string_view options) { draw_scale(1, options); }

void ipgzscale(std::string_view options) {
  if (ipgstate.laydim == 1 && (has(options, 'T') || has(options, 'N'))) yypgscale3(2, options);
}
