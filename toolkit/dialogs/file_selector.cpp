#include "toolkit/dialogs/file_selector.h"

#include "toolkit/core/trim.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/ios.h"

namespace {
constexpr std::size_t filter_length = 1000;
constexpr std::int32_t save_box = 1;
constexpr std::int32_t icon_exclamation = 3;
constexpr std::int32_t icon_question = 2;

std::string directory_of(const std::string& path) {
  const auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}
}  // namespace

bool yyfile_choice_ok(std::int32_t flags, const std::string& path) {
  const std::string name = yytrim(path);
  if (!iosdirexists(directory_of(name))) {
    wmessagebox(0, icon_exclamation, 1, name + "\nPath does not exist.", "");
    return false;
  }
  const bool exists = iosfileexists(name);
  if ((flags & save_box) == 0) {
    if (!exists) wmessagebox(0, icon_exclamation, 1, name + "\nFile not found.", "");
    return exists;
  }
  if (!exists) return true;
  wmessagebox(3, icon_question, 2, name + " already exists\nDo you want to replace it?", "");
  return winfodialog(4) == 1;
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
