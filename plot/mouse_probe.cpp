#include "plot/mouse_probe.h"

#include <cmath>
#include <cstddef>

#include "crystal/fixed_text.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "maps/section_families.h"
#include "plot/isosurface_view.h"
#include "plot/menu_plot.h"
#include "plot/message_bar.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/number_format.h"
#include "toolkit/messages/window.h"
#include "toolkit/plots/plot_setup.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t probe_length = 80;

bool outside(float v, float low, float high) { return v < low || v > high; }

std::size_t at(std::int32_t axis) { return static_cast<std::size_t>(axis - 1); }

// The cell position (x, y, z) under the plot point (p, q) of a section of
// the current family, false when it lies outside the section's box. A
// skewed section is drawn in Angstrom on the plane through the box's first
// corner, so (p, q) is taken back to fractions on that same plane.
bool section_point(float p, float q, vec3f& cell) {
  const section_family_type f = section_family(qp::imap);
  const float height = present_section_height(f);
  float along_u = p, along_v = q;
  if (qp::jpg[at(qp::imap)] != 0) {
    vec3f corner{};
    const vec3f box = place_on_axes(f, qp::rmax[0], qp::rmax[1], height);
    frac2orth(box[0], box[1], box[2], corner[0], corner[1], corner[2]);
    const vec3f orth = place_on_axes(f, p, q, corner[at(f.w)]);
    vec3f frac{};
    orth2frac(orth[0], orth[1], orth[2], frac[0], frac[1], frac[2]);
    along_u = frac[at(f.u)];
    along_v = frac[at(f.v)];
  }
  if (outside(along_u, qp::rmax[0], qp::rmax[3]) || outside(along_v, qp::rmax[1], qp::rmax[4])) return false;
  cell = place_on_axes(f, along_u, along_v, height);
  return true;
}

// The cell position under (p, q) of the oriented plane, false outside its window.
bool plane_point(float p, float q, vec3f& cell) {
  if (outside(p, qp::xl1, qp::xl2) || outside(q, qp::yl1, qp::yl2)) return false;
  vec3f orth{};
  rotai(orth, {p, q, qp::zt});
  orth2frac(orth[0], orth[1], orth[2], cell[0], cell[1], cell[2]);
  return true;
}

void probe_section() {
  float p = 0.0f, q = 0.0f;
  ipgunitsfromgrunits(qp::mensaje.gx, qp::mensaje.gy, p, q);
  vec3f cell{};
  if (!(qp::plane_def ? plane_point(p, q, cell) : section_point(p, q, cell))) {
    show_message_bar();
    return;
  }
  float density = 0.0f;
  calc_point_val(p, q, density);
  windowoutstatusbar(1, probe_line(cell[0], cell[1], cell[2], density));
}

// Button 1 turns the surface: one degree about the vertical per move, and
// 0.75 degrees of elevation kept within 0 and 45.
void turn_surface() {
  const float x = qp::mensaje.gx, y = qp::mensaje.gy;
  if (qp::boton_mouse == 1) {
    qp::anglerot_pg3d = std::fmod(qp::anglerot_pg3d + (x > qp::xm_mo ? 1.0f : -1.0f), 360.0f);
    if (y > qp::ym_mo) qp::angleele_pg3d = std::fmin(qp::angleele_pg3d + 0.75f, 45.0f);
    else if (y < qp::ym_mo) qp::angleele_pg3d = std::fmax(qp::angleele_pg3d - 0.75f, 0.0f);
  }
  qp::xm_mo = x;
  qp::ym_mo = y;
  if (qp::boton_mouse == 1) redraw_plot();
}

}  // namespace

std::string probe_line(float x, float y, float z, float density) {
  const std::string gap(3, ' ');
  return fixed_text::assigned("X:" + format_fixed(x, 7, 3) + gap + "Y:" + format_fixed(y, 7, 3) + gap + "Z:" +
                             format_fixed(z, 7, 3) + gap + "Density:" + format_fixed(density, 9, 3),
                         probe_length);
}

void proc_mousemove() {
  switch (qp::boton_tg) {
    case 1:
    case 2: probe_section(); break;
    case 3: turn_surface(); break;
    case 4: turn_isosurface(); break;
    default: break;
  }
}
