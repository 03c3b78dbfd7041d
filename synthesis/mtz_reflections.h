// Map coefficients from an MTZ file (known by its first bytes, "MTZ "), read
// through libccp4's cmtzlib: an amplitude and a phase column per reflection.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "synthesis/reflections.h"

// True when the file begins with "MTZ ".
bool is_mtz(const std::string& path);

// What the file says of its crystal.
struct mtz_crystal_type {
  std::array<float, 6> cell{};  // of the dataset holding the amplitudes
  std::int32_t group_number = 0;
  std::vector<sym_oper_type> operators;
};

// Reads the pair `columns` names ("F,PHI"), or when it is empty the first
// pair the file holds among FWT/PHWT, 2FOFCWT/PH2FOFCWT, FC/PHIC and F/PHI.
// Every kind of synthesis sums the coefficients themselves: the amplitude
// goes to fo and fc (fc 0 in a difference synthesis), the phase to ph, and
// F cos(phi), F sin(phi) to a and b. A reflection missing either value is
// left out and counted; the layout names the pair and that count. Failures
// set err_synthesis, naming the file.
void read_mtz_reflections(const std::string& path, const std::string& columns, std::int32_t ntype,
                          reflection_set_type& set, mtz_crystal_type& crystal);

// Empty when the file's cell and group are the control file's; otherwise
// what differs, naming the file.
std::string mtz_crystal_mismatch(const std::string& path, const mtz_crystal_type& crystal,
                                 const cell_metrics_type& cell, const space_group_type& group);
