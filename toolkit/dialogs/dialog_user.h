// What the user does in a dialog on the screen, as a face reports it. Each
// action checks that the dialog is visible and the field takes input, changes
// the field as the user asked, and queues the messages the program reads:
// msg_field_changed (type 10) with the field left and the field entered when
// the focus moves, with the field twice when a choice or a typed value
// changed; and
// msg_push_button for a button. An action that is refused (a hidden dialog, a
// disabled or read-only field, a number out of the field's range or not a
// number at all) changes nothing and returns false; the face then shows the
// field's former value again.
#pragma once

#include <cstdint>
#include <string>

// The focus goes to `field`.
bool yyuser_focus(int dialog, int field);
// Text typed into a string, integer or real field; an empty number field is allowed.
bool yyuser_text(int dialog, int field, const std::string& text);
bool yyuser_check(int dialog, int field, int checked);
bool yyuser_radio(int dialog, int field);
// A row of an option menu, 1-based.
bool yyuser_option(int dialog, int field, int selection);
// The page of a tab holder, by its dialog id.
bool yyuser_tab(int dialog, int field, int page);
// Text typed into a grid cell (column and row from 1).
bool yyuser_cell(int dialog, int field, int column, int row, const std::string& text);
bool yyuser_press(int dialog, int button);
// A mouse button pressed on a field (a colour box): msg_mouse_down from a dialog.
bool yyuser_mouse_on_field(int dialog, int field, int button);
