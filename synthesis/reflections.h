// The reflections a synthesis starts from, and the reader of the reflection
// file. Two kinds of file are read, told apart by their content:
//
// - a plain list: one reflection a line, numbers separated by blanks, in the
//   columns the control file's Form line names (lugar); "!" or "#" starts a
//   comment; phases in degrees;
// - a SHELXL .fcf file written with LIST 6 (or any CIF loop of _refln_ items):
//   h, k, l, Fo^2, sigma(Fo^2), Fc and the phase; Fo is the square root of
//   Fo^2 (0 where Fo^2 is negative).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "crystal/farray.h"
#include "crystal/vector_types.h"

// Error pair of the synthesis library, cleared on entry to each operation
// that can fail.
inline bool err_synthesis = false;
inline std::string err_synthesis_mess;

// The largest |h|, |k|, |l| a file may hold: beyond any diffraction data, it
// bounds the grid a file can ask for.
inline constexpr double max_reflection_index = 4096.0;

// The slots of lugar: which column of the file holds what.
enum column_slot : std::size_t { col_h, col_k, col_l, col_fo, col_fc, col_si, col_ph, col_a, col_b, column_slots };

struct reflection_type {
  vec3i hkl{};
  // Values by column slot (the index slots unused); a column the file does
  // not have stays 0.
  std::array<double, column_slots> value{};
};

struct reflection_set_type {
  std::vector<reflection_type, map_allocator<reflection_type>> list;  // a large file's list is a large block
  bool has_sigma = false;  // a sigma column was read
  std::string layout;      // the columns as read, for the listing
};

// The column slots a kind of synthesis needs besides h, k, l.
std::vector<column_slot> needed_columns(std::int32_t ntype);

// Reads the file named path. For a plain list the columns are lugar's (all 0:
// the default "h k l fo fc phase"). A missing file, a layout without the
// columns the synthesis needs, or a line without them is a failure naming
// the file (and the line).
void read_reflections(const std::string& path, const std::array<std::int32_t, 9>& lugar, std::int32_t ntype,
                      reflection_set_type& set);
