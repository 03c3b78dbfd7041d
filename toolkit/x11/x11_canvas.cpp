#include "toolkit/x11/x11_canvas.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "toolkit/graphics/hatch.h"
#include "toolkit/x11/x11_colours.h"

namespace {

// Four coordinates worked on at once. GCC's vector types are used rather
// than a loop left to the compiler, which at -O2 would take one value at a
// time; each lane does exactly what the lone value would.
typedef float four __attribute__((vector_size(4 * sizeof(float))));
typedef int four_int __attribute__((vector_size(4 * sizeof(int))));
typedef short four_short __attribute__((vector_size(4 * sizeof(short))));

// X coordinates are 16-bit: positions far outside are pinned, not wrapped.
// Halves round away from 0, as lround does; NaN is pinned low, as lround's
// LONG_MIN is. Written out because it runs for every corner of a picture.
four_short to_shorts(four v) {
  v = v > -30000.0f ? v : -30000.0f;  // NaN too
  v = v > 30000.0f ? 30000.0f : v;
  const four_int whole = __builtin_convertvector(v, four_int);  // toward 0; v - whole is exact
  const four part = v - __builtin_convertvector(whole, four);
  // A true comparison is -1 in each lane.
  return __builtin_convertvector(whole - (part >= 0.5f) + (part <= -0.5f), four_short);
}

short to_short(float v) { return to_shorts(four{v, v, v, v})[0]; }

// The points as X points, two at a time.
void to_xpoints(std::span<const pixel_point> points, std::vector<XPoint>& out) {
  out.resize(points.size());
  const std::size_t pairs = points.size() / 2;
  for (std::size_t i = 0; i < pairs; ++i) {
    four v;
    std::memcpy(&v, &points[2 * i], sizeof v);
    const four_short p = to_shorts(v);
    std::memcpy(&out[2 * i], &p, sizeof p);
  }
  if (points.size() % 2 != 0) out.back() = {to_short(points.back().x), to_short(points.back().y)};
}

// The pixels a filled upright rectangle covers, as the server fills it:
// columns left..left+w-1 and rows top..top+h-1 (w or h 0 covers none).
struct pixel_box {
  int left, top, w, h;
};

pixel_box pixels_of(float x1, float y1, float x2, float y2) {
  const four_short p = to_shorts(four{x1, x2, y1, y2});
  const short a = p[0], b = p[1], c = p[2], d = p[3];
  return {std::min(a, b), std::min(c, d), std::abs(b - a), std::abs(d - c)};
}

// Solid boxes painted one after the other into an image of colour indices
// (0 where none fell), the last box over a pixel giving its index, exactly as
// the server paints them in turn. The image is then drawn a colour at a time
// as rectangles: runs of one index along a row, stacked where rows repeat.
class box_painting {
 public:
  // index is the image's memory, kept by the caller from one batch to the next.
  box_painting(std::span<const canvas_box> boxes, int width, int height,
               const std::function<unsigned long(canvas_colour)>& pixel, std::vector<std::uint16_t>& index)
      : index_(index) {
    std::vector<pixel_box> clipped;
    clipped.reserve(boxes.size());
    left_ = width, top_ = height;
    int right = 0, bottom = 0;
    for (const canvas_box& b : boxes) {
      pixel_box p = pixels_of(b.x1, b.y1, b.x2, b.y2);
      const int x0 = std::max(p.left, 0), y0 = std::max(p.top, 0);
      const int x1 = std::min(p.left + p.w, width), y1 = std::min(p.top + p.h, height);
      if (x0 >= x1 || y0 >= y1) p.w = 0;
      else p = {x0, y0, x1 - x0, y1 - y0};
      clipped.push_back(p);
      if (p.w == 0) continue;
      left_ = std::min(left_, x0), top_ = std::min(top_, y0);
      right = std::max(right, x1), bottom = std::max(bottom, y1);
    }
    if (right <= left_ || bottom <= top_) return;
    w_ = right - left_, h_ = bottom - top_;
    index_.assign(static_cast<std::size_t>(w_) * static_cast<std::size_t>(h_), 0);
    for (std::size_t k = 0; k < boxes.size(); ++k) {
      const pixel_box& p = clipped[k];
      if (p.w == 0) continue;
      const canvas_colour& colour = boxes[k].fill.colour;
      if (pixels_.empty() || colour.value != last_value_) last_pixel_ = pixel(colour), last_value_ = colour.value;
      const std::uint16_t c = colour_index(last_pixel_);
      for (int y = p.top; y < p.top + p.h; ++y)
        std::fill_n(&index_[at(p.left, y)], p.w, c);
    }
  }

