// What the toolkit and the program rely on in the resource catalogue: numbers
// that stay unique, menus a builder can walk, every toolbar button with a
// tip and a drawable icon, fields inside their dialogs, initial values that
// agree with their format and range, and tables that name real fields.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "resources/quelmo_rc.h"
#include "toolkit/core/werror.h"

namespace {

class Catalogue : public ::testing::Test {
 protected:
  void SetUp() override {
    clear_resources();
    register_quelmo_rc();
  }
};

// A second table entry with a number already used would silently replace the
// first one at registration.
template <typename T>
std::size_t distinct_ids(const std::vector<T>& table) {
  std::set<int> ids;
  for (const T& entry : table) ids.insert(entry.id);
  return ids.size();
}

TEST_F(Catalogue, NumbersAreUniqueAcrossTheTables) {
  std::vector<dialog_type> dialogs = quelmo_rc_data_dialogs();
  for (auto* more : {quelmo_rc_plot_dialogs, quelmo_rc_shell_dialogs})
    for (dialog_type& d : more()) dialogs.push_back(std::move(d));
  EXPECT_EQ(distinct_ids(dialogs), dialogs.size());
  EXPECT_EQ(distinct_ids(quelmo_rc_menus()), quelmo_rc_menus().size());
  EXPECT_EQ(distinct_ids(quelmo_rc_toolbars()), quelmo_rc_toolbars().size());
  EXPECT_EQ(distinct_ids(quelmo_rc_icons()), quelmo_rc_icons().size());
  std::set<int> prompts;
  for (const prompt_type& p : quelmo_rc_prompts()) EXPECT_TRUE(prompts.insert(p.item).second) << p.item;
}

// Every popup opens onto a row one level deeper, levels never jump by more
// than one, ids are unique within a menu, and a mnemonic points inside its
// label.
TEST_F(Catalogue, MenusAreWellFormed) {
  for (const menu_type& menu : quelmo_rc_menus()) {
    std::set<int> ids;
    int previous_level = 0;
    for (std::size_t i = 0; i < menu.items.size(); ++i) {
      const menu_item_type& item = menu.items[i];
      SCOPED_TRACE("menu " + std::to_string(menu.id) + " row " + std::to_string(i));
      EXPECT_LE(item.level, previous_level + 1);
      previous_level = item.kind == menu_item_kind::popup ? item.level + 1 : item.level;
      if (item.kind == menu_item_kind::popup) {
        ASSERT_LT(i + 1, menu.items.size());
        EXPECT_EQ(menu.items[i + 1].level, item.level + 1);
      }
      if (item.kind == menu_item_kind::separator) continue;
      EXPECT_TRUE(ids.insert(item.id).second) << "duplicate id " << item.id;
      EXPECT_LT(item.mnemonic, static_cast<int>(item.label.size()));
    }
  }
}

// A tip, and a 16 x 16 icon drawn only in its palette's colours or
// transparent, showing something.
TEST_F(Catalogue, EveryToolbarButtonHasATipAndAWellFormedIcon) {
  for (const toolbar_type& toolbar : quelmo_rc_toolbars()) {
    for (int button : toolbar.buttons) {
      if (button == 0) continue;
      SCOPED_TRACE("button " + std::to_string(button));
      EXPECT_NE(find_prompt(button), nullptr);
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
      EXPECT_GT(painted, 16);
    }
  }
}

// Field ids unique inside a dialog, every field inside the dialog's box
// (option menus excepted: their height is that of the dropped list), formats
// on real fields only and ranges on number fields only.
TEST_F(Catalogue, FieldsAreUniqueAndInsideTheirDialog) {
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
      EXPECT_TRUE(f.kind == field_menu || f.y + f.height <= d->height);
      EXPECT_TRUE(f.format.empty() || f.kind == field_real);
      EXPECT_TRUE(!f.range || f.kind == field_real || f.kind == field_integer);
    }
  }
}

// A number shown at first is one the field accepts: within its range, and
// with as many decimals as its format "(Fw.d)" writes.
TEST_F(Catalogue, InitialNumbersAgreeWithFormatAndRange) {
  int checked = 0;
  for (int id = 101; id <= 121; ++id) {
    for (const field_type& f : find_dialog(id)->fields) {
      char* end = nullptr;
      const double value = std::strtod(f.text.c_str(), &end);
      if (f.text.empty() || *end != '\0') continue;
      SCOPED_TRACE("dialog " + std::to_string(id) + " field " + std::to_string(f.id) + " text " + f.text);
      if (f.range) {
        EXPECT_GE(value, f.range->minimum);
        EXPECT_LE(value, f.range->maximum);
        ++checked;
      }
      if (f.format.empty()) continue;
      const std::size_t dot = f.text.find('.');
      ASSERT_NE(dot, std::string::npos);
      EXPECT_EQ(f.text.size() - dot - 1, std::stoul(f.format.substr(f.format.find('.') + 1))) << f.format;
      ++checked;
    }
  }
  EXPECT_GT(checked, 30);
}

// Tab pages, option lists and grid rows hang on a field of the right kind,
// and the pages they name exist and fit in the tab holder.
TEST_F(Catalogue, TablesNameFieldsOfTheirKind) {
  const auto field = [](int dialog, int id) {
    const dialog_type* d = find_dialog(dialog);
    return d == nullptr ? nullptr : find_field(*d, id);
  };
  const auto kind = [&](int dialog, int id) { return field(dialog, id) == nullptr ? -1 : field(dialog, id)->kind; };
  for (const tab_captions_type& tabs : quelmo_rc_tab_captions()) {
    ASSERT_EQ(kind(tabs.dialog, tabs.field), field_tab) << tabs.dialog;
    for (const tab_page_type& page : tabs.pages) {
      const dialog_type* d = find_dialog(page.dialog);
      ASSERT_NE(d, nullptr) << page.caption;
      EXPECT_EQ(d->caption, "") << page.caption;
      EXPECT_LE(d->width, field(tabs.dialog, tabs.field)->width) << page.caption;
      EXPECT_LE(d->height, field(tabs.dialog, tabs.field)->height) << page.caption;
    }
  }
  for (const option_list_type& list : quelmo_rc_option_lists())
    EXPECT_EQ(kind(list.dialog, list.field), field_menu) << list.dialog;
  for (const grid_columns_type& grid : quelmo_rc_grid_columns()) {
    EXPECT_EQ(kind(grid.dialog, grid.field), field_grid) << grid.dialog;
    EXPECT_NE(find_dialog(grid.row_dialog), nullptr);
  }
}

// The registry: option lists are keyed by their dialog too, and loading a
// dialog it does not hold raises the toolkit's error.
TEST(Registry, KeysByDialogAndRefusesUnknownDialogs) {
  clear_resources();
  register_option_list({106, 1016, {"a", "b"}});
  register_option_list({107, 1016, {"c"}});
  EXPECT_EQ(find_option_list(107, 1016)->options, std::vector<std::string>{"c"});
  EXPECT_EQ(find_option_list(106, 1017), nullptr);
  winfoerror(1);
  EXPECT_EQ(yyload_dialog_resource(999), nullptr);
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_EQ(yyerror_routine(), "WDialogLoad");
}

}  // namespace
