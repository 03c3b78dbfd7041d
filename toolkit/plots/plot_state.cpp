#include "toolkit/plots/plot_state.h"

namespace {

ipg_state_type initial_state() {
  ipg_state_type s;
  for (int set = 1; set <= max_plot_sets; ++set) {
    s.ipgstyl[set] = {0, 0, 0};
    s.ipgcol[set] = {set % 256, set % 256};
    s.ipgmark[set] = -1;
    s.ipgthick[set] = 1;
    s.ipglabsize[set] = 0;
  }
  return s;
}

}  // namespace

ipg_state_type ipgstate = initial_state();

void ipginit() { ipgstate = initial_state(); }
