#include "toolkit/x11/x11_dialog.h"

#include <X11/Shell.h>
#include <Xm/BulletinB.h>
#include <Xm/ComboBox.h>
#include <Xm/DrawingA.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/ScrolledW.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/dialogs/dialog_user.h"
#include "toolkit/x11/x11_canvas.h"
#include "toolkit/x11/x11_dialog_grid.h"
#include "toolkit/x11/x11_dialog_units.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

// The visible height of an option menu; the catalogue's height is that of its open list.
constexpr int menu_height_units = 14;
// The row of tab captions above the pages, in dialog units.
constexpr int tab_row_units = 16;

struct dialog_widgets {
  Widget shell = nullptr;  // top-level dialogs only
  Widget board = nullptr;
  std::map<int, Widget> fields;
  std::map<int, Widget> tabs;  // tab holder: page dialog -> its caption button
  // Colour boxes are drawing targets (igrselect 3 with the field's number):
  // drawing goes to a pixmap, copied to the box on exposure and whenever the
  // program waits for the user.
  std::map<int, std::unique_ptr<x11_canvas>> boxes;
};

std::map<int, dialog_widgets> shown;

// What a callback needs to report the user's action.
struct field_ref {
  int dialog;
  int field;
  int page;  // for a tab caption: the page it shows
};

field_ref* ref(int dialog, int field, int page = 0) { return new field_ref{dialog, field, page}; }
void free_ref(Widget, XtPointer data, XtPointer) { delete static_cast<field_ref*>(data); }

// A field's widget at its place; `extra` holds resources that must be given at creation.
Widget create(WidgetClass cls, Widget parent, const field_type& f, int height_units, std::vector<Arg> extra = {}) {
  auto arg = [](const char* name, XtArgVal value) { return Arg{const_cast<char*>(name), value}; };
  extra.push_back(arg(XmNrenderTable, reinterpret_cast<XtArgVal>(x11_dialog_render_table())));
  extra.push_back(arg(XmNx, x11_dialog_x(f.x)));
  extra.push_back(arg(XmNy, x11_dialog_y(f.y)));
  extra.push_back(arg(XmNwidth, std::max(1, x11_dialog_x(f.width))));
  extra.push_back(arg(XmNheight, std::max(1, x11_dialog_y(height_units))));
  return XtCreateManagedWidget("field", cls, parent, extra.data(), static_cast<Cardinal>(extra.size()));
}

void set_label(Widget w, const std::string& text) {
  XmString s = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
  XtVaSetValues(w, XmNlabelString, s, nullptr);
  XmStringFree(s);
}

std::string text_of(Widget w) {
  char* t = XmTextFieldGetString(w);
  std::string s = t ? t : "";
  XtFree(t);
  return s;
}

// --- callbacks: the user's actions -------------------------------------------

void focused(Widget, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  yyuser_focus(r->dialog, r->field);
}

// Typed text is taken when the user leaves the field or presses Return; a
// refused text gives way to the field's value again.
void text_done(Widget w, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  if (!yyuser_text(r->dialog, r->field, text_of(w))) x11_dialog_field(r->dialog, r->field);
}

void pressed(Widget, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  yyuser_press(r->dialog, r->field);
}

void toggled(Widget w, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  loaded_dialog_type* d = yyfind_dialog(r->dialog);
  field_state_type* f = d ? yyfind_field(*d, r->field) : nullptr;
  if (f == nullptr) return;
  if (f->resource.kind == field_check) {
    yyuser_check(r->dialog, r->field, XmToggleButtonGetState(w) ? 1 : 0);
  } else {
    yyuser_radio(r->dialog, r->field);
    for (field_state_type* other : yyradio_group(*d, r->field)) x11_dialog_field(r->dialog, other->resource.id);
  }
  x11_dialog_field(r->dialog, r->field);
}

// Set while the program's selection is put into a combo box: the box calls
// its selection callback for that too, and only a user's choice is a message.
bool showing_selection = false;

