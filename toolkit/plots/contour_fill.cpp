// Filled contours. Cells that lie within one band are merged into runs
// along a row and drawn as one rectangle; a cell that holds a band boundary
// is divided into igranul x igranul boxes, merged along each sub-row. The
// rectangles reach the canvas in batches, in the order they are made.
#include <algorithm>
#include <cmath>
#include <vector>

#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/contour_grid.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"

namespace {

class band_filler {
 public:
  band_filler(const contour_grid& grid, const std::vector<float>& boundaries)
      : grid_(grid), boundaries_(boundaries) {}

  void run() {
    const auto& s = ipgstate;
    find_seen_columns();
    for (int j = s.npval2 - 1; j >= 1; --j) {
      find_seen_sub_rows(j);
      for (int i = 1; i <= s.npval1 - 1; ++i) cell(i, j);
      flush_run(j);
    }
    igrrectangleflush();
  }

 private:
  // The band of a value: the first boundary above it, else the last band.
  int band(float v) const {
    const auto it = std::upper_bound(boundaries_.begin(), boundaries_.end(), v);
    return static_cast<int>(it - boundaries_.begin()) + 1;
  }

  // The same band, found by stepping from the band b of a value close by:
  // along a sub-row the bands change by a step or two from box to box.
  int band_from(float v, int b) const {
    if (std::isnan(v)) return band(v);
    const int last = static_cast<int>(boundaries_.size()) + 1;
    while (b > 1 && boundaries_[static_cast<std::size_t>(b - 2)] > v) --b;
    while (b < last && boundaries_[static_cast<std::size_t>(b - 1)] <= v) ++b;
    return b;
  }

  static float node_x(float i) {
    const auto& s = ipgstate;
    return std::fabs(s.xplen) * (i - 1) / s.rnval11 + s.xplow;
  }
  static float node_y(float j) {
    const auto& s = ipgstate;
    return std::fabs(s.yplen) * (j - 1) / s.rnval21 + s.yplow;
  }

  void cell(int i, int j) {
    const int ci[4] = {i, i + 1, i + 1, i};
    const int cj[4] = {j, j, j + 1, j + 1};
    int missing = 0;
    for (int k = 0; k < 4; ++k) missing += grid_.present(ci[k], cj[k]) ? 0 : 1;
    if (missing > 0) {
      flush_run(j);
      if (missing == 1) triangle_cell(ci, cj);
      return;
    }
    const float z1 = grid_.at(i, j), z2 = grid_.at(i + 1, j);
    const float z3 = grid_.at(i + 1, j + 1), z4 = grid_.at(i, j + 1);
    const int low_band = band(std::min({z1, z2, z3, z4}));
    const int high_band = band(std::max({z1, z2, z3, z4}));
    const float x1 = node_x(static_cast<float>(i)), x2 = node_x(static_cast<float>(i + 1));
    if (low_band == high_band) {
      if (run_band_ != 0 && run_band_ != low_band) flush_run(j);
      if (run_band_ == 0) {
        run_band_ = low_band;
        run_start_ = x1;
      }
      run_end_ = x2;
      return;
    }
    flush_run(j);
    if (ipgstate.layshd == 1)
      shaded_cell(i, j);
    else
      divided_cell(i, j, x1, x2);
  }

  // A cell with one corner missing: the triangle of the other three, in the
  // band of its smallest corner when no boundary lies between its corners;
  // across a boundary only undivided cells fill it, in the band of the mean.
  void triangle_cell(const int* ci, const int* cj) {
    float x[3], y[3], z[3];
    int n = 0;
    for (int k = 0; k < 4; ++k) {
      if (!grid_.present(ci[k], cj[k])) continue;
      z[n] = grid_.at(ci[k], cj[k]);
      ipgunitstogrunits(node_x(static_cast<float>(ci[k])), node_y(static_cast<float>(cj[k])), x[n], y[n]);
      ++n;
    }
    const int low_band = band(std::min({z[0], z[1], z[2]}));
    int b = low_band;
    if (band(std::max({z[0], z[1], z[2]})) != low_band) {
      if (ipgstate.igranul != 1) return;
      b = band((z[0] + z[1] + z[2]) / 3);
    }
    if (!use_band(b)) return;
    igrrectangleflush();
    igrtriangle(x[0], y[0], x[1], y[1], x[2], y[2]);
  }

  void flush_run(int j) {
    if (run_band_ == 0) return;
    fill_box(run_band_, run_start_, node_y(static_cast<float>(j)), run_end_, node_y(static_cast<float>(j + 1)));
    run_band_ = 0;
  }

