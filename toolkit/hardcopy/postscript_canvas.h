// A canvas that writes PostScript through the hardcopy stream: an
// encapsulated picture for a file, or a one-page document for a printer.
#pragma once

#include <string>

#include "toolkit/graphics/hatch.h"
#include "toolkit/hardcopy/hardcopy_canvas.h"

struct postscript_layout {
  int width = 0;               // picture size in points, one canvas pixel each
  int height = 0;
  bool page_document = false;  // a printer page instead of an encapsulated picture
  int margin = 0;              // points from the page's lower left corner to the picture
  int page_width = 595;        // the page (A4 portrait) in points
  int page_height = 842;
  bool print_background = false;
  std::string title;
};

class postscript_canvas : public hardcopy_canvas {
 public:
  // Writes the header, prolog and setup at once.
  explicit postscript_canvas(const postscript_layout& layout);

  void clear(int left, int top, int w, int h, canvas_colour colour) override;
  void polyline(std::span<const pixel_point> points, const canvas_pen& pen) override;
  void fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) override;
  void circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) override;
  void text(pixel_point anchor, std::string_view s, const canvas_text_style& style) override;
  // Ends the page and the file.
  void finish() override;

 private:
  void set_colour(canvas_colour colour);
  void set_pen(const canvas_pen& pen);
  void path(std::span<const pixel_point> points);
  std::string point(pixel_point p) const;
  void hatch_lines(std::span<const pixel_point> points, const hatch_type& hatch);

  postscript_layout layout_;
};

// A string literal of PostScript: parentheses and backslashes escaped,
// bytes outside printable ASCII as octal escapes.
std::string postscript_string(std::string_view s);
