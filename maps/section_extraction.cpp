#include "maps/section_extraction.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "crystal/vector_types.h"
#include "maps/plane_walk.h"
#include "maps/section_families.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

// Absolute tolerance of map geometry, limit included.
constexpr float tolerance = 0.0001f;

bool near(float a, float b) { return std::fabs(a - b) <= tolerance; }

float snap_zero(float v) { return std::fabs(v) <= tolerance ? 0.0f : v; }

// Index i of the closed grid (1 to n+1) taken back to the n planes of rho:
// i modulo (n+1), with 0 read as 1, so that plane n+1 repeats plane 1.
std::int32_t wrap_index(std::int32_t i, std::int32_t n) {
  const std::int32_t m = n + 1;
  const std::int32_t r = ((i % m) + m) % m;
  return r == 0 ? 1 : r;
}

bool shape_is(const farray3<float>& a, std::int32_t n1, std::int32_t n2, std::int32_t n3) {
  return a.allocated() && a.extent(1) == n1 && a.extent(2) == n2 && a.extent(3) == n3;
}

// ---- resampling of the file's box ----

// A coordinate of the box folded into the cell by one period, the ends of
// the cell kept as they are.
float fold_into_cell(float c) {
  if (near(c, 0.0f)) return 0.0f;
  if (near(c, 1.0f)) return 1.0f;
  if (c < 0.0f) c += 1.0f;
  if (c > 1.0f) c -= 1.0f;
  return c;
}

// The two grid planes of rho around a coordinate along one axis, and the
// weight of the second one.
struct axis_cell {
  std::int32_t i1 = 1, i2 = 1;
  float t = 0.0f;
};

// Walks the n grid steps of size d = 1/n from the origin and stops at the
// first that holds c. The grid of rho is taken to cover the whole cell at
// that step, whatever the step of the box. A c beyond the last step (by
// rounding, or beyond the one period the fold handles) runs off the walk:
// both corners then come out as plane 1.
axis_cell locate_on_axis(float c, std::int32_t n, float d) {
  std::int32_t ii = n + 1;
  for (std::int32_t k = 1; k <= n; ++k) {
    const float lo = static_cast<float>(k - 1) * d;
    const float hi = static_cast<float>(k) * d;
    if (near(lo, c) || (c > lo && !(hi < c))) {
      ii = k;
      break;
    }
  }
  axis_cell cell;
  cell.i1 = wrap_index(ii, n);
  cell.i2 = wrap_index(ii + 1, n);
  cell.t = snap_zero((c - static_cast<float>(cell.i1 - 1) * d) * static_cast<float>(n));
  return cell;
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

void close_whole_cell(std::int32_t nx, std::int32_t ny, std::int32_t nz) {
  for (std::int32_t k = 1; k <= nz + 1; ++k) {
    const std::int32_t k0 = wrap_index(k, nz);
    for (std::int32_t j = 1; j <= ny + 1; ++j) {
      const std::int32_t j0 = wrap_index(j, ny);
      for (std::int32_t i = 1; i <= nx; ++i) qp::rhonew(i, j, k) = qp::rho(i, j0, k0);
      qp::rhonew(nx + 1, j, k) = qp::rho(1, j0, k0);
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
        const float tx = x.t, ty = y.t, tz = z.t;
        const float c0 = (1.0f - ty) * (1.0f - tx) * qp::rho(x.i1, y.i1, z.i1) +
                         (1.0f - ty) * tx * qp::rho(x.i2, y.i1, z.i1) +
                         tx * ty * qp::rho(x.i2, y.i2, z.i1) +
                         (1.0f - tx) * ty * qp::rho(x.i1, y.i2, z.i1);
        const float c1 = (1.0f - ty) * (1.0f - tx) * qp::rho(x.i1, y.i1, z.i2) +
                         (1.0f - ty) * tx * qp::rho(x.i2, y.i1, z.i2) +
                         tx * ty * qp::rho(x.i2, y.i2, z.i2) +
                         (1.0f - tx) * ty * qp::rho(x.i1, y.i2, z.i2);
        qp::rhonew(i, j, k) = c0 + (c1 - c0) * tz;
      }
    }
  }
}

void set_density_range() {
  qp::denmin = std::numeric_limits<float>::max();
  qp::denmax = -std::numeric_limits<float>::max();
  const float* v = qp::rhonew.data();
  for (std::size_t n = 0; n < qp::rhonew.size(); ++n) {
    if (v[n] < qp::denmin) qp::denmin = v[n];
    if (v[n] > qp::denmax) qp::denmax = v[n];
  }
}

// jpg(1) for gamma (the x, y family), jpg(2) for alpha, jpg(3) for beta.
void raise_skew_flags() {
  const float alpha = qp::celda.ang[0], beta = qp::celda.ang[1], gamma = qp::celda.ang[2];
  if (std::fabs(gamma - 90.0f) > tolerance) qp::jpg[0] = 1;
  if (std::fabs(alpha - 90.0f) > tolerance) qp::jpg[1] = 1;
  if (std::fabs(beta - 90.0f) > tolerance) qp::jpg[2] = 1;
}

