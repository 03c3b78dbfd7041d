// The modal box and file selector of the X11 face, answered from inside
// their own event loop as a user would: a choice, OK or Cancel.
#include <gtest/gtest.h>

#include <Xm/FileSB.h>
#include <Xm/MessageB.h>
#include <Xm/Xm.h>

#include <filesystem>
#include <fstream>

#include "toolkit/messages/window.h"
#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

// What the user does once the box is up: which callback to call, and for the
// selector the text typed into the Selection field first.
struct user_action {
  const char* widget;    // name of the box
  const char* callback;  // XmNokCallback or XmNcancelCallback
  int reason;
  std::string typed;     // selector only; empty: leave the field alone
};

user_action pending;

void act(XtPointer, XtIntervalId*) {
  Widget box = XtNameToWidget(x11_root_shell(), (std::string("*") + pending.widget).c_str());
  ASSERT_NE(box, nullptr) << pending.widget;
  if (!pending.typed.empty()) {
    XmString s = XmStringCreateLocalized(const_cast<char*>(pending.typed.c_str()));
    XtVaSetValues(box, XmNtextString, s, nullptr);
    XmStringFree(s);
  }
  XmAnyCallbackStruct cb{};
  cb.reason = pending.reason;
  XtCallCallbacks(box, pending.callback, &cb);
}

// Arranges for the action to happen as soon as the box's loop runs.
void when_shown(const user_action& action) {
  pending = action;
  XtAppAddTimeOut(x11_app(), 0, act, nullptr);
}

class X11Modal : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
  }
  static bool available;
};

bool X11Modal::available = false;

TEST_F(X11Modal, MessageBoxGivesThePressedButton) {
  struct row {
    int buttons;
    const char* callback;
    int reason;
    int expected;
  };
  const row rows[] = {{0, XmNokCallback, XmCR_OK, 1},
                      {3, XmNokCallback, XmCR_OK, 1},
                      {3, XmNcancelCallback, XmCR_CANCEL, 2}};
  for (const row& r : rows) {
    when_shown({"message", r.callback, r.reason, ""});
    EXPECT_EQ(x11_message_box(r.buttons, 2, 1, "Do you want to save the last modifications?", ""),
              r.expected);
  }
}

class X11Selector : public X11Modal {
 protected:
  void SetUp() override {
    X11Modal::SetUp();
    folder = std::filesystem::temp_directory_path() / ("quelmora-selector-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "nacl.bin") << "x";
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::filesystem::path folder;
};

TEST_F(X11Selector, OkGivesTheChosenFileAndCancelKeepsTheName) {
  const std::string filter = "Fourier Input File|*.inp;*.bin;*.asc;*.map|";
  const std::string chosen = (folder / "nacl.bin").string();

  std::string name = folder.string() + "/";
  when_shown({"selector", XmNokCallback, XmCR_OK, chosen});
  EXPECT_TRUE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen);

  when_shown({"selector", XmNcancelCallback, XmCR_CANCEL, ""});
  EXPECT_FALSE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen) << "Cancel leaves the name alone";

  // OK on a directory chooses nothing.
  when_shown({"selector", XmNokCallback, XmCR_OK, folder.string()});
  EXPECT_FALSE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen);
}

}  // namespace
