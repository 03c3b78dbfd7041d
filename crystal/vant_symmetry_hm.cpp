// The operators of a space group from its Hermann-Mauguin symbol.
//
// The symbol is cut into its parts and judged; each part names a rotation
// along, and a plane perpendicular to, the symmetry direction of its place,
// with the screw or glide translation its digits and letters give. Where each
// element lies is not in the symbol: the elements are placed one after the
// other (the first at the origin), each where the products of all placed
// elements stay a group; an element whose rotation the others already make
// must be there with its own screw or glide part. When the symbol is a
// setting of the table, a placement counts only if some move of the origin
// (in 24ths) makes its operators those of the setting's Hall symbol, and the
// list then takes the table's origin and order; any other symbol keeps the
// first placement found, its origin on the centre of symmetry if there is one.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <vector>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
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

const mat3i identity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

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
      set_err_symm(" The symbol: " + part + " is not allowed");
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
      set_err_symm(" The symbol: " + part + " is not allowed");
      return false;
    }
    m.rot = negated(m.rot);
    m.t = glide(*plane, d);
    gens.push_back(m);
  }
  return true;
}

// The centring vectors of the lattice last decoded, in twelfths.
std::vector<vec3i> centring_twelfths() {
  std::vector<vec3i> out;
  for (std::int32_t l = 0; l < std::max(nlat, 1); ++l) out.push_back(to_twelfths(ltr[static_cast<std::size_t>(l)]));
  return out;
}

// True when two translations in twelfths differ by a lattice vector.
bool same_translation(const vec3i& a, const vec3i& b, const std::vector<vec3i>& centring) {
  for (const auto& c : centring) {
    bool equal = true;
    for (int i = 0; i < 3; ++i) equal = equal && (a[i] - b[i] - c[i]) % 12 == 0;
    if (equal) return true;
  }
  return false;
}

// The positions an element of rotation R may take: translations (I - R).p
// in twelfths, p running over the 24ths of the cell (a d-glide plane lies at
// an eighth), each once.
std::vector<vec3i> positions_of_rotation(const mat3i& rot) {
  std::vector<vec3i> out;
  std::vector<bool> seen(12 * 12 * 12, false);
  for (int x = 0; x < 24; ++x) {
    for (int y = 0; y < 24; ++y) {
      for (int z = 0; z < 24; ++z) {
        const int p[3] = {x, y, z};
        vec3i v;
        bool whole = true;
        for (int i = 0; i < 3; ++i) {
          int twice = p[i];
          for (int j = 0; j < 3; ++j) twice -= rot[i][j] * p[j];
          whole = whole && twice % 2 == 0;
          v[i] = (((twice / 2) % 12) + 12) % 12;
        }
        const std::size_t index = static_cast<std::size_t>((v[0] * 12 + v[1]) * 12 + v[2]);
        if (whole && !seen[index]) {
          seen[index] = true;
          out.push_back(v);
        }
      }
    }
  }
  return out;
}

// The positions of a rotation, kept once worked out: the groups of the
// table share a few dozen rotations, and the walk over the cell's 24ths is
// most of the time a symbol takes.
const std::vector<vec3i>& placements(const mat3i& rot) {
  static std::map<mat3i, std::vector<vec3i>> known;
  auto it = known.find(rot);
  if (it == known.end()) it = known.emplace(rot, positions_of_rotation(rot)).first;
  return it->second;
}

// The positions each element may take, for the whole search: the first
// element stands at the origin.
std::vector<const std::vector<vec3i>*> placements_of(const std::vector<element12_type>& elements) {
  static const std::vector<vec3i> origin = {vec3i{0, 0, 0}};
  std::vector<const std::vector<vec3i>*> where;
  for (std::size_t k = 0; k < elements.size(); ++k) where.push_back(k == 0 ? &origin : &placements(elements[k].rot));
  return where;
}

