#include "toolkit/x11/x11_menubar.h"

#include <Xm/CascadeB.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/SeparatoG.h>

#include <algorithm>
#include <map>
#include <vector>

namespace {

std::map<int, Widget> item_widgets;

// What a menu item reports when chosen; lives as long as its widget.
struct choice_type {
  int id;
  x11_item_chosen chosen;
};

void activated(Widget, XtPointer client_data, XtPointer) {
  const auto* choice = static_cast<choice_type*>(client_data);
  if (choice->chosen != nullptr) choice->chosen(choice->id);
}

void forget_choice(Widget, XtPointer client_data, XtPointer) {
  delete static_cast<choice_type*>(client_data);
}

void on_activate(Widget w, int id, x11_item_chosen chosen) {
  auto* choice = new choice_type{id, chosen};
  XtAddCallback(w, XmNactivateCallback, activated, choice);
  XtAddCallback(w, XmNdestroyCallback, forget_choice, choice);
}

void set_label(Widget w, const menu_item_type& item) {
  XmString s = XmStringCreateLocalized(const_cast<char*>(item.label.c_str()));
  XtVaSetValues(w, XmNlabelString, s, nullptr);
  XmStringFree(s);
  if (item.mnemonic >= 0 && item.mnemonic < static_cast<int>(item.label.size())) {
    XtVaSetValues(w, XmNmnemonic, static_cast<KeySym>(item.label[item.mnemonic]), nullptr);
  }
}

}  // namespace

void x11_menubar_clear(Widget menubar) {
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(menubar, XmNchildren, &children, XmNnumChildren, &count, nullptr);
  // Destroying changes the list, so take a copy first.
  std::vector<Widget> copy(children, children + count);
  for (Widget w : copy) {
    Widget pane = nullptr;
    if (XtIsSubclass(w, xmCascadeButtonWidgetClass)) XtVaGetValues(w, XmNsubMenuId, &pane, nullptr);
    XtDestroyWidget(w);
    if (pane != nullptr) XtDestroyWidget(XtParent(pane));  // the pane's menu shell
  }
  item_widgets.clear();
}

void x11_menu_fill(Widget row_column, const menu_type& menu, x11_item_chosen chosen,
                   std::map<int, Widget>& items) {
  const bool bar = XmIsRowColumn(row_column) && [&] {
    unsigned char type = 0;
    XtVaGetValues(row_column, XmNrowColumnType, &type, nullptr);
    return type == XmMENU_BAR;
  }();
  // parents[level] is the row column that takes items of that level.
  std::vector<Widget> parents{row_column};
  for (const menu_item_type& item : menu.items) {
    const std::size_t level = std::min<std::size_t>(std::max(item.level, 0), parents.size() - 1);
    parents.resize(level + 1);
    Widget parent = parents[level];
    if (item.kind == menu_item_kind::separator) {
      XtVaCreateManagedWidget("separator", xmSeparatorGadgetClass, parent, nullptr);
      continue;
    }
    Widget w = nullptr;
    if (item.kind == menu_item_kind::popup) {
      Widget pane = XmCreatePulldownMenu(parent, const_cast<char*>("pane"), nullptr, 0);
      w = XtVaCreateManagedWidget("popup", xmCascadeButtonWidgetClass, parent, XmNsubMenuId, pane,
                                  nullptr);
      parents.push_back(pane);
    } else if (bar && parent == row_column) {
      // An entry of the bar itself: a cascade button without a pane reacts at once.
      w = XtVaCreateManagedWidget("entry", xmCascadeButtonWidgetClass, parent, nullptr);
      on_activate(w, item.id, chosen);
    } else {
      w = XtVaCreateManagedWidget("entry", xmPushButtonWidgetClass, parent, nullptr);
      on_activate(w, item.id, chosen);
    }
    set_label(w, item);
    items[item.id] = w;
  }
}

void x11_menubar_build(Widget menubar, const menu_type& menu, x11_item_chosen chosen) {
  x11_menubar_clear(menubar);
  x11_menu_fill(menubar, menu, chosen, item_widgets);
}

Widget x11_menubar_item(int id) {
  const auto it = item_widgets.find(id);
  return it == item_widgets.end() ? nullptr : it->second;
}
