// The program's resource catalogue (unit quelmo_rc): its menus, toolbars,
// status prompts, toolbar icons, dialogs, tab captions and option lists, held
// as compiled tables and handed to the toolkit's registry at start-up.
#pragma once

#include <vector>

#include "toolkit/core/resources.h"

// Registers every table below with the toolkit. Called once before the root
// window opens; calling it again restores the tables unchanged.
void register_quelmo_rc();

// The tables themselves, one function per kind.
std::vector<menu_type> quelmo_rc_menus();          // 30001, 32124, 32125
std::vector<toolbar_type> quelmo_rc_toolbars();    // 30101, 30102, 30103

struct prompt_type {
  int item = 0;
  const char* text = "";
};
std::vector<prompt_type> quelmo_rc_prompts();
