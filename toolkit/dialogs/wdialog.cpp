#include "toolkit/dialogs/wdialog.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/field_format.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/wmessage.h"

namespace {

constexpr int mode_modal = 1;
constexpr int mode_modeless = 2;

void changed(const field_state_type& f) {
  if (const loaded_dialog_type* d = yycurrent_dialog()) current_backend().show_field(d->id, f.resource.id);
}

bool has_push_button(const loaded_dialog_type& d) {
  return std::any_of(d.fields.begin(), d.fields.end(),
                     [](const field_state_type& f) { return f.resource.kind == field_button; });
}

// Mode 1: messages until a push button; the others wait for the caller's
// loop, except field changes, which only a caller of mode 3 reads.
void wait_for_button(loaded_dialog_type& d) {
  const int id = d.id;
  std::deque<std::pair<std::int32_t, message_record>> held;
  int button = 0;
  while (button == 0) {
    std::int32_t type = 0;
    message_record record;
    wmessage(type, record);
    if (type == msg_push_button) {
      button = record.value1;
    } else if (type == msg_close_request) {
      button = 2;
      held.emplace_back(type, record);
    } else if (type != msg_field_changed) {
      held.emplace_back(type, record);
    }
  }
  for (const auto& [type, record] : held) yyqueue_message(type, record);
  yyset_exit_button(button);
  if (loaded_dialog_type* still = yyfind_dialog(id)) {
    still->shown = false;
    current_backend().show_dialog(id, false);
  }
}

std::string real_text(const field_state_type& f, float value, const std::string& format) {
  const std::string chosen = yytrim(format).empty() ? f.resource.format : format;
  if (const auto parsed = parse_real_format(chosen)) return format_real(value, *parsed);
  return format_real_free(value, f.resource.text);
}

}  // namespace

void wdialogload(std::int32_t dialog) {
  yyset_current_dialog(0);
  if (yyload_dialog(dialog) != nullptr) yyset_current_dialog(dialog);
}

void wdialogselect(std::int32_t dialog) {
  if (yyfind_dialog(dialog) == nullptr) {
    yyerror(error_no_dialog, "WDialogSelect");
    return;
  }
  yyset_current_dialog(dialog);
}

void wdialogshow(std::int32_t x, std::int32_t y, std::int32_t field, std::int32_t mode) {
  loaded_dialog_type* d = yycurrent_dialog();
  if (d == nullptr) {
    yyerror(error_no_dialog, "WDialogShow");
    return;
  }
  if (mode < 1 || mode > 3) mode = mode_modeless;
  if (mode != mode_modeless && !has_push_button(*d)) {
    yyerror(error_modeless, "WDialogShow");
    mode = mode_modeless;
  }
  d->x = x;
  d->y = y;
  d->mode = mode;
  d->focus = field;
  d->shown = true;
  current_backend().show_dialog(d->id, true);
  if (mode == mode_modal) wait_for_button(*d);
}

void wdialoghide() {
  loaded_dialog_type* d = yycurrent_dialog();
  if (d == nullptr) {
    yyerror(error_no_dialog, "WDialogHide");
    return;
  }
  d->shown = false;
  current_backend().show_dialog(d->id, false);
}

void wdialogunload() {
  loaded_dialog_type* d = yycurrent_dialog();
  if (d == nullptr) {
    yyerror(error_no_dialog, "WDialogUnload");
    return;
  }
  const int id = d->parent != 0 ? d->parent : d->id;
  yyunload_dialog(id);
  yyset_current_dialog(0);
}

void wdialogputstring(std::int32_t field, const std::string& text) {
  field_state_type* f = yyfield_for("WDialogPutString", field,
                                    {field_label, field_group, field_string, field_button, field_check, field_radio});
  if (f == nullptr) return;
  f->text = yytrim(text);
  changed(*f);
}

void wdialoggetstring(std::int32_t field, std::string& text) {
  field_state_type* f = yyfield_for("WDialogGetString", field, {field_label, field_group, field_string, field_button});
  if (f != nullptr) text = f->text;
}

void wdialogputinteger(std::int32_t field, std::int32_t value) {
  field_state_type* f = yyfield_for("WDialogPutInteger", field, {field_integer, field_progress, field_trackbar});
  if (f == nullptr) return;
  if (f->resource.kind == field_integer) {
    f->text = std::to_string(value);
  } else {
    f->value = value;
  }
  changed(*f);
}

void wdialoggetinteger(std::int32_t field, std::int32_t& value) {
  field_state_type* f = yyfield_for("WDialogGetInteger", field, {field_integer, field_progress, field_trackbar});
  if (f == nullptr) return;
  if (f->resource.kind != field_integer) {
    value = f->value;
    return;
  }
  const auto parsed = parse_integer_text(f->text);
  value = parsed.value_or(integer_undefined);
  if (!parsed) yyerror(error_undefined, "WDialogGetInteger");
}

void wdialogputreal(std::int32_t field, float value, const std::string& format) {
  field_state_type* f = yyfield_for("WDialogPutReal", field, {field_real});
  if (f == nullptr) return;
  f->text = real_text(*f, value, format);
  changed(*f);
}

void wdialoggetreal(std::int32_t field, float& value) {
  field_state_type* f = yyfield_for("WDialogGetReal", field, {field_real});
  if (f == nullptr) return;
  const auto parsed = parse_real_text(f->text);
  value = parsed ? static_cast<float>(*parsed) : real_undefined;
  if (!parsed) yyerror(error_undefined, "WDialogGetReal");
}

