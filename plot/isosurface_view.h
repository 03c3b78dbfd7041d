// The fourth plot kind: one density level of the whole map (or of a box the
// user chose) as a wire picture in Angstrom, with the molecule of the
// connection file when there is one. Polygons are projected by dropping z,
// with no lighting and no hidden lines; depth is shown by colour.
#pragma once

#include <cstdint>

// Switches to the isosurface kind (nothing when it is on already): check
// marks, the commands that belong to sections disabled, the molecule read,
// the mesh built and centred, the view reset, mouse messages on, and draws.
void proc_iso();

// Draws xyz and the molecule as they stand into ibmp1 and shows it.
void draw_isosurface();

// Colour number of depth z between zmin and zmax: 83 for the nearest (the
// largest z) through 95 for the farthest.
std::int32_t icol(float z, float zmin, float zmax);

// The mesh built anew at isolev (within the box while klimits is on),
// turned to Angstrom about the centre, and drawn; the window is found anew
// when asked for or when no box holds it. The molecule starts again from
// its unturned place.
void refresh_isosurface(bool new_window = false);

// Back to the whole cell, the unturned view, and a new mesh.
void reset_isosurface();

// A mouse move while the isosurface is shown: button 1 turns the scene about
// y by the horizontal move and about x by the vertical one, button 3 about z
// by the horizontal move, 45 degrees for a move across the window.
void turn_isosurface();