// The search for where the elements lie: the group table, closed again
// after each element placed, with the lattice that reduces its translations.
// A rotation is found in the table in one look-up: its nine entries (each
// -1, 0 or 1 in any setting a symbol can name) read as a number in base 3
// pick a slot holding its place. A trial that fails cuts the table back and
// leaves the slots as they are: a slot pointing past the end, or at an
// element of another rotation, is empty.
class placement_search {
 public:
  placement_search(const std::vector<element12_type>& elements, std::int32_t lattice_code)
      : elements_(elements), where_(placements_of(elements)), lattice_code_(lattice_code),
        centring_(centring_twelfths()), places_(slot_count, 0) {
    table_.reserve(2 * max_elements);
    table_.push_back({identity, {0, 0, 0}});  // every slot points at it, and only its own holds
  }

  // Places the elements from `next` on, depth first, each at one of its
  // positions; a complete placement counts when `accept` takes the group it
  // makes.
  template <typename Accept>
  bool place(std::size_t next, Accept& accept) {
    if (next == elements_.size()) return accept(table_);
    const std::size_t before = table_.size();
    for (const auto& v : *where_[next]) {
      element12_type placed = elements_[next];
      for (int i = 0; i < 3; ++i) placed.t[i] += v[i];
      if (add_consistent(placed) && place(next + 1, accept)) return true;
      table_.resize(before);
    }
    return false;
  }

 private:
  static constexpr std::size_t slot_count = 19683;  // 3^9

  // The slot of a rotation, or slot_count for one with larger entries.
  static std::size_t slot_of(const mat3i& rot) {
    std::size_t slot = 0;
    for (const auto& row : rot) {
      for (const std::int32_t v : row) {
        if (v < -1 || v > 1) return slot_count;
        slot = 3 * slot + static_cast<std::size_t>(v + 1);
      }
    }
    return slot;
  }

  const element12_type* find(const mat3i& rot) const {
    const std::size_t slot = slot_of(rot);
    if (slot == slot_count) {
      const auto it = std::find_if(table_.begin(), table_.end(), [&rot](const element12_type& t) { return same_rotation(t.rot, rot); });
      return it == table_.end() ? nullptr : &*it;
    }
    const std::size_t place = places_[slot];
    return place < table_.size() && same_rotation(table_[place].rot, rot) ? &table_[place] : nullptr;
  }

  // Takes an element whose translation is reduced; false when its rotation
  // is there with another translation or the table outgrows the largest
  // point group with inversion.
  bool insert(const element12_type& p) {
    if (const element12_type* there = find(p.rot)) return same_translation(there->t, p.t, centring_);
    if (table_.size() >= 2 * max_elements) return false;
    if (const std::size_t slot = slot_of(p.rot); slot != slot_count) places_[slot] = static_cast<std::uint8_t>(table_.size());
    table_.push_back(p);
    return true;
  }

  // Adds an element to the closed table and closes it again; false when a
  // product contradicts an element already there (the placement is no
  // group). Only products with a new element can add anything, and those
  // have the newer factor at i.
  bool add_consistent(const element12_type& e) {
    const std::size_t first_new = table_.size();
    element12_type reduced = e;
    reduce_translation(reduced.t, lattice_code_);
    if (!insert(reduced)) return false;
    for (std::size_t i = first_new; i < table_.size(); ++i) {
      for (std::size_t j = 0; j <= i; ++j) {
        if (!insert(multiply(table_[i], table_[j], lattice_code_)) || !insert(multiply(table_[j], table_[i], lattice_code_)))
          return false;
      }
    }
    return true;
  }

  const std::vector<element12_type>& elements_;
  std::vector<const std::vector<vec3i>*> where_;  // the positions of each element
  std::int32_t lattice_code_;
  std::vector<vec3i> centring_;  // in twelfths
  std::vector<element12_type> table_;
  std::vector<std::uint8_t> places_;  // by slot, the place of its rotation in table_
};

// Moves the origin of an expanded list by s: t becomes t + s - R.s.
void shift_origin(symmetry_build_type& out, const vec3f& s) {
  for (std::size_t k = 0; k < out.ss.size(); ++k) {
    vec3f t = out.ts[k];
    move_origin(out.ss[k], t, s);
    out.ts[k] = modulo_lat(t);
  }
  out.co = modulo_lat({out.co[0] + s[0], out.co[1] + s[1], out.co[2] + s[2]});
}

