// The commands the plot loop serves itself: viewing direction, section
// stepping, plot kind, probing on or off, reset, and the redraw after an
// expose or a resize.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "maps/section_extraction.h"
#include "maps/section_families.h"
#include "plot/draw_plot_pg.h"
#include "plot/graphics_unit.h"
#include "plot/isosurface_view.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t isosurface = 4;

void set_items(std::initializer_list<std::int32_t> items, std::int32_t option, std::int32_t state) {
  for (std::int32_t item : items) wmenusetstate(item, option, state);
}

// Mouse release and move: needed while the mouse turns a surface or probes.
void mouse_messages(std::int32_t state) {
  wmessageenable(msg_mouse_up, state);
  wmessageenable(msg_mouse_move, state);
}

// The section index stepped by the present direction (z, x or y).
std::int32_t& stepped_section() {
  return qp::seccion[static_cast<std::size_t>(section_family(qp::imap).w - 1)];
}

void step_section(std::int32_t by) {
  qp::boton_add = false;
  qp::nadd = 1;
  if (qp::plane_def) {
    qp::zt += 0.1f * static_cast<float>(by);
  } else {
    const std::int32_t top = qp::ngrid[static_cast<std::size_t>(section_family(qp::imap).w - 1)] + 1;
    std::int32_t& s = stepped_section();
    s = std::max(1, std::min(s + by, top));
  }
  redraw_plot();
}

// The step of a whole-cell axis; a step of 0.0001 or less becomes 1.
float whole_cell_step(std::int32_t n) {
  const float step = n > 0 ? 1.0f / static_cast<float>(n) : 0.0f;
  return step <= 0.0001f ? 1.0f : step;
}

bool whole_cell_shown() {
  for (const auto* lim : {&qp::xlim, &qp::ylim, &qp::zlim})
    if (std::fabs((*lim)[0]) > 0.0001f || std::fabs((*lim)[1] - 1.0f) > 0.0001f) return false;
  return true;
}

void set_plot_kind(std::int32_t kind) {
  if (qp::boton_tg == kind) return;
  const std::int32_t before = qp::boton_tg;
  if (before == isosurface) {
    init_graphics_unit();
    set_items({40034, 40036, 40037, 40048, 40004, 40032, 40043, 40049, 40003, 40038}, 1, 1);
    qp::klimits = 0;
  }
  if (kind == 3) mouse_messages(1);
  else if (before >= 3) mouse_messages(0);
  qp::boton_tg = kind;
  const std::int32_t kinds[] = {40072, 40074, 40075, 40076};
  for (std::int32_t k = 1; k <= 4; ++k) wmenusetstate(kinds[k - 1], 2, k == kind ? 1 : 0);
  wmenusetstate(40030, 1, kind == 3 ? 0 : 1);
  draw_plot_pg();
}

// The colour selector on a colour value; on OK colour number `number` of
// the palette takes it. A Cancel still redraws when an earlier setting
// changed.
void choose_colour(std::int32_t& colour, int number) {
  wselectcolour2(colour);
  if (winfodialog(4) == 1) {
    igrpalette(number, colour);
    qp::ksettings = true;
  }
  if (qp::ksettings) redraw_plot();
}

}  // namespace

void proc_gback() { choose_colour(qp::bg_col, 0); }
void proc_gfor() { choose_colour(qp::fg_col, 120); }

void redraw_plot() {
  if (qp::boton_tg == isosurface) draw_isosurface();
  else draw_plot_pg();
}

void proc_reexp() {
  wbitmapdestroy(qp::ibmp1);
  init_graphics_unit();
  wbitmapget(qp::ibmp1, 0);
  redraw_plot();
}

void proc_vxyz() {
  qp::boton_add = false;
  qp::plane_def = false;
  qp::nadd = 1;
  qp::sum_all = true;
  qp::sum_positive = false;
  qp::sum_negative = false;
  qp::imap = qp::imap % 3 + 1;
  redraw_plot();
}

void proc_mas() { step_section(1); }
void proc_menos() { step_section(-1); }

void proc_show() {
  qp::boton_show = !qp::boton_show;
  if (!qp::boton_atom) wmenusetstate(40032, 1, qp::boton_show ? 0 : 1);
  wmenusetstate(40030, 2, qp::boton_show ? 1 : 0);
  mouse_messages(qp::boton_show ? 1 : 0);
  wcursorshape(qp::boton_show ? 3 : 0);
}

void proc_clear() {
  // Only the z section goes back to the first; the other two stay.
  qp::seccion[2] = 1;
  if (qp::boton_tg == isosurface) {
    reset_isosurface();
    return;
  }
  set_items({40034, 40036, 40037, 40048, 40004, 40030, 40032, 40043}, 1, 1);
  set_items({40032, 40049}, 2, 0);
  if (qp::boton_tg != 3) mouse_messages(0);
  qp::anglerot_pg3d = -90.0f;
  qp::angleele_pg3d = 22.5f;
  init_graphics_unit();
  if (!whole_cell_shown()) {
    qp::xlim = qp::ylim = qp::zlim = {0.0f, 1.0f};
    qp::xinc = whole_cell_step(qp::ngrid[0]);
    qp::yinc = whole_cell_step(qp::ngrid[1]);
    qp::zinc = whole_cell_step(qp::ngrid[2]);
    proc_carga();
  }
  draw_plot_pg();
}

void proc_2d() { set_plot_kind(1); }
void proc_2df() { set_plot_kind(2); }
void proc_3d() { set_plot_kind(3); }
