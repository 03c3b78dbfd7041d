// The atoms overlay through the plot window: which atoms of the cell land on
// a section, where their discs stand, their colours and the peaks question.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "plot/menu_plot.h"
#include "tests/plot/plot_fixture.h"

namespace {

struct disc {
  float u, v;
  int colour;
  float radius;
};

atom_type atom(const std::string& lab, vec3f x) {
  atom_type a;
  a.lab = lab;
  a.x = x;
  a.occ = 1.0f;
  return a;
}

class AtomsOverlay : public PlotWindow {
 protected:
  // A cubic cell of 5.64 A on a 10-step grid, the section at z = 0.5.
  static void set_structure(const std::string& group, std::vector<atom_type> atoms) {
    make_map({5.64f, 5.64f, 5.64f}, {90, 90, 90}, {10, 10, 10},
             [](int i, int j, int k) { return static_cast<float>(i + 2 * j + 3 * k); });
    qp::grp_espacial = space_group_type{};
    set_spacegroup(group, qp::grp_espacial);
    qp::atomos.natoms = static_cast<std::int32_t>(atoms.size());
    qp::atomos.atom = std::move(atoms);
    qp::katom = false;
    qp::show_peaks = false;
    qp::seccion = {1, 1, 6};
  }

  // Turns the overlay on with the given answer to the peaks question; the
  // discs and texts of the picture shown then.
  static std::pair<std::vector<disc>, std::vector<std::string>> show_atoms(int answer) {
    std::pair<std::vector<disc>, std::vector<std::string>> shown;
    fresh_screen();
    headless::answer_box(answer);
    headless::queue_menu(40032);
    headless::queue_look([&] { shown = {discs(), texts(last_picture())}; });
    headless::queue_menu(40033);
    menu_plotting();
    return shown;
  }

  static std::vector<disc> discs() {
    std::vector<disc> out;
    for (const auto& p : last_picture())
      if (p.kind == recorded_kind::circle && p.filled) {
        const plot_point at = in_plot_units(p.points[0]);
        out.push_back({at.x, at.y, p.colour.number, p.radius});
      }
    return out;
  }

  static bool has_disc(const std::vector<disc>& all, float u, float v, int colour) {
    return std::any_of(all.begin(), all.end(), [&](const disc& d) {
      return std::fabs(d.u - u) < 0.01f && std::fabs(d.v - v) < 0.01f && d.colour == colour;
    });
  }
};

}  // namespace

// Rock salt at z = 1/2: Na at (0, 1/2) and (1/2, 0), Cl at (1/2, 1/2) and
// (0, 0), all on the section. The walk over the cell translations adds its
// shifts up, so no copy lands on the far edges x = 1 or y = 1.
TEST_F(AtomsOverlay, RockSaltOnTheMiddleSection) {
  set_structure("F m -3 m", {atom("Na", {0, 0, 0}), atom("Cl", {0.5f, 0.5f, 0.5f})});
  const auto [d, labels] = show_atoms(2);
  EXPECT_TRUE(qp::boton_atom);
  EXPECT_FALSE(qp::katom) << "leaving the plot window forgets the cell's atoms";
  EXPECT_EQ(qp::atmcell.natoms, 8);
  ASSERT_EQ(d.size(), 4u);
  for (const auto& [u, v] : std::vector<std::pair<float, float>>{{0, 0.5f}, {0.5f, 0}, {0.5f, 0.5f}, {0, 0}})
    EXPECT_TRUE(has_disc(d, u, v, 16)) << u << " " << v;
  for (const disc& one : d) EXPECT_NEAR(one.radius, 15.0f, 0.5f);
  EXPECT_EQ(std::count(labels.begin(), labels.end(), "Cl"), 1);
}

// Below, on and above the section, one outside the slab, and a peak that
// only shows after Yes.
TEST_F(AtomsOverlay, SideColoursAndPeaks) {
  struct row {
    int answer;
    std::size_t discs;
    bool peak_shown;
  } const rows[] = {{2, 3, false}, {1, 4, true}};
  for (const row& r : rows) {
    set_structure("P 1", {atom("C1", {0.2f, 0.3f, 0.45f}), atom("C2", {0.4f, 0.3f, 0.5f}),
                          atom("C3", {0.6f, 0.3f, 0.55f}), atom("C4", {0.6f, 0.6f, 0.7f}),
                          atom("PK1", {0.8f, 0.8f, 0.5f})});
    const std::vector<disc> d = show_atoms(r.answer).first;
    EXPECT_EQ(d.size(), r.discs) << r.answer;
    EXPECT_TRUE(has_disc(d, 0.2f, 0.3f, 128));
    EXPECT_TRUE(has_disc(d, 0.4f, 0.3f, 16));
    EXPECT_TRUE(has_disc(d, 0.6f, 0.3f, 192));
    EXPECT_EQ(has_disc(d, 0.8f, 0.8f, 16), r.peak_shown);
    ASSERT_FALSE(headless::boxes().empty());
    EXPECT_EQ(headless::boxes().back().text, "Do you want plot also Peaks?");
    EXPECT_EQ(headless::boxes().back().title, "Showing Peaks");
    qp::boton_atom = false;
  }
}

// A second press takes the overlay away and gives the probe command back.
TEST_F(AtomsOverlay, SecondPressTurnsItOff) {
  set_structure("P 1", {atom("C1", {0.4f, 0.3f, 0.5f})});
  fresh_screen();
  headless::answer_box(2);
  headless::queue_menu(40032);
  headless::queue_menu(40032);
  headless::queue_look([] {
    EXPECT_TRUE(discs().empty());
    EXPECT_EQ(wmenugetstate(40030, 1), 1);
    EXPECT_EQ(wmenugetstate(40032, 2), 0);
  });
  headless::queue_menu(40033);
  menu_plotting();
  EXPECT_FALSE(qp::boton_atom);
}
