#include <gtest/gtest.h>

#include <sstream>

#include "crystal/vant_crystal_metrics.h"
#include "maps/map_memory.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"
#include "tests/maps/map_test_data.h"

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

// Sections of the cubic density of tests/data/maps/oriented_sections.txt
// against values worked out by hand.
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
  for (const std::string& row : table_rows("oriented_sections.txt")) {
    std::istringstream in(row);
    float tol = 0.0f, value = 0.0f;
    int iu = 0, iv = 0;
    in >> qp::xl1 >> qp::xl2 >> qp::yl1 >> qp::yl2 >> qp::zt >> qp::boton_add >> qp::view_layers[0] >>
        qp::view_layers[1] >> tol;
    qp::dmap.allocate(50, 50);
    oriented_section();
    while (in >> iu >> iv >> value) EXPECT_NEAR(qp::dmap(iu, iv), value, tol) << row << ": " << iu << "," << iv;
    EXPECT_TRUE(in.eof()) << "unreadable row: " << row;
  }
}

}  // namespace
