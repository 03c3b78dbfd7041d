// The modal box and file selector of the X11 face, answered from inside
// their own event loop as a user would: a choice, OK or Cancel.
#include <gtest/gtest.h>

#include <Xm/CascadeB.h>
#include <Xm/FileSB.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/MessageB.h>
#include <Xm/Xm.h>

#include <deque>
#include <filesystem>
#include <fstream>

#include "toolkit/messages/window.h"
#include "tests/toolkit/gui/x11_fixture.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

// What the user does once a box is up: which callback to call, and for the
// selector the text typed into the Selection field first.
struct user_action {
  const char* widget;    // name of the box; "popup" an entry of the list's menu, "list" a look at the list
  const char* callback;  // XmNokCallback or XmNcancelCallback; the label for "popup"
  int reason;
  std::string typed;     // selector only; empty: leave the field alone
};

std::deque<user_action> pending;
std::vector<std::string> box_texts;  // texts of the message boxes met

std::string message_text(Widget box) {
  XmString s = nullptr;
  XtVaGetValues(box, XmNmessageString, &s, nullptr);
  // All the lines, joined without their breaks.
  char* text = static_cast<char*>(
      XmStringUnparse(s, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
  std::string out = text ? text : "";
  XtFree(text);
  XmStringFree(s);
  return out;
}

std::vector<std::vector<std::string>> listings;  // file lists seen by "list" actions


// The entry of the selector's popup menu (or of its Order pane) with the label.
Widget popup_entry(Widget menu, const std::string& label) {
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(menu, XmNchildren, &children, XmNnumChildren, &count, nullptr);
  for (Cardinal i = 0; i < count; ++i) {
    if (XmIsPushButton(children[i]) && label_of(children[i]) == label) return children[i];
    Widget pane = nullptr;
    if (XmIsCascadeButton(children[i])) XtVaGetValues(children[i], XmNsubMenuId, &pane, nullptr);
    if (pane != nullptr) {
      if (Widget w = popup_entry(pane, label)) return w;
    }
  }
  return nullptr;
}

// The names in the selector's file list, without their folder.
std::vector<std::string> listed_files(Widget selector) {
  Widget list = XmFileSelectionBoxGetChild(selector, XmDIALOG_LIST);
  XmStringTable items = nullptr;
  int count = 0;
  XtVaGetValues(list, XmNitems, &items, XmNitemCount, &count, nullptr);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    char* text = nullptr;
    XmStringGetLtoR(items[i], XmFONTLIST_DEFAULT_TAG, &text);
    const std::string path = text ? text : "";
    XtFree(text);
    names.push_back(path.substr(path.rfind('/') + 1));
  }
  return names;
}

void act(XtPointer, XtIntervalId*) {
  if (pending.empty()) return;
  const user_action action = pending.front();
  pending.pop_front();
  // The next action is due when the loop runs again, which may be the loop of
  // a box this action opens.
  if (!pending.empty()) XtAppAddTimeOut(x11_app(), 0, act, nullptr);
  const std::string kind = action.widget;
  if (kind == "list") {
    listings.push_back(listed_files(XtNameToWidget(x11_root_shell(), "*selector")));
    return;
  }
  if (kind == "popup") {
    // The selection text names the file the entry acts on; the label is the entry.
    Widget selector = XtNameToWidget(x11_root_shell(), "*selector");
    Widget popup = XtNameToWidget(XmFileSelectionBoxGetChild(selector, XmDIALOG_LIST), "*popup");
    ASSERT_NE(popup, nullptr);
    Widget entry = popup_entry(popup, action.callback);
    ASSERT_NE(entry, nullptr) << action.callback;
    if (!action.typed.empty()) {
      XmString s = XmStringCreateLocalized(const_cast<char*>(action.typed.c_str()));
      XtVaSetValues(selector, XmNtextString, s, nullptr);
      XmStringFree(s);
    }
    XtCallCallbacks(entry, XmNactivateCallback, nullptr);
    return;
  }
  Widget box = XtNameToWidget(x11_root_shell(), (std::string("*") + action.widget).c_str());
  ASSERT_NE(box, nullptr) << action.widget;
  if (std::string(action.widget) == "message") box_texts.push_back(message_text(box));
  if (!action.typed.empty()) {
    XmString s = XmStringCreateLocalized(const_cast<char*>(action.typed.c_str()));
    XtVaSetValues(box, XmNtextString, s, nullptr);
    XmStringFree(s);
  }
  XmAnyCallbackStruct cb{};
  cb.reason = action.reason;
  XtCallCallbacks(box, action.callback, &cb);
}

// Arranges for the actions to happen one by one as the boxes' loops run.
void when_shown(const std::vector<user_action>& actions) {
  pending.assign(actions.begin(), actions.end());
  box_texts.clear();
  listings.clear();
  XtAppAddTimeOut(x11_app(), 0, act, nullptr);
}

const user_action box_ok{"message", XmNokCallback, XmCR_OK, ""};
const user_action look_at_list{"list", "", 0, ""};
// An entry of the file list's popup menu, on the file named (or none).
user_action popup(const char* label, const std::string& file = "") { return {"popup", label, 0, file}; }
const user_action box_no{"message", XmNcancelCallback, XmCR_CANCEL, ""};
const user_action selector_cancel{"selector", XmNcancelCallback, XmCR_CANCEL, ""};
user_action selector_ok(const std::string& typed) { return {"selector", XmNokCallback, XmCR_OK, typed}; }

class X11Modal : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { available = open_program_window(); }
  void SetUp() override {
    if (!available) GTEST_SKIP() << "no X display";
  }
  static bool available;
};

