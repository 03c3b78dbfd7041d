// Surface plots: a grid of values drawn as a raised surface on a skewed
// base, painted tile by tile from the far corner to the near one.
#pragma once

#include <span>

// Draws the grid z (row stride nx, ny rows) of the present plot (graph type
// 8 opened with a three-dimensional layer). Each tile takes the colour and
// fill style of the band its mean value falls in, between the npset - 1
// ascending `levels` (or levels spread over the z units); grid lines follow
// igrcol, igrdir and the frequencies. Node positions are not used: the
// nodes stand evenly spaced.
void ipgsurf3datacont(std::span<const float> z, int nx, int ny, std::span<const float> levels = {},
                      std::span<const float> xpos = {}, std::span<const float> ypos = {});
