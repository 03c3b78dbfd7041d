// The density at a point of the section on screen.
#include "maps/section_extraction.h"

#include <cmath>

#include "maps/map_geometry.h"
#include "maps/section_families.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;
using namespace map_geometry;

namespace {

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
  const std::int32_t ngu = qp::ngrid[static_cast<std::size_t>(f.u - 1)];
  const std::int32_t ngv = qp::ngrid[static_cast<std::size_t>(f.v - 1)];
  if (current_family_is_skewed())
    return {doubled_extent(ngu), doubled_extent(ngv), qp::u_min, qp::v_min, qp::u_inc, qp::v_inc};
  return {closed_extent(ngu), closed_extent(ngv), qp::rmax[0], qp::rmax[1], qp::rinc[0], qp::rinc[1]};
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
