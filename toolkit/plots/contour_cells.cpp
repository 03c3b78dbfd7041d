#include "toolkit/plots/contour_cells.h"

#include <algorithm>
#include <cmath>

#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"

namespace {

// What to draw in a triangle (corner k, next corner, centre), indexed by
// s(k) + 3 * s(centre) + 9 * s(next), where s is 0 below, 1 on, 2 above the level.
constexpr int ICASE[27] = {0, 0, 9, 0, 1, 5, 7, 4, 8, 0, 3, 6, 2, 3, 2, 6, 3, 0, 8, 4, 7, 5, 1, 0, 9, 0, 0};

struct cell_point {
  float x = 0, y = 0, h = 0;
};

float node_position(std::span<const float> given, int k, int count, float length, float low) {
  if (static_cast<int>(given.size()) >= count) return given[k - 1];
  return std::fabs(length) * static_cast<float>(k - 1) / static_cast<float>(count - 1) + low;
}

// The point on the straight line a-b where the height is 0.
cell_point zero_between(const cell_point& a, const cell_point& b) {
  const float d = b.h - a.h;
  return {(b.h * a.x - a.h * b.x) / d, (b.h * a.y - a.h * b.y) / d, 0};
}

int status(float h) { return h < 0 ? 0 : h == 0 ? 1 : 2; }

class cell_tracer {
 public:
  cell_tracer(const contour_grid& grid, const std::vector<float>& levels, std::span<const float> xpos,
              std::span<const float> ypos)
      : grid_(grid), levels_(levels), xpos_(xpos), ypos_(ypos) {}

  void run() {
    const auto& s = ipgstate;
    for (int j = s.npval2 - 1; j >= 1; --j)
      for (int i = 1; i <= s.npval1 - 1; ++i) cell(i, j);
  }

 private:
  void cell(int i, int j) {
    const auto& s = ipgstate;
    const int ci[4] = {i, i + 1, i + 1, i};
    const int cj[4] = {j, j, j + 1, j + 1};
    float z[4], x[4], y[4];
    bool present[4];
    int count = 0;
    float low = 0, high = 0;
    for (int k = 0; k < 4; ++k) {
      z[k] = grid_.at(ci[k], cj[k]);
      x[k] = node_position(xpos_, ci[k], s.npval1, s.xplen, s.xplow);
      y[k] = node_position(ypos_, cj[k], s.npval2, s.yplen, s.yplow);
      present[k] = grid_.present(ci[k], cj[k]);
      if (!present[k]) continue;
      low = count == 0 ? z[k] : std::min(low, z[k]);
      high = count == 0 ? z[k] : std::max(high, z[k]);
      ++count;
    }
    if (count < 2 || levels_.front() > high || levels_.back() < low) return;
    const float share = 1.0f / static_cast<float>(count);
    for (int L = 1; L <= s.npset; ++L) {
      const float level = levels_[L - 1];
      if (level < low || level > high) continue;
      cell_point corner[4];
      cell_point centre;
      for (int k = 0; k < 4; ++k) {
        corner[k] = {x[k], y[k], z[k] - level};
        if (!present[k]) continue;
        centre.x += x[k] * share;
        centre.y += y[k] * share;
        centre.h += corner[k].h * share;
      }
      for (int k = 0; k < 4; ++k)
        if (present[k] && present[(k + 1) % 4]) triangle(corner[k], corner[(k + 1) % 4], centre, L);
    }
  }

  void triangle(const cell_point& k, const cell_point& next, const cell_point& centre, int L) {
    cell_point a, b;
    switch (ICASE[status(k.h) + 3 * status(centre.h) + 9 * status(next.h)]) {
      case 1: a = k, b = centre; break;
      case 2: a = centre, b = next; break;
      case 3: a = next, b = k; break;
      case 4: a = k, b = zero_between(centre, next); break;
      case 5: a = centre, b = zero_between(k, next); break;
      case 6: a = next, b = zero_between(k, centre); break;
      case 7: a = zero_between(k, centre), b = zero_between(centre, next); break;
      case 8: a = zero_between(centre, next), b = zero_between(k, next); break;
      case 9: a = zero_between(k, next), b = zero_between(k, centre); break;
      default: return;
    }
    if (L != last_level_) {
      const auto& s = ipgstate;
      igrlinetype(std::max(s.ipgstyl[L][0], 0));
      igrcolourn(s.ipgcol[L][0]);
      igrlinewidth(s.ipgthick[L]);
      last_level_ = L;
    }
    float ax, ay, bx, by;
    ipgunitstogrunits(a.x, a.y, ax, ay);
    ipgunitstogrunits(b.x, b.y, bx, by);
    igrjoin(ax, ay, bx, by);
  }

  const contour_grid& grid_;
  const std::vector<float>& levels_;
  std::span<const float> xpos_, ypos_;
  int last_level_ = 0;
};

}  // namespace

void contour_cells(const contour_grid& grid, const std::vector<float>& levels, std::span<const float> xpos,
                   std::span<const float> ypos) {
  if (levels.empty()) return;
  cell_tracer(grid, levels, xpos, ypos).run();
}