// One operator of a list as the conditions on a move of the origin by s (in
// 24ths) under which it becomes an operator of another list: row i of
// t + s - R.s, that is t[i] + a.s with a = row i of I - R, must be the row of
// one translation the other list holds with R.
struct shift_condition {
  std::array<vec3i, 3> a;           // rows of I - R
  vec3i t;                          // translation in 24ths
  std::array<int, 3> last;          // highest coordinate a row involves, -1 for none
  const std::vector<vec3i>* wanted;  // the other list's translations with R, in 24ths
};

int in_24ths(float v) { return static_cast<int>(((std::lround(v * 24.0f) % 24) + 24) % 24); }

// True when each condition holds for one of its translations, counting only
// the rows that involve the first `known` coordinates of s alone.
bool conditions_hold(const std::vector<shift_condition>& conditions, const vec3i& s, int known) {
  for (const shift_condition& c : conditions) {
    const bool any = std::any_of(c.wanted->begin(), c.wanted->end(), [&](const vec3i& u) {
      for (int i = 0; i < 3; ++i) {
        if (c.last[i] >= known) continue;
        const int row = c.t[i] + c.a[i][0] * s[0] + c.a[i][1] * s[1] + c.a[i][2] * s[2];
        if (((row - u[i]) % 24 + 24) % 24 != 0) return false;
      }
      return true;
    });
    if (!any) return false;
  }
  return true;
}

// A move of the origin that satisfies all conditions, found coordinate by
// coordinate: each value of the next coordinate is kept only while the rows
// it settles hold, so few of the cell's 24^3 moves are ever looked at.
bool shift_exists(const std::vector<shift_condition>& conditions, vec3i& s, int known) {
  if (known == 3) return true;
  for (int v = 0; v < 24; ++v) {
    s[known] = v;
    if (conditions_hold(conditions, s, known + 1) && shift_exists(conditions, s, known + 1)) return true;
  }
  return false;
}

// The table's group of a symbol: its row's Hall symbol expanded once for
// the whole search (the expansion decodes its lattice again; ours stays).
struct table_group {
  std::int32_t row = 0;  // the symbol's row of the table, 0 for none
  bool made = false;
  bool ok = false;
  symmetry_build_type target;
  std::map<mat3i, std::vector<vec3i>> by_rotation;  // its translations in 24ths
};

void make_table_group(const std::string& hall, table_group& table) {
  table.made = true;
  {
    const lattice_state_keeper keep;
    get_so_from_hall(hall, table.target);
  }
  table.ok = !err_symm;
  for (std::size_t k = 0; k < table.target.ss.size(); ++k) {
    const vec3f& t = table.target.ts[k];
    table.by_rotation[table.target.ss[k]].push_back({in_24ths(t[0]), in_24ths(t[1]), in_24ths(t[2])});
  }
}

// Moves the origin to the one of the table's setting with this symbol; false
// when no move (in 24ths) makes the two lists one group. The reduced
// operators and the centre's partner of the identity generate the list, so
// only they are compared.
bool align_with_table(table_group& table, symmetry_build_type& out) {
  if (table.row == 0) {
    if (out.centring_code == 0) {
      shift_origin(out, {-out.co[0], -out.co[1], -out.co[2]});
      out.centring_code = 2;
      out.co = vec3f{};
    }
    return true;
  }
  if (!table.made) make_table_group(spgr_info[static_cast<std::size_t>(table.row - 1)].hall, table);
  if (!table.ok || table.target.ss.size() != out.ss.size()) return false;
  const std::size_t generating = std::min(out.ss.size(), static_cast<std::size_t>(out.num_ops) + (out.centring_code != 1));
  std::vector<shift_condition> conditions;
  for (std::size_t k = 0; k < generating; ++k) {
    const auto it = table.by_rotation.find(out.ss[k]);
    if (it == table.by_rotation.end()) return false;
    shift_condition c{{}, {in_24ths(out.ts[k][0]), in_24ths(out.ts[k][1]), in_24ths(out.ts[k][2])}, {-1, -1, -1}, &it->second};
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        c.a[i][j] = (i == j) - out.ss[k][i][j];
        if (c.a[i][j] != 0) c.last[i] = j;
      }
    }
    conditions.push_back(c);
  }
  vec3i s{};
  if (!shift_exists(conditions, s, 0)) return false;
  // Same group: the list takes the table's order and centre.
  const std::int32_t count = out.count;
  out = table.target;
  out.count = count;
  return true;
}

