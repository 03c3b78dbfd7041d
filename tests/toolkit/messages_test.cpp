// The backend-independent message, menu and window state, driven through the
// headless face.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "toolkit/core/resources.h"
#include "toolkit/core/werror.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/ios.h"
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
                    {7003, menu_item_kind::entry, 1, "Save"},
                    {7004, menu_item_kind::entry, 0, "Quit"}}});
    register_toolbar({7100, {7003, 0, 7101}});
  }
  void TearDown() override { clear_resources(); }
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

// Which of a scripted burst reaches the program under each enable table.
TEST_F(Messages, EnableTableDropsDisabledTypes) {
  struct row {
    const char* what;
    std::int32_t type;
    std::int32_t state;
    std::vector<std::int32_t> delivered;
  };
  const std::vector<row> rows = {
      {"at start: button down passes, release and move are dropped", 0, 0, {4, 7}},
      {"move turned on", 6, 1, {4, 6, 7}},
      {"release turned on", 5, 1, {4, 5, 7}},
      {"expose turned off", 7, 0, {4}},
      {"a type outside the table cannot be turned off", 25, 0, {4, 7}},
  };
  for (const row& r : rows) {
    headless::install();
    winitialise();
    if (r.type) wmessageenable(r.type, r.state);
    headless::queue_mouse(msg_mouse_down, 1, 0.5f, 0.5f);
    headless::queue_mouse(msg_mouse_up, 1, 0.5f, 0.5f);
    headless::queue_mouse(msg_mouse_move, 0, 0.5f, 0.5f);
    headless::queue_expose();
    std::vector<std::int32_t> got;
    std::int32_t type = 0;
    message_record rec;
    for (;;) {
      wmessage(type, rec);
      if (type == msg_close_request) break;  // the script ran out
      got.push_back(type);
    }
    EXPECT_EQ(got, r.delivered) << r.what;
  }
}

TEST_F(Messages, PixelPositionIsCopied) {
  message_record r;
  r.raw_x = 12;
  r.raw_y = 34;
  r.gx = 0.25f;
  headless::queue_event(msg_mouse_down, r);
  std::int32_t type = 0;
  message_record got;
  wmessage(type, got);
  EXPECT_EQ(got.x, 12);
  EXPECT_EQ(got.y, 34);
  EXPECT_EQ(got.gx, 0.25f);
}

TEST_F(Messages, MenuLoadEnablesEveryItem) {
  wmenu(7000);
  EXPECT_EQ(shown_menu(), 7000);
  for (int id : {7001, 7002, 7003, 7004}) EXPECT_EQ(wmenugetstate(id, 1), 1) << id;
  wmenusetstate(7002, 1, 0);
  wmenusetstate(7003, 2, 1);
  EXPECT_EQ(wmenugetstate(7002, 1), 0);
  EXPECT_EQ(wmenugetstate(7003, 2), 1);
  wmenu(7000);  // loaded afresh
  EXPECT_EQ(wmenugetstate(7002, 1), 1);
  EXPECT_EQ(wmenugetstate(7003, 2), 0);
}

TEST_F(Messages, MenuSetStateErrors) {
  wmenu(7000);
  struct row {
    std::int32_t item, option, state;
    int error;
  };
  const row rows[] = {{7002, 1, 0, 0},    {7002, 1, 0, 0},  // the second is a no-op, no error
                      {7002, 3, 1, 1126}, {7002, 1, 2, 1126}, {7002, 0, 0, 1126},
                      {7002, 1, -1, 1126}, {9999, 1, 0, 1003}};
  for (const row& r : rows) {
    wmenusetstate(r.item, r.option, r.state);
    EXPECT_EQ(winfoerror(1), r.error) << r.item << " " << r.option << " " << r.state;
  }
  EXPECT_EQ(wmenugetstate(7002, 1), 0);  // the bad calls changed nothing
  EXPECT_EQ(wmenugetstate(7002, 2), 0);
  wmenu(7777);
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_EQ(shown_menu(), 7000);
  wmenu(7000, 51);
  EXPECT_EQ(winfoerror(1), 1015);
}

TEST_F(Messages, ToolbarShareStatesWithTheMenu) {
  wmenu(7000);
  wmenutoolbar(7100, 0, 1);
  wmenusetstate(7003, 1, 0);
  wmenusetstate(7101, 2, 1);
  EXPECT_EQ(wmenugetstate(7003, 1), 0);
  wmenu(0);  // menu down: its items go, the toolbar's stay with their states
  EXPECT_EQ(shown_menu(), 0);
  EXPECT_EQ(wmenugetstate(7003, 1), 0);
  EXPECT_EQ(wmenugetstate(7101, 2), 1);
  wmenugetstate(7002, 1);
  EXPECT_EQ(winfoerror(1), 1003);
  wmenutoolbar(0, 0, 1);
  EXPECT_EQ(shown_toolbar(1), 0);
  wmenugetstate(7101, 1);
  EXPECT_EQ(winfoerror(1), 1003);
}

