#include "plot/draw_plot_pg.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "maps/section_families.h"
#include "plot/atoms_overlay.h"
#include "plot/message_bar.h"
#include "plot/plot_levels.h"
#include "plot/plot_output.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/plot_setup.h"

namespace qp = quelmora_parametros;

namespace {

constexpr int foreground = 120;
constexpr int background = 0;
constexpr std::int32_t oriented_grid = 50;
constexpr float tolerance = 0.0001f;

std::size_t at(std::int32_t axis) { return static_cast<std::size_t>(axis - 1); }

const std::array<float, 2>& limits_of(std::int32_t axis) {
  const std::array<float, 2>* limits[] = {&qp::xlim, &qp::ylim, &qp::zlim};
  return *limits[at(axis)];
}

// The section shown now: the plane index along the family's w axis.
std::int32_t present_section(const section_family_type& f) { return qp::seccion[at(f.w)]; }

// rmax and rinc from the limits by the family's axes, NVALUE from the grid.
// An axis without grid has no step.
void fill_view_box(const section_family_type& f) {
  const std::int32_t axes[] = {f.u, f.v, f.w};
  for (std::size_t k = 0; k < 3; ++k) {
    const auto& lim = limits_of(axes[k]);
    const std::int32_t n = qp::ngrid[at(axes[k])];
    qp::rmax[k] = lim[0];
    qp::rmax[k + 3] = lim[1];
    qp::rinc[k] = n > 0 ? std::fabs(lim[1] - lim[0]) / static_cast<float>(n) : 0.0f;
  }
  qp::NVALUE = {qp::ngrid[at(f.u)] + 1, qp::ngrid[at(f.v)] + 1};
}

// A section drawn in Angstrom rather than in fractions of the cell: its
// window and the corner code of the overhang to blank.
struct angstrom_window {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  std::int32_t corner_code = 0;
};

void set_edge(const std::array<std::array<float, 2>, 4>& corners) {
  for (std::size_t c = 0; c < 4; ++c) {
    qp::EDGE[2 * c] = corners[c][0];
    qp::EDGE[2 * c + 1] = corners[c][1];
  }
}

angstrom_window oriented_window() {
  set_edge({{{qp::xl1, qp::yl1}, {qp::xl1, qp::yl2}, {qp::xl2, qp::yl2}, {qp::xl2, qp::yl1}}});
  return {qp::xl1, qp::yl1, qp::xl2, qp::yl2, 0};
}

angstrom_window skewed_window(const section_family_type& f) {
  set_edge(skewed_section_window(present_section(f)));
  const auto& e = qp::EDGE;
  std::int32_t code = 0;
  if (std::fabs(e[1] - e[7]) <= tolerance) code = 2;        // corners 1 and 4 on one height
  else if (std::fabs(e[0] - e[2]) <= tolerance) code = 1;   // corners 1 and 2 on one abscissa
  return {qp::u_min, qp::v_min, qp::u_max, qp::v_max, code};
}

// Adds plane k of the family to dmap straight from rhonew, taking the values
// `accept` lets through. One loop per family keeps the inner loop plain.
template <typename Accept>
void add_plain_plane(std::int32_t k, Accept accept) {
  const std::int32_t n1 = qp::NVALUE[0], n2 = qp::NVALUE[1];
  auto add = [&](std::int32_t i, std::int32_t j, float v) {
    if (accept(v)) qp::dmap(i, j) += v;
  };
  switch (qp::imap) {
    case 1:
      for (std::int32_t j = 1; j <= n2; ++j)
        for (std::int32_t i = 1; i <= n1; ++i) add(i, j, qp::rhonew(i, j, k));
      break;
    case 2:
      for (std::int32_t j = 1; j <= n2; ++j)
        for (std::int32_t i = 1; i <= n1; ++i) add(i, j, qp::rhonew(k, i, j));
      break;
    default:
      for (std::int32_t j = 1; j <= n2; ++j)
        for (std::int32_t i = 1; i <= n1; ++i) add(i, j, qp::rhonew(j, k, i));
      break;
  }
}

void add_plain_section(const section_family_type& f, std::int32_t k) {
  const auto& n = qp::ngrid;
  // rhonew holds the closed grid; a map of another shape has nothing to give.
  if (qp::rhonew.extent(1) != n[0] + 1 || qp::rhonew.extent(2) != n[1] + 1 || qp::rhonew.extent(3) != n[2] + 1 ||
      k < 1 || k > n[at(f.w)] + 1 || qp::dmap.extent(1) != qp::NVALUE[0] || qp::dmap.extent(2) != qp::NVALUE[1])
    return;
  if (qp::sum_all || (qp::sum_positive && qp::sum_negative))
    add_plain_plane(k, [](float) { return true; });
  else if (qp::sum_positive)
    add_plain_plane(k, [](float v) { return v >= 0.0f; });
  else if (qp::sum_negative)
    add_plain_plane(k, [](float v) { return v < 0.0f; });
}

// The plane of a summed range limit: the fraction over the step, rounded and
// kept within 1 and ngrid of the axis.
std::int32_t layer_plane(float fraction, std::int32_t ngw) {
  const double q = qp::rinc[2] > 0.0f ? std::round(fraction / qp::rinc[2]) : 1.0;
  if (!std::isfinite(q)) return 1;
  return static_cast<std::int32_t>(std::clamp(q, 1.0, static_cast<double>(std::max(ngw, 1))));
}

// Steps 7 and 8: the present section, or each range of the sum, into dmap.
void add_layers(const section_family_type& f, bool skewed) {
  if (!qp::boton_add) qp::nadd = 1;
  const std::int32_t ngw = qp::ngrid[at(f.w)];
  const std::int32_t ranges = std::clamp(qp::nadd, 1, 2);
  for (std::size_t m = 0; m < static_cast<std::size_t>(ranges); ++m) {
    std::int32_t k1 = present_section(f), k2 = k1;
    if (qp::boton_add) {
      k1 = layer_plane(qp::xd_add[m][0], ngw);
      k2 = layer_plane(qp::xd_add[m][1], ngw);
    }
    for (std::int32_t k = k1; k <= k2; ++k) {
      if (skewed) carga_seccion_rec(k, qp::NVALUE[0], qp::NVALUE[1]);
      else add_plain_section(f, k);
    }
  }
}

std::pair<float, float> extremes(const farray2<float>& a) {
  if (a.size() == 0) return {0.0f, 0.0f};
  const auto [lo, hi] = std::minmax_element(a.data(), a.data() + a.size());
  return {*lo, *hi};
}

// Step 10: the range the levels are spread over.
std::pair<float, float> level_range() {
  if (qp::boton_add) return extremes(qp::dmap);
  if (!qp::ksigma && !qp::klevel) return {qp::rho_min, qp::rho_max};
  if (!qp::ksigma) return {qp::den_min_show, qp::den_max_show};
  if (qp::klevel) return {qp::dens_min_show, qp::dens_max_show};
  return {sigma_units(qp::rho_min), sigma_units(qp::rho_max)};
}

// Step 11: the plot opened for the kind, one style per level.
void open_plot(std::int32_t n) {
  const int nvalue[] = {qp::NVALUE[0], qp::NVALUE[1]};
  const int transposed[] = {qp::NVALUE[1], qp::NVALUE[0]};
  switch (qp::boton_tg) {
    case 1: ipgnewplot2(8, n, nvalue); break;
    case 2: ipgnewplot2(8, n, nvalue, 8); break;
    default: ipgnewplot2(8, n, transposed, 33); break;
  }
  for (int level = 1; level <= n; ++level) {
    const auto& line = qp::level_lines[at(level)];
    switch (qp::boton_tg) {
      // The width chosen in the style dialog thickens the line on the screen and on paper.
      case 1: ipgstyle(level, line.style, 0, 0, line.colour, 0, line.width); break;
      case 2: ipgstyle(level, 4, 3, 3, line.colour, line.colour); break;
      default: ipgstyle(level, 4, 0, 0, line.colour, line.colour); break;
    }
  }
}

// Step 14 for a section in the cell's axes: scales, or the skewed outline,
// and the axis names of the family.
void draw_section_frame(bool skewed) {
  if (skewed || qp::plane_def) {
    m_border(qp::EDGE);
  } else {
    ipgborder();
    ipgxscale("TN");
    ipgyscaleleft("TN");
  }
  if (qp::plane_def) return;
  static const char* const names[] = {"x/a", "y/b", "z/c"};
  const section_family_type f = section_family(qp::imap);
  ipgxlabelpos(0.65f);
  ipgylabelpos(0.45f);
  ipgxlabel(names[at(f.u)]);
  ipgylabelleft(names[at(f.v)], "9");
}

}  // namespace

