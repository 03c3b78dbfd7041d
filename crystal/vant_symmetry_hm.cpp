// The operators of a space group from its Hermann-Mauguin symbol.
//
// The symbol is cut into its parts and judged; each part names a rotation
// along, and a plane perpendicular to, the symmetry direction of its place,
// with the screw or glide translation the letters and digits give. The group
// is the one of the table's setting of that symbol (its Hall symbol), and
// every element the symbol names must be in it with its screw or glide
// component: a symbol that is no setting of the table, or whose elements
// the group doesn't hold, is refused.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <vector>

#include "crystal/fixed_text.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_symmetry_element_table.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

const std::string good = "123456ABCDMNP/- ";
const std::string screw_axes[] = {"21", "31", "32", "41", "42", "43", "61", "62", "63", "64", "65"};
const std::string ibra = "PABCFIR";
const std::string axis_digits = "123456";
const std::string plane_letters = "ABCDMN";

void fail(const std::string& message) {
  err_symm = true;
  err_symm_mess = fixed_text::assigned(message, 150);
}

bool is_axis(char c) { return axis_digits.find(c) != std::string::npos; }
bool is_plane(char c) { return c != ' ' && plane_letters.find(c) != std::string::npos; }

enum family_code { triclinic = 1, monoclinic, orthorhombic, tetragonal, hexagonal, cubic };

// Symmetry directions: the cell axes, [1-10], [111]; the hexagonal a axis
// has a two-fold of its own form.
enum direction { dir_a, dir_b, dir_c, dir_1m10, dir_111, dir_hex_a };

mat3i matrix_of(const char* text) {
  mat3i rot;
  read_xsym(text, 1, rot);
  return rot;
}

mat3i negated(const mat3i& m) {
  mat3i r;
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r[i][j] = -m[i][j];
  return r;
}

// The proper rotation of an order along a direction; false if none.
bool proper_rotation(int order, direction d, mat3i& rot) {
  static const std::map<std::pair<int, int>, const char*> rotations = {
      {{2, dir_a}, "x,-y,-z"},  {{2, dir_b}, "-x,y,-z"},     {{2, dir_c}, "-x,-y,z"},
      {{2, dir_1m10}, "-y,-x,-z"}, {{2, dir_hex_a}, "x-y,-y,-z"}, {{3, dir_c}, "-y,x-y,z"},
      {{3, dir_111}, "z,x,y"},  {{4, dir_c}, "-y,x,z"},      {{4, dir_a}, "x,-z,y"},
      {{4, dir_b}, "z,y,-x"},   {{6, dir_c}, "x-y,x,z"},     {{1, dir_a}, "x,y,z"},
      {{1, dir_b}, "x,y,z"},    {{1, dir_c}, "x,y,z"},       {{1, dir_1m10}, "x,y,z"},
      {{1, dir_111}, "x,y,z"},  {{1, dir_hex_a}, "x,y,z"}};
  const auto it = rotations.find({order, d});
  if (it == rotations.end()) return false;
  rot = matrix_of(it->second);
  return true;
}

// Translation in twelfths of a glide letter in the plane normal to d.
vec3i glide(char letter, direction d) {
  switch (letter) {
    case 'A':
      return {6, 0, 0};
    case 'B':
      return {0, 6, 0};
    case 'C':
      return {0, 0, 6};
    case 'N':
      return d == dir_a ? vec3i{0, 6, 6} : d == dir_b ? vec3i{6, 0, 6} : d == dir_c ? vec3i{6, 6, 0} : vec3i{6, 6, 6};
    case 'D':
      return d == dir_a ? vec3i{0, 3, 3} : d == dir_b ? vec3i{3, 0, 3} : d == dir_c ? vec3i{3, 3, 0} : vec3i{3, 3, 3};
    default:
      return {0, 0, 0};
  }
}

