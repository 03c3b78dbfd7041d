// The crystal cell: parameters, reciprocal cell, metric tensors,
// orthogonalisation matrices, volumes.
#pragma once

#include <array>
#include <iosfwd>
#include <string>

#include "crystal/vector_types.h"

struct cell_metrics_type {
  vec3f cell{};                     // a, b, c in Angstrom
  vec3f ang{};                      // alpha, beta, gamma in degrees
  std::array<float, 6> reserved{};  // cleared when no uncertainties are given; not in the map file
  vec3f cell_sigma{};
  vec3f ang_sigma{};
  vec3f rcell{};                    // a*, b*, c*
  vec3f rang{};                     // reciprocal angles in degrees
  mat3f gd{};                       // direct metric tensor
  mat3f gr{};                       // reciprocal metric tensor
  mat3f cr_orth{};                  // fractional to orthogonal; column j is cell axis j
  mat3f orth_cr{};                  // orthogonal to fractional
  mat3f bl_m{};                     // Busing-Levy B matrix
  mat3f bl_minv{};
  float cell_vol = 0.0f;
  float cell_vol_sigma = 0.0f;      // not in the map file
  float rcell_vol = 0.0f;
  std::string cart_type;            // char(2): orthogonalisation convention
};

// The cell block of the binary map file (298 bytes), read and written field
// by field in little-endian order. The reader sets ok true first and false on
// a failed transfer; fields not in the block keep their values.
void read_bin_crystal_cell(cell_metrics_type& cell, std::istream& in, bool& ok);
void write_bin_crystal_cell(const cell_metrics_type& cell, std::ostream& out);
