// The canvas of the real screen: Xlib draws shapes into a window or an
// off-screen pixmap, Xft draws text in DejaVu Sans found through fontconfig.
#pragma once

#include <X11/Xft/Xft.h>
#include <X11/Xlib.h>

#include <cstdint>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

#include "toolkit/graphics/canvas.h"

class x11_canvas : public canvas {
 public:
  // Draws straight into a window (the client area of the root window, say)
  // of the given size; the window stays the caller's.
  static std::unique_ptr<x11_canvas> on_window(Display* display, Window window, int w, int h);
  // An off-screen pixmap of the given size and of the depth of `like`,
  // cleared to black; freed with the canvas.
  static std::unique_ptr<x11_canvas> pixmap(Display* display, Drawable like, int w, int h);
  ~x11_canvas() override;
  x11_canvas(const x11_canvas&) = delete;
  x11_canvas& operator=(const x11_canvas&) = delete;

  Drawable drawable() const { return drawable_; }
  // After a window changed size.
  void resize(int w, int h);

  int width() const override { return width_; }
  int height() const override { return height_; }
  void clear(int left, int top, int w, int h, canvas_colour colour) override;
  void polyline(std::span<const pixel_point> points, const canvas_pen& pen) override;
  void polylines(std::span<const pixel_point> points, std::span<const std::uint32_t> ends,
                 const canvas_pen& pen) override;
  void fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) override;
  void fill_boxes(std::span<const canvas_box> boxes) override;
  bool box_shows_nothing(pixel_point a, pixel_point b) const override;
  void circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) override;
  void text(pixel_point anchor, std::string_view s, const canvas_text_style& style) override;
  float text_width(std::string_view s, const canvas_text_style& style) const override;
  std::unique_ptr<canvas> copy_area(int left, int top, int w, int h) const override;
  void put_bitmap(const canvas& bitmap, int handle, int left, int top) override;

 private:
  x11_canvas(Display* display, Drawable drawable, int w, int h, bool owns);
  void use_pen(const canvas_pen& pen);
  void use_fill(const canvas_fill& fill);
  unsigned long pixel(canvas_colour colour) const;
  GC wire_gc(canvas_colour colour);
  // The font whose glyphs fit the character box, turned by the angle.
  XftFont* font_for(std::string_view s, const canvas_text_style& style, double angle) const;
  XftFont* open_font(int pixel_size, int style, double angle) const;

  Display* display_;
  Drawable drawable_;
  int width_, height_;
  bool owns_;
  GC gc_;
  XftDraw* xft_ = nullptr;
  std::map<int, Pixmap> stipples_;
  std::vector<std::uint16_t> painting_;  // colour indices of the boxes of fill_boxes
  std::vector<XPoint> xpoints_;          // the points of a line or polygon being drawn
  std::vector<XSegment> segments_;       // the pieces of the lines of polylines
  std::vector<std::pair<unsigned, GC>> wire_gcs_;  // see wire_gc
  mutable std::map<std::tuple<int, int, int>, XftFont*> fonts_;
};
