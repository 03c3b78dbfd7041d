#include "toolkit/x11/x11_dialog_units.h"

#include <X11/Xft/Xft.h>

#include <cmath>
#include <map>
#include <utility>
#include <optional>

#include "toolkit/x11/x11_display.h"

namespace {

// The widgets' font (see the fallback resources of x11_display.cpp).
constexpr const char* dialog_font = "DejaVu Sans:size=10";
constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

dialog_scale_type measured() {
  Display* display = x11_display();
  if (display == nullptr) return {};
  XftFont* font = XftFontOpenName(display, DefaultScreen(display), dialog_font);
  if (font == nullptr) return {};
  XGlyphInfo extents;
  XftTextExtentsUtf8(display, font, reinterpret_cast<const FcChar8*>(letters), 52, &extents);
  const dialog_scale_type scale = dialog_scale_from_font(extents.xOff / 52.0, font->ascent + font->descent);
  XftFontClose(display, font);
  return scale;
}

const dialog_scale_type& scale() {
  static std::optional<dialog_scale_type> s;
  if (!s) s = measured();
  return *s;
}

}  // namespace

dialog_scale_type dialog_scale_from_font(double average_width, double height) {
  if (!(average_width > 0) || !(height > 0)) return {};
  return {average_width / 4.0, height / 8.0};
}

XmRenderTable x11_render_table(const std::string& face, int points) {
  static std::map<std::pair<std::string, int>, XmRenderTable> tables;
  const auto key = std::make_pair(face, points);
  if (const auto it = tables.find(key); it != tables.end()) return it->second;
  Arg args[] = {
      {const_cast<char*>(XmNfontType), static_cast<XtArgVal>(XmFONT_IS_XFT)},
      {const_cast<char*>(XmNfontName), reinterpret_cast<XtArgVal>(face.c_str())},
      {const_cast<char*>(XmNfontSize), static_cast<XtArgVal>(points)},
  };
  XmRendition rendition = XmRenditionCreate(x11_application_shell(), const_cast<char*>("face"), args, XtNumber(args));
  XmRenderTable table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_REPLACE);
  XmRenditionFree(rendition);
  tables[key] = table;
  return table;
}

XmRenderTable x11_dialog_render_table() { return x11_render_table("DejaVu Sans Condensed", 9); }

int x11_dialog_x(int units) { return static_cast<int>(std::lround(units * scale().across)); }
int x11_dialog_y(int units) { return static_cast<int>(std::lround(units * scale().down)); }
