#include "maps/oriented_section.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "crystal/vant_math_degrees.h"
#include "maps/map_geometry.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;
using namespace map_geometry;

namespace {

constexpr std::int32_t side = 50;
constexpr std::int32_t most_layers = 11;

// Ry(t) v.
vec3f turn_y(float t, const vec3f& v) {
  const float c = cosd_sp(t), s = sind_sp(t);
  return {c * v[0] + s * v[2], v[1], -s * v[0] + c * v[2]};
}

// Rz(p) v.
vec3f turn_z(float p, const vec3f& v) {
  const float c = cosd_sp(p), s = sind_sp(p);
  return {c * v[0] - s * v[1], s * v[0] + c * v[1], v[2]};
}

// A step over a span; a span too small to step over gives steps of 1.
float step_over(float span, float fraction) {
  const float step = std::fabs(span) * fraction;
  return step <= tolerance ? 1.0f : step;
}

// Into the cell by one period: a coordinate within 0.0001 of 0 is 0.
float fold(float f) { return std::fmod(std::fabs(f) <= tolerance ? 10.0f : f + 10.0f, 1.0f); }

float map_value(const vec3f& frac) {
  axis_cell cells[3];
  for (std::size_t a = 0; a < 3; ++a) {
    const std::int32_t n = qp::ngrid[a];
    cells[a] = locate_on_axis(fold(frac[a]), n, 1.0f / static_cast<float>(n));
  }
  const auto [c0, c1] = layer_values(qp::rho, cells[0], cells[1], cells[2]);
  const float tz = cells[2].t;
  return c0 * (1.0f - tz) + c1 * tz;
}

}  // namespace

void rotai(vec3f& out, const vec3f& in) { out = turn_z(qp::phi, turn_y(qp::theta, in)); }

void rotad(vec3f& out, const vec3f& in) { out = turn_y(-qp::theta, turn_z(-qp::phi, in)); }

void rota_ox(vec3f& out, const vec3f& in, float ang) {
  const float c = cosd_sp(ang), s = sind_sp(ang);
  out = {in[0], c * in[1] + s * in[2], -s * in[1] + c * in[2]};
}

void rota_oy(vec3f& out, const vec3f& in, float ang) { out = turn_y(-ang, in); }

void rota_oz(vec3f& out, const vec3f& in, float ang) { out = turn_z(-ang, in); }

void oriented_section() {
  const auto& n = qp::ngrid;
  if (n[0] < 1 || n[1] < 1 || n[2] < 1 || !shape_is(qp::rho, n[0], n[1], n[2]) || !qp::dmap.allocated() ||
      qp::dmap.extent(1) != side || qp::dmap.extent(2) != side)
    return;
  float w_low = qp::zt, w_high = qp::zt;
  if (qp::boton_add) {
    w_low = qp::zt - std::fabs(qp::view_layers[0]);
    w_high = qp::zt + std::fabs(qp::view_layers[1]);
  }
  constexpr float one_49th = 0.020408163f;
  const float du = step_over(qp::xl2 - qp::xl1, one_49th);
  const float dv = step_over(qp::yl2 - qp::yl1, one_49th);
  const float dw = step_over(w_high - w_low, 0.1f);
  for (std::int32_t m = 1; m <= most_layers; ++m) {
    const float w = static_cast<float>(m - 1) * dw + w_low;
    if (w > w_high) break;
    for (std::int32_t iu = 1; iu <= side; ++iu) {
      const float u = static_cast<float>(iu - 1) * du + qp::xl1;
      for (std::int32_t iv = 1; iv <= side; ++iv) {
        const float v = static_cast<float>(iv - 1) * dv + qp::yl1;
        vec3f orth{};
        rotai(orth, {u, v, w});
        qp::dmap(iu, iv) += map_value(times(qp::celda.orth_cr, orth));
      }
    }
  }
}
