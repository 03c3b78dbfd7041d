// Contour lines by line following. Lines are found by a square spiral scan
// over the grid nodes and followed cell by cell; each grid edge remembers,
// per level, whether it still needs attention (the `done` bits), so that no
// edge is tested twice at one level.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/contour_cells.h"
#include "toolkit/plots/contour_grid.h"
#include "toolkit/plots/contour_labels.h"
#include "toolkit/plots/contour_spiral.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"

namespace {

constexpr int max_line_points = 500;

// The done bits of a very large grid with many levels would not fit in
// memory at once: levels are then followed in groups whose bits stay below
// this many (256 MiB).
constexpr std::int64_t max_done_bits = 1LL << 31;

// x and y steps of the four cell sides 0 bottom, 1 left, 2 top, 3 right:
// MOVE(s) and MOVE(s + 2).
constexpr int MOVE[6] = {1, 0, 0, 1, 1, 0};

// An edge of the grid: from node (i, j) along i (dir 0) or along j (dir 1).
struct grid_edge {
  int i = 1, j = 1, dir = 0;
};

// The `done` bits: one per edge and level, the levels of one edge side by
// side, so that all the levels an edge does not cross are marked at once.
// Each node also counts the bits of its two edges still clear, so that the
// scan passes a finished node with one test instead of one per edge and level.
class edge_bits {
 public:
  edge_bits(int npval1, int npval2, int npset)
      : npval1_(npval1), levels_(npset),
        words_(static_cast<std::size_t>(2LL * npval1 * npval2 * npset / 64 + 1), 0u),
        clear_(static_cast<std::size_t>(npval1) * static_cast<std::size_t>(npval2)) {
    for (int j = 1; j <= npval2; ++j)
      for (int i = 1; i <= npval1; ++i)
        clear_[node(i, j)] = static_cast<std::uint16_t>(((i < npval1) + (j < npval2)) * npset);
  }
  bool test(const grid_edge& e, int level) const {
    const std::int64_t b = index(e, level);
    return (words_[b >> 6] >> (b & 63)) & 1u;
  }
  void set(const grid_edge& e, int level) { set_range(e, level, level + 1); }
  // Levels first..end-1.
  void set_range(const grid_edge& e, int first, int end) {
    std::int64_t b = index(e, first);
    const std::int64_t stop = b + (end - first);
    while (b < stop) {
      const int from = static_cast<int>(b & 63);
      const int count = static_cast<int>(std::min<std::int64_t>(64 - from, stop - b));
      const std::uint64_t mask = (count == 64 ? ~0ull : ((1ull << count) - 1)) << from;
      std::uint64_t& word = words_[static_cast<std::size_t>(b >> 6)];
      clear_[node(e.i, e.j)] -= static_cast<std::uint16_t>(std::popcount(mask & ~word));
      word |= mask;
      b += count;
    }
  }
  bool node_finished(int i, int j) const { return clear_[node(i, j)] == 0; }

 private:
  std::size_t node(int i, int j) const {
    return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(npval1_) + static_cast<std::size_t>(i - 1);
  }
  std::int64_t index(const grid_edge& e, int level) const {
    return (2 * static_cast<std::int64_t>(node(e.i, e.j)) + e.dir) * levels_ + (level - 1);
  }
  int npval1_, levels_;
  std::vector<std::uint64_t> words_;
  std::vector<std::uint16_t> clear_;
};

class line_follower {
 public:
  // Follows the lines of levels first..last.
  line_follower(const contour_grid& grid, const std::vector<float>& levels, int first, int last,
                contour_label_gaps& gaps)
      : grid_(grid), levels_(levels), first_(first), last_(last),
        done_(ipgstate.npval1, ipgstate.npval2, last - first + 1), gaps_(gaps) {
    // The sides of every edge, found once: the scan meets each edge again
    // after every line it traces.
    status_.resize(2 * static_cast<std::size_t>(n1()) * static_cast<std::size_t>(n2()), no_start);
    for (int j = 1; j <= n2(); ++j)
      for (int i = 1; i <= n1(); ++i)
        for (int dir = 0; dir <= 1; ++dir) {
          if ((dir == 0 && i >= n1()) || (dir == 1 && j >= n2())) continue;
          const grid_edge e{i, j, dir};
          const bool ends = grid_.present(i, j) && grid_.present(i + 1 - dir, j + dir);
          status_[edge_slot(e)] = static_cast<std::uint8_t>(side_status(e) | (ends ? 0 : no_start));
        }
  }

  void run() {
    spiral_scan scan(n1(), n2());
    int ci = 1, cj = 1;
    for (int pass = 0; pass <= 1; ++pass) {
      scan.centre_on(ci, cj);
      int i = 0, j = 0;
      while (scan.next(i, j)) {
        if (!start_lines_at(i, j, pass)) continue;
        ci = end_.i;
        cj = end_.j;
        scan.centre_on(ci, cj);
      }
    }
  }

 private:
  bool done(const grid_edge& e, int L) const { return done_.test(e, L - first_ + 1); }
  void mark(const grid_edge& e, int L) { done_.set(e, L - first_ + 1); }

