// A recorded window of 400 x 400 pixels whose whole area is the plot area,
// with the plot state reset, and helpers to read drawn points back in plot units.
#pragma once

#include <vector>

#include "tests/toolkit/graphics_fixture.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"

struct plot_point {
  double x, y;
};

class recorded_plot : public ::testing::Test {
 protected:
  void SetUp() override {
    attach_target(igr_window, 0, &screen);
    igrselect(igr_window, 0);
    igrinit();
    ipginit();
    ipgarea(0, 0, 1, 1);
    winfoerror(1);
  }
  void TearDown() override { attach_target(igr_window, 0, nullptr); }

  const std::vector<recorded_primitive>& drawn() const { return screen.primitives(); }

  // A drawn pixel position in plot units.
  static plot_point in_plot_units(const pixel_point& p) {
    const auto& s = ipgstate;
    return {s.xpmin + p.x / 400.0 * s.xplen, s.ypmin + (1 - p.y / 400.0) * s.yplen};
  }

  std::vector<const recorded_primitive*> drawn_of(recorded_kind kind) const {
    std::vector<const recorded_primitive*> out;
    for (const auto& p : drawn())
      if (p.kind == kind) out.push_back(&p);
    return out;
  }

  recording_canvas screen{400, 400};
};