std::array<float, 4> proportional_plot_area(float width, float height, float x_extent, float y_extent,
                                            bool legend) {
  const float usable = legend ? 0.68f : 0.75f;
  const float cx = legend ? 0.45f : 0.5f;
  // Without extents (no cell, no window) the usable area is taken whole.
  float hx = usable / 2.0f, hy = 0.34f;
  if (x_extent > 0.0f && y_extent > 0.0f && width > 0.0f && height > 0.0f) {
    const float s = std::min(usable * width / x_extent, 0.68f * height / y_extent);
    hx = s * x_extent / 2.0f / width;
    hy = s * y_extent / 2.0f / height;
  }
  return {cx - hx, 0.5f - hy, cx + hx, 0.5f + hy};
}

std::array<float, 20> level_values(float low, float high, std::int32_t n) {
  std::array<float, 20> z{};
  const std::int32_t count = std::clamp(n, 0, 20);
  for (std::int32_t level = 1; level <= count; ++level)
    z[at(level)] = static_cast<float>(level) * (high - low) / static_cast<float>(n + 1) + low;
  return z;
}

void draw_plot_pg() {
  // 1. Everything up to the copy goes to the off-screen bitmap.
  igrselect(igr_bitmap, qp::ibmp1);
  igrareaclear();

  // 2. The view box of the family, unless an oriented plane is shown.
  const section_family_type f = section_family(qp::imap);
  if (!qp::plane_def) fill_view_box(f);
  const bool skewed = !qp::plane_def && qp::jpg[at(qp::imap)] != 0;

  // 3, 4. The window's pixels, and the Angstrom window of a plane or a skewed section.
  const float width = static_cast<float>(winfowindow(1));
  const float height = static_cast<float>(winfowindow(2));
  angstrom_window window;
  if (qp::plane_def) window = oriented_window();
  else if (skewed) window = skewed_window(f);
  const bool in_angstrom = qp::plane_def || skewed;

  // 5. A plot area of true proportions.
  const float x_extent = in_angstrom ? window.x2 - window.x1
                                     : std::fabs(qp::rmax[3] - qp::rmax[0]) * qp::celda.cell[at(f.u)];
  const float y_extent = in_angstrom ? window.y2 - window.y1
                                     : std::fabs(qp::rmax[4] - qp::rmax[1]) * qp::celda.cell[at(f.v)];
  const auto area = proportional_plot_area(width, height, x_extent, y_extent, qp::boton_legend);
  ipgarea(area[0], area[1], area[2], area[3]);

  // 6 to 9. dmap, filled with the section, the sum of ranges, or the plane.
  if (qp::plane_def) qp::dmap.allocate(oriented_grid, oriented_grid);
  else if (skewed) qp::dmap.allocate(2 * qp::NVALUE[0] - 1, 2 * qp::NVALUE[1] - 1);
  else qp::dmap.allocate(qp::NVALUE[0], qp::NVALUE[1]);
  if (qp::plane_def) {
    oriented_section();
    qp::NVALUE = {oriented_grid, oriented_grid};
  } else {
    add_layers(f, skewed);
  }

  // 10, 11. Levels strictly inside the range, and the plot opened for the kind.
  const auto [low, high] = level_range();
  const std::int32_t n = std::clamp(qp::n_contour, 1, 20);
  qp::ZCOL = level_values(low, high, n);
  open_plot(n);

  // 12. Plot units: Angstrom for a window, fractions of the cell otherwise.
  if (in_angstrom) ipgunits(window.x1, window.y1, window.x2, window.y2);
  else ipgunits(qp::rmax[0], qp::rmax[1], qp::rmax[3], qp::rmax[4]);

  // 13, 14. Body and frame by kind.
  const std::span<const float> grid(qp::dmap.data(), qp::dmap.size());
  const std::span<const float> levels(qp::ZCOL.data(), static_cast<std::size_t>(n));
  if (qp::boton_tg == 1 || qp::boton_tg == 2) {
    if (qp::boton_tg == 1) {
      ipgcontour2(grid, qp::NVALUE[0], qp::NVALUE[1], levels);
    } else {
      ipgconfill2granul(10);
      ipgconfill2(grid, qp::NVALUE[0], qp::NVALUE[1], levels);
    }
    if (qp::boton_atom) draw_atoms();
    if (qp::jpg[at(qp::imap)] == 1) reform_contour(qp::EDGE, window.corner_code);
    igrcolourn(foreground);
    wgrtextfont(101, 0, 0.011f, 0.033f);
    draw_section_frame(skewed);
  } else {
    draw_surface_pg(low, high, n);
  }

  // 15 to 18. Fill back to outlines, the legend, one copy to the window, the state line.
  igrfillpattern(0, 2, 1);
  if (qp::boton_legend) plot_legends(levels);
  wgrtextfont(101, 0, 0.013333f, 0.04f);
  igrselect(igr_window, 0);
  wbitmapput(qp::ibmp1, 0, 0);
  show_message_bar();
}