// The combo box counts its items from 0, the toolkit's selection from 1.
void option_chosen(Widget, XtPointer data, XtPointer call) {
  const auto* r = static_cast<field_ref*>(data);
  const auto* cb = static_cast<XmComboBoxCallbackStruct*>(call);
  if (!showing_selection && cb->item_position >= 0) yyuser_option(r->dialog, r->field, cb->item_position + 1);
}

void tab_chosen(Widget, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  yyuser_tab(r->dialog, r->field, r->page);
  x11_dialog_field(r->dialog, r->field);
}

void copy_box(Widget w, const x11_canvas& box) {
  if (!XtIsRealized(w)) return;
  GC gc = XCreateGC(XtDisplay(w), XtWindow(w), 0, nullptr);
  XCopyArea(XtDisplay(w), box.drawable(), XtWindow(w), gc, 0, 0, static_cast<unsigned>(box.width()),
            static_cast<unsigned>(box.height()), 0, 0);
  XFreeGC(XtDisplay(w), gc);
}

void box_exposed(Widget w, XtPointer data, XtPointer) {
  const auto* r = static_cast<field_ref*>(data);
  const auto d = shown.find(r->dialog);
  if (d == shown.end()) return;
  const auto box = d->second.boxes.find(r->field);
  if (box != d->second.boxes.end()) copy_box(w, *box->second);
}

// The drawing targets of a dialog's colour boxes, made once it is on the screen.
void attach_boxes(int dialog) {
  dialog_widgets& w = shown[dialog];
  const loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr) return;
  for (const field_state_type& f : d->fields) {
    if (f.resource.kind != field_picture || w.boxes.contains(f.resource.id)) continue;
    Widget area = w.fields[f.resource.id];
    if (area == nullptr || !XtIsRealized(area)) continue;
    Dimension width = 0, height = 0;
    XtVaGetValues(area, XmNwidth, &width, XmNheight, &height, nullptr);
    auto box = x11_canvas::pixmap(x11_display(), XtWindow(area), std::max<int>(1, width), std::max<int>(1, height));
    box->clear(0, 0, box->width(), box->height(), canvas_colour{-1, 0xffffff});
    attach_target(igr_field, f.resource.id, box.get());
    w.boxes[f.resource.id] = std::move(box);
  }
}

void detach_boxes(dialog_widgets& w) {
  for (const auto& [field, box] : w.boxes) {
    if (target_canvas(igr_field, field) == box.get()) attach_target(igr_field, field, nullptr);
  }
  w.boxes.clear();
}

void box_clicked(Widget, XtPointer data, XEvent* event, Boolean*) {
  const auto* r = static_cast<field_ref*>(data);
  yyuser_mouse_on_field(r->dialog, r->field, static_cast<int>(event->xbutton.button));
}

// Closing a dialog's window is its Cancel, or its only button.
void close_requested(Widget, XtPointer data, XtPointer) {
  const int id = static_cast<int>(reinterpret_cast<intptr_t>(data));
  if (!yyuser_press(id, 2)) yyuser_press(id, 1);
}

// --- building -----------------------------------------------------------------

void build_fields(int dialog, Widget board, dialog_widgets& widgets);

Widget text_field(int dialog, Widget board, const field_type& f) {
  Widget w = create(xmTextFieldWidgetClass, board, f, f.height);
  XtVaSetValues(w, XmNmarginHeight, 1, XmNmarginWidth, 3, XmNshadowThickness, 1, nullptr);
  field_ref* r = ref(dialog, f.id);
  XtAddCallback(w, XmNfocusCallback, focused, r);
  XtAddCallback(w, XmNlosingFocusCallback, text_done, r);
  XtAddCallback(w, XmNactivateCallback, text_done, r);
  XtAddCallback(w, XmNdestroyCallback, free_ref, r);
  return w;
}

