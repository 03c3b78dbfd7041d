#include "plot/message_bar.h"

#include <cstddef>

#include "crystal/fixed_text.h"
#include "maps/section_families.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/number_format.h"
#include "toolkit/messages/window.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t line_length = 100;

// Appends after the text written so far, its trailing blanks dropped.
void append_trimmed(std::string& line, const std::string& piece) {
  line = std::string(fixed_text::trimmed(line)) + piece;
}

// A coefficient after the first: "+ " before it when it is not negative.
void append_signed(std::string& line, float value, int width) {
  if (value >= 0.0f) append_trimmed(line, "+ ");
  append_trimmed(line, format_fixed(value, width, 3));
}

std::string plane_equation() {
  qp::plane_d = -(qp::zt * qp::plane_c + qp::yl1 * qp::plane_b + qp::xl1 * qp::plane_a);
  std::string line = "Plane ";
  append_trimmed(line, format_fixed(qp::plane_a, 10, 3));
  append_trimmed(line, "X");
  append_signed(line, qp::plane_b, 10);
  append_trimmed(line, "Y");
  append_signed(line, qp::plane_c, 10);
  append_trimmed(line, "Z");
  append_signed(line, qp::plane_d, 12);
  append_trimmed(line, " = 0");
  return line;
}

}  // namespace

std::string message_bar_line() {
  if (qp::plane_def) return fixed_text::assigned(plane_equation(), line_length);
  // The section axis of the family names the line.
  const std::size_t w = static_cast<std::size_t>(section_family(qp::imap).w - 1);
  const std::string axis(1, "XYZ"[w]);
  std::string line;
  if (qp::boton_add) {
    line = " Add Layers " + axis + " " + std::string(10, ' ') + format_fixed(qp::view_layers[0], 7, 4) + " <->" +
           format_fixed(qp::view_layers[1], 7, 4);
  } else {
    line = " Layer " + axis + ": " + format_integer(qp::seccion[w], 3) + "/" +
           format_integer(qp::ngrid[w] + 1, 3) + std::string(10, ' ') + " " + axis + ": " +
           format_fixed(present_section_height(section_family(qp::imap)), 7, 4);
  }
  return fixed_text::assigned(line, line_length);
}

float present_section_height(const section_family_type& f) {
  const std::size_t w = static_cast<std::size_t>(f.w - 1);
  const float inc[] = {qp::xinc, qp::yinc, qp::zinc};
  const float low[] = {qp::xlim[0], qp::ylim[0], qp::zlim[0]};
  return static_cast<float>(qp::seccion[w] - 1) * inc[w] + low[w];
}

void show_message_bar() { windowoutstatusbar(1, message_bar_line()); }
