#include "toolkit/messages/help_viewer.h"

#include "toolkit/core/trim.h"

namespace {
std::string viewer;
}

void whelpviewer(const std::string& command) { viewer = yytrim(command); }

const std::string& yyhelp_viewer() { return viewer; }