void m_border(const std::array<float, 8>& edge) {
  std::array<float, 5> gx{}, gy{};
  for (std::size_t c = 0; c < 4; ++c) ipgunitstogrunits(edge[2 * c], edge[2 * c + 1], gx[c], gy[c]);
  gx[4] = gx[0];
  gy[4] = gy[0];
  igrpolyline(gx.data(), gy.data(), 5);

  // Ticks on the sides 1-4 (pointing down) and 1-2 (pointing left), placed
  // along the true sides so that they follow a skewed outline.
  constexpr int tick = 4;
  const struct {
    std::size_t to;
    int dx, dy;
  } sides[] = {{3, 0, tick}, {1, -tick, 0}};
  for (const auto& side : sides) {
    for (int k = 0; k <= 10; ++k) {
      const float t = 0.1f * static_cast<float>(k);
      const float x = gx[0] + t * (gx[side.to] - gx[0]);
      const float y = gy[0] + t * (gy[side.to] - gy[0]);
      int ix = 0, iy = 0;
      igrunitstopixels(x, y, ix, iy, false);
      float x2 = 0, y2 = 0;
      igrunitsfrompixels(ix + side.dx, iy + side.dy, x2, y2, false);
      igrjoin(x, y, x2, y2);
    }
  }
}

void reform_contour(const std::array<float, 8>& edge, std::int32_t corner_code) {
  struct point {
    float x, y;
  };
  auto corner = [&](std::size_t c) { return point{edge[2 * (c - 1)], edge[2 * (c - 1) + 1]}; };
  // Each triangle: a side of the parallelogram and the corner of the
  // enclosing rectangle beyond it.
  std::pair<point, point> sides[2];
  point beyond[2];
  if (corner_code == 1) {
    // Slanted lower and upper sides: the overhang lies below 1-4 and above 3-2.
    const point p1 = corner(1), p4 = corner(4), p3 = corner(3), p2 = corner(2);
    sides[0] = {p1, p4};
    beyond[0] = p1.y > p4.y ? point{p1.x, p4.y} : point{p4.x, p1.y};
    sides[1] = {p3, p2};
    beyond[1] = p3.y < p2.y ? point{p3.x, p2.y} : point{p2.x, p3.y};
  } else {
    // Slanted left and right sides: the overhang lies left of 1-2 and right of 3-4.
    const point p1 = corner(1), p2 = corner(2), p3 = corner(3), p4 = corner(4);
    sides[0] = {p1, p2};
    beyond[0] = p1.x < p2.x ? point{p1.x, p2.y} : point{p2.x, p1.y};
    sides[1] = {p3, p4};
    beyond[1] = p3.x > p4.x ? point{p3.x, p4.y} : point{p4.x, p3.y};
  }
  igrcolourn(background);
  igrfillpattern(4);
  for (std::size_t t = 0; t < 2; ++t) {
    float x[3], y[3];
    ipgunitstogrunits(sides[t].first.x, sides[t].first.y, x[0], y[0]);
    ipgunitstogrunits(sides[t].second.x, sides[t].second.y, x[1], y[1]);
    ipgunitstogrunits(beyond[t].x, beyond[t].y, x[2], y[2]);
    igrtriangle(x[0], y[0], x[1], y[1], x[2], y[2]);
  }
}
