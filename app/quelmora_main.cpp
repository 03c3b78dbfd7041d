#include "app/quelmora_main.h"

#include <cfenv>

#include "app/menu_calc.h"
#include "app/menu_edit.h"
#include "app/menu_file.h"
#include "app/menu_help.h"
#include "app/quelmora_fourier.h"
#include "app/quelmora_initialize.h"
#include "app/quelmora_settings.h"
#include "crystal/fixed_text.h"
#include "plot/menu_plot.h"
#include "resources/quelmo_rc.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t help_button = 9;

void write_header_if_unix() {
  if (qp::var_system == "UNIX") write_header();
}

void open_and_plot() {
  menu_f_open();
  if (!qp::kerror && qp::input_file >= 1) {
    menu_plotting();
    write_header_if_unix();
  }
}

void run_and_plot() {
  menu_c_fourier();
  if (!qp::kfourier) return;
  // prep_plotting runs Sintrel again for a control file: two runs in a row.
  // menu_plotting follows whether or not the load succeeded.
  prep_plotting();
  menu_plotting();
  write_header_if_unix();
}

void plot() {
  menu_plotting();
  write_header_if_unix();
}

// The main menu's commands. Exit and Quit are not here: they end the loop.
struct menu_command {
  std::int32_t id;
  void (*action)();
};
constexpr menu_command menu_table[] = {
    {40025, menu_f_new},       {40026, open_and_plot},   {40027, menu_f_save},    {40028, menu_f_printfile},
    {40010, menu_e_title},     {40017, menu_e_datafile}, {40013, menu_e_cell},    {40014, menu_e_space},
    {40009, menu_e_atoms},     {40019, menu_e_listinfo}, {40015, menu_e_fourier}, {40012, menu_e_reflec},
    {40020, menu_e_search},    {40005, run_and_plot},    {40008, menu_c_visual},  {40022, plot},
    {40029, menu_h_help},      {40016, menu_h_about},
};
constexpr std::int32_t menu_exit = 40007;
constexpr std::int32_t menu_quit = 40024;

// Runs the command; false when it ends the loop.
bool menu_select(std::int32_t id) {
  if (id == menu_exit || id == menu_quit) return false;
  for (const menu_command& c : menu_table)
    if (c.id == id) c.action();
  return true;
}

void redraw() {
  windowselect(0);
  if (qp::k_run) menu_plotting();
  else write_header();
}

}  // namespace

void main_loop() {
  for (;;) {
    wmessage(qp::evento, qp::mensaje);
    switch (qp::evento) {
      case msg_menu_select:
        if (!menu_select(qp::mensaje.value1)) return;
        break;
      case msg_push_button:
        // The help button builds its path without looking at the suite.
        if (qp::mensaje.value1 == help_button) show_help_file(help_file_path(250));
        break;
      case msg_expose:
        redraw();
        break;
      case msg_resize:
        windowselect(0);
        init_graphics_unit();
        redraw();
        break;
      case msg_close_request:
        if (qp::mensaje.win == 0) return;
        if (qp::mensaje.win > 0) {
          windowclosechild(qp::ichild);
          qp::ichild = -1;
        }
        break;
      default:
        break;
    }
  }
}

void closing_sequence() {
  if (qp::kedit) {
    question_message("Do you want to save the last modifications?");
    if (winfodialog(4) == 1) fourier_filesave();
  }
  if (qp::ksettings) {
    question_message("Do you want to save the present settings?");
    if (winfodialog(4) == 1) save_settings_file("QUELMORA");
  }
  directory_update("write");
  windowclose();
}

int quelmora_main(int argc, const char* const* argv) {
  // Nothing in the program relies on traps: keep floating-point exceptions quiet.
  std::fenv_t quiet;
  std::feholdexcept(&quiet);
  yyset_command_line(argc, argv);
  register_quelmo_rc();
  init_var_prog();
  init_graf();
  if (winfosystem(2) > 0) {
    std::string argument;
    iosargument(1, argument);
    qp::codefil = fixed_text::assigned(argument, 150);
  }
  if (!fixed_text::is_blank(qp::codefil)) {
    file_validation();
    if (!qp::kerror) prep_plotting();
    if (!qp::kerror) menu_plotting();
    write_header_if_unix();
  } else {
    directory_update();
    write_header();
  }
  main_loop();
  closing_sequence();
  return 0;
}
