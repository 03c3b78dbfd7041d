// A canvas that writes a placeable Windows metafile, 96 logical units an
// inch, one unit per canvas pixel. Records are kept in memory until finish()
// because the header carries the file's size and its longest record.
#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/hardcopy/hardcopy_canvas.h"

class wmf_canvas : public hardcopy_canvas {
 public:
  wmf_canvas(int w, int h, bool print_background);

  void clear(int left, int top, int w, int h, canvas_colour colour) override;
  void polyline(std::span<const pixel_point> points, const canvas_pen& pen) override;
  void fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) override;
  void circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) override;
  void text(pixel_point anchor, std::string_view s, const canvas_text_style& style) override;
  // Writes the headers, the records and the end record.
  void finish() override;

 private:
  void record(std::uint16_t function, const std::vector<std::int16_t>& params);
  void select_pen(const canvas_pen* pen);
  void select_brush(const canvas_fill* fill);
  void release_objects();
  void shape(std::uint16_t function, std::span<const pixel_point> points);

  bool print_background_;
  std::vector<std::uint16_t> words_;  // the records, in 16-bit words
  std::uint32_t longest_ = 0;         // the longest record, in words
};
