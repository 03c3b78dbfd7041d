// The Hall symbol of a group made from generators. First among the settings
// of the table: the lattice part ("-P", "C", ...) selects the candidates, and
// a candidate is the group's when its Hall symbol expands to the same
// operators, translations compared modulo the cell. Failing that, a symbol is
// written: the generators are taken place by place among the reduced
// operators (made proper when the group is centric), each as its sign,
// order, axis symbol unless it is the place's default, and translation
// letters or screw digit, with an origin shift when the group needs one; the
// symbol counts only if it expands to the group again. The record gets it
// free of blanks, the shift in twelfths behind it in "[ ]": "-P1[-3,0,0]".
#include <algorithm>
#include <cmath>
#include <set>

#include "crystal/fixed_text.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_symmetry_element_table.h"
#include "crystal/vant_symmetry_hall_tables.h"
#include "crystal/vant_string_utilities_fraction.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

using operator_key = std::array<std::int32_t, 12>;

// An operator as its rotation and its translation in 24ths, 0 to 23.
operator_key key_of(const mat3i& rot, const vec3f& t) {
  operator_key k{};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) k[static_cast<std::size_t>(3 * i + j)] = rot[i][j];
  for (int i = 0; i < 3; ++i) {
    k[static_cast<std::size_t>(9 + i)] = static_cast<std::int32_t>(((std::lround(t[i] * 24.0f) % 24) + 24) % 24);
  }
  return k;
}

// The operators a Hall symbol expands to, as keys; the lattice state of the
// module is left as it was.
bool hall_operators(const std::string& hall, std::set<operator_key>& keys, std::int32_t& generators) {
  symmetry_build_type g;
  {
    const lattice_state_keeper keep;
    get_so_from_hall(hall, g);
  }
  const bool ok = !err_symm;
  init_err_symm();
  keys.clear();
  for (std::size_t k = 0; k < g.ss.size(); ++k) keys.insert(key_of(g.ss[k], g.ts[k]));
  generators = g.count;
  return ok;
}

// The operators of a row's Hall symbol, worked out once for each row: naming
// a group compares it with many rows, and the rows never change.
struct row_operators {
  bool known = false, ok = false;
  std::set<operator_key> keys;
  std::int32_t generators = 0;
};

const row_operators& operators_of_row(std::size_t k) {
  static std::vector<row_operators> rows(spgr_info.size());
  row_operators& r = rows[k];
  if (!r.known) r.ok = hall_operators(spgr_info[k].hall, r.keys, r.generators), r.known = true;
  return r;
}

// The translation letters of a vector in twelfths: the fewest rows of
// tras_val that add up to it modulo the cell, in lower case; the numbers in
// brackets when no sum does.
std::string translation_letters(const vec3i& t) {
  std::string best;
  bool found = false;
  for (unsigned subset = 0; subset < 256; ++subset) {
    vec3i sum{};
    std::string letters;
    for (int k = 0; k < 8; ++k) {
      if (!(subset & (1u << k))) continue;
      for (int i = 0; i < 3; ++i) sum[i] += tras_val[k][i];
      letters += static_cast<char>(hall_letters[k] - 'A' + 'a');
    }
    bool equal = true;
    for (int i = 0; i < 3; ++i) equal = equal && (((sum[i] - t[i]) % 12) + 12) % 12 == 0;
    if (equal && (!found || letters.size() < best.size())) {
      best = letters;
      found = true;
    }
  }
  if (found) return best;
  return "(" + std::to_string(t[0]) + "," + std::to_string(t[1]) + "," + std::to_string(t[2]) + ")";
}

// The translation of a generator: letters, or for a three-, four- or
// six-fold screw along a cell axis whose pitch no letters give, the screw
// digit (12 d / order twelfths along the axis) and letters for the rest.
std::string translation_text(int order, int axis, const vec3i& t) {
  const std::string letters = translation_letters(t);
  if (letters[0] != '(' || order < 3 || axis > axis_z) return letters;
  const int along = ((t[axis - 1] % 12) + 12) % 12;
  for (int d = 1; d < order && d <= 5; ++d) {
    if (12 * d / order != along) continue;
    vec3i rest = t;
    rest[axis - 1] = 0;
    return std::to_string(d) + translation_letters(rest);
  }
  return letters;
}

