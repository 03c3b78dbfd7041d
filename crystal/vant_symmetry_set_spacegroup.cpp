// set_spacegroup: from a text or a list of operators to the complete record.
#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "crystal/fixed_text.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

// Operators a list may hold.
constexpr std::size_t max_list = 384;

// The rows that go by Hall symbol only (counted from 1).
constexpr std::int32_t hall_only_rows[] = {211, 213, 215, 375, 429, 457, 463};


std::string left_adjusted(const std::string& s) {
  const auto p = s.find_first_not_of(' ');
  return p == std::string::npos ? std::string() : std::string(fixed_text::trimmed(s.substr(p)));
}

const spgr_info_type& table_row(std::int32_t row) { return spgr_info[static_cast<std::size_t>(row - 1)]; }

std::int32_t first_row_of_number(std::int32_t number) {
  for (std::size_t k = 0; k < spgr_info.size(); ++k) {
    if (spgr_info[k].n == number) return static_cast<std::int32_t>(k) + 1;
  }
  return 0;
}

// The row of a symbol. A setting the table writes without its suffix is
// found with it too: "R -3:H" (hexagonal axes) and "F D -3 M:2" (second
// origin) name the rows "R -3" and "F D -3 M", whose setting column holds
// "H" and "2".
std::int32_t row_by_hm(const std::string& hm) {
  if (const std::int32_t row = spgr_row_of_symbol(hm)) return row;
  const auto colon = hm.find(':');
  if (colon == std::string::npos) return 0;
  const std::string head = hm.substr(0, colon);
  const std::string setting = left_adjusted(hm.substr(colon + 1));
  for (std::size_t k = 0; k < spgr_info.size(); ++k) {
    if (fixed_text::same(spgr_info[k].hm, head) && fixed_text::same(u_case(spgr_info[k].inf_extra), setting))
      return static_cast<std::int32_t>(k) + 1;
  }
  return 0;
}

std::int32_t row_by_hall(const std::string& hall) {
  for (std::size_t k = 0; k < spgr_info.size(); ++k) {
    if (fixed_text::same(u_case(spgr_info[k].hall), hall)) return static_cast<std::int32_t>(k) + 1;
  }
  return 0;
}

// With two origin choices, the second is taken for an origin of 0 or 2.
std::int32_t origin_row(std::int32_t row, std::int32_t origin) {
  if (row > 0 && table_row(row).hm.find(':') != std::string::npos && (origin == 0 || origin == 2)) return row + 1;
  return row;
}

// Reads operator texts into the work lists; false on the first failure.
bool read_operators(const std::vector<std::string>& texts, std::size_t count, std::vector<mat3i>& ss,
                    std::vector<vec3f>& ts) {
  ss.assign(count, mat3i{});
  ts.assign(count, vec3f{});
  for (std::size_t k = 0; k < count; ++k) {
    read_xsym(texts[k], 1, ss[k], &ts[k]);
    if (err_symm) return false;
  }
  return true;
}

