// Contour lines by line following. Lines are found by a square spiral scan
// over the grid nodes and followed cell by cell; each grid edge remembers,
// per level, whether it still needs attention (the `done` bits), so that no
// edge is tested twice at one level.
#include <algorithm>
#include <array>
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
#include "toolkit/plots/surface_view.h"

namespace {

constexpr int max_line_points = 500;

// The done bits of a very large grid with many levels would not fit in
// memory at once: levels are then followed in groups whose bits stay below
// this many (256 MiB).
constexpr std::int64_t max_done_bits = 1LL << 31;

// The most levels followed together: a node's count of open starts on its
// two edges stays within 16 bits.
constexpr int max_levels_together = 32767;

// x and y steps of the four cell sides 0 bottom, 1 left, 2 top, 3 right:
// MOVE(s) and MOVE(s + 2).
constexpr int MOVE[6] = {1, 0, 0, 1, 1, 0};

// An edge of the grid: from node (i, j) along i (dir 0) or along j (dir 1).
struct grid_edge {
  int i = 1, j = 1, dir = 0;
};

// A point in grid units: node (i, j) stands at (i, j).
struct grid_point {
  float i = 0, j = 0;
};

// The `done` bits: one per edge and level, set when a line has passed there.
class edge_bits {
 public:
  edge_bits(int npval1, int npval2, int npset)
      : npval1_(npval1), levels_(npset),
        words_(static_cast<std::size_t>(2LL * npval1 * npval2 * npset / 64 + 1), 0u) {}
  bool test(const grid_edge& e, int level) const {
    const std::int64_t b = index(e, level);
    return (words_[static_cast<std::size_t>(b >> 6)] >> (b & 63)) & 1u;
  }
  // True when the bit was clear.
  bool set(const grid_edge& e, int level) {
    const std::int64_t b = index(e, level);
    std::uint64_t& word = words_[static_cast<std::size_t>(b >> 6)];
    const std::uint64_t bit = 1ull << (b & 63);
    const bool was_clear = (word & bit) == 0;
    word |= bit;
    return was_clear;
  }

 private:
  std::int64_t index(const grid_edge& e, int level) const {
    const std::int64_t node = static_cast<std::int64_t>(e.j - 1) * npval1_ + (e.i - 1);
    return (2 * node + e.dir) * levels_ + (level - 1);
  }
  int npval1_;     // nodes along i
  int levels_;     // levels followed together, the bits of one edge
  std::vector<std::uint64_t> words_;
};

// Where lines can still start: per node, the (edge, level) pairs of its two
// edges that a line may start on and that no line has passed yet, and the
// sums of those over blocks of nodes, so that the scan for the next line
// passes an empty block, or every ring short of the nearest open block, at
// once. Pass 0 starts lines only on edges by the border (or by a missing
// node), pass 1 on any edge; each pass has its own counts.
class open_starts {
 public:
  static constexpr int block = 16;  // nodes along each side of a block

  open_starts(int n1, int n2)
      : n1_(n1), n2_(n2), blocks1_((n1 + block - 1) / block), blocks2_((n2 + block - 1) / block) {
    for (auto& counts : node_) counts.assign(static_cast<std::size_t>(n1) * static_cast<std::size_t>(n2), 0);
    for (auto& counts : block_) counts.assign(static_cast<std::size_t>(blocks1_) * static_cast<std::size_t>(blocks2_), 0);
  }

  // `count` starts at node (i, j), on an inner edge or one by the border.
  void add(int i, int j, bool inner, int count) { change(i, j, inner, count); }
  void remove_one(int i, int j, bool inner) { change(i, j, inner, -1); }

  bool node_open(int i, int j, int pass) const { return node_[pass][node(i, j)] != 0; }
  bool block_open(int i, int j, int pass) const { return block_[pass][block_of(i, j)] != 0; }

