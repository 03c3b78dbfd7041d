// The dialogs of the catalogue against the published listings: sizes and
// captions, the kind, place, text, range and format of fields where they
// matter, the tab pages and the option lists.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "resources/quelmo_rc.h"

namespace {

class DialogsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    clear_resources();
    register_quelmo_rc();
  }
};

TEST_F(DialogsTest, SizesAndCaptions) {
  struct expected_dialog {
    int id, width, height;
    const char* caption;
    std::size_t fields;
  };
  const expected_dialog table[] = {
      {101, 238, 113, "Plane defined by 3 points", 15},
      {102, 410, 150, "", 8},
      {103, 410, 150, "", 12},
      {104, 410, 150, "", 6},
      {105, 410, 150, "", 10},
      {106, 410, 150, "", 15},
      {107, 134, 20, "", 1},
      {108, 255, 80, "Adding Layers", 10},
      {109, 410, 150, "", 5},
      {110, 204, 96, "Limits of Fourier Map", 13},
      {111, 222, 42, "Loading...", 4},
      {112, 292, 200, "Levels Colours", 68},
      {113, 336, 192, "Quelmora Program", 16},
      {114, 314, 112, "Level Density", 16},
      {115, 410, 150, "", 29},
      {116, 437, 268, "Input Data", 5},
      {117, 360, 72, "Levels Type", 12},
      {118, 410, 150, "", 8},
      {119, 1000, 16, "", 6},
      {120, 161, 28, "IsoSurface Level", 3},
      {121, 161, 97, "IsoSurface Limits", 11},
  };
  for (const expected_dialog& e : table) {
    const dialog_type* d = find_dialog(e.id);
    ASSERT_NE(d, nullptr) << e.id;
    EXPECT_EQ(d->width, e.width) << e.id;
    EXPECT_EQ(d->height, e.height) << e.id;
    EXPECT_EQ(d->caption, e.caption) << e.id;
    EXPECT_EQ(d->fields.size(), e.fields) << e.id;
  }
}

TEST_F(DialogsTest, ToolkitDialogsByCaption) {
  const std::pair<int, const char*> table[] = {
      {32102, "Colour"},        {32119, "Colour Palette"},   {32116, "New directory"},
      {32117, "Properties"},    {32123, "Rename"},           {32101, "Select Directory"},
      {32137, "Select Directory"}, {32120, "Goto Line"},     {32103, "Find"},
      {32104, "Replace"},       {32002, "PostScript"},       {32025, "Encapsulated PostScript (EPS)"},
      {32035, "Encapsulated PostScript (EPS)"}, {32099, "Text file hardcopy"},
      {32100, "Printers/plotters"}, {32098, "Page Setup (HP-GL, HP-GL/2, HP/Epson)"},
  };
  for (const auto& [id, caption] : table) {
    const dialog_type* d = find_dialog(id);
    ASSERT_NE(d, nullptr) << id;
    EXPECT_EQ(d->caption, caption) << id;
  }
  EXPECT_NE(find_dialog(32110), nullptr);
  EXPECT_NE(find_dialog(32111), nullptr);
}

