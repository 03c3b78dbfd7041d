// A canvas that keeps every primitive it is given, so that tests and the
// headless backend can read back what was drawn.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "toolkit/graphics/canvas.h"

enum class recorded_kind { clear, polyline, polygon, circle, text, bitmap };

// The points of a primitive. Up to five (a filled box, an outlined triangle
// or quadrilateral, a clear, a circle's centre, a text's anchor: nearly every
// primitive of a picture) are kept in the record itself, so that recording
// them allocates nothing.
class recorded_points {
 public:
  recorded_points() = default;
  recorded_points(std::initializer_list<pixel_point> points) { assign(points.begin(), points.end()); }

  void assign(const pixel_point* first, const pixel_point* last) {
    size_ = static_cast<std::size_t>(last - first);
    if (size_ <= held_.size())
      std::copy(first, last, held_.begin());
    else
      more_.assign(first, last);
  }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  pixel_point* begin() { return size_ <= held_.size() ? held_.data() : more_.data(); }
  pixel_point* end() { return begin() + size_; }
  const pixel_point* begin() const { return size_ <= held_.size() ? held_.data() : more_.data(); }
  const pixel_point* end() const { return begin() + size_; }
  pixel_point& operator[](std::size_t i) { return begin()[i]; }
  const pixel_point& operator[](std::size_t i) const { return begin()[i]; }
  const pixel_point& front() const { return begin()[0]; }
  const pixel_point& back() const { return begin()[size_ - 1]; }

 private:
  std::size_t size_ = 0;
  std::array<pixel_point, 5> held_;
  std::vector<pixel_point> more_;
};

struct recorded_primitive {
  // A constructor of its own: without one, a record made in place is first
  // cleared byte by byte and then given its fields, and a filled picture
  // makes a record for every box.
  explicit recorded_primitive(recorded_kind k = recorded_kind::clear) : kind(k) {}

  recorded_kind kind;
  recorded_points points;  // clear: top left, bottom right; circle: centre
  canvas_colour colour;             // line, fill or text colour
  canvas_pen pen;                   // polyline, outlined circle
  canvas_fill fill;                 // polygon, filled circle, clear (colour only)
  bool filled = false;              // circle
  bool outlined = false;            // circle
  float radius = 0;                 // circle
  std::string text;                 // text
  canvas_text_style text_style;     // text
  int handle = 0;                   // bitmap
};

class recording_canvas : public canvas {
 public:
  recording_canvas(int w, int h);

  int width() const override { return width_; }
  int height() const override { return height_; }
  void clear(int left, int top, int w, int h, canvas_colour colour) override;
  void polyline(std::span<const pixel_point> points, const canvas_pen& pen) override;
  void polylines(std::span<const pixel_point> points, std::span<const std::uint32_t> ends,
                 const canvas_pen& pen) override;
  void fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) override;
  void circle(pixel_point centre, float radius, const canvas_pen* pen,
              const canvas_fill* fill) override;
  void text(pixel_point anchor, std::string_view s, const canvas_text_style& style) override;
  float text_width(std::string_view s, const canvas_text_style& style) const override;
  std::unique_ptr<canvas> copy_area(int left, int top, int w, int h) const override;
  void put_bitmap(const canvas& bitmap, int handle, int left, int top) override;

  // Changes the size, as a window does when the user resizes it.
  void resize(int w, int h);

  // Everything drawn, oldest first.
  const std::vector<recorded_primitive>& primitives() const { return primitives_; }
  void forget() { primitives_.clear(); }

 private:
  // Room for this many more primitives.
  void make_room(std::size_t more);
  recorded_primitive& record(recorded_kind kind, std::span<const pixel_point> points, canvas_colour colour);

  int width_;
  int height_;
  std::vector<recorded_primitive> primitives_;
};
