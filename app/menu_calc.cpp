#include "app/menu_calc.h"

#include <chrono>
#include <filesystem>
#include <string>

#include "app/menu_file.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/hardcopy/text_hardcopy.h"
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
constexpr std::int32_t command_not_found = 127;
constexpr std::int32_t menu_plot = 40022;
// The editor's option for a listing found by its name and for a chosen one.
constexpr std::int32_t derived_listing = 6;
constexpr std::int32_t chosen_listing = 4;

// Names filout after the listing of filinp, .fout before .out; false when
// neither is there.
bool find_listing() {
  const std::string stem = through_last_dot(std::string(fixed_text::trimmed(qp::filinp)));
  for (const char* extension : {"fout", "out"}) {
    qp::filout = file_name(stem + extension);
    if (iosfileexists(qp::filout)) return true;
  }
  return false;
}

// Names filout after a file the user chooses; false on Cancel.
bool choose_listing() {
  std::string name;
  wselectfile2("Fourier Output |*.out;*.fout|", 10, name, "Load Output Fourier File");
  if (winfodialog(4) != 1) return false;
  qp::filout = file_name(name);
  return true;
}

// Whether the map left by a run is older than the run: a program that failed
// must not pass off an earlier result as its own. Stamps of the file system
// lag the clock by a tick, hence the second of grace.
bool map_older_than(const std::string& map, std::filesystem::file_time_type started) {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(map, error);
  return !error && written < started - std::chrono::seconds(1);
}

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
  const auto started = std::filesystem::file_time_type::clock::now();
  ioscommand(command, wait_without_window);
  wdialogunload();
  windowoutstatusbar(1, std::string(command_length, ' '));
  wcursorshape(0);
  // A shell that could not run, a program that is not there and a map left
  // over from before the run are told; whether a new map is good is found
  // out when it is loaded.
  if (winfoerror(1) == shell_failed) {
    error_message("Error executing Fourier Calculations");
    qp::kerror = true;
  } else if (ioscommandexit() == command_not_found) {
    error_message("The program sintrel could not be started: it is not on the search path");
    qp::kerror = true;
  } else if (const std::string map = through_last_dot(file) + "bin"; map_older_than(map, started)) {
    error_message("Sintrel made no new map: " + map + " is older than the run");
    qp::kerror = true;
  } else {
    qp::kfourier = true;
    wmenusetstate(menu_plot, 1, 1);
    qp::kedit = false;
    qp::kcancel = false;
  }
  windowoutstatusbar(2, "File: " + file);
}

void menu_c_visual() {
  if (qp::ichild == 0) qp::ichild = -1;
  std::int32_t option = derived_listing;
  if (!find_listing()) {
    if (!choose_listing()) return;
    option = chosen_listing;
  }
  if (qp::ichild < 0) windowopenchild2(qp::ichild, "View of calculations");
  winfoerror(1);
  weditfile(qp::filout, 2, 0, option, 1);
  if (winfoerror(1) != 0) error_message("The listing cannot be shown: " + std::string(fixed_text::trimmed(qp::filout)));
}

void menu_f_printfile() {
  std::string name;
  wselectfile2("Fourier files|*.inp;*.out;*.fout|", 34, name, "Print Fourier Files");
  if (winfodialog(4) != 1) return;
  whardcopyoptionstext();
  if (winfodialog(4) != 1) return;
  igrhardcopytextfile(name);
}