Widget toggle(int dialog, Widget board, const field_type& f) {
  Widget w = create(xmToggleButtonWidgetClass, board, f, f.height);
  XtVaSetValues(w, XmNalignment, XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, XmNindicatorType,
                f.kind == field_radio ? XmONE_OF_MANY_ROUND : XmN_OF_MANY, XmNmarginHeight, 0, nullptr);
  set_label(w, f.text);
  field_ref* r = ref(dialog, f.id);
  XtAddCallback(w, XmNvalueChangedCallback, toggled, r);
  XtAddCallback(w, XmNdestroyCallback, free_ref, r);
  return w;
}

Widget group_box(Widget board, const field_type& f) {
  Widget frame = create(xmFrameWidgetClass, board, f, f.height);
  XtVaSetValues(frame, XmNshadowType, XmSHADOW_ETCHED_IN, nullptr);
  Widget title = XtVaCreateManagedWidget("title", xmLabelWidgetClass, frame, XmNchildType, XmFRAME_TITLE_CHILD,
                                         XmNrenderTable, x11_dialog_render_table(), nullptr);
  set_label(title, f.text);
  return frame;
}

Widget option_menu(int dialog, Widget board, const field_type& f) {
  Widget w = create(xmComboBoxWidgetClass, board, f, menu_height_units,
                    {{const_cast<char*>(XmNcomboBoxType), XmDROP_DOWN_LIST}});
  XtVaSetValues(w, XmNmarginHeight, 0, XmNvisibleItemCount, std::max(3, f.height / 10), nullptr);
  field_ref* r = ref(dialog, f.id);
  XtAddCallback(w, XmNselectionCallback, option_chosen, r);
  XtAddCallback(w, XmNdestroyCallback, free_ref, r);
  return w;
}

Widget colour_box(int dialog, Widget board, const field_type& f) {
  Widget w = create(xmDrawingAreaWidgetClass, board, f, f.height);
  XtVaSetValues(w, XmNshadowThickness, 1, XmNbackground, WhitePixelOfScreen(XtScreen(board)), nullptr);
  field_ref* r = ref(dialog, f.id);
  XtAddEventHandler(w, ButtonPressMask, False, box_clicked, r);
  XtAddCallback(w, XmNexposeCallback, box_exposed, r);
  XtAddCallback(w, XmNdestroyCallback, free_ref, r);
  return w;
}

// A tab holder: a row of caption buttons, and under it each page as a board
// of its own, of which the one shown is managed.
Widget tab_holder(int dialog, Widget board, const field_state_type& holder, dialog_widgets& widgets) {
  const field_type& f = holder.resource;
  Widget frame = create(xmFrameWidgetClass, board, f, f.height);
  XtVaSetValues(frame, XmNshadowType, XmSHADOW_OUT, nullptr);
  const int top = f.y + tab_row_units;
  int x = f.x;
  for (const tab_page_type& page : holder.pages) {
    Widget tab = XtVaCreateManagedWidget("tab", xmToggleButtonWidgetClass, board, XmNx,
                                         static_cast<Position>(x11_dialog_x(x)), XmNy,
                                         static_cast<Position>(x11_dialog_y(f.y)), XmNindicatorOn, False,
                                         XmNshadowThickness, 2, XmNfillOnSelect, True,
                                         XmNrenderTable, x11_dialog_render_table(), nullptr);
    set_label(tab, page.caption);
    field_ref* r = ref(dialog, f.id, page.dialog);
    XtAddCallback(tab, XmNvalueChangedCallback, tab_chosen, r);
    XtAddCallback(tab, XmNdestroyCallback, free_ref, r);
    Dimension w = 0;
    XtVaGetValues(tab, XmNwidth, &w, nullptr);
    x += static_cast<int>(w / (x11_dialog_x(100) / 100.0)) + 1;
    widgets.tabs[page.dialog] = tab;

    dialog_widgets& pw = shown[page.dialog];
    pw.board = XtVaCreateWidget("page", xmBulletinBoardWidgetClass, board, XmNx,
                                static_cast<Position>(x11_dialog_x(f.x + 4)), XmNy,
                                static_cast<Position>(x11_dialog_y(top + 2)), XmNwidth,
                                static_cast<Dimension>(x11_dialog_x(f.width - 8)), XmNheight,
                                static_cast<Dimension>(x11_dialog_y(f.height - tab_row_units - 6)),
                                XmNmarginWidth, 0, XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE,
                                XmNshadowThickness, 0, nullptr);
    build_fields(page.dialog, pw.board, pw);
  }
  XtVaSetValues(frame, XmNy, static_cast<Position>(x11_dialog_y(top)), XmNheight,
                static_cast<Dimension>(x11_dialog_y(f.height - tab_row_units)), nullptr);
  return frame;
}

