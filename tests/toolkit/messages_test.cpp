// The backend-independent message, menu and window state, child windows and
// message boxes, driven through the headless face.
#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include "toolkit/core/resources.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"

namespace {

class Messages : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    winitialise();
    winfoerror(1);
    clear_resources();
    register_menu({7000,
                   {{7001, menu_item_kind::popup, 0, "File"},
                    {7002, menu_item_kind::entry, 1, "Open"},
                    {0, menu_item_kind::separator, 1, ""},
                    {7003, menu_item_kind::entry, 1, "Save"}}});
    register_toolbar({7100, {7003, 0, 7101}});
  }
  void TearDown() override { clear_resources(); }
  static void open_root(const char* caption = "Root") {
    window_options_type how;
    how.options = 39;
    how.menu = 7000;
    how.toolbars = {7100, 0, 0, 0};
    how.caption = caption;
    how.colours = 100;
    windowopen2(how);
  }
};

TEST_F(Messages, PushedMessageComesBackWholeAndFirst) {
  message_record pushed;
  auto* words = reinterpret_cast<std::int32_t*>(&pushed);
  for (int w = 0; w < 16; ++w) words[w] = 100 + w;
  headless::queue_menu(7002);
  wmessageenable(msg_mouse_move, 0);
  wmessagepush(msg_mouse_move, pushed);  // disabled, yet a pushed message is returned
  std::int32_t type = 0;
  message_record got;
  wmessage(type, got);
  EXPECT_EQ(type, msg_mouse_move);
  EXPECT_EQ(std::memcmp(&got, &pushed, sizeof got), 0);
  wmessage(type, got);
  EXPECT_EQ(type, msg_menu_select);
  EXPECT_EQ(got.value1, 7002);
}

// Menu items start enabled on each load; bad calls report and change nothing;
// the toolbar keeps its states when the menu goes.
TEST_F(Messages, MenuAndToolbarStates) {
  wmenu(7000);
  wmenutoolbar(7100, 0, 1);
  struct row {
    std::int32_t item, option, state;
    int error;
  };
  const row rows[] = {{7002, 1, 0, 0}, {7002, 1, 0, 0}, {7002, 3, 1, 1126}, {7002, 1, 2, 1126},
                      {7002, 0, 0, 1126}, {9999, 1, 0, 1003}, {7101, 2, 1, 0}};
  for (const row& r : rows) {
    wmenusetstate(r.item, r.option, r.state);
    EXPECT_EQ(winfoerror(1), r.error) << r.item << " " << r.option << " " << r.state;
  }
  EXPECT_EQ(wmenugetstate(7002, 1), 0);
  EXPECT_EQ(wmenugetstate(7002, 2), 0);
  wmenu(7000);  // loaded afresh
  EXPECT_EQ(wmenugetstate(7002, 1), 1);
  wmenu(7777);
  EXPECT_EQ(winfoerror(1), 1003);
  wmenu(7000, 51);
  EXPECT_EQ(winfoerror(1), 1015);
  EXPECT_EQ(shown_menu(), 7000);
  wmenu(0);
  wmenugetstate(7002, 1);
  EXPECT_EQ(winfoerror(1), 1003) << "the menu's items go with it";
  EXPECT_EQ(wmenugetstate(7101, 2), 1) << "the toolbar's stay";
}

TEST_F(Messages, RootWindowOpensOnceAndClosesItsChildren) {
  std::int32_t child = -1;
  windowopenchild2(child, "View of calculations");
  EXPECT_EQ(winfoerror(1), 1003) << "a child needs the root window";
  EXPECT_EQ(child, -1);
  open_root("First caption   ");
  EXPECT_EQ(window_caption(), "First caption");
  EXPECT_EQ(window_opened_with().colours, 16);  // not one of 16, 32, 64, 128
  EXPECT_EQ(winfowindow(1), 800);               // the headless canvas
  EXPECT_EQ(winfowindow(2), 600);
  EXPECT_EQ(winfowindow(3), 0);
  open_root("Second");  // ignored
  EXPECT_EQ(window_caption(), "First caption");
  std::int32_t second = -1;
  windowopenchild2(child, "View of calculations");
  windowopenchild2(second, "Another");
  EXPECT_NE(child, second);
  windowclosechild(child);
  EXPECT_FALSE(child_is_open(child));
  windowclosechild(child);
  EXPECT_EQ(winfoerror(1), 1003) << "a second close is a bad window";
  windowclose();
  EXPECT_FALSE(window_is_open());
  EXPECT_FALSE(child_is_open(second)) << "children go with the root window";
}

TEST_F(Messages, CursorShapesRefuseNegativeOnes) {
  for (const auto& [shape, error, after] : {std::tuple{3, 0, 3}, {0, 0, 0}, {-1, 1015, 0}, {7, 0, 7}}) {
    wcursorshape(shape);
    EXPECT_EQ(winfoerror(1), error) << shape;
    EXPECT_EQ(cursor_shape(), after) << shape;
  }
}

TEST_F(Messages, StatusBarPartsAndTexts) {
  windowstatusbarparts(3, {5000, 3000, -1});
  windowoutstatusbar(3, "Date:  5- 3-2007");
  windowoutstatusbar(1, "              ");
  EXPECT_EQ(status_text(3), "Date:  5- 3-2007");
  EXPECT_EQ(status_text(1), "");
  windowoutstatusbar(4, "beyond");
  EXPECT_EQ(winfoerror(1), 1003);
  struct row {
    std::int32_t count;
    std::vector<std::int32_t> widths;
  };
  const row bad[] = {{0, {}}, {256, std::vector<std::int32_t>(256, 10)}, {2, {-1, -1}}, {3, {100, 200}}};
  for (const row& r : bad) {
    windowstatusbarparts(r.count, r.widths);
    EXPECT_EQ(winfoerror(1), 1015) << r.count;
    EXPECT_EQ(status_widths(), (std::vector<std::int32_t>{5000, 3000, -1}));
  }
  windowstatusbarparts(2, {5000, -1});  // fewer parts: the third text goes
  EXPECT_EQ(status_text(3), "");
}

TEST(MessageBoxes, TheFamilyShowsTitlesButtonsAndIconsAndAnswers) {
  headless::install();
  headless::answer_box(2);
  question_message("Save the last modifications?");
  EXPECT_EQ(winfodialog(4), 2);
  error_message("e");
  warning_message("w");
  info_message("i");
  stop_message("s", "Stop title");
  question_message("q", " ");
  EXPECT_EQ(winfodialog(4), 1) << "no answer left: the default button";
  question_message(std::string(100, 'x'), std::string(90, 'T'));
  struct row {
    int buttons, icon;
    std::string title;
  };
  const row rows[] = {{3, 2, ""}, {0, 3, "Error Message"}, {0, 3, "Warning Message"}, {0, 4, "Information Message"},
                      {3, 1, "Stop title"},    {3, 2, ""},                {3, 2, std::string(80, 'T')}};
  ASSERT_EQ(headless::boxes().size(), 7u);
  for (std::size_t i = 0; i < 7; ++i) {
    const headless::shown_box& b = headless::boxes()[i];
    EXPECT_EQ(b.buttons, rows[i].buttons) << i;
    EXPECT_EQ(b.icon, rows[i].icon) << i;
    EXPECT_EQ(b.title, rows[i].title) << i;
  }
}

}  // namespace
