#include "toolkit/plots/contour_labels.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/plot_state.h"

namespace {

// What the label of set L shows: a text, or (text empty) a marker. False
// when the set has no label, or a marker type without a marker.
bool label_of(int L, float level, placed_label& label) {
  const auto& s = ipgstate;
  const int number = s.ipgmark[L] >= 0 ? s.ipgmark[L] : L;
  switch (s.ipgstyl[L][1]) {
    case 1: label.text = std::to_string(number); return true;
    case 2: label.text = std::string(1, static_cast<char>(number <= 26 ? 64 + number : 70 + number)); return true;
    case 3:
    case 4: label.marker = s.ipgmark[L] >= 0 ? s.ipgmark[L] : s.ipgstyl[L][2]; return label.marker > 0;
    case 5: label.text = yypgrealtostring(level, yypgautoscale(s.zpmin, s.zpmax, true).exponent); return true;
    default: return false;
  }
}

// Direction of the step from point k to k + 1; a vertical step counts as a right angle.
float direction(const std::vector<float>& x, const std::vector<float>& y, std::size_t k) {
  const float dx = x[k + 1] - x[k];
  if (std::fabs(dx) <= 1e-06f) return 1.5707964f;
  return std::atan((y[k + 1] - y[k]) / dx);
}

float distance(pixel_point a, pixel_point b) { return std::hypot(a.x - b.x, a.y - b.y); }

// How much the line turns over w steps: the sum of squared changes of
// direction, for the windows starting at points 3..n - w (counted from 1).
std::vector<float> turning_sums(const std::vector<float>& x, const std::vector<float>& y, int w) {
  const int n = static_cast<int>(x.size());
  std::vector<float> sum;
  for (int p = 3; p <= n - w; ++p) {
    float total = 0;
    for (int k = p; k <= p + w - 1; ++k) {
      const float change = direction(x, y, static_cast<std::size_t>(k - 1)) - direction(x, y, static_cast<std::size_t>(k - 2));
      total += change * change;
    }
    sum.push_back(total);
  }
  return sum;
}

// The point (counted from 1) where a label goes: the first window start
// among the straightest tenth of the range of turning sums whose point
// keeps `clearance` pixels from every earlier gap end; 0 when none does.
int label_centre(const std::vector<float>& sum, const std::vector<pixel_point>& px,
                 const std::vector<pixel_point>& earlier_ends, float clearance) {
  const auto [lo, hi] = std::minmax_element(sum.begin(), sum.end());
  const float threshold = *lo + 0.1f * (*hi - *lo);
  for (std::size_t k = 0; k < sum.size(); ++k) {
    const pixel_point& centre = px[k + 2];
    auto clear = [&](const pixel_point& end) { return distance(end, centre) >= clearance; };
    if (sum[k] < threshold && std::all_of(earlier_ends.begin(), earlier_ends.end(), clear)) return static_cast<int>(k) + 3;
  }
  return 0;
}

std::vector<pixel_point> in_pixels(const std::vector<float>& x, const std::vector<float>& y) {
  std::vector<pixel_point> px(x.size());
  for (std::size_t k = 0; k < x.size(); ++k) px[k] = units_to_canvas(x[k], y[k]);
  return px;
}

// Arc length along the line at each of its points, pixels.
std::vector<float> arc_lengths(const std::vector<pixel_point>& px) {
  std::vector<float> arc(px.size(), 0.0f);
  for (std::size_t k = 1; k < px.size(); ++k) arc[k] = arc[k - 1] + distance(px[k], px[k - 1]);
  return arc;
}

// A place along the line: t of the way from point `segment` to the next.
struct line_place {
  std::size_t segment;
  float t;
};
// The place at arc length s.
line_place place_at(const std::vector<float>& arc, float s) {
  std::size_t k = 0;
  while (k + 2 < arc.size() && arc[k + 1] < s) ++k;
  const float len = arc[k + 1] - arc[k];
  return {k, len > 0 ? std::clamp((s - arc[k]) / len, 0.0f, 1.0f) : 0.0f};
}
float along(const std::vector<float>& v, line_place p) { return v[p.segment] + p.t * (v[p.segment + 1] - v[p.segment]); }

// The two pieces of the line either side of the gap from `start` to `end`.
void cut_around_gap(const std::vector<float>& x, const std::vector<float>& y, line_place start, line_place end,
                    contour_line_layout& layout) {
  const auto first_kept = static_cast<long>(start.segment) + 1, after_gap = static_cast<long>(end.segment) + 1;
  layout.before_x.assign(x.begin(), x.begin() + first_kept);
  layout.before_y.assign(y.begin(), y.begin() + first_kept);
  layout.before_x.push_back(along(x, start));
  layout.before_y.push_back(along(y, start));
  layout.after_x = {along(x, end)};
  layout.after_y = {along(y, end)};
  layout.after_x.insert(layout.after_x.end(), x.begin() + after_gap, x.end());
  layout.after_y.insert(layout.after_y.end(), y.begin() + after_gap, y.end());
}

// A text along the gap, upright: one that would read upside down is turned
// by 180 degrees and ends at the gap's start instead of beginning there.
void align_along_gap(placed_label& label) {
  const pixel_point a = label.gap_start, b = label.gap_end;
  float angle = static_cast<float>(std::atan2(a.y - b.y, b.x - a.x) * 180 / std::numbers::pi);
  if (angle < 0) angle += 360;
  const bool turned = angle > 90 && angle < 270;
  label.alignment = turned ? 2 : 0;
  label.angle = turned ? angle - 180 : angle;
}

}  // namespace

