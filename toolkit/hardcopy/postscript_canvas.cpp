#include "toolkit/hardcopy/postscript_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "toolkit/hardcopy/hardcopy_stream.h"
#include "toolkit/hardcopy/rectangle_corners.h"

namespace {

constexpr const char* prolog[] = {
    "/l {lineto} def/m {moveto} def/g {setrgbcolor} def/w {setlinewidth} def",
    "/d {setdash} def/cf {closepath fill} def/s {stroke} def/ff {findfont} def",
    "/ms {makefont setfont} def/ro {rotate} def/tr {translate} def/cs {closepath stroke} def",
    "/lsh {show} def/rsh {dup stringwidth pop 0 exch sub 0 rmoveto show} def",
    "/csh {dup stringwidth pop 2 div 0 exch sub 0 rmoveto show} def",
    "/el {/Arot exch def/Aend exch def/Astart exch def/Ry exch def/Rx exch def/Y exch def/X exch def"
    "/savematrix matrix currentmatrix def",
    "X Y translate Arot rotate Rx Ry scale 0 0 1 Astart Aend arc savematrix setmatrix} def",
};

// Times-Roman, not Times: the name every PostScript reader has.
constexpr const char* families[] = {"Helvetica", "Times-Roman", "Courier", "Symbol"};

// Dash patterns of line types 1 dots, 2 dashes, 3 dot-dash.
constexpr const char* dashes[] = {"[] 0 d", "[1 3] 0 d", "[6 3] 0 d", "[6 3 1 3] 0 d"};

std::string number(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.2f", v);
  return buf;
}

// The family of the text style, Helvetica for any number it does not know.
const char* family_of(int family) { return family >= 1 && family <= 4 ? families[family - 1] : families[0]; }

// Each text family gets ISO Latin-1 under the name "<family>-Latin1"; Symbol
// keeps its own encoding and its name.
void write_font_encodings() {
  for (const std::string family : families) {
    const bool symbol = family == "Symbol";
    yygrhcwriteline("/" + family + " findfont");
    yygrhcwriteline("dup length dict begin");
    yygrhcwriteline("{1 index /FID ne {def} {pop pop} ifelse} forall");
    if (!symbol) yygrhcwriteline("/Encoding ISOLatin1Encoding def");
    yygrhcwriteline("currentdict end /" + (symbol ? family : family + "-Latin1") + " exch definefont pop");
  }
}

}  // namespace

std::string postscript_string(std::string_view s) {
  std::string out = "(";
  for (const char c : s) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '(' || c == ')' || c == '\\') {
      out += '\\';
      out += c;
    } else if (byte < 32 || byte > 126) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\%03o", byte);
      out += buf;
    } else {
      out += c;
    }
  }
  return out + ")";
}

postscript_canvas::postscript_canvas(const postscript_layout& layout)
    : hardcopy_canvas(layout.width, layout.height), layout_(layout) {
  const int left = layout.margin, bottom = layout.margin;
  yygrhcwriteline(layout.page_document ? "%!PS-Adobe-3.0" : "%!PS-Adobe-3.0 EPSF-3.0");
  yygrhcwriteline("%%LanguageLevel: 3");
  yygrhcwriteline("%%Creator: Drevanta PostScript driver");
  yygrhcwriteline("%%Title: " + layout.title);
  yygrhcwriteline("%%Orientation: Portrait");
  yygrhcwriteline("%%DocumentMedia: A4 " + std::to_string(layout.page_width) + " " +
                  std::to_string(layout.page_height) + " 0 () ()");
  yygrhcwriteline("%%BoundingBox: " + std::to_string(left) + " " + std::to_string(bottom) + " " +
                  std::to_string(left + layout.width) + " " + std::to_string(bottom + layout.height));
  yygrhcwriteline("%%EndComments");
  yygrhcwriteline("%%BeginProlog");
  for (const char* line : prolog) yygrhcwriteline(line);
  yygrhcwriteline("%%EndProlog");
  yygrhcwriteline("%%BeginSetup");
  if (layout.page_document) yygrhcwriteline("/#copies 1 def");
  write_font_encodings();
  yygrhcwriteline("%%EndSetup");
  yygrhcwriteline("%%Page: 1 1");
  yygrhcwriteline("%%BeginPageSetup");
  yygrhcwriteline("%%EndPageSetup");
  // No initgraphics or initclip: a picture placed in a document must keep
  // the place and the clip the document gives it.
  yygrhcwriteline("10 setmiterlimit newpath");
  yygrhcwriteline("1 setlinejoin 1 setlinecap");
  if (left != 0 || bottom != 0) yygrhcwriteline(std::to_string(left) + " " + std::to_string(bottom) + " tr");
}

// Canvas pixels run down from the top; PostScript points run up from the bottom.
std::string postscript_canvas::point(pixel_point p) const {
  return number(p.x) + " " + number(static_cast<float>(layout_.height) - p.y);
}

void postscript_canvas::set_colour(canvas_colour colour) {
  const std::int32_t v = colour.value;
  yygrhcwriteline(number((v & 255) / 255.0) + " " + number(((v >> 8) & 255) / 255.0) + " " +
                  number(((v >> 16) & 255) / 255.0) + " g");
}

