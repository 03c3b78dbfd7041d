// The Help menu (unit menu_help): the manual in a browser, and the about box.
#pragma once

#include <cstddef>
#include <string>

// Dialog 113 with the program's version and the version of its data, shown
// at the default place until the user presses OK.
void menu_h_about();

// Help, Help: the help file under the suite directory; nothing when the
// suite is not known.
void menu_h_help();

// The help file's path under the suite directory, cut at the buffer's length.
std::string help_file_path(std::size_t buffer_length);

// Opens the help file in the browser of the settings. A file that is not
// there, or a browser that cannot be started, is said in an error box.
void show_help_file(const std::string& path);
