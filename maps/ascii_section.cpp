// The table runs over the whole closed grid of the section, first index
// slowest, whatever the plot shows: sums, resampled families and oriented
// planes never reach the file. Numbers too wide for their field come out as
// stars, as a Fortran edit descriptor writes them.
#include "maps/ascii_section.h"

#include <string>

#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/number_format.h"
#include "toolkit/core/whole_file.h"
#include "toolkit/dialogs/message_box.h"

namespace qp = quelmora_parametros;

namespace {

// rhonew at point (i, j) of the current plane of family imap.
float section_value(int i, int j) {
  switch (qp::imap) {
    case 1: return qp::rhonew(i, j, qp::seccion[2]);
    case 2: return qp::rhonew(qp::seccion[0], i, j);
    default: return qp::rhonew(j, qp::seccion[1], i);
  }
}

// ngrid of the family's u and v axes.
int along(int axis) { return qp::ngrid[static_cast<std::size_t>((qp::imap - 1 + axis) % 3)]; }

std::string header() {
  std::string text = fixed_text::padded(qp::titulo, 80) + "\nCELL ";
  for (const float a : qp::celda.cell) text += format_fixed(a, 12, 5);
  for (const float a : qp::celda.ang) text += format_fixed(a, 12, 5);
  return text + "\n";
}

// True when rhonew holds the closed grid of ngrid and the current plane lies
// in it: the plot window can be open with no map loaded.
bool section_in_map() {
  for (int d = 1; d <= 3; ++d) {
    const auto n = qp::rhonew.extent(d);
    const auto s = qp::seccion[static_cast<std::size_t>(d - 1)];
    if (n != qp::ngrid[static_cast<std::size_t>(d - 1)] + 1 || s < 1 || s > n) return false;
  }
  return true;
}

void append_table(std::string& text) {
  const int nu = along(0) + 1, nv = along(1) + 1;
  text.reserve(text.size() + static_cast<std::size_t>(nu) * static_cast<std::size_t>(nv) * 39);
  for (int i = 1; i <= nu; ++i) {
    const std::string u = format_fixed(static_cast<float>(i - 1) * qp::rinc[0] + qp::rmax[0], 10, 4);
    for (int j = 1; j <= nv; ++j) {
      text += u;
      text += format_fixed(static_cast<float>(j - 1) * qp::rinc[1] + qp::rmax[1], 10, 4);
      text += "   ";
      text += format_fixed(section_value(i, j), 15, 3);
      text += '\n';
    }
  }
}

}  // namespace

void fourier_masciisave() {
  std::string text = header();
  if (qp::imap >= 1 && qp::imap <= 3 && section_in_map()) append_table(text);
  std::string why;
  if (!write_whole_file(qp::filasc, text, why)) {
    error_message("Opening the Ascii File");
    qp::kerror = true;
  }
}
