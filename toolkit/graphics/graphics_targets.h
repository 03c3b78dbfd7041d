// Where drawing goes: windows and dialog fields that a backend attaches,
// bitmaps made from them, and a hardcopy that takes over while it is open.
#pragma once

#include <array>
#include <optional>

#include "toolkit/graphics/canvas.h"

// Kinds of target, as igrselect numbers them.
enum igr_target_kind { igr_window = 1, igr_bitmap = 2, igr_field = 3, igr_metafile = 4 };

// A backend makes a window (handle 0 is the root window) or a dialog field
// drawable by attaching the canvas that stands for it; the canvas's size is
// the target's size in pixels. Attaching again (after a resize, say) replaces
// it; a null canvas detaches. The canvas stays owned by the backend.
void attach_target(int kind, int handle, canvas* surface);

// While a hardcopy is open every primitive goes to its canvas instead of the
// selected target. A null canvas ends the routing.
void attach_hardcopy(canvas* surface);

// The canvas primitives go to now, or null when nothing is attached there.
canvas* current_canvas();
// The canvas of a target, or null.
canvas* target_canvas(int kind, int handle);

// Copies the present target's size into nxgraf, nygraf.
void refresh_target_size();

// Selects where drawing goes: 1 window, 2 bitmap, 3 dialog field, 4 metafile.
// A missing handle takes the root window or bitmap 1. An unknown target kind
// is error 1003 and changes nothing.
void igrselect(int target, std::optional<int> handle = std::nullopt);
// Makes a window the current one for drawing.
void windowselect(int handle);
// Clears the client area of the current window with the background colour 0.
void windowclear();

// A pixel rectangle: left, top, width, height.
using pixel_area = std::array<int, 4>;

// Creates a bitmap of what window `window` (0 the root) shows now, or of a
// rectangle of it, and writes its handle; 0 and error 1003 when the window
// has no canvas.
void wbitmapget(int& handle, int window, std::optional<pixel_area> area = std::nullopt);
// Copies a bitmap to the selected target with its top left corner at pixel (x, y).
void wbitmapput(int handle, int x, int y);
// Frees a bitmap; drawing into it falls back to the root window.
void wbitmapdestroy(int handle);
