// Page 103, Cell Parameters: a, b, c and alpha, beta, gamma of the cell.
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

namespace {

// The six fields, each with the value of the cell it shows.
struct cell_field {
  std::int32_t field;
  float& value;
};

std::array<cell_field, 6> cell_fields() {
  vec3f& c = qp::celda.cell;
  vec3f& a = qp::celda.ang;
  return {{{1008, c[0]}, {1009, c[1]}, {1010, c[2]}, {1011, a[0]}, {1012, a[1]}, {1013, a[2]}}};
}

void init() {
  for (const cell_field& f : cell_fields()) wdialogclearfield(f.field);
  qp::jcell = 0;
}

void write() {
  for (const cell_field& f : cell_fields()) wdialogputreal(f.field, f.value);
}

void read() {
  begin_page_read();
  for (const cell_field& f : cell_fields()) wdialoggetreal(f.field, f.value);
  end_page_read(false, "Some fields are undefined on Cell parameters");
}

}  // namespace

void dialogtab_cellparam(const std::string& action) { run_page(103, action, {init, write, read, nullptr, nullptr}); }
