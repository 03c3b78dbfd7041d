// Opening a presentation plot and setting its area, units, styles, key area
// and label positions, and the mapping from plot units to graphics units.
#pragma once

#include <optional>
#include <span>

// Opens a plot of graph type `igtype` with `nsets` data sets and the value
// counts `nvals` (one per dimension). `layer` is a sum of layout bits
// (8 filled contours, 1 + 32 a surface); styles, units and area survive.
void ipgnewplot2(int igtype, int nsets, std::span<const int> nvals, std::optional<int> layer = std::nullopt,
                 std::optional<int> idefault = std::nullopt);

// Stores the styles that are given for set `iset` (1..500, else ignored);
// thickness only when positive.
void ipgstyle(int iset, std::optional<int> style1 = std::nullopt, std::optional<int> style2 = std::nullopt,
              std::optional<int> style3 = std::nullopt, std::optional<int> colour1 = std::nullopt,
              std::optional<int> colour2 = std::nullopt, std::optional<int> thickness = std::nullopt);

// The plot area as fractions of the graphics area; a value out of range
// (low 0 <= v < 1, high 0 < v <= 1) is left as it was.
void ipgarea(float xlow, float ylow, float xhigh, float yhigh);
// Plot-unit limits; x and y may run backwards. Equal limits become 0 to 1
// with error 16.
void ipgunits(std::optional<float> xmin, std::optional<float> ymin, std::optional<float> xmax,
              std::optional<float> ymax);
// z limits; zmax must lie above zmin, else 0 to 1 with error 16.
void ipgunitsz(float zmin, float zmax);

// The key area; with xlow >= xhigh or ylow >= yhigh the plot has no key area.
void ipgkeyarea(float xlow, float ylow, float xhigh, float yhigh);

// Label positions between plot edge (1) and graphics-area edge (0), clamped to 0..1.
void ipgxlabelpos(float position);
void ipgylabelpos(float position);
void ipgzlabelpos(float position);

// User scale values of an axis: copied and sorted ascending. A count below 1
// stores only the count, so that the axis goes back to automatic.
void ipgxuserscale(const float* values, int count);
void ipgyuserscale(const float* values, int count);

// Plot units to graphics units and back.
void ipgunitstogrunits(float x, float y, float& gx, float& gy);
void ipgunitsfromgrunits(float gx, float gy, float& x, float& y);

// The cell division of filled contours: n when positive, else unchanged.
void ipgconfill2granul(int n);