// The generators of one part ("21/C", "-4", "M", "3") at a direction.
bool part_generators(const std::string& part, direction d, std::vector<element12_type>& gens) {
  std::size_t p = 0;
  const bool improper = !part.empty() && part[0] == '-';
  if (improper) ++p;
  if (p < part.size() && is_axis(part[p])) {
    const int order = part[p] - '0';
    element12_type e;
    if (!proper_rotation(order, d, e.rot)) {
      fail(" The symbol: " + part + " is not allowed");
      return false;
    }
    if (p + 1 < part.size() && is_axis(part[p + 1]) && d <= dir_c) {
      e.t[d] = 12 * (part[p + 1] - '0') / order;
    }
    if (improper) e.rot = negated(e.rot);
    if (order != 1 || improper) gens.push_back(e);
  }
  const auto plane = std::find_if(part.begin(), part.end(), is_plane);
  if (plane != part.end()) {
    element12_type m;
    if (!proper_rotation(2, d, m.rot)) {
      fail(" The symbol: " + part + " is not allowed");
      return false;
    }
    m.rot = negated(m.rot);
    m.t = glide(*plane, d);
    gens.push_back(m);
  }
  return true;
}

// The screw or glide part of an operator: the mean of t, R.t, R2.t, ... over
// the order of the rotation (0 for the roto-inversions of order 3, 4, 6).
vec3f intrinsic_part(const mat3i& rot, const vec3f& t) {
  const std::int32_t order = axes_rotation(rot);
  const std::int32_t n = order == -2 ? 2 : order;
  if (n < 1) return vec3f{};
  vec3f sum{}, term = t;
  for (std::int32_t k = 0; k < n; ++k) {
    for (int i = 0; i < 3; ++i) sum[i] += term[i];
    vec3f next{};
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) next[i] += static_cast<float>(rot[i][j]) * term[j];
    term = next;
  }
  return {sum[0] / static_cast<float>(n), sum[1] / static_cast<float>(n), sum[2] / static_cast<float>(n)};
}

// True when the group holds an operator of the element's rotation whose
// screw or glide part is the element's. That part is only defined up to the
// projection of a lattice vector along the element (a translation of the cell
// turns a mirror into a glide), so those projections are allowed for.
bool holds(const symmetry_build_type& group, const element12_type& e) {
  const vec3f w = {static_cast<float>(e.t[0]) / 12.0f, static_cast<float>(e.t[1]) / 12.0f,
                   static_cast<float>(e.t[2]) / 12.0f};
  for (std::size_t k = 0; k < group.ss.size(); ++k) {
    if (group.ss[k] != e.rot) continue;
    const vec3f g = intrinsic_part(e.rot, group.ts[k]);
    for (std::int32_t l = 0; l < std::max(nlat, 1); ++l) {
      for (int i = -2; i <= 2; ++i) {
        for (int j = -2; j <= 2; ++j) {
          for (int m = -2; m <= 2; ++m) {
            const vec3f& c = ltr[static_cast<std::size_t>(l)];
            const vec3f p = intrinsic_part(e.rot, {c[0] + static_cast<float>(i), c[1] + static_cast<float>(j),
                                                   c[2] + static_cast<float>(m)});
            if (std::fabs(g[0] - w[0] - p[0]) + std::fabs(g[1] - w[1] - p[1]) + std::fabs(g[2] - w[2] - p[2]) < 1.0e-4f) {
              return true;
            }
          }
        }
      }
    }
  }
  return false;
}

}  // namespace

void check_symbol_hm(const std::array<std::string, 3>& table) {
  init_err_symm();
  for (const auto& part : table) {
    for (std::size_t k = 0; k < 4; ++k) {
      const char c = part[k];
      if (good.find(c) == std::string::npos || (c == '-' && k > 0) || (c == '/' && k == 0)) {
        fail(std::string(" The symbol: ") + c + " is not allowed");
        return;
      }
    }
  }
  for (const auto& part : table) {
    int planes = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      const char c = part[k];
      if (c == ' ') continue;
      if (part.find(c, k + 1) != std::string::npos) {
        fail(std::string(" The symbol: ") + c + " has been repeated within the same symmetry direction");
        return;
      }
      const char next = k + 1 < 4 ? part[k + 1] : ' ';
      if (is_axis(c) && is_plane(next)) {
        fail(std::string(" A rotation axis cannot be immediately followed by a plane") + next +
             " within the same symmetry direction");
        return;
      }
      if (is_plane(c) && is_axis(next)) {
        fail(std::string(" A mirror plane cannot be immediately followed by a rotation axis") + next +
             " within the same symmetry direction");
        return;
      }
      if (is_plane(c)) ++planes;
    }
    if (planes > 1) {
      fail(" There is more than one plane within the same symmetry direction");
      return;
    }
    for (std::size_t k = 0; k + 1 < 4; ++k) {
      if (is_axis(part[k]) && is_axis(part[k + 1])) {
        const std::string pair = part.substr(k, 2);
        if (std::find(std::begin(screw_axes), std::end(screw_axes), pair) == std::end(screw_axes)) {
          fail(" Screw axis: " + pair + " not allowed");
          return;
        }
      }
    }
  }
}

