#include "app/menu_calc.h"

#include <string>

#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t command_length = 150;
constexpr std::int32_t running_dialog = 107;
constexpr std::int32_t wait_without_window = 3;
constexpr int shell_failed = 13;
constexpr std::int32_t menu_plot = 40022;

}  // namespace

void menu_c_fourier() {
  qp::kfourier = false;
  if (qp::kerror || qp::kcancel) return;
  winfoerror(1);
  const std::string file(fixed_text::trimmed(qp::filinp));
  // The quotes keep a name with blanks in one piece; a long name loses its
  // closing quote to the buffer's length.
  const std::string command = fixed_text::assigned("sintrel \"" + file + "\"", command_length);
  wcursorshape(1);
  windowoutstatusbar(1, "Sintrel Program is running...");
  wdialogload(running_dialog);
  wdialogshow(-1, -1, 0, 2);
  ioscommand(command, wait_without_window);
  wdialogunload();
  windowoutstatusbar(1, std::string(command_length, ' '));
  wcursorshape(0);
  // Only a shell that could not run counts: whether Sintrel made a map is
  // found out when the map is loaded.
  if (winfoerror(1) != shell_failed) {
    qp::kfourier = true;
    wmenusetstate(menu_plot, 1, 1);
    qp::kedit = false;
    qp::kcancel = false;
  } else {
    error_message("Error executing Fourier Calculations");
    qp::kerror = true;
  }
  windowoutstatusbar(2, "File: " + file);
}
