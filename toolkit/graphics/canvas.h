// The surface that drawing ends on. The igr* and ipg* layers work in graphics
// units, turn them into pixels and hand the pixels to one of these; they never
// know whether a window pixmap, a recording, a file or a printer is behind it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

// A point in pixels of the canvas: x to the right, y downward from the top
// left corner. Fractions are kept so that a file canvas loses nothing.
struct pixel_point {
  float x = 0;
  float y = 0;
};

// A colour as the drawing layer chose it: the colour number (or -1 when the
// colour was given directly) and the colour value red + 256*green + 65536*blue
// that the number stood for at the time of drawing.
struct canvas_colour {
  int number = -1;
  std::int32_t value = 0;
};

// How lines are drawn: type 0 solid, 1 dots, 2 dashes, 3 dot-dash; width in pixels.
struct canvas_pen {
  canvas_colour colour;
  int type = 0;
  int width = 1;
};

// How areas are filled: style 4 solid; 1 hatched, 2 cross-hatched, 3 dense
// cross-hatch, with a spacing by density 1..5 and a direction by angle 1..4.
struct canvas_fill {
  canvas_colour colour;
  int style = 4;
  int density = 2;
  int angle = 3;
};

// How text is drawn: the character box in pixels, alignment at the anchor
// (0 left, 1 centre, 2 right), angle in degrees counter-clockwise.
struct canvas_text_style {
  canvas_colour colour;
  int family = 1;
  int style = 0;
  float char_width = 8;
  float char_height = 12;
  int alignment = 1;
  float angle = 0;
};

// An upright rectangle between two corners in pixels, filled as the polygon
// (x1, y1) (x2, y1) (x2, y2) (x1, y2) would be.
struct canvas_box {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  canvas_fill fill;
};

class canvas {
 public:
  virtual ~canvas() = default;

  virtual int width() const = 0;
  virtual int height() const = 0;

  // Fills a rectangle of pixels (left, top, width, height) with one colour.
  virtual void clear(int left, int top, int w, int h, canvas_colour colour) = 0;
  // An open line through the points; a closed one repeats its first point.
  virtual void polyline(std::span<const pixel_point> points, const canvas_pen& pen) = 0;
  // Lines of one pen, in order: line k runs through the points from ends[k - 1]
  // (0 for the first) up to ends[k]. A canvas may draw them in fewer steps
  // where the result is the same.
  virtual void polylines(std::span<const pixel_point> points, std::span<const std::uint32_t> ends,
                         const canvas_pen& pen) {
    std::size_t from = 0;
    for (const std::uint32_t end : ends) {
      polyline(points.subspan(from, end - from), pen);
      from = end;
    }
  }
  // The inside of a polygon by the even-odd rule, so self-crossing ones work.
  virtual void fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) = 0;
  // A circle filled when fill is given, outlined when pen is given.
  // Fills the boxes in order, each as fill_polygon fills its four corners. A
  // canvas may draw them in fewer steps where the result is the same.
  virtual void fill_boxes(std::span<const canvas_box> boxes) {
    for (const canvas_box& b : boxes) {
      const pixel_point corners[4] = {{b.x1, b.y1}, {b.x2, b.y1}, {b.x2, b.y2}, {b.x1, b.y2}};
      fill_polygon(corners, b.fill);
    }
  }
  // True when filling the box between these corners would change no pixel,
  // so that a caller may leave it out. A canvas that keeps every shape it is
  // given (a file, a recording) says false.
  virtual bool box_shows_nothing(pixel_point, pixel_point) const { return false; }
  virtual void circle(pixel_point centre, float radius, const canvas_pen* pen,
                      const canvas_fill* fill) = 0;
  virtual void text(pixel_point anchor, std::string_view s, const canvas_text_style& style) = 0;
  // Width of a text in pixels as text() would draw it.
  virtual float text_width(std::string_view s, const canvas_text_style& style) const = 0;
  // A new canvas of the same kind holding a copy of a rectangle of this one.
  virtual std::unique_ptr<canvas> copy_area(int left, int top, int w, int h) const = 0;
  // Copies a canvas made by copy_area (of this kind) with its top left corner at (left, top).
  virtual void put_bitmap(const canvas& bitmap, int handle, int left, int top) = 0;
};
