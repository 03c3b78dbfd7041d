#include "toolkit/hardcopy/wmf_canvas.h"

#include <cmath>

#include "toolkit/graphics/hatch.h"
#include "toolkit/hardcopy/hardcopy_stream.h"
#include "toolkit/hardcopy/rectangle_corners.h"

namespace {

// Record functions of the metafile format.
constexpr std::uint16_t set_bk_mode = 0x0102, set_poly_fill_mode = 0x0106, select_object = 0x012D,
                        set_text_align = 0x012E, delete_object = 0x01F0, set_text_color = 0x0209,
                        set_window_org = 0x020B, set_window_ext = 0x020C, create_pen = 0x02FA,
                        create_font = 0x02FB, create_brush = 0x02FC, polygon_record = 0x0324,
                        polyline_record = 0x0325, ellipse_record = 0x0418, text_out = 0x0521;

// Every primitive creates its objects, selects them, draws and deletes them,
// so the table never holds more than a pen and a brush (or a font).
constexpr std::uint16_t object_slots = 2;

// Pen styles for line types 0 solid, 1 dots, 2 dashes, 3 dot-dash; 5 no pen.
constexpr std::int16_t pen_styles[] = {0, 2, 1, 3};
constexpr std::int16_t null_pen = 5, null_brush = 1;

// Brush styles BS_SOLID and BS_HATCHED; hatches HS_HORIZONTAL, HS_BDIAGONAL
// (rising), HS_VERTICAL, HS_FDIAGONAL (falling), HS_CROSS, HS_DIAGCROSS.
constexpr std::int16_t solid_brush = 0, hatched_brush = 2;
constexpr std::int16_t hatch_by_direction[] = {0, 3, 1, 2};
constexpr std::int16_t cross = 4, diagonal_cross = 5;

std::int16_t brush_style(const canvas_fill& fill) { return hatch_of(fill).count ? hatched_brush : solid_brush; }

std::int16_t brush_hatch(const canvas_fill& fill) {
  const hatch_type h = hatch_of(fill);
  if (h.count == 0) return 0;
  const int first = h.directions[0];
  if (h.count == 2) return first % 2 == 1 ? cross : diagonal_cross;
  return hatch_by_direction[first - 1];
}

std::int16_t low(std::int32_t v) { return static_cast<std::int16_t>(v & 0xFFFF); }
std::int16_t high(std::int32_t v) { return static_cast<std::int16_t>((v >> 16) & 0xFFFF); }
std::int16_t unit(float v) { return static_cast<std::int16_t>(std::lround(v)); }

void put_word(std::vector<unsigned char>& out, std::uint16_t w) {
  out.push_back(static_cast<unsigned char>(w & 0xFF));
  out.push_back(static_cast<unsigned char>(w >> 8));
}

}  // namespace

wmf_canvas::wmf_canvas(int w, int h, bool print_background)
    : hardcopy_canvas(w, h), print_background_(print_background) {
  record(set_window_org, {0, 0});
  record(set_window_ext, {static_cast<std::int16_t>(h), static_cast<std::int16_t>(w)});
  record(set_bk_mode, {1});         // text without a box behind it
  record(set_poly_fill_mode, {1});  // even-odd, as the screen fills
}

void wmf_canvas::record(std::uint16_t function, const std::vector<std::int16_t>& params) {
  const auto size = static_cast<std::uint32_t>(3 + params.size());
  words_.push_back(static_cast<std::uint16_t>(size & 0xFFFF));
  words_.push_back(static_cast<std::uint16_t>(size >> 16));
  words_.push_back(function);
  for (const std::int16_t p : params) words_.push_back(static_cast<std::uint16_t>(p));
  if (size > longest_) longest_ = size;
}

void wmf_canvas::select_pen(const canvas_pen* pen) {
  if (pen)
    record(create_pen, {pen_styles[pen->type >= 0 && pen->type <= 3 ? pen->type : 0],
                        static_cast<std::int16_t>(pen->width < 1 ? 1 : pen->width), 0, low(pen->colour.value),
                        high(pen->colour.value)});
  else
    record(create_pen, {null_pen, 0, 0, 0, 0});
  record(select_object, {0});
}

// Hatched styles take the format's own hatched brushes: one direction, or
// the horizontal-vertical or the diagonal cross. Their spacing is the reader's.
void wmf_canvas::select_brush(const canvas_fill* fill) {
  if (fill)
    record(create_brush, {brush_style(*fill), low(fill->colour.value), high(fill->colour.value), brush_hatch(*fill)});
  else
    record(create_brush, {null_brush, 0, 0, 0});
  record(select_object, {1});
}