// The generators of the "ITC" way: the text of spg_gen split at ";".
std::vector<std::string> split_generators(const std::string& gener) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  while (start <= gener.size() && pieces.size() < 9) {
    const auto end = gener.find(';', start);
    const std::string piece = left_adjusted(gener.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (!piece.empty()) pieces.push_back(piece);
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return pieces;
}

// The generators of a number are written for its second origin, with the
// centre at the origin. The first origin's row names a centre in its Hall
// symbol ("F 4d 2 3 -1d": at d/2), known up to half a lattice vector; seen
// from the right one, c, each generator (R, t) becomes (R, t + c - R c), an
// operator of the row's group.
bool is_operator_of(const symmetry_build_type& group, const mat3i& rot, const vec3f& t) {
  for (std::size_t k = 0; k < group.ss.size(); ++k) {
    const vec3f d = {group.ts[k][0] - t[0], group.ts[k][1] - t[1], group.ts[k][2] - t[2]};
    if (group.ss[k] == rot && zbelongv(d)) return true;
  }
  return false;
}

void move_to_first_origin(std::vector<mat3i>& ss, std::vector<vec3f>& ts, std::int32_t row) {
  symmetry_build_type first;
  get_so_from_hall(table_row(row).hall, first);
  // Half a lattice vector: half a whole cell step along each axis, plus
  // half a centring vector of the row's lattice.
  for (int half = 0; half < 8 * nlat; ++half) {
    const vec3f& l = ltr[static_cast<std::size_t>(half / 8)];
    vec3f c;
    for (int i = 0; i < 3; ++i) c[i] = first.co[i] + 0.5f * (static_cast<float>((half >> i) & 1) + l[i]);
    std::vector<vec3f> moved = ts;
    bool all = true;
    for (std::size_t k = 0; k < ss.size() && all; ++k) {
      for (int i = 0; i < 3; ++i) {
        moved[k][i] += c[i];
        for (int j = 0; j < 3; ++j) moved[k][i] -= static_cast<float>(ss[k][i][j]) * c[j];
      }
      all = is_operator_of(first, ss[k], moved[k]);
    }
    if (all) {
      ts = moved;
      return;
    }
  }
}

std::int32_t generators_by_number(std::int32_t n) {
  if (n == 1 || n == 2) return 0;
  if ((n >= 3 && n <= 15) || (n >= 75 && n <= 88) || (n >= 143 && n <= 148) || (n >= 168 && n <= 176)) return 1;
  if ((n >= 16 && n <= 74) || (n >= 89 && n <= 142) || (n >= 149 && n <= 167) || (n >= 177 && n <= 194)) return 2;
  if (n >= 195 && n <= 230) return 3;
  return 0;
}

// The inversion partners and centring copies of a fixed list (the "FIX" way).
void expand_fixed_list(space_group_type& g) {
  const std::size_t reduced = static_cast<std::size_t>(g.num_ops);
  std::size_t n = reduced;
  if (g.centred != 1) {
    const vec3f twice = g.centred == 0 ? vec3f{2 * g.centre_coord[0], 2 * g.centre_coord[1], 2 * g.centre_coord[2]} : vec3f{};
    for (std::size_t k = 0; k < reduced; ++k, ++n) {
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) g.sym_op[n].rot[i][j] = -g.sym_op[k].rot[i][j];
      const vec3f& t = g.sym_op[k].tr;
      g.sym_op[n].tr = modulo_lat({twice[0] - t[0], twice[1] - t[1], twice[2] - t[2]});
    }
  }
  const std::size_t block = n;
  for (std::int32_t l = 1; l < g.num_lat; ++l) {
    const vec3f& c = g.latt_trans[static_cast<std::size_t>(l)];
    for (std::size_t k = 0; k < block; ++k, ++n) {
      g.sym_op[n].rot = g.sym_op[k].rot;
      const vec3f& t = g.sym_op[k].tr;
      g.sym_op[n].tr = modulo_lat({t[0] + c[0], t[1] + c[1], t[2] + c[2]});
    }
  }
}

// Texts and indices of a table row go into the record.
void complete_from_row(space_group_type& g, std::int32_t row) {
  const spgr_info_type& r = table_row(row);
  g.numspg = r.n;
  g.spg_symb = fixed_text::assigned(r.hm, 12);
  g.hall = r.hall;
  if (r.laue >= 1 && r.laue <= 16) {
    g.laue = laue_class[static_cast<std::size_t>(r.laue - 1)];
  } else {
    set_err_symm(" Laue Number Incorrect");
  }
  if (r.pg >= 1 && r.pg <= 41) {
    g.pg = point_group[static_cast<std::size_t>(r.pg - 1)];
  } else {
    set_err_symm(" Point Group Number Incorrect");
  }
  g.info = r.inf_extra;
  for (int i = 0; i < 3; ++i) {
    g.r_asym_unit[i][0] = static_cast<float>(r.asu[i]) * one_24th;
    g.r_asym_unit[i][1] = static_cast<float>(r.asu[i + 3]) * one_24th;
  }
}

