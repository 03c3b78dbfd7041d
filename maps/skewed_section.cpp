// Sections of the families whose in-plane axes are not perpendicular,
// resampled on a rectangular grid in Angstrom, and the coordinate
// conversions they rest on.
#include "maps/section_extraction.h"

#include <cmath>
#include <cstddef>

#include "maps/map_geometry.h"
#include "maps/plane_walk.h"
#include "maps/section_families.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;
using namespace map_geometry;

void carga_seccion_rec(std::int32_t isec, std::int32_t& ndim_x, std::int32_t& ndim_y) {
  const section_family_type f = section_family(qp::imap);
  const std::int32_t ngu = qp::ngrid[static_cast<std::size_t>(f.u - 1)];
  const std::int32_t ngv = qp::ngrid[static_cast<std::size_t>(f.v - 1)];
  const std::int32_t ngw = qp::ngrid[static_cast<std::size_t>(f.w - 1)];
  ndim_x = doubled_extent(ngu);
  ndim_y = doubled_extent(ngv);
  // The plane is read from rho; without a grid, or with a dmap of another
  // size, there is nothing to add.
  if (ngu < 1 || ngv < 1 || ngw < 1 || ndim_x == 0 || ndim_y == 0 ||
      !shape_is(qp::rho, qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]) || !qp::dmap.allocated() ||
      qp::dmap.extent(1) != ndim_x || qp::dmap.extent(2) != ndim_y)
    return;

  // The plane's fractional position; of its orthogonal coordinates only the
  // one across the plane is kept.
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
  // 2 nu - 2 steps across the doubled grid, nu = ngrid + 1 points a side.
  const float steps_u = 2.0f * static_cast<float>(qp::ngrid[static_cast<std::size_t>(f.u - 1)]);
  const float steps_v = 2.0f * static_cast<float>(qp::ngrid[static_cast<std::size_t>(f.v - 1)]);
  qp::u_inc = steps_u > 0.0f ? (qp::u_max - qp::u_min) / steps_u : 0.0f;
  qp::v_inc = steps_v > 0.0f ? (qp::v_max - qp::v_min) / steps_v : 0.0f;
  return corners;
}

bool section_sum_accepts(float val) {
  if (qp::sum_all) return true;
  return (qp::sum_positive && val >= 0.0f) || (qp::sum_negative && val < 0.0f);
}
