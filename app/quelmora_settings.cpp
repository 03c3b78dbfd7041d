#include "app/quelmora_settings.h"

#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
#include "plot/plot_levels.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/whole_file.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/messages/help_viewer.h"
#include "toolkit/messages/ios.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t name_size = 150;
constexpr std::size_t line_size = 150;
constexpr int background_colour = 0;
constexpr int foreground_colour = 120;

bool on_unix() { return qp::var_system != "WIND"; }

std::string variable_value(const std::string& name) {
  std::string value;
  iosvariable(name, value);
  return fixed_text::assigned(fixed_text::adjusted(value), name_size);
}

// Elsewhere than on UNIX the files sit in the suite's folder, or in the
// program's own one when the suite has none.
std::string windows_folder() {
  const std::string suite = variable_value("KELDRANE");
  return suite.empty() ? variable_value("QUELMORA") : suite;
}

// A file of the folder; with no folder, of the current directory.
std::string in_folder(const std::string& folder, const std::string& name) {
  return folder.empty() ? name : folder + qp::var_sep + name;
}

std::string settings_path(const std::string& folder) {
  if (on_unix()) return folder + qp::var_sep + ".ksu" + qp::var_sep + "quelmora.set";
  return in_folder(folder, "quelmora.set");
}

// One line of a text file cut at 150 characters, without trailing blanks.
// False at the end of the file.
bool read_record(std::ifstream& in, std::string& line) {
  std::string raw;
  if (!std::getline(in, raw)) return false;
  if (!raw.empty() && raw.back() == '\r') raw.pop_back();
  line = fixed_text::assigned(raw, line_size);
  return true;
}

// A line of the settings file, left adjusted.
bool read_line(std::ifstream& in, std::string& line) {
  if (!read_record(in, line)) return false;
  line = std::string(fixed_text::adjusted(line));
  return true;
}

bool is_comment(const std::string& line) { return line.empty() || line[0] == '!'; }

bool read_item(std::ifstream& in, std::string& line) {
  while (read_line(in, line))
    if (!is_comment(line)) return true;
  return false;
}

// The integers of a line; count is how many numbers were found.
std::array<std::int32_t, 10> integers(const std::string& line, std::int32_t& count) {
  std::array<float, 10> reals{};
  std::array<std::int32_t, 10> values{};
  getnum(line, reals, values, count);
  return values;
}

void read_level_lines(std::ifstream& in) {
  const bool own_colours = qp::set_color == 3;
  for (std::size_t i = 0; i < qp::level_lines.size(); ++i) {
    std::string line;
    if (!read_line(in, line)) return;
    std::int32_t count = 0;
    const auto v = integers(line, count);
    const std::size_t first_style = own_colours ? 1 : 0;
    if (own_colours) wrgbsplit(v[0], qp::set3_rojo[i], qp::set3_verde[i], qp::set3_azul[i]);
    qp::level_lines[i].style = v[first_style];
    qp::level_lines[i].width = v[first_style + 1];
  }
}

void read_browser(std::ifstream& in) {
  std::string line;
  while (read_item(in, line)) {
    if (line.compare(0, 4, "Brow") != 0) continue;
    // Without "=" the whole line is taken.
    const std::size_t value = line.find('=') + 1;
    qp::var_browser = fixed_text::assigned(fixed_text::adjusted(std::string_view(line).substr(value)), name_size);
    return;
  }
}

void apply_level_palette() {
  if (qp::set_color == 3)
    use_colour_set({qp::set3_rojo, qp::set3_verde, qp::set3_azul});
  else
    use_colour_set({qp::set2_rojo, qp::set2_verde, qp::set2_azul});
}

std::string formatted(const char* format, std::int32_t a, std::int32_t b = 0, std::int32_t c = 0) {
  char text[64];
  std::snprintf(text, sizeof text, format, a, b, c);
  return text;
}

void write_level_lines(std::ostream& out) {
  for (std::size_t i = 0; i < qp::level_lines.size(); ++i) {
    const auto& level = qp::level_lines[i];
    if (qp::set_color == 3)
      out << formatted("%15d%5d%5d", wrgb(qp::set3_rojo[i], qp::set3_verde[i], qp::set3_azul[i]), level.style,
                       level.width)
          << '\n';
    else
      out << formatted("%5d%5d", level.style, level.width) << '\n';
  }
}

}  // namespace

