#include "crystal/vant_symmetry_element_table.h"

#include <algorithm>
#include <cmath>

#include "crystal/vant_math_3d.h"

#include "crystal/vant_symmetry_tables.h"

namespace {

const mat3i identity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

// Subtracts 6 from the components a and b (and c, when it is given) when all
// of them are at least 6.
bool subtract_half(vec3i& t, int a, int b, int c = -1) {
  if (t[a] < 6 || t[b] < 6 || (c >= 0 && t[c] < 6)) return false;
  t[a] -= 6, t[b] -= 6;
  if (c >= 0) t[c] -= 6;
  return true;
}

// Operators in a lattice basis have small coefficients. Generators that make
// no finite group give products whose coefficients grow without end; the
// bound refuses them before a product can overflow.
constexpr std::int32_t largest_coefficient = 6;

bool small_coefficients(const mat3i& rot) {
  for (const auto& row : rot)
    for (std::int32_t v : row)
      if (v > largest_coefficient || v < -largest_coefficient) return false;
  return true;
}

bool table_fault(const std::string& message) {
  set_err_symm(message);
  return false;
}

}  // namespace

vec3i to_twelfths(const vec3f& t) {
  vec3i twelfths{};
  for (std::size_t i = 0; i < 3; ++i) {
    // Only the part within the cell counts: taken first, it keeps a wild
    // translation of a text from overflowing the integer sums that follow.
    const float in_cell = t[i] - std::floor(t[i]);
    twelfths[i] = std::isfinite(in_cell) ? static_cast<std::int32_t>(std::lround(in_cell * 12.0f)) % 12 : 0;
  }
  return twelfths;
}

void reduce_translation(vec3i& t, std::int32_t lattice_code) {
  for (auto& c : t) {
    c %= 12;
    if (c < 0) c += 12;
  }
  bool again = true;
  while (again) {
    switch (lattice_code) {
      case 2:
        again = subtract_half(t, 1, 2);
        break;
      case 3:
        again = subtract_half(t, 0, 2);
        break;
      case 4:
        again = subtract_half(t, 0, 1);
        break;
      case 5:
        again = subtract_half(t, 0, 1, 2);
        break;
      case 6:
        if (t[0] >= 8 && t[1] >= 4 && t[2] >= 4) {
          t = {t[0] - 8, t[1] - 4, t[2] - 4};
        } else if (t[0] >= 4 && t[1] >= 8 && t[2] >= 8) {
          t = {t[0] - 4, t[1] - 8, t[2] - 8};
        } else {
          again = false;
        }
        break;
      case 7:
        again = subtract_half(t, 1, 2) || subtract_half(t, 0, 2) || subtract_half(t, 0, 1);
        break;
      default:
        again = false;
    }
  }
}

element12_type multiply(const element12_type& a, const element12_type& b, std::int32_t lattice_code) {
  element12_type p;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      for (int k = 0; k < 3; ++k) p.rot[i][j] += a.rot[i][k] * b.rot[k][j];
      p.t[i] += a.rot[i][j] * b.t[j];
    }
    p.t[i] += a.t[i];
  }
  reduce_translation(p.t, lattice_code);
  return p;
}

bool add_element(std::vector<element12_type>& table, const element12_type& e, std::int32_t lattice_code) {
  // A table made by this function holds the powers of each of its elements,
  // so an element whose rotation is there brings nothing new.
  if (std::any_of(table.begin(), table.end(), [&e](const element12_type& t) { return same_rotation(t.rot, e.rot); })) return true;
  // An element of order n brings its powers up to the n-th; the roto-
  // inversions -1 and -3 repeat only after twice their order.
  std::int32_t order = std::abs(axes_rotation(e.rot));
  if (order == 1 && e.rot != identity) order = 2;
  if (order == 3 && axes_rotation(e.rot) == -3) order = 6;
  element12_type power = e;
  reduce_translation(power.t, lattice_code);
  for (std::int32_t k = 1; k < std::max(order, 2); ++k) {
    if (!small_coefficients(power.rot)) return table_fault(" The generators do not make a crystallographic group");
    const bool known = std::any_of(table.begin(), table.end(), [&](const element12_type& t) { return same_rotation(t.rot, power.rot); });
    if (!known) {
      // elements proper, or improper, as the power is
      const bool proper = determ_a(power.rot) > 0;
      const auto same_kind = std::count_if(table.begin(), table.end(),
                                           [&](const element12_type& t) { return (determ_a(t.rot) > 0) == proper; });
      if (static_cast<std::size_t>(same_kind) >= max_elements) return table_fault(" Dimension of Table exceeded (I)");
      table.push_back(power);
    }
    power = multiply(power, e, lattice_code);
  }
  return true;
}

