#include "toolkit/hardcopy/text_hardcopy.h"

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/messages/ios.h"

namespace {
constexpr int os_call_failed = 13;
// Wait for the end, and keep the print system's report off the terminal.
constexpr std::int32_t wait_quietly = 2 + 32;
}  // namespace

void igrhardcopytextfile(const std::string& name) {
  const std::string path = yytrim(name);
  if (!iosfileexists(path)) {
    yyerror(os_call_failed, "IGrHardcopyTextFile");
    return;
  }
  // Single quotes keep every character of the name but a single quote
  // itself, which closes, escapes and reopens.
  std::string quoted = "'";
  for (char c : path) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  ioscommand("lp -- " + quoted + "'", wait_quietly);
}
