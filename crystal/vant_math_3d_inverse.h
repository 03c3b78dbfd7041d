// Inverse of a 3 x 3 matrix, with the error pair of the 3-D math routines.
#pragma once

#include <cstdint>
#include <string>

#include "crystal/vector_types.h"

inline bool err_math3d = false;
inline std::string err_math3d_mess;  // char(150)

// b = inverse of a by cofactors; ifail 0 when good. When |det(a)| is below
// 1e-20, ifail is 1, the error pair is set and b holds the adjugate of a,
// unscaled.
void matrix_inverse(const mat3f& a, mat3f& b, std::int32_t& ifail);
