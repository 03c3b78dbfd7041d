// Summary numbers of a density grid.
#pragma once

#include <string>

#include "crystal/farray.h"

// Error pair of the map calculations, cleared on entry to each.
inline bool err_maps = false;
inline std::string err_maps_mess;  // char(150)

// Largest and smallest value, mean and standard deviation of a grid. Sums
// are taken in single precision; a variance of 0.0001 or less counts as a
// flat map and gives sigma 0. A grid without points sets the error pair and
// leaves the results as they were.
void statistic_map(const farray3<float>& map, float& maxval, float& minval, float& ave, float& sigma);
