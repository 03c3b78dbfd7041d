// The root window's menu bar, built from a catalogue menu: popups become
// cascade buttons with pulldown panes, entries push buttons, separators
// separator gadgets. Mnemonics come from the catalogue; there are no
// accelerators.
#pragma once

#include <Xm/Xm.h>

#include <map>

#include "toolkit/core/resources.h"

// Called with the item id when the user chooses an entry.
using x11_item_chosen = void (*)(int id);

// Fills a row column, a menu bar or a popup menu, with the rows of `menu`;
// the widget of each item goes into `items` by its id. A choice calls `chosen`
// with the item's id.
void x11_menu_fill(Widget row_column, const menu_type& menu, x11_item_chosen chosen,
                   std::map<int, Widget>& items);

// Replaces the contents of `menubar` with the rows of `menu`; every item starts
// enabled. Rows whose level jumps by more than one are attached to the nearest
// open pane, so a damaged table still gives a usable bar.
void x11_menubar_build(Widget menubar, const menu_type& menu, x11_item_chosen chosen);

// Removes every item from the bar.
void x11_menubar_clear(Widget menubar);

// The widget that shows the item in the bar, or nullptr.
Widget x11_menubar_item(int id);
