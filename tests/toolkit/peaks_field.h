// A smooth field with four Gaussian bumps (one of them a hollow) and a faint
// ripple over the unit square, sampled on an n x n grid with node (i, j) at
// ((i-1)/(n-1), (j-1)/(n-1)), first index fastest. The contour demo and the
// contour benchmarks draw it; bench/contour_vs_matplotlib.py computes the same.
#pragma once

#include <cmath>
#include <vector>

inline std::vector<float> peaks_field(int n) {
  std::vector<float> z;
  z.reserve(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
  for (int j = 0; j < n; ++j)
    for (int i = 0; i < n; ++i) {
      const double x = static_cast<double>(i) / (n - 1), y = static_cast<double>(j) / (n - 1);
      auto bump = [&](double cx, double cy, double w, double h) {
        return h * std::exp(-((x - cx) * (x - cx) + (y - cy) * (y - cy)) / (w * w));
      };
      z.push_back(static_cast<float>(bump(0.3, 0.35, 0.15, 1.0) + bump(0.7, 0.65, 0.2, 0.8) +
                                     bump(0.75, 0.2, 0.1, 0.6) - bump(0.25, 0.8, 0.12, 0.5) +
                                     0.05 * std::sin(12 * x) * std::cos(9 * y)));
    }
  return z;
}
