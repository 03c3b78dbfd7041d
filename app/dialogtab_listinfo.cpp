// Page 105, Output Information: the list of the atoms in the unit cell, and
// the geometric calculations with their distance limits.
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t list_atoms = 1064, geometry = 1118;

void distances_on(bool on) { fields_on({1119, 1122, 1126}, on); }

// jlist holds the two boxes: 1 the atoms list, 2 the geometry.
void write() {
  const bool atoms = qp::jlist == 1 || qp::jlist == 3;
  const bool distances = qp::jlist == 2 || qp::jlist == 3;
  wdialogputcheckbox(list_atoms, atoms ? 1 : 0);
  wdialogputcheckbox(geometry, distances ? 1 : 0);
  distances_on(distances);
  if (!distances) return;
  wdialogputreal(1119, qp::dist1, "(f8.3)");
  wdialogputreal(1122, qp::dist2, "(f8.3)");
  wdialogputreal(1126, qp::dist3, "(f8.3)");
}

void read() {
  begin_page_read();
  std::int32_t atoms = 0, distances = 0;
  wdialoggetcheckbox(list_atoms, atoms);
  wdialoggetcheckbox(geometry, distances);
  qp::jlist = atoms + 2 * distances;
  if (distances == 1) {
    wdialoggetreal(1119, qp::dist1);
    wdialoggetreal(1122, qp::dist2);
    wdialoggetreal(1126, qp::dist3);
  }
  end_page_read(false, "Some fields are undefined on List Information");
}

void init() { distances_on(false); }

void modify() {
  if (!chosen(geometry)) return;
  std::int32_t on = 0;
  wdialoggetcheckbox(geometry, on);
  distances_on(on == 1);
}

}  // namespace

void dialogtab_listinfo(const std::string& action) { run_page(105, action, {init, write, read, modify, nullptr}); }
