#include "toolkit/x11/x11_file_selector.h"

#include <Xm/ComboBox.h>
#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <algorithm>

#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_modal.h"
#include "toolkit/x11/x11_selector_list.h"
#include "toolkit/x11/x11_strings.h"

namespace {

constexpr std::size_t max_filter_length = 1000;
constexpr int save_flag = 1;
// Wide enough for the full paths of a data folder.
constexpr int selector_width = 560;
constexpr int selector_height = 440;

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(separator, start);
    parts.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) return parts;
    start = end + 1;
  }
}

std::string trimmed(const std::string& s) {
  const auto first = s.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

bool is_directory(const std::string& path) {
  struct stat st {};
  return stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

// The directory of the name given, ending in "/", or the current one when the
// name has none or it does not exist.
std::string start_directory(const std::string& name) {
  const std::string start = trimmed(name);
  const std::size_t slash = start.rfind('/');
  if (slash == std::string::npos) return "./";
  // A name right under the root keeps its slash as the directory.
  const std::string directory = start.substr(0, std::max<std::size_t>(slash, 1));
  if (!is_directory(directory)) return "./";
  return directory.back() == '/' ? directory : directory + "/";
}

struct selector_state {
  bool save = false;
  int answer = 0;
  std::string path;  // what OK confirmed
  std::vector<file_filter_type> rows;  // the type list
};

std::string joined_patterns(const file_filter_type& row) {
  std::string text;
  for (const std::string& p : row.patterns) text += (text.empty() ? "" : ";") + p;
  return text;
}

// A row chosen in the type list: its patterns go into the Filter field and
// the file list is searched again.
void type_chosen(Widget combo, XtPointer data, XtPointer call) {
  const auto* state = static_cast<const selector_state*>(data);
  const int row = static_cast<XmComboBoxCallbackStruct*>(call)->item_position;
  if (row < 1 || row > static_cast<int>(state->rows.size())) return;
  Widget fsb = XtParent(XtParent(combo));
  XmString pattern = XmStringCreateLocalized(const_cast<char*>(joined_patterns(state->rows[row - 1]).c_str()));
  XtVaSetValues(fsb, XmNpattern, pattern, nullptr);
  XmStringFree(pattern);
  XmFileSelectionDoSearch(fsb, nullptr);
}

// The type list under the file list: one row a pair of the filter, the
// description with its patterns, the first row chosen.
void add_type_list(Widget fsb, selector_state& state) {
  Widget row = XtVaCreateManagedWidget("types", xmRowColumnWidgetClass, fsb, XmNorientation, XmHORIZONTAL, nullptr);
  XtVaCreateManagedWidget(state.save ? "Save as type" : "Files of type", xmLabelWidgetClass, row, nullptr);
  std::vector<XmString> items;
  std::size_t columns = 0;  // wide enough for the longest row
  for (const file_filter_type& r : state.rows) {
    const std::string text = r.description + " (" + joined_patterns(r) + ")";
    columns = std::max(columns, text.size());
    items.push_back(XmStringCreateLocalized(const_cast<char*>(text.c_str())));
  }
  Widget combo = XtVaCreateManagedWidget("type_list", xmComboBoxWidgetClass, row, XmNcomboBoxType, XmDROP_DOWN_LIST,
                                         XmNitems, items.data(), XmNitemCount, static_cast<int>(items.size()),
                                         XmNvisibleItemCount, static_cast<int>(std::min<std::size_t>(items.size(), 8)),
                                         XmNcolumns, static_cast<short>(std::min<std::size_t>(columns, 60)),
                                         XmNselectedPosition, 0, nullptr);
  for (XmString s : items) XmStringFree(s);
  XtAddCallback(combo, XmNselectionCallback, type_chosen, &state);
}

// Lists the files of the directory that match the patterns of the Filter
// field, separated by ";": Motif's own search knows only one pattern.
// Order and hidden files follow the list's popup menu.
void search_files(Widget fsb, XtPointer call) {
  auto* cb = static_cast<XmFileSelectionBoxCallbackStruct*>(call);
  std::string directory = x11_text(cb->dir);
  if (directory.empty()) directory = "./";
  std::vector<std::string> patterns;
  for (const std::string& p : split(x11_text(cb->pattern), ';')) {
    if (!trimmed(p).empty()) patterns.push_back(trimmed(p));
  }
  if (patterns.empty()) patterns.push_back("*");

  std::vector<XmString> items;
  for (const std::string& n : x11_selector_files(directory, patterns)) {
    items.push_back(XmStringCreateLocalized(const_cast<char*>((directory + n).c_str())));
  }
  XtVaSetValues(fsb, XmNfileListItems, items.data(), XmNfileListItemCount,
                static_cast<int>(items.size()), XmNlistUpdated, True, nullptr);
  for (XmString s : items) XmStringFree(s);
}

// Whether the user still wants the path after the messages its check asks
// for; the selector stays open when not.
bool confirmed(const std::string& path, bool save) {
  switch (check_selection(path, save)) {
    case selection_check::accept:
      return true;
    case selection_check::not_a_file:
      return false;
    case selection_check::not_found:
      x11_message_box(0, 3, 1, path + "\nFile not found.", "");
      return false;
    case selection_check::no_path:
      x11_message_box(0, 3, 1, path + "\nPath does not exist.", "");
      return false;
    case selection_check::ask_replace:
      return x11_message_box(3, 3, 2, path + " already exists\nDo you want to replace it?", "") == 1;
  }
  return false;
}

void pressed(Widget fsb, XtPointer data, XtPointer call) {
  auto* state = static_cast<selector_state*>(data);
  if (static_cast<XmAnyCallbackStruct*>(call)->reason != XmCR_OK) {
    state->answer = 2;
    return;
  }
  const std::string path = trimmed(x11_widget_text(fsb, XmNtextString));
  if (!confirmed(path, state->save)) return;
  state->path = path;
  state->answer = 1;
}

// The start name's file part, in the start directory, stands in the
// selection, so that Save without typing takes the name the program proposed.
void propose_name(Widget fsb, const std::string& directory, const std::string& name) {
  const std::string given = trimmed(name);
  const std::string file = given.substr(given.rfind('/') == std::string::npos ? 0 : given.rfind('/') + 1);
  if (file.empty()) return;
  XmString selection = XmStringCreateLocalized(const_cast<char*>((directory + file).c_str()));
  XtVaSetValues(fsb, XmNdirSpec, selection, nullptr);
  XmStringFree(selection);
}

}  // namespace

std::vector<file_filter_type> parse_file_filter(const std::string& filter) {
  const std::string text = trimmed(filter.substr(0, max_filter_length));
  std::vector<std::string> items = split(text, '|');
  std::vector<file_filter_type> rows;
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    if (trimmed(items[i + 1]).empty()) continue;
    file_filter_type row{trimmed(items[i]), {}};
    for (const std::string& p : split(items[i + 1], ';')) {
      if (!trimmed(p).empty()) row.patterns.push_back(trimmed(p));
    }
    rows.push_back(row);
  }
  if (rows.empty()) rows.push_back({"", {"*"}});
  return rows;
}