  // The innermost ring of a square spiral around (ci, cj) that reaches an
  // open block; -1 when no start is left in the pass.
  int first_ring(int ci, int cj, int pass) const {
    int best = -1;
    for (int bj = 0; bj < blocks2_; ++bj)
      for (int bi = 0; bi < blocks1_; ++bi) {
        if (block_[pass][static_cast<std::size_t>(bj) * blocks1_ + bi] == 0) continue;
        const int ring = std::max(gap(ci, bi, n1_), gap(cj, bj, n2_));
        if (best < 0 || ring < best) best = ring;
      }
    return best;
  }

 private:
  void change(int i, int j, bool inner, int by) {
    for (int pass = inner ? 1 : 0; pass <= 1; ++pass) {
      node_[pass][node(i, j)] = static_cast<std::uint16_t>(node_[pass][node(i, j)] + by);
      block_[pass][block_of(i, j)] += by;
    }
  }
  // Nodes from c to the nearest node of block b along an axis of n nodes.
  static int gap(int c, int b, int n) {
    const int low = b * block + 1, high = std::min(low + block - 1, n);
    return std::max({0, low - c, c - high});
  }
  std::size_t node(int i, int j) const {
    return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(n1_) + static_cast<std::size_t>(i - 1);
  }
  std::size_t block_of(int i, int j) const {
    return static_cast<std::size_t>((j - 1) / block) * static_cast<std::size_t>(blocks1_) +
           static_cast<std::size_t>((i - 1) / block);
  }
  int n1_, n2_;            // nodes along i and j
  int blocks1_, blocks2_;  // blocks along i and j
  // Open starts of pass 0 and of pass 1, per node (at most two edges of
  // max_levels_together levels) and per block.
  std::array<std::vector<std::uint16_t>, 2> node_;
  std::array<std::vector<std::int32_t>, 2> block_;
};

// The drawing of the lines the follower finds: each line, given in grid
// units, is converted to graphics units and drawn in its level's style, with
// its label. The label gaps are kept over all the levels of one call.
class line_drawing {
 public:
  explicit line_drawing(const std::vector<float>& levels) : levels_(levels) {}

  // Draws a line of level L, in the level's style (a level of type -999
  // only moves the pen to the line's end).
  void draw(const std::vector<grid_point>& line, int L) {
    in_graphics_units(line);
    set_line_style(L);
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
  }

 private:
  // The line in graphics units, into xpoly_, ypoly_; in a three-dimensional
  // layout it lies on the base at height z2d3d, seen as the view shows it.
  void in_graphics_units(const std::vector<grid_point>& line) {
    const auto& s = ipgstate;
    xpoly_.clear();
    ypoly_.clear();
    for (const grid_point& p : line) {
      const float x = std::fabs(s.xplen) * (p.i - 1) / s.rnval11 + s.xplow;
      const float y = std::fabs(s.yplen) * (p.j - 1) / s.rnval21 + s.yplow;
      float gx = 0, gy = 0;
      if (s.bplot3d)
        ipgunitstogrunits3(x, y, s.z2d3d, gx, gy);
      else
        ipgunitstogrunits(x, y, gx, gy);
      xpoly_.push_back(gx);
      ypoly_.push_back(gy);
    }
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

  const std::vector<float>& levels_;  // level L at L - 1
  contour_label_gaps gaps_;           // the label gaps of every level drawn so far
  std::vector<float> xpoly_, ypoly_;  // the line being drawn, graphics units
};

class line_follower {
 public:
  // Follows the lines of levels first..last.
  line_follower(const contour_grid& grid, const std::vector<float>& levels, int first, int last,
                line_drawing& drawing)
      : grid_(grid), levels_(levels), first_(first), last_(last),
        done_(ipgstate.npval1, ipgstate.npval2, last - first + 1), starts_(ipgstate.npval1, ipgstate.npval2),
        drawing_(drawing) {
    // The sides of every edge and the starts open on it, found once: the
    // scan for the next line would otherwise meet each edge again after
    // every line it traces.
    const auto from = levels_.begin() + (first - 1), to = levels_.begin() + last;
    rank_.resize(static_cast<std::size_t>(n1()) * static_cast<std::size_t>(n2()));
    present_.resize(rank_.size());
    for (int j = 1; j <= n2(); ++j)
      for (int i = 1; i <= n1(); ++i) {
        rank_[node_slot(i, j)] = static_cast<int>(std::upper_bound(from, to, value(i, j)) - levels_.begin()) + 1;
        present_[node_slot(i, j)] = grid_.present(i, j);
      }
    status_.resize(2 * rank_.size(), no_start);
    for (int j = 1; j <= n2(); ++j)
      for (int i = 1; i <= n1(); ++i)
        for (int dir = 0; dir <= 1; ++dir) {
          if ((dir == 0 && i >= n1()) || (dir == 1 && j >= n2())) continue;
          const grid_edge e{i, j, dir};
          const bool ends = present(i, j) && present(i + 1 - dir, j + dir);
          const int s = side_status(e);
          status_[edge_slot(e)] = static_cast<std::uint8_t>(s | (ends ? 0 : no_start));
          if (!can_start(e)) continue;
          int lo = 0, hi = 0;
          crossing_levels(e, lo, hi);
          starts_.add(i, j, s == 0, hi - lo);
        }
  }

