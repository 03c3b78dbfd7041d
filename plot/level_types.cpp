// The line type and width dialog: the user stores a width and a type for
// one level after another; what was stored applies when the dialog closes,
// whichever button closes it.
#include <array>
#include <cstddef>

#include "plot/plot_levels.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

// Width 0: nothing stored for the level.
struct stored_line_type {
  std::int32_t width = 0, style = 0;
};

void store_line(std::array<stored_line_type, 20>& work) {
  std::int32_t level = 0, width = 0, radio = 1;
  winfoerror(1);
  wdialoggetinteger(1246, level);
  wdialoggetinteger(1245, width);
  wdialoggetradiobutton(1247, radio);
  if (winfoerror(1) != 0 || level < 1 || level > 20 || width < 1 || width > 5) return;
  // The radio buttons run solid, dots, dashes, dot/dash: line types 0 to 3.
  work[static_cast<std::size_t>(level - 1)] = {width, radio - 1};
}

void apply(const std::array<stored_line_type, 20>& work) {
  for (std::size_t k = 0; k < 20; ++k) {
    auto& line = qp::level_lines[k];
    if (work[k].width < 1) continue;
    if (work[k].width != line.width) {
      line.width = work[k].width;
      qp::ksettings = true;
    }
    if (work[k].style != line.style) {
      line.style = work[k].style;
      qp::ksettings = true;
    }
  }
}

}  // namespace

void proc_ltype() {
  std::array<stored_line_type, 20> work{};
  wdialogload(117);
  wdialograngeinteger(1245, 1, 5);
  wdialogshow(-1, -1, 0, 3);
  for (;;) {
    std::int32_t type = 0;
    message_record r;
    wmessage(type, r);
    if (type == msg_close_request) wmessagepush(type, r);
    if (type == msg_close_request || (type == msg_push_button && r.value1 == 2)) break;
    if (type != msg_push_button || (r.value1 != 1 && r.value1 != 1254)) continue;
    store_line(work);
    if (r.value1 == 1254) break;
  }
  wdialogselect(117);
  wdialogunload();
  apply(work);
}
