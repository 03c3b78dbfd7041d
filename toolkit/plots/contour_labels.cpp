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

// What the label of set L shows: a text, or (text empty) a marker.
struct contour_label {
  std::string text;
  int marker = 0;
};

bool label_of(int L, float level, contour_label& label) {
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

// The point at arc length s along the line (pixels), and the graphics
// point at the same place.
struct line_place {
  std::size_t segment;
  float t;
};
line_place place_at(const std::vector<float>& arc, float s) {
  std::size_t k = 0;
  while (k + 2 < arc.size() && arc[k + 1] < s) ++k;
  const float len = arc[k + 1] - arc[k];
  return {k, len > 0 ? std::clamp((s - arc[k]) / len, 0.0f, 1.0f) : 0.0f};
}
float along(const std::vector<float>& v, line_place p) { return v[p.segment] + p.t * (v[p.segment + 1] - v[p.segment]); }

void draw_piece(std::vector<float> x, std::vector<float> y) {
  if (x.size() >= 2) igrpolyline(x.data(), y.data(), static_cast<int>(x.size()));
}

}  // namespace

void draw_contour_line(const std::vector<float>& x, const std::vector<float>& y, int L, float level,
                       contour_label_gaps& gaps) {
  const int n = static_cast<int>(x.size());
  const int w = std::clamp(ipgstate.npval1 / 5, 3, 8);
  contour_label label;
  if (!label_of(L, level, label) || n < w + 3 ||
      gaps.ends.size() >= static_cast<std::size_t>(8 * ipgstate.npset)) {
    igrpolyline(x.data(), y.data(), n);
    return;
  }
  // Straightness: the sum of squared changes of direction over w steps,
  // for windows starting at points 3..n - w (counted from 1).
  std::vector<float> sum;
  for (int p = 3; p <= n - w; ++p) {
    float total = 0;
    for (int k = p; k <= p + w - 1; ++k) {
      const float change = direction(x, y, static_cast<std::size_t>(k - 1)) - direction(x, y, static_cast<std::size_t>(k - 2));
      total += change * change;
    }
    sum.push_back(total);
  }
  const auto [lo, hi] = std::minmax_element(sum.begin(), sum.end());
  const float threshold = *lo + 0.1f * (*hi - *lo);
  std::vector<pixel_point> px(static_cast<std::size_t>(n));
  std::vector<float> arc(static_cast<std::size_t>(n), 0.0f);
  for (int k = 0; k < n; ++k) {
    px[k] = units_to_canvas(x[k], y[k]);
    if (k > 0) arc[k] = arc[k - 1] + distance(px[k], px[k - 1]);
  }
  const canvas_text_style style = current_text_style();
  const float diagonal = 1.01f * std::hypot(style.char_width, style.char_height);
  int chosen = 0;
  for (int p = 3; p <= n - w && chosen == 0; ++p) {
    if (sum[p - 3] >= threshold) continue;
    bool clear = true;
    for (const pixel_point& end : gaps.ends) clear = clear && distance(end, px[p - 1]) >= diagonal;
    if (clear) chosen = p;
  }
  if (chosen == 0) {
    igrpolyline(x.data(), y.data(), n);
    return;
  }
  const float length = label.text.empty() ? style.char_width : wgrtextlength(label.text) * style.char_width;
  const float centre = arc[chosen - 1];
  const line_place start = place_at(arc, std::max(centre - length / 2, 0.0f));
  const line_place end = place_at(arc, std::min(centre + length / 2, arc.back()));
  std::vector<float> x1(x.begin(), x.begin() + static_cast<long>(start.segment) + 1), y1(y.begin(), y.begin() + static_cast<long>(start.segment) + 1);
  x1.push_back(along(x, start));
  y1.push_back(along(y, start));
  std::vector<float> x2{along(x, end)}, y2{along(y, end)};
  x2.insert(x2.end(), x.begin() + static_cast<long>(end.segment) + 1, x.end());
  y2.insert(y2.end(), y.begin() + static_cast<long>(end.segment) + 1, y.end());
  draw_piece(x1, y1);
  draw_piece(x2, y2);
  const pixel_point a = units_to_canvas(x1.back(), y1.back()), b = units_to_canvas(x2.front(), y2.front());
  gaps.ends.push_back(a);
  gaps.ends.push_back(b);
  if (label.text.empty()) {
    igrmarker((x1.back() + x2.front()) / 2, (y1.back() + y2.front()) / 2, label.marker);
    return;
  }
  // Along the gap, upright: a text that would read upside down is turned by
  // 180 degrees and ends at the gap's start instead of beginning there.
  float angle = static_cast<float>(std::atan2(a.y - b.y, b.x - a.x) * 180 / std::numbers::pi);
  if (angle < 0) angle += 360;
  const bool turned = angle > 90 && angle < 270;
  wgrtextorientation(turned ? 2 : 0, turned ? angle - 180 : angle);
  wgrtextstring(x1.back(), y1.back(), label.text);
  wgrtextorientation(1, 0);
}