  // Traces every line, each time the first start met by a square spiral
  // around the end of the line before: first the lines that start on the
  // border, then the closed lines inside.
  void run() {
    spiral_scan scan(n1(), n2());
    int ci = 1, cj = 1;
    for (int pass = 0; pass <= 1; ++pass) {
      int i = 0, j = 0;
      while (next_start(scan, ci, cj, pass, i, j)) {
        start_line_at(i, j, pass);
        ci = end_.i;
        cj = end_.j;
      }
    }
  }

 private:
  bool done(const grid_edge& e, int L) const { return done_.test(e, L - first_ + 1); }
  void mark(const grid_edge& e, int L) {
    if (done_.set(e, L - first_ + 1) && can_start(e)) starts_.remove_one(e.i, e.j, sides(e) == 0);
  }

  int n1() const { return ipgstate.npval1; }
  int n2() const { return ipgstate.npval2; }

  float value(int i, int j) const { return grid_.at(i, j); }
  bool present(int i, int j) const { return present_[node_slot(i, j)] != 0; }
  float far_value(const grid_edge& e) const { return e.dir == 0 ? value(e.i + 1, e.j) : value(e.i, e.j + 1); }

  // 0 for an inner edge; 1 on the low border of the other axis, plus 2 on its high border.
  // A cell next to the edge counts when its two nodes off the edge are
  // present; `step` -1 is the low side, 0 the high side.
  bool side_cell_present(const grid_edge& e, int step) const {
    const int di = e.dir == 1 ? (step < 0 ? -1 : 1) : 0;
    const int dj = e.dir == 0 ? (step < 0 ? -1 : 1) : 0;
    const int fi = e.dir == 0 ? 1 : 0, fj = e.dir == 1 ? 1 : 0;
    return present(e.i + di, e.j + dj) && present(e.i + fi + di, e.j + fj + dj);
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

  std::size_t node_slot(int i, int j) const {
    return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(n1()) + static_cast<std::size_t>(i - 1);
  }
  std::size_t edge_slot(const grid_edge& e) const { return 2 * node_slot(e.i, e.j) + static_cast<std::size_t>(e.dir); }
  // side_status of an edge that exists.
  int sides(const grid_edge& e) const { return status_[edge_slot(e)] & 3; }

  // The levels first_..last_ an edge crosses: [lo, hi), those above the
  // lower end's value up to the higher end's. The levels ascend, so these
  // run from the lower rank of the two ends to the higher.
  void crossing_levels(const grid_edge& e, int& lo, int& hi) const {
    const int a = rank_[node_slot(e.i, e.j)];
    const int b = e.dir == 0 ? rank_[node_slot(e.i + 1, e.j)] : rank_[node_slot(e.i, e.j + 1)];
    lo = std::min(a, b);
    hi = std::max(a, b);
  }

  // Whether a line may start on an edge (in one pass or the other).
  bool can_start(const grid_edge& e) const {
    const int status = status_[edge_slot(e)];
    return (status & no_start) == 0 && (status & 3) != 3;
  }

  // The first node of the spiral around (ci, cj) where a line starts in the
  // pass; false when none is left.
  bool next_start(spiral_scan& scan, int ci, int cj, int pass, int& i, int& j) const {
    const int ring = starts_.first_ring(ci, cj, pass);
    if (ring < 0) return false;
    scan.centre_on(ci, cj, ring);
    while (scan.next(i, j)) {
      if (!starts_.block_open(i, j, pass))
        scan.skip_block(open_starts::block);
      else if (starts_.node_open(i, j, pass))
        return true;
    }
    return false;
  }

  // Traces the line of the first edge of node (i, j) that a line starts on
  // in the pass, at its lowest crossed level that no line has passed yet.
  void start_line_at(int i, int j, int pass) {
    for (int dir = 0; dir <= 1; ++dir) {
      const grid_edge e{i, j, dir};
      if (!can_start(e)) continue;
      const int s = sides(e);
      if (s + pass == 0) continue;
      const float a = value(i, j), b = far_value(e);
      int lo = 0, hi = 0;
      crossing_levels(e, lo, hi);
      for (int L = lo; L < hi; ++L) {
        if (done(e, L)) continue;
        follow(e, s, L, (levels_[L - 1] - a) / (b - a));
        drawing_.draw(line_, L);
        return;
      }
    }
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

  // The crossing at t along edge e, in grid units: node (i, j) is (i, j).
  static grid_point point_on(const grid_edge& e, float t) {
    return {static_cast<float>(e.i) + (e.dir == 0 ? t : 0.0f), static_cast<float>(e.j) + (e.dir == 1 ? t : 0.0f)};
  }

  // Follows one line of level L from edge e, entered from side status s, with
  // the crossing at t along the edge, and marks the edges it crosses: its
  // points in grid units go to line_, the edge it ends on to end_.
  void follow(grid_edge e, int s, int L, float t) {
    const float level = levels_[L - 1];
    int entry = s == 1 ? e.dir : e.dir + 2;
    int ci = e.i - (entry >= 2 ? MOVE[entry] : 0);
    int cj = e.j - (entry >= 2 ? MOVE[entry + 2] : 0);
    int state = 2;
    float cinter[4] = {0, 0, 0, 0};
    line_.clear();
    for (;;) {
      line_.push_back(point_on(e, t));
      mark(e, L);
      if (state != 2 || static_cast<int>(line_.size()) >= max_line_points) break;

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
  }

  const contour_grid& grid_;
  const std::vector<float>& levels_;
  int first_, last_;
  edge_bits done_;
  open_starts starts_;
  // Per edge: side_status, plus no_start when the edge is not there or an
  // end of it is missing, so that no line starts on it.
  static constexpr std::uint8_t no_start = 4;
  std::vector<std::uint8_t> status_;
  // Per node, the first of the levels first_..last_ above its value
  // (last_ + 1 when none is).
  std::vector<int> rank_;
  std::vector<std::uint8_t> present_;  // per node, whether its value counts
  line_drawing& drawing_;
  std::vector<grid_point> line_;  // the line followed last, grid units
  grid_edge end_;                 // the edge it ended on
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
    const int group = static_cast<int>(std::clamp<std::int64_t>(max_done_bits / bits_per_level, 1, std::min(ipgstate.npset, max_levels_together)));
    line_drawing drawing(level_values);
    for (int first = 1; first <= ipgstate.npset; first += group)
      line_follower(grid, level_values, first, std::min(first + group - 1, ipgstate.npset), drawing).run();
  }
  yypgsaverestore(saved);
}
