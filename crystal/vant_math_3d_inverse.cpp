#include "crystal/vant_math_3d_inverse.h"

#include <cmath>

void matrix_inverse(const mat3f& a, mat3f& b, std::int32_t& ifail) {
  // Adjugate: b[i][j] is the cofactor of a[j][i].
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      const int r1 = (j + 1) % 3, r2 = (j + 2) % 3;
      const int c1 = (i + 1) % 3, c2 = (i + 2) % 3;
      b[i][j] = a[r1][c1] * a[r2][c2] - a[r1][c2] * a[r2][c1];
    }
  }
  const float det = a[0][0] * b[0][0] + a[0][1] * b[1][0] + a[0][2] * b[2][0];
  // A NaN or infinite determinant (a cell angle of 0 or NaN) is as singular
  // as a vanishing one: the comparison alone would let NaN through.
  if (!std::isfinite(det) || std::fabs(det) < 1.0e-20f) {
    ifail = 1;
    err_math3d = true;
    err_math3d_mess = "Singular Matrix: inversion imposible";
    return;
  }
  ifail = 0;
  for (auto& row : b)
    for (float& v : row) v /= det;
}
