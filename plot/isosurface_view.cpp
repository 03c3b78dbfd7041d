#include "plot/isosurface_view.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

#include "crystal/vant_maps_mesh.h"
#include "maps/molecular_bonds.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "plot/graphics_unit.h"
#include "plot/isosurface_box.h"
#include "plot/isosurface_mesh.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t isosurface = 4;
constexpr int foreground = 120;
constexpr int bond_width = 3;
constexpr std::int32_t nearest_colour = 83, farthest_colour = 95;
constexpr std::int32_t kind_commands[] = {40072, 40074, 40075, 40076};
// What belongs to sections: direction, stepping, sums, run-through, probing,
// atoms overlay, text map, legend, plane; and the foreground colour.
constexpr std::int32_t section_commands[] = {40034, 40036, 40037, 40048, 40004, 40030,
                                             40032, 40043, 40049, 40038, 40003};
// A drag across the whole window turns the scene by this much.
constexpr float degrees_per_window = 45.0f;

std::size_t records() {
  if (!qp::xyz.allocated()) return 0;
  return static_cast<std::size_t>(std::clamp(qp::npoints, 0, qp::xyz.extent(2)));
}

float* record(std::size_t k) { return qp::xyz.data() + 4 * k; }

// Mean of the mesh's vertices in Angstrom (the origin when there are none).
vec3f mesh_centre(std::size_t n) {
  double sum[3] = {0.0, 0.0, 0.0};
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t c = 0; c < 3; ++c) sum[c] += record(k)[c];
  vec3f centre{};
  if (n > 0)
    for (std::size_t c = 0; c < 3; ++c) centre[c] = static_cast<float>(sum[c] / static_cast<double>(n));
  return centre;
}

// The x and y spread of the mesh and the molecule, the origin included (the
// empty slots of xyz hold it), widened by a fifth on either side. A flat
// spread gets 1 Angstrom on either side, so that the units stay valid.
void find_window(std::size_t n) {
  float lo[2] = {0.0f, 0.0f}, hi[2] = {0.0f, 0.0f};
  const auto take = [&](float x, float y) {
    lo[0] = std::min(lo[0], x), hi[0] = std::max(hi[0], x);
    lo[1] = std::min(lo[1], y), hi[1] = std::max(hi[1], y);
  };
  for (std::size_t k = 0; k < n; ++k) take(record(k)[0], record(k)[1]);
  if (qp::kbonds)
    for (const vec3f& p : qp::at_bonds_o) take(p[0], p[1]);
  for (std::size_t c = 0; c < 2; ++c) {
    const float w = hi[c] - lo[c];
    const float margin = w > 0.0f ? 0.2f * w : 1.0f;
    lo[c] -= margin;
    hi[c] += margin;
  }
  qp::u_min = lo[0], qp::u_max = hi[0];
  qp::v_min = lo[1], qp::v_max = hi[1];
}

// Steps 3 to 6 of entering the view: the mesh at isolev, in Angstrom less
// the centre (the box's point, the molecule's centre, or the mesh's own),
// and the window unless a box keeps it.
void build_scene(bool new_window) {
  isosurface_mesh(isosurface_box_limits());
  const std::size_t n = records();
  for (std::size_t k = 0; k < n; ++k) {
    float* r = record(k);
    frac2orth(r[0], r[1], r[2], r[0], r[1], r[2]);
  }
  if (qp::klimits) centre_on_box_point();
  else if (!qp::kbonds) qp::baric = mesh_centre(n);
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t c = 0; c < 3; ++c) record(k)[c] -= qp::baric[c];
  if (new_window) find_window(n);
}

void reset_view() {
  qp::xorient = {1.0f, 0.0f, 0.0f};
  qp::yorient = {0.0f, 1.0f, 0.0f};
  qp::zorient = {0.0f, 0.0f, 1.0f};
}

// Units of u_min..u_max by v_min..v_max, the shorter side widened about its
// middle so that an Angstrom is as long across as up.
void proportional_units() {
  float u0 = qp::u_min, u1 = qp::u_max, v0 = qp::v_min, v1 = qp::v_max;
  const auto w = static_cast<float>(igrstate.nxgraf), h = static_cast<float>(igrstate.nygraf);
  if (w > 0.0f && h > 0.0f && u1 > u0 && v1 > v0) {
    const float per_pixel = std::max((u1 - u0) / w, (v1 - v0) / h);
    const float cu = 0.5f * (u0 + u1), cv = 0.5f * (v0 + v1);
    u0 = cu - 0.5f * per_pixel * w, u1 = cu + 0.5f * per_pixel * w;
    v0 = cv - 0.5f * per_pixel * h, v1 = cv + 0.5f * per_pixel * h;
  }
  igrunits(u0, v0, u1, v1);
}

// Bonds as lines in x and y. The atoms are taken from the farthest (least
// z) on, and each draws its bonds to the partners at least as near.
void draw_molecule() {
  const auto& p = qp::at_bonds_o;
  std::vector<std::size_t> order(p.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return p[a][2] < p[b][2]; });
  igrcolourn(foreground);
  // Thicker than the wires, so that a bond shows between its two blobs.
  igrlinewidth(bond_width);
  for (std::size_t a : order) {
    const auto& links = qp::bonds[a];
    for (std::int32_t l = 0; l < links[1]; ++l) {
      const auto b = static_cast<std::size_t>(links[static_cast<std::size_t>(2 + l)] - 1);
      if (b >= p.size() || p[b][2] < p[a][2]) continue;
      igrmoveto(p[a][0], p[a][1]);
      igrlineto(p[b][0], p[b][1]);
    }
  }
  igrlinewidth(1);
}

