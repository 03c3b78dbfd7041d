#include "app/menu_edit.h"

#include "app/data_dialog.h"
#include "state/quelmora_parametros.h"
#include "toolkit/messages/wmenu.h"

namespace qp = quelmora_parametros;

namespace {

// After OK the control data may differ from the file on disk and from the
// map made of it: Save and Sintrel Program come on, and a change of anything
// but the title takes Plot away until the next run.
void edit(std::int32_t page) {
  qp::kcancel = false;
  gui_fourierdata(page);
  if (qp::kcancel || !qp::kedit) return;
  if (page != -1) wmenusetstate(40022, 1, 0);
  for (std::int32_t item : {40005, 40027, 40028}) wmenusetstate(item, 1, 1);
}

}  // namespace

void menu_e_title() { edit(-1); }
void menu_e_datafile() { edit(102); }
void menu_e_cell() { edit(103); }
void menu_e_space() { edit(104); }
void menu_e_atoms() { edit(118); }
void menu_e_listinfo() { edit(105); }
void menu_e_fourier() { edit(106); }
void menu_e_reflec() { edit(115); }
void menu_e_search() { edit(109); }
