// The Hall symbol of a group made from generators, found among the settings
// of the table: the lattice part ("-P", "C", ...) selects the candidates, and
// a candidate is the group's when its Hall symbol expands to the same
// operators, translations compared modulo the cell.
#include <algorithm>
#include <cmath>
#include <set>

#include "crystal/fixed_text.h"
#include "crystal/vant_crystallographic_symmetry.h"
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

}  // namespace

void get_hallsymb_from_gener(space_group_type& spg, std::string* hall) {
  init_err_symm();
  set_spgr_info();
  const std::string lattice_part = (spg.centred != 1 ? "-" : "") + spg.spg_lat;
  std::set<operator_key> wanted;
  for (const auto& op : spg.sym_op) wanted.insert(key_of(op.rot, op.tr));

  // The candidates' expansion overwrites the lattice state of the module.
  const std::int32_t keep_nlat = nlat, keep_inlat = inlat;
  const auto keep_ltr = ltr;
  const std::string keep_lat = lat_ch;
  const spgr_info_type* match = nullptr;
  std::int32_t generators = 0;
  for (const auto& row : spgr_info) {
    const bool same_lattice = row.hall.rfind(lattice_part + " ", 0) == 0;
    if (!same_lattice) continue;
    symmetry_build_type candidate;
    get_so_from_hall(row.hall, candidate);
    if (err_symm || candidate.ss.size() != wanted.size()) continue;
    std::set<operator_key> found;
    for (std::size_t k = 0; k < candidate.ss.size(); ++k) found.insert(key_of(candidate.ss[k], candidate.ts[k]));
    if (found == wanted) {
      match = &row;
      generators = candidate.count;
      break;
    }
  }
  nlat = keep_nlat, inlat = keep_inlat, ltr = keep_ltr, lat_ch = keep_lat;
  init_err_symm();

  if (match == nullptr) {
    spg.spg_symb = "Unknown";
    spg.info = fixed_text::assigned("Gen. ", 5);
    spg.sg_setting = "Non-standard Setting";
    if (hall) hall->clear();
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
