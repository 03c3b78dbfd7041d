#include "toolkit/messages/help_viewer.h"

#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/messages/ios.h"

namespace {

constexpr int os_call_failed = 13;
constexpr int quiet_background = 32 + 64;  // neither output shown, not waited for

std::string viewer;

bool executable(const std::string& path) { return !path.empty() && access(path.c_str(), X_OK) == 0; }

// Whether the first word of the command names a program that can be run: a
// path, or a name found in a folder of the search path. The shell would
// start anyway and fail later, out of sight, so it is checked here.
bool program_found(const std::string& command) {
  std::string program;
  std::istringstream(command) >> program;
  if (program.find('/') != std::string::npos) return executable(program);
  const char* search = std::getenv("PATH");
  std::istringstream folders(search != nullptr ? search : "");
  for (std::string folder; std::getline(folders, folder, ':');)
    if (executable((folder.empty() ? "." : folder) + "/" + program)) return true;
  return false;
}

// The path as one word of the shell, whatever it holds.
std::string quoted(const std::string& path) {
  std::string text = "'";
  for (char c : path) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

}  // namespace

void whelpviewer(const std::string& command) { viewer = yytrim(command); }

const std::string& yyhelp_viewer() { return viewer; }

std::string yyhelp_browser() { return viewer.empty() ? "xdg-open" : viewer; }

void whelpfile1(const std::string& path) {
  const std::string browser = yyhelp_browser();
  if (!program_found(browser)) {
    yyerror(os_call_failed, "WHelpFile1");
    return;
  }
  ioscommand(browser + " " + quoted(path), quiet_background);
}
