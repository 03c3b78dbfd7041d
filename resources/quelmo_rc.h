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
std::vector<icon_type> quelmo_rc_icons();          // one per toolbar button
std::vector<dialog_type> quelmo_rc_data_dialogs(); // input data dialog 116, its pages, grid row 119
std::vector<dialog_type> quelmo_rc_plot_dialogs(); // the dialogs of the plot window
std::vector<dialog_type> quelmo_rc_shell_dialogs();  // About, loading, running, the toolkit's own
std::vector<tab_captions_type> quelmo_rc_tab_captions();
std::vector<option_list_type> quelmo_rc_option_lists();
std::vector<grid_columns_type> quelmo_rc_grid_columns();

struct prompt_type {
  int item = 0;
  const char* text = "";
};
std::vector<prompt_type> quelmo_rc_prompts();