// The Wyckoff row of a symbol. A symbol the table of positions leaves out
// ("P 2") takes the row of another spelling of the same setting, the one
// with the same Hall symbol ("P 1 2 1"). Both look-ups go through indexes
// made once: the tables are constants, released and made again in the same
// order.
const wyckoff_info_type* wyckoff_row(const std::string& symbol, const std::string& hall) {
  static std::map<std::string, std::size_t, std::less<>> by_symbol, by_hall;
  if (by_symbol.empty()) {
    for (std::size_t k = 0; k < wyckoff_info.size(); ++k)
      by_symbol.emplace(fixed_text::trimmed(wyckoff_info[k].hm), k);
    for (const auto& r : spgr_info) {
      const auto w = by_symbol.find(fixed_text::trimmed(r.hm));
      if (w != by_symbol.end()) by_hall.emplace(fixed_text::trimmed(r.hall), w->second);
    }
  }
  if (const auto s = by_symbol.find(fixed_text::trimmed(symbol)); s != by_symbol.end()) return &wyckoff_info[s->second];
  const auto h = by_hall.find(fixed_text::trimmed(hall));
  return h == by_hall.end() ? nullptr : &wyckoff_info[h->second];
}

void complete_wyckoff(space_group_type& g) {
  if (fixed_text::is_blank(g.spg_symb)) return;
  if (const wyckoff_info_type* found = wyckoff_row(g.spg_symb.substr(0, 12), g.hall)) {
    const wyckoff_info_type& w = *found;
    g.wyckoff.count = w.orbits;
    for (std::int32_t k = 0; k < w.orbits; ++k) {
      wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(k)];
      p.origin = w.orbit[static_cast<std::size_t>(k)];
      wyckoff_orbit(g, p.origin, p.orbit_count, p.orbit);
      p.multiplicity = g.num_lat * p.orbit_count;
    }
  }
}

// Letters after the first in lower case, up to a ":".
void lower_symbol(std::string& s) {
  const auto colon = s.find(':');
  const std::size_t end = colon == std::string::npos ? s.size() : colon;
  for (std::size_t k = 1; k < end; ++k) s[k] = static_cast<char>(std::tolower(static_cast<unsigned char>(s[k])));
}

// How a call builds its group: by a Hall symbol, a Hermann-Mauguin symbol,
// the generators listed for a number, or the operators it is given (made into
// a group, or taken as the reduced list of a group).
enum class route { hall, hm, itc, generators, fixed_list };

// The route picked, the table row it names (0 for none) and the text its
// builder reads: a Hall symbol, a symbol or a number.
struct pick_type {
  route way = route::hall;
  std::int32_t row = 0;
  std::string text;
};

// A number's text before a ":" and the origin choice after it (0 when none
// is read).
struct numbered_text {
  std::string head;
  std::int32_t origin = 0;
};

numbered_text split_origin(const std::string& text) {
  const auto colon = text.find(':');
  numbered_text n{text.substr(0, colon)};
  if (colon != std::string::npos && !read_integer(text.substr(colon + 1), n.origin)) n.origin = 0;
  return n;
}

// The route a mode names by its first three letters.
std::optional<route> route_of_mode(const std::string& mode) {
  static constexpr std::pair<std::string_view, route> modes[] = {
      {"HAL", route::hall},       {"HMS", route::hm},         {"ITC", route::itc},
      {"GEN", route::generators}, {"FIX", route::fixed_list}};
  const std::string key = u_case(left_adjusted(mode)).substr(0, 3);
  for (const auto& [name, way] : modes) {
    if (name == key) return way;
  }
  return std::nullopt;
}

