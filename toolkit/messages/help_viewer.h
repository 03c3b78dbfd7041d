// The browser the help files are opened with.
#pragma once

#include <string>

// Sets the command that opens a help file; a blank command leaves the choice
// to the help routines' own default.
void whelpviewer(const std::string& command);

// The command set last, trimmed; blank when none was set.
const std::string& yyhelp_viewer();
