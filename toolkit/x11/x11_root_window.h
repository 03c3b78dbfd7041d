// The root window on the screen: a top-level shell holding, from the top, the
// menu bar, the toolbar slots, the client drawing area and the status bar.
#pragma once

#include <Xm/Xm.h>

#include <string>

#include "toolkit/messages/window.h"

// Creates the window as `how` asks (options bit 32 reserves the status bar; a
// width or height of 0 or below is 80% of the monitor's; a negative position
// lets the window manager place it), shows it and waits until it is mapped.
void x11_root_open(const window_options_type& how);

void x11_root_close();
bool x11_root_is_open();

void x11_root_caption(const std::string& caption);

// Rebuilds the menu bar and toolbars when the shown ones changed and gives
// every item the state the toolkit holds for it.
void x11_root_sync_menus();

// The pointer shape over the root window and its children: 0 arrow, 1 busy
// watch, 3 the probe cursor; other shapes give the arrow.
void x11_root_cursor(int shape);

Widget x11_root_shell();
Widget x11_root_client_area();
// The client area's size in pixels.
void x11_root_client_size(int& width, int& height);
