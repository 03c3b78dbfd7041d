// Dialogs from the resource catalogue: loading, showing, and the routines
// that put values into the fields of the current dialog and get them back.
// Errors (read with winfoerror(1)): 1005 no current dialog, 1004 a field the
// dialog lacks, 1006 a routine on a field of another kind, 1010 an empty
// number field, 1014 a modal show of a dialog that must stay modeless.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Creates the dialog from the catalogue and makes it current; an unknown id
// is error 1003 and leaves no dialog current.
void wdialogload(std::int32_t dialog);
// Makes a loaded dialog (or a page of one) current.
void wdialogselect(std::int32_t dialog);
// Shows the current dialog at x, y (window units, -1 the default place) with
// the focus in `field` (0 the first). Mode 1 waits for a push button, hides
// the dialog and leaves the button in winfodialog(4); 2 shows it and returns;
// 3 shows it for the caller's own message loop. A dialog without a push
// button cannot be modal: mode 1 or 3 is error 1014 and it is shown as in 2.
void wdialogshow(std::int32_t x, std::int32_t y, std::int32_t field = 0, std::int32_t mode = 2);
void wdialoghide();
void wdialogunload();

void wdialogputstring(std::int32_t field, const std::string& text);
void wdialoggetstring(std::int32_t field, std::string& text);
void wdialogputinteger(std::int32_t field, std::int32_t value);
void wdialoggetinteger(std::int32_t field, std::int32_t& value);
// Without a format the field's own, from the catalogue.
void wdialogputreal(std::int32_t field, float value, const std::string& format = "");
void wdialoggetreal(std::int32_t field, float& value);
void wdialogputcheckbox(std::int32_t field, std::int32_t checked);
void wdialoggetcheckbox(std::int32_t field, std::int32_t& checked);
void wdialogputradiobutton(std::int32_t field);
// The 1-based place in its group of the button that is set.
void wdialoggetradiobutton(std::int32_t first_field, std::int32_t& number);
// Fills an option menu with the first `count` strings and selects one
// (1-based, 0 none).
void wdialogputmenu1(std::int32_t field, const std::vector<std::string>& list, std::int32_t count,
                     std::int32_t selection);
void wdialogputoption1(std::int32_t field, std::int32_t selection);
void wdialoggetmenu1(std::int32_t field, std::int32_t& selection);
void wdialoggetmenu1(std::int32_t field, std::int32_t& selection, std::string& text);
// Blank for a text, empty for a number, no rows for a menu, blank cells for a grid.
void wdialogclearfield(std::int32_t field);
// 0 disabled, 1 enabled, 2 read only.
void wdialogfieldstate(std::int32_t field, std::int32_t state);
void wdialograngeinteger(std::int32_t field, std::int32_t minimum, std::int32_t maximum);
void wdialograngereal(std::int32_t field, float minimum, float maximum);
// Shows the page `dialog` of a tab holder; asks which page shows.
void wdialogsettab(std::int32_t field, std::int32_t dialog);
void wdialoggettab(std::int32_t field, std::int32_t& dialog);

// Item 6: the field's state (not 0 when it takes input). Item 1: its kind.
std::int32_t winfodialogfield(std::int32_t field, std::int32_t item);
