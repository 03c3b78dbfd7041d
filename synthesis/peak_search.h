// Peaks of a map: the highest local maxima, placed between the grid points
// by a quadratic fit, one of each set related by the group's symmetry.
#pragma once

#include <cstdint>
#include <vector>

#include "crystal/farray.h"
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"

struct peak_type {
  vec3f x{};            // fractional, in the cell
  float height = 0.0f;  // e/A^3
  std::int32_t mult = 0;  // points of its orbit in the cell
};

// Up to count peaks, highest first. A maximum lying on a symmetry image of a
// peak already found (within a grid step) is the same peak and is passed over.
std::vector<peak_type> find_peaks(const farray3<float>& rho, const space_group_type& group, std::int32_t count);

// The distance in A between two fractional points of the crystal, the
// difference taken to its nearest lattice image.
double crystal_distance(const cell_metrics_type& cell, const vec3f& a, const vec3f& b);
