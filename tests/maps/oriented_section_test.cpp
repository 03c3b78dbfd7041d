#include <gtest/gtest.h>

#include <tuple>

#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

void expect_near(const vec3f& got, const vec3f& want) {
  for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(got[k], want[k], 2e-5f) << k;
}

// Each elementary turn goes by minus the angle about its axis.
TEST(ViewTurns, ByMinusTheAngle) {
  vec3f out{};
  rota_ox(out, {0.0f, 1.0f, 0.0f}, 90.0f);
  expect_near(out, {0.0f, 0.0f, -1.0f});
  rota_oy(out, {1.0f, 0.0f, 0.0f}, 90.0f);
  expect_near(out, {0.0f, 0.0f, 1.0f});
  rota_oz(out, {1.0f, 0.0f, 0.0f}, 90.0f);
  expect_near(out, {0.0f, -1.0f, 0.0f});
}

// A cubic cell of 10 A on a 10-point grid, rho = i + j + k: inside the cell
// the density at fractions (x, y, z) is 3 + 10 (x + y + z). Each row is a
// window (x from xl1 to xl2, y from yl1 to yl2 at height zt, layers below
// and above when summed) and values of dmap(iu, iv) worked out by hand.
TEST(OrientedSection, ValuesOfTheCubicDensity) {
  qp::celda = cell_metrics_type{};
  set_crystal_cell({10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f}, qp::celda);
  qp::ngrid = {10, 10, 10};
  qp::rho.release();
  qp::rhonew.release();
  memory_maps();
  for (int k = 1; k <= 10; ++k)
    for (int j = 1; j <= 10; ++j)
      for (int i = 1; i <= 10; ++i) qp::rho(i, j, k) = static_cast<float>(i + j + k);
  qp::theta = qp::phi = 0.0f;
  struct probe {
    int iu, iv;
    float value;
  };
  const struct {
    const char* what;
    float xl1, xl2, yl1, yl2, zt;
    bool add;
    std::array<float, 2> layers;  // below and above, when added
    float tol;
    std::vector<probe> probes;
  } rows[] = {
      {"plane z = 2 A, steps of 0.1 A", 0.0f, 4.9f, 1.0f, 5.9f, 2.0f, false, {}, 1e-4f,
       {{1, 1, 6.0f}, {11, 1, 7.0f}, {50, 1, 10.9f}, {6, 21, 8.5f}}},
      {"a window of no width steps by 1 A", 1.0f, 1.0f, 0.0f, 0.0f, 0.0f, false, {}, 1e-4f,
       {{1, 1, 4.0f}, {2, 1, 5.0f}, {1, 3, 6.0f}}},
      // Along x plane 10 weighs 0.0005 and plane 1 0.9995, rather than the
      // point folding onto the origin.
      {"a hair below the cell's end", 9.9995f, 9.9995f, 0.0f, 0.0f, 0.0f, false, {}, 2e-3f,
       {{1, 1, 2.0f + 0.0005f * 10.0f + 0.9995f}}},
      {"one layer when none apart", 2.0f, 6.9f, 2.0f, 6.9f, 3.0f, true, {0.0f, 0.0f}, 1e-3f, {{1, 1, 10.0f}}},
      {"eleven layers 0.5 A each side", 2.0f, 6.9f, 2.0f, 6.9f, 3.0f, true, {0.5f, -0.5f}, 1e-3f, {{1, 1, 110.0f}}},
  };
  for (const auto& r : rows) {
    std::tie(qp::xl1, qp::xl2, qp::yl1, qp::yl2, qp::zt) = std::tuple(r.xl1, r.xl2, r.yl1, r.yl2, r.zt);
    qp::boton_add = r.add;
    qp::view_layers = r.layers;
    qp::dmap.allocate(50, 50);
    oriented_section();
    for (const probe& p : r.probes)
      EXPECT_NEAR(qp::dmap(p.iu, p.iv), p.value, r.tol) << r.what << ": " << p.iu << "," << p.iv;
  }
}

}  // namespace