  void divided_cell(int i, int j, float x1, float x2) {
    if (!column_seen_[static_cast<std::size_t>(i)]) return;
    const int G = ipgstate.igranul;
    const float g_count = static_cast<float>(G);
    const float z1 = grid_.at(i, j), z2 = grid_.at(i + 1, j);
    const float dL = (grid_.at(i, j + 1) - z1) / g_count;
    const float dR = (grid_.at(i + 1, j + 1) - z2) / g_count;
    const float width = (x2 - x1) / g_count;
    const float y1 = node_y(static_cast<float>(j)), y2 = node_y(static_cast<float>(j + 1));
    const float height = (y2 - y1) / g_count;
    for (int r = G - 1; r >= 0; --r) {
      const float vL = z1 + static_cast<float>(r + 1) * dL;
      const float vR = z2 + static_cast<float>(r + 1) * dR;
      const float g = (vR - vL) / g_count;
      if (!sub_row_seen_[static_cast<std::size_t>(r)]) continue;
      const float bottom = y1 + static_cast<float>(r) * height;
      const float top = bottom + height;
      // The boxes' values run one way along the sub-row, and so do their
      // bands: when its ends share a band, the whole sub-row is one box.
      const float tail = (2 * g - dL - dR) / 4;
      const auto value = [&](int s) { return vL + static_cast<float>(s) * g + tail; };
      int b = band(value(0));
      if (b == band_from(value(G - 1), b)) {
        fill_box(b, x1, bottom, x2, top);
        continue;
      }
      int run = 0;
      float start = x1;
      for (int s = 0; s < G; ++s) {
        b = band_from(value(s), b);
        const float left = x1 + static_cast<float>(s) * width;
        if (b == run) continue;
        if (run != 0) fill_box(run, start, bottom, left, top);
        run = b;
        start = left;
      }
      fill_box(run, start, bottom, x2, top);
    }
  }

  // True when the canvas would show nothing of a box within these bounds.
  // A screen of pixels then skips the sub-rows of a small cell that round to
  // no whole pixel row, and the cells that round to no whole pixel column.
  static bool box_unseen(float x1, float y1, float x2, float y2) {
    float gx1, gy1, gx2, gy2;
    ipgunitstogrunits(x1, y1, gx1, gy1);
    ipgunitstogrunits(x2, y2, gx2, gy2);
    return igrrectangleunseen(gx1, gy1, gx2, gy2);
  }

  // A box shows nothing when its columns or its rows round to none, so the
  // sub-rows of a cell row are judged once for the whole width of the plot,
  // and the cell columns once for its whole height; a cell's sub-row is seen
  // when both its column and the sub-row are.
  void find_seen_columns() {
    const auto& s = ipgstate;
    const float bottom = node_y(1), top = node_y(static_cast<float>(s.npval2));
    column_seen_.assign(static_cast<std::size_t>(std::max(s.npval1, 1)), 0);
    for (int i = 1; i <= s.npval1 - 1; ++i)
      column_seen_[static_cast<std::size_t>(i)] =
          !box_unseen(node_x(static_cast<float>(i)), bottom, node_x(static_cast<float>(i + 1)), top);
  }

  void find_seen_sub_rows(int j) {
    const auto& s = ipgstate;
    const int G = s.igranul;
    const float left = node_x(1), right = node_x(static_cast<float>(s.npval1));
    const float y1 = node_y(static_cast<float>(j)), y2 = node_y(static_cast<float>(j + 1));
    const float height = (y2 - y1) / static_cast<float>(G);
    sub_row_seen_.assign(static_cast<std::size_t>(G), 0);
    for (int r = 0; r < G; ++r) {
      const float bottom = y1 + static_cast<float>(r) * height;
      sub_row_seen_[static_cast<std::size_t>(r)] = !box_unseen(left, bottom, right, bottom + height);
    }
  }

  // A cell as one polygon whose colour runs between its corners' band colours.
  void shaded_cell(int i, int j) {
    const int ci[4] = {i, i + 1, i + 1, i};
    const int cj[4] = {j, j, j + 1, j + 1};
    float x[4], y[4];
    int colours[4];
    for (int k = 0; k < 4; ++k) {
      ipgunitstogrunits(node_x(static_cast<float>(ci[k])), node_y(static_cast<float>(cj[k])), x[k], y[k]);
      colours[k] = ipgstate.ipgcol[band(grid_.at(ci[k], cj[k]))][0];
    }
    igrrectangleflush();
    igrpolygonshaded(x, y, colours, 4);
  }

  // Takes the fill style of band b when it differs from the last band used;
  // false for a band that is not filled.
  bool use_band(int b) {
    const auto& s = ipgstate;
    if (b != last_band_) {
      igrstate.ifstyl = s.ipgstyl[b][0];
      igrstate.ifdens = s.ipgstyl[b][1];
      igrstate.ifangl = s.ipgstyl[b][2];
      if (igrstate.ifstyl == 3) igrcolourn(s.ipgcol[b][1]);
      igrcolourn(s.ipgcol[b][0]);
      last_band_ = b;
    }
    return igrstate.ifstyl != 0;
  }

  void fill_box(int b, float x1, float y1, float x2, float y2) {
    if (!use_band(b)) return;
    float gx1, gy1, gx2, gy2;
    ipgunitstogrunits(x1, y1, gx1, gy1);
    ipgunitstogrunits(x2, y2, gx2, gy2);
    igrrectanglequeue(gx1, gy1, gx2, gy2);
  }

  const contour_grid& grid_;
  const std::vector<float>& boundaries_;
  int run_band_ = 0;
  float run_start_ = 0, run_end_ = 0;
  int last_band_ = 0;
  std::vector<char> column_seen_, sub_row_seen_;
};

}  // namespace

void ipgconfill2(std::span<const float> z, int nx, int ny, std::span<const float> levels,
                 std::span<const float>, std::span<const float>) {
  const auto& s = ipgstate;
  if (s.igtype != 8 || s.laycol != 0) return;
  const contour_grid grid{z, nx};
  if (!contour_grid_fits(grid, ny, "IPgConFill2")) return;
  std::vector<float> boundaries;
  if (!contour_levels(levels, s.npset - 1, "IPgConFill2", boundaries)) return;
  const graphics_style_type saved = yypgsaverestore();
  igrstate.ifbord = 0;
  band_filler(grid, boundaries).run();
  yypgsaverestore(saved);
}
