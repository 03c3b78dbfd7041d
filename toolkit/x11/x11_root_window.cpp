#include "toolkit/x11/x11_root_window.h"

#include <X11/Shell.h>
#include <X11/cursorfont.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Protocols.h>
#include <Xm/RowColumn.h>

#include <array>
#include <memory>

#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/x11/x11_canvas.h"
#include "toolkit/x11/x11_colours.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_events.h"
#include "toolkit/x11/x11_menubar.h"
#include "toolkit/x11/x11_statusbar.h"
#include "toolkit/x11/x11_toolbar.h"

namespace {

constexpr std::int32_t status_bar_option = 32;

struct root_type {
  Widget shell = nullptr;
  Widget menubar = nullptr;
  Widget toolbox = nullptr;
  Widget client = nullptr;
  std::unique_ptr<x11_canvas> canvas;  // drawing on the client area, window 0
  int menu_shown = 0;
  std::array<int, x11_toolbar_slots> toolbars_shown{};
};

root_type root;

void chosen(int id) {
  message_record r;
  r.value1 = id;
  x11_queue(msg_menu_select, 0, r);
}

void close_requested(Widget, XtPointer, XtPointer) { x11_queue(msg_close_request, 0); }

// After a new layout: the status bar follows the width, and drawing the new
// size of the client area.
void client_resized(std::int32_t) {
  x11_statusbar_layout();
  if (root.canvas == nullptr) return;
  int width = 0, height = 0;
  x11_root_client_size(width, height);
  root.canvas->resize(width, height);
  attach_target(igr_window, 0, root.canvas.get());
}

// What the server paints where the client area is uncovered, until the program
// redraws it: the drawing's own background, so that closing a menu does not
// flash a patch of another colour.
Pixel background_pixel() {
  return x11_pixel(x11_display(), static_cast<unsigned>(palette_colour(0).value));
}

// Waits until the window manager has shown the window, so that drawing right
// after opening lands on the screen.
void wait_until_mapped(Widget shell) {
  Display* display = XtDisplay(shell);
  Window window = XtWindow(shell);
  for (;;) {
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable) {
      return;
    }
    XEvent event;
    XtAppNextEvent(x11_app(), &event);
    XtDispatchEvent(&event);
  }
}

// Without a menu the bar goes away and the toolbars move up into its place.
void show_menubar(bool shown) {
  if (shown) {
    XtVaSetValues(root.toolbox, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, root.menubar,
                  nullptr);
    XtManageChild(root.menubar);
  } else {
    XtVaSetValues(root.toolbox, XmNtopAttachment, XmATTACH_FORM, nullptr);
    XtUnmanageChild(root.menubar);
  }
}

void apply_item_state(int id) {
  if (id == 0) return;
  const bool enabled = wmenugetstate(id, 1) == 1;
  const bool checked = wmenugetstate(id, 2) == 1;
  if (Widget w = x11_menubar_item(id)) XtSetSensitive(w, enabled ? True : False);
  x11_toolbar_set_enabled(id, enabled);
  x11_toolbar_set_checked(id, checked);
}

}  // namespace

