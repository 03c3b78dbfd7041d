// Composition of one complete picture of a section: grid, sums of layers,
// levels, plot area, body, frame, labels; drawn into ibmp1 and copied to the
// window in one step.
#pragma once

#include <array>
#include <cstdint>

// The full redraw for plot kinds 1 (contour lines), 2 (filled) and 3
// (surface) from the map and the view state; fills rmax, rinc, NVALUE,
// ZCOL, EDGE and dmap, and ends by writing the state line.
void draw_plot_pg();

// Body and frame of the surface kind, after the plot is opened: the
// section transposed and raised between the level range low..high in its
// box, the n levels ZCOL as colour bands, scales and axis labels.
void draw_surface_pg(float low, float high, std::int32_t n);

// The frame of a skewed or oriented section: the four corners of `edge`
// (plot units, x, y pairs) joined, with 11 ticks along each of the two sides
// that start at the first corner.
void m_border(const std::array<float, 8>& edge);

// Covers with the background what a skewed section drew outside its
// parallelogram: two triangles, on the sides 1-4 and 3-2 for corner code 1,
// on the sides 1-2 and 3-4 otherwise.
void reform_contour(const std::array<float, 8>& edge, std::int32_t corner_code);

// Where the plot area lies within the window so that one unit along x is as
// long as one along y: the window of W x H pixels, the extents of the two
// axes in Angstrom, and whether a legend takes room on the right. The
// result is (x low, y low, x high, y high) as fractions of the window.
std::array<float, 4> proportional_plot_area(float width, float height, float x_extent, float y_extent,
                                            bool legend);

// The level values of a picture: n levels spread evenly strictly between
// low and high.
std::array<float, 20> level_values(float low, float high, std::int32_t n);