void get_so_from_hms(const std::string& symbol, symmetry_build_type& out) {
  init_err_symm();
  out = symmetry_build_type{};
  std::string s = fixed_text::assigned(symbol.substr(std::min(symbol.size(), symbol.find_first_not_of(' '))), 20);
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  spaceg = s;
  if (s.empty() || ibra.find(s[0]) == std::string::npos || s[0] == ' ') {
    fail(" Wrong space-group symbol: " + symbol);
    return;
  }
  std::vector<std::string> parts;
  for (std::size_t p = 1; p < s.size();) {
    while (p < s.size() && s[p] == ' ') ++p;
    if (p >= s.size()) break;
    const std::size_t end = std::min(s.size(), s.find(' ', p));
    parts.push_back(s.substr(p, end - p));
    p = end;
  }
  if (parts.empty() || parts.size() > 3) {
    fail(" Wrong space-group symbol: " + symbol);
    return;
  }
  std::array<std::string, 3> table = {"    ", "    ", "    "};
  for (std::size_t k = 0; k < parts.size(); ++k) {
    if (parts[k].size() > 4) {
      fail(" Wrong space-group symbol: " + symbol);
      return;
    }
    table[k] = fixed_text::padded(parts[k], 4);
  }
  const auto starts = [](const std::string& part, const char* a) { return part.rfind(a, 0) == 0; };
  const std::string lattice(1, s[0]);
  family_code family;
  std::string letter;
  if (parts.size() >= 2 && (starts(parts[1], "3") || starts(parts[1], "-3"))) {
    family = cubic, letter = "c";
  } else if (starts(parts[0], "3") || starts(parts[0], "-3") || starts(parts[0], "6") || starts(parts[0], "-6")) {
    family = hexagonal, letter = "h";
  } else if (starts(parts[0], "4") || starts(parts[0], "-4")) {
    family = tetragonal, letter = "t";
  } else if (parts.size() >= 2) {
    const bool full_monoclinic = fixed_text::same(parts[0], "1") || fixed_text::same(parts[1], "1");
    family = full_monoclinic ? monoclinic : orthorhombic;
    letter = full_monoclinic ? "m" : "o";
  } else if (parts[0] == "1" || starts(parts[0], "-")) {
    family = triclinic, letter = "a";
  } else {
    family = monoclinic, letter = "m";
    table = {"1   ", fixed_text::padded(parts[0], 4), "1   "};  // the unique axis is b
  }
  check_symbol_hm(table);
  if (err_symm) return;
  latsym(lattice);
  if (err_symm) return;

  direction places[3] = {dir_a, dir_b, dir_c};
  if (family == tetragonal) places[0] = dir_c, places[1] = dir_a, places[2] = dir_1m10;
  if (family == hexagonal) places[0] = dir_c, places[1] = dir_hex_a, places[2] = dir_1m10;
  if (family == cubic) places[0] = dir_c, places[1] = dir_111, places[2] = dir_1m10;
  std::vector<element12_type> gens;
  for (int k = 0; k < 3; ++k) {
    const std::string part(fixed_text::trimmed(table[k]));
    if (!part.empty() && !part_generators(part, places[k], gens)) return;
  }
  set_spgr_info();
  const auto row = std::find_if(spgr_info.begin(), spgr_info.end(),
                                [&s](const spgr_info_type& r) { return fixed_text::same(r.hm, s); });
  if (row == spgr_info.end()) {
    fail(" Wrong space-group symbol: " + symbol);
    return;
  }
  get_so_from_hall(row->hall, out);
  if (err_symm) return;
  for (const auto& e : gens) {
    if (!holds(out, e)) {
      fail(" Wrong space-group symbol: " + symbol);
      return;
    }
  }
  out.count = static_cast<std::int32_t>(gens.size());
  out.latsy = letter + lattice;
}
