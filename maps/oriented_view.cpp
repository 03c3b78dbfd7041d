// The view of the isosurface scene applied to its points: one 3 x 3 product
// per point, so that a turn of a full mesh of 500,000 records stays cheap.
#include <algorithm>
#include <cstddef>

#include "maps/oriented_section.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

void turn(float& x, float& y, float& z) {
  const float px = x, py = y, pz = z;
  x = qp::xorient[0] * px + qp::yorient[0] * py + qp::zorient[0] * pz;
  y = qp::xorient[1] * px + qp::yorient[1] * py + qp::zorient[1] * pz;
  z = qp::xorient[2] * px + qp::yorient[2] * py + qp::zorient[2] * pz;
}

}  // namespace

void oriented_view() {
  if (qp::kbonds)
    for (vec3f& p : qp::at_bonds_o) turn(p[0], p[1], p[2]);
  if (qp::npoints <= 0 || !qp::xyz.allocated()) return;
  float* r = qp::xyz.data();
  const auto n = static_cast<std::size_t>(std::min(qp::npoints, qp::xyz.extent(2)));
  for (std::size_t k = 0; k < n; ++k, r += 4) turn(r[0], r[1], r[2]);
}
