// From the stored grid to what is drawn or probed: the closed or resampled
// map rhonew, sections of skewed families, values at points of a section,
// fractional <-> orthogonal coordinates. All work on the program's globals.
#pragma once

#include <array>
#include <cstdint>

// Fills rhonew from rho: the periodic closing of a whole cell, or the
// resampling of the file's box. Then sets denmin, denmax (of rhonew), rho_min,
// rho_max (of rho), and raises the jpg flags of the families whose in-plane
// axes are not perpendicular.
void proc_carga();

// Adds plane isec of the current family (imap), resampled on the rectangular
// Angstrom grid u_min + (i-1) u_inc, v_min + (j-1) v_inc, into dmap.
// ndim_x, ndim_y receive the extents of that grid, 2 nu - 1 and 2 nv - 1.
void carga_seccion_rec(std::int32_t isec, std::int32_t& ndim_x, std::int32_t& ndim_y);

// The density at (x, y) of the current dmap, in the coordinates of the
// current section, by bilinear interpolation.
void calc_point_val(float x, float y, float& val);

// Fractional to orthogonal (Angstrom) and back, through celda; a result of
// absolute value 0.0001 or less comes out as exactly 0.
void frac2orth(float x, float y, float z, float& xo, float& yo, float& zo);
void orth2frac(float xo, float yo, float zo, float& x, float& y, float& z);

// The window of a skewed section: converts the four corners of the box at
// plane isec of the current family to Angstrom, sets u_min, u_max, v_min,
// v_max to their extremes and u_inc, v_inc to the steps of the resampled grid.
// Returns the corners (U, V) in the order (u low, v low), (u low, v high),
// (u high, v high), (u high, v low), for drawing the outline of the box.
std::array<std::array<float, 2>, 4> skewed_section_window(std::int32_t isec);

// The summing rule of sections: whether a value goes into dmap under the
// flags sum_all, sum_positive and sum_negative.
bool section_sum_accepts(float val);
