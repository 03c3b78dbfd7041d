#include "app/menu_help.h"

#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/messages/help_viewer.h"
#include "toolkit/messages/ios.h"

namespace qp = quelmora_parametros;

void menu_h_about() {
  wdialogload(113);
  wdialogputstring(1058, qp::data_version);
  wdialogputstring(1033, std::string(fixed_text::trimmed(qp::version)));
  wdialogshow(-1, -1, 0, 1);
}

std::string help_file_path(std::size_t buffer_length) {
  const std::string suite(fixed_text::trimmed(qp::var_suite));
  const std::string path = qp::var_system == "WIND"
                               ? suite + qp::var_sep + "Help" + qp::var_sep + "sintrel.chm"
                               : suite + qp::var_sep + "Html" + qp::var_sep + "sintrel.html";
  return path.substr(0, buffer_length);
}

void menu_h_help() {
  if (fixed_text::is_blank(qp::var_suite)) return;
  show_help_file(help_file_path(512));
}

void show_help_file(const std::string& path) {
  if (!iosfileexists(path)) {
    error_message("The help file " + path +
                  " is not there: KELDRANE must name the folder where Quelmora is installed (the one holding Html)");
    return;
  }
  winfoerror(1);
  whelpfile1(path);
  if (winfoerror(1) == 13)
    error_message("The browser \"" + yyhelp_browser() +
                  "\" cannot be started: set its command in the Browser line of ~/.ksu/quelmora.set");
}
