// The dialog routines on the catalogue's own dialogs (formats, put/get round
// trips, empty number fields, ranges, option menus, tabs, grids, the errors
// of misuse) and a scripted user in them: the messages the program reads,
// modal dialogs, and the common selectors with their exit buttons.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "resources/quelmo_rc.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/dialog_user.h"
#include "toolkit/dialogs/field_format.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/wgrid.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmessage.h"

namespace fs = std::filesystem;

namespace {

class Dialogs : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    register_quelmo_rc();
    winfoerror(1);
  }
  // The input data dialog on the screen with `page` showing, that page current.
  void show_input_data(int page) {
    wdialogload(116);
    wdialogsettab(1002, page);
    wdialogshow(-1, -1, 0, 2);
    wdialogselect(page);
  }
  static std::string text_of(int dialog, int field) { return yyfind_field(*yyfind_dialog(dialog), field)->text; }
};

TEST(FieldTexts, FortranFixedPointAndWhatTheUserMayType) {
  struct row {
    double value;
    const char* format;
    const char* text;
  };
  const row rows[] = {
      {5.64, "(F8.4)", "5.6400"}, {-12.34567, "(f14.6)", "-12.345670"}, {0.5, "(F5.4)", ".5000"},
      {-0.5, "(F6.4)", "-.5000"}, {-0.5, "(F5.4)", "*****"},            {-0.00001, "(F8.4)", "0.0000"},
      {999.99996, "(F8.4)", "********"}, {0.25, "F8.4", "0.2500"},      {2.4, "(F3.0)", "2."},
  };
  for (const row& r : rows) {
    const auto f = parse_real_format(r.format);
    ASSERT_TRUE(f) << r.format;
    EXPECT_EQ(format_real(r.value, *f), r.text) << r.value << " " << r.format;
  }
  for (const char* bad : {"", "(F8)", "(G8.4)", "(F4.4)", "(F.4)", "(F8.4", "(F99.4)", "(F8.x)"})
    EXPECT_FALSE(parse_real_format(bad)) << bad;
  EXPECT_EQ(parse_real_text(" -1e2 "), -100.0);
  EXPECT_EQ(parse_integer_text(" 230"), 230);
  for (const char* bad : {"", "5,64", "1.2.3", "nan", "1e999"}) EXPECT_FALSE(parse_real_text(bad)) << bad;
  for (const char* bad : {"", "1.5", "99999999999", "-2147483648"}) EXPECT_FALSE(parse_integer_text(bad)) << bad;
}

TEST_F(Dialogs, RealsRoundTripWithTheFieldsFormats) {
  struct row {
    int dialog, field;
    float value;
    const char* format;
    const char* text;
  };
  const row rows[] = {
      {103, 1011, 90.0f, "", "90.000"},    // (F8.3) of the catalogue
      {120, 1256, 1.5f, "(f4.1)", "1.5"},  // the caller's format
      {106, 1014, 12.5f, "", "12.5000"},   // no format: the decimals of "0.0000"
  };
  for (const row& r : rows) {
    wdialogload(r.dialog);
    wdialogputreal(r.field, r.value, r.format);
    EXPECT_EQ(text_of(r.dialog, r.field), r.text) << r.field;
    float back = 0;
    wdialoggetreal(r.field, back);
    EXPECT_NEAR(back, r.value, 5e-5) << r.field;
  }
}

TEST_F(Dialogs, EmptyFieldsAreUndefinedOrBlank) {
  wdialogload(104);
  wdialogputinteger(1020, 17);
  wdialogclearfield(1020);
  std::int32_t n = 0;
  wdialoggetinteger(1020, n);
  EXPECT_EQ(n, integer_undefined);
  EXPECT_EQ(winfoerror(1), error_undefined);
  wdialogload(110);
  float x = 1;
  wdialoggetreal(1071, x);
  EXPECT_EQ(x, 0.0f) << "the catalogue's initial text is a value";
  wdialogclearfield(1071);
  wdialoggetreal(1071, x);
  EXPECT_EQ(x, real_undefined);
  EXPECT_EQ(winfoerror(1), error_undefined);
  wdialogload(102);
  wdialogputstring(1028, "nacl   ");
  std::string s;
  wdialoggetstring(1028, s);
  EXPECT_EQ(s, "nacl");
  wdialogputcheckbox(1063, 5);
  std::int32_t c = 0;
  wdialoggetcheckbox(1063, c);
  EXPECT_EQ(c, 1);
}