TEST_F(Messages, RootWindowOpensOnce) {
  window_options_type how;
  how.options = 39;
  how.menu = 7000;
  how.toolbars = {7100, 0, 0, 0};
  how.caption = "First caption   ";
  how.colours = 100;
  windowopen2(how);
  EXPECT_TRUE(window_is_open());
  EXPECT_EQ(window_caption(), "First caption");
  EXPECT_EQ(window_opened_with().colours, 16);  // not one of 16, 32, 64, 128
  EXPECT_EQ(shown_toolbar(1), 7100);
  wmenusetstate(7002, 1, 0);
  how.caption = "Second";
  how.options = 7;
  windowopen2(how);  // ignored: nothing changes
  EXPECT_EQ(window_caption(), "First caption");
  EXPECT_EQ(window_opened_with().options, 39);
  EXPECT_EQ(wmenugetstate(7002, 1), 0);
  windowtitle("Another  ");
  EXPECT_EQ(window_caption(), "Another");
  windowclose();
  EXPECT_FALSE(window_is_open());
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

TEST_F(Messages, SystemFacts) {
  const char* argv[] = {"quelmora", "nacl.bin", "ignored"};
  yyset_command_line(3, argv);
  EXPECT_EQ(winfosystem(2), 2);
  EXPECT_EQ(winfosystem(6), 47);
  EXPECT_NE(winfosystem(1), 6);
  std::string arg = "old";
  iosargument(1, arg);
  EXPECT_EQ(arg, "nacl.bin");
  iosargument(-1, arg);
  EXPECT_EQ(arg, "");
  iosargument(3, arg);
  EXPECT_EQ(arg, "");
  yyset_command_line(1, argv);
  EXPECT_EQ(winfosystem(2), 0);
}

TEST_F(Messages, EnvironmentAndDirectories) {
  setenv("QUELMORA_TEST_VARIABLE", "/opt/suite", 1);
  std::string value = "old";
  iosvariable("QUELMORA_TEST_VARIABLE  ", value);
  EXPECT_EQ(value, "/opt/suite");
  unsetenv("QUELMORA_TEST_VARIABLE");
  iosvariable("QUELMORA_TEST_VARIABLE", value);
  EXPECT_EQ(value, "");
  const std::string dir = ::testing::TempDir() + "quelmora_ios_dir_" + std::to_string(getpid());
  rmdir(dir.c_str());
  EXPECT_FALSE(iosdirexists(dir));
  iosdirmake(dir);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_TRUE(iosdirexists(dir));
  EXPECT_FALSE(iosfileexists(dir));  // a directory is not a file
  iosdirmake(dir);                   // already there
  EXPECT_EQ(winfoerror(1), 13);
  rmdir(dir.c_str());
}

TEST_F(Messages, DirectoryChangeFailureKeepsTheDirectory) {
  std::string before, after;
  iosdirname(before);
  iosdirchange("/no/such/directory/anywhere");
  EXPECT_EQ(winfoerror(1), 13);
  iosdirname(after);
  EXPECT_EQ(after, before);
  std::int32_t y = 0, m = 0, d = 0;
  iosdate(y, m, d);
  EXPECT_GE(y, 2000);
  EXPECT_TRUE(m >= 1 && m <= 12 && d >= 1 && d <= 31);
}

// A command that waits has ended when the call returns; only a shell that
// is killed is an error, a command that fails is not.
TEST_F(Messages, ShellCommandWaitsAndToldFailureToStart) {
  const std::string mark = ::testing::TempDir() + "quelmora_ios_command_" + std::to_string(getpid());
  struct row {
    std::string command;
    int error;
  };
  const row rows[] = {{"echo ran > '" + mark + "'", 0},
                      {"exit 3", 0},
                      {"no_such_program_anywhere_at_all", 0},
                      {"kill -KILL $$", 13}};
  for (const row& r : rows) {
    winfoerror(1);
    ioscommand(r.command, 3);
    EXPECT_EQ(winfoerror(1), r.error) << r.command;
  }
  std::ifstream written(mark);
  std::string word;
  written >> word;
  EXPECT_EQ(word, "ran");
  std::remove(mark.c_str());
}

}  // namespace
