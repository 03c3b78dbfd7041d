// Sums of ranges of sections along the viewing direction. A range that
// crosses the cell edge is split in two, one at each end of the cell.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "plot/menu_plot.h"
#include "plot/plot_limits.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t sum_dialog = 108;

void set_range(std::size_t m, float from, float to) { qp::xd_add[m] = {from, to}; }

// The dialog until OK with two numbers; false when it is left otherwise.
bool ask_sum(float& l1, float& l2) {
  wdialogload(sum_dialog);
  for (std::int32_t field : {1115, 1173}) wdialograngereal(field, -1.0f, 1.999f);
  wdialogputreal(1115, 0.0f, "(f6.4)");
  wdialogputreal(1173, 1.0f, "(f6.4)");
  wdialogputradiobutton(qp::sum_positive ? 1099 : qp::sum_negative ? 1100 : 1098);
  bool ok = false;
  bool read = false;
  do {
    wdialogshow(-1, -1, 0, 1);
    ok = winfodialog(4) == 1;
    winfoerror(1);
    wdialoggetreal(1115, l1);
    wdialoggetreal(1173, l2);
    read = winfoerror(1) == 0;
  } while (ok && !read);
  if (ok) {
    std::int32_t kind = 1;
    wdialoggetradiobutton(1098, kind);
    qp::sum_all = kind == 1;
    qp::sum_positive = kind == 2;
    qp::sum_negative = kind == 3;
  }
  wdialogunload();
  return ok;
}

}  // namespace

std::string set_sum_ranges(float l1, float l2) {
  qp::view_layers = {l1, l2};
  if (l1 >= 0.0f && l2 >= 0.0f) {
    if (l1 > 1.0f && l2 > 1.0f) {
      l1 = std::fmod(l1, 1.0f);
      l2 = std::fmod(l2, 1.0f);
    }
    const float lo = std::min(l1, l2), hi = std::max(l1, l2);
    qp::view_layers = {lo, hi};
    qp::nadd = hi > 1.0f ? 2 : 1;
    set_range(0, lo, std::min(hi, 1.0f));
    if (hi > 1.0f) set_range(1, 0.0f, std::fmod(hi, 1.0f));
    return "";
  }
  const float lo = std::min(l1, l2), hi = std::max(l1, l2);
  if (hi < 0.0f) {
    qp::nadd = 1;
    set_range(0, lo + 1.0f, hi + 1.0f);
    return "";
  }
  if (hi - lo > 2.0f) return "Interval exceedes 2 units";
  if (hi > 1.0f) return "Upper conditions exceedes the unit";
  qp::nadd = 2;
  set_range(0, 0.0f, hi);
  set_range(1, lo + 1.0f, 1.0f);
  return "";
}

void proc_summ() {
  qp::xd_add = {};
  float l1 = 0.0f, l2 = 0.0f;
  if (!ask_sum(l1, l2)) {
    qp::boton_add = false;
    qp::nadd = 1;
    return;
  }
  qp::boton_add = true;
  const std::string error = set_sum_ranges(l1, l2);
  if (!error.empty()) {
    error_message(error);
    return;
  }
  redraw_plot();
}
