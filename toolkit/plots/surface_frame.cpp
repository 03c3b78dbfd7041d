#include "toolkit/plots/surface_frame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "toolkit/core/trim.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"
#include "toolkit/plots/surface_view.h"

namespace {

constexpr float radian = 57.29578f;

struct node {
  float t, u;
};

// The base corners in their cyclic order; which one faces the viewer
// follows from the rotation.
std::array<node, 4> base_corners() {
  const float r1 = ipgstate.rnval11, r2 = ipgstate.rnval21;
  return {{{0, r2}, {0, 0}, {r1, 0}, {r1, r2}}};
}

int nearest_corner() {
  const float r = ipgstate.rota3d;
  if (r < 45 || r >= 315) return 0;
  if (r < 135) return 3;
  if (r < 225) return 2;
  return 1;
}

struct point {
  float x, y;
};

point at(const surface_projection& p, node n, float z) {
  point g{};
  yypg3dnode(p, n.t, n.u, z, g.x, g.y);
  return g;
}

// Pixels per graphics unit along x and y.
float x_pixels() {
  const auto& g = igrstate;
  return g.xunlen != 0 && g.nxgraf > 0 ? (g.xgamax - g.xgamin) * static_cast<float>(g.nxgraf) / g.xunlen : 1;
}
float y_pixels() {
  const auto& g = igrstate;
  return g.yunlen != 0 && g.nygraf > 0 ? (g.ygamax - g.ygamin) * static_cast<float>(g.nygraf) / g.yunlen : 1;
}
float char_height_pixels() { return igrstate.chsizy * (igrstate.ygamax - igrstate.ygamin) * static_cast<float>(igrstate.nygraf); }

// The point `pixels` away from `from` in the screen direction (dx, dy),
// given in graphics units.
point moved(point from, float dx, float dy, float pixels) {
  const float px = dx * x_pixels(), py = dy * y_pixels();
  const float len = std::hypot(px, py);
  if (len == 0) return from;
  return {from.x + px / len * pixels / x_pixels(), from.y + py / len * pixels / y_pixels()};
}

bool has(std::string_view options, char letter) {
  return options.find(letter) != std::string_view::npos ||
         options.find(static_cast<char>(letter + ('a' - 'A'))) != std::string_view::npos;
}

// Where the scale of an axis runs: from `start` along the edge, the
// outward direction of its ticks, and the base of the vertical z edge.
struct scale_edge {
  node start, end;
  point outward;  // graphics-unit direction
};

float tick_pixels(int axis) {
  const float plot_px = std::fabs(ipgstate.ypgamx - ipgstate.ypgamn) * igrstate.yunlen * y_pixels();
  return plot_px * static_cast<float>(ipgstate.nresn[axis]) * ipgstate.ticklen[axis] / 80;
}

// The base corner furthest to the left on the screen, foot of the z scale.
node left_corner(const surface_projection& p) {
  const auto c = base_corners();
  return *std::min_element(c.begin(), c.end(), [&](node a, node b) {
    return at(p, a, ipgstate.zpmin).x < at(p, b, ipgstate.zpmin).x;
  });
}

scale_edge edge_of(int axis, const surface_projection& p) {
  const auto& s = ipgstate;
  if (axis == 2) {
    const node c = left_corner(p);
    return {c, c, {-1, 0}};
  }
  const node near = base_corners()[static_cast<std::size_t>(nearest_corner())];
  const node start = axis == 0 ? node{0, near.u} : node{near.t, 0};
  const node end = axis == 0 ? node{s.rnval11, near.u} : node{near.t, s.rnval21};
  // Outward: from the far side of the base towards the near edge.
  const node inner = axis == 0 ? node{0, near.u == 0 ? s.rnval21 : 0} : node{near.t == 0 ? s.rnval11 : 0, 0};
  const point a = at(p, start, s.zpmin), b = at(p, inner, s.zpmin);
  return {start, end, {a.x - b.x, a.y - b.y}};
}

// The grid position of a value of axis 0 or 1 on its edge.
node on_edge(int axis, const scale_edge& e, float v) {
  const auto& s = ipgstate;
  if (axis == 0) return {(v - s.xpmin) * s.rnval11 / s.xplen, e.start.u};
  return {e.start.t, (v - s.ypmin) * s.rnval21 / s.yplen};
}

// Alignment of numbers beside a tick pointing along `out`.
int alignment_for(point out) {
  const float px = out.x * x_pixels(), py = out.y * y_pixels();
  if (std::fabs(px) < 0.5f * std::fabs(py)) return 1;
  return px < 0 ? 2 : 0;
}

}  // namespace