  // False when there were more colours than indices: nothing can be drawn from it.
  bool usable() const { return pixels_.size() < 0xFFFF; }

  void draw(Display* display, Drawable drawable, GC gc) const {
    std::vector<std::vector<XRectangle>> rects(pixels_.size());
    // For the runs of the row above, by their first column: colour, place in
    // rects, last column + 1; a run below with the same three grows it.
    struct open_run {
      std::uint16_t colour = 0;
      std::size_t place = 0;
      int end = -1;
    };
    std::vector<open_run> above(static_cast<std::size_t>(w_)), here(static_cast<std::size_t>(w_));
    for (int y = 0; y < h_; ++y) {
      for (int x = 0; x < w_;) {
        const std::uint16_t c = index_[at(left_ + x, top_ + y)];
        int end = x + 1;
        while (end < w_ && index_[at(left_ + end, top_ + y)] == c) ++end;
        open_run& run = here[static_cast<std::size_t>(x)];
        const open_run& up = above[static_cast<std::size_t>(x)];
        if (c == 0) {
          run = {};
        } else if (up.colour == c && up.end == end) {
          run = up;
          ++rects[c - 1][up.place].height;
        } else {
          auto& list = rects[c - 1];
          run = {c, list.size(), end};
          list.push_back({static_cast<short>(left_ + x), static_cast<short>(top_ + y),
                          static_cast<unsigned short>(end - x), 1});
        }
        x = end;
      }
      std::swap(above, here);
      std::fill(here.begin(), here.end(), open_run{});
    }
    XSetFillStyle(display, gc, FillSolid);
    for (std::size_t c = 0; c < rects.size(); ++c) {
      XSetForeground(display, gc, pixels_[c]);
      XFillRectangles(display, drawable, gc, rects[c].data(), static_cast<int>(rects[c].size()));
    }
  }

 private:
  std::size_t at(int x, int y) const {
    return static_cast<std::size_t>(x - left_) + static_cast<std::size_t>(w_) * static_cast<std::size_t>(y - top_);
  }
  // Indices count from 1, in the order the colours first come.
  std::uint16_t colour_index(unsigned long pixel) {
    if (!pixels_.empty() && pixels_[last_] == pixel) return static_cast<std::uint16_t>(last_ + 1);
    const auto it = std::find(pixels_.begin(), pixels_.end(), pixel);
    last_ = static_cast<std::size_t>(it - pixels_.begin());
    if (it == pixels_.end()) pixels_.push_back(pixel);
    return static_cast<std::uint16_t>(std::min<std::size_t>(last_ + 1, 0xFFFF));
  }

  int left_ = 0, top_ = 0, w_ = 0, h_ = 0;
  std::vector<std::uint16_t>& index_;
  std::vector<unsigned long> pixels_;
  std::size_t last_ = 0;
  std::int32_t last_value_ = 0;  // the colour value of the last box, and its pixel
  unsigned long last_pixel_ = 0;
};

}  // namespace

std::unique_ptr<x11_canvas> x11_canvas::on_window(Display* display, Window window, int w, int h) {
  return std::unique_ptr<x11_canvas>(new x11_canvas(display, window, w, h, false));
}

