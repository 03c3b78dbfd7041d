// The isosurface view as a user meets it: pressed on the example map, turned
// with the mouse, given a new level and a box, reset, left for contours; the
// molecule's bonds drawn in depth order; the example molecule.
#include <cmath>

#include "plot/isosurface_view.h"
#include "tests/plot/plot_fixture.h"

namespace {

using ints = std::vector<int>;
using vec3d = std::array<double, 3>;

const std::initializer_list<int> section_commands = {
    cmd::direction, cmd::section_up, cmd::section_down, cmd::sum, cmd::run_through, cmd::probe,
    cmd::atoms,     cmd::text_map,   cmd::legend,       cmd::plane, cmd::foreground};

// v turned by -deg about the unit axis k (Rodrigues), in double precision.
vec3d turned(const vec3d& v, const vec3d& k, double deg) {
  const double t = -deg * M_PI / 180.0, c = std::cos(t), s = std::sin(t);
  const double kv = k[0] * v[0] + k[1] * v[1] + k[2] * v[2];
  const vec3d kxv = {k[1] * v[2] - k[2] * v[1], k[2] * v[0] - k[0] * v[2], k[0] * v[1] - k[1] * v[0]};
  vec3d out{};
  for (std::size_t i = 0; i < 3; ++i) out[i] = v[i] * c + kxv[i] * s + k[i] * kv * (1.0 - c);
  return out;
}

vec3d first_record() { return {qp::xyz(1, 1), qp::xyz(2, 1), qp::xyz(3, 1)}; }

// The largest coordinate of the mesh, in Angstrom from its centre.
float widest() {
  float w = 0.0f;
  for (int k = 1; k <= qp::npoints; ++k)
    for (int c = 1; c <= 3; ++c) w = std::max(w, std::fabs(qp::xyz(c, k)));
  return w;
}

}  // namespace

TEST_F(PlotWindow, IsosurfaceIsShownTurnedReleveledAndLeft) {
  load_nacl();
  vec3d start{}, want{};
  headless::queue_menu(cmd::isosurface);
  headless::queue_look([&] {
    const auto picture = last_picture();
    EXPECT_GT(count(picture, recorded_kind::polyline, 83, 95), 100u);
    EXPECT_EQ(count(picture, recorded_kind::polyline, 0, 82) + count(picture, recorded_kind::polyline, 96, 255), 0u);
    EXPECT_EQ(menu_states(1, section_commands), ints(section_commands.size(), 0));
    EXPECT_EQ(menu_states(2, {cmd::contours, cmd::isosurface}), (ints{0, 1}));
    start = want = first_record();
    // Button 1 turns about y by the horizontal move and about x by the
    // vertical one, button 3 about z; a move across the window is 45 degrees.
    const float du = qp::u_max - qp::u_min, dv = qp::v_max - qp::v_min;
    want = turned(turned(want, {0, 1, 0}, 0.1 * 45), {1, 0, 0}, 0.2 * 45);
    want = turned(want, {0, 0, 1}, -0.3 * 45);
    headless::queue_mouse(msg_mouse_down, 1, 0.0f, 0.0f);
    headless::queue_mouse(msg_mouse_move, 0, 0.1f * du, 0.2f * dv);
    headless::queue_mouse(msg_mouse_up, 1, 0.1f * du, 0.2f * dv);
    headless::queue_mouse(msg_mouse_down, 3, 0.0f, 0.0f);
    headless::queue_mouse(msg_mouse_move, 0, -0.3f * du, 0.5f * dv);
    headless::queue_mouse(msg_mouse_up, 3, -0.3f * du, 0.5f * dv);
    headless::queue_look([&] {
      for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(first_record()[i], want[i], 1e-4) << i;
    });
    // A new level builds the mesh anew, unturned; back at the first level
    // the first record is where it started.
    for (const char* level : {"2.5", "1.5"}) {
      headless::queue_menu(cmd::levels);
      headless::type_text(120, 1256, level);
      headless::press(120, 1);
    }
    headless::queue_look([&] { EXPECT_EQ(first_record(), start); });
    // A box of radius R about a point cuts the mesh to the cubes within R
    // of it (and the one cube the walk takes beyond); Reset gives the whole
    // cell back.
    headless::queue_menu(cmd::limits);
    for (int f = 1261; f <= 1263; ++f) headless::type_text(121, f, "0.5");
    headless::type_text(121, 1260, "1.2");
    headless::press(121, 1);
    headless::queue_look([] {
      const float cube = qp::celda.cell[0] / static_cast<float>(qp::ngrid[0]);
      EXPECT_TRUE(qp::klimits == 1 && qp::npoints > 0 && widest() <= 1.2f + 2.0f * cube);
    });
    headless::queue_menu(cmd::reset);
    headless::queue_look([] { EXPECT_TRUE(qp::klimits == 0 && widest() > 2.5f); });
    headless::queue_menu(cmd::contours);
    headless::queue_look([] {
      EXPECT_EQ(menu_states(1, section_commands), ints(section_commands.size(), 1));
      EXPECT_GT(count(last_picture(), recorded_kind::polyline, 197, 216), 0u);
    });
    headless::queue_menu(cmd::leave);
  });
  menu_plotting();
}

