// Modal boxes: the X event loop runs until the box has its answer. Events for
// the client areas that arrive meanwhile stay queued as messages.
#pragma once

#include <Xm/Xm.h>

// The window a box belongs to: the root window while it is open.
Widget x11_modal_parent();

// Dispatches events until `*answered` becomes non-zero.
void x11_wait_for_answer(const int* answered);

// Shows the box, lets the window manager's close button answer 2, and waits
// until `*answer` is set by the box's own callbacks or by that button.
void x11_wait_modal(Widget box, int* answer);

// For a box whose OK and Cancel buttons are the whole answer: 1 for OK, 2 for
// Cancel or the close button.
int x11_run_modal(Widget box);
