#include "toolkit/plots/surface.h"

#include <array>
#include <vector>

#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/plots/contour_grid.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"
#include "toolkit/plots/surface_view.h"

namespace {

constexpr const char* routine = "IPgSurf3DataCont";

struct screen_point {
  float x = 0, y = 0;
};

// One index range of the walk: from `first` to `last` in steps of `step`.
struct walk {
  int first, last, step;
  bool done(int k) const { return step > 0 ? k > last : k < last; }
};

// Tiles are numbered by their lower node, 1..n - 1 on each axis; the walk
// runs from the far corner of the base to the near one.
std::array<walk, 2> walk_order() {
  const auto& s = ipgstate;
  const walk i_up{1, s.npval1 - 1, 1}, i_down{s.npval1 - 1, 1, -1};
  const walk j_up{1, s.npval2 - 1, 1}, j_down{s.npval2 - 1, 1, -1};
  const float r = s.rota3d;
  if (r < 45 || r >= 315) return {i_down, j_up};
  if (r < 135) return {i_up, j_up};
  if (r < 225) return {i_up, j_down};
  return {i_down, j_down};
}

// Projected nodes, one row of constant j at a time; the two rows a tile row
// needs are kept, so each row is projected once as the walk moves on.
class projected_rows {
 public:
  projected_rows(const contour_grid& grid, const surface_projection& p) : grid_(grid), p_(p) {}

  const std::vector<screen_point>& row(int j) {
    for (auto& r : rows_)
      if (r.j == j) return r.nodes;
    auto& r = rows_[next_];
    next_ = 1 - next_;
    r.j = j;
    r.nodes.resize(static_cast<std::size_t>(ipgstate.npval1));
    for (int i = 1; i <= ipgstate.npval1; ++i) {
      auto& n = r.nodes[static_cast<std::size_t>(i - 1)];
      yypg3dnode(p_, static_cast<float>(i - 1), static_cast<float>(j - 1), grid_.at(i, j), n.x, n.y);
    }
    return r.nodes;
  }

 private:
  struct cached {
    int j = 0;
    std::vector<screen_point> nodes;
  };
  const contour_grid& grid_;
  const surface_projection& p_;
  std::array<cached, 2> rows_;
  int next_ = 0;
};

// The fill style of a set: solid, hatched in two colours when the set asks
// for style 3, none when it asks for 0 among several bands.
int fill_style_of(int set) {
  const int asked = ipgstate.ipgstyl[static_cast<std::size_t>(set)][0];
  if (asked == 3) return 3;
  if (asked == 0 && ipgstate.npset >= 2) return 0;
  return 4;
}

// The set of a tile's mean value: the highest boundary at or below it, one up.
int band_of(float mean, const std::vector<float>& boundaries) {
  for (int k = static_cast<int>(boundaries.size()); k >= 1; --k)
    if (boundaries[static_cast<std::size_t>(k - 1)] <= mean) return k + 1;
  return 1;
}

void grid_colour() {
  if (ipgstate.igrcol == -3) igrcolour("BLA");
  else igrcolourn(ipgstate.igrcol);
}

// The tile's grid lines: the whole outline, or with fewer directions or
// thinned lines only the edges of the lines that are drawn.
void grid_lines(const float* x, const float* y, int i, int j) {
  const auto& s = ipgstate;
  grid_colour();
  if (s.igrdir == 3 && s.igrxfreq == 1 && s.igryfreq == 1) {
    const float cx[5] = {x[0], x[1], x[2], x[3], x[0]}, cy[5] = {y[0], y[1], y[2], y[3], y[0]};
    igrpolyline(cx, cy, 5);
    return;
  }
  const bool along_x = s.igrdir != 2 && s.igryfreq > 0 && (j - 1) % s.igryfreq == 0;
  const bool along_y = s.igrdir != 1 && s.igrxfreq > 0 && (i - 1) % s.igrxfreq == 0;
  if (along_x) igrjoin(x[0], y[0], x[1], y[1]);
  if (along_y) igrjoin(x[0], y[0], x[3], y[3]);
}

void paint(const contour_grid& grid, const std::vector<float>& boundaries) {
  const auto& s = ipgstate;
  const surface_projection p = yypg3dxy();
  projected_rows rows(grid, p);
  const auto [wi, wj] = walk_order();
  for (int j = wj.first; !wj.done(j); j += wj.step) {
    const auto& lower_row = rows.row(j);
    const auto& upper_row = rows.row(j + 1);
    for (int i = wi.first; !wi.done(i); i += wi.step) {
      const auto a = static_cast<std::size_t>(i - 1), b = static_cast<std::size_t>(i);
      const float x[4] = {lower_row[a].x, lower_row[b].x, upper_row[b].x, upper_row[a].x};
      const float y[4] = {lower_row[a].y, lower_row[b].y, upper_row[b].y, upper_row[a].y};
      const float mean = (grid.at(i, j) + grid.at(i + 1, j) + grid.at(i + 1, j + 1) + grid.at(i, j + 1)) / 4;
      const int set = band_of(mean, boundaries);
      const auto& colours = s.ipgcol[static_cast<std::size_t>(set)];
      igrstate.ifstyl = fill_style_of(set);
      if (igrstate.ifstyl == 3) igrcolourn(colours[1]);
      igrcolourn(colours[0]);
      igrpolygoncomplex(x, y, 4);
      if (s.igrcol != -1) grid_lines(x, y, i, j);
    }
  }
}

}  // namespace

void ipgsurf3datacont(std::span<const float> z, int nx, int ny, std::span<const float> levels,
                      std::span<const float>, std::span<const float>) {
  const auto& s = ipgstate;
  if (s.laydim != 1 || s.igtype != 8) return;
  const contour_grid grid{z, nx};
  if (!contour_grid_fits(grid, ny, routine)) return;
  std::vector<float> boundaries;
  if (s.npset >= 2 && s.laycol == 0 && !contour_levels(levels, s.npset - 1, routine, boundaries)) return;
  const graphics_style_type saved = yypgsaverestore();
  igrstate.ifbord = 0;  // the grid lines outline the tiles
  paint(grid, boundaries);
  yypgsaverestore(saved);
}
