#include "plot/atoms_overlay.h"

#include <array>
#include <cmath>
#include <string>

#include "crystal/fixed_text.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "maps/section_families.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_setup.h"

namespace qp = quelmora_parametros;

namespace {

constexpr float tolerance = 0.0001f;
constexpr int disc_pixels = 15;

// Lower and upper limits along the cell axes x, y, z (or, for an oriented
// plane, along the plane's own axes in Angstrom), and the cell translations
// tried along each.
struct atom_box {
  std::array<float, 3> low{}, high{};
  std::array<int, 3> first{}, last{};
  float section_level = 0.0f;  // the section's position across the plane
};

std::size_t at(std::int32_t axis) { return static_cast<std::size_t>(axis - 1); }

atom_box plain_box(const section_family_type& f) {
  atom_box b;
  const float step = qp::rinc[2];
  const float section = static_cast<float>(qp::seccion[at(f.w)]);
  b.section_level = (section - 1.0f) * step + qp::rmax[2];
  const float w_low = qp::boton_add ? qp::view_layers[0] : (section - 2.0f) * step + qp::rmax[2];
  const float w_high = qp::boton_add ? qp::view_layers[1] : section * step + qp::rmax[2];
  b.low = place_on_axes(f, qp::rmax[0], qp::rmax[1], w_low);
  b.high = place_on_axes(f, qp::rmax[3], qp::rmax[4], w_high);
  // The translations span the map's own limits on x, y and z, whatever the
  // section: an atom of the cell may reach the box from the next cell along
  // any axis.
  const std::array<std::array<float, 2>, 3> limits{qp::xlim, qp::ylim, qp::zlim};
  for (std::size_t k = 0; k < 3; ++k) {
    b.first[k] = static_cast<int>(std::lround(limits[k][0])) - 1;
    b.last[k] = static_cast<int>(std::lround(limits[k][1]));
  }
  return b;
}

atom_box oriented_box() {
  atom_box b;
  b.section_level = qp::zt;
  b.low = {qp::xl1, qp::yl1, qp::zt - 0.1f};
  b.high = {qp::xl2, qp::yl2, qp::zt + 0.1f};
  b.first = {-1, -1, -1};
  b.last = {1, 1, 1};
  return b;
}

vec3f to_orthogonal(const vec3f& p) {
  vec3f o{};
  frac2orth(p[0], p[1], p[2], o[0], o[1], o[2]);
  return o;
}

// A point of the cell as the overlay sees it: the point tested against the
// box, its place in plot units and its distance across the section.
struct placed_point {
  vec3f tested{};
  float u = 0.0f, v = 0.0f, d = 0.0f;
};

placed_point place(const vec3f& p, const section_family_type& f, float section_level) {
  placed_point out;
  if (qp::plane_def) {
    rotad(out.tested, to_orthogonal(p));
    out.u = out.tested[0];
    out.v = out.tested[1];
    out.d = out.tested[2] - section_level;
    return out;
  }
  out.tested = p;
  const vec3f q = qp::jpg[at(qp::imap)] != 0 ? to_orthogonal(p) : p;
  out.u = q[at(f.u)];
  out.v = q[at(f.v)];
  out.d = p[at(f.w)] - section_level;
  return out;
}

bool inside(const vec3f& p, const atom_box& b) {
  for (std::size_t k = 0; k < 3; ++k)
    if (p[k] < b.low[k] || p[k] > b.high[k]) return false;
  return true;
}

// Below the section 128, above 192, on it 16.
int side_colour(float d) {
  if (std::fabs(d) <= tolerance) return 16;
  return d < 0.0f ? 128 : 192;
}

void draw_disc(float u, float v, float d, const std::string& label) {
  float gx = 0.0f, gy = 0.0f;
  ipgunitstogrunits(u, v, gx, gy);
  int ix = 0, iy = 0;
  igrunitstopixels(gx, gy, ix, iy);
  float x0 = 0.0f, x1 = 0.0f, y = 0.0f;
  igrunitsfrompixels(ix, iy, x0, y);
  igrunitsfrompixels(ix + disc_pixels, iy, x1, y);
  igrcolourn(side_colour(d));
  igrfillpattern(4);
  igrcircle(gx, gy, x1 - x0);
  igrfillpattern(0);
  igrcolourn(120);
  ipgtextinside(gx, gy, std::string(fixed_text::adjusted(label)).substr(0, 20));
}

bool is_peak(const atom_type& a) { return a.lab.rfind("PK", 0) == 0; }

}  // namespace

void proc_atoms() {
  if (qp::boton_atom) {
    qp::boton_atom = false;
    wmenusetstate(40032, 2, 0);
    if (!qp::boton_show) wmenusetstate(40030, 1, 1);
  } else {
    if (!qp::boton_show) wmenusetstate(40030, 1, 0);
    question_message("Do you want plot also Peaks?", "Showing Peaks");
    if (winfodialog(4) == 1) qp::show_peaks = true;
    wmenusetstate(40032, 2, 1);
    qp::boton_atom = true;
  }
  redraw_plot();
}

void draw_atoms() {
  if (!qp::katom) {
    atlist1_extencell_atlist2(qp::grp_espacial, qp::atomos, qp::atmcell, true);
    qp::katom = true;
  }
  const section_family_type f = section_family(qp::imap);
  atom_box box = qp::plane_def ? oriented_box() : plain_box(f);
  for (float& h : box.high) h += tolerance;

  for (const atom_type& a : qp::atmcell.atom) {
    if (is_peak(a) && !qp::show_peaks) continue;
    // The shifts add up over the walk: the position is loaded once per atom
    // and each loop adds its index to what the earlier steps left.
    vec3f p = a.x;
    for (int i = box.first[0]; i <= box.last[0]; ++i) {
      p[0] += static_cast<float>(i);
      for (int j = box.first[1]; j <= box.last[1]; ++j) {
        p[1] += static_cast<float>(j);
        for (int k = box.first[2]; k <= box.last[2]; ++k) {
          p[2] += static_cast<float>(k);
          const placed_point pt = place(p, f, box.section_level);
          if (inside(pt.tested, box)) draw_disc(pt.u, pt.v, pt.d, a.lab);
        }
      }
    }
  }
}
