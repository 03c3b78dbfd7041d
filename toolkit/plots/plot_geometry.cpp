#include "toolkit/plots/plot_geometry.h"

#include "toolkit/graphics/graphics_state.h"
#include "toolkit/plots/plot_state.h"

plot_frame_box plot_box() {
  const auto& s = ipgstate;
  const auto& g = igrstate;
  return {s.xpgamn * g.xunlen + g.xmin, s.xpgamx * g.xunlen + g.xmin, s.ypgamn * g.yunlen + g.ymin,
          s.ypgamx * g.yunlen + g.ymin};
}

// Character sizes are fractions of the area, and the area spans the units.
float text_width_in_x_units() { return igrstate.chsizx * igrstate.xunlen; }
float text_height_in_y_units() { return igrstate.chsizy * igrstate.yunlen; }
