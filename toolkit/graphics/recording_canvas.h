// A canvas that keeps every primitive it is given, so that tests and the
// headless backend can read back what was drawn.
#pragma once

#include <string>
#include <vector>

#include "toolkit/graphics/canvas.h"

enum class recorded_kind { clear, polyline, polygon, circle, text, bitmap };

struct recorded_primitive {
  recorded_kind kind = recorded_kind::clear;
  std::vector<pixel_point> points;  // clear: top left, bottom right; circle: centre
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
  recorded_primitive& record(recorded_kind kind, std::span<const pixel_point> points, canvas_colour colour);

  int width_;
  int height_;
  std::vector<recorded_primitive> primitives_;
};
