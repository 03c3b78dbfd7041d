#include "synthesis/peak_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_set>

namespace {

struct grid_point {
  std::int32_t i, j, k;  // from 0
};

class periodic_map {
 public:
  explicit periodic_map(const farray3<float>& rho) : rho_(rho), n_{rho.extent(1), rho.extent(2), rho.extent(3)} {}
  float at(std::int32_t i, std::int32_t j, std::int32_t k) const {
    return rho_(wrap(i, 0) + 1, wrap(j, 1) + 1, wrap(k, 2) + 1);
  }
  std::int32_t size(std::size_t axis) const { return n_[axis]; }
  std::int32_t wrap(std::int32_t v, std::size_t axis) const { return ((v % n_[axis]) + n_[axis]) % n_[axis]; }
  // The grid index nearest to a fractional coordinate, not yet wrapped.
  std::int32_t nearest(float x, std::size_t axis) const {
    return static_cast<std::int32_t>(std::lround(static_cast<double>(x) * n_[axis]));
  }
  std::int64_t key(std::int32_t i, std::int32_t j, std::int32_t k) const {
    return (static_cast<std::int64_t>(wrap(k, 2)) * n_[1] + wrap(j, 1)) * n_[0] + wrap(i, 0);
  }

 private:
  const farray3<float>& rho_;
  std::array<std::int32_t, 3> n_;
};

// A maximum of its 26 neighbours; on a plateau only the first point (in
// storage order) counts.
bool is_maximum(const periodic_map& m, const grid_point& p) {
  const float v = m.at(p.i, p.j, p.k);
  for (std::int32_t dk = -1; dk <= 1; ++dk)
    for (std::int32_t dj = -1; dj <= 1; ++dj)
      for (std::int32_t di = -1; di <= 1; ++di) {
        const float w = m.at(p.i + di, p.j + dj, p.k + dk);
        const bool before = dk < 0 || (dk == 0 && (dj < 0 || (dj == 0 && di < 0)));
        if (w > v || (w == v && before && (di || dj || dk))) return false;
      }
  return true;
}

double det3(const std::array<std::array<double, 3>, 3>& h) {
  return h[0][0] * (h[1][1] * h[2][2] - h[1][2] * h[2][1]) - h[0][1] * (h[1][0] * h[2][2] - h[1][2] * h[2][0]) +
         h[0][2] * (h[1][0] * h[2][1] - h[1][1] * h[2][0]);
}

// Least squares fit of c + g.d + d.H.d/2 over the 27 points around p (grid
// units). The fit's maximum gives the position and the height, unless the
// surface is no cap or its top lies beyond a neighbour: then the grid point
// itself (the shift stays 0).
peak_type refined(const periodic_map& m, const grid_point& p) {
  double s0 = 0.0;
  std::array<double, 3> g{}, sq{};
  std::array<std::array<double, 3>, 3> h{};
  for (std::int32_t dk = -1; dk <= 1; ++dk)
    for (std::int32_t dj = -1; dj <= 1; ++dj)
      for (std::int32_t di = -1; di <= 1; ++di) {
        const double f = m.at(p.i + di, p.j + dj, p.k + dk);
        const std::array<double, 3> d{double(di), double(dj), double(dk)};
        s0 += f;
        for (std::size_t a = 0; a < 3; ++a) {
          g[a] += f * d[a] / 18.0;
          sq[a] += f * d[a] * d[a];
          for (std::size_t b = a + 1; b < 3; ++b) h[a][b] = h[b][a] = h[a][b] + f * d[a] * d[b] / 12.0;
        }
      }
  // The even terms c + sum a_i d_i^2 solve their normal equations in closed form.
  const double sum_a = (sq[0] + sq[1] + sq[2] - 2.0 * s0) / 6.0;
  const double c = (s0 - 18.0 * sum_a) / 27.0;
  for (std::size_t a = 0; a < 3; ++a) h[a][a] = 2.0 * (sq[a] - 18.0 * c - 12.0 * sum_a) / 6.0;

  peak_type peak;
  std::array<double, 3> shift{};
  const double minor2 = h[0][0] * h[1][1] - h[0][1] * h[1][0];
  const double det = det3(h);
  bool cap = h[0][0] < 0.0 && minor2 > 0.0 && det < 0.0;
  if (cap) {
    // shift = -H^-1 g by Cramer's rule.
    for (std::size_t a = 0; a < 3 && cap; ++a) {
      auto ha = h;
      for (std::size_t r = 0; r < 3; ++r) ha[r][a] = -g[r];
      shift[a] = det3(ha) / det;
      cap = std::fabs(shift[a]) <= 1.0;
    }
  }
  if (!cap) shift = {};
  const std::array<std::int32_t, 3> at{p.i, p.j, p.k};
  for (std::size_t a = 0; a < 3; ++a) {
    const double x = (at[a] + shift[a]) / m.size(a);
    peak.x[a] = static_cast<float>(x - std::floor(x));
    if (peak.x[a] >= 1.0f) peak.x[a] = 0.0f;  // a hair below 0 rounds up to 1 in float
  }
  // The fitted surface taken through the grid value: a peak on a grid point
  // keeps that value, where the fit's constant would smooth the top away.
  peak.height = static_cast<float>(m.at(p.i, p.j, p.k) + 0.5 * (g[0] * shift[0] + g[1] * shift[1] + g[2] * shift[2]));
  return peak;
}

}  // namespace