TEST_F(Dialogs, UserInputKeepsToTheRangesAndStates) {
  show_input_data(103);
  struct row {
    int field;
    const char* text;
    bool taken;
  };
  const row rows[] = {{1008, "12.5", true}, {1008, "250", false}, {1008, "-1", false}, {1008, "abc", false},
                      {1008, "", true},     {1011, "150", true},  {1011, "150.001", false}};
  for (const row& r : rows) {
    const std::string before = text_of(103, r.field);
    EXPECT_EQ(yyuser_text(103, r.field, r.text), r.taken) << r.text;
    EXPECT_EQ(text_of(103, r.field), r.taken ? r.text : before) << r.text;
  }
  wdialograngereal(1008, 0, 10);
  EXPECT_FALSE(yyuser_text(103, 1008, "12.5")) << "the program's range replaces the catalogue's";
  wdialogselect(116);
  wdialogsettab(1002, 104);
  EXPECT_TRUE(yyuser_text(104, 1020, "230"));
  EXPECT_FALSE(yyuser_text(104, 1020, "231"));
  EXPECT_FALSE(yyuser_text(104, 1020, "1.5"));
  EXPECT_FALSE(yyuser_text(103, 1008, "1")) << "page 103 is no longer on the screen";
  wdialogselect(104);
  for (int state : {0, 2, 1}) {
    wdialogfieldstate(1020, state);
    EXPECT_EQ(winfodialogfield(1020, 6), state);
    EXPECT_EQ(yyuser_text(104, 1020, "12"), state == 1) << state;
  }
  wdialogfieldstate(1020, 3);
  EXPECT_EQ(winfoerror(1), error_bad_argument);
}

TEST_F(Dialogs, OptionMenus) {
  wdialogload(106);
  std::int32_t sel = -1;
  std::string text = "x";
  wdialogputoption1(1016, 3);
  wdialoggetmenu1(1016, sel, text);
  EXPECT_EQ(text, "(Fo-Fc) Difference");
  wdialogputoption1(1016, 0);
  wdialoggetmenu1(1016, sel, text);
  EXPECT_EQ(sel, 0) << "0 leaves no row selected";
  EXPECT_EQ(text, "");
  wdialogputoption1(1016, 7);
  EXPECT_EQ(winfoerror(1), error_bad_argument);
  wdialogload(104);
  wdialogputmenu1(1017, {"P 1         ", "P -1", "P 2", "unused"}, 3, 2);
  wdialoggetmenu1(1017, sel, text);
  EXPECT_EQ(text, "P -1");
  EXPECT_EQ(yyfind_field(*yyfind_dialog(104), 1017)->options.size(), 3u);
  wdialogputmenu1(1017, {"P 1"}, 1, 5);
  wdialoggetmenu1(1017, sel);
  EXPECT_EQ(sel, 0) << "a selection beyond the list selects nothing";
  wdialogclearfield(1017);
  EXPECT_TRUE(yyfind_field(*yyfind_dialog(104), 1017)->options.empty());
}

TEST_F(Dialogs, TabsShowPagesThatAreDialogsOfTheirOwn) {
  wdialogload(116);
  std::int32_t page = 0;
  wdialoggettab(1002, page);
  EXPECT_EQ(page, 102) << "the first page shows first";
  for (int p : {103, 104, 106, 118, 115, 109, 105}) {
    wdialogselect(116);
    wdialogsettab(1002, p);
    wdialoggettab(1002, page);
    EXPECT_EQ(page, p);
    wdialogselect(p);
    EXPECT_EQ(winfoerror(1), 0) << p << " is loaded with its holder";
  }
  wdialogselect(116);
  wdialogsettab(1002, 110);
  EXPECT_EQ(winfoerror(1), error_bad_argument);
  wdialogunload();
  wdialogselect(103);
  EXPECT_EQ(winfoerror(1), error_no_dialog) << "the pages go with the holder";
}