std::unique_ptr<x11_canvas> x11_canvas::pixmap(Display* display, Drawable like, int w, int h) {
  w = std::max(w, 1);
  h = std::max(h, 1);
  Window root = 0;
  int x = 0, y = 0;
  unsigned uw = 0, uh = 0, border = 0, depth = 0;
  XGetGeometry(display, like, &root, &x, &y, &uw, &uh, &border, &depth);
  const Pixmap p = XCreatePixmap(display, like, static_cast<unsigned>(w), static_cast<unsigned>(h), depth);
  auto c = std::unique_ptr<x11_canvas>(new x11_canvas(display, p, w, h, true));
  c->clear(0, 0, w, h, {-1, 0});
  return c;
}

x11_canvas::x11_canvas(Display* display, Drawable drawable, int w, int h, bool owns)
    : display_(display), drawable_(drawable), width_(w), height_(h), owns_(owns) {
  gc_ = XCreateGC(display_, drawable_, 0, nullptr);
  XSetFillRule(display_, gc_, EvenOddRule);
  const int screen = DefaultScreen(display_);
  xft_ = XftDrawCreate(display_, drawable_, DefaultVisual(display_, screen), DefaultColormap(display_, screen));
}

x11_canvas::~x11_canvas() {
  for (auto& [key, font] : fonts_) XftFontClose(display_, font);
  for (auto& [key, stipple] : stipples_) XFreePixmap(display_, stipple);
  if (xft_) XftDrawDestroy(xft_);
  XFreeGC(display_, gc_);
  for (auto& [rgb, gc] : wire_gcs_) XFreeGC(display_, gc);
  if (owns_) XFreePixmap(display_, drawable_);
}

void x11_canvas::resize(int w, int h) {
  width_ = std::max(w, 0);
  height_ = std::max(h, 0);
}

unsigned long x11_canvas::pixel(canvas_colour colour) const {
  return x11_pixel(display_, static_cast<unsigned>(colour.value) & 0xFFFFFFu);
}

// Thin solid lines keep a GC for each colour: a picture whose colour changes
// every few lines (an isosurface coloured by depth) then draws with the GC of
// its colour instead of changing one GC, which the server would check again
// at every change. Past a few dozen colours the kept GCs start over.
GC x11_canvas::wire_gc(canvas_colour colour) {
  const unsigned rgb = static_cast<unsigned>(colour.value) & 0xFFFFFFu;
  for (const auto& [kept, gc] : wire_gcs_)
    if (kept == rgb) return gc;
  if (wire_gcs_.size() >= 64) {
    for (auto& [kept, gc] : wire_gcs_) XFreeGC(display_, gc);
    wire_gcs_.clear();
  }
  XGCValues v{};
  v.foreground = pixel(colour);
  v.line_width = 0;
  v.line_style = LineSolid;
  v.cap_style = CapButt;
  v.join_style = JoinMiter;
  v.fill_style = FillSolid;
  const GC gc = XCreateGC(display_, drawable_,
                          GCForeground | GCLineWidth | GCLineStyle | GCCapStyle | GCJoinStyle | GCFillStyle, &v);
  wire_gcs_.emplace_back(rgb, gc);
  return gc;
}

void x11_canvas::clear(int left, int top, int w, int h, canvas_colour colour) {
  if (w <= 0 || h <= 0) return;
  XSetForeground(display_, gc_, pixel(colour));
  XSetFillStyle(display_, gc_, FillSolid);
  XFillRectangle(display_, drawable_, gc_, left, top, static_cast<unsigned>(w), static_cast<unsigned>(h));
}

