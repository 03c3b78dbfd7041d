// The symbols the message box shows beside its text.
#pragma once

#include "toolkit/core/resources.h"

// The picture of a box icon (1 stop, 2 question, 3 exclamation, 4
// information), or nullptr for any other number.
const icon_type* box_symbol(int icon);
