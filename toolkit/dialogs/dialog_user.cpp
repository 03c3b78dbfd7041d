#include "toolkit/dialogs/dialog_user.h"

#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/field_format.h"
#include "toolkit/messages/wmessage.h"

namespace {

constexpr std::int32_t source_dialog = 1;

void queue(std::int32_t type, int dialog, int value1, int value2) {
  message_record r;
  r.value1 = value1;
  r.value2 = value2;
  r.value3 = source_dialog;
  r.value4 = dialog;
  yyqueue_message(type, r);
}

// The field, when its dialog is on the screen and it takes input.
field_state_type* input_field(int dialog, int field, int kind) {
  loaded_dialog_type* d = yyfind_dialog(dialog);
  if (d == nullptr || !yydialog_visible(dialog)) return nullptr;
  field_state_type* f = yyfind_field(*d, field);
  if (f == nullptr || f->state != field_enabled) return nullptr;
  if (kind != 0 && f->resource.kind != kind) return nullptr;
  return f;
}

bool in_range(const field_state_type& f, double v) {
  return !f.resource.range || (v >= f.resource.range->minimum && v <= f.resource.range->maximum);
}

// Whether a number field takes the text: empty, or a number within its range.
bool acceptable(const field_state_type& f, const std::string& text) {
  if (f.resource.kind == field_string) return true;
  if (text.find_first_not_of(' ') == std::string::npos) return true;
  if (f.resource.kind == field_integer) {
    const auto v = parse_integer_text(text);
    return v && in_range(f, *v);
  }
  const auto v = parse_real_text(text);
  return v && in_range(f, *v);
}

void choice_changed(int dialog, int field) {
  yyuser_focus(dialog, field);
  queue(msg_field_changed, dialog, field, field);
}

}  // namespace

bool yyuser_focus(int dialog, int field) {
  loaded_dialog_type* d = yyfind_dialog(dialog);
  if (input_field(dialog, field, 0) == nullptr) return false;
  if (d->focus != field) queue(msg_field_changed, dialog, d->focus, field);
  d->focus = field;
  return true;
}

bool yyuser_text(int dialog, int field, const std::string& text) {
  field_state_type* f = input_field(dialog, field, 0);
  if (f == nullptr) return false;
  const int kind = f->resource.kind;
  if (kind != field_string && kind != field_integer && kind != field_real) return false;
  if (!acceptable(*f, text)) return false;
  yyuser_focus(dialog, field);
  if (f->text == text) return true;
  f->text = text;
  // A new value is a change of its own: the focus may leave the field for
  // one the dialog does not report (a button), and the program must hear of it.
  queue(msg_field_changed, dialog, field, field);
  return true;
}

bool yyuser_check(int dialog, int field, int checked) {
  field_state_type* f = input_field(dialog, field, field_check);
  if (f == nullptr) return false;
  f->checked = checked != 0 ? 1 : 0;
  choice_changed(dialog, field);
  return true;
}

bool yyuser_radio(int dialog, int field) {
  field_state_type* f = input_field(dialog, field, field_radio);
  if (f == nullptr) return false;
  for (field_state_type* r : yyradio_group(*yyfind_dialog(dialog), field)) r->checked = r == f ? 1 : 0;
  choice_changed(dialog, field);
  return true;
}

bool yyuser_option(int dialog, int field, int selection) {
  field_state_type* f = input_field(dialog, field, field_menu);
  if (f == nullptr || selection < 1 || selection > static_cast<int>(f->options.size())) return false;
  f->selection = selection;
  choice_changed(dialog, field);
  return true;
}

bool yyuser_tab(int dialog, int field, int page) {
  field_state_type* f = input_field(dialog, field, field_tab);
  if (f == nullptr) return false;
  for (const tab_page_type& p : f->pages) {
    if (p.dialog != page) continue;
    f->page = page;
    choice_changed(dialog, field);
    return true;
  }
  return false;
}

bool yyuser_cell(int dialog, int field, int column, int row, const std::string& text) {
  field_state_type* f = input_field(dialog, field, field_grid);
  if (f == nullptr) return false;
  grid_state_type& g = f->grid;
  if (row < 1 || row > static_cast<int>(g.cells.size()) || column < 1 || column > static_cast<int>(g.columns.size())) {
    return false;
  }
  const auto r = static_cast<std::size_t>(row - 1);
  const auto c = static_cast<std::size_t>(column - 1);
  if (g.cell_states[r][c] != field_enabled) return false;
  field_state_type cell;
  cell.resource = g.columns[c];
  if (!acceptable(cell, text)) return false;
  yyuser_focus(dialog, field);
  g.cells[r][c] = text;
  return true;
}

bool yyuser_press(int dialog, int button) {
  if (input_field(dialog, button, field_button) == nullptr) return false;
  yyuser_focus(dialog, button);
  queue(msg_push_button, dialog, button, 0);
  return true;
}

bool yyuser_mouse_on_field(int dialog, int field, int button) {
  if (input_field(dialog, field, 0) == nullptr) return false;
  queue(msg_mouse_down, field, button, 0);
  return true;
}