void wdialogputcheckbox(std::int32_t field, std::int32_t checked) {
  field_state_type* f = yyfield_for("WDialogPutCheckBox", field, {field_check});
  if (f == nullptr) return;
  f->checked = checked != 0 ? 1 : 0;
  changed(*f);
}

void wdialoggetcheckbox(std::int32_t field, std::int32_t& checked) {
  field_state_type* f = yyfield_for("WDialogGetCheckBox", field, {field_check});
  if (f != nullptr) checked = f->checked;
}

void wdialogputradiobutton(std::int32_t field) {
  field_state_type* f = yyfield_for("WDialogPutRadioButton", field, {field_radio});
  if (f == nullptr) return;
  for (field_state_type* r : yyradio_group(*yycurrent_dialog(), field)) {
    r->checked = r == f ? 1 : 0;
    changed(*r);
  }
}

void wdialoggetradiobutton(std::int32_t first_field, std::int32_t& number) {
  if (yyfield_for("WDialogGetRadioButton", first_field, {field_radio}) == nullptr) return;
  const std::vector<field_state_type*> group = yyradio_group(*yycurrent_dialog(), first_field);
  number = 0;
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (group[i]->checked) number = static_cast<std::int32_t>(i + 1);
  }
}

void wdialogputmenu1(std::int32_t field, const std::vector<std::string>& list, std::int32_t count,
                     std::int32_t selection) {
  field_state_type* f = yyfield_for("WDialogPutMenu", field, {field_menu});
  if (f == nullptr) return;
  if (count < 0) {
    yyerror(error_bad_argument, "WDialogPutMenu");
    return;
  }
  const std::size_t n = std::min(list.size(), static_cast<std::size_t>(count));
  f->options.clear();
  for (std::size_t i = 0; i < n; ++i) f->options.push_back(yytrim(list[i]));
  f->selection = selection >= 1 && selection <= static_cast<std::int32_t>(n) ? selection : 0;
  changed(*f);
}

void wdialogputoption1(std::int32_t field, std::int32_t selection) {
  field_state_type* f = yyfield_for("WDialogPutOption", field, {field_menu});
  if (f == nullptr) return;
  if (selection < 0 || selection > static_cast<std::int32_t>(f->options.size())) {
    yyerror(error_bad_argument, "WDialogPutOption");
    return;
  }
  f->selection = selection;
  changed(*f);
}

void wdialoggetmenu1(std::int32_t field, std::int32_t& selection) {
  std::string ignored;
  wdialoggetmenu1(field, selection, ignored);
}

void wdialoggetmenu1(std::int32_t field, std::int32_t& selection, std::string& text) {
  field_state_type* f = yyfield_for("WDialogGetMenu", field, {field_menu});
  if (f == nullptr) return;
  selection = f->selection;
  text = selection >= 1 ? f->options[static_cast<std::size_t>(selection - 1)] : "";
}

void wdialogclearfield(std::int32_t field) {
  field_state_type* f = yyfield_for("WDialogClearField", field, {});
  if (f == nullptr) return;
  switch (f->resource.kind) {
    case field_menu:
      f->options.clear();
      f->selection = 0;
      break;
    case field_check:
      f->checked = 0;
      break;
    case field_progress:
    case field_trackbar:
      f->value = 0;
      break;
    case field_grid:
      for (auto& row : f->grid.cells) std::fill(row.begin(), row.end(), "");
      break;
    default:
      f->text.clear();
  }
  changed(*f);
}

void wdialogfieldstate(std::int32_t field, std::int32_t state) {
  if (state < field_disabled || state > field_read_only) {
    yyerror(error_bad_argument, "WDialogFieldState");
    return;
  }
  field_state_type* f = yyfield_for("WDialogFieldState", field, {});
  if (f == nullptr) return;
  f->state = state;
  changed(*f);
}

void wdialograngeinteger(std::int32_t field, std::int32_t minimum, std::int32_t maximum) {
  field_state_type* f = yyfield_for("WDialogRangeInteger", field, {field_integer});
  if (f != nullptr) f->resource.range = field_range_type{double(minimum), double(maximum)};
}

void wdialograngereal(std::int32_t field, float minimum, float maximum) {
  field_state_type* f = yyfield_for("WDialogRangeReal", field, {field_real});
  if (f != nullptr) f->resource.range = field_range_type{minimum, maximum};
}

void wdialogsettab(std::int32_t field, std::int32_t dialog) {
  field_state_type* f = yyfield_for("WDialogSetTab", field, {field_tab});
  if (f == nullptr) return;
  const bool known = std::any_of(f->pages.begin(), f->pages.end(), [&](const tab_page_type& p) { return p.dialog == dialog; });
  if (!known) {
    yyerror(error_bad_argument, "WDialogSetTab");
    return;
  }
  f->page = dialog;
  changed(*f);
}

void wdialoggettab(std::int32_t field, std::int32_t& dialog) {
  field_state_type* f = yyfield_for("WDialogGetTab", field, {field_tab});
  if (f != nullptr) dialog = f->page;
}

std::int32_t winfodialogfield(std::int32_t field, std::int32_t item) {
  field_state_type* f = yyfield_for("WInfoDialogField", field, {});
  if (f == nullptr) return 0;
  if (item == 6) return f->state;
  if (item == 1) return f->resource.kind;
  return 0;
}