Widget field_widget(int dialog, Widget board, const field_state_type& s, dialog_widgets& widgets) {
  const field_type& f = s.resource;
  switch (f.kind) {
    case field_label: {
      Widget w = create(xmLabelWidgetClass, board, f, f.height);
      XtVaSetValues(w, XmNalignment, XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, XmNmarginHeight, 0,
                    XmNmarginWidth, 0, nullptr);
      return w;
    }
    case field_picture: return colour_box(dialog, board, f);
    case field_group: return group_box(board, f);
    case field_string:
    case field_integer:
    case field_real: return text_field(dialog, board, f);
    case field_button: {
      Widget w = create(xmPushButtonWidgetClass, board, f, f.height);
      set_label(w, f.text);
      field_ref* r = ref(dialog, f.id);
      XtAddCallback(w, XmNactivateCallback, pressed, r);
      XtAddCallback(w, XmNdestroyCallback, free_ref, r);
      return w;
    }
    case field_check:
    case field_radio: return toggle(dialog, board, f);
    case field_menu: return option_menu(dialog, board, f);
    case field_tab: return tab_holder(dialog, board, s, widgets);
    case field_progress:
    case field_trackbar: {
      Widget w = create(xmScaleWidgetClass, board, f, f.height);
      XtVaSetValues(w, XmNorientation, XmHORIZONTAL, XmNminimum, 0, XmNmaximum, 100, XmNshowValue, False,
                    XmNeditable, f.kind == field_trackbar, nullptr);
      // A progress bar fills from the left up to its value.
      if (f.kind == field_progress) {
        XtVaSetValues(w, XmNslidingMode, XmTHERMOMETER, XmNsliderMark, XmNONE, XmNsliderVisual, XmFOREGROUND_COLOR,
                      nullptr);
      }
      return w;
    }
    case field_grid: return x11_grid_create(dialog, board, f);
    default: return nullptr;
  }
}

// Group boxes first, so that the fields they frame lie above them.
void build_fields(int dialog, Widget board, dialog_widgets& widgets) {
  const loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr) return;
  for (bool groups : {true, false}) {
    for (const field_state_type& s : d->fields) {
      if ((s.resource.kind == field_group) != groups) continue;
      Widget w = field_widget(dialog, board, s, widgets);
      if (w == nullptr) continue;
      widgets.fields[s.resource.id] = w;
      // Margins and labels set after creation make some widgets take their
      // preferred size again: the catalogue's size wins.
      if (s.resource.kind != field_tab) {
        const int height = s.resource.kind == field_menu ? menu_height_units : s.resource.height;
        XtVaSetValues(w, XmNwidth, static_cast<Dimension>(std::max(1, x11_dialog_x(s.resource.width))), XmNheight,
                      static_cast<Dimension>(std::max(1, x11_dialog_y(height))), nullptr);
      }
    }
  }
  for (const field_state_type& s : d->fields) x11_dialog_field(dialog, s.resource.id);
}

