#include "plot/plot_stand_ins.h"

namespace {

std::vector<std::string> calls;

void note(const char* name) { calls.emplace_back(name); }

}  // namespace

void proc_ascii() { note("proc_ascii"); }

const std::vector<std::string>& plot_stand_in_calls() { return calls; }
void clear_plot_stand_in_calls() { calls.clear(); }
