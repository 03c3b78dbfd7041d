// What the contour line and filled contour routines share: the grid as the
// caller passes it, and the check of the levels.
#pragma once

#include <span>
#include <string_view>
#include <vector>

// Grid values, first index fastest: value (i, j) stands at element
// (j - 1) * nx + (i - 1), with i = 1..npval1 and j = 1..npval2 of the plot.
struct contour_grid {
  std::span<const float> z;
  int nx = 0;
  float at(int i, int j) const { return z[static_cast<std::size_t>(j - 1) * nx + (i - 1)]; }
  // A value counts unless missing values are marked (bmissing for z) and it
  // equals the marker rmissing.
  bool present(int i, int j) const;
};

// Checks the dimensions against the plot's npval1, npval2 (error 1143 for
// the routine when the row stride, the row count or the array is too small).
bool contour_grid_fits(const contour_grid& grid, int ny, std::string_view routine);

// The levels of `count` sets: those given, which must ascend strictly
// (error 43, and false), or with none given L * zplen / npset + zpmin.
// A given array shorter than `count` is error 1015.
bool contour_levels(std::span<const float> given, int count, std::string_view routine,
                    std::vector<float>& levels);
