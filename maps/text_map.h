// The text map (.map): a VTL structure (cell, group, atoms) followed by the
// title on line 2, a "GRID" line with the grid, the keyword line
// "DENSITY_MAP" and the density values, x fastest, in free form. map2bin
// turns it into a binary map that then loads in the normal way.
#pragma once

// Reads filasc into celda, grp_espacial, atomos, titulo, ngrid and the
// statistics, and writes filbin whole in the binary map layout (the whole
// cell: limits 0 and 1, steps 1/ngrid; no peaks). On a fault the message is
// shown, kerror set and filbin left as it was.
void map2bin();
