// The X11 face's colour and directory selectors, the print options box and
// the listing view, answered from inside their own loops as a user would.
#include <gtest/gtest.h>

#include <Xm/FileSB.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include <unistd.h>

#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/x11/x11_child_window.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"
#include "toolkit/x11/x11_selectors.h"

namespace {

std::function<void()> user;

void act(XtPointer, XtIntervalId*) {
  if (user) user();
}

// What the user does once the box named `name` is up: `then` with the box.
void when_up(const char* name, std::function<void(Widget)> then) {
  user = [name, then] {
    Widget box = XtNameToWidget(x11_root_shell(), (std::string("*") + name).c_str());
    if (box == nullptr || !XtIsManaged(box)) {
      XtAppAddTimeOut(x11_app(), 20, act, nullptr);
      return;
    }
    then(box);
  };
  XtAppAddTimeOut(x11_app(), 20, act, nullptr);
}

void press(Widget box, const char* callback) {
  XmAnyCallbackStruct cb{};
  cb.reason = std::string(callback) == XmNokCallback ? XmCR_OK : XmCR_CANCEL;
  XtCallCallbacks(box, callback, &cb);
}

class X11Selectors : public ::testing::Test {
 protected:
  static inline bool available = false;
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
  }
};

TEST(PrintableText, ControlCharactersShowAsQuestionMarks) {
  EXPECT_EQ(printable_text("R = 0.05\n\tend"), "R = 0.05\n\tend");
  EXPECT_EQ(printable_text(std::string("a\0b\x07", 4)), "a?b?");
}

TEST_F(X11Selectors, ColourFromTheSliders) {
  when_up("colour", [](Widget box) {
    Widget red = XtNameToWidget(box, "*component");
    XmScaleSetValue(red, 200);
    press(box, XmNokCallback);
  });
  std::int32_t r = 10, g = 20, b = 30;
  wselectcolour1(r, g, b);
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{200, 20, 30}));

  when_up("colour", [](Widget box) { press(box, XmNcancelCallback); });
  std::int32_t packed = 0x123456;
  wselectcolour2(packed);
  EXPECT_EQ(winfodialog(4), 2);
  EXPECT_EQ(packed, 0x123456);
}

TEST_F(X11Selectors, DirectoryChosenBecomesCurrent) {
  std::string start;
  iosdirname(start);
  const auto dir = std::filesystem::temp_directory_path() / ("quelmora-dir-" + std::to_string(getpid()));
  std::filesystem::create_directories(dir);
  when_up("directory", [&](Widget box) {
    XmString s = XmStringCreateLocalized(const_cast<char*>(dir.c_str()));
    XtVaSetValues(box, XmNdirectory, s, nullptr);
    XmStringFree(s);
    press(box, XmNokCallback);
  });
  std::string name = start;
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ(std::filesystem::path(name), dir);
  std::string now;
  iosdirname(now);
  EXPECT_EQ(std::filesystem::path(now), std::filesystem::canonical(dir));
  iosdirchange(start);
  std::filesystem::remove_all(dir);
}

TEST_F(X11Selectors, PrintOptionsAnswer) {
  when_up("hardcopy", [](Widget box) { press(box, XmNokCallback); });
  whardcopyoptionstext();
  EXPECT_EQ(winfodialog(4), 1);
  when_up("hardcopy", [](Widget box) { press(box, XmNcancelCallback); });
  whardcopyoptionstext();
  EXPECT_EQ(winfodialog(4), 2);
}

TEST_F(X11Selectors, ListingInTheChildWindow) {
  const auto file = std::filesystem::temp_directory_path() / ("quelmora-" + std::to_string(getpid()) + ".fout");
  std::ofstream(file) << "Sintrel listing\nR = 0.05\n";
  std::int32_t child = 0;
  windowopenchild2(child, "View of calculations");
  weditfile(file.string(), 2, 0, 6, 1);
  Widget view = XtNameToWidget(x11_child_client_area(child), "*listing");
  ASSERT_NE(view, nullptr);
  char* text = XmTextGetString(view);
  EXPECT_STREQ(text, "Sintrel listing\nR = 0.05\n");
  XtFree(text);
  Dimension area_width = 0, area_height = 0, width = 0, height = 0;
  XtVaGetValues(x11_child_client_area(child), XmNwidth, &area_width, XmNheight, &area_height, nullptr);
  XtVaGetValues(XtParent(view), XmNwidth, &width, XmNheight, &height, nullptr);
  EXPECT_EQ(width, area_width) << "the view fills the child";
  EXPECT_EQ(height, area_height);
  Boolean editable = True;
  XtVaGetValues(view, XmNeditable, &editable, nullptr);
  EXPECT_FALSE(editable);
  if (const char* folder = std::getenv("QUELMORA_DIALOG_SHOTS")) {
    XSync(x11_display(), False);
    for (int i = 0; i < 200 && XtAppPending(x11_app()); ++i) XtAppProcessEvent(x11_app(), XtIMAll);
    std::system(("import -window root " + std::string(folder) + "/listing.png").c_str());
  }
  windowclosechild(child);
  std::filesystem::remove(file);
}

}  // namespace
