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

// 1/24 in real32: where a count of 24ths of the cell becomes a fraction by a
// product rather than a division, it is by this. (Half of 1/12 in real32 is
// this exactly, so a twelfth halved gives the same.)
inline constexpr float one_24th = 0.041666668f;
