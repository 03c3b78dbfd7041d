#include "synthesis/symmetry_expansion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Fractions of the operators are written as float (1/3 as 0.33333334): a
// phase shift counts as whole within this.
constexpr double whole_tolerance = 1e-3;

bool is_whole(double v) { return std::fabs(v - std::round(v)) < whole_tolerance; }

double dot(const vec3i& h, const vec3f& t) {
  return h[0] * static_cast<double>(t[0]) + h[1] * static_cast<double>(t[1]) + h[2] * static_cast<double>(t[2]);
}

// hR, h taken as a row vector.
vec3i times(const vec3i& h, const mat3i& r) {
  vec3i out{};
  for (std::size_t j = 0; j < 3; ++j) out[j] = h[0] * r[0][j] + h[1] * r[1][j] + h[2] * r[2][j];
  return out;
}

// One number per index, ordered as the indices are (h first).
std::int64_t key_of(const vec3i& h) {
  constexpr std::int64_t offset = 1 << 15;
  return ((h[0] + offset) << 32) | ((h[1] + offset) << 16) | (h[2] + offset);
}

}  // namespace

expansion_type expansion_of(const space_group_type& group, bool phase_shifts) {
  expansion_type e;
  e.phase_shifts = phase_shifts;
  const std::size_t lattice = std::max<std::size_t>(group.latt_trans.size(), 1);
  const std::size_t rotations = std::max<std::size_t>(group.sym_op.size() / lattice, 1);
  const auto first_block = static_cast<std::ptrdiff_t>(std::min(rotations, group.sym_op.size()));
  e.ops.assign(group.sym_op.begin(), group.sym_op.begin() + first_block);
  if (e.ops.empty()) e.ops.push_back({{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {}});
  if (group.latt_trans.size() > 1) e.centring.assign(group.latt_trans.begin() + 1, group.latt_trans.end());
  return e;
}

bool systematically_absent(const vec3i& hkl, const expansion_type& e) {
  for (const vec3f& l : e.centring)
    if (!is_whole(dot(hkl, l))) return true;
  for (const sym_oper_type& op : e.ops)
    if (times(hkl, op.rot) == hkl && !is_whole(dot(hkl, op.tr))) return true;
  return false;
}

void equivalents(const coefficient_type& source, const expansion_type& e, std::vector<coefficient_type>& orbit) {
  orbit.clear();
  for (const sym_oper_type& op : e.ops) {
    const vec3i h = times(source.hkl, op.rot);
    std::complex<double> v = source.value;
    const double shift = e.phase_shifts ? dot(source.hkl, op.tr) : 0.0;
    if (shift != 0.0) v *= std::polar(1.0, -2.0 * std::numbers::pi * shift);
    orbit.push_back({h, v});
    orbit.push_back({{-h[0], -h[1], -h[2]}, std::conj(v)});
  }
  // By index, the first generated first among equal ones. An insertion sort:
  // an orbit has 96 members at most, and a stable library sort would
  // allocate on every call.
  for (std::size_t i = 1; i < orbit.size(); ++i) {
    const coefficient_type c = orbit[i];
    std::size_t j = i;
    for (; j > 0 && key_of(orbit[j - 1].hkl) > key_of(c.hkl); --j) orbit[j] = orbit[j - 1];
    orbit[j] = c;
  }
  orbit.erase(std::unique(orbit.begin(), orbit.end(),
                          [](const coefficient_type& a, const coefficient_type& b) { return a.hkl == b.hkl; }),
              orbit.end());
}

std::int64_t merge_equivalents(coefficient_list& list, const expansion_type& e) {
  // Each reflection brought to the largest index of its orbit, then sorted
  // by that index (in file order among equals) and averaged run by run.
  struct brought_type {
    std::int64_t key;
    std::size_t order;
    coefficient_type c;
  };
  std::vector<brought_type, map_allocator<brought_type>> brought;
  brought.reserve(list.size());
  std::vector<coefficient_type> orbit;
  for (const coefficient_type& c : list) {
    equivalents(c, e, orbit);
    brought.push_back({key_of(orbit.back().hkl), brought.size(), orbit.back()});
  }
  std::sort(brought.begin(), brought.end(), [](const brought_type& a, const brought_type& b) {
    return a.key != b.key ? a.key < b.key : a.order < b.order;
  });
  list.clear();
  for (std::size_t i = 0; i < brought.size();) {
    std::size_t end = i + 1;
    std::complex<double> sum = brought[i].c.value;
    for (; end < brought.size() && brought[end].key == brought[i].key; ++end) sum += brought[end].c.value;
    list.push_back({brought[i].c.hkl, sum / static_cast<double>(end - i)});
    i = end;
  }
  return static_cast<std::int64_t>(brought.size() - list.size());
}
