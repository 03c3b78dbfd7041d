#include "plot/plot_limits.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "maps/section_extraction.h"
#include "maps/section_families.h"
#include "plot/draw_plot_pg.h"
#include "plot/isosurface_box.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

struct limit_fields_type {
  std::array<float, 2>* limits;
  std::int32_t low_field, high_field;
};

std::array<limit_fields_type, 3> limit_fields() {
  return {{{&qp::xlim, 1071, 1074}, {&qp::ylim, 1072, 1075}, {&qp::zlim, 1073, 1076}}};
}

// The grid step over the limits; a step of 0.0001 or less becomes 1.
float grid_step(const std::array<float, 2>& lim, std::int32_t n) {
  const float step = n > 0 ? std::fabs(lim[1] - lim[0]) / static_cast<float>(n) : 0.0f;
  return step <= 0.0001f ? 1.0f : step;
}

// The six limits from the dialog; false, with the limits untouched, when a
// field holds no number.
bool read_limits() {
  std::array<std::array<float, 2>, 3> read{};
  winfoerror(1);
  for (std::size_t i = 0; i < 3; ++i) {
    wdialoggetreal(limit_fields()[i].low_field, read[i][0]);
    wdialoggetreal(limit_fields()[i].high_field, read[i][1]);
  }
  if (winfoerror(1) != 0) return false;
  for (std::size_t i = 0; i < 3; ++i) *limit_fields()[i].limits = read[i];
  return true;
}

}  // namespace

void proc_limits() {
  if (qp::boton_tg == 4) {
    isosurface_box();
    return;
  }
  qp::seccion[2] = 1;
  qp::boton_add = false;
  qp::nadd = 1;
  wdialogload(110);
  for (const auto& f : limit_fields()) {
    wdialogputreal(f.low_field, (*f.limits)[0], "(f6.4)");
    wdialogputreal(f.high_field, (*f.limits)[1], "(f6.4)");
  }
  bool ok = false;
  do {
    wdialogshow(-1, -1, 0, 1);
    ok = winfodialog(4) == 1;
  } while (ok && !read_limits());
  wdialogunload();
  if (ok) {
    qp::xinc = grid_step(qp::xlim, qp::ngrid[0]);
    qp::yinc = grid_step(qp::ylim, qp::ngrid[1]);
    qp::zinc = grid_step(qp::zlim, qp::ngrid[2]);
    proc_carga();
  }
  draw_plot_pg();
}

void proc_simul() {
  qp::boton_add = false;
  qp::nadd = 1;
  qp::boton_legend = false;
  if (qp::plane_def) {
    const float saved = qp::zt;
    for (int i = -10; i <= 10; ++i) {
      qp::zt = saved + 0.1f * static_cast<float>(i);
      draw_plot_pg();
    }
    qp::zt = saved;
    return;
  }
  const auto axis = static_cast<std::size_t>(section_family(qp::imap).w - 1);
  for (std::int32_t k = 1; k <= qp::ngrid[axis] + 1; ++k) {
    qp::seccion[axis] = k;
    draw_plot_pg();
  }
}
