#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "crystal/fixed_text.h"
#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_general.h"

namespace {

vec3f fold_to_cell(const vec3f& v) {
  return {std::fmod(v[0] + 10.0f, 1.0f), std::fmod(v[1] + 10.0f, 1.0f), std::fmod(v[2] + 10.0f, 1.0f)};
}

// The label of the m-th position of an atom. The number field holds three
// digits; beyond 999 it keeps the last text it could hold.
std::string copy_label(const std::string& source, std::int32_t m) {
  std::string number = std::to_string(std::min(m, 999));
  std::string label = std::string(fixed_text::trimmed(source)) + "_" + number;
  return label.substr(0, 20);
}

std::int32_t operators_to_try(const space_group_type& spg, bool conven) {
  std::int32_t nt = conven ? spg.multip : (spg.centred == 2 ? 2 * spg.num_ops : spg.num_ops);
  return std::clamp<std::int32_t>(nt, 1, static_cast<std::int32_t>(spg.sym_op.size()));
}

}  // namespace

void atlist1_extencell_atlist2(const space_group_type& spg, const atom_list_type& a, atom_list_type& c,
                               bool conven) {
  allocate_atom_list(0, c);
  if (spg.sym_op.empty()) return;
  const std::int32_t nt = operators_to_try(spg, conven);
  const std::size_t count = std::min<std::size_t>(static_cast<std::size_t>(std::max(a.natoms, 0)), a.atom.size());

  std::vector<atom_type> work;
  work.reserve(count * static_cast<std::size_t>(nt));
  for (std::size_t i = 0; i < count; ++i) {
    const atom_type& source = a.atom[i];
    if (!source.active) continue;
    const std::size_t first = work.size();
    work.push_back(source);
    work.back().x = fold_to_cell(source.x);
    const vec3f start = work.back().x;
    std::int32_t m = 1;
    for (std::int32_t j = 2; j <= nt; ++j) {
      const vec3f p = fold_to_cell(applyso(spg.sym_op[static_cast<std::size_t>(j - 1)], start));
      auto known = std::find_if(work.begin() + static_cast<std::ptrdiff_t>(first), work.end(),
                                [&](const atom_type& e) { return equal_vector_r(e.x, p); });
      if (known != work.end()) {
        known->occ += source.occ;
        continue;
      }
      ++m;
      atom_type copy = source;
      copy.x = p;
      copy.active = true;
      copy.mult = 1;
      copy.lab = copy_label(source.lab, m);
      work.push_back(copy);
    }
  }
  allocate_atom_list(static_cast<std::int32_t>(work.size()), c);
  c.atom = std::move(work);
}