// The reduced operators of a group, each made proper through the centre when
// the group is centric, translations in twelfths within the cell.
std::vector<element12_type> proper_operators(const space_group_type& spg) {
  std::vector<element12_type> ops;
  const std::size_t reduced = std::min(static_cast<std::size_t>(std::max(spg.num_ops, 0)), spg.sym_op.size());
  for (std::size_t k = 0; k < reduced; ++k) {
    element12_type e{spg.sym_op[k].rot, to_twelfths(spg.sym_op[k].tr)};
    if (spg.centred != 1 && axes_rotation(e.rot) < 0) {
      // its partner through the centre, which is proper
      const vec3i twice = to_twelfths({2 * spg.centre_coord[0], 2 * spg.centre_coord[1], 2 * spg.centre_coord[2]});
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) e.rot[i][j] = -e.rot[i][j];
        e.t[i] = twice[i] - e.t[i];
      }
    }
    reduce_translation(e.t, 1);
    ops.push_back(e);
  }
  return ops;
}

// A generator of a written symbol: its place in the proper operators and how
// its rotation is written.
struct hall_generator {
  std::size_t op;
  int order, axis, sign;
  bool default_axis;
};

// The generators of the symbol, place by place. They depend on the rotations
// only, so that every origin shift writes the same ones. False when an
// operator needed as a generator has no description.
bool choose_generators(const std::vector<element12_type>& ops, std::vector<hall_generator>& generators) {
  std::set<mat3i> wanted;
  for (const auto& e : ops) wanted.insert(e.rot);
  std::vector<element12_type> chosen = {{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}}};
  int first_order = 0, first_axis = axis_z;
  generators.clear();
  for (int place = 1; place <= 4; ++place) {
    std::vector<element12_type> closed = chosen;
    close_element_table(closed, 1);
    init_err_symm();
    std::set<mat3i> have;
    for (const auto& e : closed) have.insert(e.rot);
    if (have == wanted) break;
    const std::vector<int> orders = place == 1 ? std::vector<int>{6, 4, 3, 2} : place == 3 ? std::vector<int>{3, 2} : std::vector<int>{2};
    bool placed = false;
    for (int order : orders) {
      for (int sign : {1, -1}) {
        const int preferred = default_axis(place, order, first_order);
        for (int axis : {preferred, int(axis_z), int(axis_x), int(axis_y), int(axis_prime), int(axis_second), int(axis_star)}) {
          mat3i r;
          if (placed || !rotation_matrix(order, axis, place == 1 ? axis : first_axis, r)) continue;
          if (sign < 0) {
            for (auto& row : r)
              for (auto& v : row) v = -v;
          }
          const auto op = std::find_if(ops.begin(), ops.end(), [&r](const element12_type& e) { return e.rot == r; });
          if (op == ops.end() || have.count(r)) continue;
          generators.push_back({static_cast<std::size_t>(op - ops.begin()), order, axis, sign, axis == preferred});
          chosen.push_back(*op);
          if (place == 1) first_order = order, first_axis = axis;
          placed = true;
        }
      }
    }
    if (!placed) return false;
  }
  return true;
}

// The symbol of the generators, with the translations the operators have.
std::string hall_text(const space_group_type& spg, const std::vector<element12_type>& ops,
                      const std::vector<hall_generator>& generators) {
  static const char* const axis_letters[] = {"", "x", "y", "z", "'", "\"", "*"};
  std::string text = (spg.centred != 1 ? "-" : "") + spg.spg_lat;
  for (const hall_generator& g : generators)
    text += std::string(" ") + (g.sign < 0 ? "-" : "") + std::to_string(g.order) +
            (g.default_axis ? "" : axis_letters[g.axis]) + translation_text(g.order, g.axis, ops[g.op].t);
  if (generators.empty()) text += " 1";
  return text;
}