  int n1() const { return ipgstate.npval1; }
  int n2() const { return ipgstate.npval2; }

  float value(int i, int j) const { return grid_.at(i, j); }
  float far_value(const grid_edge& e) const { return e.dir == 0 ? value(e.i + 1, e.j) : value(e.i, e.j + 1); }

  // 0 for an inner edge; 1 on the low border of the other axis, plus 2 on its high border.
  // A cell next to the edge counts when its two nodes off the edge are
  // present; `step` -1 is the low side, 0 the high side.
  bool side_cell_present(const grid_edge& e, int step) const {
    const int di = e.dir == 1 ? (step < 0 ? -1 : 1) : 0;
    const int dj = e.dir == 0 ? (step < 0 ? -1 : 1) : 0;
    const int fi = e.dir == 0 ? 1 : 0, fj = e.dir == 1 ? 1 : 0;
    return grid_.present(e.i + di, e.j + dj) && grid_.present(e.i + fi + di, e.j + fj + dj);
  }

  // 0 for an edge with a whole cell on both sides; 1 when the low side has
  // none (border or missing node), plus 2 when the high side has none.
  int side_status(const grid_edge& e) const {
    const int other = e.dir == 0 ? e.j : e.i;
    const int last = e.dir == 0 ? n2() : n1();
    int s = 1;
    if (other != 1 && side_cell_present(e, -1)) s = 0;
    if (other == last || !side_cell_present(e, 0)) s += 2;
    return s;
  }

  static bool crosses(float a, float b, float level) {
    return std::min(a, b) < level && level <= std::max(a, b);
  }

  std::size_t edge_slot(const grid_edge& e) const {
    return 2 * (static_cast<std::size_t>(e.j - 1) * static_cast<std::size_t>(n1()) + static_cast<std::size_t>(e.i - 1)) +
           static_cast<std::size_t>(e.dir);
  }
  // side_status of an edge that exists.
  int sides(const grid_edge& e) const { return status_[edge_slot(e)] & 3; }

  // The levels first_..last_ an edge from a to b crosses: [lo, hi). The
  // levels ascend, so they are those above min(a, b) up to max(a, b).
  void crossing_levels(float a, float b, int& lo, int& hi) const {
    const auto from = levels_.begin() + (first_ - 1), to = levels_.begin() + last_;
    lo = static_cast<int>(std::upper_bound(from, to, std::min(a, b)) - levels_.begin()) + 1;
    hi = static_cast<int>(std::upper_bound(from, to, std::max(a, b)) - levels_.begin()) + 1;
  }

  // Tries the two edges that start at a node; true when a line was traced.
  // The levels the edge does not cross are marked done, and the first
  // crossed one not yet done is traced.
  bool start_lines_at(int i, int j, int pass) {
    if (done_.node_finished(i, j)) return false;
    for (int dir = 0; dir <= 1; ++dir) {
      const grid_edge e{i, j, dir};
      const int status = status_[edge_slot(e)];
      const int s = status & 3;
      if ((status & no_start) || s == 3 || s + pass == 0) continue;
      const float a = value(i, j), b = far_value(e);
      int lo = 0, hi = 0;
      crossing_levels(a, b, lo, hi);
      done_.set_range(e, 1, lo - first_ + 1);
      done_.set_range(e, hi - first_ + 1, last_ - first_ + 2);
      for (int L = lo; L < hi; ++L) {
        if (done(e, L)) continue;
        trace(e, s, L, (levels_[L - 1] - a) / (b - a));
        return true;
      }
    }
    return false;
  }

  // Corner values of a side of cell (i, j), from its lower to its upper end.
  void side_ends(int ci, int cj, int side, float& a, float& b) const {
    switch (side) {
      case 0: a = value(ci, cj), b = value(ci + 1, cj); break;
      case 1: a = value(ci, cj), b = value(ci, cj + 1); break;
      case 2: a = value(ci, cj + 1), b = value(ci + 1, cj + 1); break;
      default: a = value(ci + 1, cj), b = value(ci + 1, cj + 1); break;
    }
  }

  static grid_edge edge_of_side(int ci, int cj, int side) {
    if (side < 2) return {ci, cj, side};
    return {ci + MOVE[side], cj + MOVE[side + 2], side - 2};
  }

  void append_point(const grid_edge& e, float t) {
    const auto& s = ipgstate;
    const float gi = static_cast<float>(e.i) + (e.dir == 0 ? t : 0.0f);
    const float gj = static_cast<float>(e.j) + (e.dir == 1 ? t : 0.0f);
    const float x = std::fabs(s.xplen) * (gi - 1) / s.rnval11 + s.xplow;
    const float y = std::fabs(s.yplen) * (gj - 1) / s.rnval21 + s.yplow;
    float gx = 0, gy = 0;
    ipgunitstogrunits(x, y, gx, gy);
    xpoly_.push_back(gx);
    ypoly_.push_back(gy);
  }

