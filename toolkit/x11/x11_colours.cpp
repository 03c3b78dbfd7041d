#include "toolkit/x11/x11_colours.h"

#include <map>

unsigned long x11_pixel(Display* display, unsigned rgb) {
  static std::map<unsigned, unsigned long> allocated;
  const auto it = allocated.find(rgb);
  if (it != allocated.end()) return it->second;

  XColor colour{};
  // X colour components run from 0 to 65535: 257 * c maps 255 onto 65535.
  colour.red = static_cast<unsigned short>(257 * (rgb & 0xff));
  colour.green = static_cast<unsigned short>(257 * ((rgb >> 8) & 0xff));
  colour.blue = static_cast<unsigned short>(257 * ((rgb >> 16) & 0xff));
  colour.flags = DoRed | DoGreen | DoBlue;
  const int screen = DefaultScreen(display);
  unsigned long pixel = BlackPixel(display, screen);
  if (XAllocColor(display, DefaultColormap(display, screen), &colour)) pixel = colour.pixel;
  allocated[rgb] = pixel;
  return pixel;
}