bool close_element_table(std::vector<element12_type>& table, std::int32_t lattice_code) {
  // Passes over the table in order until one adds nothing; a pair multiplied
  // in an earlier pass gives the same element again and is not redone.
  std::vector<std::size_t> done;  // for each i, the j below it are done
  for (bool grown = true; grown;) {
    const std::size_t before = table.size();
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (i == done.size()) done.push_back(0);
      for (std::size_t j = done[i]; j < table.size(); ++j) {
        if (!add_element(table, multiply(table[i], table[j], lattice_code), lattice_code)) return false;
      }
      done[i] = table.size();
    }
    grown = table.size() > before;
  }
  return true;
}

bool split_off_centre(std::vector<element12_type>& table, symmetry_build_type& out) {
  const mat3i inversion = {{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}};
  const auto centre = std::find_if(table.begin(), table.end(), [&](const element12_type& e) { return e.rot == inversion; });
  out.centring_code = 1;
  out.co = {};
  if (centre != table.end()) {
    out.centring_code = centre->t == vec3i{0, 0, 0} ? 2 : 0;
    // Half the translation, in 24ths of the cell.
    for (int i = 0; i < 3; ++i) out.co[i] = static_cast<float>(centre->t[i]) / 24.0f;
    std::erase_if(table, [](const element12_type& e) { return determ_a(e.rot) < 0; });
  }
  if (table.size() > max_elements) return table_fault(" Dimension of Table exceeded (I)");
  return true;
}

bool expand_element_table(const std::vector<element12_type>& table, symmetry_build_type& out) {
  out.ss.clear();
  out.ts.clear();
  for (const auto& e : table) {
    out.ss.push_back(e.rot);
    out.ts.push_back({static_cast<float>(e.t[0]) / 12.0f, static_cast<float>(e.t[1]) / 12.0f,
                      static_cast<float>(e.t[2]) / 12.0f});
  }
  out.num_ops = static_cast<std::int32_t>(table.size());
  const std::size_t reduced = table.size();
  const std::size_t total = reduced * (out.centring_code == 1 ? 1 : 2) * static_cast<std::size_t>(std::max(nlat, 1));
  if (total > max_operators) return table_fault(" Dimension of Table exceeded (II): " + std::to_string(total));
  if (out.centring_code != 1) {
    const vec3f twice = out.centring_code == 0 ? vec3f{2 * out.co[0], 2 * out.co[1], 2 * out.co[2]} : vec3f{};
    for (std::size_t k = 0; k < reduced; ++k) {
      mat3i r;
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) r[i][j] = -out.ss[k][i][j];
      out.ss.push_back(r);
      out.ts.push_back(modulo_lat({twice[0] - out.ts[k][0], twice[1] - out.ts[k][1], twice[2] - out.ts[k][2]}));
    }
  }
  const std::size_t block = out.ss.size();
  for (std::int32_t l = 1; l < nlat; ++l) {
    const vec3f& c = ltr[static_cast<std::size_t>(l)];
    for (std::size_t k = 0; k < block; ++k) {
      out.ss.push_back(out.ss[k]);
      out.ts.push_back(modulo_lat({out.ts[k][0] + c[0], out.ts[k][1] + c[1], out.ts[k][2] + c[2]}));
    }
  }
  std::vector<mat3i> rotations(out.ss.begin(), out.ss.begin() + static_cast<std::ptrdiff_t>(reduced));
  std::string letter;
  get_crystal_system_r_op(rotations, static_cast<std::int32_t>(reduced), out.crystal_code, letter);
  if (err_symm) return false;
  out.latsy = letter + lat_ch;
  return true;
}
