#include "plot/isosurface_mesh.h"

#include <span>

#include "crystal/vant_maps_mesh.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

float isosurface_density() { return qp::densigma * qp::isolev + qp::denave; }

void isosurface_mesh(const std::optional<std::array<float, 6>>& box) {
  const float level = isosurface_density();
  calculate_mesh(qp::rho, qp::ngrid, std::span(&level, 1), "TT", std::span(&qp::npoints, 1), qp::xyz, box);
}