// The route a mode forces, with the row the text names that way. A number
// (with an origin choice) goes by its row's generators; a text that is no
// number, by its symbol's.
std::optional<pick_type> pick_by_mode(const std::string& mode, const std::string& spgm) {
  const std::optional<route> way = route_of_mode(mode);
  if (!way) {
    set_err_symm(" Problems in SpaceGroup");
    return std::nullopt;
  }
  pick_type p{*way, 0, spgm};
  if (p.way == route::hall) {
    p.row = row_by_hall(spgm);
  } else if (p.way == route::hm) {
    p.row = row_by_hm(spgm);
  } else if (p.way == route::itc) {
    const numbered_text n = split_origin(spgm);
    std::int32_t number = 0;
    if (!read_integer(n.head, number)) {
      p.row = row_by_hm(spgm);
    } else if (number < 1 || number > 230) {
      set_err_symm(" The number of the space group should be in the interval [1,230]");
      return std::nullopt;
    } else {
      p.row = origin_row(first_row_of_number(number), n.origin);
      p.text = n.head;
    }
  }
  return p;
}

// The route a text takes by itself: a number goes by its row's Hall symbol,
// a symbol of the table by the symbol (or its Hall symbol when forced or
// when the row goes by Hall symbol only), a Hall symbol of the table by
// itself; anything else is a list of operators when one is given, else a
// Hall symbol.
std::optional<pick_type> pick_by_text(const std::string& spgm, bool has_list, bool force_hall) {
  const numbered_text n = split_origin(spgm);
  std::array<float, 10> values{};
  std::array<std::int32_t, 10> integers{};
  std::int32_t found = 0;
  getnum(n.head, values, integers, found);
  if (found == 1) {
    if (integers[0] < 1 || integers[0] > 230) {
      set_err_symm(" Number of Space Group out of limits");
      return std::nullopt;
    }
    const std::int32_t row = origin_row(first_row_of_number(integers[0]), n.origin);
    return pick_type{route::hall, row, row > 0 ? u_case(table_row(row).hall) : spgm};
  }
  if (const std::int32_t row = row_by_hm(spgm)) {
    const bool hall_only =
        std::find(std::begin(hall_only_rows), std::end(hall_only_rows), row) != std::end(hall_only_rows);
    if (force_hall || hall_only) return pick_type{route::hall, row, u_case(table_row(row).hall)};
    return pick_type{route::hm, row, spgm};
  }
  const std::int32_t row = row_by_hall(spgm);
  return pick_type{row == 0 && has_list ? route::generators : route::hall, row, spgm};
}

// The operators of a list, made into a group or taken as a reduced list.
const char* build_from_list(const pick_type& p, const std::vector<std::string>* gen, const std::int32_t* ngen,
                            symmetry_build_type& built) {
  const bool fixed = p.way == route::fixed_list;
  if (!gen || !ngen) {
    set_err_symm(fixed ? " Generators should be provided if FIX option is Used"
               : " Generators should be provided in GEN calling Set_SpaceGroup");
    return nullptr;
  }
  const std::size_t count = std::min({static_cast<std::size_t>(std::max(*ngen, 0)), gen->size(), max_list});
  if (!fixed) {
    for (std::size_t k = 0; k < count; ++k) {
      bool ok = true;
      check_generator((*gen)[k], ok);
      if (!ok) return nullptr;
    }
  }
  std::vector<mat3i> ss;
  std::vector<vec3f> ts;
  if (!read_operators(*gen, count, ss, ts)) return nullptr;
  if (fixed) {
    get_so_from_fix(ss, ts, static_cast<std::int32_t>(count), p.text, built);
    return "Fixed symmetry operators (no info)";
  }
  get_so_from_gener(ss, ts, static_cast<std::int32_t>(count), p.text.substr(0, std::min<std::size_t>(p.text.size(), 1)),
                    built);
  return "Non-Conventional (user-given operators)";
}

