// Child windows of the root window (the program shows text files in them) and
// what the program asks of the windows besides: the cursor shape and the size
// of the client area.
#pragma once

#include <cstdint>
#include <string>

// Opens a child window with the caption and writes its handle (1 and up).
// Options, position and size are taken as given by the caller; the face
// places the window itself. Ignored, with error 1003, when the root window is
// not open.
void windowopenchild2(std::int32_t& handle, const std::string& caption, std::int32_t options = 7);

// Closes the child; a handle that is not open is error 1003 and changes nothing.
void windowclosechild(std::int32_t handle);

// Whether a child of that handle is open.
bool child_is_open(std::int32_t handle);

// The open child opened last, 0 when none is open.
std::int32_t yynewest_child();

// 0 normal arrow, 1 busy, 3 the probe cursor; other shapes of 0 and above show
// the arrow. A negative shape is error 1015 and changes nothing.
void wcursorshape(std::int32_t shape);
std::int32_t cursor_shape();

// 1: width, 2: height of the root window's client area in pixels; 0 for any
// other item.
std::int32_t winfowindow(std::int32_t item);

// Closes every child and sets the arrow back. Called when the root window closes.
void yyreset_children();
