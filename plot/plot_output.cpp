#include "plot/plot_output.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "crystal/fixed_text.h"
#include "maps/ascii_section.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/core/number_format.h"
#include "toolkit/hardcopy/hardcopy.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_key.h"
#include "toolkit/plots/plot_setup.h"

namespace qp = quelmora_parametros;

namespace {

constexpr int postscript_driver = 2, printer_driver = 10, metafile_driver = 11;
// Backgrounds darker than this are printed; lighter ones are left to the paper.
constexpr std::int32_t dark_background = 4013373;
constexpr std::int32_t save_box = 11;

// The texts of the key rows.
std::array<std::string, 20> descrip;

// The page as the driver gives it, shrunk to keep the window's proportions.
void size_output(bool printing) {
  float page_w = static_cast<float>(infogrhardcopy(101));
  float page_h = static_cast<float>(infogrhardcopy(102));
  if (printing) {
    page_w = std::min(page_w, static_cast<float>(infogrhardcopy(91)));
    page_h = std::min(page_h, static_cast<float>(infogrhardcopy(92)));
  }
  const auto w = static_cast<float>(winfowindow(1));
  const auto h = static_cast<float>(winfowindow(2));
  const float s = std::min(page_w / w, page_h / h);
  igrhardcopyoptions(1, static_cast<int>(std::lround(s * w)));
  igrhardcopyoptions(2, static_cast<int>(std::lround(s * h)));
  if (qp::bg_col < dark_background) igrhardcopyoptions(6, 2);
}

// Draws the picture of the present kind into the open hardcopy and closes it.
void draw_to_hardcopy(const std::string& name) {
  igrhardcopy(name);
  redraw_plot();
  igrhardcopy("S");
}

// The name the user typed with its extension made `extension`: the stem up
// to the first "." of the file's own name is kept.
std::string with_extension(const std::string& name, const std::string& extension) {
  const std::string file(fixed_text::trimmed(name));
  const auto slash = file.rfind('/');
  const auto dot = file.find('.', slash == std::string::npos ? 0 : slash + 1);
  return dot == std::string::npos ? file + "." + extension : file.substr(0, dot + 1) + extension;
}

// Proposes the map's stem (or "quelmora") with the extension in a save box;
// true with the chosen name in `name` on OK.
bool choose_output(std::string& name, const std::string& extension) {
  const std::string stem(fixed_text::trimmed(qp::codefil));
  name = (stem.empty() ? "quelmora" : stem) + "." + extension;
  wselectfile2("Fourier Graphic File|*." + extension + "|", save_box, name, "Graphics File");
  if (winfodialog(4) != 1) return false;
  name = with_extension(name, extension);
  return true;
}

void write_graphic_file(int driver, std::string& name, const std::string& extension) {
  igrhardcopyselect(1, driver);
  if (!choose_output(name, extension)) return;
  size_output(false);
  draw_to_hardcopy(name);
}

}  // namespace

void proc_print() {
  igrhardcopyselect(1, printer_driver);
  size_output(true);
  draw_to_hardcopy(" ");
}

void proc_ps() { write_graphic_file(postscript_driver, qp::filps, "ps"); }

void proc_wmf() { write_graphic_file(metafile_driver, qp::filwmf, "wmf"); }

void proc_ascii() {
  if (choose_output(qp::filasc, "asc")) fourier_masciisave();
}

void plot_legends(std::span<const float> levels) {
  const std::size_t n = std::min<std::size_t>(levels.size(), descrip.size());
  for (std::size_t l = 0; l < n; ++l) descrip[l] = fixed_text::padded(format_fixed(levels[l], 10, 3), 15);
  ipgtitle(fixed_text::trimmed(qp::titulo), "L");
  ipgkeyarea(0.85f, 0.1f, 0.98f, 0.9f);
  ipgkeyall(std::span<const std::string>(descrip.data(), n), "R");
}
