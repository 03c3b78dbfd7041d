// A recording canvas of 200 x 100 pixels attached as the root window, with the
// drawing state reset, for tests of the drawing layer and the plots.
#pragma once

#include <gtest/gtest.h>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/graphics/recording_canvas.h"

class recorded_window : public ::testing::Test {
 protected:
  void SetUp() override {
    attach_target(igr_window, 0, &screen);
    igrselect(igr_window, 0);
    igrinit();
    winfoerror(1);
  }
  void TearDown() override { attach_target(igr_window, 0, nullptr); }

  const std::vector<recorded_primitive>& drawn() const { return screen.primitives(); }

  recording_canvas screen{200, 100};
};