// Centred over the root window, or at the place asked for in window units.
void place_shell(Widget shell, const loaded_dialog_type& d, int width, int height) {
  Position x = 0, y = 0;
  Dimension rw = 0, rh = 0;
  if (x11_root_is_open()) {
    XtVaGetValues(x11_root_shell(), XmNwidth, &rw, XmNheight, &rh, nullptr);
    XtTranslateCoords(x11_root_shell(), 0, 0, &x, &y);
  }
  const int left = d.x >= 0 ? x + x11_dialog_x(d.x) : x + (static_cast<int>(rw) - width) / 2;
  const int top = d.y >= 0 ? y + x11_dialog_y(d.y) : y + (static_cast<int>(rh) - height) / 2;
  XtVaSetValues(shell, XmNx, static_cast<Position>(std::max(0, left)), XmNy,
                static_cast<Position>(std::max(0, top)), nullptr);
}

void build(int dialog) {
  const loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr || d->parent != 0) return;
  dialog_widgets& w = shown[dialog];
  const int width = x11_dialog_x(d->width);
  const int height = x11_dialog_y(d->height);
  Widget parent = x11_root_is_open() ? x11_root_shell() : x11_application_shell();
  const std::string title = d->caption.empty() ? " " : d->caption;
  w.shell = XtVaCreatePopupShell("dialog", transientShellWidgetClass, parent, XmNtitle, title.c_str(),
                                 XmNdeleteResponse, XmDO_NOTHING, XmNallowShellResize, False, XmNwidth,
                                 static_cast<Dimension>(width), XmNheight, static_cast<Dimension>(height),
                                 XmNminWidth, width, XmNminHeight, height, XmNmaxWidth, width, XmNmaxHeight,
                                 height, nullptr);
  Atom delete_window = XmInternAtom(x11_display(), const_cast<char*>("WM_DELETE_WINDOW"), False);
  XmAddWMProtocolCallback(w.shell, delete_window, close_requested, reinterpret_cast<XtPointer>(intptr_t{dialog}));
  w.board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, w.shell, XmNwidth,
                                    static_cast<Dimension>(width), XmNheight, static_cast<Dimension>(height),
                                    XmNmarginWidth, 0, XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE,
                                    XmNallowOverlap, True, XmNnoResize, True, nullptr);
  build_fields(dialog, w.board, w);
  // Return presses OK where the dialog has one.
  if (w.fields.contains(1) && XmIsPushButton(w.fields[1])) XtVaSetValues(w.board, XmNdefaultButton, w.fields[1], nullptr);
  place_shell(w.shell, *d, width, height);
}

// --- showing the state ------------------------------------------------------------

void show_menu(Widget w, const field_state_type& f) {
  std::vector<XmString> items;
  for (const std::string& o : f.options) items.push_back(XmStringCreateLocalized(const_cast<char*>(o.c_str())));
  XtVaSetValues(w, XmNitems, items.data(), XmNitemCount, static_cast<int>(items.size()), nullptr);
  for (XmString s : items) XmStringFree(s);
  Widget list = nullptr;
  XtVaGetValues(w, XmNlist, &list, nullptr);
  if (list != nullptr) XmListDeselectAllItems(list);
  if (f.selection > 0 && f.selection <= static_cast<int>(f.options.size())) {
    showing_selection = true;
    XtVaSetValues(w, XmNselectedPosition, f.selection - 1, nullptr);
    showing_selection = false;
  } else {
    Widget text = nullptr;
    XtVaGetValues(w, XmNtextField, &text, nullptr);
    if (text != nullptr) XmTextFieldSetString(text, const_cast<char*>(""));
  }
}

