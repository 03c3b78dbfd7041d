// The file list of the selector: which files it shows, in which order, and
// its popup menu (catalogue menu 32125): Select, Rename, Delete, Properties,
// New directory, Show hidden, Order and Refresh.
#pragma once

#include <Xm/Xm.h>

#include <string>
#include <vector>

struct file_entry {
  std::string name;
  long long size = 0;
  long long modified = 0;  // seconds since the epoch
};

enum class file_order { name, date, size, extension };

// Sorts the entries by the key, ties by name; `reverse` turns the whole list.
void order_files(std::vector<file_entry>& entries, file_order order, bool reverse);

// The files of the directory (ending in "/") that match one of the patterns,
// hidden ones only when asked for, in the order chosen in the popup menu.
std::vector<std::string> x11_selector_files(const std::string& directory,
                                            const std::vector<std::string>& patterns);

// Gives the selector box its popup menu on the file list, with the list
// shown in name order and without hidden files.
void x11_selector_popup_attach(Widget selector);
