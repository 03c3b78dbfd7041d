// The operators of a space group from its Hall symbol.
#include <algorithm>
#include <cctype>
#include <string>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_symmetry_element_table.h"
#include "crystal/vant_symmetry_hall_tables.h"

namespace {

const std::string traslacion = std::string(hall_letters) + "12345";
const std::string red = "PABCIRF";
const std::string rotacion = "12346";
const std::string ejes_rotacion = "XYZ'\"*";
const std::string shift = "12345";

mat3i matrix_of(const char* text) {
  mat3i rot;
  read_xsym(text, 1, rot);
  return rot;
}

// One generator item such as "-4bd", "2\"c", "31", at its place 1 to 4.
bool read_generator(const std::string& item, int place, int first_order, int& first_axis,
                    element12_type& g) {
  std::size_t p = 0;
  const bool improper = item[p] == '-';
  if (improper) ++p;
  const auto digit = p < item.size() ? rotacion.find(item[p]) : std::string::npos;
  if (digit == std::string::npos) {
    set_err_symm(" Wrong rotation order in Hall symbol: " + item);
    return false;
  }
  const int order = item[p] - '0';
  ++p;
  int axis = 0;
  int screw = 0;
  vec3i t{};
  for (; p < item.size(); ++p) {
    const char c = item[p];
    const auto a = ejes_rotacion.find(c);
    const auto l = traslacion.find(c);
    if (a != std::string::npos) {
      axis = static_cast<int>(a) + 1;
    } else if (l != std::string::npos && l < 8) {
      for (int i = 0; i < 3; ++i) t[i] += tras_val[l][i];
    } else if (l != std::string::npos) {
      if (order < 3) {
        set_err_symm(" Screw translation on a rotation of order " + std::to_string(order) + " in Hall symbol: " + item);
        return false;
      }
      screw = c - '0';
    } else {
      set_err_symm(" Wrong character in Hall symbol: " + item);
      return false;
    }
  }
  if (axis == 0) axis = default_axis(place, order, first_order);
  if (place == 1) first_axis = axis;
  if (!rotation_matrix(order, axis, first_axis, g.rot)) {
    set_err_symm(" Wrong order and axis in Hall symbol: " + item);
    return false;
  }
  if (screw > 0 && axis <= axis_z) t[axis - 1] = 12 * screw / order;
  if (improper) {
    for (auto& row : g.rot)
      for (auto& v : row) v = -v;
  }
  g.t = t;
  return true;
}

// The origin shift "(0 0 1)" in twelfths, read from behind the "(".
vec3i read_shift(const std::string& text) {
  vec3i v{};
  int k = 0;
  int sign = 1;
  for (char c : text) {
    if (c == ')' || k > 2) break;
    if (c == '-') {
      sign = -1;
    } else if (c == ' ') {
      continue;
    } else {
      const auto d = shift.find(c);
      v[k++] = d == std::string::npos ? 0 : sign * (c - '0');
      sign = 1;
    }
  }
  return v;
}

}  // namespace

bool rotation_matrix(int order, int axis, int first_axis, mat3i& rot) {
  static const mat3i x_2 = matrix_of("x,-y,-z"), y_2 = matrix_of("-x,y,-z"), z_2 = matrix_of("-x,-y,z");
  static const mat3i x_3 = matrix_of("x,-z,y-z"), y_3 = matrix_of("-x+z,y,-x"), z_3 = matrix_of("-y,x-y,z");
  static const mat3i x_4 = matrix_of("x,-z,y"), y_4 = matrix_of("z,y,-x"), z_4 = matrix_of("-y,x,z");
  static const mat3i x_6 = matrix_of("x,y-z,y"), y_6 = matrix_of("z,y,-x+z"), z_6 = matrix_of("x-y,x,z");
  static const mat3i xyz_3 = matrix_of("z,x,y");
  static const mat3i x_2p = matrix_of("-x,-z,-y"), y_2p = matrix_of("-z,-y,-x"), z_2p = matrix_of("-y,-x,-z");
  static const mat3i x_2pp = matrix_of("-x,z,y"), y_2pp = matrix_of("z,-y,x"), z_2pp = matrix_of("y,x,-z");
  static const mat3i identidad = matrix_of("x,y,z");
  const mat3i* m = nullptr;
  if (order == 1) {
    m = &identidad;
  } else if (order == 2 && axis <= axis_z) {
    m = axis == axis_x ? &x_2 : axis == axis_y ? &y_2 : &z_2;
  } else if (order == 2 && (axis == axis_prime || axis == axis_second)) {
    const bool prime = axis == axis_prime;
    if (first_axis == axis_x) {
      m = prime ? &x_2p : &x_2pp;
    } else if (first_axis == axis_y) {
      m = prime ? &y_2p : &y_2pp;
    } else {
      m = prime ? &z_2p : &z_2pp;
    }
  } else if (order == 3 && axis == axis_star) {
    m = &xyz_3;
  } else if (axis <= axis_z && (order == 3 || order == 4 || order == 6)) {
    const mat3i* by_order[3][3] = {{&x_3, &y_3, &z_3}, {&x_4, &y_4, &z_4}, {&x_6, &y_6, &z_6}};
    m = by_order[order == 3 ? 0 : order == 4 ? 1 : 2][axis - 1];
  }
  if (m == nullptr) return false;
  rot = *m;
  return true;
}

