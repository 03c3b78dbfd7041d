// The mesh of the isosurface view at the present isolevel.
#pragma once

// The density of the isolevel: densigma x isolev + denave.
float isosurface_density();

// Rebuilds xyz and npoints from rho over the whole cell with the polygon
// half of the cube table.
void isosurface_mesh();
