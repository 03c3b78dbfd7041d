// Contour lines and filled contours of a grid inside the present plot
// (opened by ipgnewplot2 with graph type 8: npval1 x npval2 values, npset
// levels). Arrays are passed as spans; an empty span is an argument not given.
#pragma once

#include <span>

// Traces the contour lines of the grid z (row stride nx, ny rows) at the
// ascending `levels`, or at npset levels spread over the z units when none
// are given. Level L is drawn in line type ipgstyl(1,L) and colour ipgcol(1,L).
// With node positions xpos (npval1 values) or ypos (npval2 values) the lines
// are found cell by cell instead of followed.
void ipgcontour2(std::span<const float> z, int nx, int ny, std::span<const float> levels = {},
                 std::span<const float> xpos = {}, std::span<const float> ypos = {});

// Fills the npset bands between the npset - 1 ascending `levels`; band L
// takes fill style, density and angle from ipgstyl(1..3,L) and colour ipgcol(1,L).
// A cell that holds a band boundary is divided into igranul x igranul boxes.
void ipgconfill2(std::span<const float> z, int nx, int ny, std::span<const float> levels = {},
                 std::span<const float> xpos = {}, std::span<const float> ypos = {});
