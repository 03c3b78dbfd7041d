// The map as it is drawn: rhonew, made from rho after every load by closing
// the cell periodically or by resampling the box of the file.
#include "maps/section_extraction.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cstddef>
#include <limits>
#include <vector>

#include "maps/map_geometry.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;
using namespace map_geometry;

namespace {

// A coordinate of the box folded into the cell by one period, the ends of
// the cell kept as they are.
float fold_into_cell(float c) {
  if (near(c, 0.0f)) return 0.0f;
  if (near(c, 1.0f)) return 1.0f;
  if (c < 0.0f) c += 1.0f;
  if (c > 1.0f) c -= 1.0f;
  return c;
}

// The cells of the n+1 positions (i-1) * inc + first along one axis. The
// walk depends on the axis alone, so it runs once per position of the axis
// rather than once per point of the grid; the cells are the same.
std::vector<axis_cell> cells_along_axis(std::int32_t n, float first, float inc) {
  std::vector<axis_cell> cells(static_cast<std::size_t>(n) + 1);
  const float d = 1.0f / static_cast<float>(n);
  for (std::int32_t i = 1; i <= n + 1; ++i) {
    const float c = fold_into_cell(static_cast<float>(i - 1) * inc + first);
    cells[static_cast<std::size_t>(i - 1)] = locate_on_axis(c, n, d);
  }
  return cells;
}

bool box_is_whole_cell() {
  return near(qp::xlim[0], 0.0f) && near(qp::xlim[1], 1.0f) && near(qp::ylim[0], 0.0f) &&
         near(qp::ylim[1], 1.0f) && near(qp::zlim[0], 0.0f) && near(qp::zlim[1], 1.0f);
}

// The smallest and largest of the values taken, kept in 16 lanes, four
// vectors of four, that run side by side; a value is taken only when strictly
// beyond its lane's extreme, as in one sequential pass. The vectors are named
// one by one so that they stay in registers while a row is taken (the
// compiler keeps an array of lanes in memory, stored and reloaded at every
// step, which cost more than the copy of the map itself).
class density_range {
 public:
  void take(const float* v, std::size_t n) { copy_and_take(v, nullptr, n); }

  // The n values from v taken, and copied to copy unless it is null: the
  // copy is made from the registers the values were taken into, which
  // spares reading them again from a copy just written.
  void copy_and_take(const float* v, float* copy, std::size_t n) {
    lanes lo = lo_, hi = hi_;
    const std::size_t whole = n - n % 16;
    for (std::size_t i = 0; i < whole; i += 16) {
      take4(lo.a, hi.a, v + i, copy ? copy + i : nullptr);
      take4(lo.b, hi.b, v + i + 4, copy ? copy + i + 4 : nullptr);
      take4(lo.c, hi.c, v + i + 8, copy ? copy + i + 8 : nullptr);
      take4(lo.d, hi.d, v + i + 12, copy ? copy + i + 12 : nullptr);
    }
    for (std::size_t i = whole; i < n; ++i) {
      lo.a[0] = v[i] < lo.a[0] ? v[i] : lo.a[0];
      hi.a[0] = v[i] > hi.a[0] ? v[i] : hi.a[0];
      if (copy) copy[i] = v[i];
    }
    lo_ = lo;
    hi_ = hi;
  }
  float low() const { return lo_.reduce([](float x, float y) { return std::min(x, y); }); }
  float high() const { return hi_.reduce([](float x, float y) { return std::max(x, y); }); }