bool file_matches(const std::string& name, const std::vector<std::string>& patterns) {
  return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& p) {
    return fnmatch(p.c_str(), name.c_str(), 0) == 0;
  });
}

selection_check check_selection(const std::string& path, bool save) {
  if (path.empty() || is_directory(path)) return selection_check::not_a_file;
  const std::size_t slash = path.rfind('/');
  const std::string directory =
      slash == std::string::npos ? "." : path.substr(0, std::max<std::size_t>(slash, 1));
  if (!is_directory(directory)) return selection_check::no_path;
  struct stat st {};
  const bool exists = stat(path.c_str(), &st) == 0;
  if (save) return exists ? selection_check::ask_replace : selection_check::accept;
  return exists ? selection_check::accept : selection_check::not_found;
}

bool x11_select_file(const std::string& filter, int flags, std::string& name,
                     const std::string& title) {
  selector_state state;
  state.save = flags & save_flag;
  // The first row of the filter is the one shown; its patterns go into the
  // Filter field, where the user may change them.
  state.rows = parse_file_filter(filter);
  const std::string pattern_text = joined_patterns(state.rows.front());

  const std::string directory = start_directory(name);

  Widget parent = x11_modal_parent();
  XmString dir = XmStringCreateLocalized(const_cast<char*>(directory.c_str()));
  XmString ok = XmStringCreateLocalized(const_cast<char*>(state.save ? "Save" : "Open"));
  XmString pattern = XmStringCreateLocalized(const_cast<char*>(pattern_text.c_str()));
  Arg args[] = {
      {const_cast<char*>(XmNdirectory), reinterpret_cast<XtArgVal>(dir)},
      {const_cast<char*>(XmNokLabelString), reinterpret_cast<XtArgVal>(ok)},
      {const_cast<char*>(XmNpattern), reinterpret_cast<XtArgVal>(pattern)},
      {const_cast<char*>(XmNwidth), static_cast<XtArgVal>(selector_width)},
      {const_cast<char*>(XmNheight), static_cast<XtArgVal>(selector_height)},
      {const_cast<char*>(XmNfileSearchProc), reinterpret_cast<XtArgVal>(search_files)},
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
      // A new search (Filter) must not shrink the box to its lists' widths.
      {const_cast<char*>(XmNresizePolicy), static_cast<XtArgVal>(XmRESIZE_GROW)},
  };
  Widget fsb = XmCreateFileSelectionDialog(parent, const_cast<char*>("selector"), args, XtNumber(args));
  XmStringFree(dir);
  XmStringFree(ok);
  XmStringFree(pattern);
  // The first letters of Open and Save are their mnemonics.
  XtVaSetValues(XmFileSelectionBoxGetChild(fsb, XmDIALOG_OK_BUTTON), XmNmnemonic,
                static_cast<KeySym>(state.save ? 'S' : 'O'), nullptr);
  XtVaSetValues(XtParent(fsb), XmNtitle, title.empty() ? " " : title.c_str(), nullptr);
  XtUnmanageChild(XmFileSelectionBoxGetChild(fsb, XmDIALOG_HELP_BUTTON));
  add_type_list(fsb, state);
  propose_name(fsb, directory, name);
  XtAddCallback(fsb, XmNokCallback, pressed, &state);
  XtAddCallback(fsb, XmNcancelCallback, pressed, &state);
  x11_selector_popup_attach(fsb);
  x11_wait_modal(fsb, &state.answer);

  XtDestroyWidget(XtParent(fsb));
  if (state.answer != 1) return false;
  name = state.path;
  return true;
}