// ---- sections of skewed families ----

float bilinear(float f00, float f10, float f01, float f11, float t, float s) {
  return f00 + (f10 - f00) * t + ((f00 - f10 - f01 + f11) * t + (f01 - f00)) * s;
}

vec3f times(const mat3f& m, const vec3f& v) {
  vec3f out{};
  for (std::size_t r = 0; r < 3; ++r)
    out[r] = snap_zero(m[r][0] * v[0] + m[r][1] * v[1] + m[r][2] * v[2]);
  return out;
}

// ---- values at points of a section ----

// jpg(imap): the current family's in-plane axes are not perpendicular.
bool current_family_is_skewed() {
  const std::int32_t m = qp::imap >= 1 && qp::imap <= 3 ? qp::imap : 1;
  return qp::jpg[static_cast<std::size_t>(m - 1)] != 0;
}

// Extents, origin and steps of the current dmap.
struct dmap_grid {
  std::int32_t n1 = 0, n2 = 0;
  float p = 0.0f, q = 0.0f, dp = 0.0f, dq = 0.0f;
};

dmap_grid current_dmap_grid() {
  if (qp::plane_def) {
    constexpr float one_49th = 0.020408163f;
    return {50, 50, qp::xl1, qp::yl1, std::fabs(qp::xl2 - qp::xl1) * one_49th,
            std::fabs(qp::yl2 - qp::yl1) * one_49th};
  }
  const section_family_type f = section_family(qp::imap);
  const std::int32_t nu = qp::ngrid[static_cast<std::size_t>(f.u - 1)] + 1;
  const std::int32_t nv = qp::ngrid[static_cast<std::size_t>(f.v - 1)] + 1;
  if (current_family_is_skewed())
    return {2 * nu - 1, 2 * nv - 1, qp::u_min, qp::v_min, qp::u_inc, qp::v_inc};
  return {nu, nv, qp::rmax[0], qp::rmax[1], qp::rinc[0], qp::rinc[1]};
}

// The cell of a walk along one side of dmap: the first i whose step holds x,
// or, when none does, i = 1 paired with n and the bounds of the last step.
struct dmap_cell {
  std::int32_t i1 = 1, i2 = 1;
  float lo = 0.0f, hi = 0.0f;
};

dmap_cell locate_in_dmap(float x, std::int32_t n, float origin, float step) {
  dmap_cell cell;
  for (std::int32_t i = 1; i <= n - 1; ++i) {
    cell.lo = static_cast<float>(i - 1) * step + origin;
    cell.hi = cell.lo + step;
    if (std::fabs(x - cell.lo) <= tolerance || (cell.lo <= x && x <= cell.hi)) {
      cell.i1 = i;
      cell.i2 = i + 1;
      return cell;
    }
  }
  cell.i1 = 1;
  cell.i2 = n;
  return cell;
}

}  // namespace

void proc_carga() {
  const std::int32_t nx = qp::ngrid[0], ny = qp::ngrid[1], nz = qp::ngrid[2];
  // rho and rhonew are sized by memory_maps; a grid without points leaves
  // rhonew as it stands, there being nothing to take values from.
  if (nx > 0 && ny > 0 && nz > 0 && shape_is(qp::rho, nx, ny, nz) &&
      shape_is(qp::rhonew, nx + 1, ny + 1, nz + 1)) {
    if (box_is_whole_cell())
      close_whole_cell(nx, ny, nz);
    else
      resample_box(nx, ny, nz);
  }
  set_density_range();
  raise_skew_flags();
}

