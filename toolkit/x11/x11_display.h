// The connection to the X display and the Xt application context, opened
// once when the X11 face is chosen and closed with the root window.
#pragma once

#include <X11/Intrinsic.h>

#include <string>

// Opens the display named by DISPLAY. False, with the reason in `why`, when
// there is none to open.
bool x11_open_display(std::string& why);

// Closes the connection; the widgets made on it must be gone already.
void x11_close_display();

XtAppContext x11_app();
Display* x11_display();

// The invisible application shell that every top-level window of the program
// hangs from.
Widget x11_application_shell();

// The size of the monitor the window opens on, through Xinerama when the
// display has several monitors, else the screen's.
void x11_monitor_size(int& width, int& height);
