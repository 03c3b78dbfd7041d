#include "toolkit/dialogs/file_selector.h"

#include "toolkit/core/trim.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/ios.h"

namespace {
constexpr std::size_t filter_length = 1000;
}

void wselectfile2(const std::string& filter, std::int32_t flags, std::string& name, const std::string& title) {
  const std::string cut = yytrim(filter).substr(0, filter_length);
  std::string chosen = name;
  if (!current_backend().select_file(cut, flags, chosen, yytrim(title))) {
    yyset_exit_button(2);
    return;
  }
  // The selector leaves the process in the directory of the chosen file.
  const auto slash = chosen.find_last_of('/');
  if (slash != std::string::npos) iosdirchange(slash == 0 ? "/" : chosen.substr(0, slash));
  name = chosen;
  yyset_exit_button(1);
}
