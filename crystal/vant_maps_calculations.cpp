#include "crystal/vant_maps_calculations.h"

#include <cmath>
#include <cstdint>

void statistic_map(const farray3<float>& map, float& maxval, float& minval, float& ave, float& sigma) {
  err_maps = false;
  err_maps_mess.clear();
  const std::int64_t points = static_cast<std::int64_t>(map.extent(1)) * map.extent(2) * map.extent(3);
  if (points == 0) {
    err_maps = true;
    err_maps_mess = "Some dimension on Rho is zero";
    return;
  }
  // The count is a 32-bit integer, as everywhere in the map routines.
  const auto n = static_cast<std::int32_t>(points);

  const float* v = map.data();
  float top = v[0], bottom = v[0], sum = 0.0f, squares = 0.0f;
  for (std::int64_t k = 0; k < points; ++k) {
    if (v[k] > top) top = v[k];
    if (v[k] < bottom) bottom = v[k];
    sum += v[k];
    squares += v[k] * v[k];
  }
  maxval = top;
  minval = bottom;
  const float inverse = 1.0f / static_cast<float>(n);
  ave = sum * inverse;
  const float variance = squares * inverse - ave * ave;
  sigma = variance > 0.0001f ? std::sqrt(variance) : 0.0f;
}