void yypgbox3() {
  const auto& s = ipgstate;
  const surface_projection p = yypg3dxy();
  const auto corners = base_corners();
  float x[5], y[5];
  for (std::size_t c = 0; c < 5; ++c) {
    const point g = at(p, corners[c % 4], s.zpmin);
    x[c] = g.x;
    y[c] = g.y;
  }
  igrpolyline(x, y, 5);
  const auto near = static_cast<std::size_t>(nearest_corner());
  for (std::size_t c = 0; c < 4; ++c) {
    if (c == near) continue;
    const point foot = at(p, corners[c], s.zpmin), top = at(p, corners[c], s.zpmax);
    igrjoin(foot.x, foot.y, top.x, top.y);
  }
}

void yypgscale3(int axis, std::string_view options) {
  const auto& s = ipgstate;
  const graphics_style_type saved = yypgsaverestore();
  const surface_projection p = yypg3dxy();
  const scale_edge e = edge_of(axis, p);
  scale_ticks ticks;
  const std::vector<float> values = yypgscalevalues(axis, ticks);
  const float tick = tick_pixels(axis);
  const float inward = has(options, 'I') || has(options, 'B') ? tick : 0;
  const float outward = has(options, 'I') ? 0 : tick;
  if (axis == 2) {
    const point foot = at(p, e.start, s.zpmin), top = at(p, e.start, s.zpmax);
    igrjoin(foot.x, foot.y, top.x, top.y);
  }
  wgrtextorientation(alignment_for(e.outward), 0);
  for (float v : values) {
    const point g = axis == 2 ? at(p, e.start, v) : at(p, on_edge(axis, e, v), s.zpmin);
    if (has(options, 'T')) {
      const point a = moved(g, e.outward.x, e.outward.y, outward);
      const point b = moved(g, -e.outward.x, -e.outward.y, inward);
      igrjoin(a.x, a.y, b.x, b.y);
    }
    if (has(options, 'N')) {
      point n = moved(g, e.outward.x, e.outward.y, outward + 0.6f * char_height_pixels());
      // Centred numbers hang below their anchor, as on a flat x scale.
      if (alignment_for(e.outward) == 1) n = moved(n, 0, -1, 0.5f * char_height_pixels());
      else n = moved(n, 0, -1, 0.3f * char_height_pixels());
      wgrtextstring(n.x, n.y, yypgrealtostring(v, ticks.exponent));
    }
  }
  yypgsaverestore(saved);
}

void yypglabel3(int axis, std::string_view text) {
  const std::string shown = yytrim(text);
  if (shown.empty()) return;
  const auto& s = ipgstate;
  const graphics_style_type saved = yypgsaverestore();
  const surface_projection p = yypg3dxy();
  const scale_edge e = edge_of(axis, p);
  // Beyond the numbers, which stand up to three characters out from the ticks.
  const float clearance =
      tick_pixels(axis) + (3.5f + 2 * s.rlabpos[static_cast<std::size_t>(axis)]) * char_height_pixels();
  point a{}, b{};
  if (axis == 2) {
    a = at(p, e.start, s.zpmin);
    b = at(p, e.start, s.zpmax);
  } else {
    a = at(p, e.start, s.zpmin);
    b = at(p, e.end, s.zpmin);
  }
  // The text runs along the edge as the screen shows it, never upside down.
  float angle = std::atan2((b.y - a.y) * y_pixels(), (b.x - a.x) * x_pixels()) * radian;
  if (angle > 90) angle -= 180;
  if (angle < -90) angle += 180;
  const point mid{(a.x + b.x) / 2, (a.y + b.y) / 2};
  const point at_label = moved(mid, e.outward.x, e.outward.y, clearance);
  wgrtextorientation(1, angle);
  wgrtextstring(at_label.x, at_label.y, shown);
  yypgsaverestore(saved);
}