TEST_F(Dialogs, AtomsGridColumnsRowsAndCells) {
  show_input_data(118);
  EXPECT_EQ(winfogrid(1007, 1), 6);
  wgridrows(1007, 4);
  EXPECT_EQ(winfogrid(1007, 2), 4);
  wgridputstring(1007, 1, {"Na1", "Cl1", "O1", "H1"}, 4);
  wgridputreal(1007, 2, {0.0f, 0.5f, 0.25f, -0.125f}, 4);
  wgridputreal(1007, 6, {1.0f, 2.0f, 3.0f, 4.0f}, 4, "(f5.2)");
  wgridlabelrow(1007, 1, "Atom 1");
  const grid_state_type& g = yyfind_field(*yyfind_dialog(118), 1007)->grid;
  EXPECT_EQ(g.cells[3][1], "-0.1250") << "the column's own (f8.4)";
  EXPECT_EQ(g.cells[1][5], "2.00");
  EXPECT_EQ(g.row_labels[0], "Atom 1");
  wgridrows(1007, 2);
  std::vector<std::string> labels;
  wgridgetstring(1007, 1, labels, 4);
  EXPECT_EQ(labels, (std::vector<std::string>{"Na1", "Cl1"})) << "rows behind the new count are dropped";
  wgridrows(1007, 3);
  std::vector<float> x;
  wgridgetreal(1007, 2, x, 3);
  EXPECT_EQ(x[1], 0.5f);
  EXPECT_EQ(x[2], real_undefined) << "a new row is blank";
  EXPECT_EQ(winfoerror(1), error_undefined);
  EXPECT_TRUE(yyuser_cell(118, 1007, 2, 3, "0.75"));
  EXPECT_FALSE(yyuser_cell(118, 1007, 2, 3, "x")) << "a real column takes numbers only";
  EXPECT_FALSE(yyuser_cell(118, 1007, 7, 3, "1")) << "no such column";
  wgridstatecell(1007, 2, 3, 2);
  EXPECT_FALSE(yyuser_cell(118, 1007, 2, 3, "0.5")) << "read only";
  wgridgetreal(1007, 2, x, 3);
  EXPECT_EQ(x[2], 0.75f);
  for (auto bad : {std::pair{0, 1}, std::pair{7, 1}, std::pair{2, 4}}) {
    wgridstatecell(1007, bad.first, bad.second, 1);
    EXPECT_EQ(winfoerror(1), error_bad_argument) << bad.first << "," << bad.second;
  }
  wgridrows(1007, -1);
  EXPECT_EQ(winfoerror(1), error_bad_argument);
}

TEST_F(Dialogs, ErrorsOfMisuse) {
  struct row {
    void (*call)();
    int error;
  };
  const row rows[] = {
      {[] { wdialogputstring(1147, "x"); }, error_no_dialog},
      {[] { wdialogload(9999); }, 1003},
      {[] { wdialogload(110); wdialogputreal(9999, 1.0f); }, error_bad_field},
      {[] { wdialogload(110); wdialogputinteger(1071, 1); }, error_field_kind},
      {[] { wdialogload(110); wgridrows(1071, 1); }, error_field_kind},
      {[] { wdialogload(111); wdialogshow(-1, -1, 0, 1); }, error_modeless},
  };
  for (const row& r : rows) {
    yyreset_dialogs();
    r.call();
    EXPECT_EQ(winfoerror(1), r.error) << yyerror_routine();
  }
  EXPECT_EQ(yycurrent_dialog()->mode, 2) << "a dialog without buttons stays modeless";
}


class DialogUser : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    yyreset_messages();
    register_quelmo_rc();
    winfoerror(1);
  }
  void TearDown() override { yyreset_messages(); }
  // Type, value1, value2 and value4 of each message up to the first close
  // request (the end of the script).
  static std::vector<std::array<std::int32_t, 4>> read_all() {
    std::vector<std::array<std::int32_t, 4>> out;
    std::int32_t type = 0;
    message_record r;
    for (wmessage(type, r); type != msg_close_request; wmessage(type, r))
      out.push_back({type, r.value1, r.value2, r.value4});
    return out;
  }
  using seen = std::vector<std::array<std::int32_t, 4>>;
};

TEST_F(DialogUser, FieldChangesComeInOrderWithTheFieldsLeftAndEntered) {
  wdialogload(116);
  wdialogshow(-1, -1, 0, 3);
  wmessageenable(msg_field_changed, 1);
  headless::type_text(116, 1147, "Sodium chloride");
  headless::choose_tab(116, 1002, 118);
  headless::choose_radio(118, 1005);
  headless::type_text(118, 1268, "2");
  headless::press(116, 1);
  // A typed value that differs is a change of the field of its own.
  EXPECT_EQ(read_all(), (seen{{10, 0, 1147, 116}, {10, 1147, 1147, 116}, {10, 1147, 1002, 116}, {10, 1002, 1002, 116},
                              {10, 0, 1005, 118}, {10, 1005, 1005, 118}, {10, 1005, 1268, 118}, {10, 1268, 1268, 118},
                              {10, 1002, 1, 116}, {3, 1, 0, 116}}));
  EXPECT_TRUE(headless::refused().empty());
}

