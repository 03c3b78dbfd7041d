// The drawing area reset that the shell and the plot window share.
#pragma once

// Drawing area and units 0 to 1 over the whole window, cleared.
void init_graphics_unit();
