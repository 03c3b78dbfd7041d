// The toolkit's registry: look-ups by number, replacement, and the failure of
// a dialog load for a number it does not hold.
#include <gtest/gtest.h>

#include "toolkit/core/resources.h"
#include "toolkit/core/werror.h"

namespace {

class RegistryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    clear_resources();
    winfoerror(1);
  }
};

TEST_F(RegistryTest, UnknownNumbersAreNotFound) {
  EXPECT_EQ(find_menu(30001), nullptr);
  EXPECT_EQ(find_toolbar(30101), nullptr);
  EXPECT_EQ(find_prompt(40025), nullptr);
  EXPECT_EQ(find_icon(40025), nullptr);
  EXPECT_EQ(find_dialog(103), nullptr);
  EXPECT_EQ(find_tab_captions(116, 1002), nullptr);
  EXPECT_EQ(find_option_list(106, 1016), nullptr);
  EXPECT_EQ(winfoerror(1), 0) << "plain look-ups raise no error";
}

TEST_F(RegistryTest, DialogLoadOfUnknownNumberRaisesErrorAndGivesNothing) {
  register_dialog({103, 410, 150, "", {}});
  EXPECT_EQ(yyload_dialog_resource(999), nullptr);
  EXPECT_EQ(winfoerror(1), 1003);
  EXPECT_EQ(yyerror_routine(), "WDialogLoad");

  const dialog_type* found = yyload_dialog_resource(103);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->width, 410);
  EXPECT_EQ(winfoerror(1), 0);
}

TEST_F(RegistryTest, RegisteringAnIdAgainReplacesIt) {
  register_menu({7, {{1, menu_item_kind::entry, 0, "One", -1}}});
  register_menu({7, {{2, menu_item_kind::entry, 0, "Two", 0}}});
  const menu_type* menu = find_menu(7);
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->items.size(), 1u);
  EXPECT_EQ(menu->items[0].label, "Two");
}

// The same field number stands in several dialogs with different meanings;
// the dialog decides which one is meant, and tabs and lists are keyed alike.
TEST_F(RegistryTest, FieldNumbersAreScopedByDialog) {
  register_dialog({105, 410, 150, "", {{1123, field_label, 22, 60, 118, 10, "For", {}, ""}}});
  register_dialog({109, 410, 150, "", {{1123, field_string, 73, 56, 267, 14, "", {}, ""}}});
  register_option_list({106, 1016, {"a", "b"}});
  register_option_list({107, 1016, {"c"}});

  const dialog_type* d105 = find_dialog(105);
  const dialog_type* d109 = find_dialog(109);
  ASSERT_TRUE(d105 && d109);
  ASSERT_NE(find_field(*d105, 1123), nullptr);
  ASSERT_NE(find_field(*d109, 1123), nullptr);
  EXPECT_EQ(find_field(*d105, 1123)->kind, field_label);
  EXPECT_EQ(find_field(*d109, 1123)->kind, field_string);
  EXPECT_EQ(find_field(*d105, 1124), nullptr);
  EXPECT_EQ(find_option_list(106, 1016)->options.size(), 2u);
  EXPECT_EQ(find_option_list(107, 1016)->options.size(), 1u);
  EXPECT_EQ(find_option_list(106, 1017), nullptr);
}

TEST_F(RegistryTest, ClearEmptiesEverything) {
  register_toolbar({30101, {1, 0, 2}});
  register_prompt(1, "tip");
  clear_resources();
  EXPECT_EQ(find_toolbar(30101), nullptr);
  EXPECT_EQ(find_prompt(1), nullptr);
}

}  // namespace