void x11_canvas::use_pen(const canvas_pen& pen) {
  XSetForeground(display_, gc_, pixel(pen.colour));
  XSetFillStyle(display_, gc_, FillSolid);
  const int width = std::max(pen.width, 1);
  if (pen.type <= 0 || pen.type > 3) {
    XSetLineAttributes(display_, gc_, static_cast<unsigned>(width == 1 ? 0 : width), LineSolid, CapButt, JoinMiter);
    return;
  }
  static const char dots[] = {1, 3};
  static const char dashes[] = {8, 4};
  static const char dot_dash[] = {8, 3, 1, 3};
  const char* pattern = pen.type == 1 ? dots : pen.type == 2 ? dashes : dot_dash;
  const int n = pen.type == 3 ? 4 : 2;
  std::array<char, 4> scaled{};
  for (int k = 0; k < n; ++k) scaled[static_cast<std::size_t>(k)] = static_cast<char>(std::min(pattern[k] * width, 100));
  XSetLineAttributes(display_, gc_, static_cast<unsigned>(width == 1 ? 0 : width), LineOnOffDash, CapButt, JoinMiter);
  XSetDashes(display_, gc_, 0, scaled.data(), n);
}

void x11_canvas::use_fill(const canvas_fill& fill) {
  XSetForeground(display_, gc_, pixel(fill.colour));
  const hatch_type hatch = hatch_of(fill);
  if (hatch.count == 0) {
    XSetFillStyle(display_, gc_, FillSolid);
    return;
  }
  const int key = fill.style * 100 + fill.density * 10 + fill.angle;
  auto it = stipples_.find(key);
  if (it == stipples_.end()) {
    constexpr int size = 48;  // a common multiple of every spacing
    std::vector<char> bits(size * size / 8, 0);
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        if (on_hatch(hatch, x, y)) bits[(y * size + x) / 8] |= static_cast<char>(1 << (x % 8));
    const Pixmap p = XCreateBitmapFromData(display_, drawable_, bits.data(), size, size);
    it = stipples_.emplace(key, p).first;
  }
  XSetStipple(display_, gc_, it->second);
  XSetFillStyle(display_, gc_, FillStippled);
}

void x11_canvas::polyline(std::span<const pixel_point> points, const canvas_pen& pen) {
  if (points.size() < 2) return;
  use_pen(pen);
  to_xpoints(points, xpoints_);
  XDrawLines(display_, drawable_, gc_, xpoints_.data(), static_cast<int>(xpoints_.size()), CoordModeOrigin);
}

// Thin solid lines are sent as their pieces, all in one request, which the
// server draws to the same pixels as line by line. A piece of no length is
// left out: within a line its pixel is the end of the next or last piece,
// and a line all in one pixel draws nothing. Dashes run on from one piece of
// a line to the next and wide lines are joined at the corners, so those are
// drawn line by line.
void x11_canvas::polylines(std::span<const pixel_point> points, std::span<const std::uint32_t> ends,
                           const canvas_pen& pen) {
  if ((pen.type > 0 && pen.type <= 3) || pen.width > 1) {
    canvas::polylines(points, ends, pen);
    return;
  }
  to_xpoints(points, xpoints_);
  // The piece from point k - 1 to point k is the two X points as they lie
  // in memory, so each is copied whole, and kept (the count moved on) only
  // when it has length: no branch to mispredict for each piece.
  segments_.resize(points.size());
  const XPoint* p = xpoints_.data();
  XSegment* out = segments_.data();
  std::size_t kept = 0, from = 0;
  for (const std::uint32_t end : ends) {
    for (std::size_t k = from + 1; k < end; ++k) {
      std::memcpy(out + kept, p + k - 1, sizeof(XSegment));
      kept += ((p[k].x ^ p[k - 1].x) | (p[k].y ^ p[k - 1].y)) != 0;
    }
    from = end;
  }
  segments_.resize(kept);
  if (segments_.empty()) return;
  XDrawSegments(display_, drawable_, wire_gc(pen.colour), segments_.data(), static_cast<int>(segments_.size()));
}