 private:
  typedef float four __attribute__((vector_size(4 * sizeof(float))));
  struct lanes {
    four a, b, c, d;
    template <typename Pick>
    float reduce(Pick pick) const {
      float m = a[0];
      for (const four& q : {a, b, c, d})
        for (int l = 0; l < 4; ++l) m = pick(m, q[l]);
      return m;
    }
  };
  static void take4(four& lo, four& hi, const float* v, float* copy) {
    four x;
    std::memcpy(&x, v, sizeof x);
    if (copy) std::memcpy(copy, &x, sizeof x);
    lo = x < lo ? x : lo;
    hi = x > hi ? x : hi;
  }
  static constexpr float top = std::numeric_limits<float>::max();
  lanes lo_{{top, top, top, top}, {top, top, top, top}, {top, top, top, top}, {top, top, top, top}};
  lanes hi_{{-top, -top, -top, -top}, {-top, -top, -top, -top}, {-top, -top, -top, -top}, {-top, -top, -top, -top}};
};

// Plane i of the closed grid (1 to n+1) in rho: plane n+1 repeats plane 1.
std::int32_t closing_plane(std::int32_t i, std::int32_t n) { return i <= n ? i : 1; }

// Each row of rhonew is the row of rho at the closing j and k, copied whole,
// closed by the row's first point. The range of the values is taken from
// each row while it is still in the cache.
void close_whole_cell(std::int32_t nx, std::int32_t ny, std::int32_t nz, density_range& range) {
  for (std::int32_t k = 1; k <= nz + 1; ++k) {
    const std::int32_t k0 = closing_plane(k, nz);
    for (std::int32_t j = 1; j <= ny + 1; ++j) {
      const float* from = &qp::rho(1, closing_plane(j, ny), k0);
      float* to = &qp::rhonew(1, j, k);
      range.copy_and_take(from, to, static_cast<std::size_t>(nx));
      to[nx] = from[0];
    }
  }
}

void resample_box(std::int32_t nx, std::int32_t ny, std::int32_t nz) {
  const auto cx = cells_along_axis(nx, qp::xlim[0], qp::xinc);
  const auto cy = cells_along_axis(ny, qp::ylim[0], qp::yinc);
  const auto cz = cells_along_axis(nz, qp::zlim[0], qp::zinc);
  for (std::int32_t k = 1; k <= nz + 1; ++k) {
    const axis_cell& z = cz[static_cast<std::size_t>(k - 1)];
    for (std::int32_t j = 1; j <= ny + 1; ++j) {
      const axis_cell& y = cy[static_cast<std::size_t>(j - 1)];
      for (std::int32_t i = 1; i <= nx + 1; ++i) {
        const axis_cell& x = cx[static_cast<std::size_t>(i - 1)];
        const auto [c0, c1] = layer_values(qp::rho, x, y, z);
        qp::rhonew(i, j, k) = c0 + (c1 - c0) * z.t;
      }
    }
  }
}

// jpg(1) for gamma (the x, y family), jpg(2) for alpha, jpg(3) for beta.
void raise_skew_flags() {
  const float alpha = qp::celda.ang[0], beta = qp::celda.ang[1], gamma = qp::celda.ang[2];
  if (std::fabs(gamma - 90.0f) > tolerance) qp::jpg[0] = 1;
  if (std::fabs(alpha - 90.0f) > tolerance) qp::jpg[1] = 1;
  if (std::fabs(beta - 90.0f) > tolerance) qp::jpg[2] = 1;
}

}  // namespace

void proc_carga() {
  const std::int32_t nx = qp::ngrid[0], ny = qp::ngrid[1], nz = qp::ngrid[2];
  // rho and rhonew are sized by memory_maps; a grid without points leaves
  // rhonew as it stands, there being nothing to take values from.
  density_range range;
  const bool fits = nx > 0 && ny > 0 && nz > 0 && shape_is(qp::rho, nx, ny, nz) &&
                    shape_is(qp::rhonew, nx + 1, ny + 1, nz + 1);
  // The levels of every picture are spread over the extremes of rho: they
  // are taken here, once a load, rather than over the whole map each time.
  // A closed cell holds the values of rho and no others.
  density_range rho_range;
  if (fits && box_is_whole_cell()) {
    close_whole_cell(nx, ny, nz, range);
    rho_range = range;
  } else {
    if (fits) resample_box(nx, ny, nz);
    range.take(qp::rhonew.data(), qp::rhonew.size());
    rho_range.take(qp::rho.data(), qp::rho.size());
  }
  qp::denmin = range.low();
  qp::denmax = range.high();
  const bool none = qp::rho.size() == 0;
  qp::rho_min = none ? 0.0f : rho_range.low();
  qp::rho_max = none ? 0.0f : rho_range.high();
  raise_skew_flags();
}
