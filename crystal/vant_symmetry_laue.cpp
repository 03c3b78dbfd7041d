// Laue class and point group of a group from the orders of its rotations.
#include <algorithm>

#include "crystal/vant_crystallographic_symmetry.h"

namespace {

struct rotation_counts {
  int n2 = 0, n3 = 0, n4 = 0, n6 = 0, nm2 = 0, nm3 = 0, nm4 = 0, nm6 = 0;
};

// The row of mod6 of the first operator of the given order in the whole list
// (a centric group has its mirrors among the inversion partners): found, or
// when it matches a negated row, `negative_base` - found.
std::int32_t row_of_first(const space_group_type& spg, std::int32_t order, std::int32_t i1, std::int32_t i2,
                          std::int32_t negative_base) {
  const std::size_t all = std::min(static_cast<std::size_t>(std::max(spg.multip, 0)), spg.sym_op.size());
  for (std::size_t k = 0; k < all; ++k) {
    if (axes_rotation(spg.sym_op[k].rot) != order) continue;
    std::int32_t found = 0;
    searchop(spg.sym_op[k].rot, i1, i2, found);
    return found < 0 ? negative_base - found : found;
  }
  return 0;
}

// A row and the rows of the same class: the axes a six-fold, three-fold or
// -4 maps onto each other are met in any order in a list, so the first one
// found stands for its class (31 to 33: two-folds along [110], [100], [010];
// 34 to 36 and their negations 22 to 24: those along [1-10], [120], [210];
// 27, 28: mirrors normal to b and a).
bool in_class_of(std::int32_t r, std::int32_t row) {
  static const std::int32_t classes[4][3] = {{31, 32, 33}, {34, 35, 36}, {22, 23, 24}, {27, 28, 28}};
  for (const auto& c : classes) {
    if (std::find(std::begin(c), std::end(c), row) != std::end(c)) {
      return std::find(std::begin(c), std::end(c), r) != std::end(c);
    }
  }
  return r == row;
}

}  // namespace

void get_laue_pg(const space_group_type& spg, std::string& laue, std::string& pg) {
  laue.clear();
  pg.clear();
  init_err_symm();
  const std::size_t ops = std::min(static_cast<std::size_t>(std::max(spg.num_ops, 0)), spg.sym_op.size());
  if (ops < 1) {
    err_symm = true;
    err_symm_mess = " No symmetry operators are given";
    return;
  }
  rotation_counts c;
  for (std::size_t k = 0; k < ops; ++k) {
    switch (axes_rotation(spg.sym_op[k].rot)) {
      case 0:
        err_symm = true;
        err_symm_mess = " Rotation Not Determined";
        return;
      case 2: ++c.n2; break;
      case 3: ++c.n3; break;
      case 4: ++c.n4; break;
      case 6: ++c.n6; break;
      case -2: ++c.nm2; break;
      case -3: ++c.nm3; break;
      case -4: ++c.nm4; break;
      case -6: ++c.nm6; break;
      default: break;
    }
  }
  const bool acentric = spg.centred == 1;
  const auto set = [&](const char* l, const char* p) {
    laue = l;
    pg = p;
  };
  const auto either = [&](const char* l, const char* acentric_pg) { set(l, acentric ? acentric_pg : l); };
  if (c.n3 + c.nm3 == 8 && ops == 12) {
    either("m-3", "23");
  } else if (c.n3 + c.nm3 == 8 && ops == 24) {
    either("m-3m", c.n4 == 6 ? "432" : c.nm4 == 6 ? "-43m" : "");
  } else if (c.n6 + c.nm6 == 2 && ops == 6) {
    either("6/m", c.n6 == 2 ? "6" : c.nm6 == 2 ? "-6" : "");
  } else if (c.n6 + c.nm6 == 2 && ops == 12) {
    if (!acentric) {
      set("6/mmm", "6/mmm");
    } else if (c.nm6 == 2) {
      set("6/mmm", in_class_of(row_of_first(spg, 2, 25, 36, -12), 31) ? "-62m" : "-6m2");
    } else {
      set("6/mmm", c.n2 == 7 ? "622" : c.nm2 == 6 ? "6mm" : "");
    }
  } else if (c.n3 + c.nm3 == 2 && ops == 3) {
    either("-3", "3");
  } else if (c.n3 + c.nm3 == 2 && ops == 6 && spg.hexa) {
    // Trigonal on hexagonal axes; these literal names are kept as they are.
    if (!acentric) {
      const bool r22 = in_class_of(row_of_first(spg, -2, 25, 36, -12), 22);
      set(r22 ? "-31m" : "-3m", r22 ? "-31m" : "-3m");
    } else if (c.n2 == 3) {
      const bool r34 = in_class_of(row_of_first(spg, 2, 25, 36, -12), 34);
      set(r34 ? "-31m" : "-3m", r34 ? "-312" : "-32");
    } else if (c.nm2 == 3) {
      const bool r22 = in_class_of(row_of_first(spg, -2, 25, 36, -12), 22);
      set(r22 ? "-31m" : "-3m", r22 ? "31m" : "3m");
    }
  } else if (c.n3 + c.nm3 == 2 && ops == 6) {
    either("-3m", c.n2 == 3 ? "32" : c.nm2 == 3 ? "3m" : "");
  } else if (c.n4 + c.nm4 == 2 && ops == 4) {
    either("4/m", c.n4 == 2 ? "4" : c.nm4 == 2 ? "-4" : "");
  } else if (c.n4 + c.nm4 == 2 && ops == 8) {
    if (!acentric) {
      set("4/mmm", "4/mmm");
    } else if (c.nm4 == 2) {
      set("4/mmm", in_class_of(row_of_first(spg, -2, 1, 24, 24), 28) ? "-4m2" : "-42m");
    } else {
      set("4/mmm", c.n2 == 5 ? "422" : c.nm2 == 4 ? "4mm" : "");
    }
  } else if (c.n2 + c.nm2 == 1) {
    either("2/m", c.n2 == 1 ? "2" : c.nm2 == 1 ? "m" : "");
  } else if (c.n2 + c.nm2 == 3) {
    if (!acentric) {
      set("mmm", "mmm");
    } else if (c.n2 == 3) {
      set("mmm", "222");
    } else if (c.nm2 == 2) {
      const std::int32_t found = row_of_first(spg, 2, 1, 24, 0);
      set("mmm", found == 4 ? "mm2" : found == 3 ? "m2m" : "2mm");
    } else {
      set("mmm", "mmm");
    }
  } else if (ops == 1) {
    either("-1", "1");
  }
}
