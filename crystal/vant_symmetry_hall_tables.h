// The parts of the Hall notation that the reader and the writer of Hall
// symbols share: translation letters, axis codes, the rotation matrices and
// the default axis of a generator's place.
#pragma once

#include "crystal/vant_crystallographic_symmetry.h"

// Axis symbols X, Y, Z, ', ", * as codes 1 to 6.
enum hall_axis { axis_x = 1, axis_y, axis_z, axis_prime, axis_second, axis_star };

// The translation letters A, B, C, N, U, V, W, D and their vectors in twelfths.
inline constexpr char hall_letters[] = "ABCNUVWD";
inline constexpr vec3i tras_val[8] = {{6, 0, 0}, {0, 6, 0}, {0, 0, 6}, {6, 6, 6},
                                      {3, 0, 0}, {0, 3, 0}, {0, 0, 3}, {3, 3, 3}};

// The rotation of a generator of order n about an axis; the first
// generator's axis decides the two-fold axes ' and ". False when the pair
// has no matrix.
bool rotation_matrix(int order, int axis, int first_axis, mat3i& rot);

// The axis a generator has when its symbol names none, by its place (1 to 4),
// its order and the order of the first generator.
int default_axis(int place, int order, int first_order);
