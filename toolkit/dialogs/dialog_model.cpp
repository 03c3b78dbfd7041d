#include "toolkit/dialogs/dialog_model.h"

#include <algorithm>
#include <map>

#include "toolkit/core/werror.h"
#include "toolkit/messages/backend.h"

namespace {

std::map<int, loaded_dialog_type> dialogs;
int current = 0;

grid_state_type grid_of(int dialog, int field) {
  grid_state_type grid;
  const grid_columns_type* columns = find_grid_columns(dialog, field);
  const dialog_type* row = columns ? find_dialog(columns->row_dialog) : nullptr;
  if (row != nullptr) grid.columns = row->fields;
  return grid;
}

field_state_type field_of(int dialog, const field_type& f) {
  field_state_type s;
  s.resource = f;
  s.text = f.text;
  if (f.kind == field_menu) {
    if (const option_list_type* list = find_option_list(dialog, f.id)) s.options = list->options;
  }
  if (f.kind == field_tab) {
    if (const tab_captions_type* tabs = find_tab_captions(dialog, f.id)) s.pages = tabs->pages;
    if (!s.pages.empty()) s.page = s.pages.front().dialog;
  }
  if (f.kind == field_grid) s.grid = grid_of(dialog, f.id);
  return s;
}

loaded_dialog_type* create(const dialog_type& resource, int parent) {
  loaded_dialog_type d;
  d.id = resource.id;
  d.width = resource.width;
  d.height = resource.height;
  d.caption = resource.caption;
  d.parent = parent;
  for (const field_type& f : resource.fields) d.fields.push_back(field_of(resource.id, f));
  // The first radio button of each group starts set, as a group always has one.
  for (std::size_t i = 0; i < d.fields.size(); ++i) {
    const bool starts_group = d.fields[i].resource.kind == field_radio &&
                              (i == 0 || d.fields[i - 1].resource.kind != field_radio);
    if (starts_group) d.fields[i].checked = 1;
  }
  dialogs[d.id] = d;
  return &dialogs[d.id];
}

}  // namespace

loaded_dialog_type* yyload_dialog(int id) {
  const dialog_type* resource = yyload_dialog_resource(id);
  if (resource == nullptr) return nullptr;
  yyunload_dialog(id);
  loaded_dialog_type* d = create(*resource, 0);
  for (const field_state_type& f : d->fields) {
    for (const tab_page_type& page : f.pages) {
      if (const dialog_type* p = find_dialog(page.dialog)) create(*p, id);
    }
  }
  return yyfind_dialog(id);
}

void yyunload_dialog(int id) {
  if (!dialogs.contains(id)) return;
  // The face lets go of the dialog while it can still read it.
  current_backend().unload_dialog(id);
  dialogs.erase(id);
  if (current == id) current = 0;
  std::vector<int> pages;
  for (const auto& [page, d] : dialogs) {
    if (d.parent == id) pages.push_back(page);
  }
  for (int page : pages) yyunload_dialog(page);
}

loaded_dialog_type* yyfind_dialog(int id) {
  const auto it = dialogs.find(id);
  return it == dialogs.end() ? nullptr : &it->second;
}

loaded_dialog_type* yycurrent_dialog() { return yyfind_dialog(current); }

void yyset_current_dialog(int id) { current = id; }

field_state_type* yyfind_field(loaded_dialog_type& dialog, int field) {
  for (field_state_type& f : dialog.fields) {
    if (f.resource.id == field) return &f;
  }
  return nullptr;
}

field_state_type* yyfield_for(const char* routine, int field, std::initializer_list<int> kinds) {
  loaded_dialog_type* d = yycurrent_dialog();
  if (d == nullptr) {
    yyerror(error_no_dialog, routine);
    return nullptr;
  }
  field_state_type* f = yyfind_field(*d, field);
  if (f == nullptr) {
    yyerror(error_bad_field, routine);
    return nullptr;
  }
  if (kinds.size() > 0 && std::find(kinds.begin(), kinds.end(), f->resource.kind) == kinds.end()) {
    yyerror(error_field_kind, routine);
    return nullptr;
  }
  return f;
}

std::vector<field_state_type*> yyradio_group(loaded_dialog_type& dialog, int field) {
  std::vector<field_state_type*> run;
  for (field_state_type& f : dialog.fields) {
    if (f.resource.kind != field_radio) {
      const bool found = std::any_of(run.begin(), run.end(), [&](auto* r) { return r->resource.id == field; });
      if (found) return run;
      run.clear();
      continue;
    }
    run.push_back(&f);
  }
  const bool found = std::any_of(run.begin(), run.end(), [&](auto* r) { return r->resource.id == field; });
  return found ? run : std::vector<field_state_type*>{};
}

bool yydialog_visible(int id) {
  const loaded_dialog_type* d = yyfind_dialog(id);
  if (d == nullptr) return false;
  if (d->parent == 0) return d->shown;
  loaded_dialog_type* parent = yyfind_dialog(d->parent);
  if (parent == nullptr || !yydialog_visible(parent->id)) return false;
  return std::any_of(parent->fields.begin(), parent->fields.end(),
                     [&](const field_state_type& f) { return f.resource.kind == field_tab && f.page == id; });
}

std::vector<int> yyloaded_dialogs() {
  std::vector<int> ids;
  for (const auto& entry : dialogs) ids.push_back(entry.first);
  return ids;
}

void yyreset_dialogs() {
  dialogs.clear();
  current = 0;
}
