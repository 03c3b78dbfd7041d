// The state line of the plot window: which section or sum of layers or
// which oriented plane is shown, in part 1 of the status bar.
#pragma once

#include <string>

void show_message_bar();

// The line show_message_bar writes, for tests and for the probe's fallback.
std::string message_bar_line();
