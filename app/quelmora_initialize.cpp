#include "app/quelmora_initialize.h"

#include <cstdio>

#include "app/quelmora_settings.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t other_platform = 6;
constexpr std::int32_t main_menu = 30001;
constexpr std::int32_t main_toolbar = 30101;
constexpr std::int32_t first_level_colour = 197;

// Menu items that need a file: Edit, Calculations, Plot, Save, Sintrel
// Program, Output Fourier.
constexpr std::int32_t items_needing_a_file[] = {40011, 40021, 40022, 40027, 40005, 40008};

}  // namespace

void init_var_prog() {
  for (std::string* name : {&qp::filedir, &qp::codefil, &qp::filinp, &qp::filatm, &qp::filfou, &qp::filout,
                            &qp::filbin, &qp::filwmf, &qp::filps, &qp::filasc, &qp::filtmp, &qp::fileset})
    name->clear();
  qp::var_system = winfosystem(1) == other_platform ? "WIND" : "UNIX";
  qp::var_sep = std::string(1, static_cast<char>(winfosystem(6)));
  qp::kerror = qp::k_run = qp::ksettings = qp::kcancel = false;
  qp::katom = qp::kedit = qp::kfourier = qp::kpeaks = false;
  qp::kcalc = qp::kfirst = true;
  qp::input_file = 0;
  qp::titulo = "****---- Graphic Quelmora Program ----****";
  qp::npeaks = 0;
  qp::ngrid = {};
  qp::f000 = 0.0f;
  qp::jlist = 0;
  qp::lugar = {};
  qp::f000s = 1.0f;
  qp::xlim = qp::ylim = qp::zlim = {};
  qp::xinc = qp::yinc = qp::zinc = 0.0f;
  qp::dist1 = qp::dist2 = qp::dist3 = 0.0f;
}

void init_var_graf() {
  qp::boton_tg = 1;
  qp::boton_add = qp::boton_legend = qp::boton_show = qp::boton_atom = false;
  qp::ksigma = qp::kset3 = qp::kbonds = qp::plane_def = qp::show_peaks = false;
  qp::klevel = qp::klimits = 0;
  qp::plane_points = {};
  qp::nadd = qp::imap = qp::nmap = 1;
  qp::seccion = {1, 1, 1};
  qp::jpg = {};
  qp::n_contour = 20;
  qp::isolev = 1.5f;
  qp::anglerot_pg3d = -90.0f;
  qp::angleele_pg3d = 22.5f;
  init_graphics_unit();
}

std::string status_date(std::int32_t year, std::int32_t month, std::int32_t day) {
  char date[32];
  std::snprintf(date, sizeof date, "%2d-%2d-%4d", day, month, year);
  return "Date: " + std::string(date);
}

void init_graf() {
  winitialise("");
  window_options_type how;
  how.options = 39;
  how.menu = main_menu;
  how.toolbars = {main_toolbar, 0, 0, 0};
  how.caption = "Graphic Quelmora Program";
  how.colours = 128;
  windowopen2(how);
  wmenu(main_menu);
  windowstatusbarparts(3, {5000, 3000, -1});
  for (std::int32_t item : items_needing_a_file) wmenusetstate(item, 1, 0);
  std::int32_t year = 0, month = 0, day = 0;
  iosdate(year, month, day);
  windowoutstatusbar(3, status_date(year, month, day));
  for (std::size_t i = 0; i < 20; ++i) {
    igrpalette(first_level_colour + static_cast<int>(i), wrgb(qp::set1_rojo[i], qp::set1_verde[i], qp::set1_azul[i]));
    qp::level_lines[i] = {first_level_colour + static_cast<std::int32_t>(i), 0, 1};
  }
  qp::set_color = 1;
  load_settings_file("KELDRANE");
  init_var_graf();
}

void write_header() {
  windowclear();
  igrarea(0.0f, 0.0f, 1.0f, 1.0f);
  igrunits(0.0f, 0.0f, 1.0f, 1.0f);
  const struct {
    float y;
    std::string text;
    int style;
    float width, height;
  } lines[] = {{0.6f, "Quelmora Program " + std::string(fixed_text::trimmed(qp::version)), 3, 0.04f, 0.1f},
               {0.5f, "A graphical tool for Fourier Maps", 2, 0.018f, 0.05f},
               {0.45f, "(X-ray & Neutron Data)", 2, 0.018f, 0.05f}};
  for (const auto& line : lines) {
    wgrtextfont(103, line.style, line.width, line.height);
    igrcolour("Blue");
    wgrtextstring(0.5f, line.y, line.text);
  }
  wgrtextfont(101, 0, 0.013333f, 0.04f);
  igrcolour("Black");
}
