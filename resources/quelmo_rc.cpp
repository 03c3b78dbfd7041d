#include "resources/quelmo_rc.h"

#include <utility>

void register_quelmo_rc() {
  for (menu_type& menu : quelmo_rc_menus()) register_menu(std::move(menu));
  for (toolbar_type& toolbar : quelmo_rc_toolbars()) register_toolbar(std::move(toolbar));
  for (const prompt_type& prompt : quelmo_rc_prompts()) register_prompt(prompt.item, prompt.text);
  for (icon_type& icon : quelmo_rc_icons()) register_icon(std::move(icon));
  for (auto* dialogs : {quelmo_rc_data_dialogs, quelmo_rc_plot_dialogs, quelmo_rc_shell_dialogs}) {
    for (dialog_type& dialog : dialogs()) register_dialog(std::move(dialog));
  }
  for (tab_captions_type& tabs : quelmo_rc_tab_captions()) register_tab_captions(std::move(tabs));
  for (option_list_type& list : quelmo_rc_option_lists()) register_option_list(std::move(list));
  for (const grid_columns_type& columns : quelmo_rc_grid_columns()) register_grid_columns(columns);
}
