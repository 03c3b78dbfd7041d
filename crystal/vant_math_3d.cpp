#include "crystal/vant_math_3d.h"

#include <limits>

// Worked out in 128 bits, where no product of 32-bit entries can overflow,
// and held to the 32-bit range: a huge determinant is still not 1.
__extension__ using wide = __int128;

std::int32_t determ_a(const mat3i& a) {
  auto e = [&a](int i, int j) { return static_cast<wide>(a[i][j]); };
  const wide d = e(0, 0) * (e(1, 1) * e(2, 2) - e(1, 2) * e(2, 1)) -
                     e(0, 1) * (e(1, 0) * e(2, 2) - e(1, 2) * e(2, 0)) +
                     e(0, 2) * (e(1, 0) * e(2, 1) - e(1, 1) * e(2, 0));
  constexpr wide low = std::numeric_limits<std::int32_t>::min(), high = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(d < low ? low : d > high ? high : d);
}