// The first fault of one direction's part, or nothing: a character
// repeated, a digit followed by a plane letter or the other way round, more
// than one plane, a pair of digits that is no screw axis.
std::string part_fault(const std::string& part) {
  for (std::size_t k = 0; k < 4; ++k) {
    const char c = part[k], next = k + 1 < 4 ? part[k + 1] : ' ';
    if (c == ' ') continue;
    if (part.find(c, k + 1) != std::string::npos)
      return std::string(" The symbol: ") + c + " has been repeated within the same symmetry direction";
    if (is_axis(c) && is_plane(next))
      return std::string(" A rotation axis cannot be immediately followed by a plane") + next + " within the same symmetry direction";
    if (is_plane(c) && is_axis(next))
      return std::string(" A mirror plane cannot be immediately followed by a rotation axis") + next +
             " within the same symmetry direction";
  }
  if (std::count_if(part.begin(), part.end(), is_plane) > 1) return " There is more than one plane within the same symmetry direction";
  for (std::size_t k = 0; k + 1 < 4; ++k) {
    const std::string pair = part.substr(k, 2);
    if (is_axis(pair[0]) && is_axis(pair[1]) && std::find(std::begin(screw_axes), std::end(screw_axes), pair) == std::end(screw_axes))
      return " Screw axis: " + pair + " not allowed";
  }
  return {};
}

// The crystal family a symbol's parts stand for, by the first test that
// holds, and its letter in latsy.
struct symbol_family {
  family_code family;
  char letter;
};

symbol_family family_of(const std::vector<std::string>& parts) {
  const auto starts = [](const std::string& part, const char* a) { return part.rfind(a, 0) == 0; };
  const auto starts_either = [&](const std::string& part, const char* a, const char* b) { return starts(part, a) || starts(part, b); };
  if (parts.size() >= 2 && starts_either(parts[1], "3", "-3")) return {cubic, 'c'};
  if (starts_either(parts[0], "3", "-3") || starts_either(parts[0], "6", "-6")) return {hexagonal, 'h'};
  if (starts_either(parts[0], "4", "-4")) return {tetragonal, 't'};
  if (parts.size() >= 2) {
    // A monoclinic symbol in full notation has a "1" among its first two parts.
    const bool full_monoclinic = fixed_text::same(parts[0], "1") || fixed_text::same(parts[1], "1");
    return full_monoclinic ? symbol_family{monoclinic, 'm'} : symbol_family{orthorhombic, 'o'};
  }
  if (parts[0] == "1" || starts(parts[0], "-")) return {triclinic, 'a'};
  return {monoclinic, 'm'};  // a short monoclinic symbol
}

// The group a complete placement makes, as a reduced list: the inversion
// goes to the centring code, and of each pair of rotations R and -R the
// first stays. In the table's origin and order when the symbol is a setting
// of the table; false when it is not that setting's group.
bool group_of_placement(const std::vector<element12_type>& group, std::int32_t generators, std::int32_t lattice_code,
                        table_group& setting, symmetry_build_type& out) {
  symmetry_build_type trial;
  trial.lattice_code = lattice_code;
  for (const auto& e : group) {
    if (e.rot != negated(identity)) continue;
    trial.centring_code = e.t == vec3i{0, 0, 0} ? 2 : 0;
    trial.co = {static_cast<float>(e.t[0]) / 24.0f, static_cast<float>(e.t[1]) / 24.0f, static_cast<float>(e.t[2]) / 24.0f};
  }
  std::vector<element12_type> reduced;
  for (const auto& e : group) {
    const bool partner = trial.centring_code != 1 && std::any_of(reduced.begin(), reduced.end(), [&e](const element12_type& r) {
                           return r.rot == negated(e.rot);
                         });
    if (!partner) reduced.push_back(e);
  }
  if (!expand_element_table(reduced, trial)) return false;
  trial.count = generators;
  if (!align_with_table(setting, trial)) return false;
  out = trial;
  return true;
}

}  // namespace

