// The surface kind of the plot window: the section as a raised surface in
// its box, with scales along the box and the density up its corner.
#include <cmath>
#include <cstddef>
#include <span>

#include "maps/section_families.h"
#include "plot/draw_plot_pg.h"
#include "state/quelmora_parametros.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/plots/plot_frame.h"
#include "toolkit/plots/plot_scales.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/surface.h"
#include "toolkit/plots/surface_view.h"

namespace qp = quelmora_parametros;

namespace {

constexpr int foreground = 120;
constexpr int z_scale_colour = 60;

// The surface runs with the section's v axis across and u in depth, so the
// grid goes in transposed.
void transpose_section() {
  const std::int32_t n1 = qp::NVALUE[0], n2 = qp::NVALUE[1];
  qp::dmap2.allocate(n2, n1);
  for (std::int32_t j = 1; j <= n2; ++j)
    for (std::int32_t i = 1; i <= n1; ++i) qp::dmap2(j, i) = qp::dmap(i, j);
}

// Eleven ticks over the u range, from its high end down. Both axes get
// them, so the y axis shows the values of u even when v spans another range.
void surface_user_scales() {
  float ticks[11];
  const float span = std::fabs(qp::rmax[3] - qp::rmax[0]);
  for (int k = 1; k <= 11; ++k) ticks[k - 1] = qp::rmax[3] - span * 0.1f * static_cast<float>(k - 1);
  ipgxuserscale(ticks, 11);
  ipgyuserscale(ticks, 11);
}

void surface_scales() {
  ipgxscale("TN");
  ipgyscaleleft("TN");
  igrcolourn(z_scale_colour);
  ipgzscale("TN");
  igrcolourn(foreground);
}

}  // namespace

void draw_surface_pg(float low, float high, std::int32_t n) {
  transpose_section();
  ipgunits(qp::rmax[1], qp::rmax[0], qp::rmax[4], qp::rmax[3]);
  ipgunitsz(low, high);
  ipgelevation(qp::angleele_pg3d);
  ipgrotation(qp::anglerot_pg3d);
  igrcolourn(foreground);
  ipgaxes();
  const std::span<const float> grid(qp::dmap2.data(), qp::dmap2.size());
  ipgsurf3datacont(grid, qp::NVALUE[1], qp::NVALUE[0],
                   std::span<const float>(qp::ZCOL.data(), static_cast<std::size_t>(n)));
  qp::dmap2.release();

  igrcolourn(foreground);
  wgrtextfont(101, 0, 0.011f, 0.033f);
  if (qp::plane_def) {
    surface_scales();
    return;
  }
  surface_user_scales();
  surface_scales();
  ipgxlabelpos(0.3f);
  ipgylabelpos(0.3f);
  ipgzlabelpos(0.7f);
  static const char* const names[] = {"x/a", "y/b", "z/c"};
  const section_family_type f = section_family(qp::imap);
  ipgxlabel(names[f.v - 1]);
  ipgylabelleft(names[f.u - 1]);
  ipgzlabelleft("Density");
}
