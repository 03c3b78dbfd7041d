#include "toolkit/x11/x11_icons.h"

#include <algorithm>

#include "toolkit/x11/x11_colours.h"

namespace {

// The colour value of a cell of the icon, or false when it is transparent.
bool cell_colour(const icon_type& icon, int row, int column, unsigned& rgb) {
  if (row >= static_cast<int>(icon.rows.size())) return false;
  const std::string& text = icon.rows[row];
  if (column >= static_cast<int>(text.size())) return false;
  for (const icon_colour_type& c : icon.colours) {
    if (c.key == text[column]) {
      rgb = c.rgb;
      return true;
    }
  }
  return false;
}

unsigned greyed(unsigned rgb) {
  const unsigned r = rgb & 0xff, g = (rgb >> 8) & 0xff, b = (rgb >> 16) & 0xff;
  const unsigned light = (r * 30 + g * 59 + b * 11) / 100;
  const unsigned grey = 128 + light / 2;  // pale: a disabled button recedes
  return grey + 256 * grey + 65536 * grey;
}

constexpr int largest_icon = 64;

Pixmap paint(Display* display, Drawable where, const icon_type& icon, unsigned long background,
             bool grey) {
  std::size_t longest = 1;
  for (const std::string& row : icon.rows) longest = std::max(longest, row.size());
  const int width = static_cast<int>(std::min<std::size_t>(longest, largest_icon));
  const int height =
      static_cast<int>(std::clamp<std::size_t>(icon.rows.size(), 1, largest_icon));
  const int screen = DefaultScreen(display);
  Pixmap pixmap = XCreatePixmap(display, where, static_cast<unsigned>(width),
                                static_cast<unsigned>(height),
                                static_cast<unsigned>(DefaultDepth(display, screen)));
  GC gc = XCreateGC(display, pixmap, 0, nullptr);
  XSetForeground(display, gc, background);
  XFillRectangle(display, pixmap, gc, 0, 0, static_cast<unsigned>(width),
                 static_cast<unsigned>(height));
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width; ++column) {
      unsigned rgb = 0;
      if (!cell_colour(icon, row, column, rgb)) continue;
      XSetForeground(display, gc, x11_pixel(display, grey ? greyed(rgb) : rgb));
      XDrawPoint(display, pixmap, gc, column, row);
    }
  }
  XFreeGC(display, gc);
  return pixmap;
}

}  // namespace

Pixmap x11_icon_pixmap(Display* display, Drawable where, const icon_type& icon,
                       unsigned long background) {
  return paint(display, where, icon, background, false);
}

Pixmap x11_icon_pixmap_greyed(Display* display, Drawable where, const icon_type& icon,
                              unsigned long background) {
  return paint(display, where, icon, background, true);
}
