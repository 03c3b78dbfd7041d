// Menus of the catalogue: the main menu bar, the one-entry menu 32124 and the
// file selector's popup menu. None of them has keyboard accelerators.
#include "resources/quelmo_rc.h"

namespace {

menu_item_type popup(int id, int level, const char* label, int mnemonic = -1) {
  return {id, menu_item_kind::popup, level, label, mnemonic};
}

menu_item_type entry(int id, int level, const char* label, int mnemonic = -1) {
  return {id, menu_item_kind::entry, level, label, mnemonic};
}

menu_item_type separator(int level) { return {0, menu_item_kind::separator, level, "", -1}; }

menu_type main_menu() {
  return {30001,
          {
              popup(40001, 0, "File", 0),
              entry(40025, 1, "New", 0),
              entry(40026, 1, "Open", 0),
              separator(1),
              entry(40027, 1, "Save", 0),
              separator(1),
              entry(40028, 1, "Print File", 6),
              separator(1),
              entry(40007, 1, "Exit", 1),
              popup(40011, 0, "Edit", 0),
              entry(40010, 1, "Title", 0),
              entry(40017, 1, "Data Files"),
              separator(1),
              entry(40013, 1, "Cell Parameters", 0),
              entry(40014, 1, "Space Group", 0),
              separator(1),
              entry(40009, 1, "Atoms", 0),
              entry(40019, 1, "List Informations", 0),
              separator(1),
              entry(40015, 1, "Fourier Procedure", 0),
              entry(40012, 1, "Reflections", 0),
              separator(1),
              entry(40020, 1, "Scan Peaks", 5),
              popup(40021, 0, "Calculations", 0),
              entry(40005, 1, "Sintrel Program"),
              separator(1),
              entry(40008, 1, "Output Fourier"),
              entry(40022, 0, "Plot", 0),
              popup(40023, 0, "Help", 0),
              entry(40029, 1, "Help", 1),
              entry(40016, 1, "About...", 0),
              entry(40024, 0, "Quit", 0),
          }};
}

menu_type dash_menu() { return {32124, {entry(32001, 0, "-")}}; }

// The context menu of the file selector's list.
menu_type file_selector_popup() {
  return {32125,
          {
              entry(32101, 0, "Select"),
              entry(32102, 0, "Rename"),
              entry(32103, 0, "Delete"),
              entry(32104, 0, "Properties"),
              separator(0),
              entry(32105, 0, "New directory"),
              entry(32106, 0, "Show hidden"),
              popup(32107, 0, "Order"),
              entry(32108, 1, "Name"),
              entry(32109, 1, "Date"),
              entry(32110, 1, "Size"),
              entry(32111, 1, "Extension"),
              separator(1),
              entry(32112, 1, "Reverse"),
              entry(32113, 0, "Refresh"),
          }};
}

}  // namespace

std::vector<menu_type> quelmo_rc_menus() { return {main_menu(), dash_menu(), file_selector_popup()}; }
