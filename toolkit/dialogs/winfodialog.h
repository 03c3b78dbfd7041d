// What the last common dialog (message box, file selector, modal dialog)
// ended with.
#pragma once

#include <cstdint>

// Item 4: the exit button of the last common dialog, 1 for OK or Yes, 2 for
// Cancel or No. Other items: 0.
std::int32_t winfodialog(std::int32_t item);

// Recorded by each common dialog as it closes.
void yyset_exit_button(std::int32_t button);
