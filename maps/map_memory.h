// Sizing of the map arrays rho and rhonew from the grid of the file.
#pragma once

// Sizes rho to ngrid and rhonew to ngrid + 1 on each axis. An array that
// already has the right extents is kept with its contents; nothing is cleared.
// Sets kerror when an array cannot be allocated; no message is shown, the
// caller closes the file.
void memory_maps();
