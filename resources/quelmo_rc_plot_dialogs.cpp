// The dialogs of the plot window: limits, levels, plane, summing, level
// colours and line styles, and the isosurface level and limits.
#include "resources/quelmo_rc.h"
#include "resources/quelmo_rc_fields.h"

using namespace quelmo_rc_fields;

namespace {

dialog_type plane_by_three_points() {
  return {101, 238, 113, "Plane defined by 3 points",
          {
              field(1092, field_label, 14, 49, 12, 8, "P1:"),
              field(1093, field_label, 14, 67, 12, 8, "P2:"),
              field(1094, field_label, 14, 85, 12, 8, "P3:"),
              field(1, field_button, 188, 66, 40, 14, "OK"),
              field(2, field_button, 188, 86, 40, 14, "Cancel"),
              field(1091, field_group, 8, 26, 170, 76, "Fractional Coordinates"),
              field(1107, field_label, 44, 34, 14, 8, "x/a"),
              field(1108, field_label, 92, 34, 14, 8, "y/b"),
              field(1109, field_label, 142, 34, 14, 8, "z/c"),
              field(1029, field_label, 8, 11, 62, 10, "Visualization radius:"),
              formatted(ranged(field(1059, field_real, 72, 8, 34, 14, "5.00"), 0, no_limit), "(f8.2)"),
              field(1083, field_label, 109, 11, 40, 10, "Angstroms"),
              field(1095, field_string, 30, 46, 142, 14),
              field(1096, field_string, 30, 64, 142, 14),
              field(1097, field_string, 30, 83, 142, 14),
          }};
}

dialog_type adding_layers() {
  return {108, 255, 80, "Adding Layers",
          {
              field(1112, field_label, 26, 20, 20, 8, "From:"),
              field(1114, field_label, 100, 20, 12, 8, "To:"),
              field(1115, field_real, 46, 16, 40, 14, "0.0000"),
              field(1173, field_real, 112, 16, 40, 14, "0.0000"),
              field(1174, field_group, 20, 4, 140, 36, "Active View Direction"),
              field(1, field_button, 180, 8, 40, 14, "OK"),
              field(2, field_button, 180, 28, 40, 14, "Cancel"),
              field(1098, field_radio, 26, 52, 40, 14, "Sum All"),
              field(1099, field_radio, 80, 52, 60, 14, "Sum Positive"),
              field(1100, field_radio, 156, 52, 62, 14, "Sum Negative"),
          }};
}

dialog_type fourier_limits() {
  return {110, 204, 96, "Limits of Fourier Map",
          {
              field(1068, field_label, 62, 16, 6, 8, "X"),
              field(1069, field_label, 112, 16, 6, 8, "Y"),
              field(1070, field_label, 162, 16, 6, 8, "Z"),
              field(1066, field_label, 10, 32, 34, 8, "Minimum:"),
              field(1067, field_label, 8, 48, 36, 8, "Maximum:"),
              ranged(field(1071, field_real, 46, 28, 40, 14, "0.0000"), -10, 10),
              ranged(field(1074, field_real, 46, 44, 40, 14, "1.0000"), -10, 10),
              ranged(field(1072, field_real, 96, 28, 40, 14, "0.0000"), -10, 10),
              ranged(field(1075, field_real, 96, 44, 40, 14, "1.0000"), -10, 10),
              ranged(field(1073, field_real, 146, 28, 40, 14, "0.0000"), -10, 10),
              ranged(field(1076, field_real, 146, 44, 40, 14, "1.0000"), -10, 10),
              field(1032, field_group, 4, 12, 186, 60, "Fourier Limits"),
              field(1, field_button, 152, 76, 40, 14, "OK"),
          }};
}

// Three sets of twenty colour boxes, each set two lines of ten.
void add_colour_line(std::vector<field_type>& fields, const std::vector<int>& ids, int y) {
  for (std::size_t i = 0; i < ids.size(); ++i) {
    fields.push_back(field(ids[i], field_picture, 20 + 20 * static_cast<int>(i), y, 10, 10));
  }
}

std::vector<int> id_run(int first, int last) {
  std::vector<int> ids;
  for (int id = first; id <= last; ++id) ids.push_back(id);
  return ids;
}

dialog_type levels_colours() {
  dialog_type d{112, 292, 200, "Levels Colours",
                {
                    field(1197, field_group, 10, 4, 270, 48, "Set #1"),
                    field(1219, field_group, 10, 60, 270, 48, "Set #2"),
                    field(1220, field_group, 10, 116, 270, 48, "Set User"),
                    field(1198, field_radio, 220, 24, 52, 14, "Use Set #1"),
                    field(1221, field_radio, 220, 80, 52, 14, "Use Set #2"),
                    field(1242, field_radio, 220, 140, 56, 14, "Use Set User"),
                    field(1, field_button, 80, 176, 40, 14, "OK"),
                    field(2, field_button, 160, 176, 40, 14, "Cancel"),
                }};
  add_colour_line(d.fields, {1036, 1110, 1111, 1175, 1176, 1177, 1178, 1184, 1185, 1186}, 16);
  add_colour_line(d.fields, id_run(1187, 1196), 32);
  add_colour_line(d.fields, id_run(1199, 1208), 72);
  add_colour_line(d.fields, id_run(1209, 1218), 88);
  add_colour_line(d.fields, id_run(1222, 1231), 132);
  add_colour_line(d.fields, id_run(1232, 1241), 148);
  return d;
}

dialog_type level_density() {
  return {114, 314, 112, "Level Density",
          {
              field(1088, field_integer, 20, 20, 42, 14),
              field(1179, field_radio, 94, 20, 66, 14, "Density Values"),
              field(1180, field_radio, 170, 20, 64, 14, "Sigma Values"),
              formatted(field(1089, field_real, 54, 68, 56, 14, "0.000000"), "(f14.6)"),
              formatted(field(1090, field_real, 54, 84, 56, 14, "0.000000"), "(f14.6)"),
              formatted(field(1183, field_real, 151, 76, 50, 14, "0.000000"), "(f12.6)"),
              field(1, field_button, 216, 88, 40, 14, "OK"),
              field(2, field_button, 262, 88, 40, 14, "Cancel"),
              field(1086, field_label, 20, 72, 34, 8, "Minimum:"),
              field(1087, field_label, 20, 88, 36, 8, "Maximum:"),
              field(1084, field_group, 14, 8, 52, 32, "N\u00ba Levels"),
              field(1085, field_group, 14, 56, 194, 48, "Density / Sigma"),
              field(1181, field_group, 90, 8, 150, 32, "Levels Type"),
              field(1182, field_label, 119, 80, 32, 8, "Increment:"),
              field(1243, field_button, 216, 64, 40, 14, "Colours"),
              field(1244, field_button, 262, 64, 40, 14, "Style"),
          }};
}

dialog_type levels_type() {
  return {117, 360, 72, "Levels Type",
          {
              ranged(field(1245, field_integer, 64, 20, 30, 12, "1"), 1, 2147483647),
              ranged(field(1246, field_integer, 18, 20, 30, 12, "1"), 1, 20),
              field(1247, field_radio, 124, 20, 40, 14, "Solid"),
              field(1248, field_radio, 166, 20, 40, 14, "Dots"),
              field(1249, field_radio, 208, 20, 40, 14, "Dashes"),
              field(1250, field_radio, 250, 20, 40, 14, "Dot/Dash"),
              field(1, field_button, 306, 20, 40, 14, "OK"),
              field(2, field_button, 200, 48, 40, 14, "Cancel"),
              field(1251, field_group, 12, 8, 40, 28, "Level"),
              field(1252, field_group, 60, 8, 48, 28, "Width"),
              field(1253, field_group, 120, 8, 176, 28, "Type"),
              field(1254, field_button, 120, 48, 40, 14, "Finish"),
          }};
}

dialog_type isosurface_level() {
  return {120, 161, 28, "IsoSurface Level",
          {
              field(1255, field_label, 10, 8, 44, 8, "Sigma Level:"),
              field(1256, field_real, 54, 4, 24, 14, "1.5000"),
              field(1, field_button, 100, 4, 40, 14, "OK"),
          }};
}

dialog_type isosurface_limits() {
  return {121, 161, 97, "IsoSurface Limits",
          {
              field(1257, field_label, 24, 20, 14, 8, "x/a"),
              field(1258, field_label, 74, 20, 14, 8, "y/b"),
              field(1259, field_label, 120, 20, 14, 8, "z/c"),
              field(1261, field_real, 12, 28, 40, 14, "0.0000"),
              field(1262, field_real, 60, 28, 40, 14, "0.0000"),
              field(1263, field_real, 108, 28, 40, 14, "0.0000"),
              field(1260, field_real, 12, 72, 40, 14, "3.0000"),
              field(1, field_button, 108, 56, 40, 14, "OK"),
              field(2, field_button, 108, 76, 40, 14, "Cancel"),
              field(1265, field_group, 8, 8, 146, 40, "Central Point"),
              field(1264, field_group, 8, 60, 48, 32, "Range (\u00c5)"),
          }};
}

}  // namespace

std::vector<dialog_type> quelmo_rc_plot_dialogs() {
  return {plane_by_three_points(), adding_layers(), fourier_limits(),   levels_colours(),
          level_density(),         levels_type(),   isosurface_level(), isosurface_limits()};
}
