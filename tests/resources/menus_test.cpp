// The menus and toolbars as the toolkit finds them after the program's
// start-up registration, against the published listings.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "resources/quelmo_rc.h"

namespace {

class CatalogueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    clear_resources();
    register_quelmo_rc();
  }
};

struct row {
  int id;
  const char* kind;  // "popup", "entry", "sep"
  int level;
  const char* label;
  int mnemonic;
};

const char* kind_name(menu_item_kind k) {
  switch (k) {
    case menu_item_kind::popup: return "popup";
    case menu_item_kind::entry: return "entry";
    case menu_item_kind::separator: return "sep";
  }
  return "?";
}

void expect_menu(int id, const std::vector<row>& expected) {
  const menu_type* menu = find_menu(id);
  ASSERT_NE(menu, nullptr) << id;
  ASSERT_EQ(menu->items.size(), expected.size()) << "menu " << id;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const menu_item_type& got = menu->items[i];
    SCOPED_TRACE("menu " + std::to_string(id) + " row " + std::to_string(i));
    EXPECT_EQ(got.id, expected[i].id);
    EXPECT_STREQ(kind_name(got.kind), expected[i].kind);
    EXPECT_EQ(got.level, expected[i].level);
    EXPECT_EQ(got.label, expected[i].label);
    EXPECT_EQ(got.mnemonic, expected[i].mnemonic);
  }
}

TEST_F(CatalogueTest, MainMenuRowsInOrder) {
  expect_menu(30001, {
      {40001, "popup", 0, "File", 0},
      {40025, "entry", 1, "New", 0},
      {40026, "entry", 1, "Open", 0},
      {0, "sep", 1, "", -1},
      {40027, "entry", 1, "Save", 0},
      {0, "sep", 1, "", -1},
      {40028, "entry", 1, "Print File", 6},
      {0, "sep", 1, "", -1},
      {40007, "entry", 1, "Exit", 1},
      {40011, "popup", 0, "Edit", 0},
      {40010, "entry", 1, "Title", 0},
      {40017, "entry", 1, "Data Files", -1},
      {0, "sep", 1, "", -1},
      {40013, "entry", 1, "Cell Parameters", 0},
      {40014, "entry", 1, "Space Group", 0},
      {0, "sep", 1, "", -1},
      {40009, "entry", 1, "Atoms", 0},
      {40019, "entry", 1, "List Informations", 0},
      {0, "sep", 1, "", -1},
      {40015, "entry", 1, "Fourier Procedure", 0},
      {40012, "entry", 1, "Reflections", 0},
      {0, "sep", 1, "", -1},
      {40020, "entry", 1, "Scan Peaks", 5},
      {40021, "popup", 0, "Calculations", 0},
      {40005, "entry", 1, "Sintrel Program", -1},
      {0, "sep", 1, "", -1},
      {40008, "entry", 1, "Output Fourier", -1},
      {40022, "entry", 0, "Plot", 0},
      {40023, "popup", 0, "Help", 0},
      {40029, "entry", 1, "Help", 1},
      {40016, "entry", 1, "About...", 0},
      {40024, "entry", 0, "Quit", 0},
  });
}

TEST_F(CatalogueTest, SmallMenusRowsInOrder) {
  expect_menu(32124, {{32001, "entry", 0, "-", -1}});
  expect_menu(32125, {
      {32101, "entry", 0, "Select", -1},
      {32102, "entry", 0, "Rename", -1},
      {32103, "entry", 0, "Delete", -1},
      {32104, "entry", 0, "Properties", -1},
      {0, "sep", 0, "", -1},
      {32105, "entry", 0, "New directory", -1},
      {32106, "entry", 0, "Show hidden", -1},
      {32107, "popup", 0, "Order", -1},
      {32108, "entry", 1, "Name", -1},
      {32109, "entry", 1, "Date", -1},
      {32110, "entry", 1, "Size", -1},
      {32111, "entry", 1, "Extension", -1},
      {0, "sep", 1, "", -1},
      {32112, "entry", 1, "Reverse", -1},
      {32113, "entry", 0, "Refresh", -1},
  });
}

// What a menu builder relies on: every popup opens onto at least one row one
// level deeper, levels never jump by more than one, ids are unique within a
// menu, and a mnemonic points inside its label.
TEST_F(CatalogueTest, MenusAreWellFormed) {
  for (int id : {30001, 32124, 32125}) {
    const menu_type* menu = find_menu(id);
    ASSERT_NE(menu, nullptr);
    std::set<int> ids;
    int previous_level = 0;
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
      const menu_item_type& item = menu->items[i];
      SCOPED_TRACE("menu " + std::to_string(id) + " row " + std::to_string(i));
      EXPECT_LE(item.level, previous_level + 1);
      previous_level = item.kind == menu_item_kind::popup ? item.level + 1 : item.level;
      if (item.kind == menu_item_kind::popup) {
        ASSERT_LT(i + 1, menu->items.size());
        EXPECT_EQ(menu->items[i + 1].level, item.level + 1);
      }
      if (item.kind == menu_item_kind::separator) continue;
      EXPECT_TRUE(ids.insert(item.id).second) << "duplicate id " << item.id;
      EXPECT_LT(item.mnemonic, static_cast<int>(item.label.size()));
    }
  }
}

TEST_F(CatalogueTest, ToolbarsButtonsInOrder) {
  const std::vector<std::pair<int, std::vector<int>>> expected = {
      {30101, {40025, 40026, 40027, 0, 40005, 40008, 0, 40022, 0, 40029, 0, 40024}},
      {30102, {40072, 40074, 40075, 40076, 0, 40034, 40036, 40037, 40048, 40004, 0, 40030,
               40032, 0, 40040, 40041, 40042, 40043, 0, 40044, 0, 40033}},
      {30103, {40035, 40038, 40047, 40006, 0, 40049, 0, 40002, 40003}},
  };
  for (const auto& [id, buttons] : expected) {
    const toolbar_type* toolbar = find_toolbar(id);
    ASSERT_NE(toolbar, nullptr) << id;
    EXPECT_EQ(toolbar->buttons, buttons) << id;
  }
}

TEST_F(CatalogueTest, PromptsByItem) {
  const std::vector<std::pair<int, std::string>> expected = {
      {40002, "Background colours"},
      {40003, "Foreground Colours"},
      {40006, "Defining Perspective of Graphics"},
      {40024, "Exit of the Graphic Part"},
      {40033, "Exit on Graphics part"},
      {40036, "Actual Layer +1"},
      {40037, "Actual Layer -1"},
      {40041, "Create a Windows Metafile of the actual vision"},
      {40049, "On/OFF Legends"},
      {40076, "Isosurface"},
  };
  for (const auto& [item, text] : expected) {
    const std::string* prompt = find_prompt(item);
    ASSERT_NE(prompt, nullptr) << item;
    EXPECT_EQ(*prompt, text);
  }
  // Popup titles and plain menu entries have no prompt.
  for (int item : {40001, 40007, 40011, 40028}) EXPECT_EQ(find_prompt(item), nullptr) << item;
}

// Every toolbar button shows a tip, so the user can learn what an icon does.
TEST_F(CatalogueTest, EveryToolbarButtonHasAPrompt) {
  for (int id : {30101, 30102, 30103}) {
    const toolbar_type* toolbar = find_toolbar(id);
    ASSERT_NE(toolbar, nullptr);
    for (int button : toolbar->buttons) {
      if (button == 0) continue;
      EXPECT_NE(find_prompt(button), nullptr) << button;
    }
  }
}

}  // namespace
