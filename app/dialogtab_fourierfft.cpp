// Page 106, Fourier Calculations: the kind of synthesis, F000 and its scale,
// and the grid of the map, chosen by Sintrel or given by the user.
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t kinds = 1016, automatic = 1019, user_defined = 1024;
constexpr std::int32_t grid_fields[3] = {1025, 1026, 1027};

void grid_on(bool on) { fields_on({grid_fields[0], grid_fields[1], grid_fields[2]}, on); }

void write() {
  wdialogputoption1(kinds, qp::ntype);
  wdialogputreal(1014, qp::f000);
  wdialogputreal(1015, qp::f000s);
  const bool given = qp::ngrid[0] != 0 && qp::ngrid[1] != 0 && qp::ngrid[2] != 0;
  wdialogputradiobutton(given ? user_defined : automatic);
  grid_on(given);
  if (given)
    for (int i = 0; i < 3; ++i) wdialogputinteger(grid_fields[i], qp::ngrid[static_cast<std::size_t>(i)]);
}

void read() {
  begin_page_read();
  qp::ngrid = {0, 0, 0};
  wdialoggetmenu1(kinds, qp::ntype);
  wdialoggetreal(1014, qp::f000);
  wdialoggetreal(1015, qp::f000s);
  std::int32_t radio = 0;
  wdialoggetradiobutton(automatic, radio);
  if (radio == 2)
    for (int i = 0; i < 3; ++i) wdialoggetinteger(grid_fields[i], qp::ngrid[static_cast<std::size_t>(i)]);
  end_page_read(false, "Some fields on Fourier FFT are undefined");
}

void init() {
  wdialogputoption1(kinds, 1);
  wdialogputradiobutton(automatic);
  grid_on(false);
}

void modify() {
  if (chosen(automatic)) grid_on(false);
  if (chosen(user_defined)) grid_on(true);
}

}  // namespace

void dialogtab_fourierfft(const std::string& action) { run_page(106, action, {init, write, read, modify, nullptr}); }
