#include "synthesis/symmetry_expansion.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

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
  e.ops.assign(group.sym_op.begin(), group.sym_op.begin() + static_cast<std::ptrdiff_t>(std::min(rotations, group.sym_op.size())));
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

void equivalents(const coefficient_type& c, const expansion_type& e, std::vector<coefficient_type>& orbit) {
  orbit.clear();
  for (const sym_oper_type& op : e.ops) {
    const vec3i h = times(c.hkl, op.rot);
    std::complex<double> v = c.value;
    if (e.phase_shifts) v *= std::polar(1.0, -2.0 * std::numbers::pi * dot(c.hkl, op.tr));
    orbit.push_back({h, v});
    orbit.push_back({{-h[0], -h[1], -h[2]}, std::conj(v)});
  }
  std::stable_sort(orbit.begin(), orbit.end(),
                   [](const coefficient_type& a, const coefficient_type& b) { return key_of(a.hkl) < key_of(b.hkl); });
  orbit.erase(std::unique(orbit.begin(), orbit.end(),
                          [](const coefficient_type& a, const coefficient_type& b) { return a.hkl == b.hkl; }),
              orbit.end());
}

std::int64_t merge_equivalents(std::vector<coefficient_type>& list, const expansion_type& e) {
  std::unordered_map<std::int64_t, std::size_t> place;
  std::vector<coefficient_type> merged;
  std::vector<std::int32_t> count;
  std::vector<coefficient_type> orbit;
  std::int64_t repeats = 0;
  for (const coefficient_type& c : list) {
    equivalents(c, e, orbit);
    const coefficient_type& representative = orbit.back();  // the largest index of the orbit
    const auto [at, fresh] = place.try_emplace(key_of(representative.hkl), merged.size());
    if (fresh) {
      merged.push_back(representative);
      count.push_back(1);
    } else {
      merged[at->second].value += representative.value;
      ++count[at->second];
      ++repeats;
    }
  }
  for (std::size_t i = 0; i < merged.size(); ++i) merged[i].value /= count[i];
  list = std::move(merged);
  return repeats;
}
