// The modal message box of the X11 face.
#pragma once

#include <string>

// Shows the text under the title with the icon (1 stop, 2 question, 3
// exclamation, 4 information) and the buttons (0 OK, 3 Yes and No), the
// default one (1 or 2) focused. Returns 1 for OK or Yes, 2 for No or when the
// window manager closes the box.
int x11_message_box(int buttons, int icon, int default_button, const std::string& text,
                    const std::string& title);