bool X11Modal::available = false;

TEST_F(X11Modal, MessageBoxGivesThePressedButton) {
  struct row {
    int buttons;
    const char* callback;
    int reason;
    int expected;
  };
  const row rows[] = {{0, XmNokCallback, XmCR_OK, 1},
                      {3, XmNokCallback, XmCR_OK, 1},
                      {3, XmNcancelCallback, XmCR_CANCEL, 2}};
  for (const row& r : rows) {
    when_shown({{"message", r.callback, r.reason, ""}});
    EXPECT_EQ(x11_message_box(r.buttons, 2, 1, "Do you want to save the last modifications?", ""),
              r.expected);
  }
}

class X11Selector : public X11Modal {
 protected:
  void SetUp() override {
    X11Modal::SetUp();
    folder = std::filesystem::temp_directory_path() / ("quelmora-selector-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "nacl.bin") << "x";
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::filesystem::path folder;
};

TEST_F(X11Selector, OkGivesTheChosenFileAndCancelKeepsTheName) {
  const std::string filter = "Fourier Input File|*.inp;*.bin;*.asc;*.map|";
  const std::string chosen = (folder / "nacl.bin").string();

  std::string name = folder.string() + "/";
  when_shown({selector_ok(chosen)});
  EXPECT_TRUE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen);

  when_shown({selector_cancel});
  EXPECT_FALSE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen) << "Cancel leaves the name alone";

  // OK on a directory keeps the box open; the user then cancels.
  when_shown({selector_ok(folder.string()), selector_cancel});
  EXPECT_FALSE(x11_select_file(filter, 10, name, "Load Input File"));
  EXPECT_EQ(name, chosen);
  EXPECT_TRUE(box_texts.empty());
}

// The checks of an open box and a save box, each ending as the user answers.
TEST_F(X11Selector, OpenAndSaveBoxesCheckTheName) {
  const std::string existing = (folder / "nacl.bin").string();
  const std::string missing = (folder / "kcl.inp").string();
  const std::string no_folder = (folder / "nowhere" / "kcl.inp").string();
  struct row {
    const char* what;
    int flags;
    std::vector<user_action> actions;
    bool chosen;
    std::string name_after;
    std::vector<std::string> boxes;
  };
  const row rows[] = {
      {"open, missing file", 10, {selector_ok(missing), box_ok, selector_cancel}, false, "start",
       {missing + "File not found."}},
      {"open, missing folder", 10, {selector_ok(no_folder), box_ok, selector_cancel}, false, "start",
       {no_folder + "Path does not exist."}},
      {"save, new file", 11, {selector_ok(missing)}, true, missing, {}},
      {"save, existing file, No then Yes", 11,
       {selector_ok(existing), box_no, selector_ok(existing), box_ok}, true, existing,
       {existing + " already existsDo you want to replace it?",
        existing + " already existsDo you want to replace it?"}},
  };
  for (const row& r : rows) {
    std::string name = "start";
    when_shown(r.actions);
    EXPECT_EQ(x11_select_file("Fourier files|*.inp|", r.flags, name, "Title"), r.chosen) << r.what;
    EXPECT_EQ(name, r.name_after) << r.what;
    EXPECT_EQ(box_texts, r.boxes) << r.what;
    EXPECT_TRUE(pending.empty()) << r.what << ": every action was used";
  }
}

// The popup menu of the file list: order, hidden files, deletion.
TEST_F(X11Selector, PopupMenuOrdersShowsAndDeletes) {
  std::ofstream(folder / "b.inp") << std::string(30, 'x');
  std::ofstream(folder / "a.map") << std::string(20, 'x');
  std::ofstream(folder / ".hidden.inp") << "x";
  // nacl.bin holds 1 byte.
  const std::string filter = "All|*|";
  std::string name = folder.string() + "/";
  when_shown({look_at_list, popup("Size"), look_at_list, popup("Reverse"), look_at_list,
              popup("Extension"), popup("Reverse"), popup("Show hidden"), look_at_list,
              popup("Delete", (folder / "a.map").string()), box_no, look_at_list,
              popup("Delete", (folder / "a.map").string()), box_ok, look_at_list,
              popup("Name"), popup("Show hidden"), look_at_list, selector_cancel});
  EXPECT_FALSE(x11_select_file(filter, 10, name, "Title"));
  EXPECT_TRUE(pending.empty());
  using names = std::vector<std::string>;
  const std::vector<names> expected = {
      {"a.map", "b.inp", "nacl.bin"},                 // by name, no hidden files
      {"nacl.bin", "a.map", "b.inp"},                 // by size
      {"b.inp", "a.map", "nacl.bin"},                 // reversed
      {"nacl.bin", ".hidden.inp", "b.inp", "a.map"},  // by extension, hidden shown
      {"nacl.bin", ".hidden.inp", "b.inp", "a.map"},  // No to the deletion
      {"nacl.bin", ".hidden.inp", "b.inp"},           // Yes to it
      {"b.inp", "nacl.bin"},                          // by name, hidden off
  };
  EXPECT_EQ(listings, expected);
  EXPECT_EQ(box_texts, (names{"Delete 'a.map' ?", "Delete 'a.map' ?"}));
  EXPECT_FALSE(std::filesystem::exists(folder / "a.map"));
}

}  // namespace
