// Dialogs of the catalogue on the real screen: each comes up at the size its
// dialog units ask for, the tabbed dialog shows all eight pages in turn, and
// the user's typing and clicks reach the toolkit. With QUELMORA_DIALOG_SHOTS
// set to a folder, a screenshot of each dialog is written there to look at.
#include <gtest/gtest.h>

#include <Xm/TextF.h>
#include <Xm/DrawingA.h>
#include <Xm/ToggleB.h>

#include <cstdlib>

#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/wgrid.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/wmessage.h"
#include "toolkit/x11/x11_dialog.h"
#include "toolkit/x11/x11_dialog_units.h"
#include "toolkit/x11/x11_display.h"

namespace {

// Lets the server map and draw what was just shown.
void settle() {
  XSync(x11_display(), False);
  for (int i = 0; i < 200 && XtAppPending(x11_app()); ++i) XtAppProcessEvent(x11_app(), XtIMAll);
  XSync(x11_display(), False);
}

void screenshot(const std::string& name) {
  const char* folder = std::getenv("QUELMORA_DIALOG_SHOTS");
  if (folder == nullptr) return;
  settle();
  const std::string command = "import -window root " + std::string(folder) + "/" + name + ".png";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

class X11Dialogs : public ::testing::Test {
 protected:
  static inline bool available = false;
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
    winfoerror(1);
  }
  void TearDown() override {
    for (int id : yyloaded_dialogs()) yyunload_dialog(id);
  }
};

TEST(DialogScale, QuarterOfTheAverageWidthAndAnEighthOfTheHeight) {
  const dialog_scale_type s = dialog_scale_from_font(7.0, 16.0);
  EXPECT_DOUBLE_EQ(s.across, 1.75);
  EXPECT_DOUBLE_EQ(s.down, 2.0);
  const dialog_scale_type fallback = dialog_scale_from_font(0.0, 16.0);
  EXPECT_DOUBLE_EQ(fallback.across, 1.5) << "no font measured: the classic 8-point scale";
}

TEST_F(X11Dialogs, EveryDialogComesUpAtItsSize) {
  for (int id : {101, 108, 110, 111, 112, 113, 114, 116, 117, 120, 121, 107}) {
    wdialogload(id);
    if (id == 111) wdialogputinteger(1048, 40);  // the loading bar part way
    wdialogshow(-1, -1, 0, 2);
    settle();
    Widget shell = x11_dialog_shell(id);
    ASSERT_NE(shell, nullptr) << id;
    Dimension w = 0, h = 0;
    XtVaGetValues(shell, XmNwidth, &w, XmNheight, &h, nullptr);
    const dialog_type* resource = find_dialog(id);
    EXPECT_EQ(w, x11_dialog_x(resource->width)) << id;
    EXPECT_EQ(h, x11_dialog_y(resource->height)) << id;
    EXPECT_TRUE(XtIsRealized(shell)) << id;
    screenshot("dialog_" + std::to_string(id));
    wdialogunload();
    EXPECT_EQ(x11_dialog_shell(id), nullptr);
  }
  EXPECT_EQ(winfoerror(1), 0);
}

TEST_F(X11Dialogs, TheInputDataDialogShowsEachPage) {
  wdialogload(116);
  wdialogshow(-1, -1, 0, 3);
  wdialogselect(118);
  wgridrows(1007, 3);
  wgridputstring(1007, 1, {"Na1", "Cl1", "O1"}, 3);
  wgridputreal(1007, 2, {0.0f, 0.5f, 0.25f}, 3);
  for (int page : {102, 103, 104, 106, 118, 115, 109, 105}) {
    wdialogselect(116);
    wdialogsettab(1002, page);
    settle();
    std::int32_t shown = 0;
    wdialoggettab(1002, shown);
    EXPECT_EQ(shown, page);
    EXPECT_TRUE(yydialog_visible(page));
    screenshot("dialog_116_" + std::to_string(page));
  }
}

TEST_F(X11Dialogs, TypingAndClicksReachTheToolkit) {
  wdialogload(110);
  wdialogshow(-1, -1, 0, 3);
  wmessageenable(msg_field_changed, 1);
  settle();
  Widget shell = x11_dialog_shell(110);
  ASSERT_NE(shell, nullptr);
  // The first text field is the X minimum, 1071.
  Widget text = XtNameToWidget(shell, "*field");
  WidgetList children = nullptr;
  Cardinal n = 0;
  Widget board = XtNameToWidget(shell, "board");
  XtVaGetValues(board, XmNchildren, &children, XmNnumChildren, &n, nullptr);
  text = nullptr;
  for (Cardinal i = 0; i < n && text == nullptr; ++i) {
    if (XmIsTextField(children[i])) text = children[i];
  }
  ASSERT_NE(text, nullptr);
  XmTextFieldSetString(text, const_cast<char*>("0.25"));
  XtCallCallbacks(text, XmNactivateCallback, nullptr);
  float v = 0;
  wdialoggetreal(1071, v);
  EXPECT_EQ(v, 0.25f);
  XmTextFieldSetString(text, const_cast<char*>("12"));  // out of -10 to 10
  XtCallCallbacks(text, XmNactivateCallback, nullptr);
  char* shown = XmTextFieldGetString(text);
  EXPECT_STREQ(shown, "0.25") << "a refused text gives way to the value";
  XtFree(shown);
  std::int32_t type = 0;
  message_record r;
  wmessage(type, r);
  EXPECT_EQ(type, msg_field_changed);
  EXPECT_EQ(r.value2, 1071);
  wmessageenable(msg_field_changed, 0);
}

TEST_F(X11Dialogs, ColourBoxesShowWhatIsDrawnIntoThem) {
  wdialogload(112);
  wdialogshow(-1, -1, 0, 3);
  settle();
  // A box is coloured by clearing it with the background colour set to its colour.
  const std::int32_t background = igrstate.irgb256[0];
  igrselect(igr_field, 1222);
  igrpalette(0, 0x0000ff);  // red
  igrareaclear();
  igrpalette(0, background);
  igrselect(igr_window, 0);
  x11_dialog_flush();
  settle();
  // The box of field 1222 sits at 20, 132 in dialog units.
  Widget board = XtNameToWidget(x11_dialog_shell(112), "board");
  WidgetList children = nullptr;
  Cardinal n = 0;
  XtVaGetValues(board, XmNchildren, &children, XmNnumChildren, &n, nullptr);
  Widget box = nullptr;
  for (Cardinal i = 0; i < n; ++i) {
    Position x = 0, y = 0;
    XtVaGetValues(children[i], XmNx, &x, XmNy, &y, nullptr);
    if (XmIsDrawingArea(children[i]) && x == x11_dialog_x(20) && y == x11_dialog_y(132)) box = children[i];
  }
  ASSERT_NE(box, nullptr);
  XImage* image = XGetImage(x11_display(), XtWindow(box), 3, 3, 1, 1, AllPlanes, ZPixmap);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(XGetPixel(image, 0, 0) & 0xffffff, 0xff0000u) << "red in the screen's RGB order";
  XDestroyImage(image);
}

}  // namespace
