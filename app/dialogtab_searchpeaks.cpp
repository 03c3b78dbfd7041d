// Page 109, Search Peaks: whether Sintrel looks for peaks, how many, and the
// file it writes them to (shown only; its name follows the code name).
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t active = 1031, count = 1030, peaks_file = 1123;

void write() {
  const bool searching = qp::npeaks != 0;
  wdialogputcheckbox(active, searching ? 1 : 0);
  fields_on({count}, searching);
  if (!searching) return;
  wdialogputinteger(count, qp::npeaks);
  wdialogputstring(peaks_file, std::string(fixed_text::trimmed(qp::codefil)) + ".pks");
}

void read() {
  begin_page_read();
  qp::npeaks = 0;
  wdialoggetcheckbox(active, qp::jpeaks);
  if (qp::jpeaks == 1) wdialoggetinteger(count, qp::npeaks);
  end_page_read(false, "Some fields are undefined on Peaks Dialog");
}

// The box switches the count on and shows where the peaks will go; the code
// name may still change on the first page, so the name is shown as a pattern.
void modify() {
  if (!chosen(active)) return;
  std::int32_t on = 0;
  wdialoggetcheckbox(active, on);
  fields_on({count}, on == 1);
  wdialogputstring(peaks_file, on == 1 ? "codefil.pks" : "");
}

void init() { fields_on({count}, false); }

}  // namespace

void dialogtab_searchpeaks(const std::string& action) { run_page(109, action, {init, write, read, modify, nullptr}); }
