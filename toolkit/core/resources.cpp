#include "toolkit/core/resources.h"

#include <map>
#include <utility>

#include "toolkit/core/werror.h"

namespace {

// Error number of a bad window or a bad item.
constexpr int error_bad_item = 1003;

using dialog_field = std::pair<int, int>;

struct catalogue_type {
  std::map<int, menu_type> menus;
  std::map<int, toolbar_type> toolbars;
  std::map<int, std::string> prompts;
  std::map<int, icon_type> icons;
  std::map<int, dialog_type> dialogs;
  std::map<dialog_field, tab_captions_type> tabs;
  std::map<dialog_field, option_list_type> option_lists;
  std::map<dialog_field, grid_columns_type> grid_columns;
};

catalogue_type& catalogue() {
  static catalogue_type c;
  return c;
}

template <typename Key, typename Value>
const Value* lookup(const std::map<Key, Value>& table, const Key& key) {
  const auto it = table.find(key);
  return it == table.end() ? nullptr : &it->second;
}

}  // namespace

void register_menu(menu_type menu) { catalogue().menus[menu.id] = std::move(menu); }
void register_toolbar(toolbar_type bar) { catalogue().toolbars[bar.id] = std::move(bar); }
void register_prompt(int item, std::string text) { catalogue().prompts[item] = std::move(text); }
void register_icon(icon_type icon) { catalogue().icons[icon.id] = std::move(icon); }
void register_dialog(dialog_type dialog) { catalogue().dialogs[dialog.id] = std::move(dialog); }

void register_tab_captions(tab_captions_type tabs) {
  catalogue().tabs[{tabs.dialog, tabs.field}] = std::move(tabs);
}

void register_option_list(option_list_type list) {
  catalogue().option_lists[{list.dialog, list.field}] = std::move(list);
}

void register_grid_columns(grid_columns_type columns) {
  catalogue().grid_columns[{columns.dialog, columns.field}] = columns;
}

void clear_resources() { catalogue() = catalogue_type{}; }

const menu_type* find_menu(int id) { return lookup(catalogue().menus, id); }
const toolbar_type* find_toolbar(int id) { return lookup(catalogue().toolbars, id); }
const std::string* find_prompt(int item) { return lookup(catalogue().prompts, item); }
const icon_type* find_icon(int item) { return lookup(catalogue().icons, item); }
const dialog_type* find_dialog(int id) { return lookup(catalogue().dialogs, id); }

const tab_captions_type* find_tab_captions(int dialog, int field) {
  return lookup(catalogue().tabs, dialog_field{dialog, field});
}

const option_list_type* find_option_list(int dialog, int field) {
  return lookup(catalogue().option_lists, dialog_field{dialog, field});
}

const grid_columns_type* find_grid_columns(int dialog, int field) {
  return lookup(catalogue().grid_columns, dialog_field{dialog, field});
}

const field_type* find_field(const dialog_type& dialog, int field) {
  for (const field_type& f : dialog.fields) {
    if (f.id == field) return &f;
  }
  return nullptr;
}

const dialog_type* yyload_dialog_resource(int id) {
  const dialog_type* dialog = find_dialog(id);
  if (dialog == nullptr) yyerror(error_bad_item, "WDialogLoad");
  return dialog;
}
