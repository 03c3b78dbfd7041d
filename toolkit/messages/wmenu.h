// Menu bar, toolbars and the states of their items. An item is known while
// the menu or a toolbar that holds it is shown; items of the same id in a
// menu and a toolbar share one state.
#pragma once

#include <cstdint>

// Loads menu id from the resource catalogue as the menu bar: every item of
// it enabled and unchecked. Id 0 takes the menu bar down. An id the
// catalogue does not hold is error 1003; a slot of 51 or more error 1015.
void wmenu(std::int32_t id, std::int32_t slot = 1);

// Shows toolbar id in a slot (1 to 4) with its buttons enabled and unchecked;
// id 0 takes down what the slot holds.
void wmenutoolbar(std::int32_t id, std::int32_t unused, std::int32_t slot);

// Option 1 is the enabled state, option 2 the check mark; state 0 or 1. An
// item already in that state is left alone. Another option or state is
// error 1126, an item not shown error 1003; neither changes anything.
void wmenusetstate(std::int32_t item, std::int32_t option, std::int32_t state);

// The state as 0 or 1 (0 for an item not shown, with error 1003).
std::int32_t wmenugetstate(std::int32_t item, std::int32_t option);

// Read-back for a face and for tests: the menu bar's id (0 none) and the
// toolbar shown in a slot (0 none).
std::int32_t shown_menu();
std::int32_t shown_toolbar(std::int32_t slot);

// No menu bar, no toolbars, no items. Called by winitialise.
void yyreset_menus();