  void set_line_style(int L) {
    const int type = ipgstate.ipgstyl[L][0];
    if (type == -999) return;
    const int wanted = type < 0 ? 0 : type;
    if (wanted != igrstate.lintyp) igrlinetype(wanted);
    if (ipgstate.laycol == 3)
      set_gradient_colour(levels_[L - 1]);
    else
      igrcolourn(ipgstate.ipgcol[L][0]);
  }

  // Colour over height: each channel runs between the colours of set 1.
  static void set_gradient_colour(float level) {
    const auto& s = ipgstate;
    int r1, g1, b1, r2, g2, b2;
    wrgbsplit(palette_colour(s.ipgcol[1][0]).value, r1, g1, b1);
    wrgbsplit(palette_colour(s.ipgcol[1][1]).value, r2, g2, b2);
    const float f = std::clamp((level - s.zpmin) / s.zplen, 0.0f, 1.0f);
    auto mix = [f](int a, int b) { return static_cast<int>(std::lround(static_cast<float>(a) + f * static_cast<float>(b - a))); };
    igrstate.icolnum = -1;
    igrstate.icolvalue = wrgb(mix(r1, r2), mix(g1, g2), mix(b1, b2));
  }

  void finish_line(int L) {
    const int type = ipgstate.ipgstyl[L][0];
    if (type == -999) {
      igrmoveto(xpoly_.back(), ypoly_.back());
    } else {
      const int factor = ipgstate.ipgthick[L];
      const int width = igrstate.linwid;
      if (factor != 1) igrlinewidth(width * factor);
      draw_contour_line(xpoly_, ypoly_, L, levels_[L - 1], gaps_);
      if (factor != 1) igrlinewidth(width);
    }
    xpoly_.clear();
    ypoly_.clear();
  }

  // Follows one line of level L from edge e, entered from side status s, with
  // the crossing at t along the edge.
  void trace(grid_edge e, int s, int L, float t) {
    const float level = levels_[L - 1];
    int entry = s == 1 ? e.dir : e.dir + 2;
    int ci = e.i - (entry >= 2 ? MOVE[entry] : 0);
    int cj = e.j - (entry >= 2 ? MOVE[entry + 2] : 0);
    int state = 2;
    float cinter[4] = {0, 0, 0, 0};
    for (;;) {
      append_point(e, t);
      mark(e, L);
      if (xpoly_.size() == 1) set_line_style(L);
      if (state != 2 || static_cast<int>(xpoly_.size()) >= max_line_points) break;

      cinter[entry] = t;
      int crossed = 0, exit = -1;
      for (int side = 0; side < 4; ++side) {
        if (side == entry) continue;
        float a = 0, b = 0;
        side_ends(ci, cj, side, a, b);
        if (!crosses(a, b, level)) continue;
        cinter[side] = (level - a) / (b - a);
        ++crossed;
        exit = side;
      }
      if (crossed != 1) {
        // A saddle: pair the sides the same way whichever side the line came in by.
        exit = cinter[2] < cinter[0] ? 3 - entry : 1 - entry;
        if (exit < 0) exit += 4;
      }
      t = cinter[exit];
      e = edge_of_side(ci, cj, exit);
      if (done(e, L))
        state = 4;
      else
        state = sides(e) != 0 ? 3 : 2;
      entry = (exit + 2) % 4;
      ci += exit == 3 ? 1 : exit == 1 ? -1 : 0;
      cj += exit == 2 ? 1 : exit == 0 ? -1 : 0;
    }
    end_ = e;
    finish_line(L);
  }

  const contour_grid& grid_;
  const std::vector<float>& levels_;
  int first_, last_;
  edge_bits done_;
  // Per edge: side_status, plus no_start when the edge is not there or an
  // end of it is missing, so that no line starts on it.
  static constexpr std::uint8_t no_start = 4;
  std::vector<std::uint8_t> status_;
  contour_label_gaps& gaps_;
  std::vector<float> xpoly_, ypoly_;
  grid_edge end_;
};

}  // namespace

void ipgcontour2(std::span<const float> z, int nx, int ny, std::span<const float> levels,
                 std::span<const float> xpos, std::span<const float> ypos) {
  if (ipgstate.igtype != 8) return;
  const contour_grid grid{z, nx};
  if (!contour_grid_fits(grid, ny, "IPgContour2")) return;
  std::vector<float> level_values;
  if (!contour_levels(levels, ipgstate.npset, "IPgContour2", level_values)) return;
  const graphics_style_type saved = yypgsaverestore();
  if (!xpos.empty() || !ypos.empty()) {
    contour_cells(grid, level_values, xpos, ypos);
  } else {
    igrstate.ichali = 1;
    igrstate.chrotar = 0;
    const std::int64_t bits_per_level = 2LL * ipgstate.npval1 * ipgstate.npval2;
    const int group = static_cast<int>(std::clamp<std::int64_t>(max_done_bits / bits_per_level, 1, ipgstate.npset));
    contour_label_gaps gaps;
    for (int first = 1; first <= ipgstate.npset; first += group)
      line_follower(grid, level_values, first, std::min(first + group - 1, ipgstate.npset), gaps).run();
  }
  yypgsaverestore(saved);
}
