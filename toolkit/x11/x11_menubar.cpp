#include "toolkit/x11/x11_menubar.h"

#include <Xm/CascadeB.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/SeparatoG.h>

#include <map>
#include <vector>

namespace {

std::map<int, Widget> item_widgets;
x11_item_chosen on_chosen = nullptr;

void activated(Widget, XtPointer client_data, XtPointer) {
  if (on_chosen != nullptr) on_chosen(static_cast<int>(reinterpret_cast<intptr_t>(client_data)));
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

void x11_menubar_build(Widget menubar, const menu_type& menu, x11_item_chosen chosen) {
  x11_menubar_clear(menubar);
  on_chosen = chosen;
  // parents[level] is the row column that takes items of that level.
  std::vector<Widget> parents{menubar};
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
    } else if (parent == menubar) {
      // A top-level entry: a cascade button without a pane reacts at once.
      w = XtVaCreateManagedWidget("entry", xmCascadeButtonWidgetClass, parent, nullptr);
      XtAddCallback(w, XmNactivateCallback, activated, reinterpret_cast<XtPointer>(intptr_t{item.id}));
    } else {
      w = XtVaCreateManagedWidget("entry", xmPushButtonWidgetClass, parent, nullptr);
      XtAddCallback(w, XmNactivateCallback, activated, reinterpret_cast<XtPointer>(intptr_t{item.id}));
    }
    set_label(w, item);
    item_widgets[item.id] = w;
  }
}

Widget x11_menubar_item(int id) {
  const auto it = item_widgets.find(id);
  return it == item_widgets.end() ? nullptr : it->second;
}