void check_symbol_hm(const std::array<std::string, 3>& table) {
  init_err_symm();
  for (const auto& part : table) {
    for (std::size_t k = 0; k < 4; ++k) {
      const char c = part[k];
      if (good.find(c) == std::string::npos || (c == '-' && k > 0) || (c == '/' && k == 0))
        return set_err_symm(std::string(" The symbol: ") + c + " is not allowed");
    }
  }
  for (const auto& part : table) {
    if (const std::string fault = part_fault(part); !fault.empty()) return set_err_symm(fault);
  }
}

void get_so_from_hms(const std::string& symbol, symmetry_build_type& out) {
  init_err_symm();
  out = symmetry_build_type{};
  std::string s = fixed_text::assigned(symbol.substr(std::min(symbol.size(), symbol.find_first_not_of(' '))), 20);
  s = u_case(s);
  spaceg = s;
  const auto wrong = [&symbol] { set_err_symm(" Wrong space-group symbol: " + symbol); };
  if (s.empty() || ibra.find(s[0]) == std::string::npos || s[0] == ' ') return wrong();
  std::vector<std::string> parts;
  for (std::size_t p = 1; p < s.size();) {
    while (p < s.size() && s[p] == ' ') ++p;
    if (p >= s.size()) break;
    const std::size_t end = std::min(s.size(), s.find(' ', p));
    parts.push_back(s.substr(p, end - p));
    p = end;
  }
  if (parts.empty() || parts.size() > 3) return wrong();
  std::array<std::string, 3> table = {"    ", "    ", "    "};
  for (std::size_t k = 0; k < parts.size(); ++k) {
    if (parts[k].size() > 4) return wrong();
    table[k] = fixed_text::padded(parts[k], 4);
  }
  const auto [family, letter] = family_of(parts);
  if (family == monoclinic && parts.size() == 1) table = {"1   ", fixed_text::padded(parts[0], 4), "1   "};  // the unique axis is b
  check_symbol_hm(table);
  if (err_symm) return;
  const std::string lattice(1, s[0]);
  latsym(lattice);
  if (err_symm) return;
  out.lattice_code = inlat;

  direction places[3] = {dir_a, dir_b, dir_c};
  if (family == tetragonal) places[0] = dir_c, places[1] = dir_a, places[2] = dir_1m10;
  if (family == hexagonal) places[0] = dir_c, places[1] = dir_hex_a, places[2] = dir_1m10;
  if (family == cubic) places[0] = dir_c, places[1] = dir_111, places[2] = dir_1m10;
  // The cubic groups all have a three-fold axis through the origin: it goes
  // first, so that the others are placed around it.
  const int order[3] = {family == cubic ? 1 : 0, family == cubic ? 0 : 1, 2};
  std::vector<element12_type> gens;
  for (int k : order) {
    const std::string part(fixed_text::trimmed(table[k]));
    if (!part.empty() && !part_generators(part, places[k], gens)) return;
  }
  set_spgr_info();
  table_group setting;
  setting.row = spgr_row_of_symbol(s);
  // A placement counts when its group, in the table's origin, is the
  // table's group of this symbol (a lattice may hold a screw axis and a
  // rotation axis of one direction, so the first placement need not be it).
  const auto accept = [&](const std::vector<element12_type>& group) {
    return group_of_placement(group, static_cast<std::int32_t>(gens.size()), out.lattice_code, setting, out);
  };
  if (!placement_search(gens, out.lattice_code).place(0, accept)) return wrong();
  out.latsy = std::string(1, letter) + lattice;
}
