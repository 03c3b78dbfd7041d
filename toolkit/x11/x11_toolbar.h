// Toolbars in slots under the menu bar: a row of 16 x 16 icon buttons per
// catalogue toolbar, each with its status prompt as tool tip. A button shows
// the checked state of its item sunken in.
#pragma once

#include <Xm/Xm.h>

#include "toolkit/x11/x11_menubar.h"

constexpr int x11_toolbar_slots = 4;

// Creates the empty slots as children of `parent` (a row column stacked
// vertically) once, with the window.
void x11_toolbar_slots_create(Widget parent);

// Shows the toolbar in the slot (1 to 4), replacing what was there; id 0 or an
// unknown id leaves the slot empty.
void x11_toolbar_show(int slot, int id, x11_item_chosen chosen);

// The buttons that show an item, in any slot.
void x11_toolbar_set_enabled(int id, bool enabled);
void x11_toolbar_set_checked(int id, bool checked);

// The widget of an item's button in any slot, or nullptr.
Widget x11_toolbar_button(int id);
