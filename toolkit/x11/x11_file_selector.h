// The modal file selector of the X11 face, on Motif's file selection box.
#pragma once

#include <string>
#include <vector>

// One row of the type list: "Fourier Input File" with its patterns
// "*.inp", "*.bin", ...
struct file_filter_type {
  std::string description;
  std::vector<std::string> patterns;
};

// Splits a filter string of description and pattern list pairs, each item
// followed by "|", patterns separated by ";". A trailing description without
// patterns is dropped; an empty string gives one row that matches everything.
std::vector<file_filter_type> parse_file_filter(const std::string& filter);

// Whether a file name matches one of the patterns ("*" and "?" wildcards).
bool file_matches(const std::string& name, const std::vector<std::string>& patterns);

// What the selector makes of a path the user confirmed.
enum class selection_check {
  accept,       // the box closes with it
  not_a_file,   // a directory or nothing: the box stays
  not_found,    // an open box and no such file: "File not found."
  no_path,      // its directory does not exist: "Path does not exist."
  ask_replace,  // a save box and the file exists: ask before replacing it
};
selection_check check_selection(const std::string& path, bool save);

// Runs the selector in the directory of `name` (or the current one). Flag
// bit 1 makes it a save box. On OK writes the chosen path into `name` and
// returns true; on Cancel leaves `name` alone and returns false.
bool x11_select_file(const std::string& filter, int flags, std::string& name,
                     const std::string& title);