// The generators the table lists for a number or symbol.
const char* build_from_itc(const pick_type& p, symmetry_build_type& built) {
  std::string gener;
  get_generators(p.text, gener);
  if (err_symtab) {
    set_err_symm(" Problems in SpaceGroup: " + std::string(fixed_text::trimmed(p.text)) +
         " => the HM symbol or the number is incorrect ");
    return nullptr;
  }
  const std::vector<std::string> pieces = split_generators(fixed_text::assigned(gener, 130));
  std::vector<mat3i> ss;
  std::vector<vec3f> ts;
  if (!read_operators(pieces, pieces.size(), ss, ts)) return nullptr;
  if (p.row > 0 && fixed_text::trimmed(table_row(p.row).hm).ends_with(":1")) move_to_first_origin(ss, ts, p.row);
  get_so_from_gener(ss, ts, static_cast<std::int32_t>(pieces.size()),
                    p.row > 0 ? table_row(p.row).hm.substr(0, 1) : std::string(), built);
  return "Generated from explicit IT generators";
}

// Builds the operators by the picked route. Gives the record's setting text,
// or nullptr when the call stops here with its message set; a builder that
// fails on the group itself leaves its message and gives the text.
const char* build_by_route(const pick_type& p, const std::string& spacegen, const std::vector<std::string>* gen,
                           const std::int32_t* ngen, symmetry_build_type& built) {
  switch (p.way) {
    case route::generators:
    case route::fixed_list:
      return build_from_list(p, gen, ngen, built);
    case route::itc:
      return build_from_itc(p, built);
    case route::hm:
      // A symbol given with a setting (":2", ":H") goes by its row's Hall
      // symbol; the parser reads symbols without one.
      if (spacegen.find(':') == std::string::npos || p.row <= 0) {
        const std::string given = left_adjusted(spacegen);
        get_so_from_hms(given.substr(0, given.find(':')), built);
        return "IT (Generated from Hermann-Mauguin symbol)";
      }
      get_so_from_hall(u_case(table_row(p.row).hall), built);
      return "Generated from Hall symbol";
    case route::hall:
      break;
  }
  get_so_from_hall(p.text, built);
  return "Generated from Hall symbol";
}

// Texts from the table row, or what the route knows without one.
void name_record(space_group_type& g, const pick_type& p, const std::string& spacegen) {
  if (p.row > 0) {
    complete_from_row(g, p.row);
  } else if (p.way == route::hall) {
    g.hall = fixed_text::assigned(p.text, 16);
  } else if (p.way == route::hm || p.way == route::itc) {
    g.spg_symb = fixed_text::assigned(left_adjusted(spacegen), 20);
  } else {
    g.spg_symb = "unknown";
    g.hall = "unknown";
    if (p.way == route::fixed_list) {
      g.info = "Fixed";
      g.laue.clear();
    }
  }
}

// Lattice and centre from the builder, as far as it came: a builder that
// fails leaves them for the caller to see beside its message.
void take_lattice_and_centre(space_group_type& g, const symmetry_build_type& built) {
  if (built.crystal_code >= 1 && built.crystal_code <= 7) {
    g.crystalsys = sys_cry[static_cast<std::size_t>(built.crystal_code - 1)];
  }
  if (!lat_ch.empty()) {
    g.spg_lat = lat_ch;
    g.num_lat = nlat;
    g.latt_trans.assign(ltr.begin(), ltr.begin() + std::clamp(nlat, 1, 192));
    if (inlat >= 1 && inlat <= 7) g.bravais = latt[static_cast<std::size_t>(inlat - 1)];
  }
  g.spg_latsy = built.latsy;
  g.centred = built.centring_code;
  g.centre = centro[static_cast<std::size_t>(std::clamp(built.centring_code, 0, 2))];
  g.centre_coord = built.co;
}