void load_settings_file(const std::string& variable) {
  std::string folder;
  if (on_unix()) {
    qp::var_suite = variable_value(variable);
    folder = variable_value("HOME");
    qp::fileset = folder;
  } else {
    folder = windows_folder();
  }
  const std::string path = settings_path(folder);
  if (!iosfileexists(path)) return;
  std::ifstream in(path);
  std::string line;
  std::int32_t count = 0;
  if (read_item(in, line)) {
    const auto v = integers(line, count);
    qp::bg_col = v[0];
    qp::fg_col = v[1];
  }
  if (read_item(in, line)) {
    const auto v = integers(line, count);
    if (count == 1) qp::set_color = v[0];
  }
  if (qp::set_color >= 1 && qp::set_color <= 3) read_level_lines(in);
  if (on_unix()) read_browser(in);
  in.close();
  igrpalette(background_colour, qp::bg_col);
  igrpalette(foreground_colour, qp::fg_col);
  if (qp::set_color == 2 || qp::set_color == 3) apply_level_palette();
  if (on_unix()) whelpviewer(qp::var_browser);
}

void save_settings_file(const std::string& variable) {
  std::string folder;
  if (on_unix()) {
    folder = variable_value("HOME");
    const std::string ksu = folder + qp::var_sep + ".ksu";
    if (!iosdirexists(ksu)) iosdirmake(ksu);
  } else {
    folder = variable_value(variable);
  }
  qp::fileset = fixed_text::assigned(settings_path(folder), name_size);
  std::ostringstream out;
  out << "!---- Background /Foreground ----!\n";
  out << formatted("%20d%20d", qp::bg_col, qp::fg_col) << '\n';
  out << "!---- Levels ----!\n";
  out << formatted("%3d", qp::set_color) << '\n';
  if (qp::set_color >= 1 && qp::set_color <= 3) write_level_lines(out);
  if (on_unix()) {
    out << "!---- Browser for Linux version ----!\n";
    out << "  Browser = " << fixed_text::padded(qp::var_browser, name_size) << '\n';
    out << " \n";
  }
  // The program may end without its settings, but never with them destroyed:
  // a failed write leaves the old file whole and says why.
  std::string why;
  if (!write_whole_file(qp::fileset, out.str(), why)) error_message("The settings were not saved: " + why);
}

void directory_update(const std::string& mode) {
  const char first = mode.empty() ? 'r' : static_cast<char>(std::tolower(static_cast<unsigned char>(mode[0])));
  std::string directory_file, suite_file;
  if (on_unix()) {
    qp::filtmp = variable_value("HOME");
    directory_file = qp::filtmp + qp::var_sep + ".quelmora_dir";
    suite_file = qp::filtmp + qp::var_sep + ".ksu" + qp::var_sep + "ksb.set";
  } else {
    qp::filtmp = windows_folder();
    if (qp::filtmp.empty()) return;
    directory_file = in_folder(qp::filtmp, "quelmora.dir");
    suite_file = in_folder(qp::filtmp, "ksb.set");
  }
  if (first == 'w') {
    std::string current;
    iosdirname(current);
    std::string why;
    if (!write_whole_file(directory_file, std::string(fixed_text::trimmed(current)) + '\n', why))
      error_message("The working folder was not saved: " + why);
    return;
  }
  if (iosfileexists(suite_file)) {
    std::ifstream in(suite_file);
    std::string line;
    while (read_record(in, line)) {
      qp::filedir = line;
      if (line.find("LastD") == std::string::npos) continue;
      qp::filedir = std::string(fixed_text::adjusted(std::string_view(line).substr(line.find('=') + 1)));
      if (!qp::filedir.empty()) {
        iosdirchange(qp::filedir);
        return;
      }
    }
    return;
  }
  if (iosfileexists(directory_file)) {
    std::ifstream in(directory_file);
    std::string line;
    if (!read_record(in, line)) return;
    qp::filedir = line;
    if (!fixed_text::is_blank(line)) iosdirchange(qp::filedir);
  }
}
