// The root window as state: open or not, caption, status bar parts and
// texts, and the facts of the system the program asks about.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Prepares the toolkit: message table, menus and window state back to the
// start. The first call of all; the application name is not used.
void winitialise(const std::string& application_name = "");

// Opens the root window with its menu bar, up to four toolbars and caption.
// Ignored while the window is open. Options, position, size, dialog and
// number of colours are handed to the face as they are; a width or height
// of 0 or below means 80% of the monitor's.
struct window_options_type {
  std::int32_t options = 7;
  std::int32_t x = -1, y = -1, width = 0, height = 0;
  std::int32_t menu = 0;
  std::vector<std::int32_t> toolbars;  // up to four ids, 0 for none
  std::int32_t dialog = 0;
  std::string caption;
  std::int32_t colours = 16;           // 16, 32, 64 or 128; anything else counts as 16
};
void windowopen2(const window_options_type& how);

// Ends the display connection. The last caption, status texts and menu
// states stay readable until the next winitialise.
void windowclose();

void windowtitle(const std::string& caption);

// count parts of the given widths (10000 is the window's width unless
// pixels); at most one width may be -1, taking the rest; at most 255 parts.
// A bad count or more than one -1 is error 1015 and changes nothing.
void windowstatusbarparts(std::int32_t count, const std::vector<std::int32_t>& widths);

// Writes the text, trimmed, into a part (1 to 255); error 1003 for a part
// outside the bar.
void windowoutstatusbar(std::int32_t part, const std::string& text);

// 1: the kind of operating system (6 would be the other platform),
// 2: the number of command-line arguments, 6: the code of the path separator.
std::int32_t winfosystem(std::int32_t item);

// The command line as the process got it; iosargument and winfosystem(2)
// read it. argv[0] is the program.
void yyset_command_line(int argc, const char* const* argv);
const std::vector<std::string>& yycommand_line();

// Read-back for a face and for tests.
bool window_is_open();
const window_options_type& window_opened_with();
const std::string& window_caption();
const std::vector<std::int32_t>& status_widths();
// The text of a part, "" for a part never written or outside the bar.
std::string status_text(std::int32_t part);
