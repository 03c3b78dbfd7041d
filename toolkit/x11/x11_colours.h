// Pixel values of colour values (red + 256 * green + 65536 * blue) on the
// display's default colormap.
#pragma once

#include <X11/Xlib.h>

// The pixel closest to the colour; allocated once per colour and remembered.
unsigned long x11_pixel(Display* display, unsigned rgb);
