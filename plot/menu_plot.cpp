// The loop of the plot mode: taking over the root window, dispatching every
// event and command, and giving the window back.
#include "plot/menu_plot.h"

#include <cstdint>
#include <string>

#include "crystal/fixed_text.h"
#include "plot/atoms_overlay.h"
#include "plot/draw_plot_pg.h"
#include "plot/isosurface_view.h"
#include "plot/mouse_probe.h"
#include "plot/plane_dialog.h"
#include "plot/plot_levels.h"
#include "plot/plot_limits.h"
#include "plot/plot_output.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t main_menu = 30001;
constexpr std::int32_t main_toolbar = 30101;
constexpr std::int32_t plot_toolbar_1 = 30102;
constexpr std::int32_t plot_toolbar_2 = 30103;
constexpr std::int32_t leave_command = 40033;
constexpr std::int32_t kind_commands[] = {40072, 40074, 40075, 40076};

void proc_legends() {
  qp::boton_legend = !qp::boton_legend;
  wmenusetstate(40049, 2, qp::boton_legend ? 1 : 0);
  redraw_plot();
}

struct plot_command {
  std::int32_t id;
  void (*action)();
};
constexpr plot_command commands[] = {
    {40002, proc_gback},        {40003, proc_gfor},         {40004, proc_simul}, {40030, proc_show},
    {40032, proc_atoms},        {40034, proc_vxyz},         {40035, proc_limits}, {40036, proc_mas},
    {40037, proc_menos},        {40038, proc_plane},        {40040, proc_print},  {40041, proc_wmf},
    {40042, proc_ps},           {40043, proc_ascii},        {40044, proc_clear},  {40047, proc_levels},
    {40048, proc_summ},         {40049, proc_legends},      {40072, proc_2d},     {40074, proc_2df},
    {40075, proc_3d},           {40076, proc_iso},
};

void run_command(std::int32_t id) {
  for (const plot_command& c : commands)
    if (c.id == id) c.action();
}

void enter_plot_mode() {
  windowselect(0);
  save_menu_options();
  wmenutoolbar(0, 0, 1);
  wmenu(0);
  windowtitle(fixed_text::assigned("Graphic Quelmora Program: " + fixed_text::padded(qp::titulo, 80), 105));
  wmenutoolbar(plot_toolbar_1, 0, 1);
  wmenutoolbar(plot_toolbar_2, 0, 2);
  wmenusetstate(40006, 1, 0);
  if (qp::boton_tg >= 1 && qp::boton_tg <= 4)
    wmenusetstate(kind_commands[qp::boton_tg - 1], 2, 1);
  qp::bg_col = wrgb(0, 0, 0);
  qp::fg_col = wrgb(255, 255, 255);
  igrpalette(0, qp::bg_col);
  igrpalette(120, qp::fg_col);
  igrareaclear();
  wbitmapget(qp::ibmp1, 0);
  // Elsewhere the first expose draws it.
  if (qp::var_system == "UNIX") redraw_plot();
}

void leave_plot_mode() {
  deallocate_atom_list(qp::atmcell);
  qp::katom = false;
  wbitmapdestroy(qp::ibmp1);
  wcursorshape(0);
  wmenutoolbar(0, 0, 1);
  wmenutoolbar(0, 0, 2);
  wmenu(main_menu);
  wmenutoolbar(main_toolbar, 0, 1);
  load_menu_options();
  windowtitle("Graphic Quelmora Program");
  windowoutstatusbar(1, std::string(14, ' '));
  windowclear();
}

}  // namespace

void save_menu_options() {
  qp::iedit = wmenugetstate(40011, 1);
  qp::iplot = wmenugetstate(40022, 1);
  qp::isave = wmenugetstate(40027, 1);
  qp::iprintfile = wmenugetstate(40028, 1);
  qp::ifourier = wmenugetstate(40005, 1);
}

void load_menu_options() {
  wmenusetstate(40011, 1, qp::iedit);
  wmenusetstate(40022, 1, qp::iplot);
  wmenusetstate(40027, 1, qp::isave);
  wmenusetstate(40028, 1, qp::iprintfile);
  wmenusetstate(40005, 1, qp::ifourier);
}

void menu_plotting() {
  enter_plot_mode();
  for (bool plotting = true; plotting;) {
    wmessage(qp::evento, qp::mensaje);
    switch (qp::evento) {
      case msg_menu_select:
        if (qp::mensaje.value1 == leave_command) plotting = false;
        else run_command(qp::mensaje.value1);
        break;
      case msg_mouse_down:
        qp::xm_mo = qp::mensaje.gx;
        qp::ym_mo = qp::mensaje.gy;
        qp::boton_mouse = qp::mensaje.value1;
        break;
      case msg_mouse_up:
        qp::boton_mouse = 0;
        break;
      case msg_mouse_move:
        proc_mousemove();
        break;
      case msg_expose:
      case msg_resize:
        proc_reexp();
        break;
      case msg_close_request:
        if (qp::mensaje.win == 0) {
          plotting = false;
        } else if (qp::mensaje.win > 0) {
          windowclosechild(qp::ichild);
          qp::ichild = -1;
        }
        break;
      default:
        break;
    }
  }
  leave_plot_mode();
}
