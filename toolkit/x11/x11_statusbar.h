// The status bar at the foot of the root window: a row of text parts whose
// widths follow windowstatusbarparts.
#pragma once

#include <Xm/Xm.h>

#include <string>
#include <vector>

// Widths of the parts in pixels for a bar `total` pixels wide. `widths` are in
// ten-thousandths of the bar unless `in_pixels`; one width of -1 takes what is
// left (never less than 0). Parts that would run past the bar's end are cut to
// fit, so the bar never grows beyond the window.
std::vector<int> status_part_pixels(const std::vector<int>& widths, bool in_pixels, int total);

// Creates the bar as a child of `parent` (a form), with one part.
Widget x11_statusbar_create(Widget parent);

// Sets the parts anew; the texts of parts that remain are kept.
void x11_statusbar_parts(const std::vector<int>& widths, bool in_pixels);

// Writes the text into part `part` (1-based); a part that does not exist is ignored.
void x11_statusbar_text(int part, const std::string& text);

// The text a part shows; "" for a part that does not exist.
std::string x11_statusbar_read(int part);

// Lays the parts out again for the bar's present width (after a resize).
void x11_statusbar_layout();
