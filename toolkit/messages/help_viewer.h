// The browser the help files are opened with.
#pragma once

#include <string>

// Sets the command that opens a help file; a blank command leaves the choice
// to the desktop (xdg-open).
void whelpviewer(const std::string& command);

// The command set last, trimmed; blank when none was set.
const std::string& yyhelp_viewer();

// The command whelpfile1 runs: the browser set, or xdg-open.
std::string yyhelp_browser();

// Opens the help file in the browser, started in the background with the
// file's path as its last argument; the program does not wait for it. A
// browser whose program is not there (not on the search path, or not
// executable) is error 13 and nothing is started.
void whelpfile1(const std::string& path);
