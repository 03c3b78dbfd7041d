// Determinant of an integer 3 x 3 matrix (the inverse of a real one is in
// vant_math_3d_inverse.h).
#pragma once

#include <cstdint>

#include "crystal/vector_types.h"

std::int32_t determ_a(const mat3i& a);
