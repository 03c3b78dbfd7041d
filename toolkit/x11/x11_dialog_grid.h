// A grid field on the screen: a scrolled table of text cells under the
// column headings, with the row labels on the left.
#pragma once

#include <Xm/Xm.h>

#include "toolkit/core/resources.h"
#include "toolkit/dialogs/dialog_model.h"

Widget x11_grid_create(int dialog, Widget board, const field_type& field);
// Rebuilds the cells from the grid's state.
void x11_grid_show(int dialog, const field_state_type& grid, Widget scrolled);
