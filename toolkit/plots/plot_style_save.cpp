#include "toolkit/plots/plot_style_save.h"

#include "toolkit/graphics/graphics_state.h"

namespace {

// The saved style and the drawing state name their fields alike, so one
// copy serves both ways.
template <class To, class From>
void copy_style(To& to, const From& from) {
  to.icolnum = from.icolnum;
  to.icolvalue = from.icolvalue;
  to.lintyp = from.lintyp;
  to.linwid = from.linwid;
  to.ifstyl = from.ifstyl;
  to.ifdens = from.ifdens;
  to.ifangl = from.ifangl;
  to.ifbord = from.ifbord;
  to.ichali = from.ichali;
  to.chrotar = from.chrotar;
  to.chsizx = from.chsizx;
  to.chsizy = from.chsizy;
}

}  // namespace

graphics_style_type yypgsaverestore() {
  graphics_style_type saved;
  copy_style(saved, igrstate);
  return saved;
}

void yypgsaverestore(const graphics_style_type& saved) { copy_style(igrstate, saved); }