TEST_F(DialogsTest, FieldsWhereTheyMatter) {
  struct expected_field {
    int dialog, field, kind, x, y, w, h;
    const char* text;
  };
  const expected_field table[] = {
      {103, 1008, field_real, 30, 27, 40, 14, "0.0000"},
      {103, 1013, field_real, 234, 83, 40, 14, "0.000"},
      {103, 1056, field_label, 200, 85, 34, 10, "gamma:"},
      {104, 1017, field_menu, 166, 51, 132, 104, ""},
      {104, 1023, field_radio, 22, 79, 78, 14, "Hall Symbol:"},
      {106, 1016, field_menu, 28, 32, 150, 90, ""},
      {106, 1015, field_real, 328, 32, 40, 14, "1.0000"},
      {106, 1273, field_group, 22, 68, 356, 64, "Grid Dimensions"},
      {110, 1076, field_real, 146, 44, 40, 14, "1.0000"},
      {110, 1, field_button, 152, 76, 40, 14, "OK"},
      {114, 1088, field_integer, 20, 20, 42, 14, ""},
      {114, 1084, field_group, 14, 8, 52, 32, "N\u00ba Levels"},
      {114, 1244, field_button, 262, 64, 40, 14, "Style"},
      {101, 1059, field_real, 72, 8, 34, 14, "5.00"},
      {101, 1097, field_string, 30, 83, 142, 14, ""},
      {109, 1267, field_label, 192, 27, 100, 10, "Numer of peaks to found:"},
      {109, 1123, field_string, 73, 56, 267, 14, ""},
      {105, 1123, field_label, 22, 60, 118, 10, "For interatomic distances  :"},
      {105, 1126, field_real, 203, 85, 40, 14, "0.0000"},
      {115, 1124, field_label, 20, 87, 10, 10, "l"},
      {115, 1131, field_integer, 292, 65, 28, 14, "7"},
      {115, 1150, field_real, 310, 125, 40, 14, "0.0000"},
      {118, 1007, field_grid, 8, 68, 390, 74, ""},
      {119, 1046, field_real, 0, 0, 50, 14, "B"},
      {108, 1100, field_radio, 156, 52, 62, 14, "Sum Negative"},
      {112, 1242, field_radio, 220, 140, 56, 14, "Use Set User"},
      {117, 1254, field_button, 120, 48, 40, 14, "Finish"},
      {120, 1256, field_real, 54, 4, 24, 14, "1.5000"},
      {121, 1264, field_group, 8, 60, 48, 32, "Range (\u00c5)"},
      {116, 1002, field_tab, 8, 52, 420, 184, ""},
      {111, 1048, field_progress, 20, 8, 180, 14, "0"},
      {107, 1113, field_label, 20, 4, 92, 12, "Sintrel Program is running..."},
      {113, 1034, field_group, 10, 52, 314, 132, "Authors"},
      {102, 1082, field_button, 355, 52, 45, 14, "Change..."},
  };
  for (const expected_field& e : table) {
    SCOPED_TRACE("dialog " + std::to_string(e.dialog) + " field " + std::to_string(e.field));
    const dialog_type* d = find_dialog(e.dialog);
    ASSERT_NE(d, nullptr);
    const field_type* f = find_field(*d, e.field);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->kind, e.kind);
    EXPECT_EQ(f->x, e.x);
    EXPECT_EQ(f->y, e.y);
    EXPECT_EQ(f->width, e.w);
    EXPECT_EQ(f->height, e.h);
    EXPECT_EQ(f->text, e.text);
  }
}

TEST_F(DialogsTest, RangesOfNumberFields) {
  const double inf = std::numeric_limits<double>::infinity();
  struct expected_range {
    int dialog, field;
    double minimum, maximum;
  };
  const expected_range table[] = {
      {103, 1008, 0, 200},  {103, 1010, 0, 200},  {103, 1011, 0, 150}, {103, 1013, 0, 150},
      {104, 1020, 0, 230},  {106, 1025, 0, 1000}, {106, 1027, 0, 1000}, {110, 1071, -10, 10},
      {110, 1076, -10, 10}, {101, 1059, 0, inf},  {115, 1130, 0, 10},  {115, 1140, 0, 10},
      {118, 1268, 0, 800},  {117, 1245, 1, 2147483647.0}, {117, 1246, 1, 20},
  };
  for (const expected_range& e : table) {
    SCOPED_TRACE("dialog " + std::to_string(e.dialog) + " field " + std::to_string(e.field));
    const field_type* f = find_field(*find_dialog(e.dialog), e.field);
    ASSERT_NE(f, nullptr);
    ASSERT_TRUE(f->range.has_value());
    EXPECT_EQ(f->range->minimum, e.minimum);
    EXPECT_EQ(f->range->maximum, e.maximum);
  }
  // Fields the listings give no range keep none.
  for (auto [dialog, field] : {std::pair{106, 1014}, {109, 1030}, {114, 1088}, {120, 1256}}) {
    EXPECT_FALSE(find_field(*find_dialog(dialog), field)->range.has_value()) << field;
  }
}

TEST_F(DialogsTest, FormatsOfRealFields) {
  struct expected_format {
    int dialog, field;
    const char* format;
  };
  const expected_format table[] = {
      {103, 1008, "(F8.4)"},  {103, 1009, "(F8.4)"},  {103, 1010, "(F8.4)"},
      {103, 1011, "(F8.3)"},  {103, 1012, "(F8.3)"},  {103, 1013, "(F8.3)"},
      {114, 1089, "(f14.6)"}, {114, 1090, "(f14.6)"}, {114, 1183, "(f12.6)"},
      {101, 1059, "(f8.2)"},  {110, 1071, ""},        {106, 1014, ""},
  };
  for (const expected_format& e : table) {
    EXPECT_EQ(find_field(*find_dialog(e.dialog), e.field)->format, e.format)
        << e.dialog << "/" << e.field;
  }
  // The atoms grid: four columns in f8.4 and one other.
  int f84 = 0, other = 0;
  for (int column : {1142, 1143, 1144, 1145, 1046}) {
    const std::string& format = find_field(*find_dialog(119), column)->format;
    (format == "(f8.4)" ? f84 : other) += 1;
    EXPECT_FALSE(format.empty()) << column;
  }
  EXPECT_EQ(f84, 4);
  EXPECT_EQ(other, 1);
}

