#include "toolkit/x11/x11_selector_list.h"

#include <Xm/FileSB.h>
#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>

#include "toolkit/core/resources.h"
#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_menubar.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_prompt.h"
#include "toolkit/x11/x11_strings.h"

namespace {

// The listing as the popup menu set it, for the one selector open at a time.
struct listing_type {
  Widget selector = nullptr;
  bool show_hidden = false;
  file_order order = file_order::name;
  bool reverse = false;
};

listing_type listing;

std::string extension_of(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? "" : name.substr(dot + 1);
}

std::string selected_path() { return x11_widget_text(listing.selector, XmNtextString); }

std::string current_directory() {
  const std::string directory = x11_widget_text(listing.selector, XmNdirectory);
  return directory.empty() ? "./" : directory;
}

bool is_file(const std::string& path) {
  struct stat st {};
  return stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

std::string base_name(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

void refresh() { XmFileSelectionDoSearch(listing.selector, nullptr); }

void failed(const std::string& what) { x11_message_box(0, 1, 1, what, "Error Message"); }

void rename_selected(const std::string& path) {
  const auto name = x11_prompt("Rename", "New name:", base_name(path));
  if (!name || name->empty() || name->find('/') != std::string::npos) return;
  const std::string target = path.substr(0, path.size() - base_name(path).size()) + *name;
  if (std::rename(path.c_str(), target.c_str()) != 0) failed("Cannot rename " + path);
  refresh();
}

void delete_selected(const std::string& path) {
  if (x11_message_box(3, 2, 2, "Delete '" + base_name(path) + "' ?", "Confirm") != 1) return;
  if (unlink(path.c_str()) != 0) failed("Cannot delete " + path);
  refresh();
}

void show_properties(const std::string& path) {
  struct stat st {};
  if (stat(path.c_str(), &st) != 0) return;
  char when[64] = "";
  std::strftime(when, sizeof when, "%Y-%m-%d %H:%M", std::localtime(&st.st_mtime));
  x11_message_box(0, 4, 1,
                  path + "\nSize: " + std::to_string(static_cast<long long>(st.st_size)) +
                      " bytes\nModified: " + when,
                  "Properties");
}

void make_directory() {
  const auto name = x11_prompt("New directory", "Name:", "");
  if (!name || name->empty()) return;
  const std::string path = current_directory() + *name;
  if (mkdir(path.c_str(), 0755) != 0) failed("Cannot create " + path);
  refresh();
}

void chosen(int id) {
  const std::string path = selected_path();
  const bool on_file = is_file(path);
  switch (id) {
    case 32101: {  // Select: as the OK button
      XmAnyCallbackStruct cb{};
      cb.reason = XmCR_OK;
      XtCallCallbacks(listing.selector, XmNokCallback, &cb);
      return;
    }
    case 32102: if (on_file) rename_selected(path); return;
    case 32103: if (on_file) delete_selected(path); return;
    case 32104: if (on_file) show_properties(path); return;
    case 32105: make_directory(); return;
    case 32106: listing.show_hidden = !listing.show_hidden; break;
    case 32108: listing.order = file_order::name; break;
    case 32109: listing.order = file_order::date; break;
    case 32110: listing.order = file_order::size; break;
    case 32111: listing.order = file_order::extension; break;
    case 32112: listing.reverse = !listing.reverse; break;
    case 32113: break;
    default: return;
  }
  refresh();
}

// The third button over the list selects the row under the pointer and opens
// the menu there.
void post_popup(Widget list, XtPointer popup, XEvent* event, Boolean*) {
  if (event->type != ButtonPress || event->xbutton.button != Button3) return;
  const int position = XmListYToPos(list, static_cast<Position>(event->xbutton.y));
  if (position > 0) XmListSelectPos(list, position, True);
  XmMenuPosition(static_cast<Widget>(popup), &event->xbutton);
  XtManageChild(static_cast<Widget>(popup));
}

}  // namespace

void order_files(std::vector<file_entry>& entries, file_order order, bool reverse) {
  auto key_less = [order](const file_entry& a, const file_entry& b) {
    switch (order) {
      case file_order::date:
        if (a.modified != b.modified) return a.modified < b.modified;
        break;
      case file_order::size:
        if (a.size != b.size) return a.size < b.size;
        break;
      case file_order::extension: {
        const std::string ea = extension_of(a.name), eb = extension_of(b.name);
        if (ea != eb) return ea < eb;
        break;
      }
      case file_order::name:
        break;
    }
    return a.name < b.name;
  };
  std::sort(entries.begin(), entries.end(), key_less);
  if (reverse) std::reverse(entries.begin(), entries.end());
}

std::vector<std::string> x11_selector_files(const std::string& directory,
                                            const std::vector<std::string>& patterns) {
  std::vector<file_entry> entries;
  if (DIR* d = opendir(directory.c_str())) {
    while (const dirent* entry = readdir(d)) {
      const std::string name = entry->d_name;
      struct stat st {};
      if (name == "." || name == "..") continue;
      if (name[0] == '.' && !listing.show_hidden) continue;
      if (stat((directory + name).c_str(), &st) != 0 || S_ISDIR(st.st_mode)) continue;
      if (!file_matches(name, patterns)) continue;
      entries.push_back({name, static_cast<long long>(st.st_size), static_cast<long long>(st.st_mtime)});
    }
    closedir(d);
  }
  order_files(entries, listing.order, listing.reverse);
  std::vector<std::string> names;
  for (const file_entry& e : entries) names.push_back(e.name);
  return names;
}

void x11_selector_popup_attach(Widget selector) {
  listing = listing_type{selector};
  const menu_type* menu = find_menu(32125);
  if (menu == nullptr) return;
  Widget list = XmFileSelectionBoxGetChild(selector, XmDIALOG_LIST);
  Widget popup = XmCreatePopupMenu(list, const_cast<char*>("popup"), nullptr, 0);
  std::map<int, Widget> items;
  x11_menu_fill(popup, *menu, chosen, items);
  XtAddEventHandler(list, ButtonPressMask, False, post_popup, popup);
}
