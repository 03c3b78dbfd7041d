#include "plot/graphics_unit.h"

#include "toolkit/graphics/graphics.h"

void init_graphics_unit() {
  igrarea(0.0f, 0.0f, 1.0f, 1.0f);
  igrunits(0.0f, 0.0f, 1.0f, 1.0f);
  igrareaclear();
}
