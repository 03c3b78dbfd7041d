#include "toolkit/graphics/graphics_shapes.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"

namespace {

canvas_fill current_fill() {
  canvas_fill fill;
  fill.colour = current_colour();
  fill.style = igrstate.ifstyl;
  fill.density = igrstate.ifdens;
  fill.angle = igrstate.ifangl;
  return fill;
}

void outline(canvas& c, std::vector<pixel_point> points) {
  points.push_back(points.front());
  c.polyline(points, current_pen());
}

// A polygon in pixels, filled or outlined as the fill pattern says.
void draw_polygon(std::vector<pixel_point> points) {
  canvas* c = current_canvas();
  if (!c || points.size() < 3) return;
  if (igrstate.ifstyl != 0) c->fill_polygon(points, current_fill());
  if (igrstate.ifstyl == 0 || igrstate.ifbord == 1) outline(*c, std::move(points));
}

void draw_polygon_units(const float* x, const float* y, int n) {
  if (n < 3) return;
  std::vector<pixel_point> points(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) points[i] = units_to_canvas(x[i], y[i]);
  draw_polygon(std::move(points));
}

void draw_circle(pixel_point centre, float radius) {
  canvas* c = current_canvas();
  if (!c) return;
  const canvas_pen pen = current_pen();
  const canvas_fill fill = current_fill();
  const bool filled = igrstate.ifstyl != 0;
  const bool outlined = !filled || igrstate.ifbord == 1;
  c->circle(centre, radius, outlined ? &pen : nullptr, filled ? &fill : nullptr);
}

// Shading: each triangle of a fan over the polygon is cut into `steps`^2
// small triangles, each filled with the colour at its centre.
constexpr int shading_steps = 8;

struct shaded_corner {
  pixel_point p;
  double rgb[3];
};

shaded_corner shaded_mix(const shaded_corner& a, const shaded_corner& b, const shaded_corner& c,
                         double wa, double wb) {
  const double wc = 1 - wa - wb;
  shaded_corner m;
  m.p = {static_cast<float>(wa * a.p.x + wb * b.p.x + wc * c.p.x),
         static_cast<float>(wa * a.p.y + wb * b.p.y + wc * c.p.y)};
  for (int k = 0; k < 3; ++k) m.rgb[k] = wa * a.rgb[k] + wb * b.rgb[k] + wc * c.rgb[k];
  return m;
}

void fill_shaded_triangle(canvas& c, const shaded_corner& a, const shaded_corner& b,
                          const shaded_corner& d) {
  const int n = shading_steps;
  auto at = [&](int i, int j) {  // lattice point i steps toward b, j toward d
    return shaded_mix(b, d, a, static_cast<double>(i) / n, static_cast<double>(j) / n);
  };
  auto fill_one = [&](const shaded_corner& p, const shaded_corner& q, const shaded_corner& r) {
    canvas_fill fill;
    fill.style = 4;
    const shaded_corner m = shaded_mix(p, q, r, 1.0 / 3, 1.0 / 3);
    fill.colour = {-1, wrgb(static_cast<int>(std::lround(m.rgb[0])), static_cast<int>(std::lround(m.rgb[1])),
                            static_cast<int>(std::lround(m.rgb[2])))};
    const pixel_point pts[3] = {p.p, q.p, r.p};
    c.fill_polygon(pts, fill);
  };
  for (int i = 0; i < n; ++i)
    for (int j = 0; i + j < n; ++j) {
      fill_one(at(i, j), at(i + 1, j), at(i, j + 1));
      if (i + j + 2 <= n) fill_one(at(i + 1, j), at(i + 1, j + 1), at(i, j + 1));
    }
}

}  // namespace

void igrfillpattern(int style, std::optional<int> density, std::optional<int> angle) {
  if (style >= -2 && style <= 4) {
    igrstate.ifstyl = std::abs(style);
    igrstate.ifbord = style < 0 ? 0 : 1;
  } else {
    igrstate.ifstyl = 0;
    igrstate.ifbord = 1;
  }
  const int d = density.value_or(0);
  igrstate.ifdens = d >= 1 && d <= 5 ? d : 2;
  const int a = angle.value_or(0);
  igrstate.ifangl = a >= 1 && a <= 4 ? a : 3;
}

void igrcircle(float x, float y, float r) {
  draw_circle(units_to_canvas(x, y), std::fabs(x_units_to_pixels(r)));
}

void igrtriangle(float x1, float y1, float x2, float y2, float x3, float y3) {
  const float x[3] = {x1, x2, x3};
  const float y[3] = {y1, y2, y3};
  draw_polygon_units(x, y, 3);
}