void postscript_canvas::set_pen(const canvas_pen& pen) {
  set_colour(pen.colour);
  yygrhcwriteline(std::to_string(pen.width < 1 ? 1 : pen.width) + " w " +
                  dashes[pen.type >= 0 && pen.type <= 3 ? pen.type : 0]);
}

void postscript_canvas::path(std::span<const pixel_point> points) {
  yygrhcwriteline("newpath " + point(points[0]) + " m");
  for (std::size_t i = 1; i < points.size(); ++i) yygrhcwriteline(point(points[i]) + " l");
}

void postscript_canvas::clear(int left, int top, int w, int h, canvas_colour colour) {
  // The paper is the background unless the caller asked for it to be printed.
  if (!layout_.print_background) return;
  const auto corners = rectangle_corners(left, top, w, h);
  set_colour(colour);
  path(corners);
  yygrhcwriteline("cf");
}

void postscript_canvas::polyline(std::span<const pixel_point> points, const canvas_pen& pen) {
  if (points.size() < 2) return;
  set_pen(pen);
  path(points);
  yygrhcwriteline("s");
}

void postscript_canvas::fill_polygon(std::span<const pixel_point> points, const canvas_fill& fill) {
  if (points.size() < 3) return;
  set_colour(fill.colour);
  path(points);
  const hatch_type hatch = hatch_of(fill);
  if (hatch.count == 0) {
    yygrhcwriteline("closepath eofill");
    return;
  }
  // Hatched: the polygon clips thin lines drawn across its box, as the
  // screen's stipple shows it.
  yygrhcwriteline("gsave closepath eoclip newpath 0.5 w [] 0 d");
  hatch_lines(points, hatch);
  yygrhcwriteline("s grestore");
}

// The lines of a hatch over the part of the picture the polygon covers, in
// canvas pixels (y downwards) like the screen's pattern.
void postscript_canvas::hatch_lines(std::span<const pixel_point> points, const hatch_type& hatch) {
  float x0 = points[0].x, x1 = x0, y0 = points[0].y, y1 = y0;
  for (const pixel_point& p : points) {
    x0 = std::min(x0, p.x), x1 = std::max(x1, p.x);
    y0 = std::min(y0, p.y), y1 = std::max(y1, p.y);
  }
  // Nothing outside the picture is seen: a far-flung point adds no lines.
  x0 = std::max(x0, 0.0f), y0 = std::max(y0, 0.0f);
  x1 = std::min(x1, static_cast<float>(width())), y1 = std::min(y1, static_cast<float>(height()));
  if (x0 > x1 || y0 > y1) return;
  const float s = static_cast<float>(hatch.spacing);
  auto line = [this](float ax, float ay, float bx, float by) {
    yygrhcwriteline(point({ax, ay}) + " m " + point({bx, by}) + " l");
  };
  for (int k = 0; k < hatch.count; ++k) {
    const int direction = hatch.directions[static_cast<std::size_t>(k)];
    if (direction == 1)
      for (float y = std::ceil(y0 / s) * s; y <= y1; y += s) line(x0, y, x1, y);
    else if (direction == 3)
      for (float x = std::ceil(x0 / s) * s; x <= x1; x += s) line(x, y0, x, y1);
    else if (direction == 2)  // x + y constant
      for (float c = std::ceil((x0 + y0) / s) * s; c <= x1 + y1; c += s) line(c - y1, y1, c - y0, y0);
    else  // x - y constant
      for (float c = std::ceil((x0 - y1) / s) * s; c <= x1 - y0; c += s) line(c + y0, y0, c + y1, y1);
  }
}

void postscript_canvas::circle(pixel_point centre, float radius, const canvas_pen* pen, const canvas_fill* fill) {
  const std::string ellipse = "newpath " + point(centre) + " " + number(radius) + " " + number(radius) + " 0 360 0 el";
  if (fill) {
    set_colour(fill->colour);
    yygrhcwriteline(ellipse + " cf");
  }
  if (pen) {
    set_pen(*pen);
    yygrhcwriteline(ellipse + " cs");
  }
}

void postscript_canvas::text(pixel_point anchor, std::string_view s, const canvas_text_style& style) {
  static constexpr const char* shows[] = {"lsh", "csh", "rsh"};
  const std::string family = family_of(style.family);
  const std::string font = family == "Symbol" ? family : family + "-Latin1";
  const std::string size = number(style.char_height);
  set_colour(style.colour);
  // The anchor is the middle of the text's height, as on the screen.
  yygrhcwriteline("gsave " + point(anchor) + " tr " + number(style.angle) + " ro /" + font + " ff [" + size +
                  " 0 0 " + size + " 0 0] ms 0 " + number(-0.35 * style.char_height) + " m");
  yygrhcwriteline(postscript_string(s) + " " + shows[style.alignment >= 0 && style.alignment <= 2 ? style.alignment : 0] +
                  " grestore");
}

void postscript_canvas::finish() {
  yygrhcwriteline("gsave showpage grestore");
  yygrhcwriteline("%%EOF");
}
