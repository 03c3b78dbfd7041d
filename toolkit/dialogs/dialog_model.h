// The loaded dialogs: each field's value, list, state and range, which page a
// tab holder shows, the grids' cells, and which dialog is current. The
// routines of wdialog.h, wgrid.h and dialog_user.h work on this state; a face
// reads it to show a dialog.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/core/resources.h"

// Toolkit errors of the dialog routines.
constexpr int error_no_dialog = 1005;     // no current dialog
constexpr int error_bad_field = 1004;     // no such field in the current dialog
constexpr int error_field_kind = 1006;    // the field is not of a kind the routine serves
constexpr int error_undefined = 1010;     // a number field is empty
constexpr int error_modeless = 1014;      // the dialog cannot be shown modal
constexpr int error_bad_argument = 1015;

// Field states of wdialogfieldstate and wgridstatecell.
constexpr int field_disabled = 0;
constexpr int field_enabled = 1;
constexpr int field_read_only = 2;

struct grid_state_type {
  std::vector<field_type> columns;              // from the row dialog of the catalogue
  std::vector<std::string> row_labels;          // one per row
  std::vector<std::vector<std::string>> cells;  // [row][column], the texts shown
  std::vector<std::vector<int>> cell_states;    // [row][column]
};

struct field_state_type {
  field_type resource;             // kind, place, initial text, range and format
  std::string text;                // caption, or the text of a string or number field
  int checked = 0;                 // check box and radio button
  int state = field_enabled;
  std::vector<std::string> options;  // option menu: its rows
  int selection = 0;               // option menu: 1-based row, 0 none
  int value = 0;                   // progress bar, track bar
  std::vector<tab_page_type> pages;  // tab holder: its pages
  int page = 0;                    // tab holder: dialog id of the page shown
  grid_state_type grid;
};

struct loaded_dialog_type {
  int id = 0;
  int width = 0, height = 0;       // dialog units
  std::string caption;
  std::vector<field_state_type> fields;  // in the catalogue's order
  int parent = 0;                  // for a page: the dialog of its tab holder
  bool shown = false;
  int mode = 2;
  int x = -1, y = -1;              // position asked for in wdialogshow, -1 the default
  int focus = 0;                   // the field the user is in
};

// Creates the dialog (and the pages of its tab holders) from the catalogue.
// Nullptr, with the catalogue's error, for an unknown id. Loading a dialog
// that is loaded already starts it afresh.
loaded_dialog_type* yyload_dialog(int id);
void yyunload_dialog(int id);

loaded_dialog_type* yyfind_dialog(int id);
loaded_dialog_type* yycurrent_dialog();
void yyset_current_dialog(int id);  // 0: none

// A field of a dialog, or nullptr.
field_state_type* yyfind_field(loaded_dialog_type& dialog, int field);

// The field of the current dialog for a routine: error 1005 without a current
// dialog, 1004 for a field it lacks, 1006 when the field's kind is not one of
// `kinds` (an empty list takes any kind). Nullptr after an error.
field_state_type* yyfield_for(const char* routine, int field, std::initializer_list<int> kinds);

// The radio buttons of the group that holds `field`: the run of radio fields,
// in the catalogue's order, that the field belongs to.
std::vector<field_state_type*> yyradio_group(loaded_dialog_type& dialog, int field);

// Whether a dialog is on the screen: shown, and for a page the page its tab
// holder shows in a shown dialog.
bool yydialog_visible(int id);

// Every dialog loaded, in id order (for a face that shows them all again).
std::vector<int> yyloaded_dialogs();

// Unloads everything (winitialise, tests).
void yyreset_dialogs();
