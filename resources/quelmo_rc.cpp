#include "resources/quelmo_rc.h"

void register_quelmo_rc() {
  for (menu_type& menu : quelmo_rc_menus()) register_menu(std::move(menu));
  for (toolbar_type& toolbar : quelmo_rc_toolbars()) register_toolbar(std::move(toolbar));
  for (const prompt_type& prompt : quelmo_rc_prompts()) register_prompt(prompt.item, prompt.text);
}