void igrrectangle(float x1, float y1, float x2, float y2) {
  const float x[4] = {x1, x2, x2, x1};
  const float y[4] = {y1, y1, y2, y2};
  draw_polygon_units(x, y, 4);
}

namespace {

// The kept rectangles; drawn when this many wait, so the memory stays small.
std::vector<canvas_box> queued_boxes;
constexpr std::size_t queue_limit = 1 << 16;

}  // namespace

void igrrectanglequeue(float x1, float y1, float x2, float y2) {
  if (igrstate.ifstyl == 0 || igrstate.ifbord == 1) {
    igrrectangleflush();
    igrrectangle(x1, y1, x2, y2);
    return;
  }
  // The conversion to pixels is separable: x2 lands where it would in any corner.
  const pixel_point a = units_to_canvas(x1, y1), b = units_to_canvas(x2, y2);
  queued_boxes.push_back({a.x, a.y, b.x, b.y, current_fill()});
  if (queued_boxes.size() >= queue_limit) igrrectangleflush();
}

void igrrectangleflush() {
  if (canvas* c = current_canvas(); c && !queued_boxes.empty()) c->fill_boxes(queued_boxes);
  queued_boxes.clear();
}

bool igrrectangleunseen(float x1, float y1, float x2, float y2) {
  const canvas* c = current_canvas();
  return c && c->box_shows_nothing(units_to_canvas(x1, y1), units_to_canvas(x2, y2));
}

void igrpolygonsimple(const float* x, const float* y, int n) { draw_polygon_units(x, y, n); }

void igrpolygoncomplex(const float* x, const float* y, int n) { draw_polygon_units(x, y, n); }

void igrpolygonshaded(const float* x, const float* y, const int* colours, int n) {
  canvas* c = current_canvas();
  if (!c || n < 3) return;
  std::vector<shaded_corner> corners(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    corners[i].p = units_to_canvas(x[i], y[i]);
    int r, g, b;
    wrgbsplit(palette_colour(colours[i]).value, r, g, b);
    corners[i].rgb[0] = r;
    corners[i].rgb[1] = g;
    corners[i].rgb[2] = b;
  }
  for (int i = 1; i + 1 < n; ++i) fill_shaded_triangle(*c, corners[0], corners[i], corners[i + 1]);
}

void igrmarker(float x, float y, int number, std::optional<float> size) {
  if (number < 1 || number > 12) {
    yyerror(1015, "IGrMarker");
    return;
  }
  canvas* c = current_canvas();
  if (!c) return;
  const auto& s = igrstate;
  const float h = 0.5f * size.value_or(s.chsizx) * (s.xgamax - s.xgamin) * static_cast<float>(s.nxgraf);
  const pixel_point o = units_to_canvas(x, y);
  const canvas_pen pen = current_pen();
  auto line = [&](float x1, float y1, float x2, float y2) {
    const pixel_point pts[2] = {{o.x + x1 * h, o.y + y1 * h}, {o.x + x2 * h, o.y + y2 * h}};
    c->polyline(pts, pen);
  };
  static const float square[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  static const float triangle[3][2] = {{-1, 0.8f}, {1, 0.8f}, {0, -1}};
  static const float diamond[4][2] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
  auto shape = [&](const float (*corner)[2], int n, bool filled) {
    std::vector<pixel_point> pts;
    for (int i = 0; i < n; ++i) pts.push_back({o.x + corner[i][0] * h, o.y + corner[i][1] * h});
    if (filled) {
      canvas_fill fill = current_fill();
      fill.style = 4;
      c->fill_polygon(pts, fill);
    }
    outline(*c, std::move(pts));
  };
  canvas_fill solid = current_fill();
  solid.style = 4;
  switch (number) {
    case 1: c->circle(o, std::max(1.0f, 0.2f * h), nullptr, &solid); break;
    case 2: line(-1, 0, 1, 0), line(0, -1, 0, 1); break;
    case 3: line(-1, 0, 1, 0), line(-0.5f, -0.87f, 0.5f, 0.87f), line(-0.5f, 0.87f, 0.5f, -0.87f); break;
    case 4: c->circle(o, h, &pen, nullptr); break;
    case 5: line(-1, -1, 1, 1), line(-1, 1, 1, -1); break;
    case 6: shape(square, 4, false); break;
    case 7: shape(triangle, 3, false); break;
    case 8: shape(diamond, 4, false); break;
    case 9: c->circle(o, h, &pen, &solid); break;
    case 10: shape(square, 4, true); break;
    case 11: shape(triangle, 3, true); break;
    case 12: shape(diamond, 4, true); break;
    default: break;
  }
}
