// set_spacegroup: from a text or a list of operators to the complete record.
#include <algorithm>
#include <cctype>
#include <map>

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

void fail(const std::string& message) {
  err_symm = true;
  err_symm_mess = fixed_text::assigned(message, 150);
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
    fail(" Laue Number Incorrect");
  }
  if (r.pg >= 1 && r.pg <= 41) {
    g.pg = point_group[static_cast<std::size_t>(r.pg - 1)];
  } else {
    fail(" Point Group Number Incorrect");
  }
  g.info = r.inf_extra;
  for (int i = 0; i < 3; ++i) {
    g.r_asym_unit[i][0] = static_cast<float>(r.asu[i]) * 0.041666668f;
    g.r_asym_unit[i][1] = static_cast<float>(r.asu[i + 3]) * 0.041666668f;
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
  std::string spgm = u_case(fixed_text::assigned(left_adjusted(spacegen), 20));
  std::string opcion;
  std::int32_t row = 0;
  std::int32_t origin = 0;

  const auto colon = spgm.find(':');
  if (mode) {
    opcion = u_case(left_adjusted(*mode)).substr(0, 3);
    if (opcion == "HAL") {
      row = row_by_hall(spgm);
    } else if (opcion == "HMS") {
      row = row_by_hm(spgm);
    } else if (opcion == "ITC") {
      std::string number_text = spgm;
      if (colon != std::string::npos) {
        if (!read_integer(spgm.substr(colon + 1), origin)) origin = 0;
        number_text = spgm.substr(0, colon);
      }
      std::int32_t number = 0;
      if (read_integer(number_text, number)) {
        if (number < 1 || number > 230) {
          fail(" The number of the space group should be in the interval [1,230]");
          return;
        }
        row = origin_row(first_row_of_number(number), origin);
        spgm = number_text;
      } else {
        row = row_by_hm(spgm);
      }
    }
  } else {
    if (colon != std::string::npos && !read_integer(spgm.substr(colon + 1), origin)) origin = 0;
    const std::string head = colon == std::string::npos ? spgm : spgm.substr(0, colon);
    std::array<float, 10> values{};
    std::array<std::int32_t, 10> integers{};
    std::int32_t found = 0;
    getnum(head, values, integers, found);
    if (found == 1) {
      const std::int32_t number = integers[0];
      if (number < 1 || number > 230) {
        fail(" Number of Space Group out of limits");
        return;
      }
      row = first_row_of_number(number);
      if (colon != std::string::npos) {
        row = origin_row(row, origin);
      } else if (row > 0 && table_row(row).hm.find(':') != std::string::npos) {
        ++row;
      }
      if (row > 0) spgm = u_case(table_row(row).hall);
      opcion = "HAL";
    } else {
      row = row_by_hm(spgm);
      if (row > 0) {
        opcion = "HMS";
        const bool hall_only = std::find(std::begin(hall_only_rows), std::end(hall_only_rows), row) !=
                               std::end(hall_only_rows);
        if (force_hall || hall_only) {
          opcion = "HAL";
          spgm = u_case(table_row(row).hall);
        }
      } else {
        row = row_by_hall(spgm);
        opcion = row > 0 ? "HAL" : (gen ? "GEN" : "HAL");
      }
    }
  }

  symmetry_build_type built;
  std::vector<mat3i> ss;
  std::vector<vec3f> ts;
  if (opcion == "FIX" || opcion == "GEN") {
    if (!gen || !ngen) {
      fail(opcion == "FIX" ? " Generators should be provided if FIX option is Used"
                           : " Generators should be provided in GEN calling Set_SpaceGroup");
      return;
    }
    const std::size_t count = std::min({static_cast<std::size_t>(std::max(*ngen, 0)), gen->size(), max_list});
    if (opcion == "GEN") {
      for (std::size_t k = 0; k < count; ++k) {
        bool ok = true;
        check_generator((*gen)[k], ok);
        if (!ok) return;
      }
    }
    if (!read_operators(*gen, count, ss, ts)) return;
    if (opcion == "FIX") {
      get_so_from_fix(ss, ts, static_cast<std::int32_t>(count), spgm, built);
      spacegroup.sg_setting = "Fixed symmetry operators (no info)";
    } else {
      get_so_from_gener(ss, ts, static_cast<std::int32_t>(count), spgm.substr(0, std::min<std::size_t>(spgm.size(), 1)),
                        built);
      spacegroup.sg_setting = "Non-Conventional (user-given operators)";
    }
  } else if (opcion == "HAL") {
    get_so_from_hall(spgm, built);
    spacegroup.sg_setting = "Generated from Hall symbol";
  } else if (opcion == "HMS") {
    if (spacegen.find(':') != std::string::npos && row > 0) {
      spgm = u_case(table_row(row).hall);
      get_so_from_hall(spgm, built);
      spacegroup.sg_setting = "Generated from Hall symbol";
    } else {
      const std::string given = left_adjusted(spacegen);
      get_so_from_hms(given.substr(0, given.find(':')), built);
      spacegroup.sg_setting = "IT (Generated from Hermann-Mauguin symbol)";
    }
  } else if (opcion == "ITC") {
    std::string gener;
    get_generators(spgm, gener);
    if (err_symtab) {
      fail(" Problems in SpaceGroup: " + std::string(fixed_text::trimmed(spgm)) +
           " => the HM symbol or the number is incorrect ");
      return;
    }
    const std::vector<std::string> pieces = split_generators(fixed_text::assigned(gener, 130));
    if (!read_operators(pieces, pieces.size(), ss, ts)) return;
    if (row > 0 && fixed_text::trimmed(table_row(row).hm).ends_with(":1")) move_to_first_origin(ss, ts, row);
    get_so_from_gener(ss, ts, static_cast<std::int32_t>(pieces.size()),
                      row > 0 ? table_row(row).hm.substr(0, 1) : std::string(), built);
    spacegroup.sg_setting = "Generated from explicit IT generators";
  } else {
    fail(" Problems in SpaceGroup");
    return;
  }

  // Texts from the table row, or what the way knows without one.
  const bool failed_build = err_symm;
  const std::string build_message = err_symm_mess;
  if (row > 0) {
    complete_from_row(spacegroup, row);
  } else if (opcion == "HAL") {
    spacegroup.hall = fixed_text::assigned(spgm, 16);
  } else if (opcion == "HMS" || opcion == "ITC") {
    spacegroup.spg_symb = fixed_text::assigned(left_adjusted(spacegen), 20);
  } else {
    spacegroup.spg_symb = "unknown";
    spacegroup.hall = "unknown";
    if (opcion == "FIX") {
      spacegroup.info = "Fixed";
      spacegroup.laue.clear();
    }
  }
  // Lattice and centre from the builder, as far as it came: a builder that
  // fails leaves them for the caller to see beside its message.
  if (built.crystal_code >= 1 && built.crystal_code <= 7) {
    spacegroup.crystalsys = sys_cry[static_cast<std::size_t>(built.crystal_code - 1)];
  }
  if (!lat_ch.empty()) {
    spacegroup.spg_lat = lat_ch;
    spacegroup.num_lat = nlat;
    spacegroup.latt_trans.assign(ltr.begin(), ltr.begin() + std::clamp(nlat, 1, 192));
    if (inlat >= 1 && inlat <= 7) spacegroup.bravais = latt[static_cast<std::size_t>(inlat - 1)];
  }
  spacegroup.spg_latsy = built.latsy;
  spacegroup.centred = built.centring_code;
  spacegroup.centre = centro[static_cast<std::size_t>(std::clamp(built.centring_code, 0, 2))];
  spacegroup.centre_coord = built.co;
  if (failed_build) {
    err_symm = true;
    err_symm_mess = build_message;
    return;
  }

  // Operators from the builder.
  spacegroup.num_ops = built.num_ops;

  const std::size_t listed = opcion == "FIX" ? static_cast<std::size_t>(built.num_ops) : built.ss.size();
  for (std::size_t k = 1; k < static_cast<std::size_t>(built.num_ops) && k < built.ss.size(); ++k) {
    const mat3i& r = built.ss[k];
    if (std::abs(r[0][0]) + std::abs(r[1][0]) + std::abs(r[2][0]) > 1 ||
        std::abs(r[0][1]) + std::abs(r[1][1]) + std::abs(r[2][1]) > 1) {
      spacegroup.hexa = true;
      break;
    }
  }
  hexa = spacegroup.hexa;

  spacegroup.multip = opcion == "FIX" ? nlat * built.num_ops * (built.centring_code == 1 ? 1 : 2)
                                      : static_cast<std::int32_t>(listed);
  spacegroup.sym_op.assign(static_cast<std::size_t>(spacegroup.multip), sym_oper_type{});
  spacegroup.sym_op_symb.assign(static_cast<std::size_t>(spacegroup.multip), std::string());
  for (std::size_t k = 0; k < listed && k < spacegroup.sym_op.size(); ++k) {
    spacegroup.sym_op[k].rot = built.ss[k];
    spacegroup.sym_op[k].tr = built.ts[k];
  }
  if (opcion == "FIX") expand_fixed_list(spacegroup);
  for (std::size_t k = 0; k < spacegroup.sym_op.size(); ++k) {
    get_symsymbi(spacegroup.sym_op[k].rot, spacegroup.sym_op[k].tr, spacegroup.sym_op_symb[k]);
    spacegroup.sym_op_symb[k] = fixed_text::assigned(spacegroup.sym_op_symb[k], 50);
  }

  if (row <= 0) get_laue_pg(spacegroup, spacegroup.laue, spacegroup.pg);
  if (spacegroup.centred == 0 && spacegroup.sym_op_symb.size() > static_cast<std::size_t>(spacegroup.num_ops)) {
    spacegroup.centre = fixed_text::assigned(
        spacegroup.centre + "  Gen(-1):" + spacegroup.sym_op_symb[static_cast<std::size_t>(spacegroup.num_ops)], 80);
  }
  // A Hall symbol that can't be written for the group is reported
  // (" Error in generators"); the record is complete all the same.
  init_err_symm();
  if (opcion == "GEN") get_hallsymb_from_gener(spacegroup);
  const bool unnamed = err_symm;
  const std::string naming_message = err_symm_mess;
  if (opcion == "HMS") {
    spacegroup.num_gen = generators_by_number(spacegroup.numspg);
  } else if (opcion == "ITC" || opcion == "HAL") {
    spacegroup.num_gen = std::max(built.count, 0);
  }
  complete_wyckoff(spacegroup);
  lower_symbol(spacegroup.spg_symb);
  err_symm = unnamed;
  err_symm_mess = naming_message;
}