int default_axis(int place, int order, int first_order) {
  if (place == 1) return axis_z;
  if (place == 2 && order == 2 && (first_order == 3 || first_order == 6)) return axis_prime;
  if (place == 3 && order == 3) return axis_star;
  return axis_x;
}

void get_so_from_hall(const std::string& symbol, symmetry_build_type& out) {
  init_err_symm();
  out = symmetry_build_type{};
  std::string s = fixed_text::padded(symbol.substr(std::min(symbol.size(), symbol.find_first_not_of(' '))), 16);
  s = u_case(s);
  std::size_t n = fixed_text::len_trim(s);
  if (n == 0) {
    set_err_symm(" IBRAVL is Equal Zero");
    return;
  }

  // Centre of symmetry: a leading "-", or "-1" with the translation of the
  // centre behind it.
  std::size_t letter_at = 0;
  if (s[0] == '-') {
    out.centring_code = 2;
    letter_at = 1;
  } else {
    const std::size_t paren = s.find('(');
    const std::string head = s.substr(0, paren == std::string::npos ? n : std::min(paren, n));
    const auto minus_one = head.rfind("-1");
    if (minus_one != std::string::npos) {
      vec3i total{};
      for (std::size_t p = minus_one + 2; p < head.size(); ++p) {
        const auto l = traslacion.find(head[p]);
        if (l != std::string::npos && l < 8) {
          for (int i = 0; i < 3; ++i) total[i] += tras_val[l][i];
        }
      }
      for (auto& c : total) c %= 12;
      // Half of each twelfth: the centre lies halfway along the inversion's translation.
      out.co = {static_cast<float>(total[0]) * one_24th, static_cast<float>(total[1]) * one_24th,
                static_cast<float>(total[2]) * one_24th};
      if (total != vec3i{0, 0, 0}) {
        out.centring_code = 0;
        n = minus_one >= 1 ? minus_one - 1 : 0;
      } else {
        out.centring_code = 2;
      }
    }
  }
  const auto lattice = red.find(s[letter_at]);
  if (lattice == std::string::npos || s[letter_at] == ' ') {
    set_err_symm(" IBRAVL is Equal Zero");
    return;
  }
  out.lattice_code = static_cast<std::int32_t>(lattice) + 1;

  // Generators: the items behind the lattice letter, up to n or a "(".
  std::vector<element12_type> generators;
  int first_order = 0;
  int first_axis = axis_z;
  std::size_t p = letter_at + 1;
  const std::size_t paren = s.find('(');
  const std::size_t end = std::min(n, paren == std::string::npos ? n : paren);
  while (p < end && generators.size() < 4) {
    while (p < end && s[p] == ' ') ++p;
    if (p >= end) break;
    const std::size_t stop = std::min(end, s.find(' ', p));
    const std::string item = s.substr(p, stop - p);
    p = stop;
    element12_type g;
    if (!read_generator(item, static_cast<int>(generators.size()) + 1, first_order, first_axis, g)) return;
    if (generators.empty()) first_order = std::abs(axes_rotation(g.rot));
    generators.push_back(g);
  }
  out.count = static_cast<std::int32_t>(generators.size());

  // Origin shift: each generator M becomes V.M.V^-1, and so does the
  // inversion, whose centre moves by v.
  if (paren != std::string::npos) {
    const vec3i v = read_shift(s.substr(paren + 1));
    for (auto& g : generators) move_origin(g.rot, g.t, v);
    if (out.centring_code != 1 && v != vec3i{0, 0, 0}) {
      out.co = modulo_lat({out.co[0] + static_cast<float>(v[0]) / 12.0f, out.co[1] + static_cast<float>(v[1]) / 12.0f,
                           out.co[2] + static_cast<float>(v[2]) / 12.0f});
      out.centring_code = zbelongv({2 * out.co[0], 2 * out.co[1], 2 * out.co[2]}) ? 2 : 0;
      if (out.centring_code == 2) out.co = vec3f{};
    }
  }

  // The inversion is carried by the centring code, not by the table.
  const mat3i inversion = {{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}};
  std::vector<element12_type> table = {{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}}};
  for (const auto& g : generators) {
    if (g.rot == inversion && out.centring_code != 1) continue;
    if (!add_element(table, g, out.lattice_code)) return;
  }
  if (!close_element_table(table, out.lattice_code)) return;
  latsym(red.substr(lattice, 1));
  expand_element_table(table, out);
}