// Atoms are taken from the farthest (least z) on, and each draws only its
// bonds to partners at least as near, so every bond is drawn once, from its
// farther end.
TEST_F(PlotWindow, BondsAreDrawnInDepthOrder) {
  load_nacl();
  qp::boton_tg = 4;
  qp::npoints = 0;
  qp::kbonds = true;
  qp::nbonds = 4;
  qp::at_bonds_o = {{-1.5f, 0.0f, 0.5f}, {-0.5f, 1.0f, -1.0f}, {0.5f, 0.0f, 2.0f}, {1.5f, -1.0f, 0.0f}};
  qp::bonds = {{1, 2, 2, 4}, {2, 2, 1, 3}, {3, 2, 2, 4}, {4, 2, 3, 1}};
  qp::u_min = qp::v_min = -2.0f;
  qp::u_max = qp::v_max = 2.0f;
  headless::queue_look([] {
    std::vector<float> depths;
    for (const auto& p : last_picture()) {
      if (p.kind != recorded_kind::polyline || p.colour.number != 120) continue;
      float z[2];
      for (std::size_t e = 0; e < 2; ++e) {
        float x, y;
        igrunitsfrompixels(static_cast<int>(p.points[e].x), static_cast<int>(p.points[e].y), x, y);
        z[e] = qp::at_bonds_o[static_cast<std::size_t>(std::lround(x + 1.5f))][2];
      }
      EXPECT_LE(z[0], z[1]);
      depths.push_back(z[0]);
    }
    EXPECT_EQ(depths, (std::vector<float>{-1.0f, -1.0f, 0.0f, 0.0f}));
  });
  run_plot();
  qp::kbonds = false;
}

// The example molecule: its connection file draws hexamine's cage at the
// body centre, twelve C-N bonds of 1.47 A.
TEST_F(PlotWindow, ExampleMoleculeShowsItsBonds) {
  load_example("hmt");
  qp::codefil = std::string(QUELMORA_SOURCE_DIR) + "/examples/hmt";
  headless::queue_menu(cmd::isosurface);
  headless::queue_look([] {
    ASSERT_TRUE(qp::kbonds && qp::nbonds == 10);
    int bonds = 0;
    for (std::size_t a = 0; a < 10; ++a)
      for (int l = 0; l < qp::bonds[a][1]; ++l) {
        const auto b = static_cast<std::size_t>(qp::bonds[a][static_cast<std::size_t>(2 + l)] - 1);
        const vec3f &p = qp::at_bonds_o[a], &q = qp::at_bonds_o[b];
        if (b < a) continue;
        ++bonds;
        EXPECT_NEAR(std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]), 1.47f, 0.02f) << a << " " << b;
      }
    EXPECT_EQ(bonds, 12);
  });
  run_plot();
  qp::kbonds = false;
  qp::codefil.clear();
}
