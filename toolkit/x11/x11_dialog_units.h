// Dialog units to pixels. The catalogue places fields in dialog units: a
// quarter of the dialog font's average character width across, an eighth of
// its height down. Measured once on the font the widgets use.
#pragma once

#include <Xm/Xm.h>

#include <string>

// Pixels of a horizontal and a vertical length in dialog units.
int x11_dialog_x(int units);
int x11_dialog_y(int units);

// The scale from a font's average letter width and line height in pixels
// (pure, for tests): pixels per dialog unit across and down.
struct dialog_scale_type {
  double across = 1.5;
  double down = 1.625;
};
dialog_scale_type dialog_scale_from_font(double average_width, double height);

// A render table of one Xft face at a size in points, made once per face and size.
XmRenderTable x11_render_table(const std::string& face, int points);

// The face of the dialogs' texts. The catalogue's labels were fitted to a
// narrow face: the condensed face one point below the widget font keeps them
// inside their boxes, while the units follow the widget font.
XmRenderTable x11_dialog_render_table();