void x11_canvas::fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) {
  if (points.size() < 3) return;
  use_fill(fill);
  to_xpoints(points, xpoints_);
  std::vector<XPoint>& xp = xpoints_;
  // Filled contours are mostly upright rectangles, which the server fills
  // faster as rectangles; the pixels are the same.
  if (xp.size() == 4 && xp[0].y == xp[1].y && xp[1].x == xp[2].x && xp[2].y == xp[3].y && xp[3].x == xp[0].x) {
    const pixel_box p = pixels_of(points[0].x, points[0].y, points[2].x, points[2].y);
    if (p.w > 0 && p.h > 0) XFillRectangle(display_, drawable_, gc_, p.left, p.top, static_cast<unsigned>(p.w), static_cast<unsigned>(p.h));
    XSetFillStyle(display_, gc_, FillSolid);
    return;
  }
  XFillPolygon(display_, drawable_, gc_, xp.data(), static_cast<int>(xp.size()), Complex, CoordModeOrigin);
  XSetFillStyle(display_, gc_, FillSolid);
}

// Solid boxes on a pixmap are painted in memory first and reach the server
// as a few requests a colour; elsewhere (a window, whose size the server
// alone knows, or a hatched box) they are drawn one by one.
void x11_canvas::fill_boxes(std::span<const canvas_box> boxes) {
  const auto same_pattern = [](const canvas_fill& a, const canvas_fill& b) {
    return a.style == b.style && a.density == b.density && a.angle == b.angle;
  };
  bool solid = true;
  for (std::size_t k = 0; solid && k < boxes.size(); ++k)
    if (k == 0 || !same_pattern(boxes[k].fill, boxes[k - 1].fill)) solid = hatch_of(boxes[k].fill).count == 0;
  if (!owns_ || !solid) {
    canvas::fill_boxes(boxes);
    return;
  }
  const box_painting painting(boxes, width_, height_, [this](canvas_colour c) { return pixel(c); }, painting_);
  if (!painting.usable()) {
    canvas::fill_boxes(boxes);
    return;
  }
  painting.draw(display_, drawable_, gc_);
}

bool x11_canvas::box_shows_nothing(pixel_point a, pixel_point b) const {
  const pixel_box p = pixels_of(a.x, a.y, b.x, b.y);
  return p.w == 0 || p.h == 0;
}

void x11_canvas::circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) {
  const int r = static_cast<int>(std::lround(std::min(radius, 30000.0f)));
  const int x = to_short(centre.x) - r, y = to_short(centre.y) - r;
  const unsigned d = static_cast<unsigned>(2 * r);
  if (fill) {
    use_fill(*fill);
    XFillArc(display_, drawable_, gc_, x, y, d, d, 0, 360 * 64);
    XSetFillStyle(display_, gc_, FillSolid);
  }
  if (pen) {
    use_pen(*pen);
    XDrawArc(display_, drawable_, gc_, x, y, d, d, 0, 360 * 64);
  }
}

XftFont* x11_canvas::open_font(int pixel_size, int style, double angle) const {
  const int turn = static_cast<int>(std::lround(angle * 10));
  const auto key = std::make_tuple(pixel_size, style & 3, turn);
  const auto it = fonts_.find(key);
  if (it != fonts_.end()) return it->second;
  FcPattern* pattern = FcPatternCreate();
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>("DejaVu Sans"));
  FcPatternAddDouble(pattern, FC_PIXEL_SIZE, pixel_size);
  FcPatternAddInteger(pattern, FC_WEIGHT, (style & 2) ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern, FC_SLANT, (style & 1) ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  if (turn != 0) {
    const double a = angle * std::numbers::pi / 180;
    FcMatrix m;
    m.xx = std::cos(a);
    m.xy = -std::sin(a);
    m.yx = std::sin(a);
    m.yy = std::cos(a);
    FcPatternAddMatrix(pattern, FC_MATRIX, &m);
  }
  FcResult result;
  FcPattern* match = XftFontMatch(display_, DefaultScreen(display_), pattern, &result);
  FcPatternDestroy(pattern);
  XftFont* font = match ? XftFontOpenPattern(display_, match) : nullptr;
  if (!font && match) FcPatternDestroy(match);
  fonts_[key] = font;
  return font;
}