TEST_F(DialogUser, RefusedActionsChangeNothingAndAreNoted) {
  wdialogload(110);
  wdialogshow(-1, -1, 0, 3);
  headless::type_text(121, 1261, "1");  // a dialog not on the screen
  headless::type_text(110, 1071, "0.5");
  headless::type_text(110, 1071, "11");  // range -10 to 10
  headless::press(110, 2);               // the dialog has no Cancel
  read_all();
  EXPECT_EQ(headless::refused(), (std::vector<std::string>{"121 1261", "110 1071", "110 2"}));
  float v = 0;
  wdialoggetreal(1071, v);
  EXPECT_EQ(v, 0.5f);
}

// The expose that comes while a modal dialog waits is the caller's, and so
// is what follows the button; with the script run out the dialog is cancelled.
TEST_F(DialogUser, ModalShowWaitsForAButtonAndKeepsOtherMessages) {
  wdialogload(120);
  headless::queue_expose();
  headless::type_text(120, 1256, "2.5");
  headless::press(120, 1);
  headless::queue_menu(40026);
  wdialogshow(-1, -1, 1256, 1);
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_FALSE(yyfind_dialog(120)->shown);
  EXPECT_EQ(read_all(), (seen{{7, 0, 0, 0}, {2, 40026, 0, 0}}));
  wdialogload(121);
  wdialogshow(-1, -1, 0, 1);
  EXPECT_EQ(winfodialog(4), 2);
}

TEST_F(DialogUser, ColourBoxesTakeDrawingWhileShownAndDeliverMousePresses) {
  wdialogload(112);
  igrselect(igr_field, 1222);
  EXPECT_EQ(current_canvas(), nullptr) << "not on the screen yet";
  wdialogshow(-1, -1, 0, 3);
  igrselect(igr_field, 1222);
  igrareaclear();
  ASSERT_NE(headless::field_canvas(1222), nullptr);
  EXPECT_EQ(headless::field_canvas(1222)->primitives().size(), 1u);
  EXPECT_EQ(headless::field_canvas(1223)->primitives().size(), 0u);
  headless::click_field(112, 1222);
  EXPECT_EQ(read_all(), (seen{{4, 1, 0, 1222}}));
  wdialogunload();
  EXPECT_EQ(headless::field_canvas(1222), nullptr);
  EXPECT_EQ(target_canvas(igr_field, 1222), nullptr);
  wdialogload(112);
  wdialogshow(-1, -1, 0, 3);
  headless::install();  // a new script takes the boxes off the screen
  EXPECT_EQ(target_canvas(igr_field, 1222), nullptr);
  igrselect(igr_window, 0);
}

class Selectors : public DialogUser {
 protected:
  void SetUp() override {
    DialogUser::SetUp();
    iosdirname(start_);
    fs::create_directories(dir_ / "maps");
    std::ofstream(dir_ / "nacl.fout") << "Sintrel listing\nR = 0.05\n";
  }
  void TearDown() override {
    iosdirchange(start_);
    fs::remove_all(dir_);
    DialogUser::TearDown();
  }
  std::string start_;
  fs::path dir_ = fs::temp_directory_path() / ("quelmora_selectors_" + std::to_string(::getpid()));
};

TEST_F(Selectors, DirectoryChoiceMovesTheProcessCancelDoesNot) {
  std::string name = start_, now;
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 2);
  EXPECT_EQ(name, start_);
  headless::answer_directory((dir_ / "maps").string());
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ(name, (dir_ / "maps").string());
  iosdirname(now);
  EXPECT_EQ(fs::path(now), fs::canonical(dir_ / "maps"));
}

TEST_F(Selectors, ListingShownReadOnlyInTheChild) {
  window_options_type how;
  windowopen2(how);
  weditfile((dir_ / "nacl.fout").string(), 2, 0, 6, 1);
  EXPECT_EQ(winfoerror(1), 1003) << "no child window to show it in";
  std::int32_t child = 0;
  windowopenchild2(child, "View of calculations");
  weditfile((dir_ / "nacl.fout").string(), 2, 0, 6, 1);
  weditfile((dir_ / "missing.fout").string(), 2, 0, 4, 1);
  EXPECT_EQ(winfoerror(1), 13);
  ASSERT_EQ(headless::files_shown().size(), 1u);
  EXPECT_EQ(headless::files_shown()[0].window, child);
  EXPECT_EQ(headless::files_shown()[0].text, "Sintrel listing\nR = 0.05\n");
  windowclose();
}

}  // namespace
