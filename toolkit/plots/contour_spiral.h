// The order in which contour lines are looked for: a square spiral over the
// grid nodes that grows outward from a centre, so that after a line ends the
// search starts again where it ended and the next line lies close by.
#pragma once

#include <algorithm>

// The square spiral over the grid nodes around a centre: ring after ring,
// each ring walked along +j, -i, -j, +i, clipped to the grid.
class spiral_scan {
 public:
  spiral_scan(int n1, int n2) : n1_(n1), n2_(n2) {}

  // Starts a new spiral around (i, j), from ring `ring` on (0 is the centre
  // itself) when the caller knows that the rings inside hold nothing wanted.
  void centre_on(int i, int j, int ring = 0) {
    ci_ = i;
    cj_ = j;
    ring_ = ring > 0 ? ring - 1 : 0;
    side_ = 4;
    step_ = end_ = 0;
    centre_pending_ = ring == 0;
  }

  // Passes over the nodes of the present side that lie in the same block of
  // `size` x `size` nodes (blocks counted from node 1) as the node returned last.
  void skip_block(int size) {
    if (ring_ == 0) return;  // the centre
    int i = 0, j = 0;
    node_on_side(step_ - 1, i, j);
    const int along = (side_ == 0 || side_ == 2 ? j : i) - 1;
    const bool rising = side_ == 0 || side_ == 3;
    step_ += rising ? size - 1 - along % size : along % size;
  }

  // The next node, false when every ring has left the grid.
  bool next(int& i, int& j) {
    if (centre_pending_) {
      centre_pending_ = false;
      i = ci_;
      j = cj_;
      return true;
    }
    while (step_ >= end_) {
      if (side_ == 4) {
        ++ring_;
        if (ci_ - ring_ < 1 && ci_ + ring_ > n1_ && cj_ - ring_ < 1 && cj_ + ring_ > n2_) return false;
        side_ = 0;
      } else {
        ++side_;
        if (side_ == 4) continue;
      }
      clip_side();
    }
    node_on_side(step_++, i, j);
    return true;
  }

 private:
  // The steps k of the present side whose nodes lie in the grid.
  void clip_side() {
    const int r = ring_;
    int fixed_ok = 0, low = 0, high = 2 * r - 1;
    switch (side_) {
      case 0:  // i = ci + r, j = cj - r + 1 + k
        fixed_ok = ci_ + r <= n1_;
        low = std::max(low, r - cj_), high = std::min(high, n2_ - cj_ + r - 1);
        break;
      case 1:  // j = cj + r, i = ci + r - 1 - k
        fixed_ok = cj_ + r <= n2_;
        low = std::max(low, ci_ + r - 1 - n1_), high = std::min(high, ci_ + r - 2);
        break;
      case 2:  // i = ci - r, j = cj + r - 1 - k
        fixed_ok = ci_ - r >= 1;
        low = std::max(low, cj_ + r - 1 - n2_), high = std::min(high, cj_ + r - 2);
        break;
      default:  // j = cj - r, i = ci - r + 1 + k
        fixed_ok = cj_ - r >= 1;
        low = std::max(low, r - ci_), high = std::min(high, n1_ - ci_ + r - 1);
        break;
    }
    step_ = low;
    end_ = fixed_ok ? high + 1 : low;
  }

  void node_on_side(int k, int& i, int& j) const {
    const int r = ring_;
    switch (side_) {
      case 0: i = ci_ + r, j = cj_ - r + 1 + k; break;
      case 1: i = ci_ + r - 1 - k, j = cj_ + r; break;
      case 2: i = ci_ - r, j = cj_ + r - 1 - k; break;
      default: i = ci_ - r + 1 + k, j = cj_ - r; break;
    }
  }

  int n1_, n2_;
  int ci_ = 1, cj_ = 1, ring_ = 0, side_ = 4, step_ = 0, end_ = 0;
  bool centre_pending_ = true;
};
