#include "synthesis/grid_choice.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr std::int32_t smallest_size = 4;

bool only_2_3_5(std::int32_t n) {
  for (std::int32_t p : {2, 3, 5})
    while (n % p == 0) n /= p;
  return n == 1;
}

// The smallest d (up to 24) with t d whole: 2 for 1/2, 3 for 2/3, 4 for 3/4.
// Only sizes of 2, 3 and 5 are tried, so that a grid of such sizes exists.
std::int32_t denominator(float t) {
  for (std::int32_t d = 1; d <= 24; ++d) {
    const double td = static_cast<double>(t) * d;
    if (only_2_3_5(d) && std::fabs(td - std::round(td)) < 1e-3) return d;
  }
  return 1;
}

std::int32_t axis_factor(const space_group_type& group, std::size_t axis) {
  std::int32_t f = 2;
  for (const sym_oper_type& op : group.sym_op) f = std::lcm(f, denominator(op.tr[axis]));
  for (const vec3f& l : group.latt_trans) f = std::lcm(f, denominator(l[axis]));
  return f;
}

}  // namespace

std::array<std::int32_t, 3> automatic_grid(const vec3f& cell, double d_min, const space_group_type& group) {
  std::array<std::int32_t, 3> n{};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const double wanted = d_min > 0.0 ? std::ceil(3.0 * cell[axis] / d_min) : 0.0;
    const auto least = static_cast<std::int32_t>(std::clamp(wanted, double{smallest_size}, double{max_grid_size}));
    const std::int32_t f = axis_factor(group, axis);
    std::int32_t size = (least + f - 1) / f * f;
    while (!only_2_3_5(size)) size += f;
    n[axis] = size;
  }
  return n;
}