// How each type of primitive is drawn: polygons as (first record, corners),
// then, for types 5 and 6, a line to one more record.
struct primitive_shape {
  std::int32_t polygons;
  std::int32_t first[3], corners[3];
  std::int32_t line_to;  // record index, or -1
};
constexpr primitive_shape shapes[6] = {
    {1, {0}, {3}, -1},          {1, {0}, {4}, -1},       {2, {0, 3}, {3, 4}, -1},
    {3, {0, 3, 6}, {3, 3, 4}, -1}, {1, {0}, {3}, 3},     {2, {0, 3}, {3, 3}, 6},
};

void draw_primitive(const primitive_shape& s, const float* r) {
  float x[4], y[4];
  for (std::int32_t p = 0; p < s.polygons; ++p) {
    const float* v = r + 4 * s.first[p];
    for (std::int32_t c = 0; c < s.corners[p]; ++c) x[c] = v[4 * c], y[c] = v[4 * c + 1];
    igrpolygonqueue(x, y, s.corners[p]);
  }
  if (s.line_to < 0) return;
  // An outline ends where it began: the line starts at the last polygon's
  // first corner, and so closes the edge the table leaves open.
  const float* from = r + 4 * s.first[s.polygons - 1];
  igrjoinqueue(from[0], from[1], r[4 * s.line_to], r[4 * s.line_to + 1]);
}

void draw_mesh(std::size_t n) {
  // The empty slots of xyz hold the origin, which therefore counts here.
  float zmin = n < static_cast<std::size_t>(max_points) ? 0.0f : record(0)[2], zmax = zmin;
  for (std::size_t k = 0; k < n; ++k) {
    zmin = std::min(zmin, record(k)[2]);
    zmax = std::max(zmax, record(k)[2]);
  }
  for (std::size_t k = 0; k < n;) {
    const float* r = record(k);
    igrcolourn(icol(r[2], zmin, zmax));
    // The nearest integer of a type, which is never negative.
    const auto t = static_cast<std::int32_t>(r[3] + 0.5f);
    const auto count = static_cast<std::size_t>(cube_edges_read(t));
    if (count == 0) {
      ++k;
      continue;
    }
    if (k + count > n) break;
    draw_primitive(shapes[t - 1], r);
    k += count;
  }
  igrwiresflush();
}

void mouse_messages(std::int32_t state) {
  wmessageenable(msg_mouse_up, state);
  wmessageenable(msg_mouse_move, state);
}

void prepare_scene(bool new_window) {
  if (qp::kbonds) init_molecular_coord();
  build_scene(new_window);
}

}  // namespace

std::int32_t icol(float z, float zmin, float zmax) {
  if (!(zmax > zmin)) return nearest_colour;
  const float c = ((zmax - z) * static_cast<float>(farthest_colour) + (z - zmin) * static_cast<float>(nearest_colour)) /
                  (zmax - zmin);
  return static_cast<std::int32_t>(std::min(static_cast<float>(farthest_colour), c));
}

void proc_iso() {
  if (qp::boton_tg == isosurface) return;
  qp::boton_tg = isosurface;
  for (std::int32_t id : kind_commands) wmenusetstate(id, 2, id == 40076 ? 1 : 0);
  for (std::int32_t id : section_commands) wmenusetstate(id, 1, 0);
  windowoutstatusbar(1, " ");
  init_graphics_unit();
  calculate_bonds();
  prepare_scene(!qp::klimits);
  reset_view();
  mouse_messages(1);
  draw_isosurface();
}

void draw_isosurface() {
  igrselect(igr_bitmap, qp::ibmp1);
  igrareaclear();
  igrlinetype(0);
  proportional_units();
  if (qp::kbonds) draw_molecule();
  const std::size_t n = records();
  if (n > 0) draw_mesh(n);
  igrcolourn(foreground);
  igrselect(igr_window, 0);
  wbitmapput(qp::ibmp1, 0, 0);
}

void refresh_isosurface(bool new_window) {
  prepare_scene(new_window || !qp::klimits);
  draw_isosurface();
}

void reset_isosurface() {
  qp::klimits = 0;
  reset_view();
  refresh_isosurface(true);
}

void turn_isosurface() {
  const float dx = qp::mensaje.gx - qp::xm_mo, dy = qp::mensaje.gy - qp::ym_mo;
  qp::xm_mo = qp::mensaje.gx;
  qp::ym_mo = qp::mensaje.gy;
  if ((qp::boton_mouse != 1 && qp::boton_mouse != 3) || !(qp::u_max > qp::u_min && qp::v_max > qp::v_min)) return;
  const float about_y = dx * degrees_per_window / (qp::u_max - qp::u_min);
  const float about_x = dy * degrees_per_window / (qp::v_max - qp::v_min);
  // The axes turned by this move are the rows of the turn oriented_view
  // applies to every point.
  vec3f* axes[] = {&qp::xorient, &qp::yorient, &qp::zorient};
  reset_view();
  for (vec3f* a : axes) {
    vec3f t = *a;
    if (qp::boton_mouse == 1) {
      rota_oy(t, *a, about_y);
      rota_ox(*a, t, about_x);
    } else {
      rota_oz(*a, t, about_y);
    }
  }
  oriented_view();
  draw_isosurface();
}
