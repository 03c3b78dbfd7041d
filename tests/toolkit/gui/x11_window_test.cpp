// The X11 face on a display: the root window as the program opens it, its
// menu bar, toolbars and status bar from the catalogue, item states in the
// widgets, and the translation of X events into messages.
#include <gtest/gtest.h>

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <vector>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"
#include "toolkit/x11/x11_child_window.h"
#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_events.h"
#include "toolkit/x11/x11_menubar.h"
#include "toolkit/x11/x11_root_window.h"
#include "toolkit/x11/x11_statusbar.h"
#include "toolkit/x11/x11_toolbar.h"

namespace {

// Handles every event the server has sent so far.
void pump() {
  XSync(x11_display(), False);
  while (XtAppPending(x11_app()) & XtIMXEvent) {
    XEvent event;
    XtAppNextEvent(x11_app(), &event);
    XtDispatchEvent(&event);
  }
}

// The messages the face has queued, taken off the queue.
std::vector<std::pair<std::int32_t, message_record>> drain() {
  pump();
  std::vector<std::pair<std::int32_t, message_record>> got;
  std::int32_t type = 0;
  message_record record;
  while (x11_take(type, record)) got.emplace_back(type, record);
  return got;
}

int count_of(const std::vector<std::pair<std::int32_t, message_record>>& messages, std::int32_t type) {
  int n = 0;
  for (const auto& m : messages) n += m.first == type;
  return n;
}

Window client_window() { return XtWindow(x11_root_client_area()); }

class X11Window : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
    drain();
    winfoerror(1);
  }
  static bool available;
};

bool X11Window::available = false;

TEST_F(X11Window, OpensAtEightyPercentOfTheMonitorWithItsCaption) {
  int monitor_width = 0, monitor_height = 0;
  x11_monitor_size(monitor_width, monitor_height);
  XWindowAttributes attributes;
  ASSERT_TRUE(XGetWindowAttributes(x11_display(), XtWindow(x11_root_shell()), &attributes));
  EXPECT_EQ(attributes.width, 80 * monitor_width / 100);
  EXPECT_EQ(attributes.height, 80 * monitor_height / 100);
  EXPECT_EQ(attributes.map_state, IsViewable);

  char* name = nullptr;
  ASSERT_TRUE(XFetchName(x11_display(), XtWindow(x11_root_shell()), &name));
  EXPECT_STREQ(name, "Graphic Quelmora Program");
  XFree(name);

  windowtitle("Graphic Quelmora Program: NaCl");
  pump();
  ASSERT_TRUE(XFetchName(x11_display(), XtWindow(x11_root_shell()), &name));
  EXPECT_STREQ(name, "Graphic Quelmora Program: NaCl");
  XFree(name);
  windowtitle("Graphic Quelmora Program");
}


TEST_F(X11Window, MenuBarShowsTheMainMenuWithMnemonics) {
  struct row {
    int id;
    const char* label;
    char mnemonic;  // 0 none
  };
  const row rows[] = {{40001, "File", 'F'},        {40028, "Print File", 'F'},
                      {40007, "Exit", 'x'},        {40017, "Data Files", 0},
                      {40020, "Scan Peaks", 'P'},  {40022, "Plot", 'P'},
                      {40016, "About...", 'A'},    {40024, "Quit", 'Q'}};
  for (const row& r : rows) {
    Widget w = x11_menubar_item(r.id);
    ASSERT_NE(w, nullptr) << r.id;
    EXPECT_EQ(label_of(w), r.label);
    KeySym mnemonic = NoSymbol;
    XtVaGetValues(w, XmNmnemonic, &mnemonic, nullptr);
    if (r.mnemonic) {
      EXPECT_EQ(mnemonic, static_cast<KeySym>(r.mnemonic)) << r.id;
    } else {
      // No letter of the label is underlined.
      EXPECT_EQ(std::string(r.label).find(static_cast<char>(mnemonic)), std::string::npos) << r.id;
    }
  }
}

TEST_F(X11Window, ItemStatesGreyMenuEntriesAndToolbarButtons) {
  // The state right after start-up: six commands greyed.
  for (int id : {40011, 40021, 40022, 40027, 40005, 40008}) wmenusetstate(id, 1, 0);
  pump();
  for (int id : {40011, 40021, 40022, 40027, 40005, 40008}) {
    EXPECT_FALSE(XtIsSensitive(x11_menubar_item(id))) << id;
  }
  for (int id : {40001, 40025, 40026, 40028, 40007, 40023, 40024}) {
    EXPECT_TRUE(XtIsSensitive(x11_menubar_item(id))) << id;
  }
  // 40005 and 40022 stand in the toolbar too and share the state.
  EXPECT_FALSE(XtIsSensitive(x11_toolbar_button(40005)));
  EXPECT_FALSE(XtIsSensitive(x11_toolbar_button(40022)));
  EXPECT_TRUE(XtIsSensitive(x11_toolbar_button(40026)));

  // A fresh load of the menu makes everything enabled again.
  wmenu(30001);
  pump();
  for (int id : {40011, 40021, 40022, 40027, 40005, 40008}) {
    EXPECT_TRUE(XtIsSensitive(x11_menubar_item(id))) << id;
  }
}

