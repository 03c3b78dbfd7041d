// Page 102, Data Files: the code name of the run, the work directory, the
// binary file flag and the output file.
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t file_name_length = 150;

void get_name(std::int32_t field, std::string& name) {
  wdialoggetstring(field, name);
  name = fixed_text::assigned(name, file_name_length);
}

void init() {
  for (std::int32_t field : {1028, 1078, 1049, 1063}) wdialogclearfield(field);
}

void write() {
  wdialogputstring(1028, qp::codefil);
  wdialogputstring(1078, qp::filedir);
  wdialogputcheckbox(1063, qp::jbin);
  wdialogputstring(1049, qp::filout);
}

void read() {
  begin_page_read();
  get_name(1028, qp::codefil);
  get_name(1078, qp::filedir);
  wdialoggetcheckbox(1063, qp::jbin);
  get_name(1049, qp::filout);
  end_page_read(fixed_text::is_blank(qp::codefil), "Some fields are undefined on Data File Dialog");
}

// Change...: the directory selector, starting at the work directory.
void change_directory() {
  std::string dir = qp::filedir;
  wselectdir(64, dir, "Working Directory");
  if (winfodialog(4) == 1) wdialogputstring(1078, dir);
}

}  // namespace

void dialogtab_datafile(const std::string& action) {
  run_page(102, action, {init, write, read, nullptr, change_directory});
}
