// Contour lines found cell by cell, for grids whose nodes stand at given
// positions: each cell is cut into four triangles around its centre and the
// level's segment is drawn in each triangle.
#pragma once

#include <span>
#include <vector>

#include "toolkit/plots/contour_grid.h"

// Node positions in plot units: xpos(i) for column i, ypos(j) for row j; an
// empty span (or one too short) spaces the nodes evenly over the plot units.
void contour_cells(const contour_grid& grid, const std::vector<float>& levels, std::span<const float> xpos,
                   std::span<const float> ypos);
