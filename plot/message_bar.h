// The state line of the plot window: which section or sum of layers or
// which oriented plane is shown, in part 1 of the status bar.
#pragma once

#include <string>

#include "maps/section_families.h"

void show_message_bar();

// The line show_message_bar writes, for tests and for the probe's fallback.
std::string message_bar_line();

// The fractional height of the plane shown now along the family's w axis:
// (seccion - 1) * inc + low limit of that axis.
float present_section_height(const section_family_type& f);
