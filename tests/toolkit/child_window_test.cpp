// Child windows, the cursor shape and the client size, through the headless
// face: handles, the errors of bad calls, and closing with the root window.
#include <gtest/gtest.h>

#include "toolkit/core/werror.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/window.h"

namespace {

class ChildWindows : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    winitialise();
    winfoerror(1);
  }
  void open_root() {
    window_options_type how;
    how.options = 39;
    how.caption = "Root";
    windowopen2(how);
  }
};

TEST_F(ChildWindows, NeedTheRootWindow) {
  std::int32_t handle = -1;
  windowopenchild2(handle, "View of calculations");
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_EQ(handle, -1) << "the handle is not written";
}

TEST_F(ChildWindows, HandlesAreNewForEachChildAndCloseOnce) {
  open_root();
  std::int32_t first = -1, second = -1;
  windowopenchild2(first, "View of calculations");
  windowopenchild2(second, "Another");
  EXPECT_GE(first, 1);
  EXPECT_NE(first, second);
  EXPECT_TRUE(child_is_open(first));

  windowclosechild(first);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_FALSE(child_is_open(first));
  windowclosechild(first);
  EXPECT_EQ(winfoerror(1), 1003) << "a second close is a bad window";
  EXPECT_TRUE(child_is_open(second));

  windowclose();
  EXPECT_FALSE(child_is_open(second)) << "children go with the root window";
}

TEST_F(ChildWindows, CursorShapes) {
  struct row {
    std::int32_t shape;
    int error;
    std::int32_t after;
  };
  const row rows[] = {{1, 0, 1}, {3, 0, 3}, {0, 0, 0}, {-1, 1015, 0}, {7, 0, 7}, {-5, 1015, 7}};
  for (const row& r : rows) {
    wcursorshape(r.shape);
    EXPECT_EQ(winfoerror(1), r.error) << r.shape;
    EXPECT_EQ(cursor_shape(), r.after) << r.shape;
  }
}

// The headless face draws the root window on an 800 x 600 recording canvas.
TEST_F(ChildWindows, ClientSizeIsThatOfTheHeadlessCanvas) {
  open_root();
  EXPECT_EQ(winfowindow(1), 800);
  EXPECT_EQ(winfowindow(2), 600);
  EXPECT_EQ(winfowindow(3), 0);
}

}  // namespace
