#include "toolkit/plots/plot_frame.h"

#include <algorithm>

#include "toolkit/core/trim.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/plots/plot_geometry.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"
#include "toolkit/plots/surface_frame.h"

namespace {

bool has(std::string_view options, char letter) {
  return options.find(letter) != std::string_view::npos ||
         options.find(static_cast<char>(letter + ('a' - 'A'))) != std::string_view::npos;
}

// Alignment by "L" and "R" (or, for a turned text, "B" and "T"), centred otherwise.
int alignment_of(std::string_view options, char first, char last) {
  if (has(options, first)) return 0;
  if (has(options, last)) return 2;
  return 1;
}

float anchor_along(int alignment, float low, float high) {
  return alignment == 0 ? low : alignment == 2 ? high : (low + high) / 2;
}

// Makes the text no longer than `room` graphics units along its direction
// (`per_char` units a character), shrinking both character sizes alike.
void fit_text(const std::string& text, float room, float per_char) {
  const float length = wgrtextlength(text) * per_char;
  if (length <= room || length <= 0) return;
  const float shrink = room / length;
  igrstate.chsizx *= shrink;
  igrstate.chsizy *= shrink;
}

// The character height in x units, for a text turned by 90 degrees.
float text_height_in_x_units() {
  const auto& g = igrstate;
  const float height_px = g.chsizy * (g.ygamax - g.ygamin) * static_cast<float>(g.nygraf);
  const float width_px = (g.xgamax - g.xgamin) * static_cast<float>(g.nxgraf);
  return width_px > 0 ? height_px / width_px * g.xunlen : text_width_in_x_units();
}

// A text running across the plot, "L" or "R" at its ends, in the gap below
// (an x label, fitted to the plot's width) or above it (a title), at
// `position` of the gap from the graphics edge and at least half a
// character in.
void draw_across(std::string_view text, std::string_view options, bool below, float gap, float position) {
  const std::string shown = yytrim(text);
  if (shown.empty()) return;
  const graphics_style_type saved = yypgsaverestore();
  const plot_frame_box b = plot_box();
  if (below) fit_text(shown, b.right - b.left, text_width_in_x_units());
  const float half = 0.5f * text_height_in_y_units();
  // Below the plot the label stays clear of the scale's numbers by a
  // quarter of a character.
  const float clear = below ? gap - ipgstate.number_reach[0] - 1.25f * half : position * gap;
  const float inset = std::max(std::min(position * gap, clear), half);
  const int alignment = alignment_of(options, 'L', 'R');
  wgrtextorientation(alignment, 0);
  wgrtextstring(anchor_along(alignment, b.left, b.right), below ? igrstate.ymin + inset : igrstate.ymax - inset, shown);
  yypgsaverestore(saved);
}

}  // namespace

void ipgborder() {
  const plot_frame_box b = plot_box();
  const float x[5] = {b.left, b.right, b.right, b.left, b.left};
  const float y[5] = {b.bottom, b.bottom, b.top, b.top, b.bottom};
  igrpolyline(x, y, 5);
}

void ipgaxes(std::optional<float> xcross, std::optional<float> ycross) {
  const auto& s = ipgstate;
  if (s.laydim == 1) {
    yypgbox3();
    return;
  }
  float cx = xcross.value_or(s.xplow), cy = ycross.value_or(s.yplow);
  if (cx < s.xplow || cx > s.xphigh || cy < s.yplow || cy > s.yphigh) {
    cx = s.xplow;
    cy = s.yplow;
  }
  float gx = 0, gy = 0;
  ipgunitstogrunits(cx, cy, gx, gy);
  const plot_frame_box b = plot_box();
  igrjoin(gx, gy, b.right, gy);
  igrjoin(gx, gy, gx, b.top);
}

void ipgxlabel(std::string_view text, std::string_view options) {
  if (ipgstate.laydim == 1) {
    yypglabel3(0, text);
    return;
  }
  const plot_frame_box b = plot_box();
  draw_across(text, options, true, b.bottom - igrstate.ymin, ipgstate.rlabpos[0]);
}

void ipgylabelleft(std::string_view text, std::string_view options) {
  if (ipgstate.laydim == 1) {
    yypglabel3(1, text);
    return;
  }
  const std::string shown = yytrim(text);
  if (shown.empty()) return;
  const graphics_style_type saved = yypgsaverestore();
  const plot_frame_box b = plot_box();
  const bool turned = has(options, '9');
  const int alignment = alignment_of(options, 'B', 'T');
  const float gap = b.left - igrstate.xmin;
  if (turned) {
    // Along the edge the text's width runs in y: one character is as long in
    // pixels as before, so measure it in y units.
    const auto& g = igrstate;
    const float char_px = g.chsizx * (g.xgamax - g.xgamin) * static_cast<float>(g.nxgraf);
    const float area_px = (g.ygamax - g.ygamin) * static_cast<float>(g.nygraf);
    fit_text(shown, b.top - b.bottom, area_px > 0 ? char_px / area_px * g.yunlen : text_height_in_y_units());
    const float half = 0.5f * text_height_in_x_units();
    const float clear = gap - ipgstate.number_reach[1] - 1.25f * half;
    const float x = igrstate.xmin + std::max(std::min(ipgstate.rlabpos[1] * gap, clear), half);
    wgrtextorientation(alignment, 90);
    wgrtextstring(x, anchor_along(alignment, b.bottom, b.top), shown);
  } else {
    fit_text(shown, std::max(gap, 0.0f), text_width_in_x_units());
    const float x = igrstate.xmin + std::max(ipgstate.rlabpos[1] * gap, 0.5f * text_width_in_x_units());
    wgrtextorientation(1, 0);
    wgrtextstring(x, anchor_along(alignment, b.bottom, b.top), shown);
  }
  yypgsaverestore(saved);
}

void ipgtitle(std::string_view text, std::string_view options) {
  const plot_frame_box b = plot_box();
  draw_across(text, options, false, igrstate.ymax - b.top, ipgstate.titpos);
}

void ipgzlabelleft(std::string_view text, std::string_view) {
  if (ipgstate.laydim == 1) yypglabel3(2, text);
}

void ipgtextinside(float gx, float gy, std::string_view text) {
  const plot_frame_box b = plot_box();
  const float width = wgrtextlength(text) * text_width_in_x_units();
  const float half_height = 0.5f * text_height_in_y_units();
  // The anchor stands at the left end, the middle or the right end of the text.
  const float lead = 0.5f * static_cast<float>(igrstate.ichali) * width;
  const float left = std::clamp(gx - lead, b.left, std::max(b.left, b.right - width));
  const float y = std::clamp(gy, b.bottom + half_height, std::max(b.bottom + half_height, b.top - half_height));
  wgrtextstring(left + lead, y, text);
}