// A written symbol that expands to the wanted operators: first with the
// origin as it is, then with an origin shift "(x y z)" in twelfths (each from
// -5 to 5), the smallest first.
bool write_hall_with_shift(const space_group_type& spg, const std::set<operator_key>& wanted, std::string& text,
                           std::int32_t& count) {
  std::vector<vec3i> shifts;
  for (int x = -5; x <= 5; ++x)
    for (int y = -5; y <= 5; ++y)
      for (int z = -5; z <= 5; ++z) shifts.push_back({x, y, z});
  std::stable_sort(shifts.begin(), shifts.end(), [](const vec3i& a, const vec3i& b) {
    return std::abs(a[0]) + std::abs(a[1]) + std::abs(a[2]) < std::abs(b[0]) + std::abs(b[1]) + std::abs(b[2]);
  });
  std::vector<hall_generator> generators;
  if (!choose_generators(proper_operators(spg), generators)) return false;
  count = static_cast<std::int32_t>(generators.size());
  for (const vec3i& v : shifts) {
    // The group seen from the shifted origin: t - v + R.v.
    space_group_type moved = spg;
    const vec3f s = {static_cast<float>(v[0]) / 12.0f, static_cast<float>(v[1]) / 12.0f,
                     static_cast<float>(v[2]) / 12.0f};
    for (auto& op : moved.sym_op) {
      vec3f t = op.tr;
      for (int i = 0; i < 3; ++i) {
        t[i] -= s[i];
        for (int j = 0; j < 3; ++j) t[i] += static_cast<float>(op.rot[i][j]) * s[j];
      }
      op.tr = modulo_lat(t);
    }
    moved.centre_coord = modulo_lat({spg.centre_coord[0] - s[0], spg.centre_coord[1] - s[1], spg.centre_coord[2] - s[2]});
    const std::string symbol = hall_text(moved, proper_operators(moved), generators);
    std::string candidate = symbol;
    std::string origin;  // as the record writes it
    if (v != vec3i{0, 0, 0}) {
      candidate += " (" + std::to_string(v[0]) + " " + std::to_string(v[1]) + " " + std::to_string(v[2]) + ")";
      origin = "[" + std::to_string(v[0]) + "," + std::to_string(v[1]) + "," + std::to_string(v[2]) + "]";
    }
    std::set<operator_key> written;
    std::int32_t read_back = 0;
    if (hall_operators(candidate, written, read_back) && written == wanted) {
      text = pack_string(symbol) + origin;
      return true;
    }
  }
  return false;
}

}  // namespace

void get_hallsymb_from_gener(space_group_type& spg, std::string* hall) {
  init_err_symm();
  set_spgr_info();
  std::set<operator_key> wanted;
  for (const auto& op : spg.sym_op) wanted.insert(key_of(op.rot, op.tr));

  const spgr_info_type* match = nullptr;
  std::int32_t generators = 0;
  for (std::size_t k = 0; k < spgr_info.size() && match == nullptr; ++k) {
    // The lattice letter picks the candidates. The centre is left to the
    // operators: one off the origin is written "-1" behind the generators
    // ("P 2 2 -1n"), and may be at the origin too in a centred lattice
    // ("B 2ab 2c -1ac").
    const std::string& symbol = spgr_info[k].hall;
    if (symbol.substr(symbol[0] == '-', 2) != spg.spg_lat + " ") continue;
    const row_operators& row = operators_of_row(k);
    if (row.ok && row.keys == wanted) match = &spgr_info[k], generators = row.generators;
  }

  if (match == nullptr) {
    spg.spg_symb = "Unknown";
    spg.info = fixed_text::assigned("Gen. ", 5);
    spg.sg_setting = "Non-standard Setting";
    std::string text;
    std::int32_t count = 0;
    if (!write_hall_with_shift(spg, wanted, text, count)) {
      set_err_symm(" Error in generators");
      if (hall) hall->clear();
      return;
    }
    spg.hall = text;
    spg.gen_hall = text;
    spg.num_gen = count;
    if (hall) *hall = fixed_text::assigned(text, 40);
    return;
  }
  spg.numspg = match->n;
  spg.spg_symb = match->hm;
  spg.hall = match->hall;
  if (match->laue >= 1 && match->laue <= 16) spg.laue = laue_class[static_cast<std::size_t>(match->laue - 1)];
  if (match->pg >= 1 && match->pg <= 41) spg.pg = point_group[static_cast<std::size_t>(match->pg - 1)];
  spg.info = match->inf_extra;
  spg.sg_setting = "Tabulated Setting";
  spg.num_gen = generators;
  if (hall) *hall = fixed_text::assigned(match->hall, 40);
}
