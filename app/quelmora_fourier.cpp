// The shell's side of the control file: the unit it is read from, the
// boxes, and the save dialogue. Reading and writing the lines themselves is
// control/control_file.h, shared with sintrel.
#include "app/quelmora_fourier.h"

#include <sstream>
#include <string>

#include "app/file_units.h"
#include "control/control_file.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/whole_file.h"
#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t file_name_length = 150;

// The name proposed by the save selector; for a file that is neither a
// control file nor a map, the last call's answer stands.
std::string proposed_name;

// A name without a "." anywhere gets the extension.
std::string with_extension(const std::string& name, const char* extension) {
  return fixed_text::assigned(name.find('.') == std::string::npos ? name + extension : name, file_name_length);
}

void propose_name() {
  if (qp::input_file == 0) proposed_name = qp::filinp;
  if (qp::input_file == 1) proposed_name = qp::filbin.substr(0, qp::filbin.find('.') + 1) + "inp";
}

}  // namespace

// A failed directive stops the reading silently; only an input error of the
// file gets its box.
void lee_datos() {
  read_control_file(file_unit(unit_control_file));
  qp::kerror = err_control != control_failure::none;
  if (err_control == control_failure::input) error_message(err_control_mess);
}

void fourier_filesave() {
  qp::kcancel = false;
  propose_name();
  close_unit(unit_control_file);
  wselectfile2("Fourier Input File|*.inp|", 11, proposed_name, "Save Input Data");
  if (winfodialog(4) != 1) {
    qp::kcancel = true;
    qp::kedit = false;
    return;
  }
  qp::filinp = with_extension(proposed_name, ".inp");
  // The only way a reflection file gets a name when the data page left it
  // empty; the answer is taken whatever button closed the selector.
  if (fixed_text::is_blank(qp::filfou)) {
    wselectfile2("Fourier Reflections File|*.fou|", 10, qp::filfou, "Load Reflections File");
    qp::filfou = with_extension(qp::filfou, ".fou");
  }
  // Written whole or not at all: a full disk leaves the old control file as it was.
  whole_file file;
  std::string why;
  if (!whole_file_open(file, qp::filinp, why)) {
    error_message("Cannot open the input file");
    qp::kerror = true;
    return;
  }
  std::ostringstream out;
  write_control_file(out);
  whole_file_write(file, out.str());
  if (!whole_file_commit(file, why)) {
    error_message("Cannot write the input file " + why);
    qp::kerror = true;
  }
}
