// The Fourier synthesis of a map from reflections:
//
//   rho(x) = (1/V) [F000 + scale * sum over h != 0 of C(h) exp(-2 pi i h.x)]
//
// with V the cell volume in A^3, so that rho is in e/A^3. The coefficients
// C(h) by the kind of synthesis (ntype): 1 Fo exp(i phi), 2 Fc exp(i phi),
// 3 (Fo - Fc) exp(i phi), 4 Fo^2 and 5 Fc^2 (Pattersons: phase 0, and F000
// enters squared), 6 and 7 A + iB. Each reflection stands for its orbit
// under the group (symmetry_expansion.h).
#pragma once

#include <array>
#include <cstdint>

#include "crystal/farray.h"
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "synthesis/reflections.h"

struct synthesis_request_type {
  std::int32_t ntype = 1;
  double f000 = 0.0;
  double scale = 1.0;                  // of the terms h != 0
  double smin = 0.0, smax = 0.0;       // limits of sin(theta)/lambda; 0 is no limit
  double sigm = 0.0;                   // above 0: Fo below sigm x sigma is left out
  std::array<std::int32_t, 3> grid{};  // all 0: chosen from the data
};

// What became of the reflections read.
struct reflection_counts_type {
  std::int64_t read = 0;
  std::int64_t origin = 0;         // 0 0 0 lines, left out: F000 comes from the control file
  std::int64_t outside_range = 0;  // sin(theta)/lambda outside smin..smax
  std::int64_t below_sigma = 0;    // Fo below sigm x sigma
  std::int64_t absent = 0;         // systematically absent in the group
  std::int64_t merged = 0;         // equivalent to one read before
  std::int64_t unique = 0;         // used, one per orbit
  std::int64_t in_cell = 0;        // coefficients summed over the whole sphere
  double s_max = 0.0;              // largest sin(theta)/lambda used
};

struct synthesis_result_type {
  std::array<std::int32_t, 3> grid{};
  bool automatic_grid = false;
  reflection_counts_type counts;
  farray3<float> rho;  // the whole cell, x fastest
  float denmin = 0.0f, denmax = 0.0f, denave = 0.0f, densigma = 0.0f;
  double processor_ms = 0.0;  // the synthesis's own processor time, for the listing
};

// sin(theta)/lambda = 1/(2d) of a reflection in the cell.
double sin_theta_over_lambda(const vec3i& hkl, const cell_metrics_type& cell);

// The map of the reflections. A grid that cannot be made (a size of 0 or
// below, or more points than sintrel makes) sets the error pair.
void compute_synthesis(const reflection_set_type& set, const synthesis_request_type& request,
                       const cell_metrics_type& cell, const space_group_type& group, synthesis_result_type& result);
