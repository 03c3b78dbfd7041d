// The modal boxes of the X11 face, answered from inside their own event loops
// as a user would: message boxes, the file selector with its checks and its
// popup menu, the colour and directory selectors, the print options box; and
// the listing view of a child window.
#include <gtest/gtest.h>

#include <Xm/CascadeB.h>
#include <Xm/FileSB.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>
#include <unistd.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <tuple>

#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/x11/x11_child_window.h"
#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_root_window.h"
#include "toolkit/x11/x11_selector_list.h"

namespace fs = std::filesystem;
namespace {

struct step {
  const char* box;  // the name of the box the step waits for
  std::function<void(Widget)> act;
};
std::deque<step> steps;

// Runs in the loop of whichever box is up: once the box of the first step is
// shown, the step acts on it. The next step is due when a loop runs again,
// which may be the loop of a box this step opens.
void next_step(XtPointer, XtIntervalId*) {
  static int polls = 0;
  if (steps.empty()) return;
  Widget box = XtNameToWidget(x11_root_shell(), (std::string("*") + steps.front().box).c_str());
  const bool up = box != nullptr && XtIsManaged(box);
  if (!up && ++polls > 1000) {
    ADD_FAILURE() << "no box named " << steps.front().box;
    std::abort();
  }
  const step now = up ? steps.front() : step{};
  if (up) steps.pop_front();
  if (!steps.empty()) XtAppAddTimeOut(x11_app(), 5, next_step, nullptr);
  if (up) now.act(box);
}

void user_does(const std::vector<step>& s) {
  steps.assign(s.begin(), s.end());
  XtAppAddTimeOut(x11_app(), 5, next_step, nullptr);
}

void press(Widget box, bool ok) {
  XmAnyCallbackStruct cb{};
  cb.reason = ok ? XmCR_OK : XmCR_CANCEL;
  XtCallCallbacks(box, ok ? XmNokCallback : XmNcancelCallback, &cb);
}

void type_into(Widget box, const std::string& text) {
  XmString s = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
  XtVaSetValues(box, XmNtextString, s, nullptr);
  XmStringFree(s);
}

std::vector<std::string> box_texts;                // what the message boxes said, lines joined
std::vector<std::vector<std::string>> listings;    // the selector's file lists looked at

step answer(bool yes) {
  return {"message", [yes](Widget box) {
            XmString s = nullptr;
            XtVaGetValues(box, XmNmessageString, &s, nullptr);
            char* text = static_cast<char*>(
                XmStringUnparse(s, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
            box_texts.push_back(text ? text : "");
            XtFree(text);
            XmStringFree(s);
            press(box, yes);
          }};
}
step selector_ok(const std::string& typed) {
  return {"selector", [typed](Widget box) { type_into(box, typed); press(box, true); }};
}
const step selector_cancel{"selector", [](Widget box) { press(box, false); }};
const step look_at_list{"selector", [](Widget box) {
                          XmStringTable items = nullptr;
                          int count = 0;
                          XtVaGetValues(XmFileSelectionBoxGetChild(box, XmDIALOG_LIST), XmNitems, &items,
                                        XmNitemCount, &count, nullptr);
                          std::vector<std::string> names;
                          for (int i = 0; i < count; ++i) names.push_back(fs::path(x11_text(items[i])).filename());
                          listings.push_back(names);
                        }};

// The entry of a menu or of one of its panes with the label.
Widget entry_labelled(Widget menu, const std::string& label) {
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(menu, XmNchildren, &children, XmNnumChildren, &count, nullptr);
  for (Cardinal i = 0; i < count; ++i) {
    if (XmIsPushButton(children[i]) && label_of(children[i]) == label) return children[i];
    Widget pane = nullptr;
    if (XmIsCascadeButton(children[i])) XtVaGetValues(children[i], XmNsubMenuId, &pane, nullptr);
    if (Widget w = pane ? entry_labelled(pane, label) : nullptr) return w;
  }
  return nullptr;
}

// An entry of the file list's popup menu, on the file named (or none).
step popup(const std::string& label, const std::string& file = "") {
  return {"selector", [label, file](Widget box) {
            if (!file.empty()) type_into(box, file);
            Widget list = XmFileSelectionBoxGetChild(box, XmDIALOG_LIST);
            Widget entry = entry_labelled(XtNameToWidget(list, "*popup"), label);
            ASSERT_NE(entry, nullptr) << label;
            XtCallCallbacks(entry, XmNactivateCallback, nullptr);
          }};
}

// Pairs of description and patterns; without a usable pair, one row of "*".
// The filter is read up to its thousandth character.
TEST(FileFilter, PairsOfDescriptionAndPatterns) {
  const auto two = parse_file_filter("Fourier Output |*.out; *.fout|All files|*|   ");
  ASSERT_EQ(two.size(), 2u);
  EXPECT_EQ(two[0].description, "Fourier Output");
  EXPECT_EQ(two[0].patterns, (std::vector<std::string>{"*.out", "*.fout"}));
  EXPECT_EQ(two[1].patterns, (std::vector<std::string>{"*"}));
  for (const char* bad : {"", "   ", "|", "Only a description|", "No bar at all"}) {
    const auto rows = parse_file_filter(bad);
    ASSERT_EQ(rows.size(), 1u) << bad;
    EXPECT_EQ(rows[0].patterns, (std::vector<std::string>{"*"})) << bad;
  }
  const auto cut = parse_file_filter("Maps|" + std::string(995, 'x') + "yz;*.bin|");
  EXPECT_EQ(cut[0].patterns, (std::vector<std::string>{std::string(995, 'x')}));
}

// The orders the popup menu test below cannot show: by date, equal sizes by
// name, no extension first.
TEST(FileSelection, OrderOfTheList) {
  const std::vector<file_entry> files = {
      {"nacl.bin", 300, 20}, {"kcl.inp", 100, 30}, {"a.map", 300, 10}, {"README", 5, 40}};
  using names = std::vector<std::string>;
  for (const auto& [order, expected] : {std::pair{file_order::date, names{"a.map", "nacl.bin", "kcl.inp", "README"}},
                                        {file_order::size, names{"README", "kcl.inp", "a.map", "nacl.bin"}},
                                        {file_order::extension, names{"README", "nacl.bin", "kcl.inp", "a.map"}}}) {
    std::vector<file_entry> entries = files;
    order_files(entries, order, false);
    names got;
    for (const file_entry& e : entries) got.push_back(e.name);
    EXPECT_EQ(got, expected) << static_cast<int>(order);
  }
}

class X11Modal : public X11Test {
 protected:
  void SetUp() override {
    X11Test::SetUp();
    fs::create_directories(folder);
    std::ofstream(folder / "nacl.bin") << "x";
    box_texts.clear();
    listings.clear();
  }
  void TearDown() override { fs::remove_all(folder); }
  const fs::path folder = fs::temp_directory_path() / ("quelmora-modal-" + std::to_string(getpid()));
};

TEST_F(X11Modal, MessageBoxGivesThePressedButton) {
  for (const auto& [buttons, icon, yes, expected] : {std::tuple{0, 1, true, 1}, {3, 2, true, 1}, {3, 4, false, 2}}) {
    user_does({answer(yes)});
    EXPECT_EQ(x11_message_box(buttons, icon, 1, "Do you want to save the last modifications?", ""), expected)
        << buttons << " " << yes;
  }
}

// OK takes a file only once its checks pass; a message box says why not, and
// the selector stays up. Cancel leaves the name alone.
TEST_F(X11Modal, FileSelectorChecksTheNameBeforeTakingIt) {
  const std::string existing = (folder / "nacl.bin").string(), missing = (folder / "kcl.inp").string();
  const std::string no_folder = (folder / "nowhere" / "kcl.inp").string();
  const std::string replace = existing + " already existsDo you want to replace it?";
  struct row {
    const char* what;
    int flags;
    std::vector<step> user;
    std::string name_after;  // "start": not chosen
    std::vector<std::string> boxes;
  };
  const row rows[] = {
      {"open, existing file", 10, {selector_ok(existing)}, existing, {}},
      {"open, cancelled", 10, {selector_cancel}, "start", {}},
      {"open, a folder", 10, {selector_ok(folder.string()), selector_cancel}, "start", {}},
      {"open, missing file", 10, {selector_ok(missing), answer(true), selector_cancel}, "start",
       {missing + "File not found."}},
      {"open, missing folder", 10, {selector_ok(no_folder), answer(true), selector_cancel}, "start",
       {no_folder + "Path does not exist."}},
      {"save, new file", 11, {selector_ok(missing)}, missing, {}},
      {"save, missing folder", 11, {selector_ok(no_folder), answer(true), selector_cancel}, "start",
       {no_folder + "Path does not exist."}},
      {"save, existing file, No then Yes", 11,
       {selector_ok(existing), answer(false), selector_ok(existing), answer(true)}, existing, {replace, replace}},
  };
  for (const row& r : rows) {
    std::string name = "start";
    box_texts.clear();
    user_does(r.user);
    EXPECT_EQ(x11_select_file("Fourier files|*.inp;*.bin|", r.flags, name, "Title"), r.name_after != "start")
        << r.what;
    EXPECT_EQ(name, r.name_after) << r.what;
    EXPECT_EQ(box_texts, r.boxes) << r.what;
    EXPECT_TRUE(steps.empty()) << r.what << ": every step was taken";
  }
}

// The popup menu of the file list: order, hidden files, deletion.
TEST_F(X11Modal, FileListPopupOrdersShowsAndDeletes) {
  std::ofstream(folder / "b.inp") << std::string(30, 'x');
  std::ofstream(folder / "a.map") << std::string(20, 'x');
  std::ofstream(folder / ".hidden.inp") << "x";
  std::ofstream(folder / "notes.txt") << "x";  // matches no pattern of the filter
  const std::string a_map = (folder / "a.map").string();
  std::string name = folder.string() + "/";
  user_does({look_at_list, popup("Size"), look_at_list, popup("Reverse"), look_at_list, popup("Extension"),
             popup("Reverse"), popup("Show hidden"), look_at_list, popup("Delete", a_map), answer(false),
             look_at_list, popup("Delete", a_map), answer(true), look_at_list, popup("Name"),
             popup("Show hidden"), look_at_list, selector_cancel});
  EXPECT_FALSE(x11_select_file("Maps|*.inp;*.bin;*.map|", 10, name, "Title"));
  using names = std::vector<std::string>;
  const std::vector<names> expected = {
      {"a.map", "b.inp", "nacl.bin"},                 // by name, no hidden files
      {"nacl.bin", "a.map", "b.inp"},                 // by size: 1, 20 and 30 bytes
      {"b.inp", "a.map", "nacl.bin"},                 // reversed
      {"nacl.bin", ".hidden.inp", "b.inp", "a.map"},  // by extension, hidden shown
      {"nacl.bin", ".hidden.inp", "b.inp", "a.map"},  // No to the deletion
      {"nacl.bin", ".hidden.inp", "b.inp"},           // Yes to it
      {"b.inp", "nacl.bin"},                          // by name, hidden off
  };
  EXPECT_EQ(listings, expected);
  EXPECT_EQ(box_texts, (names{"Delete 'a.map' ?", "Delete 'a.map' ?"}));
  EXPECT_FALSE(fs::exists(folder / "a.map"));
}

// OK takes the sliders' colour, Cancel keeps the one given.
TEST_F(X11Modal, ColourFromTheSliders) {
  user_does({{"colour", [](Widget box) {
                XmScaleSetValue(XtNameToWidget(box, "*component"), 200);  // red
                press(box, true);
              }}});
  std::int32_t r = 10, g = 20, b = 30;
  wselectcolour1(r, g, b);
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{200, 20, 30}));
  user_does({{"colour", [](Widget box) { press(box, false); }}});
  std::int32_t packed = 0x123456;
  wselectcolour2(packed);
  EXPECT_EQ(winfodialog(4), 2);
  EXPECT_EQ(packed, 0x123456);
}

TEST_F(X11Modal, DirectoryChosenBecomesCurrentAndPrintOptionsAnswer) {
  std::string start;
  iosdirname(start);
  user_does({{"directory", [this](Widget box) {
                XmString s = XmStringCreateLocalized(const_cast<char*>(folder.c_str()));
                XtVaSetValues(box, XmNdirectory, s, nullptr);
                XmStringFree(s);
                press(box, true);
              }}});
  std::string name = start;
  wselectdir(64, name, "Working Directory");
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ(fs::path(name), folder);
  std::string now;
  iosdirname(now);
  EXPECT_EQ(fs::path(now), fs::canonical(folder));
  iosdirchange(start);

  user_does({{"hardcopy", [](Widget box) { press(box, true); }}});
  whardcopyoptionstext();
  EXPECT_EQ(winfodialog(4), 1);
}

// The listing fills the child window, read only, control characters shown as "?".
TEST_F(X11Modal, ListingInTheChildWindow) {
  std::ofstream(folder / "nacl.fout") << "Sintrel listing\n\tR = 0.05\x07\n";
  std::int32_t child = 0;
  windowopenchild2(child, "View of calculations");
  weditfile((folder / "nacl.fout").string(), 2, 0, 6, 1);
  Widget view = XtNameToWidget(x11_child_client_area(child), "*listing");
  ASSERT_NE(view, nullptr);
  char* text = XmTextGetString(view);
  EXPECT_STREQ(text, "Sintrel listing\n\tR = 0.05?\n");
  XtFree(text);
  Dimension area_width = 0, area_height = 0, width = 0, height = 0;
  XtVaGetValues(x11_child_client_area(child), XmNwidth, &area_width, XmNheight, &area_height, nullptr);
  XtVaGetValues(XtParent(view), XmNwidth, &width, XmNheight, &height, nullptr);
  EXPECT_EQ(width, area_width);
  EXPECT_EQ(height, area_height);
  Boolean editable = True;
  XtVaGetValues(view, XmNeditable, &editable, nullptr);
  EXPECT_FALSE(editable);
  windowclosechild(child);
}

}  // namespace