void wmf_canvas::release_objects() {
  record(delete_object, {0});
  record(delete_object, {1});
}

void wmf_canvas::shape(std::uint16_t function, std::span<const pixel_point> points) {
  std::vector<std::int16_t> params{static_cast<std::int16_t>(points.size())};
  for (const pixel_point& p : points) {
    params.push_back(unit(p.x));
    params.push_back(unit(p.y));
  }
  record(function, params);
}

void wmf_canvas::clear(int left, int top, int w, int h, canvas_colour colour) {
  // The paper is the background unless the caller asked for it to be printed.
  if (!print_background_) return;
  const auto corners = rectangle_corners(left, top, w, h);
  canvas_fill fill;
  fill.colour = colour;
  fill_polygon(corners, fill);
}

void wmf_canvas::polyline(std::span<const pixel_point> points, const canvas_pen& pen) {
  if (points.size() < 2) return;
  select_pen(&pen);
  select_brush(nullptr);
  shape(polyline_record, points);
  release_objects();
}

void wmf_canvas::fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) {
  if (points.size() < 3) return;
  select_pen(nullptr);
  select_brush(&fill);
  shape(polygon_record, points);
  release_objects();
}

void wmf_canvas::circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) {
  select_pen(pen);
  select_brush(fill);
  record(ellipse_record, {unit(centre.y + radius), unit(centre.x + radius), unit(centre.y - radius),
                          unit(centre.x - radius)});
  release_objects();
}

void wmf_canvas::text(pixel_point anchor, std::string_view s, const canvas_text_style& style) {
  static constexpr std::int16_t alignments[] = {0, 6, 2};  // left, centre, right
  static constexpr const char* faces[] = {"Arial", "Times New Roman", "Courier New", "Symbol"};
  const char* face = style.family >= 1 && style.family <= 4 ? faces[style.family - 1] : faces[0];
  const auto escapement = unit(style.angle * 10.0f);
  // Height negative: the character height rather than the cell's.
  std::vector<std::int16_t> font{unit(-style.char_height), 0, escapement, escapement, 400, 0, 0, 0, 0};
  char name[32] = {};
  for (std::size_t i = 0; face[i] != '\0' && i < 31; ++i) name[i] = face[i];
  for (std::size_t i = 0; i < 32; i += 2)
    font.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(name[i]) |
                                             (static_cast<unsigned char>(name[i + 1]) << 8)));
  record(create_font, font);
  record(select_object, {0});
  record(set_text_align, {alignments[style.alignment >= 0 && style.alignment <= 2 ? style.alignment : 0]});
  record(set_text_color, {low(style.colour.value), high(style.colour.value)});
  // The anchor is the middle of the text's height; the record's point is its top.
  const float up = 0.5f * style.char_height;
  const double a = style.angle * 3.14159265358979 / 180.0;
  std::vector<std::int16_t> params{static_cast<std::int16_t>(s.size())};
  for (std::size_t i = 0; i < s.size(); i += 2) {
    const auto first = static_cast<unsigned char>(s[i]);
    const auto second = i + 1 < s.size() ? static_cast<unsigned char>(s[i + 1]) : 0;
    params.push_back(static_cast<std::int16_t>(first | (second << 8)));
  }
  params.push_back(unit(anchor.y - up * static_cast<float>(std::cos(a))));
  params.push_back(unit(anchor.x - up * static_cast<float>(std::sin(a))));
  record(text_out, params);
  record(delete_object, {0});
}

void wmf_canvas::finish() {
  record(0, {});  // the end record
  std::vector<unsigned char> out;
  // Placeable header: key, handle, bounding box, units an inch, reserved,
  // and the checksum of the ten words before it.
  const std::uint16_t placeable[] = {0xCDD7, 0x9AC6, 0, 0, 0, static_cast<std::uint16_t>(width()),
                                     static_cast<std::uint16_t>(height()), 96, 0, 0};
  std::uint16_t checksum = 0;
  for (const std::uint16_t w : placeable) {
    put_word(out, w);
    checksum ^= w;
  }
  put_word(out, checksum);
  const auto total = static_cast<std::uint32_t>(9 + words_.size());
  const std::uint16_t header[] = {1, 9, 0x0300, static_cast<std::uint16_t>(total & 0xFFFF),
                                  static_cast<std::uint16_t>(total >> 16), object_slots,
                                  static_cast<std::uint16_t>(longest_ & 0xFFFF),
                                  static_cast<std::uint16_t>(longest_ >> 16), 0};
  for (const std::uint16_t w : header) put_word(out, w);
  for (const std::uint16_t w : words_) put_word(out, w);
  yygrhcwritebuffer(out);
}