XftFont* x11_canvas::font_for(std::string_view s, const canvas_text_style& style, double angle) const {
  int size = std::clamp(static_cast<int>(std::lround(style.char_height)), 4, 400);
  // The glyphs must also fit the character width: shrink until the text's
  // advance is no longer than its count of character boxes.
  XftFont* upright = open_font(size, style.style, 0);
  if (upright && !s.empty() && style.char_width > 0) {
    XGlyphInfo extents{};
    XftTextExtents8(display_, upright, reinterpret_cast<const FcChar8*>(s.data()), static_cast<int>(s.size()), &extents);
    const float room = style.char_width * static_cast<float>(s.size());
    if (extents.xOff > room) size = std::max(4, static_cast<int>(static_cast<float>(size) * room / static_cast<float>(extents.xOff)));
  }
  return open_font(size, style.style, angle);
}

float x11_canvas::text_width(std::string_view s, const canvas_text_style& style) const {
  XftFont* font = font_for(s, style, 0);
  if (!font || s.empty()) return static_cast<float>(s.size()) * style.char_width;
  XGlyphInfo extents{};
  XftTextExtents8(display_, font, reinterpret_cast<const FcChar8*>(s.data()), static_cast<int>(s.size()), &extents);
  return static_cast<float>(extents.xOff);
}

// The anchor is at the left, centre or right of the text's advance, and at
// the middle of its character box; for a turned text both directions turn.
void x11_canvas::text(pixel_point anchor, std::string_view s, const canvas_text_style& style) {
  XftFont* upright = font_for(s, style, 0);
  XftFont* font = font_for(s, style, style.angle);
  if (!font || !upright || s.empty()) return;
  XGlyphInfo extents{};
  XftTextExtents8(display_, upright, reinterpret_cast<const FcChar8*>(s.data()), static_cast<int>(s.size()), &extents);
  const double along = style.alignment == 0 ? 0 : style.alignment == 2 ? extents.xOff : extents.xOff / 2.0;
  const double down = (upright->ascent - upright->descent) / 2.0;  // from the middle to the baseline
  const double a = style.angle * std::numbers::pi / 180;
  // In pixels y runs down: the text's direction is (cos a, -sin a), its "down" (sin a, cos a).
  const double x = anchor.x - along * std::cos(a) + down * std::sin(a);
  const double y = anchor.y + along * std::sin(a) + down * std::cos(a);
  XRenderColor rc;
  int r, g, b;
  const unsigned v = static_cast<unsigned>(style.colour.value);
  r = v & 0xFF;
  g = (v >> 8) & 0xFF;
  b = (v >> 16) & 0xFF;
  rc.red = static_cast<unsigned short>(r * 257);
  rc.green = static_cast<unsigned short>(g * 257);
  rc.blue = static_cast<unsigned short>(b * 257);
  rc.alpha = 0xFFFF;
  XftColor colour;
  const int screen = DefaultScreen(display_);
  if (!XftColorAllocValue(display_, DefaultVisual(display_, screen), DefaultColormap(display_, screen), &rc, &colour)) return;
  XftDrawString8(xft_, &colour, font, static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)),
                 reinterpret_cast<const FcChar8*>(s.data()), static_cast<int>(s.size()));
  XftColorFree(display_, DefaultVisual(display_, screen), DefaultColormap(display_, screen), &colour);
}

std::unique_ptr<canvas> x11_canvas::copy_area(int left, int top, int w, int h) const {
  auto copy = pixmap(display_, drawable_, w, h);
  XCopyArea(display_, drawable_, copy->drawable_, copy->gc_, left, top, static_cast<unsigned>(copy->width_),
            static_cast<unsigned>(copy->height_), 0, 0);
  return copy;
}

void x11_canvas::put_bitmap(const canvas& bitmap, int, int left, int top) {
  const auto* source = dynamic_cast<const x11_canvas*>(&bitmap);
  if (!source) return;
  XSetFillStyle(display_, gc_, FillSolid);
  XCopyArea(display_, source->drawable_, drawable_, gc_, 0, 0, static_cast<unsigned>(source->width_),
            static_cast<unsigned>(source->height_), left, top);
}
