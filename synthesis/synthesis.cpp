#include "synthesis/synthesis.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numbers>

#include "synthesis/fourier_map.h"
#include "synthesis/grid_choice.h"

namespace {

bool is_patterson(std::int32_t ntype) { return ntype == 4 || ntype == 5; }

// C(h) of one reflection. Amplitudes may be negative (Fo - Fc, or a signed
// amplitude in the file): they multiply the phase factor as they stand.
std::complex<double> coefficient_of(const reflection_type& r, std::int32_t ntype) {
  const auto& v = r.value;
  const std::complex<double> phase = std::polar(1.0, v[col_ph] * std::numbers::pi / 180.0);
  switch (ntype) {
    case 1: return v[col_fo] * phase;
    case 2: return v[col_fc] * phase;
    case 3: return (v[col_fo] - v[col_fc]) * phase;
    case 4: return v[col_fo] * v[col_fo];
    case 5: return v[col_fc] * v[col_fc];
    default: return {v[col_a], v[col_b]};
  }
}

// The reflections that take part, each counted where it goes.
coefficient_list admitted(const reflection_set_type& set, const synthesis_request_type& request,
                                       const cell_metrics_type& cell, const expansion_type& e,
                                       reflection_counts_type& counts) {
  coefficient_list list;
  list.reserve(set.list.size());
  for (const reflection_type& r : set.list) {
    ++counts.read;
    const double s = sin_theta_over_lambda(r.hkl, cell);
    if (r.hkl == vec3i{}) {
      ++counts.origin;
    } else if ((request.smin > 0.0 && s < request.smin) || (request.smax > 0.0 && s > request.smax)) {
      ++counts.outside_range;
    } else if (request.sigm > 0.0 && set.has_sigma && r.value[col_fo] < request.sigm * r.value[col_si]) {
      ++counts.below_sigma;
    } else if (e.phase_shifts && systematically_absent(r.hkl, e)) {
      ++counts.absent;
    } else {
      list.push_back({r.hkl, coefficient_of(r, request.ntype)});
      counts.s_max = std::max(counts.s_max, s);
    }
  }
  return list;
}

void fail(std::string message) {
  err_synthesis = true;
  err_synthesis_mess = std::move(message);
}

bool grid_fits(const std::array<std::int32_t, 3>& n) {
  std::int64_t points = 1;
  for (std::int32_t size : n) {
    if (size < 1 || size > max_grid_size) return false;
    points *= size;
  }
  return points <= max_grid_points;
}

std::string grid_text(const std::array<std::int32_t, 3>& n) {
  return std::to_string(n[0]) + " x " + std::to_string(n[1]) + " x " + std::to_string(n[2]);
}

// Population statistics, summed in double over the whole grid.
void statistics(synthesis_result_type& result) {
  const float* begin = result.rho.data();
  const float* end = begin + result.rho.size();
  const auto [lo, hi] = std::minmax_element(begin, end);
  double sum = 0.0, squares = 0.0;
  for (const float* p = begin; p != end; ++p) {
    sum += *p;
    squares += static_cast<double>(*p) * *p;
  }
  const double n = static_cast<double>(result.rho.size());
  const double mean = sum / n;
  result.denmin = *lo;
  result.denmax = *hi;
  result.denave = static_cast<float>(mean);
  result.densigma = static_cast<float>(std::sqrt(std::max(squares / n - mean * mean, 0.0)));
}

}  // namespace

double sin_theta_over_lambda(const vec3i& hkl, const cell_metrics_type& cell) {
  double q = 0.0;
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) q += hkl[i] * static_cast<double>(cell.gr[i][j]) * hkl[j];
  return 0.5 * std::sqrt(std::max(q, 0.0));
}

void compute_synthesis(const reflection_set_type& set, const synthesis_request_type& request,
                       const cell_metrics_type& cell, const space_group_type& group, synthesis_result_type& result) {
  err_synthesis = false;
  err_synthesis_mess.clear();
  result = {};
  const std::clock_t start = std::clock();
  const expansion_type e = expansion_of(group, !is_patterson(request.ntype));
  coefficient_list list = admitted(set, request, cell, e, result.counts);
  result.counts.merged = merge_equivalents(list, e);
  result.counts.unique = static_cast<std::int64_t>(list.size());

  result.automatic_grid = request.grid == std::array<std::int32_t, 3>{};
  if (result.automatic_grid) {
    const double d_min = result.counts.s_max > 0.0 ? 0.5 / result.counts.s_max : 0.0;
    result.grid = automatic_grid(cell.cell, d_min, group);
    if (!grid_fits(result.grid))
      return fail("The reflections reach d = " + std::to_string(d_min) + " A, which needs a grid of " +
                  grid_text(result.grid) + ", more than sintrel makes; limit them with Reflec Smax");
  } else {
    result.grid = request.grid;
    if (!grid_fits(result.grid))
      return fail("The grid " + grid_text(result.grid) + " cannot be made: each size must lie in 1 to " +
                  std::to_string(max_grid_size) + ", and the map hold at most " + std::to_string(max_grid_points) +
                  " points");
  }

  const double f000_term = is_patterson(request.ntype) ? request.f000 * request.f000 : request.f000;
  result.counts.in_cell =
      fourier_map(list, e, f000_term, request.scale, cell.cell_vol, result.grid, result.rho);
  if (result.counts.in_cell < 0) return;
  statistics(result);
  result.processor_ms = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}
