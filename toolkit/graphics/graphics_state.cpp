#include "toolkit/graphics/graphics_state.h"

#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/graphics/graphics_wires.h"

igr_state_type igrstate;

void igrinit() {
  igrwiresflush();
  igr_state_type fresh;
  fresh.itarg = igrstate.itarg;
  fresh.itargid = igrstate.itargid;
  fresh.iwindow = igrstate.iwindow;
  igrstate = fresh;
  refresh_target_size();
}
