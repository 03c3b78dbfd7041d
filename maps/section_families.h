// The three section families. A family names which cell axes lie in the
// plane (u, v) and which runs across it (w):
//
//   imap  u  v  w   plane index
//    1    x  y  z   seccion(3)
//    2    y  z  x   seccion(1)
//    3    z  x  y   seccion(2)
//
// The same placement holds for grid indices (element (i, j) of plane s of
// family 3 is rhonew(j, s, i)) and for orthogonal coordinates (the point
// (U, V, W) of family 2 is (W, U, V)).
#pragma once

#include <array>
#include <cstdint>

struct section_family_type {
  std::int32_t u;  // cell axis along u, 1 to 3
  std::int32_t v;  // cell axis along v
  std::int32_t w;  // cell axis across the plane
};

// The family selected by imap (1 to 3).
section_family_type section_family(std::int32_t imap);

// Puts the three components given along u, v and w in the order of the cell
// axes x, y, z.
template <typename T>
std::array<T, 3> place_on_axes(const section_family_type& f, T along_u, T along_v, T along_w) {
  std::array<T, 3> out{};
  out[static_cast<std::size_t>(f.u - 1)] = along_u;
  out[static_cast<std::size_t>(f.v - 1)] = along_v;
  out[static_cast<std::size_t>(f.w - 1)] = along_w;
  return out;
}
