// The resource catalogue: menus, toolbars, status prompts, dialogs with their
// fields, tab captions, option lists and toolbar icons, looked up by number.
//
// The toolkit knows only these types and the registry. The program hands its
// own tables over once at start-up (register_* below); from then on wmenu,
// wmenutoolbar and wdialogload find what they need by id.
#pragma once

#include <optional>
#include <string>
#include <vector>

// What a row of a menu is.
enum class menu_item_kind { entry, popup, separator };

// One row of a menu, in the order shown. `level` is the nesting depth: 0 is
// the menu's own row (the menu bar, or the items of a context menu), 1 the
// items of a popup opened from level 0, 2 those of a popup inside that one.
// A popup's items follow it directly, one level deeper.
struct menu_item_type {
  int id = 0;                // 0 for a separator
  menu_item_kind kind = menu_item_kind::entry;
  int level = 0;
  std::string label;
  int mnemonic = -1;         // place of the mnemonic letter in the label, from 0; -1 none
};

struct menu_type {
  int id = 0;
  std::vector<menu_item_type> items;
};

// A toolbar: button ids in order, 0 for a gap. Buttons are 16 x 16 pixels and
// deliver msg_menu_select with their id.
struct toolbar_type {
  int id = 0;
  std::vector<int> buttons;
};

// A 16 x 16 toolbar icon as sixteen rows of sixteen characters; each character
// names a colour of `colours` ('.' is transparent and need not be listed).
struct icon_colour_type {
  char key = ' ';
  unsigned rgb = 0;          // red + 256 * green + 65536 * blue
};

struct icon_type {
  int id = 0;                // the item id of the button that shows it
  std::vector<icon_colour_type> colours;
  std::vector<std::string> rows;
};

constexpr int icon_size = 16;

// Field kinds, numbered as the dialog routines know them.
enum field_kind : int {
  field_label = 1,
  field_picture = 2,
  field_group = 3,
  field_string = 4,
  field_integer = 5,
  field_real = 6,
  field_button = 8,
  field_check = 9,
  field_radio = 10,
  field_menu = 11,
  field_tab = 13,
  field_progress = 14,
  field_grid = 15,
  field_trackbar = 16,
};

// The range a number field accepts from the user. A missing upper limit is
// +infinity.
struct field_range_type {
  double minimum = 0.0;
  double maximum = 0.0;
};

// One field of a dialog. Position and size are in dialog units from the top
// left of the dialog.
struct field_type {
  int id = 0;
  int kind = field_label;
  int x = 0, y = 0, width = 0, height = 0;
  std::string text;                        // caption or initial value
  std::optional<field_range_type> range;   // number fields only
  std::string format;                      // real fields with a format of their own, e.g. "(F8.4)"
};

struct dialog_type {
  int id = 0;
  int width = 0, height = 0;
  std::string caption;                     // blank: no caption
  std::vector<field_type> fields;
};

// The pages of a tab holder field: caption and page dialog, in order.
struct tab_page_type {
  std::string caption;
  int dialog = 0;
};

struct tab_captions_type {
  int dialog = 0;
  int field = 0;
  std::vector<tab_page_type> pages;
};

// The fixed choices of an option menu field.
struct option_list_type {
  int dialog = 0;
  int field = 0;
  std::vector<std::string> options;
};

// The columns of a grid field are the fields of a row dialog, in order: each
// gives a column its kind, width, heading (the field's text) and format.
struct grid_columns_type {
  int dialog = 0;
  int field = 0;
  int row_dialog = 0;
};

// Registration, done once at start-up by the program. Registering an id that
// is already there replaces the earlier entry.
void register_menu(menu_type menu);
void register_toolbar(toolbar_type toolbar);
void register_prompt(int item, std::string text);
void register_icon(icon_type icon);
void register_dialog(dialog_type dialog);
void register_tab_captions(tab_captions_type tabs);
void register_option_list(option_list_type list);
void register_grid_columns(grid_columns_type columns);

// Empties the catalogue (tests start from a known state with it).
void clear_resources();

// Look-ups by number; nullptr when the catalogue holds no such entry.
const menu_type* find_menu(int id);
const toolbar_type* find_toolbar(int id);
const std::string* find_prompt(int item);
const icon_type* find_icon(int item);
const dialog_type* find_dialog(int id);
const tab_captions_type* find_tab_captions(int dialog, int field);
const option_list_type* find_option_list(int dialog, int field);
const grid_columns_type* find_grid_columns(int dialog, int field);

// A field of a dialog by number; field numbers are unique only inside a dialog.
const field_type* find_field(const dialog_type& dialog, int field);

// The dialog wdialogload asks for. A number the catalogue does not hold raises
// the toolkit error 1003 for "WDialogLoad" and gives nullptr, so the caller
// leaves no dialog current.
const dialog_type* yyload_dialog_resource(int id);
