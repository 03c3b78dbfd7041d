// The root window as the program opens it, for the tests of the X11 face.
#pragma once

#include <gtest/gtest.h>

#include <Xm/Xm.h>

#include <string>

#include "resources/quelmo_rc.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_events.h"
#include "toolkit/x11/x11_face.h"
#include "toolkit/x11/x11_strings.h"

// The text a label or button shows.
inline std::string label_of(Widget w) { return x11_widget_text(w, XmNlabelString); }

// Opens the display and the root window with the main menu, toolbar 30101 and
// the three status parts; false when there is no display.
inline bool open_program_window() {
  std::string why;
  if (!x11_install(why)) return false;
  register_quelmo_rc();
  winitialise();
  windowopen2({.options = 39, .menu = 30001, .toolbars = {30101, 0, 0, 0}, .caption = "Graphic Quelmora Program", .colours = 128});
  wmenu(30001);
  windowstatusbarparts(3, {5000, 3000, -1});
  return true;
}

// Lets the server map and draw what was just shown, and handles what it sent.
inline void settle() {
  XSync(x11_display(), False);
  for (int i = 0; i < 200 && XtAppPending(x11_app()); ++i) XtAppProcessEvent(x11_app(), XtIMAll);
}

// Tests on that window, opened once for all the tests of a process; each
// starts with no message waiting and no error noted, and ends with no dialog.
class X11Test : public ::testing::Test {
 protected:
  static inline bool available = false;
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
    settle();
    x11_queue_clear();
    winfoerror(1);
  }
  void TearDown() override { for (int id : yyloaded_dialogs()) yyunload_dialog(id); }
};

// The window manager's close button: a WM_DELETE_WINDOW client message.
inline void ask_to_close(Display* display, Window window) {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  XSendEvent(display, window, False, NoEventMask, &event);
  XFlush(display);
}
