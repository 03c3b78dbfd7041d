#include "toolkit/x11/x11_dialog_grid.h"

#include <Xm/BulletinB.h>
#include <Xm/Label.h>
#include <Xm/ScrolledW.h>
#include <Xm/TextF.h>

#include "toolkit/dialogs/dialog_user.h"
#include "toolkit/x11/x11_dialog_units.h"

namespace {

constexpr int row_units = 12;
constexpr int label_units = 40;

struct cell_ref {
  int dialog, field, column, row;
};

void free_cell(Widget, XtPointer data, XtPointer) { delete static_cast<cell_ref*>(data); }

void cell_done(Widget w, XtPointer data, XtPointer) {
  const auto* c = static_cast<cell_ref*>(data);
  char* t = XmTextFieldGetString(w);
  const std::string text = t ? t : "";
  XtFree(t);
  if (yyuser_cell(c->dialog, c->field, c->column, c->row, text)) return;
  // Refused: the cell shows its value again.
  const loaded_dialog_type* d = yyfind_dialog(c->dialog);
  const field_state_type* f = d ? yyfind_field(*const_cast<loaded_dialog_type*>(d), c->field) : nullptr;
  if (f != nullptr) {
    const std::string& old = f->grid.cells[static_cast<std::size_t>(c->row - 1)][static_cast<std::size_t>(c->column - 1)];
    XmTextFieldSetString(w, const_cast<char*>(old.c_str()));
  }
}

Widget label(Widget parent, const std::string& text, int x, int y, int w) {
  XmString s = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
  Widget l = XtVaCreateManagedWidget("heading", xmLabelWidgetClass, parent, XmNx, static_cast<Position>(x), XmNy,
                                     static_cast<Position>(y), XmNwidth, static_cast<Dimension>(w), XmNheight,
                                     static_cast<Dimension>(x11_dialog_y(row_units)), XmNrecomputeSize, False,
                                     XmNlabelString, s, XmNrenderTable, x11_dialog_render_table(), nullptr);
  XmStringFree(s);
  return l;
}

}  // namespace

Widget x11_grid_create(int, Widget board, const field_type& f) {
  return XtVaCreateManagedWidget("grid", xmScrolledWindowWidgetClass, board, XmNx,
                                 static_cast<Position>(x11_dialog_x(f.x)), XmNy,
                                 static_cast<Position>(x11_dialog_y(f.y)), XmNwidth,
                                 static_cast<Dimension>(x11_dialog_x(f.width)), XmNheight,
                                 static_cast<Dimension>(x11_dialog_y(f.height)), XmNscrollingPolicy,
                                 XmAUTOMATIC, XmNscrollBarDisplayPolicy, XmAS_NEEDED, nullptr);
}

void x11_grid_show(int dialog, const field_state_type& f, Widget scrolled) {
  Widget old = nullptr;
  XtVaGetValues(scrolled, XmNworkWindow, &old, nullptr);
  if (old != nullptr) XtDestroyWidget(old);
  const grid_state_type& g = f.grid;
  Widget table = XtVaCreateWidget("cells", xmBulletinBoardWidgetClass, scrolled, XmNmarginWidth, 0,
                                  XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_GROW, nullptr);
  const int h = x11_dialog_y(row_units);
  int x = x11_dialog_x(label_units);
  std::vector<int> left;
  for (const field_type& column : g.columns) {
    left.push_back(x);
    label(table, column.text, x, 0, x11_dialog_x(column.width));
    x += x11_dialog_x(column.width);
  }
  for (std::size_t r = 0; r < g.cells.size(); ++r) {
    const int y = h * static_cast<int>(r + 1);
    label(table, g.row_labels[r], 0, y, x11_dialog_x(label_units));
    for (std::size_t c = 0; c < g.columns.size(); ++c) {
      const int state = g.cell_states[r][c];
      Widget cell = XtVaCreateManagedWidget(
          "cell", xmTextFieldWidgetClass, table, XmNx, static_cast<Position>(left[c]), XmNy,
          static_cast<Position>(y), XmNwidth, static_cast<Dimension>(x11_dialog_x(g.columns[c].width)), XmNheight,
          static_cast<Dimension>(h), XmNmarginHeight, 0, XmNshadowThickness, 1, XmNvalue, g.cells[r][c].c_str(),
          XmNeditable, state == field_enabled, XmNrenderTable, x11_dialog_render_table(), nullptr);
      XtSetSensitive(cell, state != field_disabled);
      auto* ref = new cell_ref{dialog, f.resource.id, static_cast<int>(c + 1), static_cast<int>(r + 1)};
      XtAddCallback(cell, XmNlosingFocusCallback, cell_done, ref);
      XtAddCallback(cell, XmNactivateCallback, cell_done, ref);
      XtAddCallback(cell, XmNdestroyCallback, free_cell, ref);
    }
  }
  XtManageChild(table);
  XtVaSetValues(scrolled, XmNworkWindow, table, nullptr);
}
