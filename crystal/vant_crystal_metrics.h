// The crystal cell: parameters, reciprocal cell, metric tensors,
// orthogonalisation matrices, volumes.
#pragma once

#include <array>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

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

// Error pair of the cell routines, cleared by set_crystal_cell.
inline bool err_crys = false;
inline std::string err_crys_mess;  // char(150)

// Builds the record from a, b, c and alpha, beta, gamma: reciprocal cell,
// volumes, orthogonalisation matrices in the convention cartype ("CA" when
// absent), metric tensors, Busing-Levy matrices. The uncertainties are kept
// only when both are given. A cell whose matrix cannot be inverted sets
// err_crys and leaves the record filled up to that point.
void set_crystal_cell(const vec3f& cellv, const vec3f& angl, cell_metrics_type& cell,
                      const std::optional<std::string>& cartype = std::nullopt,
                      const std::optional<vec3f>& scell = std::nullopt,
                      const std::optional<vec3f>& sangl = std::nullopt);

// Reciprocal cell (lengths, angles in degrees), direct and reciprocal volume.
void recip(const vec3f& cell, const vec3f& ang, vec3f& rcell, vec3f& rang, float& vol, float& rvol);

// Metric tensor of a cell: g(i,j) = a_i . a_j.
void metrics(const vec3f& cell, const vec3f& ang, mat3f& g);

// Fractional-to-orthogonal matrix in one of the conventions "CA", "CB",
// "AC", "BC", "BA" (direct axis along its own Cartesian axis, then the
// reciprocal axis along its own). A blank or absent code means "CA"; an
// unknown code sets err_crys and falls back to "CA".
void get_cryst_orthog_matrix(const vec3f& cellv, const vec3f& ang, mat3f& m, std::string_view cartype = {});

// Uncertainty of the cell volume from cell_sigma and ang_sigma.
float cell_volume_sigma(const cell_metrics_type& cell);

// Equivalent isotropic U of (U11, U22, U33, U12, U13, U23).
float u_equiv(const cell_metrics_type& cell, const std::array<float, 6>& u);

// Anisotropic B or U values (11, 22, 33, 12, 13, 23) to betas.
std::array<float, 6> convert_b_betas(const std::array<float, 6>& b, const cell_metrics_type& cell);
std::array<float, 6> convert_u_betas(const std::array<float, 6>& u, const cell_metrics_type& cell);
