// The modal boxes of the X11 face, answered from inside their own event loops
// as a user would: message boxes, the file selector with its checks and its
// popup menu, the colour and directory selectors, the print options box; and
// the listing view of a child window.
#include <gtest/gtest.h>

#include <Xm/CascadeB.h>
#include <Xm/ComboBox.h>
#include <Xm/FileSB.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <X11/keysym.h>
#include <unistd.h>

#include <chrono>
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
#include "toolkit/x11/x11_root_window.h"

namespace fs = std::filesystem;
namespace {

// What the user does: once the box named first is up, the second acts on it.
using step = std::pair<const char*, std::function<void(Widget)>>;
std::deque<step> steps;
std::vector<std::string> box_texts;              // what the message boxes said, lines joined
std::vector<std::vector<std::string>> listings;  // the selector's file lists looked at

// Runs in the loop of whichever box is up. The next step is due when a loop
// runs again, which may be the loop of a box this step opens.
void next_step(XtPointer, XtIntervalId*) {
  static int polls = 0;
  if (steps.empty()) return;
  Widget box = XtNameToWidget(x11_root_shell(), (std::string("*") + steps.front().first).c_str());
  const bool up = box != nullptr && XtIsManaged(box);
  if (!up && ++polls > 1000) {  // five seconds: the box never came, the loop would wait for ever
    ADD_FAILURE() << "no box named " << steps.front().first;
    std::abort();
  }
  const step now = up ? steps.front() : step{};
  if (up) steps.pop_front();
  if (!steps.empty()) XtAppAddTimeOut(x11_app(), 5, next_step, nullptr);
  if (up) now.second(box);
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

// A text of the box: the Selection field (XmNtextString) or the directory.
void type_into(Widget box, const std::string& text, const char* resource = XmNtextString) {
  XmString s = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
  XtVaSetValues(box, resource, s, nullptr);
  XmStringFree(s);
}

step answer(bool yes) {
  return {"message", [yes](Widget box) {
            XmString s = nullptr;
            XtVaGetValues(box, XmNmessageString, &s, nullptr);
            char* text = static_cast<char*>(XmStringUnparse(s, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
            box_texts.emplace_back(text);
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
                          XtVaGetValues(XmFileSelectionBoxGetChild(box, XmDIALOG_LIST), XmNitems, &items, XmNitemCount, &count, nullptr);
                          listings.emplace_back();
                          for (int i = 0; i < count; ++i) listings.back().push_back(fs::path(x11_text(items[i])).filename());
                        }};

// The entry with the label, in a menu or one of its panes.
Widget entry_labelled(Widget menu, const std::string& label) {
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(menu, XmNchildren, &children, XmNnumChildren, &count, nullptr);
  for (Widget w : std::vector<Widget>(children, children + count)) {
    Widget pane = nullptr;
    if (XmIsCascadeButton(w)) XtVaGetValues(w, XmNsubMenuId, &pane, nullptr);
    if (Widget found = XmIsPushButton(w) && label_of(w) == label ? w : pane ? entry_labelled(pane, label) : nullptr) return found;
  }
  return nullptr;
}

// An entry of the file list's popup menu, on the file named (or none).
step popup(const std::string& label, const std::string& file = "") {
  return {"selector", [label, file](Widget box) {
            if (!file.empty()) type_into(box, file);
            Widget entry = entry_labelled(XtNameToWidget(XmFileSelectionBoxGetChild(box, XmDIALOG_LIST), "*popup"), label);
            ASSERT_NE(entry, nullptr) << label;
            XtCallCallbacks(entry, XmNactivateCallback, nullptr);
          }};
}

// The selector shows the patterns of the first pair, read up to the
// thousandth character; without a usable pair, "*".
TEST(FileFilter, PatternsOfTheFirstPair) {
  using patterns = std::vector<std::string>;
  EXPECT_EQ(parse_file_filter("Fourier Output |*.out; *.fout;|All files|*|   ")[0].patterns, (patterns{"*.out", "*.fout"}));
  EXPECT_EQ(parse_file_filter("Maps|" + std::string(995, 'x') + "yz;*.bin|")[0].patterns, patterns{std::string(995, 'x')});
  for (const char* bad : {"", "|", "Only a description|", "No bar at all"}) {
    EXPECT_EQ(parse_file_filter(bad).size(), 1u) << bad;
    EXPECT_EQ(parse_file_filter(bad)[0].patterns, patterns{"*"}) << bad;
  }
}

class X11Modal : public X11Test {
 protected:
  void SetUp() override {
    X11Test::SetUp();
    fs::create_directories(folder);
    std::ofstream(folder / "nacl.bin") << "x";
  }
  void TearDown() override { fs::remove_all(folder); }
  const fs::path folder = fs::temp_directory_path() / ("quelmora-modal-" + std::to_string(getpid()));
};

// OK takes a file only once its checks pass; a message box says why not, and
// the selector stays up. Cancel leaves the name alone.
TEST_F(X11Modal, FileSelectorChecksTheNameBeforeTakingIt) {
  const std::string existing = (folder / "nacl.bin").string(), missing = (folder / "kcl.inp").string();
  const std::string no_folder = (folder / "nowhere" / "kcl.inp").string();
  const std::string replace = existing + " already existsDo you want to replace it?", none = "start";
  using texts = std::vector<std::string>;
  // Open (flags 10) or save (11), the user's steps, the name after, the boxes' texts.
  for (const auto& [flags, user, name_after, boxes] : {
           std::tuple{10, std::vector{selector_ok(existing)}, existing, texts{}}, {10, std::vector{selector_cancel}, none, texts{}},
           {10, std::vector{selector_ok(folder.string()), selector_ok(""), selector_cancel}, none, texts{}},  // no file: stays up
           {10, std::vector{selector_ok(missing), answer(true), selector_cancel}, none, texts{missing + "File not found."}},
           {10, std::vector{selector_ok(no_folder), answer(true), selector_cancel}, none, texts{no_folder + "Path does not exist."}},
           {11, std::vector{selector_ok(missing)}, missing, texts{}},
           {11, std::vector{selector_ok(no_folder), answer(true), selector_cancel}, none, texts{no_folder + "Path does not exist."}},
           {11, std::vector{selector_ok(existing), answer(false), selector_ok(existing), answer(true)}, existing, texts{replace, replace}}}) {
    std::string name = none;
    box_texts.clear();
    user_does(user);
    EXPECT_EQ(x11_select_file("Fourier files|*.inp;*.bin|", flags, name, "Title"), name_after != none) << name_after;
    EXPECT_EQ(name, name_after);
    EXPECT_EQ(box_texts, boxes) << flags << " " << name_after;
    EXPECT_TRUE(steps.empty()) << "every step was taken";
  }
}

TEST_F(X11Modal, FileListPopupOrdersShowsAndDeletes) {
  for (const auto& [file, size] : {std::pair{"b.inp", 20}, {"a.map", 20}, {"README", 5}, {".hidden.inp", 1}, {"notes.txt", 1}}) {
    std::ofstream(folder / file) << std::string(size, 'x');  // notes.txt matches no pattern of the filter
  }
  const auto now = fs::file_time_type::clock::now();
  for (const auto& [file, age] : {std::pair{"b.inp", 1}, {"nacl.bin", 1}, {"README", 0}, {"a.map", 0}}) {
    fs::last_write_time(folder / file, now - std::chrono::hours(age));
  }
  const std::string a_map = (folder / "a.map").string();
  std::string name = folder.string() + "/";
  user_does({look_at_list, popup("Size"), look_at_list, popup("Reverse"), look_at_list, popup("Date"), popup("Reverse"),
             look_at_list, popup("Extension"), popup("Show hidden"), look_at_list, popup("Delete", a_map), answer(false), look_at_list,
             popup("Delete", a_map), answer(true), look_at_list, popup("Name"), popup("Show hidden"), look_at_list,
             selector_cancel});
  box_texts.clear();
  EXPECT_FALSE(x11_select_file("Maps|*.inp;*.bin;*.map;README|", 10, name, "Title"));
  using names = std::vector<std::string>;
  EXPECT_EQ(listings, (std::vector<names>{
                          {"README", "a.map", "b.inp", "nacl.bin"},                         // by name, no hidden files
                          {"nacl.bin", "README", "a.map", "b.inp"},                         // by size, ties by name
                          {"b.inp", "a.map", "README", "nacl.bin"},                         // reversed
                          {"b.inp", "nacl.bin", "README", "a.map"},                         // by date, oldest first
                          {"README", "nacl.bin", ".hidden.inp", "b.inp", "a.map"},          // by extension, none first
                          {"README", "nacl.bin", ".hidden.inp", "b.inp", "a.map"},          // No to the deletion
                          {"README", "nacl.bin", ".hidden.inp", "b.inp"},                   // Yes to it
                          {"README", "b.inp", "nacl.bin"}}));                               // by name, hidden off
  EXPECT_EQ(box_texts, (names{"Delete 'a.map' ?", "Delete 'a.map' ?"}));
  EXPECT_FALSE(fs::exists(folder / "a.map"));
}

// The type list holds a row for each pair of the filter; choosing a row lists
// the files of its patterns.
TEST_F(X11Modal, TypeListChangesTheFilesShown) {
  for (const char* file : {"a.ccp4", "b.mrc"}) std::ofstream(folder / file) << "x";
  int rows = 0;
  const step choose_second{"selector", [&rows](Widget box) {
                             Widget combo = XtNameToWidget(box, "*type_list");
                             XtVaGetValues(combo, XmNitemCount, &rows, nullptr);
                             XmComboBoxCallbackStruct cb{};
                             cb.reason = XmCR_SELECT;
                             cb.item_position = 2;
                             XtCallCallbacks(combo, XmNselectionCallback, &cb);
                           }};
  std::string name = folder.string() + "/";
  listings.clear();
  user_does({look_at_list, choose_second, look_at_list, selector_cancel});
  EXPECT_FALSE(x11_select_file("Maps|*.bin|CCP4/MRC Map File|*.ccp4;*.mrc;*.map|", 10, name, "Title"));
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(listings, (std::vector<std::vector<std::string>>{{"nacl.bin"}, {"a.ccp4", "b.mrc"}}));
}

// A key pressed in a widget of the box, as the keyboard would send it.
void key(Widget w, KeySym sym, unsigned state = 0) {
  XEvent e{};
  e.xkey = {KeyPress, 0, True, x11_display(), XtWindow(w), DefaultRootWindow(x11_display()), None, CurrentTime,
            1, 1, 1, 1, state, XKeysymToKeycode(x11_display(), sym), True};
  XSendEvent(x11_display(), XtWindow(w), True, KeyPressMask, &e);
  // Handled now, before any later step looks at what it did.
  XSync(x11_display(), False);
  while (XtAppPending(x11_app()) & XtIMXEvent) XtAppProcessEvent(x11_app(), XtIMXEvent);
}

// Ctrl+A in the name field selects the name proposed, so that typing
// replaces it; Escape anywhere in the box cancels it.
TEST_F(X11Modal, CtrlASelectsTheNameAndEscapeCancels) {
  std::string name = (folder / "map.ps").string(), selected;
  const auto text = [](Widget box) { return XmFileSelectionBoxGetChild(box, XmDIALOG_TEXT); };
  user_does({{"selector", [&](Widget box) { key(text(box), XK_a, ControlMask); }},
             {"selector", [&](Widget box) {
                char* s = XmTextFieldGetSelection(text(box));
                selected = s ? s : "";
                XtFree(s);
                key(XmFileSelectionBoxGetChild(box, XmDIALOG_LIST), XK_Escape);
              }}});
  EXPECT_FALSE(x11_select_file("PostScript|*.ps|", 11, name, "Save"));
  EXPECT_EQ(selected, folder.string() + "/map.ps");
  EXPECT_TRUE(steps.empty());
}

// The colour selector: OK takes the sliders' colour, Cancel keeps the one
// given. The directory chosen becomes the current one. The print options box
// answers OK.
TEST_F(X11Modal, SelectorsOfColourAndDirectoryAndPrintOptionsAnswer) {
  std::int32_t r = 10, g = 20, b = 30, packed = 0x123456;
  user_does({{"colour", [](Widget box) {
                XmScaleSetValue(XtNameToWidget(box, "*component"), 200);  // red
                press(box, true);
              }}});
  wselectcolour1(r, g, b);
  EXPECT_EQ(std::tuple(winfodialog(4), r, g, b), std::tuple(1, 200, 20, 30));
  user_does({{"colour", [](Widget box) { press(box, false); }}});
  wselectcolour2(packed);
  EXPECT_EQ(std::pair(winfodialog(4), packed), std::pair(2, 0x123456));

  std::string start, now, name = "/";
  iosdirname(start);
  user_does({{"directory", [this](Widget box) { type_into(box, folder.string(), XmNdirectory); press(box, true); }}});
  wselectdir(64, name, "Working Directory");
  iosdirname(now);
  iosdirchange(start);
  EXPECT_EQ(std::tuple(winfodialog(4), fs::path(name), fs::path(now)), std::tuple(1, folder, fs::canonical(folder)));
  user_does({{"hardcopy", [](Widget box) { press(box, true); }}});
  whardcopyoptionstext();
  EXPECT_EQ(winfodialog(4), 1);
}

// The listing fills the child window, read only, control characters shown as
// "?". The window manager's close button asks to close that child.
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
  Boolean editable = True;
  XtVaGetValues(x11_child_client_area(child), XmNwidth, &area_width, XmNheight, &area_height, nullptr);
  XtVaGetValues(XtParent(view), XmNwidth, &width, XmNheight, &height, nullptr);
  XtVaGetValues(view, XmNeditable, &editable, nullptr);
  EXPECT_EQ(std::tuple(width, height, editable), std::tuple(area_width, area_height, False));
  ask_to_close(x11_display(), XtWindow(XtParent(x11_child_client_area(child))));
  settle();
  std::int32_t type = 0;
  message_record r;
  while (x11_take(type, r) && type != msg_close_request) {}
  EXPECT_EQ(std::pair(type, r.win), std::pair(msg_close_request, child));
  windowclosechild(child);
}

}  // namespace