// The colour boxes of dialog 112: three sets of two lines of ten, 10 x 10,
// at x = 20 + 20 i.
TEST_F(DialogsTest, LevelColourBoxes) {
  const dialog_type* d = find_dialog(112);
  ASSERT_NE(d, nullptr);
  struct line {
    std::vector<int> ids;
    int y;
  };
  auto run = [](int first) {
    std::vector<int> ids;
    for (int i = 0; i < 10; ++i) ids.push_back(first + i);
    return ids;
  };
  const line lines[] = {
      {{1036, 1110, 1111, 1175, 1176, 1177, 1178, 1184, 1185, 1186}, 16},
      {run(1187), 32}, {run(1199), 72}, {run(1209), 88}, {run(1222), 132}, {run(1232), 148},
  };
  int boxes = 0;
  for (const line& l : lines) {
    for (int i = 0; i < 10; ++i) {
      const field_type* f = find_field(*d, l.ids[i]);
      ASSERT_NE(f, nullptr) << l.ids[i];
      EXPECT_EQ(f->kind, field_picture);
      EXPECT_EQ(f->x, 20 + 20 * i) << l.ids[i];
      EXPECT_EQ(f->y, l.y) << l.ids[i];
      EXPECT_EQ(f->width, 10);
      EXPECT_EQ(f->height, 10);
      ++boxes;
    }
  }
  EXPECT_EQ(boxes, 60);
}

TEST_F(DialogsTest, TabPagesOfTheInputDataDialog) {
  const tab_captions_type* tabs = find_tab_captions(116, 1002);
  ASSERT_NE(tabs, nullptr);
  const std::vector<std::pair<std::string, int>> expected = {
      {"Data Files", 102},  {"Cell Parameters", 103}, {"Space Group", 104},
      {"Fourier Calculations", 106}, {"Atoms List", 118}, {"Reflections", 115},
      {"Search Peaks", 109}, {"Output Information", 105},
  };
  ASSERT_EQ(tabs->pages.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(tabs->pages[i].caption, expected[i].first);
    EXPECT_EQ(tabs->pages[i].dialog, expected[i].second);
    EXPECT_NE(find_dialog(expected[i].second), nullptr);
  }
}

TEST_F(DialogsTest, OptionListOfTheSynthesisMenu) {
  const option_list_type* list = find_option_list(106, 1016);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->options,
            (std::vector<std::string>{"Fobs Synthesis", "Fcal Synthesis", "(Fo-Fc) Difference",
                                      "Fobs Patterson", "Fcal Patterson", "A,B User defined"}));
}

// Layout invariants every dialog of the program keeps: field ids unique inside
// the dialog, and every field inside the dialog's box (option menus excepted:
// their height is that of the dropped list).
TEST_F(DialogsTest, FieldsAreUniqueAndInsideTheirDialog) {
  for (int id = 101; id <= 121; ++id) {
    const dialog_type* d = find_dialog(id);
    ASSERT_NE(d, nullptr) << id;
    std::set<int> ids;
    for (const field_type& f : d->fields) {
      SCOPED_TRACE("dialog " + std::to_string(id) + " field " + std::to_string(f.id));
      EXPECT_TRUE(ids.insert(f.id).second);
      EXPECT_GE(f.x, 0);
      EXPECT_GE(f.y, 0);
      EXPECT_LE(f.x + f.width, d->width);
      if (f.kind != field_menu) {
        EXPECT_LE(f.y + f.height, d->height);
      }
    }
  }
}

// Every toolbar button has a 16 x 16 icon whose characters are all in its
// palette or transparent.
TEST_F(DialogsTest, EveryToolbarButtonHasAWellFormedIcon) {
  for (int toolbar : {30101, 30102, 30103}) {
    for (int button : find_toolbar(toolbar)->buttons) {
      if (button == 0) continue;
      SCOPED_TRACE("button " + std::to_string(button));
      const icon_type* icon = find_icon(button);
      ASSERT_NE(icon, nullptr);
      std::set<char> keys{'.'};
      for (const icon_colour_type& c : icon->colours) keys.insert(c.key);
      ASSERT_EQ(icon->rows.size(), static_cast<std::size_t>(icon_size));
      int painted = 0;
      for (const std::string& row : icon->rows) {
        ASSERT_EQ(row.size(), static_cast<std::size_t>(icon_size));
        for (char ch : row) {
          EXPECT_TRUE(keys.count(ch)) << "unknown colour '" << ch << "'";
          painted += ch != '.';
        }
      }
      EXPECT_GT(painted, 16) << "an icon shows something";
    }
  }
}

}  // namespace
