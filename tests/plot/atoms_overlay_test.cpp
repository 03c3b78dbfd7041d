// The atoms overlay through the plot window: which atoms of the cell land on
// a section, where their discs stand, their colours and the peaks question.
#include <cmath>
#include <tuple>

#include "crystal/vant_crystallographic_symmetry.h"
#include "maps/section_families.h"
#include "tests/plot/plot_fixture.h"

namespace {

struct disc {
  float u, v;
  int colour;
  float radius;
};

class AtomsOverlay : public PlotWindow {
 protected:
  // The atoms (label and position) in a cubic cell of 5.64 A on a 10-step
  // grid, the section at z = 0.5.
  static void set_structure(const std::string& group, const std::vector<std::pair<std::string, vec3f>>& atoms) {
    make_map({5.64f, 5.64f, 5.64f}, {90, 90, 90}, {10, 10, 10},
             [](int i, int j, int k) { return static_cast<float>(i + 2 * j + 3 * k); });
    qp::grp_espacial = space_group_type{};
    set_spacegroup(group, qp::grp_espacial);
    qp::atomos.natoms = static_cast<std::int32_t>(atoms.size());
    qp::atomos.atom.clear();
    for (const auto& [label, x] : atoms) {
      auto& a = qp::atomos.atom.emplace_back();
      std::tie(a.lab, a.x, a.occ) = std::tuple(label, x, 1.0f);
    }
    qp::katom = qp::show_peaks = false;
    qp::seccion = {1, 1, 6};
    fresh_screen();
  }

  // The discs of the picture shown now.
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

// Rock salt on the sections at w = 0 and w = 1/2 of each direction: Na and
// Cl alternate on the corners and the centre lines of the square, all on the
// section. The walk over the cell translations adds its shifts up, so no copy
// lands on the far edges u = 1 or v = 1. Labels stay inside the frame.
TEST_F(AtomsOverlay, RockSaltOnEachSectionThroughItsAtoms) {
  for (int direction : {1, 2, 3})
    for (int section : {1, 6}) {
      set_structure("F m -3 m", {{"Na", {0, 0, 0}}, {"Cl", {0.5f, 0.5f, 0.5f}}});
      qp::imap = direction;
      qp::boton_atom = false;
      qp::seccion = {1, 1, 1};
      qp::seccion[static_cast<std::size_t>(section_family(direction).w - 1)] = section;
      headless::answer_box(2);
      headless::queue_menu(cmd::atoms);
      headless::queue_look([=] {
        const std::vector<disc> d = discs();
        ASSERT_EQ(d.size(), 4u) << direction << " " << section;
        for (const auto& [u, v] : std::vector<std::pair<float, float>>{{0, 0.5f}, {0.5f, 0}, {0.5f, 0.5f}, {0, 0}})
          EXPECT_TRUE(has_disc(d, u, v, 16)) << u << " " << v << " on " << direction << " " << section;
        for (const disc& one : d) EXPECT_NEAR(one.radius, 15.0f, 0.5f);
        EXPECT_EQ(text_count(last_picture(), section == 1 ? "Na" : "Cl"), 1);
        // Labels of atoms on the frame are moved inside it, clear of the scale numbers.
        for (const auto& t : last_picture()) {
          if (t.kind != recorded_kind::text || !(t.text.starts_with("Na") || t.text.starts_with("Cl"))) continue;
          const float width = t.text_style.char_width * static_cast<float>(t.text.size());
          const float left = t.points[0].x - 0.5f * static_cast<float>(t.text_style.alignment) * width;
          const plot_point low = in_plot_units({left, t.points[0].y + 0.5f * t.text_style.char_height});
          const plot_point high = in_plot_units({left + width, t.points[0].y - 0.5f * t.text_style.char_height});
          EXPECT_TRUE(low.x > -1e-3f && low.y > -1e-3f && high.x < 1.001f && high.y < 1.001f) << t.text;
        }
        EXPECT_EQ(qp::atmcell.natoms, 8);
      });
      run_plot();
      EXPECT_FALSE(qp::katom) << "leaving the plot window forgets the cell's atoms";
    }
}

// Below, on and above the section, one outside the slab, and a peak that
// only shows after Yes. Probing leaves the atoms command alone while atoms
// are shown; a second press takes the overlay away and gives the probe
// command back.
TEST_F(AtomsOverlay, SideColoursPeaksAndSecondPress) {
  for (int answer : {2, 1}) {
    set_structure("P 1", {{"C1", {0.2f, 0.3f, 0.45f}}, {"C2", {0.4f, 0.3f, 0.5f}}, {"C3", {0.6f, 0.3f, 0.55f}},
                          {"C4", {0.6f, 0.6f, 0.7f}}, {"PK1", {0.8f, 0.8f, 0.5f}}});
    headless::answer_box(answer);
    headless::queue_menu(cmd::atoms);
    headless::queue_look([answer] {
      const std::vector<disc> d = discs();
      EXPECT_EQ(d.size(), answer == 1 ? 4u : 3u);
      EXPECT_TRUE(has_disc(d, 0.2f, 0.3f, 128) && has_disc(d, 0.4f, 0.3f, 16) && has_disc(d, 0.6f, 0.3f, 192));
      EXPECT_EQ(has_disc(d, 0.8f, 0.8f, 16), answer == 1);
      EXPECT_EQ(wmenugetstate(cmd::probe, 1), 0);
    });
    headless::queue_menu(cmd::probe);
    headless::queue_menu(cmd::probe);
    headless::queue_menu(cmd::atoms);
    headless::queue_look([] {
      EXPECT_TRUE(discs().empty());
      EXPECT_EQ(menu_states(1, {cmd::probe, cmd::atoms}), (std::vector{1, 1}));
      EXPECT_EQ(wmenugetstate(cmd::atoms, 2), 0);
    });
    run_plot();
    EXPECT_EQ(headless::box_texts(), std::vector<std::string>{"Do you want plot also Peaks?"});
    EXPECT_EQ(headless::boxes().back().title, "Showing Peaks");
    EXPECT_FALSE(qp::boton_atom);
  }
}
