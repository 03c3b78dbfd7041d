// Small fixed vectors and matrices of the crystallographic records.
// A matrix is indexed m[row][column], counted from 0; where a file or a formula
// counts from 1 with the first index fastest, the conversion is written out at
// that place.
#pragma once

#include <array>
#include <cstdint>

using vec3f = std::array<float, 3>;
using vec3i = std::array<std::int32_t, 3>;
using mat3f = std::array<std::array<float, 3>, 3>;
using mat3i = std::array<std::array<std::int32_t, 3>, 3>;
