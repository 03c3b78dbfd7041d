// A scripted user in the catalogue's dialogs: the messages the program reads
// (field changes with the fields left and entered, push buttons), modal
// dialogs, and the common selectors with their exit buttons.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "resources/quelmo_rc.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmessage.h"

namespace fs = std::filesystem;

namespace {

class DialogUser : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    yyreset_messages();
    register_quelmo_rc();
    winfoerror(1);
  }
  void TearDown() override { yyreset_messages(); }
  // Type, value1, value2 and value4 of each message up to the first close
  // request (the end of the script).
  static std::vector<std::array<std::int32_t, 4>> read_all() {
    std::vector<std::array<std::int32_t, 4>> out;
    std::int32_t type = 0;
    message_record r;
    for (wmessage(type, r); type != msg_close_request; wmessage(type, r))
      out.push_back({type, r.value1, r.value2, r.value4});
    return out;
  }
  using seen = std::vector<std::array<std::int32_t, 4>>;
};

TEST_F(DialogUser, FieldChangesComeInOrderWithTheFieldsLeftAndEntered) {
  wdialogload(116);
  wdialogshow(-1, -1, 0, 3);
  wmessageenable(msg_field_changed, 1);
  headless::type_text(116, 1147, "Sodium chloride");
  headless::choose_tab(116, 1002, 118);
  headless::choose_radio(118, 1005);
  headless::type_text(118, 1268, "2");
  headless::press(116, 1);
  EXPECT_EQ(read_all(), (seen{{10, 0, 1147, 116}, {10, 1147, 1002, 116}, {10, 1002, 1002, 116}, {10, 0, 1005, 118},
                              {10, 1005, 1005, 118}, {10, 1005, 1268, 118}, {10, 1002, 1, 116}, {3, 1, 0, 116}}));
  EXPECT_TRUE(headless::refused().empty());
}

TEST_F(DialogUser, RefusedActionsChangeNothingAndAreNoted) {
  wdialogload(110);
  wdialogshow(-1, -1, 0, 3);
  headless::type_text(121, 1261, "1");  // a dialog not on the screen
  headless::type_text(110, 1071, "0.5");
  headless::type_text(110, 1071, "11");  // range -10 to 10
  headless::press(110, 2);               // the dialog has no Cancel
  read_all();
  EXPECT_EQ(headless::refused(), (std::vector<std::string>{"121 1261", "110 1071", "110 2"}));
  float v = 0;
  wdialoggetreal(1071, v);
  EXPECT_EQ(v, 0.5f);
}

// The expose that comes while a modal dialog waits is the caller's, and so
// is what follows the button; with the script run out the dialog is cancelled.
TEST_F(DialogUser, ModalShowWaitsForAButtonAndKeepsOtherMessages) {
  wdialogload(120);
  headless::queue_expose();
  headless::type_text(120, 1256, "2.5");
  headless::press(120, 1);
  headless::queue_menu(40026);
  wdialogshow(-1, -1, 1256, 1);
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_FALSE(yyfind_dialog(120)->shown);
  EXPECT_EQ(read_all(), (seen{{7, 0, 0, 0}, {2, 40026, 0, 0}}));
  wdialogload(121);
  wdialogshow(-1, -1, 0, 1);
  EXPECT_EQ(winfodialog(4), 2);
}

TEST_F(DialogUser, ColourBoxesTakeDrawingWhileShownAndDeliverMousePresses) {
  wdialogload(112);
  igrselect(igr_field, 1222);
  EXPECT_EQ(current_canvas(), nullptr) << "not on the screen yet";
  wdialogshow(-1, -1, 0, 3);
  igrselect(igr_field, 1222);
  igrareaclear();
  ASSERT_NE(headless::field_canvas(1222), nullptr);
  EXPECT_EQ(headless::field_canvas(1222)->primitives().size(), 1u);
  EXPECT_EQ(headless::field_canvas(1223)->primitives().size(), 0u);
  headless::click_field(112, 1222);
  EXPECT_EQ(read_all(), (seen{{4, 1, 0, 1222}}));
  wdialogunload();
  EXPECT_EQ(headless::field_canvas(1222), nullptr);
  EXPECT_EQ(target_canvas(igr_field, 1222), nullptr);
  wdialogload(112);
  wdialogshow(-1, -1, 0, 3);
  headless::install();  // a new script takes the boxes off the screen
  EXPECT_EQ(target_canvas(igr_field, 1222), nullptr);
  igrselect(igr_window, 0);
}

class Selectors : public DialogUser {
 protected:
  void SetUp() override {
    DialogUser::SetUp();
    iosdirname(start_);
    fs::create_directories(dir_ / "maps");
    std::ofstream(dir_ / "nacl.fout") << "Sintrel listing\nR = 0.05\n";
  }
  void TearDown() override {
    iosdirchange(start_);
    fs::remove_all(dir_);
    DialogUser::TearDown();
  }
  std::string start_;
  fs::path dir_ = fs::temp_directory_path() / ("quelmora_selectors_" + std::to_string(::getpid()));
};

TEST_F(Selectors, DirectoryChoiceMovesTheProcessCancelDoesNot) {
  std::string name = start_, now;
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 2);
  EXPECT_EQ(name, start_);
  headless::answer_directory((dir_ / "maps").string());
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ(name, (dir_ / "maps").string());
  iosdirname(now);
  EXPECT_EQ(fs::path(now), fs::canonical(dir_ / "maps"));
}

TEST_F(Selectors, ListingShownReadOnlyInTheChild) {
  window_options_type how;
  windowopen2(how);
  weditfile((dir_ / "nacl.fout").string(), 2, 0, 6, 1);
  EXPECT_EQ(winfoerror(1), 1003) << "no child window to show it in";
  std::int32_t child = 0;
  windowopenchild2(child, "View of calculations");
  weditfile((dir_ / "nacl.fout").string(), 2, 0, 6, 1);
  weditfile((dir_ / "missing.fout").string(), 2, 0, 4, 1);
  EXPECT_EQ(winfoerror(1), 13);
  ASSERT_EQ(headless::files_shown().size(), 1u);
  EXPECT_EQ(headless::files_shown()[0].window, child);
  EXPECT_EQ(headless::files_shown()[0].text, "Sintrel listing\nR = 0.05\n");
  windowclose();
}

}  // namespace
