// Start-up: the reset of the shared state, the root window with its menu,
// toolbar and status bar, the default colours, and the welcome text.
#pragma once

#include <cstdint>
#include <string>

#include "plot/graphics_unit.h"

// Resets file names, flags and control data to their start values.
// Opening a file calls it too: unsaved edits and a settings change are
// forgotten without a question.
void init_var_prog();

// Resets the plot state, then the drawing area and units (init_graphics_unit).
void init_var_graf();

// Opens the root window with menu 30001, toolbar 30101, three status parts
// and the date, disables what needs a file, sets the contour colours of
// set 1, loads the settings, then init_var_graf.
void init_graf();

// Clears the window and draws the program's name, version and purpose.
void write_header();

// The date of status part 3: "Date: " and day, month, year in columns of
// 2, 2 and 4, blank (not zero) filled: "Date:  5- 3-2007".
std::string status_date(std::int32_t year, std::int32_t month, std::int32_t day);
