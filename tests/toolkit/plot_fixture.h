// A recording canvas of W x H pixels attached as the root window, with the
// drawing and plot state reset and the plot area the whole window, for the
// tests of the drawing layer and the plots.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/graphics/recording_canvas.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"

struct plot_point {
  double x, y;
};

template <int W, int H>
class recorded_window : public ::testing::Test {
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
  std::vector<const recorded_primitive*> drawn_of(recorded_kind kind) const {
    std::vector<const recorded_primitive*> out;
    for (const auto& p : drawn())
      if (p.kind == kind) out.push_back(&p);
    return out;
  }
  // A drawn pixel position in plot units.
  static plot_point in_plot_units(const pixel_point& p) {
    const auto& s = ipgstate;
    return {s.xpmin + p.x / W * s.xplen, s.ypmin + (1 - p.y / H) * s.yplen};
  }

  recording_canvas screen{W, H};
};

using recorded_plot = recorded_window<400, 400>;
