// The input data dialog 116, its eight pages and the row dialog 119 of the
// atoms grid. The pages have no caption of their own: the tab holder 1002
// names them.
#include "resources/quelmo_rc.h"
#include "resources/quelmo_rc_fields.h"

using namespace quelmo_rc_fields;

namespace {

dialog_type input_data() {
  return {116, 437, 268, "Input Data",
          {
              field(1001, field_group, 8, 8, 420, 32, "Title"),
              field(1147, field_string, 14, 20, 408, 14),
              field(1, field_button, 160, 248, 40, 14, "OK"),
              field(2, field_button, 240, 248, 40, 14, "Cancel"),
              field(1002, field_tab, 8, 52, 420, 184),
          }};
}

dialog_type data_files_page() {
  return {102, 410, 150, "",
          {
              field(1082, field_button, 355, 52, 45, 14, "Change..."),
              field(1268, field_label, 14, 74, 56, 10, "Output file:"),
              field(1049, field_string, 78, 73, 260, 12),
              field(1063, field_check, 220, 28, 56, 14, "Binary file"),
              field(1269, field_label, 14, 28, 40, 10, "Codefile:"),
              field(1028, field_string, 78, 28, 100, 12),
              field(1270, field_label, 14, 53, 64, 10, "Work Directory:"),
              field(1078, field_string, 78, 53, 260, 12),
          }};
}

dialog_type cell_page() {
  return {103, 410, 150, "",
          {
              field(1051, field_label, 20, 29, 10, 10, "a:"),
              field(1052, field_label, 20, 57, 10, 10, "b:"),
              field(1053, field_label, 20, 85, 10, 10, "c:"),
              formatted(ranged(field(1008, field_real, 30, 27, 40, 14, "0.0000"), 0, 200), "(F8.4)"),
              formatted(ranged(field(1009, field_real, 30, 55, 40, 14, "0.0000"), 0, 200), "(F8.4)"),
              formatted(ranged(field(1010, field_real, 30, 83, 40, 14, "0.0000"), 0, 200), "(F8.4)"),
              formatted(ranged(field(1011, field_real, 234, 27, 40, 14, "0.000"), 0, 150), "(F8.3)"),
              formatted(ranged(field(1012, field_real, 234, 55, 40, 14, "0.000"), 0, 150), "(F8.3)"),
              formatted(ranged(field(1013, field_real, 234, 83, 40, 14, "0.000"), 0, 150), "(F8.3)"),
              field(1054, field_label, 200, 29, 26, 10, "alpha:"),
              field(1055, field_label, 200, 57, 22, 10, "beta:"),
              field(1056, field_label, 200, 85, 34, 10, "gamma:"),
          }};
}

dialog_type space_group_page() {
  return {104, 410, 150, "",
          {
              ranged(field(1020, field_integer, 166, 25, 40, 14, "0"), 0, 230),
              field(1017, field_menu, 166, 51, 132, 104),
              field(1018, field_menu, 166, 77, 132, 84),
              field(1021, field_radio, 22, 25, 144, 14, "Number on International Tables:"),
              field(1022, field_radio, 22, 52, 124, 14, "Hermann-Mauguin Symbol:"),
              field(1023, field_radio, 22, 79, 78, 14, "Hall Symbol:"),
          }};
}

dialog_type output_page() {
  return {105, 410, 150, "",
          {
              field(1120, field_label, 152, 60, 48, 10, "d min (A) :"),
              field(1121, field_label, 280, 60, 48, 10, "d max (A):"),
              field(1119, field_real, 202, 60, 40, 14, "0.0000"),
              field(1122, field_real, 329, 60, 40, 14, "0.0000"),
              field(1064, field_check, 10, 8, 112, 14, "List atoms on Unit cell"),
              field(1118, field_check, 10, 40, 120, 14, "Geometric Calculations"),
              field(1123, field_label, 22, 60, 118, 10, "For interatomic distances  :"),
              field(1124, field_label, 22, 85, 118, 10, "For interatomic angles  :"),
              field(1125, field_label, 153, 85, 48, 10, "d max (A) :"),
              field(1126, field_real, 203, 85, 40, 14, "0.0000"),
          }};
}

dialog_type fourier_page() {
  return {106, 410, 150, "",
          {
              field(1065, field_group, 22, 16, 358, 40, "Fourier Synthesis"),
              field(1116, field_label, 200, 34, 24, 10, "F000:"),
              field(1117, field_label, 300, 34, 26, 10, "Scale:"),
              field(1014, field_real, 228, 32, 40, 14, "0.0000"),
              field(1015, field_real, 328, 32, 40, 14, "1.0000"),
              field(1060, field_label, 140, 110, 14, 10, "Nx:"),
              field(1061, field_label, 220, 110, 14, 10, "Ny:"),
              field(1062, field_label, 300, 110, 14, 10, "Nz:"),
              field(1019, field_radio, 28, 84, 54, 14, "Automatic"),
              field(1024, field_radio, 28, 108, 70, 14, "User defined"),
              ranged(field(1025, field_integer, 156, 108, 38, 14, "0"), 0, 1000),
              ranged(field(1026, field_integer, 236, 108, 38, 14, "0"), 0, 1000),
              ranged(field(1027, field_integer, 316, 108, 38, 14, "0"), 0, 1000),
              field(1273, field_group, 22, 68, 356, 64, "Grid Dimensions"),
              field(1016, field_menu, 28, 32, 150, 90),
          }};
}

dialog_type peaks_page() {
  return {109, 410, 150, "",
          {
              field(1031, field_check, 22, 24, 112, 14, "Active search procedure"),
              field(1030, field_integer, 296, 25, 44, 14, "0"),
              field(1267, field_label, 192, 27, 100, 10, "Numer of peaks to found:"),
              field(1268, field_label, 23, 58, 48, 10, "Peaks File:"),
              field(1123, field_string, 73, 56, 267, 14),
          }};
}

dialog_type reflections_page() {
  return {115, 410, 150, "",
          {
              field(1138, field_label, 20, 48, 10, 10, "h"),
              field(1139, field_label, 20, 67, 10, 10, "k"),
              field(1124, field_label, 20, 87, 10, 10, "l"),
              field(1125, field_label, 348, 48, 10, 10, "A"),
              field(1126, field_label, 348, 87, 10, 10, "B"),
              field(1127, field_label, 98, 67, 12, 10, "Fo"),
              field(1128, field_label, 158, 67, 12, 10, "Fc"),
              field(1129, field_label, 278, 67, 12, 10, "Ph"),
              ranged(field(1130, field_integer, 32, 46, 28, 14, "1"), 0, 10),
              ranged(field(1131, field_integer, 292, 65, 28, 14, "7"), 0, 10),
              ranged(field(1132, field_integer, 32, 65, 28, 14, "2"), 0, 10),
              ranged(field(1133, field_integer, 32, 85, 28, 14, "3"), 0, 10),
              ranged(field(1136, field_integer, 360, 46, 28, 14, "0"), 0, 10),
              ranged(field(1137, field_integer, 360, 85, 28, 14, "0"), 0, 10),
              ranged(field(1134, field_integer, 110, 65, 28, 14, "4"), 0, 10),
              ranged(field(1135, field_integer, 172, 65, 28, 14, "5"), 0, 10),
              field(1146, field_label, 218, 67, 18, 10, "SFo"),
              ranged(field(1140, field_integer, 238, 65, 30, 14, "6"), 0, 10),
              field(1269, field_label, 8, 10, 56, 10, "Reflection file:"),
              field(1050, field_string, 66, 9, 278, 12),
              field(1271, field_button, 360, 8, 40, 14, "Browse"),
              field(1148, field_group, 10, 30, 390, 75, "Column Sort"),
              field(1273, field_group, 10, 112, 392, 32, "Limits"),
              field(1079, field_label, 20, 126, 30, 10, "S min:"),
              field(1080, field_label, 140, 126, 30, 10, "S max:"),
              field(1081, field_label, 280, 126, 30, 10, "Sigma:"),
              field(1077, field_real, 50, 125, 40, 14, "0.0000"),
              field(1149, field_real, 170, 125, 40, 14, "0.0000"),
              field(1150, field_real, 310, 125, 40, 14, "0.0000"),
          }};
}

dialog_type atoms_page() {
  return {118, 410, 150, "",
          {
              field(1003, field_radio, 6, 8, 80, 14, "Not using atoms"),
              field(1004, field_radio, 6, 28, 80, 14, "Atoms in a file"),
              field(1005, field_radio, 6, 48, 80, 14, "Atoms list"),
              field(1006, field_string, 100, 28, 242, 14),
              field(1271, field_button, 354, 28, 40, 14, "Browse"),
              field(1267, field_label, 100, 50, 76, 10, "Number of Atoms:"),
              ranged(field(1268, field_integer, 176, 48, 40, 14, "0"), 0, 800),
              field(1007, field_grid, 8, 68, 390, 74),
          }};
}

// One row of the atoms grid 1007: its columns and their headings. The
// displacement column B has a format of its own; the coordinates and the
// occupancy share one.
dialog_type atoms_grid_row() {
  return {119, 1000, 16, "",
          {
              field(1141, field_string, 0, 0, 40, 14, "Label"),
              formatted(field(1142, field_real, 0, 0, 50, 14, "x/a"), "(f8.4)"),
              formatted(field(1143, field_real, 0, 0, 50, 14, "y/b"), "(f8.4)"),
              formatted(field(1144, field_real, 0, 0, 50, 14, "z/c"), "(f8.4)"),
              formatted(field(1145, field_real, 0, 0, 50, 14, "Occ"), "(f8.4)"),
              formatted(field(1046, field_real, 0, 0, 50, 14, "B"), "(f8.3)"),
          }};
}

}  // namespace

std::vector<dialog_type> quelmo_rc_data_dialogs() {
  return {input_data(),     data_files_page(),   cell_page(),  space_group_page(),
          output_page(),    fourier_page(),      peaks_page(), reflections_page(),
          atoms_page(),     atoms_grid_row()};
}

std::vector<tab_captions_type> quelmo_rc_tab_captions() {
  return {{116,
           1002,
           {
               {"Data Files", 102},
               {"Cell Parameters", 103},
               {"Space Group", 104},
               {"Fourier Calculations", 106},
               {"Atoms List", 118},
               {"Reflections", 115},
               {"Search Peaks", 109},
               {"Output Information", 105},
           }}};
}

std::vector<option_list_type> quelmo_rc_option_lists() {
  return {{106,
           1016,
           {"Fobs Synthesis", "Fcal Synthesis", "(Fo-Fc) Difference", "Fobs Patterson",
            "Fcal Patterson", "A,B User defined"}}};
}

// The atoms grid 1007 of page 118 takes its columns from the row dialog 119.
std::vector<grid_columns_type> quelmo_rc_grid_columns() { return {{118, 1007, 119}}; }
