#include "toolkit/graphics/graphics_lines.h"

#include <algorithm>
#include <vector>

#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"

void igrlinetype(int type) { igrstate.lintyp = type; }

void igrlinewidth(int width) { igrstate.linwid = std::max(width, 1); }

canvas_pen current_pen() {
  canvas_pen pen;
  pen.colour = current_colour();
  pen.type = igrstate.lintyp >= 0 && igrstate.lintyp <= 3 ? igrstate.lintyp : 0;
  pen.width = igrstate.linwid;
  return pen;
}

void igrmoveto(float x, float y) {
  igrstate.xcur = x;
  igrstate.ycur = y;
}

void igrlineto(float x, float y) { igrjoin(igrstate.xcur, igrstate.ycur, x, y); }

void igrjoin(float x1, float y1, float x2, float y2) {
  const float x[2] = {x1, x2};
  const float y[2] = {y1, y2};
  igrpolyline(x, y, 2);
}

void igrpolyline(const float* x, const float* y, int n) {
  if (n < 2) return;
  igrmoveto(x[n - 1], y[n - 1]);
  canvas* c = current_canvas();
  if (!c) return;
  std::vector<pixel_point> points(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) points[i] = units_to_canvas(x[i], y[i]);
  c->polyline(points, current_pen());
}
