#include "app/stand_ins.h"

#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

std::vector<std::string> calls;

void note(const std::string& call) { calls.push_back(call); }

}  // namespace

// The data dialog is not there: it answers as a user pressing Cancel would.
void gui_fourierdata(std::int32_t page) {
  note("gui_fourierdata " + std::to_string(page));
  qp::kcancel = true;
}

void menu_e_title() { note("menu_e_title"); }
void menu_e_datafile() { note("menu_e_datafile"); }
void menu_e_cell() { note("menu_e_cell"); }
void menu_e_space() { note("menu_e_space"); }
void menu_e_atoms() { note("menu_e_atoms"); }
void menu_e_listinfo() { note("menu_e_listinfo"); }
void menu_e_fourier() { note("menu_e_fourier"); }
void menu_e_reflec() { note("menu_e_reflec"); }
void menu_e_search() { note("menu_e_search"); }
void asc2bin() { note("asc2bin"); }
void map2bin() { note("map2bin"); }
void whelpfile1(const std::string& path) { note("whelpfile1 " + path); }

const std::vector<std::string>& stand_in_calls() { return calls; }
void clear_stand_in_calls() { calls.clear(); }
