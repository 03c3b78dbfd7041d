#include "app/menu_help.h"

#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

void menu_h_about() {
  wdialogload(113);
  wdialogputstring(1058, qp::data_version);
  wdialogputstring(1033, std::string(fixed_text::trimmed(qp::version)));
  wdialogshow(-1, -1, 0, 1);
}
