// The operators of a group record as a set of texts, for comparing groups
// whatever the order of their operators.
#pragma once

#include <cmath>
#include <set>
#include <string>

#include "crystal/vant_crystallographic_symmetry.h"

// Nine rotation elements, then the translation in 24ths modulo 1 (the form
// the reference hashes use).
inline std::set<std::string> operator_set(const space_group_type& g) {
  std::set<std::string> s;
  for (const auto& op : g.sym_op) {
    std::string t;
    for (const auto& row : op.rot)
      for (int v : row) t += std::to_string(v) + ",";
    for (int i = 0; i < 3; ++i)
      t += std::to_string(((std::lround(op.tr[i] * 24.0f) % 24) + 24) % 24) + (i < 2 ? "," : "");
    s.insert(t);
  }
  return s;
}
