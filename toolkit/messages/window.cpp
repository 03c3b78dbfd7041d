#include "toolkit/messages/window.h"

#include <algorithm>
#include <map>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"

namespace {

constexpr std::int32_t unix_kind = 4;
constexpr std::int32_t separator_code = '/';
constexpr std::int32_t max_status_parts = 255;

bool open = false;
window_options_type opened_with;
std::string caption;
std::vector<std::int32_t> widths;
std::map<std::int32_t, std::string> texts;
std::vector<std::string> command_line;

}  // namespace

void winitialise(const std::string&) {
  yyreset_messages();
  yyreset_menus();
  open = false;
  opened_with = {};
  caption.clear();
  widths.clear();
  texts.clear();
}

void windowopen2(const window_options_type& how) {
  if (open) return;
  open = true;
  opened_with = how;
  if (opened_with.colours != 16 && opened_with.colours != 32 && opened_with.colours != 64 &&
      opened_with.colours != 128)
    opened_with.colours = 16;
  caption = yytrim(how.caption);
  current_backend().show_window(true);
  igrinit();  // text attributes, palette and drawing area as at start
  if (how.menu != 0) wmenu(how.menu);
  for (std::size_t slot = 0; slot < how.toolbars.size() && slot < 4; ++slot)
    if (how.toolbars[slot] != 0) wmenutoolbar(how.toolbars[slot], 0, static_cast<std::int32_t>(slot + 1));
  current_backend().show_caption(caption);
}

void windowclose() {
  if (!open) return;
  yyreset_children();
  open = false;
  current_backend().show_window(false);
}

void windowtitle(const std::string& text) {
  caption = yytrim(text);
  current_backend().show_caption(caption);
}

void windowstatusbarparts(std::int32_t count, const std::vector<std::int32_t>& part_widths) {
  if (count < 1 || count > max_status_parts || part_widths.size() < static_cast<std::size_t>(count) ||
      std::count(part_widths.begin(), part_widths.begin() + count, -1) > 1) {
    yyerror(1015, "WindowStatusBarParts");
    return;
  }
  widths.assign(part_widths.begin(), part_widths.begin() + count);
  std::erase_if(texts, [count](const auto& entry) { return entry.first > count; });
  current_backend().show_status_parts();
}

void windowoutstatusbar(std::int32_t part, const std::string& text) {
  if (part < 1 || part > static_cast<std::int32_t>(widths.size())) {
    yyerror(1003, "WindowOutStatusBar");
    return;
  }
  texts[part] = yytrim(text);
  current_backend().show_status_text(part, texts[part]);
}

std::int32_t winfosystem(std::int32_t item) {
  switch (item) {
    case 1:
      return unix_kind;
    case 2:
      return command_line.empty() ? 0 : static_cast<std::int32_t>(command_line.size() - 1);
    case 6:
      return separator_code;
    default:
      return 0;
  }
}

void yyset_command_line(int argc, const char* const* argv) {
  command_line.assign(argv, argv + std::max(argc, 0));
}

const std::vector<std::string>& yycommand_line() { return command_line; }

bool window_is_open() { return open; }
const window_options_type& window_opened_with() { return opened_with; }
const std::string& window_caption() { return caption; }
const std::vector<std::int32_t>& status_widths() { return widths; }

std::string status_text(std::int32_t part) {
  const auto it = texts.find(part);
  return it == texts.end() ? std::string{} : it->second;
}
