// Laue class and point group of a group from the orders of its rotations.
//
// A crystal class is known by how many of its operators have each order
// (International Tables for Crystallography Vol. A, chapter 10, the 32
// crystallographic point groups); its Laue class is the class with the
// inversion added. A table of those counts names the class. Where the counts
// are the same for two orientations of one class (-6m2 and -62m, -4m2 and
// -42m, the three mm2, -3m1 and -31m), the axis of one two-fold rotation or
// mirror tells them apart, read from the reference rotations mod6 by
// searchop. The names are written into map files and are kept as they are,
// unusual ones included.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>

#include "crystal/vant_crystallographic_symmetry.h"

namespace {

// How many of the reduced operators have each order, as axes_rotation gives
// it (-6 to 6; -2 is a mirror).
class rotation_counts {
 public:
  void add(std::int32_t order) { ++by_order_[index(order)]; }
  std::int32_t of(std::int32_t order) const { return by_order_[index(order)]; }
  // Proper and improper rotations of an order together.
  std::int32_t axes(std::int32_t order) const { return of(order) + of(-order); }

 private:
  static std::size_t index(std::int32_t order) { return static_cast<std::size_t>(order + 6); }
  std::array<std::int32_t, 13> by_order_{};
};

// Blocks of mod6 searched for an axis: the proper rotations of P m -3 m and
// those of P 6/m m m.
struct mod6_rows {
  std::int32_t first, last;
};
constexpr mod6_rows cubic_rows{1, 24};
constexpr mod6_rows hexagonal_rows{25, 36};

// Two-fold rotations of mod6 named by their axis (the symmetry directions of
// Vol. A, Table 2.2.4.1). Cubic block: along b, a. Hexagonal block: the
// secondary directions a+b, a, b and the tertiary directions a-b, a+2b, 2a+b.
constexpr std::int32_t two_fold_b = 3, two_fold_a = 4;
constexpr std::array<std::int32_t, 3> hexagonal_secondary = {31, 32, 33};
constexpr std::array<std::int32_t, 3> hexagonal_tertiary = {34, 35, 36};

bool one_of(std::int32_t row, std::span<const std::int32_t> rows) {
  return std::find(rows.begin(), rows.end(), row) != rows.end();
}

// The mod6 row of the axis of the first operator of the given order in the
// whole list (a centric group has its mirrors among the inversion partners):
// for a mirror, the two-fold about its normal, which is minus the mirror. 0
// when no operator has that order, or when searchop finds none (it then sets
// the error pair).
std::int32_t first_axis_row(const space_group_type& spg, std::int32_t order, mod6_rows rows) {
  const std::size_t all = std::min(static_cast<std::size_t>(std::max(spg.multip, 0)), spg.sym_op.size());
  for (std::size_t k = 0; k < all; ++k) {
    if (axes_rotation(spg.sym_op[k].rot) != order) continue;
    std::int32_t found = 0;
    searchop(spg.sym_op[k].rot, rows.first, rows.last, found);
    return std::abs(found);
  }
  return 0;
}

// -62m has its two-folds along the secondary directions, -6m2 its mirrors
// normal to them.
const char* hexagonal_six_bar(const space_group_type& spg) {
  return one_of(first_axis_row(spg, 2, hexagonal_rows), hexagonal_secondary) ? "-62m" : "-6m2";
}

// -4m2 has its mirrors normal to a and b, -42m its two-folds along them.
const char* tetragonal_four_bar(const space_group_type& spg) {
  const std::int32_t row = first_axis_row(spg, -2, cubic_rows);
  return row == two_fold_a || row == two_fold_b ? "-4m2" : "-42m";
}

// mm2 by the axis of its two-fold, the 2 put in the place of that axis
// counted from c: along a "mm2", along b "m2m", along c (or unknown) "2mm".
const char* orthorhombic_mm2(const space_group_type& spg) {
  const std::int32_t row = first_axis_row(spg, 2, cubic_rows);
  return row == two_fold_a ? "mm2" : row == two_fold_b ? "m2m" : "2mm";
}

// One way to name an acentric group: it holds when `count` operators have
// the signed `order`; the name is fixed, or told by the orientation.
struct acentric_pick {
  std::int32_t order = 0, count = 0;  // count 0: no pick
  const char* pg = "";
  const char* (*oriented)(const space_group_type&) = nullptr;
};

// A Laue class: it holds when `axes` operators have the rotation order `axis`
// (proper and improper together; axis 0: no test) and there are `ops`
// reduced operators (0: any number). A centric group is named by its Laue
// class, an acentric one by the first pick that holds, else by `otherwise`.
struct laue_row {
  std::int32_t axis, axes, ops;
  const char* laue;
  std::array<acentric_pick, 3> picks;
  const char* otherwise;
  bool trigonal_on_hexagonal_axes = false;
};

// In the order the rows are tried: a group of 6 with two six-folds also has
// two three-folds, so the six-fold rows come before the trigonal ones. The
// counts are those of the general positions of each class: 432 has six
// four-folds (4 and 4^3 about each cubic axis), -43m six -4; 622 seven
// two-folds (six across the axis and 6^3), 6mm six mirrors; 422 five (four
// across the axis and 4^2), 4mm four mirrors; mm2 two mirrors. The trigonal
// row on hexagonal axes is named by name_trigonal_on_hexagonal_axes.
const laue_row laue_rows[] = {
    {3, 8, 12, "m-3", {}, "23"},
    {3, 8, 24, "m-3m", {{{4, 6, "432"}, {-4, 6, "-43m"}}}, ""},
    {6, 2, 6, "6/m", {{{6, 2, "6"}, {-6, 2, "-6"}}}, ""},
    {6, 2, 12, "6/mmm", {{{-6, 2, "", hexagonal_six_bar}, {2, 7, "622"}, {-2, 6, "6mm"}}}, ""},
    {3, 2, 3, "-3", {}, "3"},
    {3, 2, 6, "", {}, "", true},
    {3, 2, 6, "-3m", {{{2, 3, "32"}, {-2, 3, "3m"}}}, ""},
    {4, 2, 4, "4/m", {{{4, 2, "4"}, {-4, 2, "-4"}}}, ""},
    {4, 2, 8, "4/mmm", {{{-4, 2, "", tetragonal_four_bar}, {2, 5, "422"}, {-2, 4, "4mm"}}}, ""},
    {2, 1, 0, "2/m", {{{2, 1, "2"}, {-2, 1, "m"}}}, ""},
    {2, 3, 0, "mmm", {{{2, 3, "222"}, {-2, 2, "", orthorhombic_mm2}}}, "mmm"},
    {0, 0, 1, "-1", {}, "1"},
};

const laue_row* row_of(const rotation_counts& c, std::int32_t ops, bool hexagonal_axes) {
  for (const auto& row : laue_rows) {
    if (row.axis != 0 && c.axes(row.axis) != row.axes) continue;
    if (row.ops != 0 && row.ops != ops) continue;
    if (row.trigonal_on_hexagonal_axes && !hexagonal_axes) continue;
    return &row;
  }
  return nullptr;
}

const char* acentric_point_group(const laue_row& row, const rotation_counts& c, const space_group_type& spg) {
  for (const auto& pick : row.picks) {
    if (pick.count == 0 || c.of(pick.order) != pick.count) continue;
    return pick.oriented ? pick.oriented(spg) : pick.pg;
  }
  return row.otherwise;
}

// Trigonal groups on hexagonal axes: -3m1 has its two-folds along the
// secondary directions and its mirrors normal to them, -31m along and normal
// to the tertiary ones. The axis read is that of the first mirror, or of the
// first two-fold in 32 and 312. The Laue class of -3m1 is written "-3m", and
// 321 and 312 keep the names "-32" and "-312".
void name_trigonal_on_hexagonal_axes(const space_group_type& spg, const rotation_counts& c, std::string& laue,
                                     std::string& pg) {
  struct orientation {
    std::int32_t order;
    const char *tertiary, *secondary;
  };
  orientation o{-2, "-31m", "-3m"};
  if (spg.centred == 1) {
    if (c.of(2) == 3) {
      o = {2, "-312", "-32"};
    } else if (c.of(-2) == 3) {
      o = {-2, "31m", "3m"};
    } else {
      return;
    }
  }
  const bool tertiary = one_of(first_axis_row(spg, o.order, hexagonal_rows), hexagonal_tertiary);
  laue = tertiary ? "-31m" : "-3m";
  pg = tertiary ? o.tertiary : o.secondary;
}

}  // namespace

void get_laue_pg(const space_group_type& spg, std::string& laue, std::string& pg) {
  laue.clear();
  pg.clear();
  init_err_symm();
  const std::size_t ops = std::min(static_cast<std::size_t>(std::max(spg.num_ops, 0)), spg.sym_op.size());
  if (ops < 1) {
    set_err_symm(" No symmetry operators are given");
    return;
  }
  rotation_counts c;
  for (std::size_t k = 0; k < ops; ++k) {
    const std::int32_t order = axes_rotation(spg.sym_op[k].rot);
    if (order == 0) {
      set_err_symm(" Rotation Not Determined");
      return;
    }
    c.add(order);
  }
  const laue_row* row = row_of(c, static_cast<std::int32_t>(ops), spg.hexa);
  if (row == nullptr) return;
  if (row->trigonal_on_hexagonal_axes) {
    name_trigonal_on_hexagonal_axes(spg, c, laue, pg);
    return;
  }
  laue = row->laue;
  pg = spg.centred == 1 ? acentric_point_group(*row, c, spg) : row->laue;
}
