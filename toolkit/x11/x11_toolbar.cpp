#include "toolkit/x11/x11_toolbar.h"

#include <Xm/RowColumn.h>
#include <Xm/SeparatoG.h>
#include <Xm/ToggleB.h>

#include <map>
#include <string>
#include <vector>

#include "toolkit/x11/x11_icons.h"

namespace {

struct slot_type {
  Widget row = nullptr;
  std::map<int, Widget> buttons;
};

std::vector<slot_type> slots;
x11_item_chosen on_chosen = nullptr;

void value_changed(Widget w, XtPointer client_data, XtPointer) {
  // The button's look follows the item's checked state, which only the program
  // changes: undo the toggle that the click made.
  XmToggleButtonSetState(w, !XmToggleButtonGetState(w), False);
  if (on_chosen != nullptr) on_chosen(static_cast<int>(reinterpret_cast<intptr_t>(client_data)));
}

void clear_slot(slot_type& slot) {
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(slot.row, XmNchildren, &children, XmNnumChildren, &count, nullptr);
  std::vector<Widget> copy(children, children + count);
  for (Widget w : copy) XtDestroyWidget(w);
  slot.buttons.clear();
  XtUnmanageChild(slot.row);
}

struct button_pixmaps {
  Pixmap normal = None;
  Pixmap greyed = None;
};

// The pixmaps of an icon, painted once: toolbars come and go with the plot
// window, their icons stay the same.
const button_pixmaps& pixmaps_of(Widget row, const icon_type& icon) {
  static std::map<int, button_pixmaps> painted;
  button_pixmaps& p = painted[icon.id];
  if (p.normal == None) {
    Display* display = XtDisplay(row);
    Window root = RootWindowOfScreen(XtScreen(row));
    Pixel background = 0;
    XtVaGetValues(row, XmNbackground, &background, nullptr);
    p.normal = x11_icon_pixmap(display, root, icon, background);
    p.greyed = x11_icon_pixmap_greyed(display, root, icon, background);
  }
  return p;
}

Widget make_button(Widget row, int id) {
  Widget button = XtVaCreateManagedWidget(
      "button", xmToggleButtonWidgetClass, row, XmNindicatorOn, XmINDICATOR_NONE, XmNshadowThickness,
      2, XmNmarginWidth, 2, XmNmarginHeight, 2, XmNfillOnSelect, False, nullptr);
  if (const icon_type* icon = find_icon(id)) {
    const button_pixmaps& p = pixmaps_of(row, *icon);
    XtVaSetValues(button, XmNlabelType, XmPIXMAP, XmNlabelPixmap, p.normal, XmNselectPixmap,
                  p.normal, XmNlabelInsensitivePixmap, p.greyed, nullptr);
  } else {
    // A button the catalogue has no picture for shows its number.
    XmString text = XmStringCreateLocalized(const_cast<char*>(std::to_string(id).c_str()));
    XtVaSetValues(button, XmNlabelString, text, nullptr);
    XmStringFree(text);
  }
  if (const std::string* prompt = find_prompt(id)) {
    XmString tip = XmStringCreateLocalized(const_cast<char*>(prompt->c_str()));
    XtVaSetValues(button, XmNtoolTipString, tip, nullptr);
    XmStringFree(tip);
  }
  XtAddCallback(button, XmNvalueChangedCallback, value_changed,
                reinterpret_cast<XtPointer>(intptr_t{id}));
  return button;
}

}  // namespace

void x11_toolbar_slots_create(Widget parent) {
  slots.assign(x11_toolbar_slots, slot_type{});
  for (slot_type& slot : slots) {
    slot.row = XtVaCreateWidget("toolbar", xmRowColumnWidgetClass, parent, XmNorientation,
                                XmHORIZONTAL, XmNspacing, 1, XmNmarginHeight, 1, nullptr);
  }
}

void x11_toolbar_show(int slot, int id, x11_item_chosen chosen) {
  if (slot < 1 || slot > static_cast<int>(slots.size())) return;
  slot_type& s = slots[slot - 1];
  clear_slot(s);
  const toolbar_type* toolbar = find_toolbar(id);
  if (toolbar == nullptr) return;
  on_chosen = chosen;
  for (int button : toolbar->buttons) {
    if (button == 0) {
      XtVaCreateManagedWidget("gap", xmSeparatorGadgetClass, s.row, XmNorientation, XmVERTICAL,
                              XmNwidth, 8, nullptr);
      continue;
    }
    s.buttons[button] = make_button(s.row, button);
  }
  XtManageChild(s.row);
}

void x11_toolbar_set_enabled(int id, bool enabled) {
  for (slot_type& slot : slots) {
    const auto it = slot.buttons.find(id);
    if (it != slot.buttons.end()) XtSetSensitive(it->second, enabled ? True : False);
  }
}

void x11_toolbar_set_checked(int id, bool checked) {
  for (slot_type& slot : slots) {
    const auto it = slot.buttons.find(id);
    if (it != slot.buttons.end()) XmToggleButtonSetState(it->second, checked ? True : False, False);
  }
}

Widget x11_toolbar_button(int id) {
  for (slot_type& slot : slots) {
    const auto it = slot.buttons.find(id);
    if (it != slot.buttons.end()) return it->second;
  }
  return nullptr;
}
