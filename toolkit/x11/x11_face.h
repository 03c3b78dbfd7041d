// The X11 face of the toolkit: the real screen through Motif, Xt, Xlib and
// Xft. Chosen when the program starts on a display.
#pragma once

#include <string>

// Opens the display and makes this face the toolkit's backend. False, with
// the reason in `why`, when no display can be opened; the toolkit is then
// left as it was.
bool x11_install(std::string& why);