TEST_F(X11Window, PlotToolbarsReplaceTheMainOnes) {
  wmenu(0);
  wmenutoolbar(0, 0, 1);
  wmenutoolbar(30102, 0, 1);
  wmenutoolbar(30103, 0, 2);
  wmenusetstate(40072, 2, 1);
  pump();
  EXPECT_EQ(x11_menubar_item(40001), nullptr);
  EXPECT_EQ(x11_toolbar_button(40025), nullptr);
  ASSERT_NE(x11_toolbar_button(40072), nullptr);
  ASSERT_NE(x11_toolbar_button(40003), nullptr);
  EXPECT_TRUE(XmToggleButtonGetState(x11_toolbar_button(40072)));
  EXPECT_FALSE(XmToggleButtonGetState(x11_toolbar_button(40074)));

  // The tool tip is handed out as the widget's own string, not a copy: not freed.
  XmString tip = nullptr;
  XtVaGetValues(x11_toolbar_button(40036), XmNtoolTipString, &tip, nullptr);
  EXPECT_EQ(x11_text(tip), "Actual Layer +1");

  // A click on a button delivers its id and leaves the check mark to the program.
  XtCallCallbacks(x11_toolbar_button(40074), XmNvalueChangedCallback, nullptr);
  const auto messages = drain();
  ASSERT_EQ(count_of(messages, msg_menu_select), 1);
  EXPECT_EQ(messages.back().second.value1, 40074);
  EXPECT_LE(count_of(messages, msg_resize), 1) << "the new layout gives at most one resize";

  wmenutoolbar(0, 0, 1);
  wmenutoolbar(0, 0, 2);
  wmenu(30001);
  wmenutoolbar(30101, 0, 1);
  pump();
  EXPECT_NE(x11_menubar_item(40001), nullptr);
  EXPECT_EQ(x11_toolbar_button(40072), nullptr);
}

// A damaged table still gives a bar: levels that jump are hung on the nearest
// pane, a popup without items and a mnemonic past the label's end do no harm.
TEST_F(X11Window, DamagedMenuAndToolbarTablesStillShow) {
  register_menu({99001,
                 {{99002, menu_item_kind::popup, 0, "Odd", 9},
                  {99003, menu_item_kind::entry, 3, "Deep", 0},
                  {0, menu_item_kind::separator, 7, "", -1},
                  {99004, menu_item_kind::entry, -2, "Negative", -5},
                  {99005, menu_item_kind::popup, 0, "Empty", 0}}});
  register_toolbar({99100, {0, 0, 99101, 40025}});
  wmenu(99001);
  wmenutoolbar(99100, 0, 3);
  pump();
  for (int id : {99002, 99003, 99004, 99005}) EXPECT_NE(x11_menubar_item(id), nullptr) << id;
  ASSERT_NE(x11_toolbar_button(99101), nullptr);
  EXPECT_EQ(label_of(x11_toolbar_button(99101)), "99101");
  XtCallCallbacks(x11_menubar_item(99003), XmNactivateCallback, nullptr);
  const auto messages = drain();
  ASSERT_EQ(count_of(messages, msg_menu_select), 1);
  EXPECT_EQ(messages.back().second.value1, 99003);

  wmenutoolbar(0, 0, 3);
  wmenu(30001);
  pump();
  EXPECT_EQ(x11_menubar_item(99002), nullptr);
}

TEST_F(X11Window, MenuEntryDeliversItsId) {
  for (int id : {40026, 40007, 40024}) {
    ASSERT_NE(x11_menubar_item(id), nullptr) << id;
    XtCallCallbacks(x11_menubar_item(id), XmNactivateCallback, nullptr);
    const auto messages = drain();
    ASSERT_EQ(messages.size(), 1u) << id;
    EXPECT_EQ(messages[0].first, msg_menu_select);
    EXPECT_EQ(messages[0].second.value1, id);
    EXPECT_EQ(messages[0].second.win, 0);
  }
}

TEST_F(X11Window, StatusBarPartsAndTexts) {
  windowoutstatusbar(3, "Date:  5- 3-2007");
  windowoutstatusbar(2, "File: nacl.bin   ");
  pump();
  EXPECT_EQ(x11_statusbar_read(3), "Date:  5- 3-2007");
  EXPECT_EQ(x11_statusbar_read(2), "File: nacl.bin");

  // Fewer parts: the ones that remain keep their texts.
  windowstatusbarparts(2, {5000, -1});
  pump();
  EXPECT_EQ(x11_statusbar_read(2), "File: nacl.bin");
  EXPECT_EQ(x11_statusbar_read(3), "");
  windowstatusbarparts(3, {5000, 3000, -1});
  pump();
  EXPECT_EQ(x11_statusbar_read(3), "");
  EXPECT_EQ(x11_statusbar_read(1), "");
}

TEST_F(X11Window, AnExposeBurstGivesOneMessage) {
  for (int i = 0; i < 6; ++i) XClearArea(x11_display(), client_window(), i * 10, 0, 10, 10, True);
  const auto messages = drain();
  EXPECT_EQ(count_of(messages, msg_expose), 1);
}