contour_line_layout lay_out_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                                         const contour_label_gaps& gaps) {
  contour_line_layout layout;
  const int n = static_cast<int>(x.size());
  const int w = std::clamp(ipgstate.npval1 / 5, 3, 8);
  placed_label label;
  if (!label_of(L, level, label) || n < w + 3 || gaps.ends.size() >= static_cast<std::size_t>(8 * ipgstate.npset))
    return layout;
  const std::vector<pixel_point> px = in_pixels(x, y);
  const canvas_text_style style = current_text_style();
  const float diagonal = 1.01f * std::hypot(style.char_width, style.char_height);
  const int centre = label_centre(turning_sums(x, y, w), px, gaps.ends, diagonal);
  if (centre == 0) return layout;
  // The gap is as long along the line as the label, centred on its point.
  const std::vector<float> arc = arc_lengths(px);
  const float length = label.text.empty() ? style.char_width : wgrtextlength(label.text) * style.char_width;
  const float middle = arc[static_cast<std::size_t>(centre - 1)];
  cut_around_gap(x, y, place_at(arc, std::max(middle - length / 2, 0.0f)),
                 place_at(arc, std::min(middle + length / 2, arc.back())), layout);
  const float x1 = layout.before_x.back(), y1 = layout.before_y.back();
  const float x2 = layout.after_x.front(), y2 = layout.after_y.front();
  label.gap_start = units_to_canvas(x1, y1);
  label.gap_end = units_to_canvas(x2, y2);
  if (label.text.empty()) {
    label.x = (x1 + x2) / 2;
    label.y = (y1 + y2) / 2;
  } else {
    label.x = x1;
    label.y = y1;
    align_along_gap(label);
  }
  layout.label = std::move(label);
  return layout;
}

void draw_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                       contour_label_gaps& gaps) {
  const contour_line_layout layout = lay_out_contour_line(x, y, L, level, gaps);
  if (!layout.label) {
    igrpolyline(x.data(), y.data(), static_cast<int>(x.size()));
    return;
  }
  igrpolyline(layout.before_x.data(), layout.before_y.data(), static_cast<int>(layout.before_x.size()));
  igrpolyline(layout.after_x.data(), layout.after_y.data(), static_cast<int>(layout.after_x.size()));
  const placed_label& label = *layout.label;
  gaps.ends.push_back(label.gap_start);
  gaps.ends.push_back(label.gap_end);
  if (label.text.empty()) {
    igrmarker(label.x, label.y, label.marker);
    return;
  }
  wgrtextorientation(label.alignment, label.angle);
  wgrtextstring(label.x, label.y, label.text);
  wgrtextorientation(1, 0);
}