void x11_root_open(const window_options_type& how) {
  if (root.shell != nullptr) return;
  int monitor_width = 0, monitor_height = 0;
  x11_monitor_size(monitor_width, monitor_height);
  const int width = how.width > 0 ? how.width : 80 * monitor_width / 100;
  const int height = how.height > 0 ? how.height : 80 * monitor_height / 100;

  root.shell = XtVaCreatePopupShell(
      "quelmora", topLevelShellWidgetClass, x11_application_shell(), XmNwidth,
      static_cast<Dimension>(width), XmNheight, static_cast<Dimension>(height), XmNdeleteResponse,
      XmDO_NOTHING, XmNtitle, how.caption.c_str(), nullptr);
  if (how.x >= 0 && how.y >= 0) {
    XtVaSetValues(root.shell, XmNx, static_cast<Position>(how.x), XmNy, static_cast<Position>(how.y),
                  nullptr);
  }
  Atom delete_window = XmInternAtom(x11_display(), const_cast<char*>("WM_DELETE_WINDOW"), False);
  XmAddWMProtocolCallback(root.shell, delete_window, close_requested, nullptr);

  Widget form = XtVaCreateManagedWidget("main", xmFormWidgetClass, root.shell, nullptr);
  root.menubar = XmCreateMenuBar(form, const_cast<char*>("menubar"), nullptr, 0);
  XtVaSetValues(root.menubar, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                XmNrightAttachment, XmATTACH_FORM, nullptr);

  root.toolbox = XtVaCreateManagedWidget(
      "toolbox", xmRowColumnWidgetClass, form, XmNorientation, XmVERTICAL, XmNmarginHeight, 0,
      XmNspacing, 0, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, root.menubar,
      XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
  x11_toolbar_slots_create(root.toolbox);

  Widget bottom = nullptr;
  if (how.options & status_bar_option) {
    bottom = x11_statusbar_create(form);
    XtVaSetValues(bottom, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_FORM, nullptr);
  }
  root.client = XtVaCreateManagedWidget(
      "client", xmDrawingAreaWidgetClass, form, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget,
      root.toolbox, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
      XmNbottomAttachment, bottom ? XmATTACH_WIDGET : XmATTACH_FORM, XmNbottomWidget, bottom,
      XmNresizePolicy, XmRESIZE_NONE, XmNbackground, background_pixel(), nullptr);
  x11_watch_client_area(root.client, 0, client_resized);

  x11_root_sync_menus();
  XtPopup(root.shell, XtGrabNone);
  wait_until_mapped(root.shell);
  x11_statusbar_layout();
  int client_width = 0, client_height = 0;
  x11_root_client_size(client_width, client_height);
  root.canvas = x11_canvas::on_window(x11_display(), XtWindow(root.client), client_width, client_height);
  attach_target(igr_window, 0, root.canvas.get());
}

void x11_root_close() {
  if (root.shell == nullptr) return;
  attach_target(igr_window, 0, nullptr);
  root.canvas.reset();  // its drawing resources go before the window they draw on
  x11_unwatch_client_area(root.client);
  XtDestroyWidget(root.shell);
  root = root_type{};
  x11_queue_clear();
}

bool x11_root_is_open() { return root.shell != nullptr; }

void x11_root_caption(const std::string& caption) {
  if (root.shell == nullptr) return;
  XtVaSetValues(root.shell, XmNtitle, caption.c_str(), nullptr);
}

void x11_root_sync_menus() {
  if (root.shell == nullptr) return;
  if (shown_menu() != root.menu_shown) {
    root.menu_shown = shown_menu();
    if (const menu_type* menu = find_menu(root.menu_shown)) {
      // Managed first: a bar filled while unmanaged keeps the height of an empty one.
      show_menubar(true);
      x11_menubar_build(root.menubar, *menu, chosen);
    } else {
      x11_menubar_clear(root.menubar);
      show_menubar(false);
    }
  }
  for (int slot = 1; slot <= x11_toolbar_slots; ++slot) {
    int& shown = root.toolbars_shown[static_cast<std::size_t>(slot - 1)];
    if (shown_toolbar(slot) == shown) continue;
    shown = shown_toolbar(slot);
    x11_toolbar_show(slot, shown, chosen);
  }
  if (const menu_type* menu = find_menu(root.menu_shown)) {
    for (const menu_item_type& item : menu->items) apply_item_state(item.id);
  }
  for (int id : root.toolbars_shown) {
    if (const toolbar_type* toolbar = find_toolbar(id)) {
      for (int button : toolbar->buttons) apply_item_state(button);
    }
  }
}

void x11_root_cursor(int shape) {
  if (root.shell == nullptr) return;
  static std::array<Cursor, 3> cursors{};
  const unsigned glyphs[] = {XC_left_ptr, XC_watch, XC_crosshair};
  const std::size_t which = shape == 1 ? 1 : shape == 3 ? 2 : 0;
  if (cursors[which] == None) cursors[which] = XCreateFontCursor(x11_display(), glyphs[which]);
  XDefineCursor(x11_display(), XtWindow(root.shell), cursors[which]);
  XDefineCursor(x11_display(), XtWindow(root.client), cursors[which]);
  XFlush(x11_display());
}

Widget x11_root_shell() { return root.shell; }
Widget x11_root_client_area() { return root.client; }

void x11_root_client_size(int& width, int& height) {
  width = height = 0;
  if (root.client == nullptr) return;
  Dimension w = 0, h = 0;
  XtVaGetValues(root.client, XmNwidth, &w, XmNheight, &h, nullptr);
  width = w;
  height = h;
}