void show_state(int dialog, const field_state_type& f, Widget w) {
  const int kind = f.resource.kind;
  switch (kind) {
    case field_label:
    case field_button: set_label(w, f.text); break;
    case field_group: {
      WidgetList children = nullptr;
      Cardinal n = 0;
      XtVaGetValues(w, XmNchildren, &children, XmNnumChildren, &n, nullptr);
      if (n > 0) set_label(children[0], f.text);
      break;
    }
    case field_string:
    case field_integer:
    case field_real:
      XmTextFieldSetString(w, const_cast<char*>(f.text.c_str()));
      XtVaSetValues(w, XmNeditable, f.state == field_enabled, XmNcursorPositionVisible, f.state == field_enabled,
                    nullptr);
      break;
    case field_check:
    case field_radio:
      set_label(w, f.text);
      XmToggleButtonSetState(w, f.checked != 0, False);
      break;
    case field_menu: show_menu(w, f); break;
    case field_progress:
    case field_trackbar: XmScaleSetValue(w, std::clamp(f.value, 0, 100)); break;
    case field_tab:
      for (const tab_page_type& p : f.pages) {
        XmToggleButtonSetState(shown[dialog].tabs[p.dialog], p.dialog == f.page, False);
        Widget page = shown[p.dialog].board;
        if (page == nullptr) continue;
        if (p.dialog == f.page) XtManageChild(page);
        else XtUnmanageChild(page);
      }
      break;
    case field_grid: x11_grid_show(dialog, f, w); break;
    default: break;
  }
  XtSetSensitive(w, f.state != field_disabled);
}

// Group boxes and tab holders go under the fields they frame.
void lower_frames(int dialog) {
  const loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr) return;
  for (const field_state_type& f : d->fields) {
    const int kind = f.resource.kind;
    Widget w = shown[dialog].fields[f.resource.id];
    if ((kind == field_group || kind == field_tab) && w != nullptr && XtIsRealized(w)) {
      XLowerWindow(x11_display(), XtWindow(w));
    }
    for (const tab_page_type& p : f.pages) lower_frames(p.dialog);
  }
}

}  // namespace

void x11_dialog_show(int dialog, bool visible) {
  const loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr || x11_display() == nullptr) return;
  if (!shown.contains(dialog) || shown[dialog].shell == nullptr) build(dialog);
  Widget shell = shown[dialog].shell;
  if (shell == nullptr) return;
  if (!visible) {
    XtPopdown(shell);
    return;
  }
  // A dialog the program waits on keeps the user to itself.
  XtPopup(shell, d->mode == 2 ? XtGrabNone : XtGrabExclusive);
  lower_frames(dialog);
  attach_boxes(dialog);
  if (d->focus > 0 && shown[dialog].fields.contains(d->focus)) {
    XmProcessTraversal(shown[dialog].fields[d->focus], XmTRAVERSE_CURRENT);
  }
}

void x11_dialog_field(int dialog, int field) {
  const auto it = shown.find(dialog);
  loaded_dialog_type* d = yyfind_dialog(dialog);
  if (it == shown.end() || d == nullptr) return;
  const auto w = it->second.fields.find(field);
  const field_state_type* f = yyfind_field(*d, field);
  if (w == it->second.fields.end() || f == nullptr) return;
  show_state(dialog, *f, w->second);
}

void x11_dialog_unload(int dialog) {
  const auto it = shown.find(dialog);
  if (it == shown.end()) return;
  // Forget the dialog and its pages before the widgets go, so that callbacks
  // run by the destruction (a text field losing the focus) find nothing to show.
  Widget shell = it->second.shell;
  for (int id : yyloaded_dialogs()) {
    const loaded_dialog_type* page = yyfind_dialog(id);
    if (id != dialog && (page == nullptr || page->parent != dialog)) continue;
    const auto entry = shown.find(id);
    if (entry == shown.end()) continue;
    detach_boxes(entry->second);
    shown.erase(entry);
  }
  if (shell != nullptr) XtDestroyWidget(shell);
}

void x11_dialog_flush() {
  for (auto& [dialog, w] : shown) {
    for (const auto& [field, box] : w.boxes) copy_box(w.fields[field], *box);
  }
}

Widget x11_dialog_shell(int dialog) {
  const auto it = shown.find(dialog);
  return it == shown.end() ? nullptr : it->second.shell;
}
