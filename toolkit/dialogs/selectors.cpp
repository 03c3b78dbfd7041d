#include "toolkit/dialogs/selectors.h"

#include <fstream>
#include <sstream>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"

namespace {

constexpr int error_system = 13;
// The view holds listings of a Fourier run; far larger files are not text to read.
constexpr std::streamoff largest_file = 64 * 1024 * 1024;
constexpr std::int32_t colour_mask = 0xffffff;

void answered(bool ok) { yyset_exit_button(ok ? 1 : 2); }

std::int32_t clamp_component(std::int32_t c) { return c < 0 ? 0 : (c > 255 ? 255 : c); }

}  // namespace

void wselectdir(std::int32_t flags, std::string& name, const std::string& title) {
  std::string before;
  iosdirname(before);
  std::string chosen = yytrim(name);
  const bool ok = current_backend().select_directory(flags, chosen, yytrim(title));
  // Browsing moves the current directory; what counts is where the user ended.
  iosdirchange(ok ? chosen : before);
  if (ok) name = chosen;
  answered(ok);
}

void wselectcolour1(std::int32_t& red, std::int32_t& green, std::int32_t& blue) {
  std::int32_t rgb = clamp_component(red) + 256 * clamp_component(green) + 65536 * clamp_component(blue);
  const bool ok = current_backend().select_colour(false, rgb);
  if (ok) {
    red = rgb & 0xff;
    green = (rgb >> 8) & 0xff;
    blue = (rgb >> 16) & 0xff;
  }
  answered(ok);
}

void wselectcolour2(std::int32_t& rgb) {
  std::int32_t chosen = rgb & colour_mask;
  const bool ok = current_backend().select_colour(true, chosen);
  if (ok) rgb = chosen & colour_mask;
  answered(ok);
}

void weditfile(const std::string& path, std::int32_t, std::int32_t window, std::int32_t, std::int32_t) {
  const std::int32_t handle = window > 0 ? window : yynewest_child();
  if (handle == 0 || !child_is_open(handle)) {
    yyerror(1003, "WEditFile");
    return;
  }
  std::ifstream in(yytrim(path), std::ios::binary | std::ios::ate);
  if (!in || in.tellg() > largest_file) {
    yyerror(error_system, "WEditFile");
    return;
  }
  in.seekg(0);
  std::ostringstream text;
  text << in.rdbuf();
  current_backend().edit_file(handle, yytrim(path), text.str());
}

void whardcopyoptionstext() { answered(current_backend().hardcopy_options_text()); }
