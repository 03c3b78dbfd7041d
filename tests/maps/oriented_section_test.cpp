#include <gtest/gtest.h>

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

TEST(PlaneFrame, TurnsAgainstHandValues) {
  struct row {
    float theta, phi;
    vec3f in, plane_to_crystal;
  };
  const row rows[] = {
      {0.0f, 0.0f, {1.0f, 2.0f, 3.0f}, {1.0f, 2.0f, 3.0f}},
      {90.0f, 0.0f, {0.0f, 0.0f, 1.0f}, {1.0f, 0.0f, 0.0f}},
      {0.0f, 90.0f, {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}},
      {90.0f, 90.0f, {0.0f, 0.0f, 2.0f}, {0.0f, 2.0f, 0.0f}},
      {33.0f, 217.0f, {0.3f, -1.2f, 2.5f}, {}},
  };
  for (const row& r : rows) {
    qp::theta = r.theta;
    qp::phi = r.phi;
    vec3f out{}, back{};
    rotai(out, r.in);
    if (r.plane_to_crystal != vec3f{}) expect_near(out, r.plane_to_crystal);
    rotad(back, out);
    expect_near(back, r.in);
  }
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

class OrientedSection : public ::testing::Test {
 protected:
  // A cubic cell of 10 A on a 10-point grid, rho = i + j + k: inside the
  // cell the density at fractions (x, y, z) is 3 + 10 (x + y + z).
  void SetUp() override {
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
    qp::boton_add = false;
    qp::view_layers = {0.0f, 0.0f};
    qp::dmap.allocate(50, 50);
  }
};

// The plane z = 2 A seen along z: columns run along x in steps of 0.1 A.
TEST_F(OrientedSection, PlaneAcrossZ) {
  qp::xl1 = 0.0f;
  qp::xl2 = 4.9f;
  qp::yl1 = 1.0f;
  qp::yl2 = 5.9f;
  qp::zt = 2.0f;
  oriented_section();
  struct row {
    int iu, iv;
    float value;
  };
  for (const row& r : {row{1, 1, 6.0f}, row{11, 1, 7.0f}, row{50, 1, 10.9f}, row{6, 21, 8.5f}})
    EXPECT_NEAR(qp::dmap(r.iu, r.iv), r.value, 1e-4f) << r.iu << "," << r.iv;
}

// A window of no width steps 1 A at a time, so the columns still differ.
TEST_F(OrientedSection, WindowOfNoWidthStepsByOneAngstrom) {
  qp::xl1 = qp::xl2 = 1.0f;
  qp::yl1 = qp::yl2 = 0.0f;
  qp::zt = 0.0f;
  oriented_section();
  EXPECT_NEAR(qp::dmap(1, 1), 4.0f, 1e-4f);
  EXPECT_NEAR(qp::dmap(2, 1), 5.0f, 1e-4f);
  EXPECT_NEAR(qp::dmap(1, 3), 6.0f, 1e-4f);
}

// A point a hair below the cell's end stays in the last step, between
// plane 10 and plane 1, rather than folding onto the origin.
TEST_F(OrientedSection, PointJustBelowTheCellEnd) {
  qp::xl1 = qp::xl2 = 9.9995f;
  qp::yl1 = qp::yl2 = 0.0f;
  qp::zt = 0.0f;
  oriented_section();
  // y and z give 1 each; along x, plane 10 weighs 0.0005 and plane 1 0.9995.
  EXPECT_NEAR(qp::dmap(1, 1), 2.0f + 0.0005f * 10.0f + 0.9995f * 1.0f, 2e-3f);
}

// Thick sections add their layers: none apart gives one layer, 0.5 A each
// side gives eleven, whose values sum to 11 times the middle one here.
TEST_F(OrientedSection, LayersAreSummed) {
  qp::xl1 = qp::yl1 = 2.0f;
  qp::xl2 = qp::yl2 = 6.9f;
  qp::zt = 3.0f;
  qp::boton_add = true;
  struct row {
    float below, above, value;
  };
  for (const row& r : {row{0.0f, 0.0f, 10.0f}, row{0.5f, -0.5f, 110.0f}}) {
    qp::view_layers = {r.below, r.above};
    qp::dmap.allocate(50, 50);
    oriented_section();
    EXPECT_NEAR(qp::dmap(1, 1), r.value, 1e-3f) << r.below;
  }
}

}  // namespace