void carga_seccion_rec(std::int32_t isec, std::int32_t& ndim_x, std::int32_t& ndim_y) {
  const section_family_type f = section_family(qp::imap);
  const std::int32_t ngu = qp::ngrid[static_cast<std::size_t>(f.u - 1)];
  const std::int32_t ngv = qp::ngrid[static_cast<std::size_t>(f.v - 1)];
  const std::int32_t ngw = qp::ngrid[static_cast<std::size_t>(f.w - 1)];
  ndim_x = 2 * (ngu + 1) - 1;
  ndim_y = 2 * (ngv + 1) - 1;
  // The plane is read from rho; without a grid, or with a dmap of another
  // size, there is nothing to add.
  if (ngu < 1 || ngv < 1 || ngw < 1 || !shape_is(qp::rho, qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]) ||
      !qp::dmap.allocated() || qp::dmap.extent(1) != ndim_x || qp::dmap.extent(2) != ndim_y)
    return;

  // Height of the plane in Angstrom, across the plane.
  const float w = static_cast<float>(isec - 1) * qp::rinc[2] + qp::rmax[2];
  const vec3f origin = times(qp::celda.cr_orth, place_on_axes(f, qp::rmax[0], qp::rmax[1], w));
  const float w0 = origin[static_cast<std::size_t>(f.w - 1)];
  const std::int32_t ks = wrap_index(isec, ngw);

  for (std::int32_t j = 1; j <= ndim_y; ++j) {
    const float v_orth = static_cast<float>(j - 1) * qp::v_inc + qp::v_min;
    for (std::int32_t i = 1; i <= ndim_x; ++i) {
      const float u_orth = static_cast<float>(i - 1) * qp::u_inc + qp::u_min;
      const vec3f frac = times(qp::celda.orth_cr, place_on_axes(f, u_orth, v_orth, w0));
      // One period of folding; +10 keeps points up to ten cells below positive.
      const float a = std::fmod(frac[static_cast<std::size_t>(f.u - 1)] + 10.0f, 1.0f);
      const float b = std::fmod(frac[static_cast<std::size_t>(f.v - 1)] + 10.0f, 1.0f);
      const plane_cell cu = locate_in_plane(a, ngu);
      const plane_cell cv = locate_in_plane(b, ngv);
      auto at = [&](std::int32_t iu, std::int32_t iv) {
        const vec3i g = place_on_axes(f, iu, iv, ks);
        return qp::rho(g[0], g[1], g[2]);
      };
      const float t = (a - cu.lo) / (cu.hi - cu.lo);
      const float s = (b - cv.lo) / (cv.hi - cv.lo);
      const float val = bilinear(at(cu.i1, cv.i1), at(cu.i2, cv.i1), at(cu.i1, cv.i2),
                                 at(cu.i2, cv.i2), t, s);
      if (section_sum_accepts(val)) qp::dmap(i, j) += val;
    }
  }
}

void calc_point_val(float x, float y, float& val) {
  val = 0.0f;
  const dmap_grid g = current_dmap_grid();
  if (g.n1 < 2 || g.n2 < 2 || !qp::dmap.allocated() || qp::dmap.extent(1) != g.n1 ||
      qp::dmap.extent(2) != g.n2)
    return;
  const dmap_cell ci = locate_in_dmap(x, g.n1, g.p, g.dp);
  const dmap_cell cj = locate_in_dmap(y, g.n2, g.q, g.dq);
  const float t = (x - ci.lo) / (ci.hi - ci.lo);
  const float s = (y - cj.lo) / (cj.hi - cj.lo);
  val = bilinear(qp::dmap(ci.i1, cj.i1), qp::dmap(ci.i2, cj.i1), qp::dmap(ci.i1, cj.i2),
                 qp::dmap(ci.i2, cj.i2), t, s);
}

void frac2orth(float x, float y, float z, float& xo, float& yo, float& zo) {
  const vec3f o = times(qp::celda.cr_orth, {x, y, z});
  xo = o[0];
  yo = o[1];
  zo = o[2];
}

void orth2frac(float xo, float yo, float zo, float& x, float& y, float& z) {
  const vec3f f = times(qp::celda.orth_cr, {xo, yo, zo});
  x = f[0];
  y = f[1];
  z = f[2];
}

std::array<std::array<float, 2>, 4> skewed_section_window(std::int32_t isec) {
  const section_family_type f = section_family(qp::imap);
  const float w = static_cast<float>(isec - 1) * qp::rinc[2] + qp::rmax[2];
  const std::array<std::array<float, 2>, 4> box{{{qp::rmax[0], qp::rmax[1]},
                                                 {qp::rmax[0], qp::rmax[4]},
                                                 {qp::rmax[3], qp::rmax[4]},
                                                 {qp::rmax[3], qp::rmax[1]}}};
  std::array<std::array<float, 2>, 4> corners{};
  for (std::size_t c = 0; c < 4; ++c) {
    const vec3f o = times(qp::celda.cr_orth, place_on_axes(f, box[c][0], box[c][1], w));
    corners[c] = {o[static_cast<std::size_t>(f.u - 1)], o[static_cast<std::size_t>(f.v - 1)]};
  }
  qp::u_min = qp::u_max = corners[0][0];
  qp::v_min = qp::v_max = corners[0][1];
  for (const auto& c : corners) {
    qp::u_min = std::fmin(qp::u_min, c[0]);
    qp::u_max = std::fmax(qp::u_max, c[0]);
    qp::v_min = std::fmin(qp::v_min, c[1]);
    qp::v_max = std::fmax(qp::v_max, c[1]);
  }
  const std::int32_t nu = qp::ngrid[static_cast<std::size_t>(f.u - 1)] + 1;
  const std::int32_t nv = qp::ngrid[static_cast<std::size_t>(f.v - 1)] + 1;
  // A grid of one point per side has no step.
  qp::u_inc = nu > 1 ? (qp::u_max - qp::u_min) / static_cast<float>(2 * nu - 2) : 0.0f;
  qp::v_inc = nv > 1 ? (qp::v_max - qp::v_min) / static_cast<float>(2 * nv - 2) : 0.0f;
  return corners;
}

bool section_sum_accepts(float val) {
  if (qp::sum_all) return true;
  return (qp::sum_positive && val >= 0.0f) || (qp::sum_negative && val < 0.0f);
}