TEST_F(X11Window, ResizeComesWithTheNewClientSize) {
  const int width_before = winfowindow(1);
  XWindowAttributes attributes;
  XGetWindowAttributes(x11_display(), XtWindow(x11_root_shell()), &attributes);
  XResizeWindow(x11_display(), XtWindow(x11_root_shell()), static_cast<unsigned>(attributes.width - 100),
                static_cast<unsigned>(attributes.height - 60));
  const auto messages = drain();
  EXPECT_EQ(count_of(messages, msg_resize), 1);
  EXPECT_EQ(winfowindow(1), width_before - 100);
  XResizeWindow(x11_display(), XtWindow(x11_root_shell()), static_cast<unsigned>(attributes.width),
                static_cast<unsigned>(attributes.height));
  drain();
  EXPECT_EQ(winfowindow(1), width_before);
}

void send_delete_window(Window window) {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(x11_display(), "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(x11_display(), "WM_DELETE_WINDOW", False));
  event.xclient.data.l[1] = CurrentTime;
  XSendEvent(x11_display(), window, False, NoEventMask, &event);
}

TEST_F(X11Window, CloseProtocolOfRootAndChild) {
  send_delete_window(XtWindow(x11_root_shell()));
  auto messages = drain();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, msg_close_request);
  EXPECT_EQ(messages[0].second.win, 0);

  std::int32_t child = -1;
  windowopenchild2(child, "View of calculations");
  pump();
  Widget shell = XtParent(x11_child_client_area(child));
  send_delete_window(XtWindow(shell));
  messages = drain();
  ASSERT_EQ(count_of(messages, msg_close_request), 1);
  EXPECT_EQ(messages.back().second.win, child);
  windowclosechild(child);
}

void send_button(int type, unsigned button, int x, int y) {
  XEvent event{};
  event.xbutton.type = type;
  event.xbutton.window = client_window();
  event.xbutton.display = x11_display();
  event.xbutton.button = button;
  event.xbutton.x = x;
  event.xbutton.y = y;
  event.xbutton.same_screen = True;
  XSendEvent(x11_display(), client_window(), False,
             type == ButtonPress ? ButtonPressMask : ButtonReleaseMask, &event);
}

TEST_F(X11Window, MouseButtonsCarryButtonAndPixelPosition) {
  send_button(ButtonPress, 1, 40, 30);
  send_button(ButtonRelease, 1, 42, 33);
  const auto messages = drain();
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].first, msg_mouse_down);
  EXPECT_EQ(messages[0].second.value1, 1);
  EXPECT_EQ(messages[0].second.raw_x, 40);
  EXPECT_EQ(messages[0].second.raw_y, 30);
  EXPECT_EQ(messages[1].first, msg_mouse_up);
  EXPECT_EQ(messages[1].second.raw_x, 42);
}

// Through wmessage the position also comes in drawing units: with units 0 to
// 1 over the whole area, from the centre of the pixel and with y upward.
TEST_F(X11Window, MousePositionInDrawingUnits) {
  int width = 0, height = 0;
  x11_root_client_size(width, height);
  ASSERT_GT(width, 0);
  igrarea(0, 0, 1, 1);
  igrunits(0, 0, 1, 1);
  struct row {
    int x, y;
  };
  for (const row& r : {row{0, 0}, row{width - 1, height - 1}, row{width / 4, height / 2}}) {
    send_button(ButtonPress, 3, r.x, r.y);
    std::int32_t type = 0;
    message_record record;
    wmessage(type, record);
    ASSERT_EQ(type, msg_mouse_down);
    EXPECT_EQ(record.value1, 3);
    EXPECT_EQ(record.x, r.x);
    EXPECT_EQ(record.y, r.y);
    EXPECT_NEAR(record.gx, (static_cast<float>(r.x) + 0.5f) / static_cast<float>(width), 1e-5f) << r.x;
    EXPECT_NEAR(record.gy, 1.0f - (static_cast<float>(r.y) + 0.5f) / static_cast<float>(height), 1e-5f) << r.y;
  }
}

long selected_mask() {
  XWindowAttributes attributes;
  XGetWindowAttributes(x11_display(), client_window(), &attributes);
  return attributes.your_event_mask;
}

TEST_F(X11Window, EventMaskFollowsTheEnableTable) {
  wmessageenable(msg_mouse_move, 0);
  pump();
  EXPECT_FALSE(selected_mask() & PointerMotionMask);
  wmessageenable(msg_mouse_move, 1);
  pump();
  EXPECT_TRUE(selected_mask() & PointerMotionMask);
  wmessageenable(msg_key, 1);
  pump();
  EXPECT_TRUE(selected_mask() & KeyPressMask);
  wmessageenable(msg_key, 0);
  wmessageenable(msg_mouse_move, 0);
  pump();
  EXPECT_FALSE(selected_mask() & (KeyPressMask | PointerMotionMask));
  EXPECT_TRUE(selected_mask() & ButtonPressMask) << "buttons stay selected";
}

}  // namespace
