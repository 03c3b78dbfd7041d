#include "toolkit/graphics/graphics_wires.h"

#include <cstdint>
#include <vector>

#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"

namespace {

// The kept lines, closed polygons with their first point again, the end of
// each line in points, and the canvas and pen they all share. The points
// stay in graphics units until the batch is drawn, and are then turned to
// pixels all together: whatever changes the units, the area or the target
// (igrunits, igrarea, igrinit, igrselect, attach_target, attach_hardcopy,
// wbitmapdestroy) draws the batch first, so the units it was given in still
// hold then.
struct wire_batch {
  std::vector<pixel_point> points;
  std::vector<std::uint32_t> ends;
  canvas* target = nullptr;
  canvas_pen pen;
};
wire_batch batch;
// Drawn when this many points wait, so that the memory stays small.
constexpr std::size_t batch_limit = 1 << 16;

bool same_pen(const canvas_pen& a, const canvas_pen& b) {
  return a.colour.number == b.colour.number && a.colour.value == b.colour.value && a.type == b.type &&
         a.width == b.width;
}

// Room for a line of n points: the batch drawn first when the line would
// join it with another pen. The canvas is looked up for a new batch only,
// since a change of target draws the batch. False without a canvas.
bool start_line(std::size_t n) {
  const canvas_pen pen = current_pen();
  if (!batch.ends.empty() && (!same_pen(pen, batch.pen) || batch.points.size() + n > batch_limit))
    igrwiresflush();
  if (batch.ends.empty()) batch.target = current_canvas();
  if (!batch.target) return false;
  batch.pen = pen;
  return true;
}

void end_line() { batch.ends.push_back(static_cast<std::uint32_t>(batch.points.size())); }

}  // namespace

void igrpolygonqueue(const float* x, const float* y, int n) {
  if (n < 3) return;
  if (igrstate.ifstyl != 0) {
    igrwiresflush();
    igrpolygonsimple(x, y, n);
    return;
  }
  if (!start_line(static_cast<std::size_t>(n) + 1)) return;
  for (int i = 0; i < n; ++i) batch.points.push_back({x[i], y[i]});
  batch.points.push_back({x[0], y[0]});
  end_line();
}

void igrjoinqueue(float x1, float y1, float x2, float y2) {
  igrmoveto(x2, y2);
  if (!start_line(2)) return;
  batch.points.push_back({x1, y1});
  batch.points.push_back({x2, y2});
  end_line();
}

void igrwiresflush() {
  if (!batch.ends.empty()) {
    units_to_canvas(batch.points);
    batch.target->polylines(batch.points, batch.ends, batch.pen);
  }
  batch.points.clear();
  batch.ends.clear();
}
