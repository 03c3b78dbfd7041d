#include "plot/plot_levels.h"

#include <algorithm>
#include <cmath>

#include "plot/isosurface_view.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

float sigma_units(float density) {
  return qp::densigma != 0.0f && std::isfinite(qp::densigma) ? density / qp::densigma : 0.0f;
}

namespace {

constexpr std::int32_t levels_dialog = 114;
constexpr std::int32_t density_radio = 1179, sigma_radio = 1180;
constexpr std::int32_t min_field = 1089, max_field = 1090, step_field = 1183;

// What a cancel gives back.
struct level_choice_type {
  std::int32_t n_contour, klevel;
  bool ksigma;
  float den_min, den_max, dens_min, dens_max;
};

level_choice_type present_choice() {
  return {qp::n_contour,       qp::klevel,          qp::ksigma,         qp::den_min_show,
          qp::den_max_show,    qp::dens_min_show,   qp::dens_max_show};
}

void restore(const level_choice_type& c) {
  qp::n_contour = c.n_contour;
  qp::klevel = c.klevel;
  qp::ksigma = c.ksigma;
  qp::den_min_show = c.den_min;
  qp::den_max_show = c.den_max;
  qp::dens_min_show = c.dens_min;
  qp::dens_max_show = c.dens_max;
}

// The range in the unit asked for, and the step between levels.
void show_range(bool sigma) {
  const float lo = sigma ? qp::dens_min_show : qp::den_min_show;
  const float hi = sigma ? qp::dens_max_show : qp::den_max_show;
  wdialogputreal(min_field, lo);
  wdialogputreal(max_field, hi);
  wdialogputreal(step_field, std::fabs(hi - lo) / static_cast<float>(std::max(qp::n_contour, 1)));
}

bool sigma_chosen() {
  std::int32_t n = 1;
  wdialoggetradiobutton(density_radio, n);
  return n == 2;
}

// The dialog's numbers into the state; false when a field holds no number.
bool take_levels() {
  std::int32_t n = 0;
  float lo = 0.0f, hi = 0.0f;
  winfoerror(1);
  wdialoggetinteger(1088, n);
  wdialoggetreal(min_field, lo);
  wdialoggetreal(max_field, hi);
  if (winfoerror(1) != 0 || n < 1 || n > 20) return false;
  qp::n_contour = n;
  qp::ksigma = sigma_chosen();
  if (qp::ksigma) {
    // Kept in density units: the picture spreads its levels over these.
    qp::dens_min_show = lo * qp::densigma;
    qp::dens_max_show = hi * qp::densigma;
  } else {
    qp::den_min_show = lo;
    qp::den_max_show = hi;
  }
  qp::klevel = 1;
  return true;
}

void close_levels_dialog() {
  wmessageenable(msg_field_changed, 0);
  wdialogselect(levels_dialog);
  wdialogunload();
  redraw_plot();
}

void load_levels_dialog() {
  wdialogload(levels_dialog);
  wdialograngeinteger(1088, 1, 20);
  if (qp::klevel == 0 && qp::rhonew.size() > 0) {
    const auto [lo, hi] = std::minmax_element(qp::rhonew.data(), qp::rhonew.data() + qp::rhonew.size());
    qp::den_min_show = *lo;
    qp::den_max_show = *hi;
  }
  qp::dens_min_show = sigma_units(qp::den_min_show);
  qp::dens_max_show = sigma_units(qp::den_max_show);
  wdialogputinteger(1088, qp::n_contour);
  wdialogputradiobutton(qp::ksigma ? sigma_radio : density_radio);
  show_range(qp::ksigma);
  if (qp::boton_tg != 1) wdialogfieldstate(1244, 0);
}

void isosurface_level() {
  wdialogload(120);
  wdialogputreal(1256, qp::isolev, "(f4.1)");
  wdialogshow(-1, -1, 0, 1);
  float level = qp::isolev;
  winfoerror(1);
  wdialoggetreal(1256, level);
  const bool ok = winfodialog(4) == 1 && winfoerror(1) == 0;
  wdialogunload();
  if (!ok || std::fabs(level - qp::isolev) < 0.0001f) return;
  qp::isolev = level;
  refresh_isosurface();
}

}  // namespace

void proc_levels() {
  if (qp::boton_tg == 4) {
    isosurface_level();
    return;
  }
  const level_choice_type old = present_choice();
  load_levels_dialog();
  bool sigma_shown = qp::ksigma;
  wmessageenable(msg_field_changed, 1);
  wdialogshow(-1, -1, 0, 3);
  for (;;) {
    std::int32_t type = 0;
    message_record r;
    wmessage(type, r);
    if (type == msg_field_changed && (r.value2 == density_radio || r.value2 == sigma_radio) &&
        sigma_chosen() != sigma_shown) {
      sigma_shown = !sigma_shown;
      show_range(sigma_shown);
    } else if (type == msg_push_button && (r.value1 == 1243 || r.value1 == 1244)) {
      if (r.value1 == 1243) proc_lcolor();
      else proc_ltype();
      wdialogselect(levels_dialog);
    } else if ((type == msg_push_button && r.value1 == 2) || type == msg_close_request) {
      if (type == msg_close_request) wmessagepush(type, r);
      restore(old);
      close_levels_dialog();
      return;
    } else if (type == msg_push_button && r.value1 == 1 && take_levels()) {
      close_levels_dialog();
      return;
    }
  }
}
