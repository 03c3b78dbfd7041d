// Child windows of the X11 face: top-level shells beside the root window,
// each with a client area, closed by the program on the window manager's
// close request.
#pragma once

#include <Xm/Xm.h>

#include <cstdint>
#include <string>

void x11_child_open(std::int32_t handle, const std::string& caption);
void x11_child_close(std::int32_t handle);
void x11_child_close_all();

// The client area of a child, or nullptr.
Widget x11_child_client_area(std::int32_t handle);
