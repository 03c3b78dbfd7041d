#include "toolkit/dialogs/winfodialog.h"

namespace {
std::int32_t exit_button = 0;
}

std::int32_t winfodialog(std::int32_t item) { return item == 4 ? exit_button : 0; }

void yyset_exit_button(std::int32_t button) { exit_button = button; }
