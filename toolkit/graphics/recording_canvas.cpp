#include "toolkit/graphics/recording_canvas.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

recording_canvas::recording_canvas(int w, int h) : width_(std::max(w, 0)), height_(std::max(h, 0)) {}

void recording_canvas::resize(int w, int h) {
  width_ = std::max(w, 0);
  height_ = std::max(h, 0);
}

// A filled picture records a hundred thousand boxes or more, tens of MB that a
// fresh canvas would fault in 4 kB at a time, which costs more than drawing
// them. The record grows by doubling into a new block whose whole pages are
// given to the kernel for huge pages before anything is written into it.
void recording_canvas::make_room(std::size_t more) {
  if (primitives_.capacity() - primitives_.size() >= more) return;
  std::vector<recorded_primitive> larger;
  larger.reserve(std::max<std::size_t>({2 * primitives_.capacity(), primitives_.size() + more, 64}));
  constexpr std::uintptr_t page = 4096;
  const auto first = (reinterpret_cast<std::uintptr_t>(larger.data()) + page - 1) / page * page;
  const auto last = (reinterpret_cast<std::uintptr_t>(larger.data() + larger.capacity())) / page * page;
  if (last > first) madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
  larger.insert(larger.end(), std::make_move_iterator(primitives_.begin()), std::make_move_iterator(primitives_.end()));
  primitives_.swap(larger);
}

recorded_primitive& recording_canvas::record(recorded_kind kind, std::span<const pixel_point> points,
                                             canvas_colour colour) {
  make_room(1);
  recorded_primitive& p = primitives_.emplace_back(kind);
  p.points.assign(points.data(), points.data() + points.size());
  p.colour = colour;
  return p;
}

void recording_canvas::clear(int left, int top, int w, int h, canvas_colour colour) {
  recorded_primitive p;
  p.kind = recorded_kind::clear;
  p.points = {{static_cast<float>(left), static_cast<float>(top)},
              {static_cast<float>(left + w), static_cast<float>(top + h)}};
  p.colour = colour;
  p.fill.colour = colour;
  primitives_.push_back(std::move(p));
}

void recording_canvas::polylines(std::span<const pixel_point> points, std::span<const std::uint32_t> ends,
                                 const canvas_pen& pen) {
  make_room(ends.size());
  canvas::polylines(points, ends, pen);
}

void recording_canvas::polyline(std::span<const pixel_point> points, const canvas_pen& pen) {
  recorded_primitive& p = record(recorded_kind::polyline, points, pen.colour);
  p.pen = pen;
}

void recording_canvas::fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) {
  recorded_primitive& p = record(recorded_kind::polygon, points, fill.colour);
  p.fill = fill;
}

void recording_canvas::circle(pixel_point centre, float radius, const canvas_pen* pen,
                              const canvas_fill* fill) {
  recorded_primitive p;
  p.kind = recorded_kind::circle;
  p.points = {centre};
  p.radius = radius;
  if (fill) {
    p.filled = true;
    p.fill = *fill;
    p.colour = fill->colour;
  }
  if (pen) {
    p.outlined = true;
    p.pen = *pen;
    if (!fill) p.colour = pen->colour;
  }
  primitives_.push_back(std::move(p));
}

void recording_canvas::text(pixel_point anchor, std::string_view s, const canvas_text_style& style) {
  recorded_primitive p;
  p.kind = recorded_kind::text;
  p.points = {anchor};
  p.colour = style.colour;
  p.text = std::string(s);
  p.text_style = style;
  primitives_.push_back(std::move(p));
}

// A recording has no glyphs: every character takes the nominal width.
float recording_canvas::text_width(std::string_view s, const canvas_text_style& style) const {
  return static_cast<float>(s.size()) * style.char_width;
}

// A bitmap of a recording starts empty: only its size is known.
std::unique_ptr<canvas> recording_canvas::copy_area(int, int, int w, int h) const {
  return std::make_unique<recording_canvas>(w, h);
}

// The copy is recorded as one primitive, followed by what the bitmap holds,
// moved to where it lands, so that the target's record shows what is visible.
void recording_canvas::put_bitmap(const canvas& bitmap, int handle, int left, int top) {
  recorded_primitive p;
  p.kind = recorded_kind::bitmap;
  p.points = {{static_cast<float>(left), static_cast<float>(top)},
              {static_cast<float>(left + bitmap.width()), static_cast<float>(top + bitmap.height())}};
  p.handle = handle;
  primitives_.push_back(std::move(p));
  const auto* recorded = dynamic_cast<const recording_canvas*>(&bitmap);
  if (!recorded) return;
  make_room(recorded->primitives().size());
  for (recorded_primitive q : recorded->primitives()) {
    for (auto& pt : q.points) {
      pt.x += static_cast<float>(left);
      pt.y += static_cast<float>(top);
    }
    primitives_.push_back(std::move(q));
  }
}