std::vector<peak_type> find_peaks(const farray3<float>& rho, const space_group_type& group, std::int32_t count) {
  std::vector<peak_type> peaks;
  if (count <= 0 || rho.size() == 0) return peaks;
  const periodic_map m(rho);
  std::vector<grid_point> maxima;
  for (std::int32_t k = 0; k < m.size(2); ++k)
    for (std::int32_t j = 0; j < m.size(1); ++j)
      for (std::int32_t i = 0; i < m.size(0); ++i)
        if (is_maximum(m, {i, j, k})) maxima.push_back({i, j, k});
  std::stable_sort(maxima.begin(), maxima.end(), [&](const grid_point& a, const grid_point& b) {
    return m.at(a.i, a.j, a.k) > m.at(b.i, b.j, b.k);
  });
  // The grid points next to the symmetry images of the peaks found.
  std::unordered_set<std::int64_t> taken;
  for (const grid_point& p : maxima) {
    if (static_cast<std::int32_t>(peaks.size()) >= count) break;
    bool seen = false;
    for (std::int32_t dk = -1; dk <= 1 && !seen; ++dk)
      for (std::int32_t dj = -1; dj <= 1 && !seen; ++dj)
        for (std::int32_t di = -1; di <= 1 && !seen; ++di) seen = taken.count(m.key(p.i + di, p.j + dj, p.k + dk)) > 0;
    if (seen) continue;
    peak_type peak = refined(m, p);
    peak.mult = get_multip_pos_crys(peak.x, group);
    for (const sym_oper_type& op : group.sym_op) {
      const vec3f image = applyso(op, peak.x);
      taken.insert(m.key(m.nearest(image[0], 0), m.nearest(image[1], 1), m.nearest(image[2], 2)));
    }
    peaks.push_back(peak);
  }
  return peaks;
}

double crystal_distance(const cell_metrics_type& cell, const vec3f& a, const vec3f& b) {
  std::array<double, 3> d{};
  for (std::size_t i = 0; i < 3; ++i) d[i] = std::remainder(static_cast<double>(a[i]) - b[i], 1.0);
  double sum = 0.0;
  for (std::size_t r = 0; r < 3; ++r) {
    double x = 0.0;
    for (std::size_t c = 0; c < 3; ++c) x += cell.cr_orth[r][c] * d[c];
    sum += x * x;
  }
  return std::sqrt(sum);
}