// Operators from the builder, with their texts. A fixed list holds the
// reduced operators, whose inversion partners and centring copies are added.
void take_operators(space_group_type& g, const symmetry_build_type& built, bool fixed) {
  g.num_ops = built.num_ops;
  const std::size_t listed = fixed ? static_cast<std::size_t>(built.num_ops) : built.ss.size();
  for (std::size_t k = 1; k < static_cast<std::size_t>(built.num_ops) && k < built.ss.size(); ++k) {
    const mat3i& r = built.ss[k];
    if (std::abs(r[0][0]) + std::abs(r[1][0]) + std::abs(r[2][0]) > 1 ||
        std::abs(r[0][1]) + std::abs(r[1][1]) + std::abs(r[2][1]) > 1) {
      g.hexa = true;
      break;
    }
  }
  hexa = g.hexa;

  g.multip = fixed ? nlat * built.num_ops * (built.centring_code == 1 ? 1 : 2) : static_cast<std::int32_t>(listed);
  g.sym_op.assign(static_cast<std::size_t>(g.multip), sym_oper_type{});
  g.sym_op_symb.assign(static_cast<std::size_t>(g.multip), std::string());
  for (std::size_t k = 0; k < listed && k < g.sym_op.size(); ++k) {
    g.sym_op[k].rot = built.ss[k];
    g.sym_op[k].tr = built.ts[k];
  }
  if (fixed) expand_fixed_list(g);
  for (std::size_t k = 0; k < g.sym_op.size(); ++k) {
    get_symsymbi(g.sym_op[k].rot, g.sym_op[k].tr, g.sym_op_symb[k]);
    g.sym_op_symb[k] = fixed_text::assigned(g.sym_op_symb[k], 50);
  }
}

// Fills the record from what the builder made. A builder's failure is the
// call's message, with the texts, lattice and centre filled as far as they
// go. A Hall symbol that can't be written for a group of generators is
// reported (" Error in generators"); the record is complete all the same.
void fill_record(space_group_type& g, const pick_type& p, const std::string& spacegen,
                 const symmetry_build_type& built) {
  const bool failed_build = err_symm;
  const std::string build_message = err_symm_mess;
  name_record(g, p, spacegen);
  take_lattice_and_centre(g, built);
  if (failed_build) {
    err_symm = true;
    err_symm_mess = build_message;
    return;
  }
  take_operators(g, built, p.way == route::fixed_list);
  if (p.row <= 0) get_laue_pg(g, g.laue, g.pg);
  if (g.centred == 0 && g.sym_op_symb.size() > static_cast<std::size_t>(g.num_ops)) {
    g.centre = fixed_text::assigned(g.centre + "  Gen(-1):" + g.sym_op_symb[static_cast<std::size_t>(g.num_ops)], 80);
  }
  init_err_symm();
  if (p.way == route::generators) get_hallsymb_from_gener(g);
  const bool unnamed = err_symm;
  const std::string naming_message = err_symm_mess;
  if (p.way == route::hm) {
    g.num_gen = generators_by_number(g.numspg);
  } else if (p.way == route::itc || p.way == route::hall) {
    g.num_gen = std::max(built.count, 0);
  }
  complete_wyckoff(g);
  lower_symbol(g.spg_symb);
  err_symm = unnamed;
  err_symm_mess = naming_message;
}

}  // namespace

void set_spacegroup(const std::string& spacegen, space_group_type& spacegroup, const std::vector<std::string>* gen,
                    const std::int32_t* ngen, const std::string* mode, bool force_hall) {
  // The default record copied over the target: its texts are emptied in
  // place, where building a new record would clear 1248 Wyckoff texts anew.
  static const space_group_type default_record{};
  spacegroup = default_record;
  init_err_symm();
  lat_ch.clear();  // no lattice decoded yet: an earlier call's must not pass for this one's
  set_spgr_info();
  set_wyckoff_info();
  const std::string spgm = u_case(fixed_text::assigned(left_adjusted(spacegen), 20));
  const std::optional<pick_type> picked =
      mode ? pick_by_mode(*mode, spgm) : pick_by_text(spgm, gen != nullptr, force_hall);
  if (!picked) return;
  symmetry_build_type built;
  const char* setting = build_by_route(*picked, spacegen, gen, ngen, built);
  if (!setting) return;
  spacegroup.sg_setting = setting;
  fill_record(spacegroup, *picked, spacegen, built);
}
